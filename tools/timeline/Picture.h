// SPDX-License-Identifier: MIT
// Draws a layout through any backend.
#pragma once

#include "tools/timeline/Drawing.h"
#include "tools/timeline/Layout.h"

namespace timeline
{

enum PicturePart { HeadPart = 1, GutterPart = 2, PlotPart = 4, FootPart = 8, WholePicture = 15 };

// Draws the given parts, a combination of bits of PicturePart. The layout must be that of the model.
void DrawPicture(const TimelineModel& model, const Layout& layout, int parts, Drawing* drawing);

} // namespace timeline
