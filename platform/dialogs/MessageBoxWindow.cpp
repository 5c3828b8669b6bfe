// SPDX-License-Identifier: MIT
#include "platform/dialogs/MessageBoxWindow.h"

#include "platform/ShowColours.h"
#include "platform/dialogs/DialogButton.h"
#include "platform/dialogs/DialogWindow.h"
#include "platform/dialogs/Shapes.h"
#include "platform/dialogs/TextFlow.h"

#include <FL/Fl.H>
#include <FL/Fl_Slider.H>
#include <FL/fl_draw.H>

#include <algorithm>
#include <cmath>

namespace platform
{

using namespace showcolours;

static const Fl_Font bodyFont = FL_HELVETICA;
static const Fl_Font captionFont = FL_HELVETICA_BOLD;

// clang-format off
// Pixels at 96 dots per inch.
static const float fontSize        =  13;
static const float lineHeight      =  19;
static const float margin          =  22; // round the content of the box
static const float iconSize        =  40;
static const float iconGap         =  20; // from the icon to the text
static const float narrowestText   = 260;
static const float widestText      = 460;
static const float scrollerWidth   =   8;
static const float scrollerGap     =  10; // from the text to its scroller
static const float buttonWidth     =  92;
static const float buttonHeight    =  28;
static const float buttonGap       =  20; // from the text to the button
static const float titleButtons    = 100; // what a title bar has beside its caption
static const float captionHeight   =  36; // of the caption that the box draws itself
// clang-format on

static const float maxHeightShare = 0.8f; // of the screen's height
static const float maxWidthShare = 0.9f;  // of its width
static const int wheelLines = 3;

class MessageBoxWindow : public DialogWindow
{
public:
    explicit MessageBoxWindow(const MessageBox& shown);

    void draw() override;
    int handle(int event) override;

private:
    void FlowBody();
    void Arrange();
    void ScrollTo(int position);
    int HandleKey();
    void DrawCaption();
    void DrawIcon();
    void DrawBody();

    const MessageBox message;
    const std::string caption;
    std::vector<std::string> lines; // of the body, as they fit textPlace
    int top = 0;                    // y of the content: 0, or below the caption
    PixelRect textPlace = {};
    int scroll = 0; // pixels of the text that are above textPlace
    Fl_Slider scroller;
    DialogButton button;
};

MessageBoxWindow::MessageBoxWindow(const MessageBox& shown)
    : DialogWindow(TitleBar, ShowableLine(shown.caption)), message(shown),
      caption(ShowableLine(shown.caption)), scroller(0, 0, 1, 1),
      button(DialogButton::PushButton, 0, 0, 1, 1, "OK", bodyFont, Scaled(fontSize), scale)
{
    add(scroller);
    add(button);
    button.accepts = button.focused = true;
    button.callback([](Fl_Widget* widget, void*) { widget->window()->hide(); });
    FlowBody();
    Arrange();
}

// Layout

void MessageBoxWindow::FlowBody()
{
    fl_font(bodyFont, Scaled(fontSize));
    const auto measure = [](const char* text, int length) { return fl_width(text, length); };
    const float aside = 2 * margin + iconSize + iconGap + scrollerGap + scrollerWidth;
    const int room = int(float(area.width) * maxWidthShare) - Scaled(aside);
    const int width = std::max(1, std::min(room, Scaled(widestText)));
    lines = FlowText(ShowableText(message.body), width, measure);

    // Limit the width to what text and caption need, so that a short message gets a small box.
    double widest = 0;
    for (const std::string& line : lines)
        widest = std::max(widest, fl_width(line.c_str(), int(line.size())));
    fl_font(captionFont, Scaled(fontSize));
    widest = std::max(widest, fl_width(caption.c_str(), int(caption.size())) + Scaled(titleButtons - aside));
    textPlace.width = std::clamp(int(std::ceil(widest)), std::min(width, Scaled(narrowestText)), width);
}

void MessageBoxWindow::Arrange()
{
    top = managed ? 0 : Scaled(captionHeight);
    const int line = Scaled(lineHeight);
    const int around = top + Scaled(2 * margin + buttonGap + buttonHeight);
    const int maxLines = std::max(1, (int(float(area.height) * maxHeightShare) - around) / line); // in lines
    const int textHeight = int(lines.size()) * line;
    const int contentHeight = std::max(Scaled(iconSize), std::min(textHeight, maxLines * line));
    const bool scrolls = textHeight > contentHeight;

    textPlace.x = Scaled(margin + iconSize + iconGap);
    textPlace.y = top + Scaled(margin);
    textPlace.height = contentHeight;
    const int right = textPlace.x + textPlace.width + (scrolls ? Scaled(scrollerGap + scrollerWidth) : 0);
    button.resize(right - Scaled(buttonWidth), textPlace.y + contentHeight + Scaled(buttonGap),
                  Scaled(buttonWidth), Scaled(buttonHeight));
    resizable(nullptr);
    size(right + Scaled(margin), button.y() + button.h() + Scaled(margin));

    if (!scrolls) {
        // A short text stands in the middle of the icon's height.
        textPlace.y += (contentHeight - textHeight) / 2;
        textPlace.height = textHeight;
        scroller.hide();
        return;
    }
    scroller.resize(right - Scaled(scrollerWidth), textPlace.y, Scaled(scrollerWidth), contentHeight);
    scroller.type(FL_VERT_SLIDER);
    scroller.bounds(0, textHeight - contentHeight);
    scroller.slider_size(double(contentHeight) / textHeight);
    scroller.box(FL_FLAT_BOX);
    scroller.slider(FL_FLAT_BOX);
    scroller.color(ToolkitColour(Night));
    scroller.selection_color(ToolkitColour(Slate));
    scroller.clear_visible_focus(); // the keyboard stays with the button
    scroller.callback([](Fl_Widget* widget, void*) {
        MessageBoxWindow* window = static_cast<MessageBoxWindow*>(widget->window());
        window->ScrollTo(int(window->scroller.value()));
    });
}

void MessageBoxWindow::ScrollTo(int position)
{
    scroll = std::clamp(position, 0, scroller.visible() ? int(scroller.maximum()) : 0);
    scroller.value(scroll);
    redraw();
}

// Drawing

void MessageBoxWindow::DrawCaption()
{
    fl_color(ToolkitColour(Night));
    fl_rectf(0, 0, w(), top);
    fl_font(captionFont, Scaled(fontSize));
    fl_push_clip(0, 0, w() - Scaled(margin), top);
    DrawTextLine(caption, Scaled(margin), 0, top, Bone);
    fl_pop_clip();
}

void MessageBoxWindow::DrawIcon()
{
    // clang-format off
    // Parts of the icon's size, from its top left corner.
    const float cross[2][4] = {{0.33f, 0.33f, 0.67f, 0.67f}, {0.67f, 0.33f, 0.33f, 0.67f}};
    const float stem[4]     =  {0.50f, 0.46f, 0.50f, 0.72f};
    const float dot[2]      =  {0.50f, 0.29f};
    const float strokeWidth =   0.10f;
    const float dotRadius   =   0.065f;
    const float rimWidth    =   0.04f;
    // clang-format on

    const float size = iconSize * scale;
    const float left = float(Scaled(margin)), above = float(top + Scaled(margin));
    const bool error = message.icon == BoxErrorIcon;
    const auto line = [&](const float(&part)[4], uint32_t rgb) {
        const float points[4] = {left + part[0] * size, above + part[1] * size, left + part[2] * size,
                                 above + part[3] * size};
        StrokeLine(points, 2, strokeWidth * size, rgb);
    };
    FillCircle(left + size / 2, above + size / 2, size / 2, error ? Ochre : Bone);
    FillCircle(left + size / 2, above + size / 2, size / 2 - rimWidth * size, error ? Rust : Amber);
    if (error) {
        line(cross[0], Bone);
        line(cross[1], Bone);
    } else {
        line(stem, Ink);
        FillCircle(left + dot[0] * size, above + dot[1] * size, dotRadius * size, Ink);
    }
}

void MessageBoxWindow::DrawBody()
{
    fl_font(bodyFont, Scaled(fontSize));
    const int height = Scaled(lineHeight);
    fl_push_clip(textPlace.x, textPlace.y, textPlace.width, textPlace.height);
    const int first = scroll / height;
    const int last = std::min(int(lines.size()) - 1, (scroll + textPlace.height) / height);
    for (int line = first; line <= last; ++line)
        DrawTextLine(lines[line], textPlace.x, textPlace.y + line * height - scroll, height, Bone);
    fl_pop_clip();
}

void MessageBoxWindow::draw()
{
    fl_color(ToolkitColour(Ink));
    fl_rectf(0, 0, w(), h());
    DrawIcon();
    DrawBody();
    draw_child(button);
    if (!managed) {
        DrawCaption();
        fl_color(ToolkitColour(Slate));
        fl_rect(0, 0, w(), h());
    }
    if (scroller.visible())
        draw_child(scroller);
}

// Mouse and keyboard

int MessageBoxWindow::HandleKey()
{
    const int line = Scaled(lineHeight);
    const int page = std::max(line, textPlace.height - line);
    switch (Fl::event_key()) {
    case FL_Enter:
    case FL_KP_Enter:
    case FL_Escape:
    case ' ':
        hide();
        return 1;
    case FL_Up:
        ScrollTo(scroll - line);
        return 1;
    case FL_Down:
        ScrollTo(scroll + line);
        return 1;
    case FL_Page_Up:
        ScrollTo(scroll - page);
        return 1;
    case FL_Page_Down:
        ScrollTo(scroll + page);
        return 1;
    case FL_Home:
        ScrollTo(0);
        return 1;
    case FL_End:
        ScrollTo(int(scroller.maximum()));
        return 1;
    default:
        return 0;
    }
}

int MessageBoxWindow::handle(int event)
{
    switch (event) {
    case FL_MOUSEWHEEL:
        ScrollTo(scroll + Fl::event_dy() * wheelLines * Scaled(lineHeight));
        return 1;
    case FL_KEYBOARD:
    case FL_SHORTCUT:
        return HandleKey();
    default:
        return DialogWindow::handle(event);
    }
}

void RunMessageBoxWindow(const MessageBox& box)
{
    MessageBoxWindow window(box);
    window.Run();
}

} // namespace platform
