// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Canvas.h"
#include "art/atelier/pictures/hands/Study.h"

// A hand in ink and wash.

namespace atelier
{

struct Skin {
    LinearColour light, shade;
    float age = 0.5f; // how deep its wrinkles and sinews are: 0 to 1
    float deep = 1; // strength of the darker washes and of the hatching: less where much light is thrown back
    float inner = 1; // weight of the outlines within the hand
    float pen = 1;   // width of the strokes, for a hand of 2.5 pixels a millimetre in its frame
    bool closeUp =
        false; // it is seen from near: two layers of hatching, and the skin's wrinkles behind the knuckles
};

// The shadows that parts throw and the colours of skin are washes, form is a pen's hatching round the bones, and the
// outline is heavy where it lies in shadow.
void DrawHand(Canvas& canvas, const Skeleton& hand, const Study& study, const Sight& sight, const Skin& skin,
              uint32_t seed);

// The same for other flesh, that has no hand's marks.
void DrawFlesh(Canvas& canvas, const Study& study, const Sight& sight, const Skin& skin, uint32_t seed);

} // namespace atelier
