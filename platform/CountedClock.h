// SPDX-License-Identifier: MIT
// A clock that tells the count by how often it was read. FrameTimer reads the clock once when it starts and
// once behind each frame, and nobody else does, so read n is the moment that frame n shows: a capture knows
// the time of every frame to the count, and no rounding adds up.
#pragma once

#include "platform/Clock.h"

namespace platform
{

// The count of one read: `read` is the number of reads before it.
typedef int64_t (*CountsOfRead)(void* user, int64_t read);

// Every read gives what `counts` says, which gets `user` untouched; a wait passes at once.
void UseCountedClock(CountsOfRead counts, void* user);
int64_t ClockReads(); // since the counted clock came into use

} // namespace platform
