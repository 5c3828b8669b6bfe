// SPDX-License-Identifier: MIT
#include "art/music/Filters.h"

#include <algorithm>
#include <cmath>

namespace waltz
{

struct Warp {
    double cosine, alpha;
    Warp(double hz, double q)
    {
        const double w = 2 * pi * std::clamp(hz, 5.0, 0.49 * sampleRate) / sampleRate;
        cosine = std::cos(w);
        alpha = std::sin(w) / (2 * q);
    }
};

void Biquad::Set(double c0, double c1, double c2, double d1, double d2)
{
    b0 = c0;
    b1 = c1;
    b2 = c2;
    a1 = d1;
    a2 = d2;
}

void Biquad::LowPass(double hz, double q)
{
    const Warp w(hz, q);
    const double n = 1 + w.alpha, c = (1 - w.cosine) / n;
    Set(c / 2, c, c / 2, -2 * w.cosine / n, (1 - w.alpha) / n);
}

void Biquad::HighPass(double hz, double q)
{
    const Warp w(hz, q);
    const double n = 1 + w.alpha, c = (1 + w.cosine) / n;
    Set(c / 2, -c, c / 2, -2 * w.cosine / n, (1 - w.alpha) / n);
}

void Biquad::BandPass(double hz, double q)
{
    const Warp w(hz, q);
    const double n = 1 + w.alpha;
    Set(w.alpha / n, 0, -w.alpha / n, -2 * w.cosine / n, (1 - w.alpha) / n);
}

void Biquad::Peak(double hz, double q, double decibel)
{
    const Warp w(hz, q);
    const double a = std::pow(10.0, decibel / 40), n = 1 + w.alpha / a;
    Set((1 + w.alpha * a) / n, -2 * w.cosine / n, (1 - w.alpha * a) / n, -2 * w.cosine / n,
        (1 - w.alpha / a) / n);
}

void Biquad::Run(Samples& sound)
{
    for (float& x : sound)
        x = Next(x);
}

void OnePole::Set(double hz)
{
    share = float(1 - std::exp(-2 * pi * std::min(hz, 0.45 * sampleRate) / sampleRate));
}

} // namespace waltz
