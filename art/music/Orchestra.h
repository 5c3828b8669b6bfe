// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace waltz
{

enum class Sound {
    MusicBox,
    BrokenBox,
    Celesta,
    FeltPiano,
    Reed,
    Violins,
    Violas,
    Cellos,
    SoloCello,
    Pad, // violins, violas and cellos, a line each
    PluckedBass,
    Pizzicato,
    Drum,
    Brush,
    Step,
    Wind,
    Shore,
};

// One part of the score with the instrument that plays it and its place in the mix.
struct Part {
    const char* name;
    Sound sound;
    int low, high; // what the instrument reaches, pitches
    float gain;    // dB
    float pan;     // -1 left to 1 right
    float room;    // dB, what the room gets of it
    float lowCut;  // Hz, 12 dB an octave
    float highCut; // Hz, 12 dB an octave
    bool melodic;  // leads: stays nearer to the beat than what accompanies
};

// In the order in which the parts are played and printed.
const std::vector<Part>& Orchestra();

// The index in Orchestra(), or -1.
int FindPart(const std::string& name);

// Parts without pitches: the score writes strokes for them, 'x' and 's', which become these. Steps are 'x' with the left
// foot, 's' with the right.
constexpr int stroke = 60;
constexpr int swish = 62;
bool IsUnpitched(Sound sound);

// Instruments that sound on: their tones join to phrases.
bool IsSustained(Sound sound);

} // namespace waltz
