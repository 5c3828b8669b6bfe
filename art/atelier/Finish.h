// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Canvas.h"

#include <vector>

// The last steps from a canvas to the bytes of a picture file.

namespace atelier
{

// Bytes as a picture file holds them: top row first, 3 or 4 channels, 8 bits each, alpha straight.
struct Raster {
    int width = 0, height = 0, channels = 0;
    std::vector<unsigned char> bytes;
};

// To 3 channels the canvas is laid on black. To 4 channels the colour is made straight and bled outward under
// the transparent parts, so that no dark fringe comes in when the picture is filtered or shrunk. Levels are
// rounded with a fixed fine dither, so that slow gradients do not break into bands; pure black, alpha 0 and
// alpha 1 stay exact.
Raster Finished(const Canvas& canvas, int channels);

// Three masks of one size whose amounts are to be the levels of the picture's red, green and blue as they stand.
// For a picture that a shader reads numbers from.
Canvas Channels(const Mask& red, const Mask& green, const Mask& blue);

} // namespace atelier
