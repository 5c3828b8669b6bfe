// SPDX-License-Identifier: MIT
#include "art/music/Listening.h"
#include "art/music/Filters.h"
#include "art/music/Loudness.h"
#include "art/music/Spectrum.h"

#include <algorithm>
#include <cmath>

namespace waltz
{

constexpr float silenceLevel = 0.001f; // -60 dBFS

static bool Sounds(const Stereo& sound, int64_t i)
{
    return std::fabs(sound.left[i]) > silenceLevel || std::fabs(sound.right[i]) > silenceLevel;
}

static double ToDecibelOfPower(double power)
{
    return power > 1e-20 ? 10 * std::log10(power) : -200;
}

static Samples Mono(const Stereo& sound, int64_t from, int64_t end)
{
    Samples mono(end - from);
    for (int64_t i = from; i < end; i++)
        mono[i - from] = 0.5f * (sound.left[i] + sound.right[i]);
    return mono;
}

static void MeasureSpectrum(const Samples& mono, Figures& figures)
{
    constexpr int size = 4096;
    const std::vector<double> spectrum = MeanSpectrum(mono, 0, int64_t(mono.size()), size);
    double bands[4] = {}, sum = 0, weighted = 0;
    for (int i = 1; i <= size / 2; i++) {
        const double hz = double(i) * sampleRate / size;
        bands[hz < 200 ? 0 : hz < 1000 ? 1 : hz < 4000 ? 2 : 3] += spectrum[i];
        sum += spectrum[i];
        weighted += std::sqrt(spectrum[i]) * hz;
    }
    double amplitudes = 0;
    for (int i = 1; i <= size / 2; i++)
        amplitudes += std::sqrt(spectrum[i]);
    sum = std::max(sum, 1e-20);
    figures.centroid = weighted / std::max(amplitudes, 1e-12);
    figures.low = ToDecibelOfPower(bands[0] / sum);
    figures.mid = ToDecibelOfPower(bands[1] / sum);
    figures.high = ToDecibelOfPower(bands[2] / sum);
    figures.air = ToDecibelOfPower(bands[3] / sum);
}

Figures Measure(const Stereo& sound, int64_t from, int64_t end)
{
    Figures figures = {};
    Stereo part(sound.origin + from, end - from);
    part.Add(sound, 1);
    figures.lufs = IntegratedLoudness(part, 0, part.Size());
    figures.shortTerm = LoudestShortTerm(part, 0, part.Size());
    double leftSum = 0, rightSum = 0, leftPower = 0, rightPower = 0, both = 0;
    float peak = 0;
    for (int64_t i = 0; i < part.Size(); i++) {
        const double l = part.left[i], r = part.right[i];
        leftSum += l;
        rightSum += r;
        leftPower += l * l;
        rightPower += r * r;
        both += l * r;
        peak = std::max({peak, std::fabs(part.left[i]), std::fabs(part.right[i])});
    }
    float truePeak = 0;
    for (const Samples* side : {&part.left, &part.right})
        for (const float each : TruePeaks(*side))
            truePeak = std::max(truePeak, each);
    const double count = double(std::max<int64_t>(part.Size(), 1));
    figures.peak = ToDecibel(peak);
    figures.truePeak = ToDecibel(truePeak);
    figures.offset = std::max(std::fabs(leftSum), std::fabs(rightSum)) / count;
    figures.likeness = both / std::max(std::sqrt(leftPower * rightPower), 1e-12);
    // Two equal channels lose nothing; two strangers lose 3 dB.
    const double sumPower = (leftPower + rightPower + 2 * both) / 2;
    figures.monoLoss = ToDecibelOfPower(leftPower + rightPower) - ToDecibelOfPower(sumPower);
    MeasureSpectrum(Mono(part, 0, part.Size()), figures);
    return figures;
}

double SilenceAtStart(const Stereo& sound)
{
    int64_t i = 0;
    while (i < sound.Size() && !Sounds(sound, i))
        i++;
    return double(i) / sampleRate;
}

double SilenceAtEnd(const Stereo& sound)
{
    int64_t i = sound.Size();
    while (i > 0 && !Sounds(sound, i - 1))
        --i;
    return double(sound.Size() - i) / sampleRate;
}

std::vector<int64_t> FindClicks(const Samples& sound)
{
    std::vector<int64_t> clicks;
    const int64_t size = int64_t(sound.size());
    constexpr int64_t around = sampleRate / 50;
    std::vector<double> bend(size), sums(size + 1);
    for (int64_t i = 1; i + 1 < size; i++)
        bend[i] = double(sound[i - 1]) - 2.0 * sound[i] + sound[i + 1];
    for (int64_t i = 0; i < size; i++)
        sums[i + 1] = sums[i] + bend[i] * bend[i];
    for (int64_t i = 1; i + 1 < size; i++) {
        const int64_t from = std::max<int64_t>(0, i - around), end = std::min(size, i + around);
        // Without the five samples of the click itself.
        const int64_t a = std::max(from, i - 2), b = std::min(end, i + 3);
        const double rest = sums[end] - sums[from] - (sums[b] - sums[a]);
        const double usual = std::sqrt(std::max(rest, 0.0) / double(end - from - (b - a)));
        if (std::fabs(bend[i]) > std::max(clickFactor * usual, double(silenceLevel)))
            clicks.push_back(i);
    }
    return clicks;
}

Attack FindAttack(const Stereo& sound, int64_t sample)
{
    constexpr int64_t reach = 90 * sampleRate / 1000, ease = 60 * sampleRate / 1000;
    constexpr int64_t step = sampleRate / 1000, span = 12 * sampleRate / 1000;
    constexpr double bandEdges[5] = {50, 250, 900, 3000, 9000};
    const int64_t from = std::max<int64_t>(0, sample - reach - span - ease);
    const int64_t end = std::min(sound.Size(), sample + reach + span + step);
    Attack best = {0, 0};
    if (end - from < 4 * span)
        return best;
    const Samples mono = Mono(sound, from, end);
    std::vector<std::vector<double>> energies; // of each band, summed up from the start
    double loudest = 0;
    for (int band = 0; band < 4; band++) {
        Biquad low, high;
        low.HighPass(bandEdges[band]);
        high.LowPass(bandEdges[band + 1]);
        std::vector<double> sums(mono.size() + 1);
        for (size_t i = 0; i < mono.size(); i++) {
            const double x = high.Next(low.Next(mono[i]));
            sums[i + 1] = sums[i] + x * x;
        }
        loudest = std::max(loudest, sums.back());
        energies.push_back(sums);
    }
    const double floor = std::max(1e-9, 1e-4 * loudest / double(mono.size())) * span;
    for (int64_t at = std::max(from + span, sample - reach); at < sample + reach && at + span < end;
         at += step) {
        const int64_t i = at - from;
        double grown = 0;
        for (const std::vector<double>& sums : energies) {
            const double before = sums[i] - sums[i - span], after = sums[i + span] - sums[i];
            grown += std::max(0.0, 10 * std::log10((after + floor) / (before + floor))) / 4;
        }
        if (grown > best.strength)
            best = {double(at - sample) / sampleRate, grown};
    }
    return best;
}

} // namespace waltz
