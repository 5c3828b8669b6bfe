// SPDX-License-Identifier: MIT
#pragma once

#include <ctime>

// The processor time of all threads of this process so far, in milliseconds.
inline double ProcessorMilliseconds()
{
    timespec time = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) * 1e-6;
}
