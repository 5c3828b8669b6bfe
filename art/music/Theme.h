// SPDX-License-Identifier: MIT
#pragma once

// The theme of the waltz: eight bars of three beats in D minor, two phrases of four bars.
//
// It is the tune that the music box plays alone at dusk, and the score that stands on the strip of staves in
// the village. Whoever plays or draws it reads it here.
//
// A bar goes either short and long ("limping", bars 1, 3, 5, 7) or dotted and falling (bars 2, 4, 6). The
// second phrase climbs a tone higher than the first, comes down over E flat, the strange bar, and turns round
// D by its two half-tone neighbours, E flat above and C sharp below.

namespace waltz
{

constexpr int themeBars = 8;
constexpr int beatsPerBar = 3; // the beat is a quarter note

struct ThemeNote {
    int bar;        // 1 to 8
    float beat;     // 0 to below 3, from the bar line
    float length;   // in beats: 0.5 eighth, 1 quarter, 1.5 dotted quarter, 2 half, 3 dotted half
    char letter;    // 'A' to 'G': the place on the staff
    int accidental; // -1 flat, 0 natural, 1 sharp, sounding, whether or not the key signature (one flat) says
                    // it
    int octave;     // 4 for the octave that begins at middle C
    int midi;       // 60 is middle C
    bool printedSign; // the accidental has to be drawn, since the key signature does not say it
};

// clang-format off
constexpr ThemeNote theme[] = {
    //bar beat length           letter      midi  sign
    {1, 0.0f, 1.0f,    'A',  0, 4,    69, false},
    {1, 1.0f, 2.0f,    'F',  0, 5,    77, false},
    {2, 0.0f, 1.5f,    'E',  0, 5,    76, false},
    {2, 1.5f, 0.5f,    'D',  0, 5,    74, false},
    {2, 2.0f, 1.0f,    'B', -1, 4,    70, false},
    {3, 0.0f, 1.0f,    'C',  0, 5,    72, false},
    {3, 1.0f, 2.0f,    'A',  0, 4,    69, false},
    {4, 0.0f, 1.5f,    'G',  0, 4,    67, false},
    {4, 1.5f, 0.5f,    'F',  0, 4,    65, false},
    {4, 2.0f, 1.0f,    'E',  0, 4,    64, false},

    {5, 0.0f, 1.0f,    'A',  0, 4,    69, false},
    {5, 1.0f, 2.0f,    'F',  0, 5,    77, false},
    {6, 0.0f, 1.5f,    'G',  0, 5,    79, false},
    {6, 1.5f, 0.5f,    'F',  0, 5,    77, false},
    {6, 2.0f, 1.0f,    'E', -1, 5,    75, true},
    {7, 0.0f, 1.0f,    'D',  0, 5,    74, false},
    {7, 1.0f, 2.0f,    'C',  1, 5,    73, true},
    {8, 0.0f, 3.0f,    'D',  0, 5,    74, false},
};

// What stands below it, a chord a bar, and the bass note of that chord. The last bar goes to B flat: it wants D
// and does not get it until the night is over.
constexpr const char* themeHarmony[themeBars] = {"Dm", "Gm", "F",  "A7", "Dm", "Eb/G", "A7", "Bb"};
constexpr int themeBass[themeBars]            = { 50,   43,   41,   45,   50,   43,     45,   46 };

// The counter-melody: long and short where the theme limps short and long, so that between them every beat moves.
constexpr ThemeNote counterMelody[] = {
    {1, 0.0f, 2.0f,    'D',  0, 4,    62, false},
    {1, 2.0f, 1.0f,    'F',  0, 4,    65, false},
    {2, 0.0f, 3.0f,    'G',  0, 4,    67, false},
    {3, 0.0f, 2.0f,    'F',  0, 4,    65, false},
    {3, 2.0f, 1.0f,    'D',  0, 4,    62, false},
    {4, 0.0f, 3.0f,    'C',  1, 4,    61, true},

    {5, 0.0f, 2.0f,    'D',  0, 4,    62, false},
    {5, 2.0f, 1.0f,    'F',  0, 4,    65, false},
    {6, 0.0f, 2.0f,    'E', -1, 4,    63, true},
    {6, 2.0f, 1.0f,    'G',  0, 4,    67, false},
    {7, 0.0f, 1.0f,    'A',  0, 4,    69, false},
    {7, 1.0f, 2.0f,    'G',  0, 4,    67, false},
    {8, 0.0f, 3.0f,    'F',  0, 4,    65, false},
};
// clang-format on

} // namespace waltz
