// SPDX-License-Identifier: MIT
// Outlines of pen strokes and of small signs, as polygons for Drawing::FillShape, in units of the canvas. The strokes
// look drawn by hand; their irregularities come from the seed, so that each run draws the same.
#pragma once

#include "tools/timeline/Painter.h"

#include <cstdint>

namespace timeline
{

// A horizontal stroke from left to right about y, at most `width` thick.
std::vector<Point> LevelStroke(double left, double right, double y, double width, uint32_t seed);

// A short vertical stroke at x, `width` thick at the top and pointed at the bottom.
std::vector<Point> DownStroke(double x, double top, double bottom, double width);

std::vector<Point> Diamond(Point centre, double radius);

// A waxing moon: the right side of a disc, less what a second disc takes away.
std::vector<Point> Crescent(Point centre, double radius);

std::vector<Point> Disc(Point centre, double radius);

} // namespace timeline
