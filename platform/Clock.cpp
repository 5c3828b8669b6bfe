// SPDX-License-Identifier: MIT
#include "platform/Clock.h"

#include <cerrno>
#include <ctime>

namespace platform
{

static const int64_t countsPerSecond = 1000000000;
static const int64_t countsPerMillisecond = 1000000;

static bool stepped = false;
static int64_t steppedCounter = 0;

int64_t CounterFrequency()
{
    return countsPerSecond;
}

int64_t ReadCounter()
{
    if (stepped)
        return steppedCounter;
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return int64_t(now.tv_sec) * countsPerSecond + now.tv_nsec;
}

void Sleep(unsigned milliseconds)
{
    if (stepped) {
        steppedCounter += milliseconds * countsPerMillisecond;
        return;
    }
    timespec left = {time_t(milliseconds / 1000), long(milliseconds % 1000) * 1000000};
    while (nanosleep(&left, &left) != 0 && errno == EINTR) {
    }
}

void UseRealClock()
{
    stepped = false;
}

void UseSteppedClock()
{
    stepped = true;
    steppedCounter = 0;
}

void StepClock(int64_t counts)
{
    if (stepped)
        steppedCounter += counts;
}

} // namespace platform
