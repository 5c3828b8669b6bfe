// SPDX-License-Identifier: MIT
// A push button, check box or radio button of form and boxes: the toolkit's own button, whose clicks, groups
// and callbacks it keeps, in the look of the dialogs. The look is drawn here, since the toolkit's boxes and
// marks have neither smooth edges nor a size that follows the screen's.
//
// It takes no keyboard focus: its window says by `focused` who shows the focus line, and hears all keys.
#pragma once

#include <FL/Fl_Button.H>

#include <string>

namespace platform
{

class DialogButton : public Fl_Button
{
public:
    enum Kind {
        PushButton,
        RadioButton, // mark at the left, the text behind it
        CheckBox     // mark at the right, the text ahead of it
    };

    // The place is in pixels of the desktop. A radio button or check box grows beyond it, away from its mark,
    // as far as its text needs. `fontSize` and `screenScale` as DialogWindow has them.
    DialogButton(Kind buttonKind, int x, int y, int width, int height, const std::string& text, Fl_Font font,
                 int fontSize, float screenScale);

    bool accepts = false; // a push button: the one that Enter presses
    bool focused = false;

    void draw() override;
    int handle(int event) override;

private:
    void DrawPushButton();
    void DrawMark(int left, int top);
    bool IsHovered() const;
    bool IsPressed() const;

    const Kind kind;
    const float scale;
};

} // namespace platform
