// SPDX-License-Identifier: MIT
// The roofs of the village's houses.
#include "art/atelier/Pen.h"
#include "art/atelier/pictures/town/HouseAtlas.h"

#include <functional>

namespace atelier::houses
{

Mask RoofPatch()
{
    return Filled(Side, Side, Rectangle(RoofLeft, 0, Size, RoofFoot));
}

// Four slopes meet on hips: rows of tiles all round, the moon on their rims. The slope on the right falls towards the
// front of a house and the fire of the plaza.
void PaintRoof(Canvas& canvas)
{
    constexpr float Half = (Size - RoofLeft) / 2;
    constexpr int Rows = 4;
    struct Slope {
        float light; // on its tiles
        int seed;
    };
    constexpr Slope Right = {1.0f, 11}, Left = {0.42f, 23}, Upper = {0.78f, 37}, Lower = {0.58f, 53};
    const Noise own(541), worn(542);
    canvas.Cover(RoofPatch(), [&](float x, float y) {
        const float u = (x - RoofLeft) / Half - 1, v = y / Half - 1;
        const bool onSide = Abs(u) > Abs(v);
        const Slope slope = onSide ? (u > 0 ? Right : Left) : (v > 0 ? Lower : Upper);
        const float out = Max(Abs(u), Abs(v)), along = onSide ? v : u;
        const float bent = out + 0.012f * worn.Gradient(x / 20, y / 20);
        const float row = bent * Rows, line = float(Floor(row)), down = row - line;
        const float column = along * 3.6f + 0.5f * line + 0.1f * own.Gradient(line, 0.5f);
        const float across = Fraction(column) * 2 - 1;
        const float tint = own.Value(float(Floor(column)) * 1.3f + float(slope.seed), line * 1.7f);
        LinearColour tile = Mix(Mix(palette::Rust, palette::Slate, 0.35f), RimAt(x), 0.40f + 0.40f * tint) *
                            (slope.light * (0.85f + 0.4f * worn.Fbm(x / 9, y / 9, 3)));
        const float edge = 0.84f - 0.14f * across * across; // of a rounded tile, over the next row
        tile = Mix(tile, RimAt(x) * (0.35f + 0.65f * slope.light), 0.75f * Hill(edge - 0.10f, 0.14f, down));
        tile = Mix(tile, palette::Ink * 0.5f,
                   Max(Smooth(edge, edge + 0.07f, down), 0.8f * Smooth(0.88f, 0.97f, Abs(across))));
        const float offHip = Abs(Abs(u) - Abs(v)) * Half, cap = Abs(Fraction(out * 9) - 0.5f);
        const LinearColour ridge =
            Mix(RimAt(x) * (0.6f + 0.4f * slope.light), palette::Ink, Smooth(0.40f, 0.48f, cap));
        tile = Mix(tile, palette::Ink * 0.5f, Smooth(11, 8, offHip));
        tile = Mix(tile, ridge, Smooth(7, 5, offHip));
        return Mix(tile, RimAt(x), Smooth(0.955f, 0.975f, out)); // the gutter
    });
}

// Tiles in rows, the lower over the upper's joints: dark, each its own way, the moon on some of their rims. `foot` is
// the lower edge of the last row at x; the rows lie parallel to it.
static void LayTiles(Canvas& canvas, const Mask& where, const std::function<float(float x)>& foot, float row)
{
    const Noise own(541), worn(542, 24, 24);
    canvas.Cover(where, [&](float x, float y) {
        const float up = (foot(x) - y) / row;
        const float line = float(Floor(up)), v = 1 - (up - line);
        const float u = x / (row * 0.8f) + 0.5f * line;
        const float across = Fraction(u) * 2 - 1;
        const float unlit = IsUnlit(x), tint = own.Value(Floor(u) * 1.0f + 0.5f, line + 0.5f);
        const LinearColour night = Mix(palette::Ink, RimAt(x), 0.10f + 0.24f * tint),
                           day = Mix(Mix(palette::Slate, palette::Rust, 0.25f + 0.25f * tint), palette::Ink,
                                     0.35f);
        const LinearColour tile =
            Mix(day, night, unlit) * (0.85f + 0.35f * worn.Fbm(x / Size * 24, y / Size * 24, 4));
        const float edge = 0.86f - 0.16f * across * across;
        LinearColour rim = Mix(tile, Mix(palette::Mist, RimAt(x), unlit),
                               Mix(0.45f, 0.9f, unlit) * Hill(edge - 0.07f, Mix(0.08f, 0.15f, unlit), v));
        rim = Mix(rim, palette::Ink * 0.7f,
                  Max(Smooth(edge, edge + 0.06f, v), Smooth(0.86f, 0.97f, Abs(across))));
        // The moon on the ridge.
        return Mix(rim, RimAt(x),
                   unlit * Smooth(WallTop + 13, WallTop + 9, y + 3 * worn.Fbm(x / Size * 24, 0.5f, 2)));
    });
}

void PaintRoofLines(Canvas& canvas, const Paper& paper)
{
    constexpr float Apex = WallTop + 6, GableFoot = WallTop + 172;
    const auto gable = [](float x) {
        return Mix(Apex, GableFoot, Min(1, Abs(x - BackMiddle) / (WallWidth / 2)));
    };
    const Noise sag(543, 16, 4);
    const auto eaves = [&](float x) {
        const float tile = Fraction(x / Size * 48) * 2 - 1;
        return WallTop + 50 - 5 * tile * tile + 5 * sag.Fbm(x / Size * 16, 0.3f, 2);
    };
    const auto isRoof = [&](float x, float y, float lower) {
        const float foot = IsBack(x) > 0 ? gable(x) : eaves(x);
        return Smooth(WallTop - 60, WallTop - 56, y) * Smooth(foot + lower + 1, foot + lower - 1, y);
    };
    Mask roof = Mask(Side, Side, 0, true).Each([&](float x, float y) { return isRoof(x, y, 0); });
    Mask shade = Mask(Side, Side, 0, true).Each([&](float x, float y) { return isRoof(x, y, 20); });
    canvas.Glaze(shade.Blur(6).Subtract(roof), Mix(palette::Slate, palette::Ink, 0.5f), 0.85f);
    LayTiles(
        canvas, roof, [&](float x) { return IsBack(x) > 0 ? gable(x) : WallTop + 50.0f; }, 26);
    Mask boards(Side, Side), joints(Side, Side);
    Pen board(boards, paper, {.width = 15, .least = 0.7f, .wobble = 1, .wave = 60, .skip = 0, .dry = 0.1f},
              544);
    Pen ink(joints, paper, {.width = 3.5f, .wobble = 1, .wave = 50, .skip = 0.1f}, 545);
    for (const float side : {-1.0f, 1.0f}) {
        const Line verge =
            Straight({{BackMiddle, Apex + 8}, {BackMiddle + side * (WallWidth / 2 - 5), GableFoot - 2}});
        board.Stroke(verge, {.start = 1, .middle = 1, .end = 1});
        ink.Stroke(Beside(verge, 9), {.start = 1, .middle = 0.9f, .end = 0.8f});
        ink.Stroke(Beside(verge, -9), {.start = 1, .middle = 0.9f, .end = 0.8f});
    }
    canvas.Cover(boards, Mix(palette::Mist, palette::Bone, 0.9f) * 1.1f);
    canvas.Cover(joints, palette::Ink, 0.9f);
}

} // namespace atelier::houses
