// SPDX-License-Identifier: MIT
// The interface of the backends that the picture is drawn with: SvgDrawing writes SVG, PngPicture paints with cairo.
// Because Picture.cpp knows this interface alone, all formats show the same. Places and widths are in units of the
// canvas (Type.h).
#pragma once

#include "tools/timeline/Palette.h"
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
struct Group {
    const char* kind;
    std::string title; // shown while the pointer rests on it; empty: nothing
    std::vector<std::pair<const char*, std::string>> data;
};

class Drawing
{
public:
    virtual ~Drawing();

    virtual void BeginGroup(const Group& group) = 0;
    virtual void EndGroup() = 0;
    virtual void FillBox(const Box& box, const Wash& wash, double radius) = 0;
    virtual void FillShape(const std::vector<Point>& corners, Colour colour) = 0;
    virtual void StrokeSegments(const std::vector<Segment>& segments, Colour colour, double width) = 0;
    virtual void Write(const PlacedText& text) = 0;
    virtual void Sense(const Box& box) = 0; // invisible, feels the pointer for the group
};

} // namespace timeline
