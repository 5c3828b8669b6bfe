// SPDX-License-Identifier: MIT
// The few things that the picture is drawn with. One backend writes SVG, one paints with cairo, so that all
// formats show the same.
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

// What belongs together on the canvas. Formats without a pointer to rest on it ignore all three.
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
