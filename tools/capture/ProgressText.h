// SPDX-License-Identifier: MIT
// The words in which a capture tells how far it is.
#pragma once

#include <cstdint>
#include <string>

namespace capture
{

// Frames 0 to first - 1 are played without being drawn. Frames first to end - 1 are drawn, and `pictures` of them are
// captured.
struct CaptureExtent {
    int64_t first = 0, end = 0, pictures = 0;

    double Part(int64_t frame) const; // how much of the undrawn or of the drawn frames is done, 0 to 1
};

// " 25 %  250 of 1000  50 a second  15 s left". `taken` is the number of pictures so far, `seconds` the time since the
// first undrawn frame began, or since the first drawn one if `frame` is drawn.
std::string ProgressLine(const CaptureExtent& extent, int64_t frame, int64_t taken, double seconds);

std::string BarText(double part, int cells); // "[##..]" for 0.5 and 4
std::string DurationText(double seconds);    // "8 s", "3 min 05 s", "2 h 07 min"

} // namespace capture
