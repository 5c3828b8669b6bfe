// SPDX-License-Identifier: MIT
// Ink: strokes whose pressure changes, the same on every run.
#pragma once

#include "tools/timeline/Drawing.h"

#include <cstdint>

namespace timeline
{

// A level stroke from left to right about y, `width` at full pressure, thinner where the pen goes lighter.
std::vector<Point> LevelStroke(double left, double right, double y, double width, uint32_t seed);

// A short downstroke at x that begins broad and ends in a point.
std::vector<Point> DownStroke(double x, double top, double bottom, double width);

std::vector<Point> Diamond(Point centre, double radius);

// A waxing moon: the right side of a disc, less what a second disc takes away.
std::vector<Point> Crescent(Point centre, double radius);

std::vector<Point> Disc(Point centre, double radius);

} // namespace timeline
