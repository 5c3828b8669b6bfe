// SPDX-License-Identifier: MIT
#pragma once

#include "art/music/Orchestra.h"
#include "art/music/Score.h"
#include "art/music/Signal.h"

#include <cstdint>
#include <vector>

namespace waltz
{

// A tone as somebody plays it: moved and weighted by hand, from a fixed seed.
struct Note {
    int64_t start = 0;  // the night's sample
    int64_t length = 0; // in samples
    double pitch = 60;
    float strength = 0; // 0 to 1
    bool accent = false;
    uint32_t seed = 0; // for what is chance within the sound
    int line = 0;
};

// Notes that follow each other without a gap on one line; a struck tone is a phrase of its own.
using Phrase = std::vector<Note>;

// The part's phrases in the order of time.
//
// The waltz's swing: an accompanying second beat comes a hair early, the third is lighter. Tunes keep nearer
// to the beat. Everything starts within 12 ms of its place, what stands on a downbeat within 4 ms; the place is
// where the score's rubato bends the beat to.
std::vector<Phrase> Perform(const Voice& voice, const Part& part, const Rubato& rubato);

} // namespace waltz
