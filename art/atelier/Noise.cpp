// SPDX-License-Identifier: MIT
#include "art/atelier/Noise.h"

namespace atelier
{

constexpr float OctaveCos = 0.80f, OctaveSin = 0.60f; // turns an octave by 37 degrees

// Lattice lines of different octaves must not meet, least of all at the border of a tile, where they would
// show.
constexpr float Shift = 0.41f;

constexpr float Diagonal = 0.70710678f;
constexpr Vector2 Slopes[8] = {{1, 0},
                               {-1, 0},
                               {0, 1},
                               {0, -1},
                               {Diagonal, Diagonal},
                               {-Diagonal, Diagonal},
                               {Diagonal, -Diagonal},
                               {-Diagonal, -Diagonal}};

static constexpr float Fade(float t)
{
    return t * t * t * (t * (t * 6 - 15) + 10);
}

static float Slope(uint32_t hash, float x, float y)
{
    const Vector2 g = Slopes[hash >> 29];
    return g.x * x + g.y * y;
}

static float Unit(uint32_t hash)
{
    return float(hash >> 8) * (1.0f / 16777216.0f);
}

Noise::Noise(uint32_t seedGiven, int periodXGiven, int periodYGiven)
    : seed(seedGiven * 0x9E3779B9u + 0x7F4A7C15u), periodX(periodXGiven), periodY(periodYGiven)
{
}

uint32_t Noise::Hash(int x, int y, int level) const
{
    if (periodX > 0)
        x = Wrap(x, periodX << level);
    if (periodY > 0)
        y = Wrap(y, periodY << level);
    uint32_t h = seed ^ uint32_t(x) * 0x8DA6B343u ^ uint32_t(y) * 0xD8163841u ^ uint32_t(level) * 0xCB1AB31Fu;
    h = (h ^ (h >> 16)) * 0x7FEB352Du;
    h = (h ^ (h >> 15)) * 0x846CA68Bu;
    return h ^ (h >> 16);
}

float Noise::Value(float x, float y) const
{
    x += Shift;
    y += Shift;
    const int ix = Floor(x), iy = Floor(y);
    const float u = Fade(x - float(ix)), v = Fade(y - float(iy));
    return Mix(Mix(Unit(Hash(ix, iy, 0)), Unit(Hash(ix + 1, iy, 0)), u),
               Mix(Unit(Hash(ix, iy + 1, 0)), Unit(Hash(ix + 1, iy + 1, 0)), u), v);
}

float Noise::Level(float x, float y, int level) const
{
    x += Shift;
    y += Shift;
    const int ix = Floor(x), iy = Floor(y);
    const float fx = x - float(ix), fy = y - float(iy);
    const float u = Fade(fx), v = Fade(fy);
    const float upper =
        Mix(Slope(Hash(ix, iy, level), fx, fy), Slope(Hash(ix + 1, iy, level), fx - 1, fy), u);
    const float lower = Mix(Slope(Hash(ix, iy + 1, level), fx, fy - 1),
                            Slope(Hash(ix + 1, iy + 1, level), fx - 1, fy - 1), u);
    return Mix(upper, lower, v) * 1.5f;
}

float Noise::Gradient(float x, float y) const
{
    return Level(x, y, 0);
}

void Noise::ToNextOctave(float& x, float& y) const
{
    if (periodX > 0 || periodY > 0) {
        x *= 2;
        y *= 2;
    } else {
        const float turned = x * OctaveCos - y * OctaveSin;
        y = 2 * (x * OctaveSin + y * OctaveCos) + 7.3f;
        x = 2 * turned + 3.1f;
    }
}

float Noise::Fbm(float x, float y, int octaves, float gain) const
{
    float sum = 0, weight = 1, total = 0;
    for (int level = 0; level < octaves; level++) {
        sum += weight * Level(x, y, level);
        total += weight;
        weight *= gain;
        ToNextOctave(x, y);
    }
    return total > 0 ? sum / total * 1.6f : 0;
}

float Noise::Ridges(float x, float y, int octaves, float gain) const
{
    float sum = 0, weight = 1, total = 0, above = 1;
    for (int level = 0; level < octaves; level++) {
        float ridge = 1 - Clamp(Abs(Level(x, y, level)));
        ridge *= ridge;
        sum += weight * ridge * above;
        total += weight;
        above = ridge;
        weight *= gain;
        ToNextOctave(x, y);
    }
    return total > 0 ? sum / total : 0;
}

Noise::WorleyCell Noise::Worley(float x, float y) const
{
    const int ix = Floor(x), iy = Floor(y);
    WorleyCell cell = {9, 9, 0};
    for (int dy = -2; dy <= 2; dy++)
        for (int dx = -2; dx <= 2; dx++) {
            const uint32_t h = Hash(ix + dx, iy + dy, 0);
            const float px = float(ix + dx) + float(h & 0xFFFFu) / 65536.0f;
            const float py = float(iy + dy) + float(h >> 16) / 65536.0f;
            const float d = Length({px - x, py - y});
            if (d < cell.nearest) {
                cell.second = cell.nearest;
                cell.nearest = d;
                cell.name = h * 0x85EBCA6Bu;
            } else if (d < cell.second) {
                cell.second = d;
            }
        }
    return cell;
}

Vector2 Noise::Warp(float x, float y, float by, int octaves) const
{
    // The second field is the first one seen half a period away, which keeps the period.
    const int halfX = periodX / 2, halfY = (periodY + 1) / 2; // whole cells
    const float sx = periodX > 0 ? float(halfX) : 31.7f;
    const float sy = periodY > 0 ? float(halfY) : -17.9f;
    return {x + by * Fbm(x, y, octaves), y + by * Fbm(x + sx, y + sy, octaves)};
}

} // namespace atelier
