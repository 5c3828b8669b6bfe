// SPDX-License-Identifier: MIT
#include "platform/dialogs/FormWindow.h"

#include "platform/EmbeddedFiles.h"
#include "platform/dialogs/DialogWindow.h"
#include "platform/dialogs/FormFocus.h"

#include <FL/Fl.H>
#include <FL/Fl_PNG_Image.H>
#include <FL/fl_draw.H>

#include <algorithm>
#include <cmath>
#include <memory>

namespace platform
{

// Arial at 8 points and 96 dots per inch; where it isn't installed fontconfig knows what comes closest.
static const Fl_Font formFont = FL_FREE_FONT;
static const char* const formFontName = " Arial";

// clang-format off
// Pixels at 96 dots per inch.
static const float fontSize     = 11;
static const float edgeWidth    =  1; // all round, outside the form's own size
static const float markSize     = 13; // of the radio buttons' rings and the check boxes
static const float markGap      =  6; // from a mark to its text
static const float focusGap     =  3; // from a control to the ends of the line that shows the focus
static const float rimWidth     =  1.25f;
static const float cornerRadius =  3;
static const float tickWidth    =  1.7f;

// Parts of the mark's size, from its top left corner.
static const float dotRadius  = 0.25f;
static const float tick[3][2] = {{0.26f, 0.52f}, {0.43f, 0.70f}, {0.75f, 0.31f}};
// clang-format on

class FormWindow : public DialogWindow
{
public:
    explicit FormWindow(StartForm& shown);

    void draw() override;
    int handle(int event) override;

    int result = FormClosed;

private:
    PixelRect PlaceOf(const FormControl& control) const;
    PixelRect LabelOf(const FormControl& control) const;
    const FormControl* ControlAt(int x, int y) const;
    void DrawPicture();
    void DrawRing(Pixmap& pixmap, float x, float y, bool checked, Tint rim, Tint inside);
    void DrawCheckBox(Pixmap& pixmap, float x, float y, bool checked, Tint rim, Tint inside);
    void DrawControl(const FormControl& control);
    void DrawMarkedControl(const FormControl& control);
    void End(int button);
    void Drag();
    int HandleKey();

    StartForm& form;
    FormFocus focus;
    std::unique_ptr<Fl_Image> picture; // in this desktop's pixels
    int hovered = FormClosed;
    int pressed = FormClosed;
    bool dragging = false;
    int dragX = 0, dragY = 0;
};

FormWindow::FormWindow(StartForm& shown) : DialogWindow(Undecorated, ""), form(shown), focus(shown)
{
    Fl::set_font(formFont, formFontName);
    size(Scaled(float(FormPixelsAcross(form.width)) + 2 * edgeWidth),
         Scaled(float(FormPixelsDown(form.height)) + 2 * edgeWidth));
    callback([](Fl_Widget* window, void*) { static_cast<FormWindow*>(window)->End(FormClosed); });

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

PixelRect FormWindow::PlaceOf(const FormControl& control) const
{
    return {Scaled(edgeWidth + float(FormPixelsAcross(control.x))),
            Scaled(edgeWidth + float(FormPixelsDown(control.y))),
            Scaled(float(FormPixelsAcross(control.width))), Scaled(float(FormPixelsDown(control.height)))};
}

void FormWindow::End(int button)
{
    result = button;
    hide();
}

// Drawing

PixelRect FormWindow::LabelOf(const FormControl& control) const
{
    const PixelRect place = PlaceOf(control);
    const int width = int(std::lround(fl_width(control.text.c_str(), int(control.text.size()))));
    const int mark = Scaled(markSize) + Scaled(markGap);
    const int right = place.x + place.width;
    switch (control.kind) {
    case FormRadioButton:
        return {place.x + mark, place.y, width, place.height};
    case FormCheckBox:
        return {right - mark - width, place.y, width, place.height};
    case FormPushButton:
        break;
    }
    return {place.x + (place.width - width) / 2, place.y, width, place.height};
}

void FormWindow::DrawPicture()
{
    const int edge = Scaled(edgeWidth);
    if (picture)
        picture->draw(edge, edge, std::min(picture->w(), w() - 2 * edge),
                      std::min(picture->h(), h() - 2 * edge));
}

void FormWindow::DrawRing(Pixmap& pixmap, float x, float y, bool checked, Tint rim, Tint inside)
{
    const float radius = markSize * scale / 2;
    pixmap.FillCircle(x + radius, y + radius, radius, rim);
    pixmap.FillCircle(x + radius, y + radius, radius - rimWidth * scale, inside);
    if (checked)
        pixmap.FillCircle(x + radius, y + radius, markSize * scale * dotRadius, rim);
}

void FormWindow::DrawCheckBox(Pixmap& pixmap, float x, float y, bool checked, Tint rim, Tint inside)
{
    const float size = markSize * scale, edge = rimWidth * scale, corner = cornerRadius * scale;
    pixmap.FillRoundRect(x, y, size, size, corner, rim);
    pixmap.FillRoundRect(x + edge, y + edge, size - 2 * edge, size - 2 * edge, corner - edge, inside);
    if (checked)
        for (int stroke = 0; stroke < 2; ++stroke)
            pixmap.Line(x + size * tick[stroke][0], y + size * tick[stroke][1],
                        x + size * tick[stroke + 1][0], y + size * tick[stroke + 1][1], tickWidth * scale,
                        rim);
}

void FormWindow::DrawMarkedControl(const FormControl& control)
{
    const PixelRect place = PlaceOf(control);
    const PixelRect label = LabelOf(control);
    const int mark = Scaled(markSize);
    const int left = std::min(place.x, label.x) - Scaled(focusGap);
    const int right = std::max(place.x + place.width, label.x + label.width) + Scaled(focusGap);
    Pixmap pixmap(right - left, place.height, TintInk);
    if (control.id == focus.id)
        DrawFocusLine(pixmap, TintInk);

    const bool lit = control.id == hovered || control.id == pressed;
    const Tint rim = control.checked ? TintAmber : lit ? TintBone : TintMist;
    const Tint inside = control.id == pressed ? TintSlate : TintNight;
    const int top = (place.height - mark) / 2;
    if (control.kind == FormRadioButton)
        DrawRing(pixmap, float(place.x - left), float(top), control.checked, rim, inside);
    else
        DrawCheckBox(pixmap, float(place.x + place.width - mark - left), float(top), control.checked, rim,
                     inside);
    DrawPixmap(pixmap, left, place.y);

    const Tint words = lit || control.checked ? TintBone : MixTints(TintMist, TintBone, 0.5f);
    DrawTextLine(control.text, label.x, label.y, label.height, words);
}

void FormWindow::DrawControl(const FormControl& control)
{
    if (control.kind == FormPushButton)
        DrawPushButton(PlaceOf(control), control.text,
                       {control.id == form.acceptId, control.id == focus.id, control.id == hovered,
                        control.id == pressed},
                       TintInk);
    else
        DrawMarkedControl(control);
}

void FormWindow::draw()
{
    const int edge = Scaled(edgeWidth);
    fl_color(ToolkitColour(TintSlate));
    fl_rectf(0, 0, w(), h());
    fl_color(ToolkitColour(TintInk));
    fl_rectf(edge, edge, w() - 2 * edge, h() - 2 * edge);
    DrawPicture();
    fl_font(formFont, Scaled(fontSize));
    for (const FormControl& control : form.controls)
        DrawControl(control);
    // Places overlap by a line of pixels here and there; the one that counts comes out whole.
    if (const FormControl* focused = form.Find(focus.id))
        DrawControl(*focused);
}

// Mouse and keyboard

const FormControl* FormWindow::ControlAt(int x, int y) const
{
    fl_font(formFont, Scaled(fontSize));
    for (const FormControl& control : form.controls)
        if (PlaceOf(control).Holds(x, y) || LabelOf(control).Holds(x, y))
            return &control;
    return nullptr;
}

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
    redraw();
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
    const FormControl* at = ControlAt(Fl::event_x(), Fl::event_y());
    const int id = at ? at->id : FormClosed;
    switch (event) {
    case FL_ENTER:
    case FL_MOVE:
    case FL_LEAVE:
        hovered = event == FL_LEAVE ? FormClosed : id;
        redraw();
        return 1;
    case FL_PUSH:
        if (Fl::event_button() != FL_LEFT_MOUSE)
            return 1;
        pressed = id;
        // There is no title bar: the form is taken by its picture or its ground.
        dragging = !at;
        dragX = Fl::event_x_root() - x_root();
        dragY = Fl::event_y_root() - y_root();
        redraw();
        return 1;
    case FL_DRAG:
        hovered = id;
        Drag();
        redraw();
        return 1;
    case FL_RELEASE: {
        const int clicked = id == pressed ? id : FormClosed;
        pressed = FormClosed;
        Drag(); // the last bit of the way may come without an event of its own
        dragging = false;
        redraw();
        const int button = form.Click(clicked);
        if (button != FormClosed)
            End(button);
        return 1;
    }
    case FL_KEYBOARD:
    case FL_SHORTCUT:
        return HandleKey();
    default:
        return DialogWindow::handle(event);
    }
}

int RunFormWindow(StartForm& form)
{
    FormWindow window(form);
    window.Run();
    return window.result;
}

} // namespace platform
