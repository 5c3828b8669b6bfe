// SPDX-License-Identifier: MIT
// Draws what the layout has placed.
#pragma once

#include "tools/timeline/Drawing.h"
#include "tools/timeline/Layout.h"

namespace timeline
{

enum PicturePart { HeadPart = 1, GutterPart = 2, PlotPart = 4, FootPart = 8, WholePicture = 15 };

// Parts are bits of PicturePart.
void DrawPicture(const TimelineModel& model, const Layout& layout, int parts, Drawing* drawing);

} // namespace timeline
