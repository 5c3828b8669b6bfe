// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/opening/Panorama.h"

#include "art/atelier/DryBrush.h"
#include "art/atelier/pictures/SparkPaths.h"
#include "art/atelier/pictures/Wood.h"

namespace atelier
{

namespace panorama
{

// Path `k` in pixels of the panorama.
Line Thread(int k)
{
    return Moved(SparkPath(k, PartWidth, H), {float(PartWidth * (1 + k / 3)), 0});
}

float Night(float x)
{
    return Smooth(900, 2400, x);
}

WashStyle SkyWash()
{
    return {.pool = 0, .granulation = 0.2f, .bloom = 0.5f, .bloomSize = 260, .stray = 0};
}

// The nine threads themselves. From one picture to the next they go on where nobody looks.
static void DrawThreads(Canvas& canvas, const Paper& paper)
{
    Mask threads(W, H), smoke(W, H);
    Pen pen(threads, paper, {.width = 1.9f, .least = 0.4f, .wobble = 0, .skip = 0.15f, .pool = 0}, 700);
    DryBrush brush(smoke, paper,
                   {.width = 10,
                    .count = 9,
                    .thickness = 2.4f,
                    .load = 0.75f,
                    .ragged = 0.1f,
                    .spread = 0.8f,
                    .wave = 120},
                   701);
    Dice dice(702);
    for (int k = 0; k < SparkPathCount; k++)
        if (k != 4 && k != 7)
            pen.Stroke(Thread(k), {.start = 0.7f, .middle = 0.9f, .end = 0.6f});
    for (int k = 0; k + 3 < SparkPathCount; k++)
        pen.Stroke(Through({Thread(k).back(), Mix(Thread(k).back(), Thread(k + 3).front(), 0.5f) + Vec2{0, 2},
                            Thread(k + 3).front()}),
                   {.start = 0.6f, .middle = 0.5f, .end = 0.7f});
    for (const int k : {0, 1, 2})
        DrawTwigs(pen, Thread(k), 0, 1, k == 1 ? 13 : 24, k == 1 ? 46 : 30, dice);
    brush.Stroke(Part(Thread(5), 0.52f, 1));
    brush.Stroke(Thread(6));
    brush.Stroke(Thread(8));
    canvas.Cover(smoke.Blur(2.5f), palette::Mist, 0.2f);
    // A breath of moonlight on their upper side.
    Mask above(W, H);
    for (int y = 0; y + 1 < H; y++)
        for (int x = 0; x < W; x++)
            above.At(x, y) = threads.At(x, y + 1) * (1 - threads.At(x, y));
    canvas.Cover(above.By([](float x, float) { return Night(x); }), palette::Mist, 0.35f);
    canvas.Cover(threads, palette::Ink, 0.88f);
}

static Canvas PaintPanorama()
{
    Canvas canvas(W, H);
    const Paper& paper = SketchPaper();
    // clang-format off
    const Ridge far({
        { -20, 342}, { 300, 352}, { 700, 330}, {1100, 362}, {1500, 352}, {2100, 352}, {2400, 318}, {2900, 338},
        {3100, 370}, {3300, 425}, {3700, 428}, {4116, 415}}, 10, 160, 200);
    const Ridge middle({
        { -20, 376}, { 260, 366}, { 620, 388}, {1060, 380}, {1500, 402}, {2000, 392}, {2300, 365}, {2480, 345},
        {2560, 300}, {2640, 286}, {2720, 304}, {2860, 328}, {3000, 332}, {3070, 350}, {3130, 410}, {3210, 446},
        {3700, 455}, {4116, 440}}, 5, 120, 201);
    const Ridge front({
        { -20, 720}, { 560, 620}, { 840, 540}, {1080, 500}, {1500, 492}, {1960, 484}, {2180, 515}, {2420, 620},
        {4116, 720}}, 6, 90, 202);
    const Ridge meadow({
        { -20, 800}, {2700, 640}, {2960, 556}, {3150, 490}, {3400, 460}, {3600, 453}, {3800, 457}, {4116, 440}}, 3, 90, 203);
    // clang-format on
    paper.Sheet(canvas, palette::Bone, 1.2f);
    PaintEvening(canvas, paper);
    PaintSun(canvas);
    PaintMoon(canvas, paper);
    PaintLand(canvas, paper, far, Mix(palette::Rust, palette::Ochre, 0.35f),
              Mix(palette::Slate, palette::Night, 0.35f), 0.3f, 230);
    PaintLand(canvas, paper, middle, Mix(palette::Rust, palette::Ochre, 0.12f) * 0.7f,
              Mix(palette::Night, palette::Ink, 0.3f), 0.2f, 240);
    DrawField(canvas, paper, middle);
    DrawWood(canvas, paper);
    PaintLand(canvas, paper, front, Mix(palette::Rust, palette::Ink, 0.7f), palette::Ink, 0.08f, 250);
    DrawGrass(canvas, paper, front, 700, 2460, 3600, Mix(palette::Rust, palette::Ink, 0.85f), 0.85f, 251);
    DrawGrass(canvas, paper, front, 700, 2460, 260, Mix(palette::Ochre, palette::Rust, 0.6f) * 0.5f, 0.6f,
              252);
    DrawHills(canvas, paper, middle);
    DrawClearing(canvas, paper, meadow);
    DrawThreads(canvas, paper);
    paper.Show(canvas, 0.3f);
    return canvas;
}

} // namespace panorama

Canvas SkyPart(int part)
{
    static const Canvas whole = panorama::PaintPanorama();
    return whole.Crop(part * panorama::PartWidth, 0, panorama::PartWidth, panorama::H);
}

} // namespace atelier
