// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Mask.h"
#include "art/atelier/pictures/clouds/Body.h"
#include "art/atelier/pictures/hands/Skeleton.h"

// What one sees of a hand: where it is, how far it is turned from the light, where one part ends before another.

namespace atelier
{

// Towards the light, which comes from the upper left, in the hand's frame.
constexpr Point3 HandLight = {-0.52f, -0.42f, 0.74f};

struct Study {
    Study(int width, int height);

    Mask body;  // 1 where there is flesh
    Mask palm;  // 1 where that is no digit
    Mask depth; // its z, in the hand's frame
    Mask dark;  // 0 faces the light, 1 is in shadow
    Mask cast;  // how much of that is thrown by other parts
    Mask edges; // 1 on pixels where a nearer part ends before a farther one, or before nothing
    Mask folds; // 0 to 1 where flesh meets flesh
    bool Sees(Vector2 place, float z, float slack) const;
    // Makes pixels dark flesh that flesh is all around: in a gap between parts that nearly touch, single rays find none.
    void CloseGaps();
};

// The part of a canvas of this size that shows a body, with so much room about it, in pixels of the hand's frame.
struct Frame {
    int left, top, width, height;
};
Frame FrameOf(const Solid& solid, const Sight& sight, float room, int width, int height);

// The hand on a canvas of this size. `cardHalf` as in Sight; its card lies at z = 0 and throws a soft shadow behind it.
Study Studied(const Skeleton& hand, const Sight& sight, int width, int height);

} // namespace atelier
