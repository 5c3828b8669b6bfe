// SPDX-License-Identifier: MIT
// The frames of the show that are captured. All frames before the last of them are played, captured or not,
// because the state of a scene depends on every frame before.
#pragma once

#include "tools/capture/FrameRate.h"

namespace capture
{

struct FrameSelection {
    FrameRate rate;
    int64_t first = 0; // first frame of the range
    int64_t end = 0;   // one past its last frame
    int64_t picks = 0; // number of captured frames: end - first unless Every or Spread chose fewer

    // Selects the frames that begin in [from, to), times in microseconds. Adjacent ranges have no frame in
    // common and none between them.
    static FrameSelection Of(const FrameRate& rate, int64_t fromMicroseconds, int64_t toMicroseconds);

    // The number-th of `count` consecutive parts whose lengths differ by one frame at most, number from 1.
    // Parts are empty if there are fewer frames than parts. Not for the result of Every or Spread.
    FrameSelection Part(int64_t number, int64_t count) const;

    // Selects the first frame that begins in each period of this length, counted from the first frame; of the whole
    // range, whatever Spread chose of it.
    FrameSelection Every(int64_t microseconds) const;

    // Divides the range into `count` equal parts and selects the frame in the middle of each.
    FrameSelection Spread(int64_t count) const;

    bool Wants(int64_t frame) const;

    // The index-th selected frame, index from 0 to picks - 1.
    int64_t Pick(int64_t index) const;

    // The first selected frame that is not before this one; `end` if there is none.
    int64_t NextWanted(int64_t frame) const;

private:
    int64_t period = 0;  // of Every, microseconds; 0 without it
    bool spread = false; // by Spread
};

} // namespace capture
