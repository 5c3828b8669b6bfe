// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Pen.h"
#include "art/atelier/Wash.h"

// The opening's sky: one panorama that is painted once and cut in four. From left to right: ochre dusk over
// bare fields, the dying wood, night hills with wires and roots, the clearing under a huge moon. The evening
// is one wash that grows darker and colder on its way to the right.

namespace atelier
{

// Part 0 to 3 of the panorama, 1024 by 540 each.
Canvas SkyPart(int part);

// What the painters of the panorama share. They are called in this order, each with the whole panorama.
namespace panorama
{

constexpr int W = 4096, H = 540, PartWidth = 1024;
constexpr Vector2 Sun = {372, 330}, Moon = {3584, 262};
constexpr float MoonRadius = 236;

// A height that runs smoothly through the given points, x rising, with a little roughness.
class Ridge
{
public:
    Ridge(const std::vector<Vector2>& points, float rough, float wave, uint32_t seed)
        : line(Through(points, 8)), noise(seed), roughness(rough), waveLength(wave)
    {
    }
    float At(float x) const
    {
        size_t i = 0;
        while (i + 2 < line.size() && line[i + 1].x < x)
            i++;
        const float t = Clamp((x - line[i].x) / Max(line[i + 1].x - line[i].x, 0.01f));
        return Mix(line[i].y, line[i + 1].y, t) + roughness * noise.Fbm(x / waveLength, 3.5f, 4);
    }
    Line Outline() const
    {
        Line outline;
        for (float x = -8; x <= W + 8; x += 3)
            outline.push_back({x, At(x)});
        outline.push_back({W + 8, H + 8});
        outline.push_back({-8, H + 8});
        return outline;
    }

private:
    Line line;
    Noise noise;
    float roughness, waveLength;
};

// The way of the sparks number `path`, 0 to 8, in pixels of the panorama.
Line Thread(int path);
// How far the evening has gone at x: 0 dusk to 1 night.
float Night(float x);
// A wash without edges, for skies.
WashStyle SkyWash();

// Evening.cpp
void PaintEvening(Canvas& canvas, const Paper& paper);
void PaintSun(Canvas& canvas);
void PaintMoon(Canvas& canvas, const Paper& paper);

// Land.cpp
// A fold of land in opaque colour that dries unevenly, with mist lying at its foot.
void PaintLand(Canvas& canvas, const Paper& paper, const Ridge& ridge, LinearColour dusk, LinearColour night,
               float mist, uint32_t seed);
// Blades in tufts that lean with the wind, taller towards us.
void DrawGrass(Canvas& canvas, const Paper& paper, const Ridge& ridge, float from, float to, int blades,
               LinearColour colour, float opacity, uint32_t seed);
// Twigs along a thread: it is a bough, a bramble, a garland of what once was ivy.
void DrawTwigs(Pen& pen, const Line& thread, float from, float to, float spacing, float longest, Dice& dice);

// Dusk.cpp
void DrawField(Canvas& canvas, const Paper& paper, const Ridge& ridge);
void DrawWood(Canvas& canvas, const Paper& paper);

// Night.cpp
void DrawHills(Canvas& canvas, const Paper& paper, const Ridge& ridge);
void DrawClearing(Canvas& canvas, const Paper& paper, const Ridge& ridge);

} // namespace panorama

} // namespace atelier
