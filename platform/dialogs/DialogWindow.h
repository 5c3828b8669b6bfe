// SPDX-License-Identifier: MIT
// The window that the start form and the message boxes are made of: modal, of fixed size, in the middle of
// the screen, and above a full-screen window of the show. This header knows FLTK: only form and boxes
// include it.
//
// Its X window is made here and not by FLTK, which puts a window on the screen before one can tell the
// window manager whom it belongs to, that it stays above, and what frame it wants.
#pragma once

#include <FL/Fl_Double_Window.H>

#include <string>

namespace platform
{

// Pixels of this desktop.
struct PixelRect {
    int x, y, width, height;
};

class DialogWindow : public Fl_Double_Window
{
public:
    enum Decoration {
        Undecorated, // nothing round it, no entry in the task bar
        TitleBar     // title bar and border, as the window manager draws them
    };

    // There must be a display. Derived classes set the size before the window is shown.
    DialogWindow(Decoration wantedDecoration, std::string caption);

    // Shows the window and returns when it is hidden and off the screen. SIGINT and SIGTERM close it too
    // if the show's window is there to catch them.
    void Run();

    void show() override;
    int handle(int event) override;

protected:
    // A length of the design in pixels of this desktop.
    int Scaled(float length) const;

    const float scale;    // see ScreenScale
    const bool managed;   // whether there is a window manager, which draws the title frame
    const PixelRect area; // where there is room: the show's window if it fills the screen, else the screen

private:
    const Decoration decoration;
    const std::string title;
};

} // namespace platform
