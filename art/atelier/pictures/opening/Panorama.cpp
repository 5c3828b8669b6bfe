// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/opening/Panorama.h"

#include "art/atelier/pictures/SparkPaths.h"
#include "art/atelier/pictures/Wood.h"

#include <algorithm>

namespace atelier
{

namespace panorama
{

// Path `k` in pixels of the panorama.
Line Thread(int k)
{
    const int part = 1 + k / 3;
    return Moved(SparkPath(k, PartWidth, H), {float(PartWidth * part), 0});
}

float Night(float x)
{
    return Smooth(900, 2400, x);
}

WashStyle SkyWash()
{
    return {.pool = 0, .granulation = 0.2f, .bloom = 0.5f, .bloomSize = 260, .stray = 0};
}

// Adds a soft puff, of at most the given amount in its middle.
static void AddPuff(Mask& smoke, Vector2 centre, float radius, float amount)
{
    const int reach = Floor(radius * 2) + 1, cx = Floor(centre.x), cy = Floor(centre.y);
    for (int y = std::max(0, cy - reach); y <= std::min(H - 1, cy + reach); y++)
        for (int x = std::max(0, cx - reach); x <= std::min(W - 1, cx + reach); x++) {
            float& value = smoke.At(x, y);
            const float d = Length(Vector2{float(x) + 0.5f, float(y) + 0.5f} - centre);
            value += (1 - value) * amount * Bell(d / radius);
        }
}

// The smoke of the house drifts along these ways: a wisp at the chimney, a torn veil where the wind has had it.
static void PaintSmoke(Canvas& canvas, const std::vector<Line>& ways)
{
    Mask smoke(W, H);
    Dice dice(701);
    float whole = 0, gone = 0;
    for (const Line& way : ways)
        whole += LengthOf(way);
    for (const Line& way : ways) {
        const float length = LengthOf(way);
        for (float s = 0; s < length; s += 2.5f) {
            const float t = (gone + s) / whole, wide = 4 + 34 * t;
            const Vector2 d = DirectionAt(way, s / length), aside = {-d.y, d.x};
            const Vector2 drift = aside * (wide * 0.5f * dice.Bell()) + Vector2{0, -0.35f * wide};
            AddPuff(smoke, PointAt(way, s / length) + drift, wide * dice.Range(0.25f, 0.8f),
                    0.22f * (1 - 0.7f * t) * dice.Unit());
        }
        gone += length;
    }
    const Noise torn(703);
    smoke.By([&](float x, float y) {
        const Vector2 p = torn.Warp(x / 150, y / 60, 0.5f, 3);
        return Clamp(0.45f + 1.1f * torn.Fbm(p.x, p.y, 4) + 0.5f * torn.Ridges(p.x * 2, p.y * 2, 2));
    });
    canvas.Cover(smoke.Shake(9, 60, 704), Mix(palette::Slate, palette::Mist, 0.5f), 0.75f);
}

// The nine threads themselves, of a hand that presses and lifts. From one picture to the next they go on where nobody
// looks.
static void DrawThreads(Canvas& canvas, const Paper& paper)
{
    constexpr float Chimney = 0.52f; // up to here the lower wire is a wire, from here on smoke
    Mask threads(W, H), gleams(W, H);
    const Nib nib = {.width = 2.7f,
                     .least = 0.1f,
                     .wobble = 0,
                     .wave = 64,
                     .wander = 0.75f,
                     .skip = 0.3f,
                     .dry = 0.35f,
                     .pool = 0};
    Pen pen(threads, paper, nib, 700);
    Pen gleam(gleams, paper,
              {.width = 1.3f,
               .least = 0,
               .wobble = 0.3f,
               .wave = 40,
               .wander = 1,
               .skip = 0.9f,
               .dry = 0.6f,
               .pool = 0},
              705);
    Dice dice(702);
    for (int k = 0; k < SparkPathCount; k++) {
        if (k == 4 || k == 7)
            continue; // a root and a bough
        const float wire = k == 5 ? Chimney : k == 8 ? 0.0f : 1.0f;
        const Line thread = Thread(k);
        if (wire > 0) {
            pen.Stroke(Part(thread, 0, wire), {.start = 0.7f, .middle = 0.85f, .end = 0.6f});
            gleam.Stroke(Beside(Part(thread, 0, wire), -1.6f), {.start = 0.4f, .middle = 0.9f, .end = 0.3f});
        }
        if (wire < 1)
            pen.Stroke(Part(thread, wire, 1), {.start = 0.3f, .middle = 0.32f, .end = 0.2f});
    }
    for (int k = 0; k + 3 < SparkPathCount; k++)
        pen.Stroke(
            Through({Thread(k).back(), Mix(Thread(k).back(), Thread(k + 3).front(), 0.5f) + Vector2{0, 2},
                     Thread(k + 3).front()}),
            {.start = 0.5f, .middle = k == 5 ? 0.3f : 0.5f, .end = 0.5f});
    for (const int k : {0, 1, 2})
        DrawTwigs(pen, Thread(k), 0, 1, k == 1 ? 13 : 24, k == 1 ? 46 : 30, dice);
    PaintSmoke(canvas, {Part(Thread(5), Chimney, 1), Thread(8)});
    canvas.Cover(threads, palette::Ink, 0.86f);
    // A breath of moonlight on them, here and there.
    const Noise moonlight(706);
    gleams.By(
        [&](float x, float y) { return Night(x) * Smooth(0.02f, 0.35f, moonlight.Fbm(x / 60, y / 40, 3)); });
    canvas.Cover(gleams, palette::Mist, 0.32f);
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
