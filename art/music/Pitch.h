// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace waltz
{

// Pitches are MIDI numbers: 60 is middle C, "C4", a step is a half tone; 69, "A4", is 440 Hz.

// Reads a name like "A4", "Bb3", "C#5" at `at` and moves `at` past it. -1, and `at` as it was, if there is
// none.
int ReadPitch(const std::string& text, size_t& at);

// Reads a letter with its accidental, "Bb", as a pitch class: 0 for C to 11 for B. -1 if there is none.
int ReadPitchClass(const std::string& text, size_t& at);

// Flats for black keys, but C# and F#, as D minor and G minor want them.
std::string PitchName(int pitch);

double Frequency(double pitch); // in Hz

} // namespace waltz
