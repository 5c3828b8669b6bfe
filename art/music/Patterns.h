// SPDX-License-Identifier: MIT
#pragma once

#include "art/music/Score.h"

#include <string>
#include <vector>

namespace waltz
{

// What an accompanying part plays in a bar when the score names a pattern instead of notes:
//
//   waltz   bass on one, the chord short on two and three
//   two     bass on one, the chord on two, held
//   one     bass and chord together on one, held
//   after   the chord on two and three, no bass
//   arp     bass and chord in eighths, up and down
//   pulse   bass on one, the chord on every eighth after it
//   pad     the chord in three lines, held; what stays in the chord is tied
//   trem    the chord in three lines, in repeated half beats
//
// The chord is set in three notes, so that from chord to chord as little moves as can.
bool IsPattern(const std::string& name);

struct PatternBar {
    std::string pattern;
    int bar;
};

// The tones of one part's pattern bars, in the order of time. False if a bar has no harmony; `badBar` is that
// bar.
bool PlayPatterns(const Score& score, const std::vector<PatternBar>& bars, std::vector<Tone>& tones,
                  int& badBar);

} // namespace waltz
