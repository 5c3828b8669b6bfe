// SPDX-License-Identifier: MIT
#include "platform/dialogs/StartForm.h"

#include "platform/Screen.h"
#include "platform/dialogs/FormWindow.h"
#include "platform/dialogs/StartFormHooks.h"

namespace platform
{

static const int baseWidth = 6; // pixels, of the average character of Arial 8
static const int baseHeight = 14;

static std::function<int(StartForm&)> formAnswer;

int FormPixelsAcross(int units)
{
    return (units * baseWidth + 2) / 4;
}

int FormPixelsDown(int units)
{
    return (units * baseHeight + 4) / 8;
}

const FormControl* StartForm::Find(int id) const
{
    for (const FormControl& control : controls)
        if (control.id == id)
            return &control;
    return nullptr;
}

FormControl* StartForm::Find(int id)
{
    for (FormControl& control : controls)
        if (control.id == id)
            return &control;
    return nullptr;
}

void StartForm::Check(int id, bool checked)
{
    if (FormControl* control = Find(id))
        control->checked = checked;
}

bool StartForm::IsChecked(int id) const
{
    const FormControl* control = Find(id);
    return control && control->checked;
}

int StartForm::Click(int id)
{
    FormControl* clicked = Find(id);
    if (!clicked)
        return FormClosed;
    switch (clicked->kind) {
    case FormRadioButton:
        for (FormControl& control : controls)
            if (control.kind == FormRadioButton)
                control.checked = &control == clicked;
        return FormClosed;
    case FormCheckBox:
        clicked->checked = !clicked->checked;
        return FormClosed;
    case FormPushButton:
        return clicked->id;
    }
    return FormClosed;
}

int ShowStartForm(StartForm& form)
{
    if (formAnswer)
        return formAnswer(form);
    if (!HasDisplay())
        return FormClosed;
    return RunFormWindow(form);
}

void AnswerStartForm(std::function<int(StartForm& form)> answer)
{
    formAnswer = answer;
}

} // namespace platform
