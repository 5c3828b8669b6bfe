// SPDX-License-Identifier: MIT
#include "art/music/Master.h"
#include "art/music/Filters.h"
#include "art/music/Loudness.h"

#include <algorithm>
#include <cmath>

namespace waltz
{

// Measured: brings the whole night to -16 LUFS. Not worked out from the mix, so that a part of the night is
// as loud as it is in the whole.
constexpr float gainDecibel = 3.5f;

constexpr double rumble = 26;       // Hz
constexpr double lookAhead = 0.005; // seconds
constexpr double release = 0.16;    // seconds
constexpr double fadeIn = 0.004;
// The score closes by itself: this only makes sure that the last sample is silent.
constexpr double fadeOut = 0.04;

// How much every sample has to be turned down: never less than the peaks within reach need, going down and up
// smoothly.
static Samples GainsFor(const Samples& peaks, float ceiling)
{
    const size_t reach = size_t(lookAhead * sampleRate);
    Samples wanted(peaks.size()), held(peaks.size());
    for (size_t i = 0; i < peaks.size(); i++)
        wanted[i] = std::min(1.0f, ceiling / std::max(peaks[i], 1e-9f));
    // The least of the samples from here to `reach` ahead, by a queue of falling minima.
    std::vector<size_t> queue;
    size_t front = 0;
    size_t ahead = 0;
    for (size_t i = 0; i < wanted.size(); i++) {
        for (; ahead < wanted.size() && ahead <= i + reach; ahead++) {
            while (queue.size() > front && wanted[queue.back()] >= wanted[ahead])
                queue.pop_back();
            queue.push_back(ahead);
        }
        while (queue[front] < i)
            front++;
        held[i] = wanted[queue[front]];
    }
    const float share = float(1 - std::exp(-1 / (release * sampleRate)));
    float gain = 1;
    for (float& each : held) {
        gain = each < gain ? each : gain + share * (each - gain);
        each = gain;
    }
    // A mean over the reach turns steps into slopes that end where the peak begins.
    Samples smooth(held.size());
    double sum = double(reach + 1) * (held.empty() ? 1 : held[0]);
    for (size_t i = 0; i < held.size(); i++) {
        sum += held[i] - (i > reach ? held[i - reach - 1] : held[0]);
        smooth[i] = float(sum / double(reach + 1));
    }
    return smooth;
}

static double FadeAt(int64_t sample, int64_t nightEnd)
{
    const double sinceStart = double(sample) / sampleRate;
    const double toEnd = double(nightEnd - 1 - sample) / sampleRate;
    double share = 1;
    if (sinceStart < fadeIn)
        share *= sinceStart / fadeIn;
    if (toEnd < fadeOut)
        share *= std::max(toEnd, 0.0) / fadeOut;
    return share;
}

void Master(Stereo& mix, int64_t nightEnd)
{
    for (Samples* side : {&mix.left, &mix.right}) {
        Biquad low;
        low.HighPass(rumble);
        const float gain = FromDecibel(gainDecibel);
        for (float& x : *side)
            x = gain * low.Next(x);
    }
    Samples peaks = TruePeaks(mix.left);
    const Samples right = TruePeaks(mix.right);
    for (size_t i = 0; i < peaks.size(); i++)
        peaks[i] = std::max(peaks[i], right[i]);
    const Samples gains = GainsFor(peaks, FromDecibel(ceilingDecibel));
    for (int64_t i = 0; i < mix.Size(); i++) {
        const float share = gains[i] * float(FadeAt(mix.origin + i, nightEnd));
        mix.left[i] *= share;
        mix.right[i] *= share;
    }
}

} // namespace waltz
