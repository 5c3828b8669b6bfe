// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Numbers.h"

#include <vector>

// Lines and the closed shapes made of them. A Line is a polyline whose points lie close together, so that a
// pen that walks it bends smoothly. Places are pixels, y down.

namespace atelier
{

using Line = std::vector<Vector2>;

// A smooth line through the given points (centripetal Catmull-Rom), a point about every `spacing` pixels.
Line Through(const std::vector<Vector2>& points, float spacing = 2);
// The same, closed: the last point joins the first smoothly. The first point is repeated at the end.
Line Round(const std::vector<Vector2>& points, float spacing = 2);
// Straight pieces between the points, resampled alike.
Line Straight(const std::vector<Vector2>& points, float spacing = 2);
// An arc of an ellipse, from angle `from` to angle `to` (radians, clockwise on the screen as y is down).
Line Arc(Vector2 centre, float radiusX, float radiusY, float from, float to, float spacing = 2);
Line Ellipse(Vector2 centre, float radiusX, float radiusY, float turned = 0);

float LengthOf(const Line& line);
Vector2 PointAt(const Line& line, float t);     // t: 0 start to 1 end, by length
Vector2 DirectionAt(const Line& line, float t); // unit length
// The part of the line from t0 to t1 (0 to 1, by length).
Line Part(const Line& line, float t0, float t1);

Line Moved(Line line, Vector2 by);
Line Scaled(Line line, float by, Vector2 about = {});
Line Turned(Line line, float radians, Vector2 about = {});
// Each point moved along its normal (to the right-hand side of the way, y down) by `by`.
Line Beside(const Line& line, float by);
// The line shaken by a smooth noise: up to about `by` pixels, in waves about `wave` pixels long.
Line Shaken(const Line& line, float by, float wave, uint32_t seed);

// A closed outline of varying width round a line: limbs, branches, letters' bodies. Half the width runs from
// `startHalf` through `middleHalf` to `endHalf`.
Line Limb(const Line& spine, float startHalf, float middleHalf, float endHalf);

// One or more closed outlines; filled, they cover their union, whichever way each runs. Cut holes with
// Mask::Erase.
struct Shape {
    std::vector<Line> outlines;

    Shape() = default;
    Shape(Line outline) : outlines{std::move(outline)} {}
    void Add(Line outline) { outlines.push_back(std::move(outline)); }
};

Shape Rectangle(float left, float top, float right, float bottom);

} // namespace atelier
