// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace cli
{

// Seconds since a fixed moment, by a clock of the machine that nobody sets; also while a show plays on a stepped or
// counted clock.
inline double MonotonicSeconds()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

} // namespace cli
