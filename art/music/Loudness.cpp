// SPDX-License-Identifier: MIT
#include "art/music/Loudness.h"
#include "art/music/Filters.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace waltz
{

constexpr double pi = 3.14159265358979323846;
constexpr int hop = sampleRate / 10;
constexpr double silence = -200;

// The two filters of the recommendation, which gives them for 48 kHz, brought to our rate by way of their
// analog form.
static void SetHead(Biquad& filter)
{
    const double f = 1681.974450955533, q = 0.7071752369554196, gain = 3.999843853973347;
    const double k = std::tan(pi * f / sampleRate);
    const double vh = std::pow(10, gain / 20), vb = std::pow(vh, 0.4996667741545416);
    const double n = 1 + k / q + k * k;
    filter.Set((vh + vb * k / q + k * k) / n, 2 * (k * k - vh) / n, (vh - vb * k / q + k * k) / n,
               2 * (k * k - 1) / n, (1 - k / q + k * k) / n);
}

static void SetLowEnd(Biquad& filter)
{
    const double f = 38.13547087602444, q = 0.5003270373238773;
    const double k = std::tan(pi * f / sampleRate);
    const double n = 1 + k / q + k * k;
    filter.Set(1, -2, 1, 2 * (k * k - 1) / n, (1 - k / q + k * k) / n);
}

static double ToLufs(double energy)
{
    return energy > 1e-20 ? -0.691 + 10 * std::log10(energy) : silence;
}

constexpr int taps = 12;
constexpr int phases = 4;

// A windowed sinc for each of the four places between two samples.
static std::array<std::array<float, taps>, phases> MakeInterpolator()
{
    std::array<std::array<float, taps>, phases> filter{};
    for (int phase = 0; phase < phases; phase++) {
        double sum = 0;
        for (int i = 0; i < taps; i++) {
            const double x = i - taps / 2 + 1 - double(phase) / phases;
            const double sinc = std::fabs(x) < 1e-9 ? 1 : std::sin(pi * x) / (pi * x);
            const double window = 0.5 + 0.5 * std::cos(pi * x / (taps / 2.0));
            filter[phase][i] = float(sinc * window);
            sum += sinc * window;
        }
        for (float& tap : filter[phase])
            tap /= float(sum);
    }
    return filter;
}

Loudness::Loudness(const Stereo& sound)
{
    hops.resize(sound.Size() / hop);
    for (const Samples* side : {&sound.left, &sound.right}) {
        Biquad head, low;
        SetHead(head);
        SetLowEnd(low);
        for (size_t h = 0; h < hops.size(); h++) {
            double sum = 0;
            for (int i = 0; i < hop; i++) {
                const double x = low.Next(head.Next((*side)[h * hop + i]));
                sum += x * x;
            }
            hops[h] += sum / hop;
        }
    }
}

double Loudness::MeanOf(size_t first, size_t count) const
{
    double sum = 0;
    for (size_t i = first; i < first + count; i++)
        sum += hops[i];
    return sum / double(count);
}

double Loudness::Integrated() const
{
    return Integrated(0, int64_t(hops.size()) * hop);
}

double Loudness::Integrated(int64_t from, int64_t end) const
{
    const size_t first = (from + hop - 1) / hop, behind = std::min<size_t>(end / hop, hops.size());
    double gate = -70;
    double result = silence;
    for (int round = 0; round < 2; round++) {
        double sum = 0;
        int count = 0;
        for (size_t i = first; i + 4 <= behind; i++) {
            const double energy = MeanOf(i, 4);
            if (ToLufs(energy) < gate)
                continue;
            sum += energy;
            count++;
        }
        result = count > 0 ? ToLufs(sum / count) : silence;
        gate = std::max(-70.0, result - 10);
    }
    return result;
}

double Loudness::LoudestShortTerm(int64_t from, int64_t end) const
{
    const size_t first = (from + hop - 1) / hop, behind = std::min<size_t>(end / hop, hops.size());
    double loudest = silence;
    for (size_t i = first; i + 30 <= behind; i++)
        loudest = std::max(loudest, ToLufs(MeanOf(i, 30)));
    return loudest;
}

Samples TruePeaks(const Samples& sound)
{
    static const std::array<std::array<float, taps>, phases> filter = MakeInterpolator();
    Samples peaks(sound.size());
    const int64_t size = int64_t(sound.size());
    for (int64_t i = 0; i < size; i++) {
        float peak = std::fabs(sound[i]);
        const int64_t from = i - taps / 2 + 1;
        if (from >= 0 && from + taps <= size) {
            for (int phase = 1; phase < phases; phase++) {
                float sum = 0;
                for (int k = 0; k < taps; k++)
                    sum += filter[phase][k] * sound[from + k];
                peak = std::max(peak, std::fabs(sum));
            }
        }
        peaks[i] = peak;
    }
    return peaks;
}

} // namespace waltz
