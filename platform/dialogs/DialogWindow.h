// SPDX-License-Identifier: MIT
// The window that the start form and the message boxes are made of: modal, of fixed size, in the middle of
// the screen, and above a full-screen window of the show. This header knows FLTK: only form and boxes
// include it.
//
// Its X window is made here and not by FLTK, which puts a window on the screen before one can tell the
// window manager whom it belongs to, that it stays above, and what frame it wants.
#pragma once

#include "platform/dialogs/DialogColours.h"
#include "platform/dialogs/Pixmap.h"

#include <FL/Fl_Double_Window.H>

#include <string>

namespace platform
{

Fl_Color ToolkitColour(Tint tint);

// Draws the pixmap with its top left corner there. Only while a window is being drawn.
void DrawPixmap(const Pixmap& pixmap, int x, int y);

// The text's capitals stand in the middle of the height. In the current font.
void DrawTextLine(const std::string& text, int x, int y, int height, Tint tint);

// Pixels of this desktop.
struct PixelRect {
    int x, y, width, height;

    bool Holds(int pointX, int pointY) const;
};

struct ButtonLook {
    bool accepts; // the one that Enter presses
    bool focused;
    bool hovered;
    bool pressed;
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

    // A push button with its text, in the current font, on a ground of that colour.
    void DrawPushButton(PixelRect place, const std::string& text, ButtonLook look, Tint ground);
    // A line round a place, which shows that it has the keyboard. The pixmap is the place.
    void DrawFocusLine(Pixmap& pixmap, Tint ground);

    const float scale;    // see ScreenScale
    const bool managed;   // whether there is a window manager, which draws the title frame
    const PixelRect area; // what there is room on: the show's window if it fills the screen, or the screen

private:
    const Decoration decoration;
    const std::string title;
};

} // namespace platform
