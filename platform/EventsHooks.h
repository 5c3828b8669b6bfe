// SPDX-License-Identifier: MIT
// How tests put events into the queue of Events.h. A show posts none.
#pragma once

#include "platform/Events.h"

namespace platform
{

// Appends an event, which comes after those posted earlier and before the system's.
void PostEvent(Event event);

} // namespace platform
