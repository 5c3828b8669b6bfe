// SPDX-License-Identifier: MIT
// The picture as pixels, painted by cairo.
#pragma once

#include "tools/timeline/Picture.h"

#include <string>

namespace timeline
{

const int MostPixels = 32767; // cairo's limit, for width and height each

// A whole file; scale is pixels per unit of the canvas. False if the picture would be too large or cairo
// fails; *reason says so.
bool PngPicture(const TimelineModel& model, const Layout& layout, double scale, std::string* png,
                std::string* reason);

} // namespace timeline
