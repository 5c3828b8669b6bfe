// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/pictures/clouds/Body.h"

// A hand that holds a card, and the sleeve that it comes out of.

namespace atelier
{

enum class Wear { Wool, Rope, Flour, Lace, Leather, Wire };

enum class Gesture {
    TwoBehind,  // thumb before the card, two fingers behind it, two in the palm
    AllBehind,  // thumb before the card, all fingers behind it
    AllInFront, // seen from the back of the hand: the fingers before the card, the thumb behind it
    Fan,        // thumb and forefinger hold it, the others are spread like a fan
    TwoInFront, // seen from the back of the hand: two fingers before the card, the thumb behind it, two in the palm
    OneBehind // thumb before the card, the forefinger behind it, three in the palm
};

struct Arm {
    uint32_t seed;
    float bend; // pixels by which the elbow is out to the left
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
    // What holds the card from in front, and its shadow on the card.
    void PaintGrip(Canvas& canvas) const;

private:
    Canvas drawn, before;
    Mask shadow;
    int left, top; // where they lie
};

// What the arm wears, over the forearm.
void PaintWear(Canvas& canvas, const Sight& sight, const Arm& arm);

// The middle of the forearm, from the palm over the wrist to beyond the picture's border, and half its width at a part t of
// the way.
Line Forearm(const Sight& sight, const Arm& arm);
float ForearmHalf(const Arm& arm, float t);

} // namespace atelier
