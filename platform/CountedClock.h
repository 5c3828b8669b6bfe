// SPDX-License-Identifier: MIT
// A clock whose count depends only on how often it was read. FrameTimer reads the clock once when it starts
// and once after each frame, and nothing else reads it, so read n gives the time of frame n. A capture knows
// the exact time of every frame in this way, and no rounding error accumulates.
#pragma once

#include "platform/Clock.h"

namespace platform
{

// Returns the count of one read; `read` is the number of reads before it.
typedef int64_t (*CountsOfRead)(void* user, int64_t read);

// Puts the counted clock into use. Every read returns what `counts` returns, which gets `user` untouched and
// must not be null; Sleep returns at once.
void UseCountedClock(CountsOfRead counts, void* user);
int64_t ClockReads(); // number of reads since the counted clock came into use

} // namespace platform
