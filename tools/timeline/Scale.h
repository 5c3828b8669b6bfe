// SPDX-License-Identifier: MIT
// The linear conversion between seconds of the show and x of the canvas.
#pragma once

namespace timeline
{

struct Scale {
    double start, end;      // seconds of what is shown
    double zero, perSecond; // x of the start; pixels per second, above 0

    double X(double seconds) const { return zero + (seconds - start) * perSecond; }
    double Seconds(double x) const { return start + (x - zero) / perSecond; }
};

} // namespace timeline
