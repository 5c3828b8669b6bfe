// SPDX-License-Identifier: MIT
// The picture as a PNG file, painted by cairo.
#pragma once

#include "tools/timeline/TimelinePicture.h"

#include <string>

namespace timeline
{

const int MostPixels = 32767; // cairo's limit, for width and height each

// Writes the bytes of a whole PNG file to *png; scale is the number of pixels per unit of the canvas. Returns false if
// the picture would be larger than MostPixels or cairo fails; *reason then says which.
bool PngPicture(const TimelineModel& model, const Layout& layout, double scale, std::string* png,
                std::string* reason);

} // namespace timeline
