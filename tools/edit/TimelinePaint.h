// SPDX-License-Identifier: MIT
// How the timeline is drawn with ImGui: its areas in the window, its colours, lines on pixel edges, and text that is
// shortened to the room that it has.
#pragma once

#include "tools/timeline/TimelineColours.h"

#include <imgui.h>

#include <string>

namespace edit
{

struct Area {
    float left = 0, top = 0, right = 0, bottom = 0;

    bool Has(double x, double y) const { return x >= left && x < right && y >= top && y < bottom; }
    float Width() const { return right - left; }
    float Height() const { return bottom - top; }
    bool Empty() const { return right <= left || bottom <= top; }
};

// From the top down; gutter is left of all but the overview.
struct TimelineAreas {
    Area whole, gutter;
    Area loop, ruler, flags, lanes, lost, music, overview;

    float PlotLeft() const { return lanes.left; }
    float PlotRight() const { return lanes.right; }
    // Everything below the ruler: where lines of time run through.
    Area Body() const { return {lanes.left, flags.top, lanes.right, music.bottom}; }
};

class TimelinePaint
{
public:
    TimelinePaint(ImDrawList* newList, float newScale) : list(newList), scale(newScale) {}

    static ImU32 Of(timeline::ScreenColour colour);

    // ImGui numbers the corners of a list with 16 bits. False when it is time to leave out details.
    bool HasRoom() const;

    void Fill(const Area& area, timeline::ScreenColour colour);
    void Fill(double left, double top, double right, double bottom, timeline::ScreenColour colour);
    void Fill(double left, double top, double right, double bottom, const timeline::Wash& wash);
    void Frame(double left, double top, double right, double bottom, timeline::ScreenColour colour,
               double width);
    // A line one pixel of the design wide, on whole pixels.
    void Down(double x, double top, double bottom, timeline::ScreenColour colour, double width = 1);
    void Across(double y, double left, double right, timeline::ScreenColour colour, double width = 1);
    void Diamond(double x, double y, double radius, timeline::ScreenColour colour);
    void Hatch(const Area& area, double step, timeline::ScreenColour colour);

    static float TextHeight(ImFont* font);
    static float TextWidth(ImFont* font, const std::string& text);
    // The text if it fits, else its beginning and an ellipsis; empty if there is no room for three characters.
    static std::string Elide(ImFont* font, const std::string& text, float width);
    void Text(ImFont* font, double x, double top, timeline::ScreenColour colour, const std::string& text);

    ImDrawList* const list;
    const float scale;
};

} // namespace edit
