// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Pen.h"

// The two dancers of the painting as lines, for the painting and for the way of the light over it.

namespace atelier
{

constexpr int W = 1024, H = 1024; // the picture is in the top 768 rows; below it goes on, for the filter

// Him: his back from the crown to the heel, and his front. Her: the line from her waist over breast and
// throat, and the line of her back. Her skirt: its upper border, that is the horizon of the fields, and its
// left one. Their arms, from the shoulder: his to the left, hers to the right, his round her, hers round his
// neck. Her hair, that is a river.
extern const std::vector<Vec2> HisBack, HisFront, HerFront, HerBack, FieldTop, FieldLeft, HisArm, HerArm,
    HisHold, HerHold, Hair, HisFace, HerFace;

// From her upright profile, 100 from crown to chin, to where her head is.
std::vector<Vec2> OnHerHead(std::vector<Vec2> points);

// The line that lies a part t of the way from a to b, as a furrow between two borders.
Line Furrow(const std::vector<Vec2>& a, const std::vector<Vec2>& b, float t);

// Their far hands are trees.
void DrawHandTree(Pen& pen, const std::vector<Vec2>& arm, float width, uint32_t seed);

// The order in which light travels through the painting, for its shader.
Canvas GlowMask();

} // namespace atelier
