// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/pictures/clouds/Body.h"

// A left hand that holds a card between its thumb and its fingers, and the sleeve that it comes out of.

namespace atelier
{

enum class Wear { Wool, Rope, Flour, Lace, Leather, Wire };

// What the fingers do that are not needed for the card.
enum class Gesture {
    Loose,    // the little finger stands off, as far as it likes
    Together, // all four are pressed together behind the card
    Curled,   // ring and little finger lie in the palm
    Fan       // ring and little finger are spread like a fan
};

struct Arm {
    uint32_t seed;
    float bend;   // pixels by which the elbow is out to the left
    float spread; // how far the little finger stands off
    float girth;
    float tan; // of the skin: 0 moonlit to 1 weathered
    Wear wear;
    Gesture gesture;
};

// All but the thumb: forearm, palm, fingers. The card goes over the fingers.
void PaintHand(Canvas& canvas, const Sight& sight, const Arm& arm);
void PaintThumb(Canvas& canvas, const Sight& sight, const Arm& arm);
// What the arm wears, over the forearm.
void PaintWear(Canvas& canvas, const Sight& sight, const Arm& arm);

// The middle of the forearm, from the palm to beyond the picture's border.
Line Forearm(const Sight& sight, const Arm& arm);

} // namespace atelier
