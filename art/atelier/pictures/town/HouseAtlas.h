// SPDX-License-Identifier: MIT
// The atlas of the village's houses, which its pillars wear too: four walls side by side that join at their edges, and
// a roof in the top right corner. By their left edges, in walls, they look: 0 away from the way, 1 back along it, 2 on to
// the way, 3 at whoever comes along it. Of a pillar the last one looks at the fire.
#pragma once

#include "art/atelier/Canvas.h"
#include "art/atelier/Paper.h"

namespace atelier::houses
{

constexpr float Size = 1024;
constexpr int Side = 1024;
constexpr float WallWidth = 256, WallTop = 256, WallFoot = 768;
constexpr float RoofLeft = 768, RoofFoot = 256;

// The third wall, the front, is always lit, by up to so much.
constexpr float FrontLight = 0.85f;

// Of the other walls a twenty-fifth of what is painted reaches the eye wherever no light does, so that their drawing goes
// from black to the brightest white there is.
constexpr float IsUnlit(float x)
{
    const float w = x / WallWidth;
    return w < 2 || w >= 3 ? 1.0f : 0.0f;
}

// 1 on the last wall, where the lamp of the plaza shines on the pillars. It has no blue, and makes of plain white and ochre
// a green: everything there is reddened.
constexpr float IsByLamp(float x)
{
    return x >= 3 * WallWidth ? 1.0f : 0.0f;
}

// The moon on an edge that no other light reaches, as bright as it can be painted.
constexpr LinearColour RimAt(float x)
{
    return IsByLamp(x) > 0 ? LinearColour{0.98f, 0.47f, 0.30f}
                           : Mix(palette::Mist, palette::Bone, 0.9f) * 1.5f;
}

// The second wall is seen from the plaza, when the way lies behind: by then the moon is on it.
constexpr float BackLeft = WallWidth, BackMiddle = 1.5f * WallWidth;
constexpr float IsBack(float x)
{
    return x >= BackLeft && x < BackLeft + WallWidth ? 1.0f : 0.0f;
}

Mask RoofPatch();

// The roof seen from above.
void PaintRoof(Canvas& canvas);

// What is seen of the roof on the walls: eaves hang over the three along the way, and the second is a gable, whose roof
// falls off on both sides of it and whose boards are pale with moonlight.
void PaintRoofLines(Canvas& canvas, const Paper& paper);

} // namespace atelier::houses
