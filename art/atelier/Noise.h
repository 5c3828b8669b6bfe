// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Numbers.h"

// Random fields over the plane. Coordinates are in cells of the field, so `noise.Fbm(x / 80, y / 80, 5)` has
// its largest features about 80 pixels wide.
//
// A field that is made with periods repeats after that many cells, and so do its finer octaves: on a tile 512
// pixels wide, Noise(seed, 8, 8).Fbm(x * 8 / 512, y * 8 / 512, 5) has no seam. Without periods each octave is
// turned against the one before it, so that the cells' own grid never shows.

namespace atelier
{

class Noise
{
public:
    // Periods in cells; 0: the field does not repeat.
    explicit Noise(uint32_t seed, int periodX = 0, int periodY = 0);

    float Value(float x, float y) const;    // 0 to 1, soft blotches
    float Gradient(float x, float y) const; // about -1 to 1, mean 0
    // A sum of octaves of Gradient, each twice as fine and `gain` as strong as the one before. About -1 to 1.
    float Fbm(float x, float y, int octaves, float gain = 0.5f) const;
    // 0 to 1: bright ridges, like creases, veins, smoke.
    float Ridges(float x, float y, int octaves, float gain = 0.5f) const;

    struct WorleyCell {
        float nearest, second; // distances to the nearest and to the second nearest seed point, in cells
        uint32_t name;         // of the nearest point: a random number
    };
    WorleyCell Worley(float x, float y) const; // stones, scales, cracks: second - nearest is 0 on the joints

    // A place moved by two fields, up to about `by` cells: feed it to another field for marble, smoke and
    // wash.
    Vector2 Warp(float x, float y, float by, int octaves = 3) const;

private:
    uint32_t Hash(int x, int y, int level) const;
    float Level(float x, float y, int level) const;
    void ToNextOctave(float& x, float& y) const;

    uint32_t seed;
    int periodX, periodY;
};

} // namespace atelier
