// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/pictures/clouds/Body.h"

// A hand that holds a card, and the sleeve that it comes out of.

namespace atelier
{

enum class Wear { Wool, Rope, Flour, Lace, Leather, Wire };

// Of a hand only the thumb may lie before the card. The show fades the hand and not the card's face, so that the thumb
// belongs to the hand's picture alone, and the face is open where the thumb lies on it.
enum class Gesture {
    Fist,   // round a pole that the card is nailed to, aslant in the hand, the thumb across the forefinger
    Lean,   // the card leans on the open hand, held by the thumb
    Tray,   // the card stands on the flat hand, held by the thumb
    Pinch,  // thumb and forefinger hold a pin that goes through the card, the others are spread like a fan
    Clench, // round a shaft that the card is sealed to, the thumb across the fingers
    Corner  // between the thumb before the card's corner and the fingers behind it
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
    // Where it is nearer than a plane of the hand's frame, on the whole canvas. The plane has that z at the card's lower
    // edge, and it falls away by `slope` with each pixel below that.
    Mask InFrontOf(float z, float slope = 0) const;

private:
    Canvas drawn;
    Mask depth;
    Sight sight;   // of the whole canvas
    int left, top; // where they lie
    int width, height;
};

// Where the thumb lies before the card. Nothing for a gesture that holds its card from behind.
Mask ThumbOnCard(const Arm& arm, const Sight& sight, int width, int height);

// What the arm wears, over the forearm.
void PaintWear(Canvas& canvas, const Sight& sight, const Arm& arm);

// The middle of the forearm, from the palm over the wrist to beyond the picture's border, and half its width at a part t of
// the way.
Line Forearm(const Sight& sight, const Arm& arm);
float ForearmHalf(const Arm& arm, float t);

} // namespace atelier
