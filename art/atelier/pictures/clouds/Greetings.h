// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Canvas.h"

namespace atelier
{

// The six greetings of the cloud flight, 0 to 5: a hand that holds up a blank card, and the card's face,
// which the show lays over it. Both 512 x 512, clear round about.
Canvas GreetingHand(int greeting);
Canvas GreetingCard(int greeting);

} // namespace atelier
