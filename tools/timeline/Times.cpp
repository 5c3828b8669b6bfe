// SPDX-License-Identifier: MIT
#include "tools/timeline/Times.h"

#include <cmath>
#include <cstdio>

namespace timeline
{

static long long Milliseconds(double seconds)
{
    return std::llround(seconds * 1000);
}

// The decimals of a number of milliseconds below 1000: ".25" of 250, and nothing of 0.
static std::string Decimals(long long milliseconds)
{
    if (milliseconds == 0)
        return "";
    char text[8];
    snprintf(text, sizeof text, ".%03d", int(milliseconds));
    std::string decimals = text;
    while (decimals.back() == '0')
        decimals.pop_back();
    return decimals;
}

std::string ClockText(double seconds)
{
    const long long all = Milliseconds(seconds);
    const long long whole = all / 1000;
    char text[64];
    if (whole >= 3600)
        snprintf(text, sizeof text, "%lld:%02d:%02d", whole / 3600, int(whole / 60 % 60), int(whole % 60));
    else
        snprintf(text, sizeof text, "%d:%02d", int(whole / 60), int(whole % 60));
    return text + Decimals(all % 1000);
}

std::string LengthText(double seconds)
{
    const long long all = Milliseconds(seconds);
    return std::to_string(all / 1000) + Decimals(all % 1000) + " s";
}

std::string MillisecondText(double seconds)
{
    return std::to_string(Milliseconds(seconds));
}

std::string MusicalText(double seconds, const Tempo& tempo)
{
    // Round to milliseconds first: a moment that is meant to lie on a beat was a float, and is a little off.
    const double exact = double(Milliseconds(seconds)) / 1000;
    const double nearest = std::round(exact / tempo.BeatSeconds());
    const bool onBeat = std::fabs(exact - nearest * tempo.BeatSeconds()) < 0.0005;
    const double beats = onBeat ? nearest : std::floor(exact / tempo.BeatSeconds());
    const double bar = std::floor(beats / tempo.beatsPerBar);
    const long long beat = std::llround(beats - bar * tempo.beatsPerBar);
    std::string text = "bar " + std::to_string(std::llround(bar));
    if (beat != 0 || !onBeat)
        text += ", beat " + std::to_string(beat + 1);
    if (!onBeat)
        text += " + " + MillisecondText(exact - beats * tempo.BeatSeconds()) + " ms";
    return text;
}

double BarStep(double minSeconds, const Tempo& tempo)
{
    const double epsilon = 1 + 1e-9; // three beats of 0.6 are a little less than 1.8
    double bars = 1;
    while (bars * tempo.BarSeconds() * epsilon < minSeconds)
        bars *= 2;
    return bars;
}

double ClockStep(double minSeconds)
{
    static const double steps[] = {0.01, 0.02, 0.05, 0.1, 0.2, 0.5, 1,   2,    5,   10,
                                   15,   30,   60,   120, 300, 600, 900, 1800, 3600};
    for (const double step : steps)
        if (step >= minSeconds)
            return step;
    double step = 3600;
    while (step < minSeconds)
        step *= 2;
    return step;
}

} // namespace timeline
