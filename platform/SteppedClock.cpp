// SPDX-License-Identifier: MIT
#include "platform/SteppedClock.h"

namespace platform
{

static int64_t counter = 0;

static int64_t ReadSteppedCounter()
{
    return counter;
}

static void SleepSteppedClock(unsigned milliseconds)
{
    counter += int64_t(milliseconds) * (CounterFrequency() / 1000);
}

static const Clock steppedClock = {ReadSteppedCounter, SleepSteppedClock};

void UseSteppedClock()
{
    counter = 0;
    UseClock(steppedClock);
}

void StepClock(int64_t counts)
{
    counter += counts;
}

} // namespace platform
