// SPDX-License-Identifier: MIT
#pragma once

#include "art/music/Signal.h"

namespace waltz
{

// Second-order section, the usual five coefficients, transposed so that it stays exact at low frequencies.
class Biquad
{
public:
    // Frequencies in Hz, q of a resonance, gains in dB. Setting keeps the state, so a filter can be moved
    // while it runs.
    void LowPass(double hz, double q = 0.7071);
    void HighPass(double hz, double q = 0.7071);
    void BandPass(double hz, double q); // 0 dB at its middle
    void Peak(double hz, double q, double decibel);
    void Set(double c0, double c1, double c2, double d1, double d2); // numerator c, denominator 1, d1, d2

    float Next(float x)
    {
        const double y = b0 * x + z1;
        z1 = b1 * x - a1 * y + z2;
        z2 = b2 * x - a2 * y;
        return float(y);
    }
    void Run(Samples& sound);

private:
    double b0 = 1, b1 = 0, b2 = 0, a1 = 0, a2 = 0;
    double z1 = 0, z2 = 0;
};

// First-order low pass.
class OnePole
{
public:
    void Set(double hz);
    float Next(float x) { return z += share * (x - z); }

private:
    float share = 1;
    float z = 0;
};

// Takes what does not swing away: a high pass at a few Hz.
class DCBlock
{
public:
    float Next(float x)
    {
        const double y = x - lastIn + 0.9985 * lastOut; // 10 Hz
        lastIn = x;
        lastOut = y;
        return float(y);
    }

private:
    double lastIn = 0, lastOut = 0;
};

} // namespace waltz
