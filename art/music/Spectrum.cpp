// SPDX-License-Identifier: MIT
#include "art/music/Spectrum.h"

#include <kiss_fftr.h>

#include <cmath>

namespace waltz
{

std::vector<double> MeanSpectrum(const Samples& sound, int64_t from, int64_t end, int size)
{
    std::vector<double> mean(size / 2 + 1);
    std::vector<float> window(size);
    std::vector<kiss_fft_cpx> lines(size / 2 + 1);
    const kiss_fftr_cfg transform = kiss_fftr_alloc(size, 0, nullptr, nullptr);
    int count = 0;
    for (int64_t begin = from; begin + size <= end; begin += size / 2, ++count) {
        for (int i = 0; i < size; i++)
            window[i] = float(sound[begin + i] * (0.5 - 0.5 * std::cos(2 * pi * i / size)));
        kiss_fftr(transform, window.data(), lines.data());
        for (int i = 0; i <= size / 2; i++)
            mean[i] += double(lines[i].r) * lines[i].r + double(lines[i].i) * lines[i].i;
    }
    kiss_fftr_free(transform);
    for (double& each : mean)
        each /= count > 0 ? count * (size * 0.375) * size : 1;
    return mean;
}

std::array<double, 12> Chroma(const Samples& sound, int64_t from, int64_t end)
{
    constexpr int size = 16384;
    const std::vector<double> spectrum = MeanSpectrum(sound, from, end, size);
    std::array<double, 12> classes{};
    double sum = 0;
    for (int i = 1; i <= size / 2; i++) {
        const double hz = double(i) * sampleRate / size;
        if (hz < 65 || hz > 2000)
            continue;
        const double pitch = 69 + 12 * std::log2(hz / 440);
        const double off = pitch - std::round(pitch);
        // Amplitude, not power: the loudest note should not speak for all.
        const double amount = std::sqrt(spectrum[i]) * std::exp(-off * off / 0.045);
        classes[int(std::lround(pitch)) % 12] += amount;
        sum += amount;
    }
    for (double& each : classes)
        each /= sum > 0 ? sum : 1;
    return classes;
}

} // namespace waltz
