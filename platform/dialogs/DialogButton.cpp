// SPDX-License-Identifier: MIT
#include "platform/dialogs/DialogButton.h"

#include "platform/ShowColours.h"
#include "platform/dialogs/Shapes.h"

#include <FL/Fl.H>
#include <FL/fl_draw.H>

#include <algorithm>
#include <cmath>

namespace platform
{

using namespace showcolours;

// clang-format off
// Pixels at 96 dots per inch.
static const float buttonRadius = 3;
static const float markSize     = 13; // of the radio buttons' rings and the check boxes
static const float markGap      = 6;  // from a mark to its text
static const float markRadius   = 3;  // of a check box's corners
static const float rimWidth     = 1.25f;
static const float tickWidth    = 1.7f;
static const float focusGap     = 3;  // from a button to its focus line
static const float focusRadius  = 5;

// Parts of the mark's size, from its top left corner.
static const float dotRadius  = 0.25f;
static const float tick[3][2] = {{0.26f, 0.52f}, {0.43f, 0.70f}, {0.75f, 0.31f}};
// clang-format on

DialogButton::DialogButton(Kind buttonKind, int x, int y, int width, int height, const std::string& text,
                           Fl_Font font, int fontSize, float screenScale)
    : Fl_Button(x, y, width, height), kind(buttonKind), scale(screenScale)
{
    copy_label(text.c_str());
    labelfont(font);
    labelsize(fontSize);
    box(FL_NO_BOX);
    clear_visible_focus();
    type(kind == RadioButton ? FL_RADIO_BUTTON : kind == CheckBox ? FL_TOGGLE_BUTTON : FL_NORMAL_BUTTON);
    if (kind == PushButton)
        return;
    fl_font(font, fontSize);
    const int needed = int(std::lround((markSize + markGap) * scale)) + int(std::ceil(fl_width(label())));
    const int wider = std::max(width, needed);
    resize(kind == CheckBox ? x + width - wider : x, y, wider, height);
}

bool DialogButton::IsHovered() const
{
    return Fl::belowmouse() == this;
}

bool DialogButton::IsPressed() const
{
    return Fl::pushed() == this && Fl::event_inside(this);
}

int DialogButton::handle(int event)
{
    switch (event) {
    case FL_ENTER:
    case FL_LEAVE:
        redraw();
        return 1;
    case FL_PUSH:
        redraw();
        return Fl::event_button() == FL_LEFT_MOUSE ? Fl_Button::handle(event) : 0;
    case FL_RELEASE:
        redraw();
        return Fl_Button::handle(event);
    case FL_KEYBOARD:
    case FL_SHORTCUT:
        return 0;
    default:
        return Fl_Button::handle(event);
    }
}

// Drawing

void DialogButton::draw()
{
    fl_font(labelfont(), labelsize());
    if (focused) {
        const float gap = std::round(focusGap * scale), line = std::max(1.0f, std::round(scale));
        // Rows of radio buttons and check boxes stand too close for a gap above and below.
        const float gapY = kind == PushButton ? gap : 0;
        StrokeRoundRect(float(x()) - gap, float(y()) - gapY, float(w()) + 2 * gap, float(h()) + 2 * gapY,
                        focusRadius * scale, line, Ochre);
    }
    if (kind == PushButton) {
        DrawPushButton();
        return;
    }
    const int mark = int(std::lround(markSize * scale)), gap = int(std::lround(markGap * scale));
    const int top = y() + (h() - mark) / 2;
    const int textWidth = int(std::lround(fl_width(label())));
    DrawMark(kind == RadioButton ? x() : x() + w() - mark, top);
    DrawTextLine(label(), kind == RadioButton ? x() + mark + gap : x() + w() - mark - gap - textWidth, y(),
                 h(), IsHovered() || IsPressed() || value() ? Bone : Mix(Mist, Bone, 0.5f));
}

void DialogButton::DrawPushButton()
{
    const float left = float(x()), top = float(y()), width = float(w()), height = float(h());
    uint32_t face = accepts ? Amber : Night;
    if (IsPressed())
        face = Mix(face, Ink, 0.3f);
    else if (IsHovered())
        face = Mix(face, Bone, accepts ? 0.35f : 0.12f);
    FillRoundRect(left, top, width, height, buttonRadius * scale, face);
    if (!accepts)
        StrokeRoundRect(left, top, width, height, buttonRadius * scale, std::max(1.0f, std::round(scale)),
                        Slate);
    const int textWidth = int(std::lround(fl_width(label())));
    DrawTextLine(label(), x() + (w() - textWidth) / 2, y(), h(), accepts ? Ink : Bone);
}

void DialogButton::DrawMark(int left, int top)
{
    const float size = std::round(markSize * scale), rim = rimWidth * scale;
    const float x0 = float(left), y0 = float(top);
    const uint32_t line = value() ? Amber : IsHovered() || IsPressed() ? Bone : Mist;
    const uint32_t inside = IsPressed() ? Slate : Night;
    if (kind == RadioButton) {
        const float radius = size / 2;
        FillCircle(x0 + radius, y0 + radius, radius, line);
        FillCircle(x0 + radius, y0 + radius, radius - rim, inside);
        if (value())
            FillCircle(x0 + radius, y0 + radius, size * dotRadius, line);
        return;
    }
    FillRoundRect(x0, y0, size, size, markRadius * scale, line);
    FillRoundRect(x0 + rim, y0 + rim, size - 2 * rim, size - 2 * rim, markRadius * scale - rim, inside);
    if (value()) {
        float points[6];
        for (int i = 0; i < 6; ++i)
            points[i] = (i % 2 ? y0 : x0) + tick[i / 2][i % 2] * size;
        StrokeLine(points, 3, tickWidth * scale, line);
    }
}

} // namespace platform
