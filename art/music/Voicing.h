// SPDX-License-Identifier: MIT
#pragma once

#include "art/music/Chord.h"

#include <array>
#include <vector>

namespace waltz
{

using Voicing = std::array<int, 3>; // pitches from the lowest up

// Where each of the three lines may move.
struct VoicingRange {
    Voicing low;
    Voicing high;
};

// Sets the chords in three notes each: no tone that makes the chord what it is goes missing while there is
// room for it, lines move by small steps, hold what they can, keep apart and make no parallel fifths or
// octaves if there is a way round. Looks over the whole row and takes the cheapest. A chord may come out
// empty (all 0) only if the range has no three of its tones.
std::vector<Voicing> SetVoices(const std::vector<Chord>& chords, const VoicingRange& range);

} // namespace waltz
