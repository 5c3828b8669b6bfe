// SPDX-License-Identifier: MIT
// The clock of the process: a counter, its frequency and a wait. The real one is monotonic and counts
// nanoseconds. Tests and tools put the stepped clock in its place, which moves only when it is told to,
// and which a wait moves at once. Main thread only.
#pragma once

#include <cstdint>

namespace platform
{

int64_t CounterFrequency(); // counts per second, 1000000000 with both clocks
int64_t ReadCounter();      // counts since some fixed moment; never goes back
void Sleep(unsigned milliseconds);

void UseRealClock();
void UseSteppedClock();         // starts at count 0, whatever an earlier stepped clock had reached
void StepClock(int64_t counts); // moves the stepped clock; no effect on the real one

} // namespace platform
