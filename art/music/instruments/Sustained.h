// SPDX-License-Identifier: MIT
#pragma once

#include "art/music/Performance.h"

namespace waltz
{

// Instruments whose tones last for as long as somebody works at them. Each returns a whole phrase, with the
// little that comes before its first note and after its last; loudness follows the part's dynamics all the
// while. At full strength the peaks lie between 0.3 and 1. `pan` is where the player sits, -1 to 1.

// A resonance of an instrument's body.
struct BodyPeak {
    double hz, q, decibel;
};

// One kind of bowed string, and how many of them play together.
struct BowedKind {
    int players;
    double spread;             // of their seats, in pan
    double attack;             // seconds, when soft
    double vibratoRate;        // Hz
    double vibratoCents;       // to either side, at full loudness; about four fifths of it when soft
    double darkest, brightest; // Hz, where the strings' spectrum begins to fall, from pp to ff
    double bowNoise;
    double longestBow; // seconds that one stroke of the bow lasts
    double slide;      // how long a finger takes over a leap, times that of a section
    BodyPeak body[14];
};

// A section of bowed strings, or one. Each bow takes as many notes as it has hair for and then turns, a finger slides
// over a leap, and a vibrato of 40 to 80 cents from peak to peak sets in with every note that lasts.
//
// `sound` is Violins, Violas, Cellos, SoloCello or Pad; of a Pad, `line` tells which section, from the cellos up.
const BowedKind& BowedKindOf(Sound sound, int line);
Stereo PlayBowed(const Phrase& phrase, const Dynamics& dynamics, const BowedKind& kind, float pan);

// A single reed on a wide wooden cone; one hears the breath.
Stereo PlayReed(const Phrase& phrase, const Dynamics& dynamics, float pan);

// Wind that sings softly about the pitches of its notes, and swells and falls by itself.
Stereo PlayWind(const Phrase& phrase, const Dynamics& dynamics);
// Every note is a wave: it comes, breaks at two fifths of its length, runs up the sand and goes.
Stereo PlayShore(const Phrase& phrase, const Dynamics& dynamics);

} // namespace waltz
