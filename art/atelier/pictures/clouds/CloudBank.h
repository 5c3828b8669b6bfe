// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/pictures/clouds/Billow.h"

namespace atelier
{

// A bank of cloud that stands by itself on a clear canvas and loses itself round about. What comes out of it is painted
// between its two halves.
struct CloudBank {
    Vector2 place; // the middle of its crest
    float level;   // radians, clockwise: how far the canvas is turned before the bank is seen upright
    const CloudTones& tones;
    uint32_t seed;
    Vector2 foot[2]; // where the outlines of what comes out of it, left and right, go down into it

    void PaintBehind(Canvas& canvas) const;
    void PaintBefore(Canvas& canvas) const;
};

} // namespace atelier
