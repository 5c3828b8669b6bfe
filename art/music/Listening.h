// SPDX-License-Identifier: MIT
#pragma once

#include "art/music/Signal.h"

#include <string>

namespace waltz
{

// What can be measured of a finished piece of sound. Ranges are samples of the sound's window.
struct Figures {
    double lufs;                // integrated
    double shortTerm;           // LUFS, the loudest three seconds
    double peak;                // dBFS, of the samples
    double truePeak;            // dBFS, between them too
    double offset;              // the mean of the worse channel, as a share of full scale
    double centroid;            // Hz
    double low, mid, high, air; // dB of the whole: below 200, to 1000, to 4000 Hz, above
    double likeness;            // correlation of left and right
    double monoLoss;            // dB that the sum loses against the two channels
};

Figures Measure(const Stereo& sound, int64_t from, int64_t end);

// Seconds at the ends of the sound before it rises over -60 dBFS for the first time, and after the last.
double SilenceAtStart(const Stereo& sound);
double SilenceAtEnd(const Stereo& sound);

// Clicks: second differences that stand out of what is usual within 20 ms around them by more than
// `clickFactor`, and above -60 dBFS. The samples' places.
constexpr double clickFactor = 14;
std::vector<int64_t> FindClicks(const Samples& sound);

// The attack nearest to `sample`: where the sound grows most, in four bands of pitch. Looked for within 90 ms
// to either side, to about 2 ms.
struct Attack {
    double late;     // seconds after `sample`; negative for early
    double strength; // how much the bands grow within 12 ms, in dB, the mean of the four
};
Attack FindAttack(const Stereo& sound, int64_t sample);

} // namespace waltz
