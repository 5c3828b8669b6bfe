// SPDX-License-Identifier: MIT
#include "platform/Clock.h"

#include <cassert>
#include <cerrno>
#include <ctime>

namespace platform
{

static const int64_t countsPerSecond = 1000000000;

static int64_t ReadMonotonicClock()
{
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return int64_t(now.tv_sec) * countsPerSecond + now.tv_nsec;
}

static void SleepThread(unsigned milliseconds)
{
    timespec left = {time_t(milliseconds / 1000), long(milliseconds % 1000) * 1000000};
    while (nanosleep(&left, &left) != 0 && errno == EINTR) {
    }
}

static const Clock realClock = {ReadMonotonicClock, SleepThread};
static const Clock* clockInUse = &realClock;

int64_t CounterFrequency()
{
    return countsPerSecond;
}

int64_t ReadCounter()
{
    return clockInUse->readCounter();
}

void Sleep(unsigned milliseconds)
{
    clockInUse->sleep(milliseconds);
}

void UseClock(const Clock& clock)
{
    assert(clock.readCounter && clock.sleep);
    clockInUse = &clock;
}

void UseRealClock()
{
    clockInUse = &realClock;
}

} // namespace platform
