// SPDX-License-Identifier: MIT
// Which frames of the show are captured. Everything before the last of them is played, whether it is captured
// or not, because a scene leans on all that came before it.
#pragma once

#include "tools/capture/FrameRate.h"

namespace capture
{

struct Schedule {
    FrameRate rate;
    int64_t first = 0; // the first frame captured
    int64_t end = 0;   // one behind the last
    int64_t picks = 0; // how many of them are wanted; end - first, unless they were thinned out

    // The frames that begin in [from, to). A show that ends at `to` has all its frames in there, its first
    // and its last included, and ranges that meet share none and lose none.
    static Schedule Of(const FrameRate& rate, int64_t fromMicroseconds, int64_t toMicroseconds);

    // The number-th of count parts, number from 1: consecutive, as even as whole frames allow. Together they
    // are this schedule. A part may be empty when there are fewer frames than parts. Not for a thinned one.
    Schedule Part(int64_t number, int64_t count) const;

    // Keeps the first frame of each period: those at first, first + period, ... to the nearest later frame.
    Schedule Every(int64_t microseconds) const;

    // Keeps this many frames: of as many equal stretches the frame in the middle.
    Schedule Spread(int64_t count) const;

    bool Wants(int64_t frame) const;
    int64_t Pick(int64_t index) const;       // the frame of the index-th pick
    int64_t NextWanted(int64_t frame) const; // the first one wanted that is not before this; `end` if none is

private:
    int64_t period = 0; // microseconds between picks; 0: not so
    bool spread = false;
};

} // namespace capture
