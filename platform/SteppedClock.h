// SPDX-License-Identifier: MIT
// A clock that moves only when it is told to: by StepClock, and by a wait, which passes at once.
#pragma once

#include "platform/Clock.h"

namespace platform
{

void UseSteppedClock();         // starts at count 0, whatever an earlier stepped clock had reached
void StepClock(int64_t counts); // without effect while another clock is in use

} // namespace platform
