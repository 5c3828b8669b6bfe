// SPDX-License-Identifier: MIT
// The interface of the backends that the picture is drawn with: SvgPainter writes SVG, PngPicture paints with cairo.
// Because TimelinePicture.cpp knows this interface alone, all formats show the same. Places and widths are in units of the
// canvas (Type.h).
#pragma once

#include "tools/timeline/TimelineColours.h"
#include "tools/timeline/Type.h"

#include <string>
#include <utility>
#include <vector>

namespace timeline
{

struct Point {
    double x, y;
};

struct Segment {
    Point from, to;
};

// Shapes that belong together: an element <g> in SVG, nothing in formats without a pointer.
struct PaintedGroup {
    const char* kind;
    std::string title; // shown while the pointer rests on it; empty: nothing
    std::vector<std::pair<const char*, std::string>> data;
};

class Painter
{
public:
    virtual ~Painter();

    virtual void BeginGroup(const PaintedGroup& group) = 0;
    virtual void EndGroup() = 0;
    virtual void FillRect(const CanvasRect& box, const Wash& wash, double radius) = 0;
    virtual void FillShape(const std::vector<Point>& corners, ScreenColour colour) = 0;
    virtual void StrokeSegments(const std::vector<Segment>& segments, ScreenColour colour, double width) = 0;
    virtual void Write(const PlacedText& text) = 0;
    virtual void Sense(const CanvasRect& box) = 0; // invisible, feels the pointer for the group
};

} // namespace timeline
