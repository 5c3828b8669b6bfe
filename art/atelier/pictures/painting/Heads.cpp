// SPDX-License-Identifier: MIT
// The dancers' heads: features, hair, an ear each.
#include "art/atelier/DryBrush.h"
#include "art/atelier/pictures/clouds/Body.h"
#include "art/atelier/pictures/painting/Dancers.h"

namespace atelier
{

static void PaintSkull(Canvas& canvas, const std::vector<Vector2>& face, LinearColour light,
                       LinearColour shade, uint32_t seed)
{
    Around(canvas, face, 40, [&](Canvas& part, Vector2 origin) {
        std::vector<Vector2> here = face;
        for (Vector2& p : here)
            p = p - origin;
        PaintBody(part, Filled(part.Width(), part.Height(), Round(here)).Blur(0.8f),
                  {.light = light,
                   .shade = shade,
                   .depth = 0.5f,
                   .hatch = 0.1f,
                   .contour = 1,
                   .back = Clay,
                   .rim = 0.2f},
                  0.6f, seed);
    });
}

static void Blush(Canvas& canvas, Vector2 place, float radius, float strength)
{
    const Mask spot = Mask(W, H).Each(
        [&](float x, float y) {
            return Bell(Length(Vector2{x, y} - place) / radius);
        },
        2);
    canvas.Glaze(spot, palette::Rust, strength);
}

void PaintHisHead(Canvas& canvas, const Paper& paper)
{
    PaintSkull(canvas, HisFace, HisSkin, Earth, 180);
    Blush(canvas, OnHisHead({{76, 66}})[0], 15, 0.35f);
    InkContours(canvas, paper,
                {{Through(OnHisHead({{70, 46}, {78, 50}, {87, 46}})), 3.4f},             // his eye, closed
                 {Through(OnHisHead({{64, 36}, {76, 31}, {88, 36}})), 4},                // brow
                 {Through(OnHisHead({{84, 76}, {92, 77}, {98, 76}})), 3.2f},             // mouth
                 {Through(OnHisHead({{88, 85}, {92, 85}, {95, 84}})), 2},                // below the lip
                 {Through(OnHisHead({{92, 63}, {89, 66}, {93, 67}})), 2.4f},             // nostril
                 {Through(OnHisHead({{80, 64}, {82, 70}, {81, 76}})), 1.8f},             // from nose to mouth
                 {Through(OnHisHead({{88, 102}, {68, 98}, {50, 86}, {44, 70}})), 2.6f}}, // jaw
                0.03f, 98);
    for (const float x : {72.0f, 77.0f, 82.0f})
        InkContours(canvas, paper, {{Through(OnHisHead({{x, 49}, {x + 2, 54}})), 1.6f}}, 0, 101);
    Mask ink(W, H);
    Pen pen(ink, paper, {.width = 2, .wobble = 1.2f, .wave = 60, .skip = 0.05f, .dry = 0.4f}, 99);
    Dice dice(53);
    // His hair is cropped, a copse on a hilltop.
    ink.Fill(Shaken(Round(OnHisHead({{14, 92},
                                     {2, 66},
                                     {1, 34},
                                     {18, 5},
                                     {48, -4},
                                     {76, 5},
                                     {84, 16},
                                     {66, 20},
                                     {54, 30},
                                     {48, 44},
                                     {40, 48},
                                     {38, 60},
                                     {30, 66},
                                     {28, 82}})),
                    1.6f, 12, 54));
    const Line crown = Through(OnHisHead({{10, 86}, {1, 62}, {1, 34}, {18, 5}, {48, -4}, {78, 6}}));
    for (int i = 0; i < 80; i++) {
        const Vector2 p = PointAt(crown, dice.Unit());
        pen.Stroke(Through({p + Vector2{4, 4}, p + Vector2{dice.Range(-5, 1), dice.Range(-7, 0)}}),
                   {.start = 0.8f, .middle = 0.7f, .end = 0});
    }
    canvas.Cover(ink, DarkInk, 0.94f);
    const Line ear = Round(OnHisHead({{36, 54}, {42, 50}, {45, 56}, {42, 66}, {37, 70}, {34, 62}}));
    canvas.Cover(Filled(W, H, ear), HisSkin * 0.85f);
    InkContours(canvas, paper, {{ear, 2.2f}, {Through(OnHisHead({{38, 57}, {41, 57}, {39, 63}})), 1.8f}},
                0.05f, 100);
}

void PaintHerHead(Canvas& canvas, const Paper& paper)
{
    PaintSkull(canvas, HerFace, HerSkin, Mix(palette::Rust, palette::Ochre, 0.45f), 181);
    Blush(canvas, OnHerHead({{32, 66}})[0], 15, 0.32f);
    std::vector<Contour> contours = {
        {Through(std::vector<Vector2>(HerFace.begin() + 1, HerFace.begin() + 18), 1.5f),
         3},                                                                  // from the brow down the throat
        {Through(OnHerHead({{15, 45}, {22, 50}, {31, 48}, {36, 44}})), 3.4f}, // her eye, closed
        {Through(OnHerHead({{13, 35}, {24, 30}, {38, 34}})), 2.8f},           // brow
        {Through(OnHerHead({{4, 73}, {11, 72}, {18, 74}})), 3},               // lips
        {Through(OnHerHead({{8, 61}, {12, 58}, {11, 63}})), 2},               // nostril
        {Through(OnHerHead({{36, 103}, {48, 96}, {60, 84}, {64, 72}})), 2.4f}, // jaw, up to the ear
    };
    for (const float x : {17.0f, 22.0f, 27.0f}) // lashes
        contours.push_back({Through(OnHerHead({{x, 48}, {x - 4, 54}})), 1.8f});
    InkContours(canvas, paper, contours, 0.03f, 102);
    canvas.Glaze(Filled(W, H, Round(OnHerHead({{0, 69}, {5, 72}, {14, 73}, {7, 78}, {1, 78}}))).Blur(1),
                 palette::Rust, 0.8f);
}

// Where her hair lies: out of the hairline, over crown and nape, and down. It hangs, since her head is thrown back.
// clang-format off
static const std::vector<Vector2> Crown = {{889, 362}, {903, 380}, {909, 410}, {901, 452}, {890, 496}, {886, 560}, {908, 622}, {960, 690}};
static const std::vector<Vector2> Nape  = {{880, 367}, {866, 371}, {849, 378}, {834, 386}, {816, 392}, {798, 402}, {800, 416}, {811, 436}, {820, 468}, {820, 520}, {822, 580}, {848, 650}, {900, 726}};
// clang-format on

void PaintHair(Canvas& canvas, const Paper& paper)
{
    Mask river(W, H), shine(W, H);
    DryBrush strands(river, paper,
                     {.width = 62,
                      .count = 44,
                      .thickness = 2.4f,
                      .load = 0.85f,
                      .ragged = 0.12f,
                      .spread = 0.7f,
                      .wave = 90},
                     42),
        water(shine, paper,
              {.width = 44, .count = 12, .thickness = 1.6f, .load = 0.6f, .ragged = 0.4f, .spread = 0.9f},
              43);
    const Line fall = Through(Hair);
    strands.Stroke(Part(fall, 0.22f, 1));
    strands.Stroke(Moved(Part(fall, 0.3f, 1), {6, -3}));
    water.Stroke(Moved(Part(fall, 0.3f, 1), {4, 0}));
    // It thins out into the river.
    Mask hair = Filled(W, H, Between(Crown, Nape)).Shake(2, 30, 44);
    hair.By([](float, float y) { return Smooth(690, 560, y); });
    Mask locks(W, H), lit(W, H);
    Pen dark(locks, paper, {.width = 3.4f, .wobble = 1, .wave = 50, .skip = 0.1f, .pool = 0}, 46),
        light(lit, paper, {.width = 2.6f, .wobble = 1, .wave = 50, .skip = 0.25f, .dry = 0.5f, .pool = 0},
              47);
    Dice dice(48);
    for (int i = 0; i < 40; i++) {
        const Line lock = Furrow(Crown, Nape, Clamp((float(i) + dice.Unit()) / 40));
        const float to = dice.Range(0.7f, 1);
        dark.Stroke(Shaken(Part(lock, dice.Range(0, 0.05f), to), 2.5f, 60, 400 + uint32_t(i)), {0.3f, 1, 0});
        if (i % 3 == 1)
            light.Stroke(Shaken(Part(lock, dice.Range(0.04f, 0.2f), dice.Range(0.45f, 0.9f)), 2, 60,
                                460 + uint32_t(i)),
                         {0, 0.9f, 0});
    }
    const LinearColour brown = Mix(palette::Rust, palette::Ink, 0.72f);
    canvas.Cover(river, Mix(palette::Rust, palette::Ink, 0.6f), 0.9f);
    canvas.Cover(shine, palette::Parchment, 0.7f);
    canvas.Cover(hair, brown, 0.96f);
    canvas.Cover(locks, DarkInk, 0.85f);
    canvas.Cover(lit, Mix(palette::Ochre, palette::Rust, 0.35f), 0.85f);
    // Her ear looks out of it.
    const Line ear = Round(OnHerHead({{62, 52}, {69, 54}, {69, 63}, {63, 70}, {60, 62}}));
    canvas.Cover(Filled(W, H, ear), Mix(HerSkin, Clay, 0.2f));
    InkContours(canvas, paper, {{ear, 2.2f}}, 0.05f, 103);
}

} // namespace atelier
