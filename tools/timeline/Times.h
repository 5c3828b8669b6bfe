// SPDX-License-Identifier: MIT
// Words and figures for moments of the show, and the steps in which a ruler counts them.
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

// "6:12.6", "0:00", "1:02:03.004": whole milliseconds, no more decimals than it takes.
std::string ClockText(double seconds);

// "12.5 s" of a length, likewise.
std::string LengthText(double seconds);

// "86400", as scripts write it.
std::string MillisecondText(double seconds);

// Bars count from 0 at the start of the show, beats from 1: "bar 47, beat 2", "bar 48" on a first beat, and
// off the beat "bar 47, beat 2 + 30 ms".
std::string MusicalText(double seconds, const Tempo& tempo);

// The first step of 1, 2, 4, 8 ... bars that is at least this long; in bars.
double BarStep(double minSeconds, const Tempo& tempo);

// The first step of a clock face (10, 20, 50 ms ... 1, 2, 5, 10, 15, 30 s, 1, 2, 5 min ...) that is at least
// this long; in seconds.
double ClockStep(double minSeconds);

} // namespace timeline
