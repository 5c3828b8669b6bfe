// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Pen.h"

// The hand of the photograph, palm to the camera: a relief that the flash lights.

namespace atelier::photograph
{

// The photograph is painted in the proportion in which it is shown at rest, 717 to 591. Of that the screen cuts 4.5
// percent above and below.
constexpr int W = 1242, H = 1024;

// The hand comes in a little from the right, as hands do that are thrown up in haste: all its places are turned so.
Line Tilted(const Line& line);

// Where the hand lies, wrist and all.
Mask HandShape();
// The light that comes back from it, 0 to about 1, where `shape` is.
Mask LitHand(const Mask& shape, const Paper& paper);

} // namespace atelier::photograph
