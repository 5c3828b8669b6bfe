// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Canvas.h"

namespace atelier
{

// The six greetings of the cloud flight, 0 to 5: a hand that holds up a blank card, and the card's face,
// which the show lays over it. The hand is 1024 x 1024, as it comes near the camera, the face 512 x 512. Both are
// clear at the border, but for the top of the hand's picture, where the card goes on as its face.
Canvas GreetingHand(int greeting);
Canvas GreetingCard(int greeting);

} // namespace atelier
