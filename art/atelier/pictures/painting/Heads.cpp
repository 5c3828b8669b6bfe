// SPDX-License-Identifier: MIT
// The dancers' heads: features, hair, an ear each.
#include "art/atelier/pictures/painting/Dancers.h"

namespace atelier
{

static void InkFeatures(Canvas& canvas, const Paper& paper)
{
    std::vector<Contour> contours = {
        {Through({{524, 212}, {531, 215}, {538, 212}}), 3}, // his eye, closed
        // her profile, from the brow to the throat
        {Through(OnHerHead({{26, 8},
                            {14, 22},
                            {9, 34},
                            {11, 42},
                            {2, 52},
                            {-7, 59},
                            {3, 64},
                            {0, 69},
                            {5, 73},
                            {1, 78},
                            {7, 84},
                            {4, 92},
                            {9, 99},
                            {24, 99},
                            {40, 96}}),
                 1.5f),
         3.4f},
        {Through(OnHerHead({{15, 45}, {22, 50}, {31, 48}, {36, 44}})), 3.4f}, // her eye, closed
        {Through(OnHerHead({{13, 35}, {24, 30}, {38, 34}})), 2.8f},           // brow
        {Through(OnHerHead({{5, 73}, {12, 72}, {18, 74}})), 3},               // lips
        {Through(OnHerHead({{8, 61}, {12, 58}, {11, 63}})), 2},               // nostril
        {Through(OnHerHead({{40, 96}, {54, 84}, {60, 70}})), 2},              // jaw
    };
    for (const float x : {17.0f, 22.0f, 27.0f}) // lashes
        contours.push_back({Through(OnHerHead({{x, 48}, {x - 4, 54}})), 1.8f});
    InkContours(canvas, paper, contours, 0.05f, 98);
}

static void InkHair(Canvas& canvas, const Paper& paper)
{
    Mask ink(W, H);
    Pen pen(ink, paper, {.width = 2, .wobble = 1.2f, .wave = 60, .skip = 0.05f, .dry = 0.4f}, 99);
    Dice dice(53);
    // His is cropped, a copse on a hilltop.
    ink.Fill(Shaken(
        Round(
            {{478, 240}, {469, 206}, {484, 174}, {514, 164}, {536, 177}, {518, 188}, {500, 206}, {494, 232}}),
        2, 14, 54));
    const Line crown = Through({{478, 242}, {468, 206}, {484, 173}, {514, 163}, {537, 177}});
    for (int i = 0; i < 70; i++) {
        const Vector2 p = PointAt(crown, dice.Unit());
        pen.Stroke(Through({p + Vector2{4, 4}, p + Vector2{dice.Range(-6, 0), dice.Range(-7, 0)}}),
                   {.start = 0.8f, .middle = 0.7f, .end = 0});
    }
    // Hers begins at the temple and leaves the brow free.
    ink.Fill(Shaken(Round(OnHerHead({{24, 9},
                                     {50, -5},
                                     {84, 4},
                                     {103, 36},
                                     {99, 66},
                                     {88, 92},
                                     {76, 88},
                                     {72, 74},
                                     {68, 62},
                                     {60, 54},
                                     {56, 40},
                                     {40, 24}})),
                    1.2f, 16, 55));
    canvas.Cover(ink, DarkInk, 0.92f);
    // A comb of light on it.
    Mask gleam(W, H);
    Pen hairline(gleam, paper, {.width = 2, .wobble = 0.8f, .skip = 0.4f}, 56);
    for (int i = 0; i < 9; i++) {
        const float k = float(i);
        hairline.Stroke(
            Through(OnHerHead({{34 + 3.4f * k, 12 - k}, {62 + 3 * k, 22 + 2.6f * k}, {84 + k, 50 + 3 * k}})),
            {.start = 0.1f, .middle = 0.7f, .end = 0.2f});
    }
    canvas.Cover(gleam, Mix(palette::Ochre, palette::Rust, 0.4f), 0.8f);
}

void PaintHeads(Canvas& canvas, const Paper& paper)
{
    InkFeatures(canvas, paper);
    InkHair(canvas, paper);
    const Line ear = Round(OnHerHead({{62, 52}, {69, 54}, {69, 63}, {63, 70}, {60, 62}}));
    canvas.Cover(Filled(W, H, ear), Mix(Straw, Clay, 0.25f));
    // A warm cheek.
    const Vector2 cheek = OnHerHead({{32, 66}})[0];
    const Mask blush = Mask(W, H).Each(
        [&](float x, float y) {
            return Bell(Length(Vector2{x, y} - cheek) / 15);
        },
        2);
    canvas.Glaze(blush, palette::Rust, 0.3f);
    InkContours(canvas, paper, {{ear, 2}, {Through({{500, 214}, {506, 210}, {509, 218}, {504, 226}}), 2.6f}},
                0.1f, 100);
}

} // namespace atelier
