// SPDX-License-Identifier: MIT
#include "tools/timeline/PngWriter.h"

#include <cairo.h>

#include <cmath>

namespace timeline
{

class CairoPainter : public Painter
{
public:
    explicit CairoPainter(cairo_t* borrowed) : cairo(borrowed) {}

    void BeginGroup(const PaintedGroup&) override {}
    void EndGroup() override {}
    void FillRect(const CanvasRect& box, const Wash& wash, double radius) override;
    void FillShape(const std::vector<Point>& corners, ScreenColour colour) override;
    void StrokeSegments(const std::vector<Segment>& segments, ScreenColour colour, double width) override;
    void Write(const PlacedText& text) override;
    void Sense(const CanvasRect&) override {}

private:
    void Use(ScreenColour colour);

    cairo_t* cairo;
};

static const double quarter = 1.5707963267949; // of a turn

void CairoPainter::Use(ScreenColour colour)
{
    cairo_set_source_rgba(cairo, RedOf(colour.rgb) / 255.0, GreenOf(colour.rgb) / 255.0,
                          BlueOf(colour.rgb) / 255.0, double(colour.alpha));
}

void CairoPainter::FillRect(const CanvasRect& box, const Wash& wash, double radius)
{
    if (box.width <= 0 || box.height <= 0)
        return;
    cairo_new_path(cairo);
    if (radius > 0) {
        cairo_arc(cairo, box.Right() - radius, box.y + radius, radius, -quarter, 0);
        cairo_arc(cairo, box.Right() - radius, box.Bottom() - radius, radius, 0, quarter);
        cairo_arc(cairo, box.x + radius, box.Bottom() - radius, radius, quarter, 2 * quarter);
        cairo_arc(cairo, box.x + radius, box.y + radius, radius, 2 * quarter, 3 * quarter);
        cairo_close_path(cairo);
    } else {
        cairo_rectangle(cairo, box.x, box.y, box.width, box.height);
    }
    if (wash.top == wash.bottom) {
        Use(wash.top);
        cairo_fill(cairo);
        return;
    }
    cairo_pattern_t* const pattern = cairo_pattern_create_linear(0, box.y, 0, box.Bottom());
    cairo_pattern_add_color_stop_rgb(pattern, 0, RedOf(wash.top.rgb) / 255.0, GreenOf(wash.top.rgb) / 255.0,
                                     BlueOf(wash.top.rgb) / 255.0);
    cairo_pattern_add_color_stop_rgb(pattern, 1, RedOf(wash.bottom.rgb) / 255.0,
                                     GreenOf(wash.bottom.rgb) / 255.0, BlueOf(wash.bottom.rgb) / 255.0);
    cairo_set_source(cairo, pattern);
    cairo_fill(cairo);
    cairo_pattern_destroy(pattern);
}

void CairoPainter::FillShape(const std::vector<Point>& corners, ScreenColour colour)
{
    cairo_new_path(cairo);
    for (const Point& corner : corners)
        cairo_line_to(cairo, corner.x, corner.y);
    cairo_close_path(cairo);
    Use(colour);
    cairo_fill(cairo);
}

void CairoPainter::StrokeSegments(const std::vector<Segment>& segments, ScreenColour colour, double width)
{
    cairo_new_path(cairo);
    for (const Segment& segment : segments) {
        cairo_move_to(cairo, segment.from.x, segment.from.y);
        cairo_line_to(cairo, segment.to.x, segment.to.y);
    }
    cairo_set_line_width(cairo, width);
    Use(colour);
    cairo_stroke(cairo);
}

void CairoPainter::Write(const PlacedText& text)
{
    const TextShape& shape = ShapeOf(text.style);
    cairo_select_font_face(cairo, shape.serif ? "serif" : "sans-serif",
                           shape.italic ? CAIRO_FONT_SLANT_ITALIC : CAIRO_FONT_SLANT_NORMAL,
                           shape.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cairo, shape.size);
    // The font of this machine may be wider than the table of widths. Then the letters move together, so that texts
    // do not overlap.
    cairo_text_extents_t extents;
    cairo_text_extents(cairo, text.text.c_str(), &extents);
    if (extents.x_advance > text.box.width && text.box.width > 0) {
        cairo_matrix_t narrow;
        cairo_matrix_init_scale(&narrow, shape.size * text.box.width / extents.x_advance, shape.size);
        cairo_set_font_matrix(cairo, &narrow);
    }
    cairo_move_to(cairo, text.x, text.baseline);
    Use(text.colour);
    cairo_show_text(cairo, text.text.c_str());
}

static cairo_status_t Append(void* target, const unsigned char* bytes, unsigned count)
{
    static_cast<std::string*>(target)->append(reinterpret_cast<const char*>(bytes), count);
    return CAIRO_STATUS_SUCCESS;
}

bool PngPicture(const TimelineModel& model, const Layout& layout, double scale, std::string* png,
                std::string* reason)
{
    const double width = std::round(layout.width * scale), height = std::ceil(layout.height * scale);
    if (width > MostPixels || height > MostPixels) {
        *reason = "the picture would be " + std::to_string(long(width)) + " by " +
                  std::to_string(long(height)) + " pixels, and a PNG from here can have " +
                  std::to_string(MostPixels);
        return false;
    }
    cairo_surface_t* const surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, int(width), int(height));
    cairo_t* const cairo = cairo_create(surface);
    // Switch hinting of advances off: letters stand where the layout has them, not on the grid of pixels.
    cairo_font_options_t* const options = cairo_font_options_create();
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_set_font_options(cairo, options);
    cairo_font_options_destroy(options);
    cairo_scale(cairo, scale, scale);
    // Paint the whole surface first: the drawing may cover the last row of pixels only in part.
    cairo_set_source_rgb(cairo, RedOf(Bone) / 255.0, GreenOf(Bone) / 255.0, BlueOf(Bone) / 255.0);
    cairo_paint(cairo);
    CairoPainter painter(cairo);
    DrawPicture(model, layout, WholePicture, &painter);
    png->clear();
    cairo_status_t status = cairo_status(cairo);
    if (status == CAIRO_STATUS_SUCCESS)
        status = cairo_surface_write_to_png_stream(surface, Append, png);
    cairo_destroy(cairo);
    cairo_surface_destroy(surface);
    if (status != CAIRO_STATUS_SUCCESS)
        *reason = cairo_status_to_string(status);
    return status == CAIRO_STATUS_SUCCESS;
}

} // namespace timeline
