// SPDX-License-Identifier: MIT
#include "platform/Clock.h"

#include <cerrno>
#include <ctime>

namespace platform
{

static const int64_t countsPerSecond = 1000000000;
static const int64_t countsPerMillisecond = 1000000;

enum ClockKind { RealClock, SteppedClock, CountedClock };

static ClockKind kind = RealClock;
static int64_t steppedCounter = 0;
static CountsOfRead countsOfRead = nullptr;
static void* countsUser = nullptr;
static int64_t clockReads = 0;

int64_t CounterFrequency()
{
    return countsPerSecond;
}

int64_t ReadCounter()
{
    if (kind == SteppedClock)
        return steppedCounter;
    if (kind == CountedClock)
        return countsOfRead(countsUser, clockReads++);
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return int64_t(now.tv_sec) * countsPerSecond + now.tv_nsec;
}

void Sleep(unsigned milliseconds)
{
    if (kind == SteppedClock)
        steppedCounter += milliseconds * countsPerMillisecond;
    if (kind != RealClock)
        return;
    timespec left = {time_t(milliseconds / 1000), long(milliseconds % 1000) * 1000000};
    while (nanosleep(&left, &left) != 0 && errno == EINTR) {
    }
}

void UseRealClock()
{
    kind = RealClock;
}

void UseSteppedClock()
{
    kind = SteppedClock;
    steppedCounter = 0;
}

void StepClock(int64_t counts)
{
    if (kind == SteppedClock)
        steppedCounter += counts;
}

void UseCountedClock(CountsOfRead counts, void* user)
{
    kind = CountedClock;
    countsOfRead = counts;
    countsUser = user;
    clockReads = 0;
}

int64_t ClockReads()
{
    return clockReads;
}

} // namespace platform
