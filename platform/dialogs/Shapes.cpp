// SPDX-License-Identifier: MIT
#include "platform/dialogs/Shapes.h"

#include "platform/ShowColours.h"

#include <FL/Fl_Window.H>
#include <FL/fl_draw.H>
#include <FL/x.H>
#include <cairo/cairo-xlib.h>

#include <algorithm>

namespace platform
{

using namespace showcolours;

static const double pi = 3.14159265358979323846;

Fl_Color ToolkitColour(uint32_t rgb)
{
    return fl_rgb_color(uchar(RedOf(rgb)), uchar(GreenOf(rgb)), uchar(BlueOf(rgb)));
}

// A cairo context on what the toolkit draws into, which is the back buffer of the window.
static cairo_t* BeginShape(uint32_t rgb)
{
    const Fl_Window* const window = Fl_Window::current();
    cairo_surface_t* const surface =
        cairo_xlib_surface_create(fl_display, fl_window, fl_visual->visual, window->w(), window->h());
    cairo_t* const shape = cairo_create(surface);
    cairo_surface_destroy(surface); // the context keeps it
    cairo_set_source_rgb(shape, RedOf(rgb) / 255.0, GreenOf(rgb) / 255.0, BlueOf(rgb) / 255.0);
    return shape;
}

static void EndShape(cairo_t* shape)
{
    cairo_surface_flush(cairo_get_target(shape));
    cairo_destroy(shape);
}

static void AddRoundRect(cairo_t* shape, double x, double y, double width, double height, double radius)
{
    const double right = x + width, bottom = y + height;
    cairo_new_path(shape);
    cairo_arc(shape, right - radius, y + radius, radius, -pi / 2, 0);
    cairo_arc(shape, right - radius, bottom - radius, radius, 0, pi / 2);
    cairo_arc(shape, x + radius, bottom - radius, radius, pi / 2, pi);
    cairo_arc(shape, x + radius, y + radius, radius, pi, 3 * pi / 2);
    cairo_close_path(shape);
}

void FillCircle(float centreX, float centreY, float radius, uint32_t rgb)
{
    cairo_t* const shape = BeginShape(rgb);
    cairo_arc(shape, centreX, centreY, radius, 0, 2 * pi);
    cairo_fill(shape);
    EndShape(shape);
}

void FillRoundRect(float x, float y, float width, float height, float radius, uint32_t rgb)
{
    cairo_t* const shape = BeginShape(rgb);
    AddRoundRect(shape, x, y, width, height, radius);
    cairo_fill(shape);
    EndShape(shape);
}

void StrokeRoundRect(float x, float y, float width, float height, float radius, float thickness, uint32_t rgb)
{
    const double inset = thickness / 2;
    cairo_t* const shape = BeginShape(rgb);
    AddRoundRect(shape, x + inset, y + inset, width - thickness, height - thickness,
                 std::max(radius - inset, 0.0));
    cairo_set_line_width(shape, thickness);
    cairo_stroke(shape);
    EndShape(shape);
}

void StrokeLine(const float* points, int count, float thickness, uint32_t rgb)
{
    cairo_t* const shape = BeginShape(rgb);
    for (int i = 0; i < count; ++i)
        cairo_line_to(shape, points[2 * i], points[2 * i + 1]);
    cairo_set_line_width(shape, thickness);
    cairo_set_line_cap(shape, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(shape, CAIRO_LINE_JOIN_ROUND);
    cairo_stroke(shape);
    EndShape(shape);
}

void DrawTextLine(const std::string& text, int x, int y, int height, uint32_t rgb)
{
    int left, top, width, capital;
    fl_text_extents("H", left, top, width, capital);
    fl_color(ToolkitColour(rgb));
    fl_draw(text.c_str(), int(text.size()), x, y + (height + capital) / 2);
}

} // namespace platform
