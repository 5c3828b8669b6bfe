// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/opening/Panorama.h"

#include "art/atelier/DryBrush.h"
#include "art/atelier/Glow.h"
#include "art/atelier/pictures/Wood.h"

namespace atelier::panorama
{

// A leaning pole with a crossbar whose place on the wire is given.
static void DrawPole(Pen& pen, Vector2 wire, float foot, Dice& dice)
{
    const float lean = dice.Range(-7, 7);
    pen.nib.width = 5;
    pen.Stroke(
        Through({{wire.x + lean, foot}, {wire.x + lean * 0.4f, (wire.y + foot) / 2}, {wire.x, wire.y - 9}}),
        {.start = 1, .middle = 0.85f, .end = 0.6f});
    pen.nib.width = 3.4f;
    for (float bar = 2; bar < 20; bar += 13) {
        pen.Stroke(
            Through(
                {{wire.x - 15, wire.y + bar + 2}, {wire.x, wire.y + bar}, {wire.x + 15, wire.y + bar - 1}}),
            {.start = 0.7f, .middle = 0.9f, .end = 0.7f});
        for (float side = -13; side < 16; side += 26)
            pen.Dot({wire.x + side, wire.y + bar - 3}, 1.8f);
    }
}

// Two who dance, small, before the moon. Drawn with the woman's skirt swinging out.
static void DrawDancers(Mask& ink, const Paper& paper, Vector2 foot)
{
    Pen pen(ink, paper, {.width = 3, .wobble = 0.2f, .skip = 0, .pool = 0}, 600);
    // He.
    ink.Fill(Ellipse(foot + Vector2{-7, -43}, 3.2f, 3.8f));
    ink.Fill(Limb(Through({foot + Vector2{-7, -39}, foot + Vector2{-7, -28}, foot + Vector2{-8, -19}}, 1),
                  3.2f, 4, 3));
    pen.Stroke(Through({foot + Vector2{-8, -21}, foot + Vector2{-12, -10}, foot + Vector2{-16, 0}}, 1),
               {.start = 1, .middle = 0.9f, .end = 0.5f});
    pen.Stroke(Through({foot + Vector2{-7, -21}, foot + Vector2{-4, -10}, foot + Vector2{-5, 1}}, 1),
               {.start = 1, .middle = 0.9f, .end = 0.5f});
    // She leans back.
    ink.Fill(Ellipse(foot + Vector2{7, -40}, 3, 3.6f, 0.4f));
    ink.Fill(Limb(Through({foot + Vector2{5, -37}, foot + Vector2{4, -28}, foot + Vector2{5, -22}}, 1), 2.6f,
                  2.6f, 2.4f));
    ink.Fill(
        Round({foot + Vector2{3, -24}, foot + Vector2{8, -23}, foot + Vector2{16, -12},
               foot + Vector2{25, -3}, foot + Vector2{12, 1}, foot + Vector2{3, 1}, foot + Vector2{-1, -8}},
              1));
    // Arms: one round her, two stretched out as one.
    pen.nib.width = 2.2f;
    pen.Stroke(Through({foot + Vector2{-6, -35}, foot + Vector2{0, -30}, foot + Vector2{6, -29}}, 1),
               {.start = 1, .middle = 1, .end = 0.7f});
    pen.Stroke(Through({foot + Vector2{-7, -36}, foot + Vector2{-15, -37}, foot + Vector2{-21, -42}}, 1),
               {.start = 1, .middle = 0.8f, .end = 0.4f});
    pen.Stroke(Through({foot + Vector2{5, -35}, foot + Vector2{-4, -38}, foot + Vector2{-20, -42}}, 1),
               {.start = 0.9f, .middle = 0.7f, .end = 0.4f});
}

// A root in the cut earth: round, knotted, pale where the moon comes in from above, with the earth dark below it.
static void DrawRoot(Canvas& canvas, const Paper& paper, const Line& way, Dice& dice)
{
    Mask root(W, H), bark(W, H);
    Pen pen(
        root, paper,
        {.width = 15, .least = 0.3f, .wobble = 0, .wave = 80, .wander = 0.6f, .skip = 0, .dry = 0, .pool = 0},
        502);
    pen.Stroke(way, {.start = 0.2f, .middle = 0.55f, .end = 1});
    for (int i = 0; i < 22; i++) { // side roots go down and forward
        const float t = (float(i) + dice.Unit()) / 22;
        const float side = dice.Chance(0.7f) ? 1.0f : -1.0f;
        DrawBranch(pen, PointAt(way, t), Angle(DirectionAt(way, t)) + side * dice.Range(0.5f, 1.2f),
                   dice.Range(18, 52), 3.2f + 2.6f * t, 3, {.gnarl = 0.34f, .rise = -0.1f, .spread = 0.7f},
                   dice);
    }
    const Noise rough(509);
    Mask lit(W, H), shade(W, H), below(W, H);
    for (int y = 6; y + 5 < H; y++)
        for (int x = 0; x < W; x++) {
            const float here = root.At(x, y), fx = float(x), fy = float(y);
            below.At(x, y) = root.At(x, y - 6);
            if (here <= 0)
                continue;
            lit.At(x, y) =
                here * (1 - root.At(x, y - 3)) * Smooth(-0.1f, 0.3f, rough.Fbm(fx / 16, fy / 9, 3));
            shade.At(x, y) = here * (1 - root.At(x, y + 4));
        }
    DryBrush fibres(bark, paper,
                    {.width = 9, .count = 5, .thickness = 1.2f, .load = 0.5f, .ragged = 0.4f, .wave = 30},
                    510);
    for (float t = 0.02f; t < 0.95f; t += 0.05f)
        fibres.Stroke(Beside(Part(way, t, Min(t + dice.Range(0.05f, 0.12f), 1)), dice.Range(-2, 3)), 0.9f);
    canvas.Cover(below.Blur(5), palette::Ink, 0.55f);
    canvas.Cover(
        root,
        [&](float x, float y) {
            return Mix(Mix(palette::Slate, palette::Night, 0.5f),
                       Mix(palette::Slate, palette::Parchment, 0.2f) * 0.8f,
                       Clamp(0.5f + rough.Fbm(x / 60, y / 30, 3)));
        },
        0.92f);
    canvas.Cover(shade, palette::Ink, 0.8f);
    canvas.Cover(bark.Multiply(root), palette::Ink, 0.6f);
    canvas.Cover(lit.Blur(0.5f), Mix(palette::Mist, palette::Parchment, 0.35f), 0.5f);
}

void DrawHills(Canvas& canvas, const Paper& paper, const Ridge& ridge)
{
    constexpr float X0 = 2 * PartWidth;
    Dice dice(500);
    Mask ink(W, H), stones(W, H);
    Pen pen(ink, paper, {.width = 3, .wobble = 0.5f, .skip = 0.05f, .pool = 0}, 501),
        stonePen(stones, paper, {.width = 1.5f}, 503);

    // Poles where the upper wire wants them, a second wire below it that hangs as wires hang.
    const Line wire = Thread(3);
    std::vector<Vector2> tops;
    for (const float t : {0.045f, 0.27f, 0.5f, 0.735f, 0.975f})
        tops.push_back(PointAt(wire, t));
    for (size_t i = 0; i < tops.size(); i++) {
        DrawPole(pen, tops[i], ridge.At(tops[i].x) + 14, dice);
        if (i + 1 < tops.size()) {
            pen.nib.width = 1.5f;
            const Vector2 a = tops[i] + Vector2{13, 12}, b = tops[i + 1] + Vector2{-13, 12};
            pen.Stroke(Through({a, Mix(a, b, 0.25f) + Vector2{0, 17}, Mix(a, b, 0.5f) + Vector2{0, 24},
                                Mix(a, b, 0.75f) + Vector2{0, 18}, b}),
                       {.start = 0.6f, .middle = 0.5f, .end = 0.6f});
        }
    }
    // The lower wire runs along posts to the house; what leaves the house's chimney goes on as smoke.
    const Line lower = Thread(5);
    for (const float t : {0.02f, 0.075f, 0.14f, 0.21f, 0.275f, 0.335f, 0.385f}) {
        const Vector2 p = PointAt(lower, t);
        pen.nib.width = 3.2f;
        pen.Stroke(Straight({{p.x + dice.Range(-3, 3), ridge.At(p.x) + 8}, {p.x, p.y - 3}}),
                   {.start = 1, .middle = 0.9f, .end = 0.7f});
    }
    const float left = X0 + 545, ground = ridge.At(X0 + 575) + 6;
    ink.Fill(Shaken(Straight({{left, ground},
                              {left + 3, ground - 25},
                              {left - 5, ground - 23},
                              {left + 19, ground - 44},
                              {left + 38, ground - 42},
                              {left + 38, ground - 52},
                              {left + 47, ground - 52},
                              {left + 47, ground - 38},
                              {left + 62, ground - 21},
                              {left + 55, ground - 23},
                              {left + 56, ground}}),
                    1.2f, 14, 504));
    canvas.Cover(ink, palette::Ink, 0.97f);
    Mask window(W, H);
    window.Fill(Shaken(Straight({{left + 13, ground - 18},
                                 {left + 25, ground - 19},
                                 {left + 25, ground - 6},
                                 {left + 13, ground - 6}}),
                       0.6f, 8, 505));
    canvas.Cover(window.Blurred(0.5f), palette::Amber);
    Mask bars(W, H);
    Pen barPen(bars, paper, {.width = 1.4f, .wobble = 0.2f}, 506);
    barPen.Stroke(Straight({{left + 19, ground - 20}, {left + 19, ground - 5}}));
    barPen.Stroke(Straight({{left + 12, ground - 12}, {left + 26, ground - 13}}));
    canvas.Cover(bars, palette::Ink);
    GlowAt(canvas, {left + 19, ground - 12}, 2, 60,
           {.core = {0, 0, 0}, .halo = palette::Amber, .strength = 0.5f});

    // The hill is cut open in front: stones, and the long root with its rootlets.
    Dice pebble(507);
    for (int i = 0; i < 90; i++) {
        const float x = X0 + pebble.Range(-40, 1080), y = pebble.Range(350, H);
        const float size = 2 + 10 * pebble.Unit() * pebble.Unit();
        if (y > ridge.At(x) + 26 + size)
            stonePen.Stroke(
                Turned(Shaken(Arc({x, y}, size * 1.7f, size, pebble.Range(-4, -2.6f), pebble.Range(-0.4f, 1)),
                              size * 0.4f, size * 2, 520 + uint32_t(i)),
                       pebble.Range(-0.3f, 0.3f), {x, y}),
                {.start = 0.1f, .middle = 0.6f, .end = 0});
    }
    DryBrush earth(stones, paper, {.width = 26, .count = 9, .thickness = 1.3f, .load = 0.4f, .ragged = 0.5f},
                   508);
    for (int i = 0; i < 60; i++) {
        const float x = X0 + pebble.Range(-40, 1080), y = ridge.At(x) + pebble.Range(20, 170),
                    w = pebble.Range(40, 110);
        earth.Stroke(Through({{x - w, y + (ridge.At(x - w) - ridge.At(x)) * 0.7f},
                              {x, y},
                              {x + w, y + (ridge.At(x + w) - ridge.At(x)) * 0.7f}}),
                     0.8f);
    }
    canvas.Cover(stones, Mix(palette::Slate, palette::Mist, 0.3f), 0.28f);
    DrawRoot(canvas, paper, Thread(4), dice);
}

void DrawClearing(Canvas& canvas, const Paper& paper, const Ridge& ridge)
{
    Mask back(W, H), ink(W, H);
    Pen backPen(back, paper, {.width = 2, .wobble = 0.6f}, 610),
        pen(ink, paper, {.width = 3, .pool = 0}, 611);
    Dice dice(612);
    for (int i = 0; i < 30; i++) {
        const float x = 3110 + 1000 * (float(i) + dice.Unit()) / 30;
        const float beside = Smooth(100, 400, Abs(x - Moon.x));
        DrawDeadFir(backPen, {x, 440},
                    {.height = 26 + 120 * beside * dice.Range(0.5f, 1),
                     .trunk = 4,
                     .reach = 6 + 16 * beside,
                     .bare = 0.25f,
                     .lean = dice.Range(-4, 4)},
                    620 + uint32_t(i));
    }
    canvas.Cover(back, Mix(palette::Night, palette::Slate, 0.4f), 0.85f);
    PaintLand(canvas, paper, ridge, palette::Night, palette::Ink, 0.2f, 660);
    // The tree that leans out of the bank, its bough along the thread, reaching for the moon.
    const Line bough = Thread(7);
    // Before the moon its light eats at it: the title stands there, and must not fight with a bough.
    Mask reaching(W, H);
    Pen arm(reaching, paper,
            {.width = 26, .least = 0.03f, .wobble = 0, .wander = 0.15f, .skip = 0, .pool = 0}, 662);
    Line trunk = Through({Thread(4).back(), bough.front(), PointAt(bough, 0.06f)});
    trunk.insert(trunk.end(), bough.begin() + long(float(bough.size()) * 0.065f), bough.end());
    arm.Stroke(trunk, {.start = 0.28f, .middle = 0.42f, .end = 0});
    arm.nib = {.width = 3, .wobble = 0.6f, .skip = 0.05f, .pool = 0};
    DrawTwigs(arm, bough, 0.15f, 1, 16, 95, dice);
    const float limb = Mix(bough.front().x, bough.back().x, 0.56f), tip = bough.back().x;
    canvas.Cover(
        reaching,
        [&](float x, float) {
            return Mix(palette::Ink, Mix(palette::Slate, palette::Parchment, 0.3f),
                       0.85f * Smooth(limb, Mix(limb, tip, 0.7f), x));
        },
        0.97f);
    // Firs on the right close the picture.
    for (const Vector2 f : {Vector2{3925, 500}, Vector2{3985, 520}, Vector2{4050, 505}, Vector2{4085, 530}})
        DrawDeadFir(pen, f,
                    {.height = dice.Range(270, 440),
                     .trunk = 12,
                     .reach = 78,
                     .bare = 0.16f,
                     .lean = dice.Range(-14, 6)},
                    uint32_t(f.x));
    DrawDancers(ink, paper, {3668, 458});
    canvas.Cover(ink, palette::Ink, 0.97f);
    DrawGrass(canvas, paper, ridge, 3000, W + 10, 700, Mix(palette::Slate, palette::Night, 0.55f), 0.7f, 615);
}

} // namespace atelier::panorama
