// SPDX-License-Identifier: MIT
// The ploughed ground of the village, in its own units: X along the way, Z across it, to the right. The field's picture
// is laid 7 times along 100 units, so its land repeats in X.
#pragma once

#include "art/atelier/Pen.h"
#include "art/atelier/Wash.h"

#include <functional>

namespace atelier
{

constexpr float Repeat = 100.0f / 7;

// What is seen beyond the ground's edge, under the hills and where the sky's box is open: the mist before the village,
// which glowmask.fp draws as the last of the painting, and nothing behind it. Ground and sky fade into it.
constexpr LinearColour NightBehind = Mix(palette::Ink, palette::Night, 0.2f);

// Makes of what is to be seen the picture that shows it through the mist before it, when `light` of the picture is drawn, 0
// to 1. What is to be darker than the mist becomes black.
void AllowForMist(Canvas& canvas, float light = 1);

// How much light falls on the ground: it ends 20 units beside the way and is lost in the night before.
float SideLight(float beside);

// The whole part is the number of the furrow, the fraction how far across it a place lies. Furrows follow the way and
// bend a little.
float VillageFurrow(float X, float Z);

// Wet earth at night. The moon stands ahead and lies on the crests; stubble and moss show here and there.
LinearColour VillageEarth(float X, float Z);

// The pen goes along the furrows, in the given part of their width. `place` says where a point of the ground lies on the
// sheet; strokes start at random points of the given ground and stop where `open` is false.
struct FurrowPart {
    float from, to; // of a furrow's width
};
constexpr FurrowPart ShadedSide = {0.76f, 0.92f}, WholeFurrow = {0, 1};
void HatchFurrows(Pen& pen, Dice& dice, int strokes, FurrowPart part, Vector2 low, Vector2 high,
                  const std::function<Vector2(Vector2)>& place, const std::function<bool(Vector2)>& open);

// The last layer: the paper shows, what the light does not reach goes over into the night, and mist lies before it.
void FinishGround(Canvas& canvas, const Mask& light);

} // namespace atelier
