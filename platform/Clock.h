// SPDX-License-Identifier: MIT
// The clock of the process: a counter, its frequency and a wait. The real clock is monotonic and counts
// nanoseconds; SteppedClock and CountedClock can be put in its place. Main thread only.
#pragma once

#include <cstdint>

namespace platform
{

int64_t CounterFrequency(); // counts per second, 1000000000 with every clock
int64_t ReadCounter();      // counts since some fixed moment; never goes back
void Sleep(unsigned milliseconds);

struct Clock {
    int64_t (*readCounter)();
    void (*sleep)(unsigned milliseconds);
};

void UseClock(const Clock& clock); // borrowed
void UseRealClock();               // what a process starts with

} // namespace platform
