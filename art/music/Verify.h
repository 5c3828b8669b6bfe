// SPDX-License-Identifier: MIT
#pragma once

#include "art/music/Score.h"
#include "art/music/Signal.h"

#include <string>

namespace waltz
{

// How near a file is to what the score plays. Vorbis loses something wherever it sounds; between machines the
// last digits of a float differ, too. So: in every tenth of a second the difference lies at least `nearness`
// dB below the sound, where sound is taken to be at least -60 dBFS loud. The worst tenth of the show's own
// file has 17.8; a single wrong pluck in the tutti brings it to 10, a missing note of a tune to 3.
constexpr double nearness = 15;

struct Resemblance {
    double worst = 200;     // dB, of the worst tenth of a second
    int64_t worstAt = 0;    // sample of the night
    bool sameLength = true; // the file is as long as the night
};

// Compares a rendered window of the night with the same place of a file's sound.
Resemblance Compare(const Stereo& rendered, const Stereo& file);

// Plays the score again from bar `firstBar` to before `endBar` and compares it with the file's sound.
Resemblance Verify(const Score& score, const Stereo& file, int firstBar, int endBar);

} // namespace waltz
