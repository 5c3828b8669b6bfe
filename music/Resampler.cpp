// SPDX-License-Identifier: MIT
#include "music/Resampler.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

// clang-format off
static const int    zeroCrossings = 64;      // of the sinc, on either side
static const int    tableSteps    = 1024;    // from one to the next; between two entries the kernel is a line
static const double kaiserBeta    = 10.06;   // 100 dB
static const double bandEdge      = 0.95;    // of half the lower rate, where the response is 6 dB down
static const size_t maxWeights   = 1 << 18; // that are kept ready: enough for all the usual pairs of rates
static const int    lanes         = 4;       // sums at a time, for the processor's sake
// clang-format on

// The modified Bessel function of the first kind and order 0, by its series.
static double BesselI0(double x)
{
    double sum = 1.0;
    double term = 1.0;
    for (int k = 1; term > sum * 1e-17; ++k) {
        term *= (x / (2.0 * k)) * (x / (2.0 * k));
        sum += term;
    }
    return sum;
}

Resampler::Resampler(int fromRate, int toRate)
    : inputRate(fromRate), outputRate(toRate), reach(0), step(0.0), phases(0)
{
    if (fromRate == toRate)
        return;
    const double scale = std::min(1.0, double(toRate) / fromRate);
    reach = int(std::ceil(zeroCrossings / scale / lanes)) * lanes;
    step = scale * tableSteps;
    TabulateKernel(scale);

    const size_t length = size_t(reach) * 2;
    phases = toRate / std::gcd(fromRate, toRate);
    if (phases * length > maxWeights) {
        rows.resize(length);
        return;
    }
    rows.resize(phases * length);
    for (int phase = 0; phase < phases; ++phase)
        Weigh(double(phase) / phases, &rows[phase * length]);
}

// In units of the lower rate's frames the kernel has the same shape for all pairs of rates.
void Resampler::TabulateKernel(double scale)
{
    kernel.resize(size_t(zeroCrossings) * tableSteps, 0.0f);
    const double middle = BesselI0(kaiserBeta);
    for (size_t i = 0; i < kernel.size(); ++i) {
        const double x = double(i) / tableSteps;
        const double angle = std::numbers::pi * x * bandEdge;
        const double sinc = i == 0 ? 1.0 : std::sin(angle) / angle;
        const double side = x / zeroCrossings;
        const double window = BesselI0(kaiserBeta * std::sqrt(1.0 - side * side)) / middle;
        kernel[i] = float(scale * bandEdge * sinc * window);
    }
}

// The weights of the input frames around a place that lies the fraction of a frame after the frame before
// it.
void Resampler::Weigh(double fraction, float* weights) const
{
    for (int i = 0; i < 2 * reach; ++i) {
        const double place = std::fabs(i - (reach - 1) - fraction) * step;
        const size_t entry = size_t(place);
        const float here = entry < kernel.size() ? kernel[entry] : 0.0f;
        const float next = entry + 1 < kernel.size() ? kernel[entry + 1] : 0.0f;
        weights[i] = here + (next - here) * float(place - double(entry));
    }
}

int64_t Resampler::FirstInput(int64_t n) const
{
    const int64_t place = n * inputRate / outputRate;
    return reach == 0 ? place : place - reach + 1;
}

int64_t Resampler::LastInput(int64_t n) const
{
    return n * inputRate / outputRate + reach;
}

int64_t Resampler::OutputLength(int64_t inputLength) const
{
    return (inputLength * outputRate + inputRate - 1) / inputRate;
}

StereoFrame Resampler::Interpolate(int64_t n, const StereoFrame* input)
{
    if (reach == 0)
        return input[0];
    const int length = 2 * reach;
    const int64_t rest = n * inputRate % outputRate;
    const float* weights = rows.data();
    if (rows.size() > size_t(length))
        weights += rest * phases / outputRate * length;
    else
        Weigh(double(rest) / outputRate, rows.data());

    StereoFrame sums[lanes] = {};
    for (int i = 0; i < length; i += lanes)
        for (int lane = 0; lane < lanes; ++lane) {
            sums[lane].left += weights[i + lane] * input[i + lane].left;
            sums[lane].right += weights[i + lane] * input[i + lane].right;
        }
    StereoFrame sum = {0.0f, 0.0f};
    for (const StereoFrame& part : sums) {
        sum.left += part.left;
        sum.right += part.right;
    }
    return sum;
}
