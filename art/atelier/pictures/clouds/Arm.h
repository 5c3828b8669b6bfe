// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/pictures/clouds/Body.h"

// A left hand that holds a card between its thumb and its fingers, and the sleeve that it comes out of.

namespace atelier
{

enum class Wear { Wool, Rope, Flour, Lace, Leather, Wire };

// What the fingers do that are not needed for the card.
enum class Gesture {
    Loose,    // the little finger goes round the card's edge and holds it from the front
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

// All but what lies before the card: forearm, palm, fingers. The card goes over the fingers.
void PaintHand(Canvas& canvas, const Sight& sight, const Arm& arm);
// What holds the card from the front: the thumb, and the tip of a finger that comes round the edge.
void PaintGrip(Canvas& canvas, const Sight& sight, const Arm& arm);
// What the arm wears, over the forearm.
void PaintWear(Canvas& canvas, const Sight& sight, const Arm& arm);

// The middle of the forearm, from the palm over the wrist to beyond the picture's border, and half its width at a part t of
// the way.
Line Forearm(const Sight& sight, const Arm& arm);
float ForearmHalf(const Arm& arm, float t);

} // namespace atelier
