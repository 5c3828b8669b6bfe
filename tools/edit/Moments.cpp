// SPDX-License-Identifier: MIT
#include "tools/edit/Moments.h"

#include "tools/edit/ScriptText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace edit
{

// A time that misses a frame or a beat by less than this part of it counts as that of the frame or the beat.
static const double frameSlack = 1e-6;
static const double beatSlack = 1e-4;
static const double maxSeconds = 4294967.295; // the longest time that a script can hold

int64_t FrameAt(double seconds, const capture::FrameRate& rate)
{
    const double frames = seconds * double(rate.frames) / double(rate.seconds);
    return frames <= 0 ? 0 : int64_t(std::floor(frames + frameSlack));
}

double SecondsOf(int64_t frame, const capture::FrameRate& rate)
{
    return double(frame) * double(rate.seconds) / double(rate.frames);
}

std::string ClockFace(double seconds)
{
    const int64_t milliseconds = int64_t(std::llround(std::max(seconds, 0.0) * 1000));
    char text[40];
    snprintf(text, sizeof text, "%lld:%02d.%03d", static_cast<long long>(milliseconds / 60000),
             int(milliseconds / 1000 % 60), int(milliseconds % 1000));
    return text;
}

// Beats from the start of the show. What is a beat but for rounding is that beat.
static double Beats(double seconds, const timeline::Tempo& tempo)
{
    const double beats = std::max(seconds, 0.0) / tempo.BeatSeconds();
    const double nearest = std::round(beats);
    return std::abs(beats - nearest) < beatSlack ? nearest : beats;
}

std::string BarFace(double seconds, const timeline::Tempo& tempo)
{
    const int64_t beats = int64_t(std::floor(Beats(seconds, tempo)));
    return std::to_string(beats / tempo.beatsPerBar) + ":" + std::to_string(beats % tempo.beatsPerBar + 1);
}

static double NextMultiple(double beats, double step, int direction)
{
    const double steps = beats / step;
    return std::max((direction > 0 ? std::floor(steps) + 1 : std::ceil(steps) - 1) * step, 0.0);
}

double NextBeat(double seconds, const timeline::Tempo& tempo, int direction)
{
    return NextMultiple(Beats(seconds, tempo), 1, direction) * tempo.BeatSeconds();
}

double NextBar(double seconds, const timeline::Tempo& tempo, int direction)
{
    return NextMultiple(Beats(seconds, tempo), tempo.beatsPerBar, direction) * tempo.BeatSeconds();
}

// Reading

static bool AllDigits(const std::string& text)
{
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// Digits, or digits with a point and decimals. std::from_chars knows no locale.
static bool ReadDecimal(const std::string& text, double* number)
{
    const size_t point = text.find('.');
    if (!AllDigits(text.substr(0, point)) ||
        (point != std::string::npos && !AllDigits(text.substr(point + 1))))
        return false;
    const char* const end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, *number);
    return error == std::errc() && last == end;
}

static bool Refuse(const std::string& words, std::string* reason)
{
    *reason = words;
    return false;
}

bool ReadMoment(const std::string& text, const timeline::Tempo& tempo, double* seconds, std::string* reason)
{
    static const char* const forms =
        "Type milliseconds (83450), minutes and seconds (1:23.45) or a bar and its beat "
        "(46:2).";
    const std::string typed = Trimmed(text);
    const size_t colon = typed.find(':');
    double first = 0, second = 0;
    if (colon == std::string::npos) {
        if (!AllDigits(typed) || !ReadDecimal(typed, &first))
            return Refuse(forms, reason);
        *seconds = first / 1000;
    } else {
        const std::string right = typed.substr(colon + 1);
        if (!AllDigits(typed.substr(0, colon)) || !ReadDecimal(typed.substr(0, colon), &first) ||
            !ReadDecimal(right, &second))
            return Refuse(forms, reason);
        if (right.size() == 1) {
            if (second < 1 || second > tempo.beatsPerBar)
                return Refuse("A bar has the beats 1 to " + std::to_string(tempo.beatsPerBar) + ".", reason);
            *seconds = (first * tempo.beatsPerBar + second - 1) * tempo.BeatSeconds();
        } else {
            if (right.find('.') == 1)
                return Refuse("Seconds have two digits: write 1:05.5, not 1:5.5.", reason);
            if (second >= 60)
                return Refuse("A minute has 60 seconds.", reason);
            *seconds = first * 60 + second;
        }
    }
    if (*seconds > maxSeconds)
        return Refuse("No show is as long as that.", reason);
    return true;
}

} // namespace edit
