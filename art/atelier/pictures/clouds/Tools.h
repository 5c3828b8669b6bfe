// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/pictures/clouds/Arm.h"

// Things of the trade that hold a card for a hand. They lie behind the card; what of them comes through it belongs to the
// card's face.

namespace atelier
{

// In the hand's picture, after the hand and its sleeve and before the card.
void PaintTool(Canvas& canvas, const Sight& sight, const Arm& arm, const DrawnHand& hand);
// On the card's face: the nails of the pole, the point of the pin, the seal of the shaft.
void PaintFastening(Canvas& canvas, const Sight& sight, const Arm& arm);

} // namespace atelier
