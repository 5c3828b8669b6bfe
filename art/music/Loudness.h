// SPDX-License-Identifier: MIT
#pragma once

#include "art/music/Signal.h"

namespace waltz
{

// Loudness as ITU-R BS.1770-4 measures it: K-weighted, in blocks of 400 ms of which a new one begins every
// 100 ms.
class Loudness
{
public:
    explicit Loudness(const Stereo& sound);

    // In LUFS, over the blocks that lie wholly within the samples from `from` to before `end` of the sound's
    // window. Gated, at -70 LUFS and then 10 below what is left. -200 if nothing is.
    double Integrated(int64_t from, int64_t end) const;
    double Integrated() const;
    // The loudest three seconds in the same range.
    double LoudestShortTerm(int64_t from, int64_t end) const;

private:
    std::vector<double> hops; // energy of each 100 ms, both channels
    double MeanOf(size_t first, size_t count) const;
};

// For each sample the highest the wave rises between it and the next: four times oversampled.
Samples TruePeaks(const Samples& sound);

} // namespace waltz
