// SPDX-License-Identifier: MIT
// Draws a layout through any backend.
#pragma once

#include "tools/timeline/Layout.h"
#include "tools/timeline/Painter.h"

namespace timeline
{

enum PicturePart { HeadPart = 1, GutterPart = 2, PlotPart = 4, FootPart = 8, WholePicture = 15 };

// Draws the given parts, a combination of bits of PicturePart. The layout must be that of the model.
void DrawPicture(const TimelineModel& model, const Layout& layout, int parts, Painter* painter);

} // namespace timeline
