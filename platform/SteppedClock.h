// SPDX-License-Identifier: MIT
// A clock that only StepClock and Sleep advance. Sleep adds its time and returns at once.
#pragma once

#include "platform/Clock.h"

namespace platform
{

void UseSteppedClock();         // starts at count 0 on every call
void StepClock(int64_t counts); // has no effect while another clock is in use

} // namespace platform
