// SPDX-License-Identifier: MIT
#include "art/music/Verify.h"
#include "art/music/Master.h"
#include "art/music/Mix.h"

#include <cmath>

namespace waltz
{

constexpr int64_t tenth = sampleRate / 10;
constexpr double faintest = 1e-6; // power of -60 dBFS

Resemblance Compare(const Stereo& rendered, const Stereo& file)
{
    Resemblance result;
    result.sameLength = rendered.origin + rendered.Size() <= file.Size();
    for (int64_t begin = 0; begin + tenth <= rendered.Size() && result.sameLength; begin += tenth) {
        double difference = 0, power = 0;
        for (int64_t i = begin; i < begin + tenth; i++) {
            const int64_t at = rendered.origin + i;
            const double left = rendered.left[i] - file.left[at], right = rendered.right[i] - file.right[at];
            difference += left * left + right * right;
            power += rendered.left[i] * rendered.left[i] + rendered.right[i] * rendered.right[i];
        }
        const double near = 10 * std::log10((power + 2 * tenth * faintest) / (difference + 1e-12));
        if (near < result.worst) {
            result.worst = near;
            result.worstAt = rendered.origin + begin;
        }
    }
    return result;
}

Resemblance Verify(const Score& score, const Stereo& file, int firstBar, int endBar)
{
    const int64_t nightEnd = int64_t(score.Bars()) * samplesPerBar;
    Stereo mix;
    RenderMix(score, int64_t(firstBar) * samplesPerBar, int64_t(endBar) * samplesPerBar, "", mix);
    Master(mix, nightEnd);
    Resemblance result = Compare(mix, file);
    result.sameLength = result.sameLength && file.Size() == nightEnd;
    return result;
}

} // namespace waltz
