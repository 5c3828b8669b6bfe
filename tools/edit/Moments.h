// SPDX-License-Identifier: MIT
// Moments of the show as frames, as words and as what a user types.
#pragma once

#include "tools/capture/FrameRate.h"
#include "tools/timeline/Times.h"

#include <cstdint>
#include <string>

namespace edit
{

// The frame that is on the screen at a time: the last one that has begun. Times below 0 have frame 0.
int64_t FrameAt(double seconds, const capture::FrameRate& rate);
// When a frame begins.
double SecondsOf(int64_t frame, const capture::FrameRate& rate);

// "1:23.450": minutes, seconds and always three decimals.
std::string ClockFace(double seconds);
// "46:2": the bar, counted from 0 at the start of the show, and its beat, counted from 1.
std::string BarFace(double seconds, const timeline::Tempo& tempo);

// The beat (or with beatsPerBar the bar) before or after a time: the nearest that is not the time itself.
// direction is 1 or -1; never below 0.
double NextBeat(double seconds, const timeline::Tempo& tempo, int direction);
double NextBar(double seconds, const timeline::Tempo& tempo, int direction);

// Reads what a user types to go to a moment: "83450" is milliseconds, "1:23.45" or "0:07.5" minutes and seconds, which
// have two digits ahead of the point, and "46:2" a bar and one of its beats, which have one. False: *reason says in a
// sentence what can be typed.
bool ReadMoment(const std::string& text, const timeline::Tempo& tempo, double* seconds, std::string* reason);

} // namespace edit
