// SPDX-License-Identifier: MIT
#include "art/music/Spectrum.h"

#include <cmath>

namespace waltz
{

constexpr double pi = 3.14159265358979323846;

void FourierTransform(std::vector<std::complex<double>>& values)
{
    const size_t size = values.size();
    for (size_t i = 1, j = 0; i < size; i++) {
        size_t bit = size / 2;
        for (; (j & bit) != 0; bit /= 2)
            j ^= bit;
        j ^= bit;
        if (i < j)
            std::swap(values[i], values[j]);
    }
    for (size_t length = 2; length <= size; length *= 2) {
        const std::complex<double> turn = std::polar(1.0, -2 * pi / double(length));
        for (size_t begin = 0; begin < size; begin += length) {
            std::complex<double> factor = 1;
            for (size_t i = begin; i < begin + length / 2; i++) {
                const std::complex<double> even = values[i], odd = values[i + length / 2] * factor;
                values[i] = even + odd;
                values[i + length / 2] = even - odd;
                factor *= turn;
            }
        }
    }
}

std::vector<double> MeanSpectrum(const Samples& sound, int64_t from, int64_t end, int size)
{
    std::vector<double> mean(size / 2 + 1);
    std::vector<std::complex<double>> window(size);
    int count = 0;
    for (int64_t begin = from; begin + size <= end; begin += size / 2, ++count) {
        for (int i = 0; i < size; i++)
            window[i] = sound[begin + i] * (0.5 - 0.5 * std::cos(2 * pi * i / size));
        FourierTransform(window);
        for (int i = 0; i <= size / 2; i++)
            mean[i] += std::norm(window[i]);
    }
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
