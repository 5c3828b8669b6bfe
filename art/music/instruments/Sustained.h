// SPDX-License-Identifier: MIT
#pragma once

#include "art/music/Performance.h"

namespace waltz
{

// Instruments whose tones last for as long as somebody works at them. Each returns a whole phrase, with the
// little that comes before its first note and after its last; loudness follows the part's dynamics all the
// while. At full strength the peaks lie between 0.3 and 1. `pan` is where the player sits, -1 to 1.

// A section of bowed strings. They play with some noise of the bow and a vibrato that sets in late.
struct BowedKind;
const BowedKind& BowedKindOf(Sound sound, int line); // Violins, Violas, Cellos, or the line of a Pad
Stereo PlayBowed(const Phrase& phrase, const Dynamics& dynamics, const BowedKind& kind, float pan);

// A single reed on a wide wooden cone; one hears the breath.
Stereo PlayReed(const Phrase& phrase, const Dynamics& dynamics, float pan);

// Wind that sings softly about the pitches of its notes, and swells and falls by itself.
Stereo PlayWind(const Phrase& phrase, const Dynamics& dynamics);
// Every note is a wave: it comes, breaks at two fifths of its length, runs up the sand and goes.
Stereo PlayShore(const Phrase& phrase, const Dynamics& dynamics);

} // namespace waltz
