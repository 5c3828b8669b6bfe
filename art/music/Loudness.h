// SPDX-License-Identifier: MIT
#pragma once

#include "art/music/Signal.h"

namespace waltz
{

// Loudness as ITU-R BS.1770-4 and EBU R 128 define it, measured by libebur128: in LUFS, of the samples from `from` to
// before `end` of the sound's window. -200 where nothing is loud enough or long enough to be measured.

// Gated, in blocks of 400 ms of which a new one begins every 100 ms.
double IntegratedLoudness(const Stereo& sound, int64_t from, int64_t end);

// The loudest three seconds.
double LoudestShortTerm(const Stereo& sound, int64_t from, int64_t end);

// For each sample the highest the wave rises between it and the next: four times oversampled. Written by hand, since the
// limiter of Master needs the place of each peak, and libraries tell only the highest.
Samples TruePeaks(const Samples& sound);

} // namespace waltz
