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

// Two slopes of shingles fall from a ridge, in night and ink, with little of the moon on their edges: when the pillars
// bend, the lamp shines on this, or nothing does, and a house has to end in a dark roof both times. It is darkest at
// its border, where a wall begins.
void PaintRoof(Canvas& canvas)
{
    constexpr float Half = (Size - RoofLeft) / 2;
    constexpr float Rows = 5;
    const Noise own(541), worn(542);
    canvas.Cover(RoofPatch(), [&](float x, float y) {
        const float u = (x - RoofLeft) / Half - 1, v = y / Half - 1;
        const float out = Abs(v) + 0.03f * worn.Fbm(x / 34, y / 34, 2);
        const float row = out * Rows, line = float(Floor(row)), down = row - line;
        const float column = u * 4.5f + 0.5f * line + 0.25f * own.Gradient(line * 3 + (v < 0 ? 40 : 0), 0.5f);
        const float across = Fraction(column) * 2 - 1;
        const float tint = own.Value(float(Floor(column)) * 1.3f + (v < 0 ? 37.0f : 11.0f), line * 1.7f);
        LinearColour shingle =
            Mix(palette::Ink, Mix(palette::Rust, palette::Slate, 0.5f), 0.10f + 0.20f * tint) *
            (0.8f + 0.5f * worn.Fbm(x / 5, y / 26, 3));
        const float edge = 0.80f - 0.10f * across * across + 0.10f * tint; // ragged, over the next row
        shingle = Mix(shingle, Mix(palette::Slate, palette::Rust, 0.5f),
                      0.45f * tint * Hill(edge - 0.08f, 0.10f, down));
        shingle = Mix(shingle, palette::Ink * 0.25f,
                      Max(Smooth(edge, edge + 0.06f, down), 0.8f * Smooth(0.86f, 0.96f, Abs(across))));
        shingle = Mix(shingle, Mix(palette::Slate, palette::Rust, 0.4f) * 0.7f, 0.8f * Hill(0, 0.05f, out));
        return shingle * Mix(0.20f, 0.7f, Smooth(0, 30, Min(Half - Abs(u) * Half, Half - Abs(v) * Half)));
    });
}

// 1 on the walls that the lamp shines on when the pillars bend: they end in a deep, dark roof.
static float EndsInTheDark(float x)
{
    return x < BackLeft ? 1.0f : IsByLamp(x);
}

// How far down the eaves hang.
static float EavesAt(float x)
{
    return WallTop + 50 + 14 * EndsInTheDark(x) + 22 * IsByLamp(x);
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
        const LinearColour wood =
            Mix(palette::Ink, Mix(palette::Rust, palette::Slate, 0.5f), 0.08f + 0.16f * tint);
        const LinearColour tile = Mix(Mix(day, night, unlit), wood, EndsInTheDark(x)) *
                                  (0.85f + 0.35f * worn.Fbm(x / Size * 24, y / Size * 24, 4));
        const float edge = 0.86f - 0.16f * across * across;
        LinearColour rim = Mix(tile, Mix(palette::Mist, RimAt(x), unlit),
                               Mix(Mix(0.45f, 0.9f, unlit), 0.12f, EndsInTheDark(x)) *
                                   Hill(edge - 0.07f, Mix(0.08f, 0.15f, unlit), v));
        rim = Mix(rim, palette::Ink * 0.7f,
                  Max(Smooth(edge, edge + 0.06f, v), Smooth(0.86f, 0.97f, Abs(across))));
        // The moon on the ridge.
        return Mix(rim, RimAt(x),
                   (unlit - EndsInTheDark(x)) * Smooth(WallTop - 2, WallTop, y) *
                       Smooth(WallTop + 13, WallTop + 9, y + 3 * worn.Fbm(x / Size * 24, 0.5f, 2)));
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
        return EavesAt(x) - 5 * tile * tile + 5 * sag.Fbm(x / Size * 16, 0.3f, 2);
    };
    const auto isRoof = [&](float x, float y, float lower) {
        const float foot = IsBack(x) > 0 ? gable(x) : eaves(x);
        return Smooth(WallTop - 60, WallTop - 56, y) * Smooth(foot + lower + 1, foot + lower - 1, y);
    };
    Mask roof = Mask(Side, Side, 0, true).Each([&](float x, float y) { return isRoof(x, y, 0); });
    Mask shade = Mask(Side, Side, 0, true).Each([&](float x, float y) { return isRoof(x, y, 20); });
    canvas.Glaze(shade.Blur(6).Subtract(roof), Mix(palette::Slate, palette::Ink, 0.5f), 0.85f);
    LayTiles(
        canvas, roof, [&](float x) { return IsBack(x) > 0 ? gable(x) : EavesAt(x); }, 26);
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
