// SPDX-License-Identifier: MIT
// The atlas of the towers: four walls side by side and a roof in the top right corner. The walls are painted as one sees
// them walking round a tower, joining at their edges, and put where the box has them at the end (TowerWalls.cpp). A tower is
// 80 units high, 6 wide at its foot and 16 at its head: half-way up a pixel is as wide as it is high. Its parts are painted
// by subject: TowerPlumage, TowerCourses, TowerWindows, TowerBattlements, TowerFoot; TowerWalls.cpp brings them together.
#pragma once

#include "art/atelier/Canvas.h"
#include "art/atelier/Paper.h"

namespace atelier::towers
{

constexpr int Across = 512, Down = 2048;
constexpr float Girth = Across, WallWidth = 128, Head = 512, Foot = 1536;

inline Mask Sheet()
{
    return Mask(Across, Down, 0, true);
}

// 0 at the head, 1 at the foot.
constexpr float HeightAt(float y)
{
    return (y - Head) / (Foot - Head);
}

// A band of bare stone winds round a tower, rising to the right; below it runs a moulding, from which a band of feathers
// hangs down to the next turn of the stone.
constexpr float Turn = 330;           // pixels from a turn to the next
constexpr float MouldingTurn = 0.21f; // where the moulding runs, as TurnAt has it

// By which part of a turn a place lies below the middle of the stone: 0 to 1.
inline float TurnAt(float x, float y)
{
    return Fraction((y - Head) / Turn + x / Girth);
}

// Nothing lights the towers in the scene. Of two walls that meet one lies in the shade of the night, so that a tower is
// seen to have sides.
inline bool IsShaded(float x)
{
    return Floor(x / WallWidth) % 2 == 0;
}

struct TowerNoise {
    Noise barb = Noise(521, 256, 256), age = Noise(522, 8, 32), chip = Noise(523, 96, 384),
          zone = Noise(527, 16, 32), course = Noise(535, 64, 256);
};

// What the night leaves of a wall that lies in the dark.
constexpr LinearColour Dark = Mix(palette::Ink, palette::Night, 0.35f) * 0.8f;

} // namespace atelier::towers
