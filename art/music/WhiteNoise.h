// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace waltz
{

// Chance that comes out the same on every run: xorshift over 32 bits.
class WhiteNoise
{
public:
    explicit WhiteNoise(uint32_t seed) : state(Mix(seed)) {}

    float White() // -1 to 1
    {
        state ^= state << 13;
        state ^= state >> 17;
        state ^= state << 5;
        return float(static_cast<int32_t>(state)) * (1.0f / 2147483648.0f);
    }
    // The sum of four: mostly near 0, never beyond 2.
    float Around() { return 0.5f * (White() + White() + White() + White()); }

    // Spreads neighbouring seeds over the whole range; never 0.
    static uint32_t Mix(uint32_t seed)
    {
        seed = (seed ^ 61u ^ (seed >> 16)) * 9u;
        seed = (seed ^ (seed >> 4)) * 0x27d4eb2du;
        seed ^= seed >> 15;
        return seed != 0 ? seed : 0x9e3779b9u;
    }

private:
    uint32_t state;
};

// Chance that wanders: a new goal every so often, and a smooth way there. For what no player holds quite
// still.
class Wander
{
public:
    // `interval` in samples between two goals.
    Wander(uint32_t seed, int interval) : noise(seed), steps(interval), from(noise.White()), to(noise.White())
    {
    }

    float Next() { return Skip(1); }
    // The value after `samples` more samples, -1 to 1.
    float Skip(int samples)
    {
        at += samples;
        while (at >= steps) {
            at -= steps;
            from = to;
            to = noise.White();
        }
        const float x = float(at) / float(steps);
        return from + (to - from) * x * x * (3 - 2 * x);
    }

private:
    WhiteNoise noise;
    int steps;
    int at = 0;
    float from, to;
};

} // namespace waltz
