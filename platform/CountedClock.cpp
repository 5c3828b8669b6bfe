// SPDX-License-Identifier: MIT
#include "platform/CountedClock.h"

#include <cassert>

namespace platform
{

static CountsOfRead countsOfRead = nullptr;
static void* countsUser = nullptr;
static int64_t clockReads = 0;

static int64_t ReadCountedCounter()
{
    return countsOfRead(countsUser, clockReads++);
}

static void SleepCountedClock(unsigned) {}

static const Clock countedClock = {ReadCountedCounter, SleepCountedClock};

void UseCountedClock(CountsOfRead counts, void* user)
{
    assert(counts);
    countsOfRead = counts;
    countsUser = user;
    clockReads = 0;
    UseClock(countedClock);
}

int64_t ClockReads()
{
    return clockReads;
}

} // namespace platform
