// SPDX-License-Identifier: MIT
#include "art/music/Loudness.h"

#include <ebur128.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace waltz
{

constexpr int hop = sampleRate / 10;
constexpr int shortTerm = 3 * sampleRate;
constexpr double silence = -200;

// A meter that hears a sound piece by piece. Both channels of a stereo sound weigh the same.
class Meter
{
public:
    explicit Meter(int mode) : state(ebur128_init(2, sampleRate, mode)) {}
    ~Meter() { ebur128_destroy(&state); }
    Meter(const Meter&) = delete;
    Meter& operator=(const Meter&) = delete;

    void Hear(const Stereo& sound, int64_t from, int64_t end)
    {
        std::vector<float> frames;
        for (int64_t i = from; i < end; i++)
            frames.insert(frames.end(), {sound.left[i], sound.right[i]});
        ebur128_add_frames_float(state, frames.data(), size_t(end - from));
    }

    // By one of the library's measures, which gives minus infinity for silence.
    double Lufs(int (*measure)(ebur128_state* state, double* loudness))
    {
        double loudness = silence;
        return measure(state, &loudness) == EBUR128_SUCCESS ? std::max(loudness, silence) : silence;
    }

private:
    ebur128_state* state;
};

constexpr int taps = 12;
constexpr int phases = 4;

// A windowed sinc for each of the four places between two samples.
static std::array<std::array<float, taps>, phases> MakeInterpolator()
{
    std::array<std::array<float, taps>, phases> filter{};
    for (int phase = 0; phase < phases; phase++) {
        double sum = 0;
        for (int i = 0; i < taps; i++) {
            const int place = i - taps / 2 + 1;
            const double x = place - double(phase) / phases;
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

double IntegratedLoudness(const Stereo& sound, int64_t from, int64_t end)
{
    Meter meter(EBUR128_MODE_I);
    meter.Hear(sound, from, end);
    return meter.Lufs(ebur128_loudness_global);
}

double LoudestShortTerm(const Stereo& sound, int64_t from, int64_t end)
{
    Meter meter(EBUR128_MODE_S);
    double loudest = silence;
    for (int64_t heard = from; heard + hop <= end; heard += hop) {
        meter.Hear(sound, heard, heard + hop);
        if (heard + hop - from >= shortTerm)
            loudest = std::max(loudest, meter.Lufs(ebur128_loudness_shortterm));
    }
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
