// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Pen.h"

// Trees without leaves, as more than one picture wants them. All are drawn with a pen onto its mask.

namespace atelier
{

struct DeadTree {
    float height = 300;   // pixels from the foot to about the topmost twig
    float trunk = 18;     // pixels, width of the trunk above the foot
    float lean = 0;       // radians, to the right
    float gnarl = 0.22f;  // radians by which a branch changes its mind from knot to knot
    float rise = 0.10f;   // how strongly branches seek the light; negative: they hang
    float spread = 0.75f; // radians, mean angle of a branch from its parent
    int generations = 5;
    float density = 1; // of branches
};
void DrawDeadTree(Pen& pen, Vector2 foot, const DeadTree& tree, uint32_t seed);

// One branch with its twigs, from a place in a direction (radians, 0 to the right, -Pi / 2 up).
void DrawBranch(Pen& pen, Vector2 from, float angle, float length, float width, int generations,
                const DeadTree& tree, Dice& dice);

struct DeadFir {
    float height = 260;
    float trunk = 9;
    float reach = 60;   // pixels, half the width of the lowest branches
    float bare = 0.3f;  // 0: all branches there, 1: a pole with stubs
    float lean = 0;     // pixels by which the tip stands aside
    float beard = 0.5f; // lichen hanging from the branches
};
void DrawDeadFir(Pen& pen, Vector2 foot, const DeadFir& fir, uint32_t seed);

// Roots that leave a stem's foot to both sides and into the ground.
void DrawRoots(Pen& pen, Vector2 foot, float reach, float width, uint32_t seed);

} // namespace atelier
