// SPDX-License-Identifier: MIT
// What keys do to a form: which control they act on, and how it moves. At first no control has the focus.
//
// The toolkit's own navigation is not used: it makes each radio button a stop, and its arrows go by where
// things stand.
//
// The radio buttons are one stop of the Tab key, at the checked one; check boxes and push buttons are a stop
// each. Arrows move within the controls of one kind, round in a ring, and select what they reach if it is a
// radio button.
#pragma once

#include "platform/dialogs/StartForm.h"

namespace platform
{

class FormFocus
{
public:
    // The form is borrowed.
    explicit FormFocus(StartForm& owner);

    // The control with the focus, or FormClosed while there is none.
    int id = FormClosed;

    void Tab(bool backwards);
    // step 1 for right and down, -1 for left and up. Without a focus it goes to Tab's first or last stop.
    void Arrow(int step);

    // These return the push button that was pressed, or FormClosed: the form stays open.
    int Space(); // clicks the control that has the focus
    int Enter(); // presses the push button that has the focus, otherwise the form's accept button

private:
    bool IsStop(const FormControl& control) const;

    StartForm& form;
};

} // namespace platform
