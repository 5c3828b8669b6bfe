// SPDX-License-Identifier: MIT
// The clock of the process: a counter, its frequency and a wait. The real clock is monotonic and counts
// nanoseconds; SteppedClock and CountedClock can be put in its place. Main thread only.
#pragma once

#include <cstdint>

namespace platform
{

int64_t CounterFrequency();        // counts per second: 1000000000, whichever clock is in use
int64_t ReadCounter();             // counts since a fixed moment; never decreases while one clock is in use
void Sleep(unsigned milliseconds); // waits on the real clock, returns at once on the others

struct Clock {
    int64_t (*readCounter)();
    void (*sleep)(unsigned milliseconds);
};

void UseClock(const Clock& clock); // the table is borrowed; both functions must be set
void UseRealClock();               // the clock that a process starts with

} // namespace platform
