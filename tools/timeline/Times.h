// SPDX-License-Identifier: MIT
// Texts for moments and lengths of time, as a clock and as bars of the music, and the steps in which a ruler counts
// them.
#pragma once

#include <string>

namespace timeline
{

struct Tempo {
    double beatsPerMinute = 100;
    int beatsPerBar = 3;

    double BeatSeconds() const { return 60 / beatsPerMinute; }
    double BarSeconds() const { return BeatSeconds() * beatsPerBar; }
};

// A moment as minutes and seconds, rounded to milliseconds, without trailing zeros: "6:12.6", "0:00", "1:02:03.004".
std::string ClockText(double seconds);

// A length in seconds, rounded in the same way: "12.5 s".
std::string LengthText(double seconds);

// A moment in whole milliseconds, as scripts write it: "86400".
std::string MillisecondText(double seconds);

// A moment in bars and beats: "bar 47, beat 2", "bar 48" on a first beat, and off the beat "bar 47, beat 2 + 30 ms".
// Bars count from 0 at the start of the show, beats from 1.
std::string MusicalText(double seconds, const Tempo& tempo);

// The shortest step of 1, 2, 4, 8 ... bars that lasts at least minSeconds, in bars.
double BarStep(double minSeconds, const Tempo& tempo);

// The shortest of the steps in which a clock is divided (10, 20, 50 ms ... 1, 2, 5, 10, 15, 30 s, 1, 2, 5 min ...) that
// lasts at least minSeconds, in seconds.
double ClockStep(double minSeconds);

} // namespace timeline
