// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/Wood.h"

#include <algorithm>

namespace atelier
{

void DrawBranch(Pen& pen, Vector2 from, float angle, float length, float width, int generations,
                const DeadTree& tree, Dice& dice)
{
    constexpr int Knots = 6;
    std::vector<Vector2> knots = {from};
    std::vector<float> headings = {angle};
    for (int i = 0; i < Knots; i++) {
        angle += tree.gnarl * dice.Bell();
        // Turn a little towards the light, or towards the ground.
        angle += tree.rise * Sin(-Pi / 2 - angle);
        knots.push_back(knots.back() + Vector2{Cos(angle), Sin(angle)} * (length / Knots));
        headings.push_back(angle);
    }
    pen.nib.width = Max(width, 0.9f);
    const bool last = generations <= 1;
    pen.Stroke(Through(knots), {.start = 1, .middle = last ? 0.55f : 0.74f, .end = last ? 0.02f : 0.4f});
    if (last)
        return;
    const int children = std::max(1, int(tree.density * dice.Range(2.4f, 4.4f)));
    float side = dice.Chance(0.5f) ? 1.0f : -1.0f;
    for (int k = 0; k < children; k++) {
        const float t = Mix(0.28f, 1, (float(k) + dice.Range(0.3f, 1)) / float(children));
        const int knot = std::clamp(int(t * Knots), 1, Knots);
        const float turn = side * tree.spread * dice.Range(0.45f, 1.4f);
        side = -side;
        DrawBranch(pen, knots[size_t(knot)], headings[size_t(knot)] + turn,
                   length * dice.Range(0.42f, 0.78f) * (1.15f - 0.4f * t),
                   width * (1 - 0.5f * t) * dice.Range(0.5f, 0.75f), generations - 1, tree, dice);
    }
    // The leader goes on.
    DrawBranch(pen, knots.back(), headings.back(), length * dice.Range(0.5f, 0.75f), width * 0.42f,
               generations - 1, tree, dice);
}

void DrawDeadTree(Pen& pen, Vector2 foot, const DeadTree& tree, uint32_t seed)
{
    Dice dice(seed);
    const Nib before = pen.nib;
    pen.nib.pool = 0;
    pen.nib.skip = 0;
    pen.nib.dry = 0.12f;
    // The foot spreads: roots that come down along the stem and run out on the ground.
    const Vector2 up = {Sin(tree.lean), -Cos(tree.lean)};
    for (int i = 0; i < 5; i++) {
        const float side = (float(i) - 2) * 0.42f + 0.1f * dice.Bell();
        pen.nib.width = tree.trunk * 0.6f;
        pen.Stroke(Through({foot + up * (tree.trunk * 1.3f) + Vector2{side * tree.trunk * 0.25f, 0},
                            foot + up * (tree.trunk * 0.4f) + Vector2{side * tree.trunk * 0.6f, 0},
                            foot + Vector2{side * tree.trunk * 1.9f, dice.Range(0, 4)}}),
                   {.start = 0.1f, .middle = 0.9f, .end = 0.05f});
    }
    pen.nib.wander = 0.2f;
    DrawBranch(pen, foot, -Pi / 2 + tree.lean, tree.height * 0.46f, tree.trunk, tree.generations, tree, dice);
    pen.nib = before;
}

void DrawDeadFir(Pen& pen, Vector2 foot, const DeadFir& fir, uint32_t seed)
{
    Dice dice(seed);
    const Nib before = pen.nib;
    pen.nib.pool = 0;
    pen.nib.skip = 0.1f;
    const Vector2 tip = foot + Vector2{fir.lean, -fir.height};
    const Line stem =
        Shaken(Through({foot, Mix(foot, tip, 0.5f) + Vector2{fir.lean * -0.15f, 0}, tip}), 2.5f, 90, seed);
    pen.nib.width = fir.trunk;
    pen.Stroke(stem, {.start = 1, .middle = 0.6f, .end = 0.03f});
    const float whorls = fir.height / 11;
    for (float k = 1; k < whorls; k += dice.Range(0.6f, 1.4f)) {
        const float down = k / whorls; // 0 at the tip
        if (down > 0.93f)
            break;
        for (int side = -1; side <= 1; side += 2) {
            if (dice.Chance(fir.bare * (0.55f + 0.5f * down)))
                continue;
            const Vector2 root = PointAt(stem, 1 - down);
            const bool stub = dice.Chance(0.12f + 0.5f * fir.bare);
            const float reach = fir.reach * Pow(down, 0.8f) * dice.Range(0.55f, 1.15f) * (stub ? 0.3f : 1);
            const float out = float(side) * reach;
            const float droop = reach * dice.Range(0.18f, 0.5f);
            const Line branch = Through({root, root + Vector2{out * 0.4f, droop * 0.2f},
                                         root + Vector2{out * 0.8f, droop * 0.75f},
                                         root + Vector2{out, droop * (stub ? 0.9f : 0.7f)}});
            pen.nib.width = 1.2f + fir.trunk * 0.22f * down;
            pen.Stroke(branch, {.start = 1, .middle = 0.7f, .end = stub ? 0.7f : 0.05f});
            // Twigs hang from it, and lichen from the twigs.
            const int twigs = stub ? 0 : int(reach / 6);
            for (int i = 0; i < twigs; i++) {
                if (dice.Chance(0.3f + 0.5f * fir.bare))
                    continue;
                const float t = dice.Range(0.25f, 1);
                const Vector2 p = PointAt(branch, t);
                const float hang = reach * dice.Range(0.1f, 0.3f) * (1.1f - 0.5f * t);
                pen.nib.width = 1.5f;
                pen.Stroke(Through({p, p + Vector2{out * 0.05f, hang * 0.5f},
                                    p + Vector2{out * dice.Range(0.02f, 0.12f), hang}}),
                           {.start = 0.8f, .middle = 0.6f, .end = 0.02f});
                if (dice.Chance(fir.beard * 0.5f)) {
                    pen.nib.width = 1;
                    pen.Stroke(Through({p, p + Vector2{dice.Range(-2, 2), hang * 0.8f},
                                        p + Vector2{dice.Range(-4, 4), hang * dice.Range(1.2f, 2.2f)}}),
                               {.start = 0.5f, .middle = 0.35f, .end = 0});
                }
            }
        }
    }
    pen.nib = before;
}

void DrawRoots(Pen& pen, Vector2 foot, float reach, float width, uint32_t seed)
{
    Dice dice(seed);
    const Nib before = pen.nib;
    pen.nib.pool = 0;
    const DeadTree root = {.gnarl = 0.3f, .rise = -0.06f, .spread = 0.6f, .density = 0.8f};
    for (int i = 0; i < 7; i++) {
        const float angle = Mix(0.12f, Pi - 0.12f, (float(i) + dice.Range(0.2f, 0.8f)) / 7);
        DrawBranch(pen, foot, angle, reach * dice.Range(0.35f, 0.6f), width * dice.Range(0.5f, 1), 3, root,
                   dice);
    }
    pen.nib = before;
}

} // namespace atelier
