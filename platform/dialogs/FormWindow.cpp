// SPDX-License-Identifier: MIT
#include "platform/dialogs/FormWindow.h"

#include "platform/EmbeddedFiles.h"
#include "platform/ShowColours.h"
#include "platform/dialogs/DialogButton.h"
#include "platform/dialogs/DialogWindow.h"
#include "platform/dialogs/FormFocus.h"
#include "platform/dialogs/Shapes.h"

#include <FL/Fl.H>
#include <FL/Fl_PNG_Image.H>
#include <FL/fl_draw.H>

#include <algorithm>
#include <memory>
#include <vector>

namespace platform
{

using namespace showcolours;

// Places are counted in units of Arial at 8 points (see StartForm.h), but the text is set at 10, which is
// easier to read. Where Arial isn't installed fontconfig knows what comes closest.
static const Fl_Font formFont = FL_FREE_FONT;
static const char* const formFontName = " Arial";

// Pixels at 96 dots per inch.
static const float fontSize = 13;
static const float edgeWidth = 1; // all round, outside the form's own size

class FormWindow : public DialogWindow
{
public:
    explicit FormWindow(StartForm& shown);

    void draw() override;
    int handle(int event) override;

    int result = FormClosed;

private:
    void AddControl(const FormControl& control);
    void ShowState();
    void Click(int id);
    void End(int button);
    void DrawPicture();
    void Drag();
    int HandleKey();

    StartForm& form;
    FormFocus focus;
    std::unique_ptr<Fl_Image> picture;  // in this desktop's pixels
    std::vector<DialogButton*> buttons; // of the controls, in their order; they belong to this window
    bool dragging = false;
    int dragX = 0, dragY = 0;
};

FormWindow::FormWindow(StartForm& shown) : DialogWindow(Undecorated, ""), form(shown), focus(shown)
{
    Fl::set_font(formFont, formFontName);
    size(Scaled(float(FormPixelsAcross(form.width)) + 2 * edgeWidth),
         Scaled(float(FormPixelsDown(form.height)) + 2 * edgeWidth));
    callback([](Fl_Widget* window, void*) { static_cast<FormWindow*>(window)->End(FormClosed); });
    for (const FormControl& control : form.controls)
        AddControl(control);
    ShowState();

    const unsigned char* data;
    size_t length;
    if (!FindEmbeddedFile(form.picture, &data, &length))
        return;
    const Fl_PNG_Image original(nullptr, data, int(length));
    if (original.w() <= 0 || original.h() <= 0)
        return;
    Fl_Image::RGB_scaling(FL_RGB_SCALING_BILINEAR);
    picture.reset(
        const_cast<Fl_PNG_Image&>(original).copy(Scaled(float(original.w())), Scaled(float(original.h()))));
}

void FormWindow::AddControl(const FormControl& control)
{
    const DialogButton::Kind kind = control.kind == FormRadioButton ? DialogButton::RadioButton
                                    : control.kind == FormCheckBox  ? DialogButton::CheckBox
                                                                    : DialogButton::PushButton;
    DialogButton* button = new DialogButton(
        kind, Scaled(edgeWidth + float(FormPixelsAcross(control.x))),
        Scaled(edgeWidth + float(FormPixelsDown(control.y))), Scaled(float(FormPixelsAcross(control.width))),
        Scaled(float(FormPixelsDown(control.height))), control.text, formFont, Scaled(fontSize), scale);
    button->accepts = control.id == form.acceptId;
    button->callback(
        [](Fl_Widget* widget, long id) { static_cast<FormWindow*>(widget->window())->Click(int(id)); },
        long(control.id));
    add(button);
    buttons.push_back(button);
}

// Copies the form's check marks to the buttons, which only display them.
void FormWindow::ShowState()
{
    for (size_t at = 0; at < buttons.size(); ++at) {
        buttons[at]->value(form.controls[at].checked);
        buttons[at]->focused = form.controls[at].id == focus.id;
    }
    redraw();
}

void FormWindow::Click(int id)
{
    const int button = form.Click(id);
    ShowState();
    if (button != FormClosed)
        End(button);
}

void FormWindow::End(int button)
{
    result = button;
    hide();
}

// Drawing

void FormWindow::DrawPicture()
{
    const int edge = Scaled(edgeWidth);
    if (picture)
        picture->draw(edge, edge, std::min(picture->w(), w() - 2 * edge),
                      std::min(picture->h(), h() - 2 * edge));
}

void FormWindow::draw()
{
    const int edge = Scaled(edgeWidth);
    fl_color(ToolkitColour(Slate));
    fl_rectf(0, 0, w(), h());
    fl_color(ToolkitColour(Ink));
    fl_rectf(edge, edge, w() - 2 * edge, h() - 2 * edge);
    DrawPicture();
    for (DialogButton* button : buttons)
        draw_child(*button);
}

// Mouse and keyboard

int FormWindow::HandleKey()
{
    int button = FormClosed;
    switch (Fl::event_key()) {
    case FL_Tab:
        focus.Tab(Fl::event_state(FL_SHIFT) != 0);
        break;
    case FL_Left:
    case FL_Up:
        focus.Arrow(-1);
        break;
    case FL_Right:
    case FL_Down:
        focus.Arrow(1);
        break;
    case ' ':
        button = focus.Space();
        break;
    case FL_Enter:
    case FL_KP_Enter:
        button = focus.Enter();
        break;
    case FL_Escape:
        button = form.Click(form.leaveId);
        break;
    default:
        return 0;
    }
    ShowState();
    if (button != FormClosed)
        End(button);
    return 1;
}

void FormWindow::Drag()
{
    if (dragging)
        position(Fl::event_x_root() - dragX, Fl::event_y_root() - dragY);
}

int FormWindow::handle(int event)
{
    if (event == FL_KEYBOARD || event == FL_SHORTCUT)
        return HandleKey();
    if (event == FL_PUSH)
        dragging = false;
    if (DialogWindow::handle(event))
        return 1;
    // No button took the event. The form has no title bar, so dragging its picture or background moves it.
    switch (event) {
    case FL_PUSH:
        dragging = Fl::event_button() == FL_LEFT_MOUSE;
        dragX = Fl::event_x_root() - x_root();
        dragY = Fl::event_y_root() - y_root();
        return 1;
    case FL_DRAG:
        Drag();
        return 1;
    case FL_RELEASE:
        Drag(); // the last part of the move may come without an event of its own
        dragging = false;
        return 1;
    default:
        return 0;
    }
}

int RunFormWindow(StartForm& form)
{
    FormWindow window(form);
    window.Run();
    return window.result;
}

} // namespace platform
