// SPDX-License-Identifier: MIT
#include "platform/dialogs/FormFocus.h"

namespace platform
{

FormFocus::FormFocus(StartForm& owner) : form(owner) {}

bool FormFocus::IsStop(const FormControl& control) const
{
    if (control.kind != FormRadioButton)
        return true;
    // With no radio button checked the first one stands for all.
    const FormControl* stop = nullptr;
    for (const FormControl& other : form.controls)
        if (other.kind == FormRadioButton && (!stop || (other.checked && !stop->checked)))
            stop = &other;
    return &control == stop;
}

void FormFocus::Tab(bool backwards)
{
    const int count = int(form.controls.size());
    const int step = backwards ? -1 : 1;
    int at = backwards ? count : -1;
    for (int i = 0; i < count; ++i)
        if (form.controls[i].id == id)
            at = i;
    for (int tries = 0; tries < count; ++tries) {
        at = (at + step + count) % count;
        if (IsStop(form.controls[at])) {
            id = form.controls[at].id;
            return;
        }
    }
}

void FormFocus::Arrow(int step)
{
    const FormControl* from = form.Find(id);
    if (!from) {
        Tab(step < 0);
        return;
    }
    const int count = int(form.controls.size());
    int at = int(from - form.controls.data());
    do
        at = (at + step + count) % count;
    while (form.controls[at].kind != from->kind);
    id = form.controls[at].id;
    if (from->kind == FormRadioButton)
        form.Click(id);
}

int FormFocus::Space()
{
    return form.Click(id);
}

int FormFocus::Enter()
{
    const FormControl* focused = form.Find(id);
    return focused && focused->kind == FormPushButton ? form.Click(id) : form.Click(form.acceptId);
}

} // namespace platform
