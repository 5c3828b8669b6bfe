// SPDX-License-Identifier: MIT
// The clock of the process: a counter, its frequency and a wait. The real one is monotonic and counts
// nanoseconds. Tests and tools put the stepped clock in its place, which moves only when it is told to,
// and which a wait moves at once, or the counted clock, which tells the count by how often it was read. Main
// thread only.
#pragma once

#include <cstdint>

namespace platform
{

int64_t CounterFrequency(); // counts per second, 1000000000 with both clocks
int64_t ReadCounter();      // counts since some fixed moment; never goes back
void Sleep(unsigned milliseconds);

void UseRealClock();
void UseSteppedClock();         // starts at count 0, whatever an earlier stepped clock had reached
void StepClock(int64_t counts); // moves the stepped clock; no effect on the others

// The counted clock: a read gives what `counts` says for the number of reads before it, and a wait passes at
// once. FrameTimer reads once when it starts and once behind each frame, and nobody else does, so read n is
// the moment that frame n shows: a capture knows every frame's time to the count, without any rounding that
// adds up. `user` is handed to `counts` untouched.
typedef int64_t (*CountsOfRead)(void* user, int64_t read);
void UseCountedClock(CountsOfRead counts, void* user);
int64_t ClockReads(); // of the counted clock, since it came into use

} // namespace platform
