// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/pictures/clouds/Billow.h"

#include <vector>

namespace atelier
{

// A bank of cloud that stands by itself on a clear canvas and loses itself round about. What comes out of it is painted
// between its two halves.
struct CloudBank {
    Vector2 place; // the middle of its crest
    float level;   // radians, clockwise: how far the canvas is turned before the bank is seen upright
    const CloudTones& tones;
    uint32_t seed;
    // Where the outlines of what comes out of it go down into it, the left one first, all others on the right; billows
    // lie before them.
    std::vector<Vector2> feet = {};

    void PaintBehind(Canvas& canvas) const;
    void PaintBefore(Canvas& canvas) const;
};

} // namespace atelier
