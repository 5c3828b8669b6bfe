// SPDX-License-Identifier: MIT
// A frame rate as a fraction, and conversions between frame numbers, times and text. All arithmetic is on
// integers and exact.
//
// CONVENTIONS
//   Frames are counted from 0, the frame at time 0 of the show. Frame n shows the moment n / rate.
//   Times are whole microseconds. A clock's counts are nanoseconds, as platform/Clock.h has them.
#pragma once

#include <cstdint>
#include <string>

namespace capture
{

struct FrameRate {
    static constexpr int64_t Largest = 1000000; // allowed for either field

    int64_t frames = 60;
    int64_t seconds = 1;

    // How many frames begin before this time: the smallest whole number that is not below time * rate. Shows
    // of that length have that many frames.
    int64_t FramesBefore(int64_t microseconds) const;

    // The time at which a frame begins, in units of 1 / perSecond seconds, rounded down. perSecond is at most
    // 10^9.
    int64_t MomentOf(int64_t frame, int64_t perSecond) const;

    // "60" or "60000/1001".
    std::string Text() const;
};

// Reads "30" or "60000/1001", both parts from 1 to Largest. False if it is anything else.
bool ReadFrameRate(const std::string& text, FrameRate* rate);

// Reads "90", "90.25" or "1:30.25" (h:mm:ss.fraction, up to six decimals). False if it is anything else.
bool ReadTime(const std::string& text, int64_t* microseconds);

// "1:30.25": minutes, two digits of seconds, decimals only where there are any.
std::string TimeText(int64_t microseconds);

} // namespace capture
