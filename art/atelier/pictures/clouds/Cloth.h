// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/pictures/clouds/RoundArm.h"

// Cloth about a forearm: the shapes of sleeves, and what is drawn on them.

namespace atelier
{

// A sleeve's shape from `from` to beyond the picture's border, as parts of the forearm's width wide at its mouth and at its
// end; its outline is shaken by so many pixels. The mouth is closed and round.
Mask Sleeve(const Canvas& canvas, const RoundArm& limb, float from, float mouth, float end, float shake,
            uint32_t seed);
// The same for one that one looks into: its edge goes round the opening.
Mask OpenSleeve(const Canvas& canvas, const RoundArm& limb, float from, float mouth, float end, float depth,
                float shake, uint32_t seed);

// PaintBody, with ink that covers the soft edge of the cloth.
void PaintCloth(Canvas& canvas, const Mask& cloth, Stuff stuff, float scale, uint32_t seed);
// Covers with ink; only `within` that mask, if there is one.
void InkLines(Canvas& canvas, Mask& lines, const Mask* within, float strength = 0.85f);
// Short strokes along the arm, from a part of its length on.
void DrawFolds(Pen& pen, const RoundArm& limb, float from, int count, uint32_t seed);

} // namespace atelier
