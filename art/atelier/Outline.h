// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Mask.h"

#include <string>

// The way from a mask to a drawing of lines and areas that can be scaled: SVG.

namespace atelier
{

// The closed outlines of everything that is not below `level`, round outer borders and round holes alike: filled by the
// even-odd rule they are the mask again. Places lie between the pixels, where the amount passes the level, and nothing
// lies outside the mask. Points that are no further than `tolerance` pixels from the line without them are left out, and
// so are outlines of a smaller area than `minArea` square pixels. The first point is not repeated at the end.
std::vector<Line> Traced(const Mask& mask, float level, float tolerance, float minArea);

// The data of an SVG path: "M1.0 2.5L..Z" for each outline, each coordinate times `scale` and with one decimal.
std::string PathData(const std::vector<Line>& outlines, float scale);

} // namespace atelier
