// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/pictures/clouds/Body.h"

// A hand that holds a card, and the sleeve that it comes out of.

namespace atelier
{

enum class Wear { Wool, Rope, Flour, Lace, Leather, Wire };

// The card is before the hand everywhere: the show fades the hand and not the card, and a finger that lay on the card
// would be cut in two by its edge.
enum class Gesture {
    Fist,   // round a pole that the card is nailed to, the thumb along it
    Lean,   // the card leans on the open hand, between the thumb and the fingertips
    Tray,   // the card stands on the flat hand
    Pinch,  // thumb and forefinger hold a pin that goes through the card, the others are spread like a fan
    Clench, // round a shaft that the card is sealed to, the thumb across the fingers
    Corner  // the card stands on the thumb and leans on the forefinger, the others are in the palm
};

struct Arm {
    uint32_t seed;
    Vector2 elbow; // where the forearm leads to, in the hand's frame
    float girth;
    float tan; // of the skin: 0 moonlit to 1 weathered
    Wear wear;
    Gesture gesture;
};

// The hand of an arm as it is drawn on a canvas of this size.
class DrawnHand
{
public:
    DrawnHand(const Arm& arm, const Sight& sight, int width, int height);

    // The whole hand, and its forearm as far as it is bare. The card goes over it.
    void Paint(Canvas& canvas) const;
    // Where it is nearer than a plane of that z in the hand's frame, on the whole canvas.
    Mask InFrontOf(float z) const;

private:
    Canvas drawn;
    Mask depth;
    int left, top; // where they lie
    int width, height;
};

// What the arm wears, over the forearm.
void PaintWear(Canvas& canvas, const Sight& sight, const Arm& arm);

// The middle of the forearm, from the palm over the wrist to beyond the picture's border, and half its width at a part t of
// the way.
Line Forearm(const Sight& sight, const Arm& arm);
float ForearmHalf(const Arm& arm, float t);

} // namespace atelier
