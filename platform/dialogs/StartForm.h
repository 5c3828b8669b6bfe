// SPDX-License-Identifier: MIT
// The modal start form: what stands on it, what a click or a key does to it, and showing it. The state is
// plain data, so that tests and tools can read and answer a form without a display; the window that draws
// it is FormWindow's.
//
// Units: places and sizes are in dialog units, as resource editors count them: a quarter of the font's
// average character width across, an eighth of its height down. The font is Arial 8, whose
// character is 6 by 14 pixels at 96 dots per inch, so a unit is 1.5 pixels across and 1.75 down: the form of
// 232 by 143 units is 348 by 250 pixels, and a picture of 348 by 138 pixels fills it down to unit 79.
#pragma once

#include <string>
#include <vector>

namespace platform
{

// Pixels at 96 dots per inch, halves rounded up. For units of 0 and more.
int FormPixelsAcross(int units);
int FormPixelsDown(int units);

enum FormControlKind {
    FormRadioButton, // all radio buttons of a form are one group
    FormCheckBox,    // stands at the right end of its place, behind its text
    FormPushButton
};

struct FormControl {
    int id; // not 0
    FormControlKind kind;
    std::string text;
    int x, y, width, height; // dialog units, from the form's top left corner
    bool checked;            // radio buttons and check boxes
};

const int FormClosed = 0; // what a form returns that no push button ended

struct StartForm {
    int width, height;                 // dialog units
    std::string picture;               // name of an embedded resource, shown at 0, 0 in its full pixel size
    std::vector<FormControl> controls; // in the order in which Tab visits them
    int acceptId;                      // the push button that Enter presses
    int leaveId;                       // the push button that Escape presses

    // The control of that id, or null.
    const FormControl* Find(int id) const;
    FormControl* Find(int id);

    // Sets and reads one check mark and no other, not even in a group of radio buttons. An id that no
    // control has is allowed: nothing is set, and false is read.
    void Check(int id, bool checked);
    bool IsChecked(int id) const;

    // What a click does: selects a radio button alone of its group, turns a check box over. Returns the id
    // if it was a push button, otherwise FormClosed: the form stays open.
    int Click(int id);
};

// Shows the form and returns when the user is through with it: the id of the push button that ended it, or
// FormClosed if the window was closed. The check marks in form are then as the user left them. The form is
// off the screen on return. Needs a display (see Screen.h); without one it counts as closed.
int ShowStartForm(StartForm& form);

} // namespace platform
