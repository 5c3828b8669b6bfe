// SPDX-License-Identifier: MIT
#include "tools/edit/TimelinePaint.h"

#include <algorithm>
#include <cmath>

namespace edit
{

static const int maxVertices = 45000; // of 65536 in a list; the rest is for what must be drawn
static const float farOut = 16000;    // pixels: what lies farther out would lose its last digits as a float
static const char* const ellipsis = "\xe2\x80\xa6";

static float Pixel(double x)
{
    return std::floor(float(std::clamp(x, double(-farOut), double(farOut))) + 0.5f);
}

ImU32 TimelinePaint::Of(timeline::ScreenColour colour)
{
    return IM_COL32(showcolours::RedOf(colour.rgb), showcolours::GreenOf(colour.rgb),
                    showcolours::BlueOf(colour.rgb), int(std::lround(colour.alpha * 255)));
}

bool TimelinePaint::HasRoom() const
{
    return list->VtxBuffer.Size < maxVertices;
}

void TimelinePaint::Fill(const Area& area, timeline::ScreenColour colour)
{
    Fill(area.left, area.top, area.right, area.bottom, colour);
}

void TimelinePaint::Fill(double left, double top, double right, double bottom, timeline::ScreenColour colour)
{
    list->AddRectFilled({Pixel(left), Pixel(top)}, {Pixel(right), Pixel(bottom)}, Of(colour));
}

void TimelinePaint::Fill(double left, double top, double right, double bottom, const timeline::Wash& wash)
{
    const ImU32 upper = Of(wash.top), lower = Of(wash.bottom);
    list->AddRectFilledMultiColor({Pixel(left), Pixel(top)}, {Pixel(right), Pixel(bottom)}, upper, upper,
                                  lower, lower);
}

void TimelinePaint::Frame(double left, double top, double right, double bottom, timeline::ScreenColour colour,
                          double width)
{
    const double line = std::max(1.0, std::round(width * double(scale)));
    left = double(Pixel(left)), right = double(Pixel(right));
    top = double(Pixel(top)), bottom = double(Pixel(bottom));
    Fill(left, top, right, top + line, colour);
    Fill(left, bottom - line, right, bottom, colour);
    Fill(left, top + line, left + line, bottom - line, colour);
    Fill(right - line, top + line, right, bottom - line, colour);
}

void TimelinePaint::Down(double x, double top, double bottom, timeline::ScreenColour colour, double width)
{
    const double line = std::max(1.0, std::round(width * double(scale)));
    const double left = double(Pixel(x - line / 2));
    Fill(left, top, left + line, bottom, colour);
}

void TimelinePaint::Across(double y, double left, double right, timeline::ScreenColour colour, double width)
{
    const double line = std::max(1.0, std::round(width * double(scale)));
    const double top = double(Pixel(y - line / 2));
    Fill(left, top, right, top + line, colour);
}

void TimelinePaint::Diamond(double x, double y, double radius, timeline::ScreenColour colour)
{
    const float cx = Pixel(x - 0.5) + 0.5f, cy = Pixel(y - 0.5) + 0.5f, r = float(radius) * scale;
    list->AddQuadFilled({cx, cy - r}, {cx + r, cy}, {cx, cy + r}, {cx - r, cy}, Of(colour));
}

void TimelinePaint::Hatch(const Area& area, double step, timeline::ScreenColour colour)
{
    if (area.Empty())
        return;
    list->PushClipRect({area.left, area.top}, {area.right, area.bottom}, true);
    const float height = area.Height(), distance = float(step) * scale;
    for (float x = area.left - std::fmod(area.left, distance); x < area.right + height; x += distance)
        list->AddLine({x, area.top}, {x - height, area.bottom}, Of(colour), scale * 0.8f);
    list->PopClipRect();
}

static float SizeOf(const ImFont* font)
{
    return font->FontSize * ImGui::GetIO().FontGlobalScale;
}

float TimelinePaint::TextHeight(ImFont* font)
{
    return std::ceil(SizeOf(font));
}

float TimelinePaint::TextWidth(ImFont* font, const std::string& text)
{
    return font->CalcTextSizeA(SizeOf(font), FLT_MAX, 0, text.data(), text.data() + text.size()).x;
}

std::string TimelinePaint::Elide(ImFont* font, const std::string& text, float width)
{
    if (TextWidth(font, text) <= width)
        return text;
    const float room = width - TextWidth(font, ellipsis);
    const char* end = text.data();
    if (room > 0)
        font->CalcTextSizeA(SizeOf(font), room, 0, text.data(), text.data() + text.size(), &end);
    size_t kept = size_t(end - text.data());
    while (kept > 0 && (static_cast<unsigned char>(text[kept]) & 0xc0) == 0x80)
        kept--;
    while (kept > 0 && text[kept - 1] == ' ')
        kept--;
    return kept < 3 ? "" : text.substr(0, kept) + ellipsis;
}

void TimelinePaint::Text(ImFont* font, double x, double top, timeline::ScreenColour colour,
                         const std::string& text)
{
    list->AddText(font, SizeOf(font), {Pixel(x), Pixel(top)}, Of(colour), text.data(),
                  text.data() + text.size());
}

} // namespace edit
