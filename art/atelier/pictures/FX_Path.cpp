// SPDX-License-Identifier: MIT
#include "art/atelier/DryBrush.h"
#include "art/atelier/Glow.h"
#include "art/atelier/Pen.h"
#include "art/atelier/Pictures.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/town/Town.h"

namespace atelier
{

namespace
{

// A window in its frame. The frame stands a little inside the picture, so that its uneven edge shows.
Canvas Window(bool lit)
{
    constexpr int Side = 128;
    constexpr float Size = Side, Middle = Size / 2;
    const Paper& paper = SketchPaper(256);
    const Noise glass(561);
    const Line opening =
        Shaken(Straight({{15, 15}, {113, 14}, {114, 113}, {14, 114}, {15, 15}}), 1.2f, 30, 562);
    const Mask frame =
        Filled(Side, Side, Shaken(Straight({{5, 6}, {122, 5}, {123, 122}, {5, 122}, {5, 6}}), 1.6f, 24, 563));
    Canvas canvas(Side, Side);
    canvas.Cover(Mask(Side, Side, 1), Mix(palette::Rust, palette::Ink, 0.72f));
    const Mask inner = Filled(Side, Side, opening);
    canvas.Cover(inner, [&](float x, float y) {
        const float cloud = 0.12f * glass.Fbm(x / 30, y / 30, 3);
        if (!lit)
            return Mix(palette::Night, palette::Slate,
                       Clamp(0.25f + 0.5f * Smooth(110, 10, x * 0.4f + y) + cloud));
        // The lamp hangs behind the upper middle.
        const float lamp = Bell(Length({x - Middle, (y - 52) * 0.85f}) / 52);
        return Mix(palette::Ochre * 0.8f, Mix(palette::Amber, palette::Bone, 0.45f * lamp),
                   Clamp(lamp + cloud));
    });
    Mask ink(Side, Side), cloth(Side, Side);
    Pen pen(ink, paper, {.width = 3, .wobble = 0.6f, .wave = 24, .skip = 0.15f}, 564);
    for (const float side : {-1.0f, 1.0f}) {
        const float edge = Middle + side * 49;
        const auto in = [&](float by) { return edge - side * by; };
        cloth.Fill(Through({{edge, 15},
                            {in(44), 15},
                            {in(36), 44},
                            {in(17), 72},
                            {in(22), 90},
                            {in(28), 113},
                            {edge, 113}}));
        pen.nib.width = 2;
        for (int fold = 0; fold < 4; ++fold) {
            const float by = 9 * static_cast<float>(fold);
            pen.Stroke(Through({{in(6 + by * 1.2f), 16},
                                {in(4 + by * 0.8f), 50},
                                {in(3 + by * 0.45f), 73},
                                {in(4 + by * 0.6f), 112}}),
                       {.start = 0.7f, .middle = 0.7f, .end = 0.2f});
        }
    }
    if (lit) {
        canvas.Cover(cloth, Mix(palette::Rust, palette::Amber, 0.35f), 0.78f);
        canvas.Cover(ink, Mix(palette::Rust, palette::Ink, 0.4f), 0.8f);
    } else {
        canvas.Cover(cloth, Mix(palette::Slate, palette::Mist, 0.25f), 0.5f);
        canvas.Cover(ink, palette::Ink, 0.7f);
    }
    Mask bars(Side, Side);
    Pen joiner(bars, paper, {.width = 7, .wobble = 0.7f, .wave = 40, .skip = 0, .dry = 0}, 565);
    joiner.Stroke(Straight({{Middle, 10}, {Middle + 1, 118}}), {.start = 1, .middle = 0.9f, .end = 1});
    joiner.Stroke(Straight({{10, 56}, {118, 57}}), {.start = 1, .middle = 0.9f, .end = 1});
    joiner.nib.width = 4;
    joiner.Stroke(opening, {.start = 1, .middle = 0.9f, .end = 1});
    canvas.Cover(bars, Mix(palette::Rust, palette::Ink, 0.8f));
    if (lit)
        canvas.Light(inner.Blurred(7), palette::Amber, 0.10f);
    paper.Show(canvas, lit ? 0.25f : 0.5f);
    canvas.CutOut(frame);
    return canvas;
}

Canvas LitWindow()
{
    return Window(true);
}
Canvas DarkWindow()
{
    return Window(false);
}

// It is laid twice over the whole view, once so large that only what lies within two thirds of the way to the
// border is seen: one ring round the fire, one that opens and closes. Drawn in three goes of a brush that
// does not come back to where it began; embers fly off it.
Canvas RingOfLight()
{
    constexpr int Side = 512;
    constexpr Vec2 Middle = {256, 256};
    constexpr float Radius = 122;
    const Paper& paper = SketchPaper();
    Canvas canvas(Side, Side, palette::Black);
    Mask line(Side, Side), echo(Side, Side), embers(Side, Side);
    DryBrush brush(line, paper,
                   {.width = 11, .count = 9, .thickness = 1.3f, .load = 0.75f, .ragged = 0.3f, .wave = 90},
                   571);
    const auto sweep = [&](float radius, float from, float to, float drift) {
        Line arc;
        for (int i = 0; i <= 160; ++i) {
            const float t = static_cast<float>(i) / 160, a = Mix(from, to, t);
            arc.push_back(Middle + Vec2{Cos(a), Sin(a) * 0.985f} * (radius + drift * t));
        }
        return Shaken(arc, 2.5f, 120, static_cast<uint32_t>(from * 100) + 5);
    };
    brush.Stroke(sweep(Radius, 0.4f, 3.9f, 4), 0.9f);
    brush.bristles.width = 7;
    brush.Stroke(sweep(Radius + 3, 3.5f, 5.8f, -3), 0.7f);
    brush.bristles.width = 4;
    brush.Stroke(sweep(Radius - 3, 5.5f, 7.3f, 2), 0.8f);
    Pen faint(echo, paper, {.width = 2.2f, .wobble = 2.5f, .wave = 120, .skip = 0.5f}, 572);
    faint.Stroke(sweep(Radius + 17, 4.4f, 8.2f, -6), {.start = 0, .middle = 0.8f, .end = 0});
    faint.Stroke(sweep(Radius - 14, 1.2f, 3.4f, 5), {.start = 0, .middle = 0.7f, .end = 0});
    faint.Stroke(sweep(Radius + 66, 0.2f, 5.2f, 10), {.start = 0, .middle = 0.8f, .end = 0});
    Pen fleck(embers, paper, {.width = 2, .wobble = 0.5f}, 573);
    Dice dice(574);
    for (int i = 0; i < 90; ++i) {
        const float a = dice.Range(0, 2 * Pi), out = Radius + dice.Bell() * 9 + 26 * Pow(dice.Unit(), 2);
        const Vec2 p = Middle + Vec2{Cos(a), Sin(a)} * out, way = {-Sin(a + 0.5f), Cos(a + 0.5f)};
        fleck.Stroke(Straight({p, p + way * dice.Range(1.5f, 7)}, 1),
                     {.start = 0.9f, .middle = dice.Range(0.2f, 0.8f), .end = 0});
    }
    GlowAlong(canvas, line, 40,
              {.core = Mix(palette::Bone, palette::Amber, 0.35f), .strength = 0.62f, .haloPart = 0.28f});
    GlowAlong(canvas, echo, 14,
              {.core = palette::Amber, .halo = palette::Ochre, .strength = 0.30f, .haloPart = 0.3f});
    GlowAlong(canvas, embers, 10,
              {.core = palette::Amber, .halo = palette::Rust, .strength = 0.6f, .haloPart = 0.4f});
    DarkenBorder(canvas, 24);
    return canvas;
}

} // namespace

// clang-format off
Group FX_PathPictures()
{
    return {"FX_Path", {
        {"Data/budentextur.jpg",        1024, 1024, Format::Jpeg,    HouseWalls},
        {"Data/licht-an.png",            128,  128, Format::PngRgba, LitWindow},
        {"Data/licht-aus.png",           128,  128, Format::PngRgba, DarkWindow},
        {"Data/teststreifen.png",       1024,  256, Format::PngRgba, ScoreStrip},
        {"Data/ackerbau_tiled3.jpg",    1024, 1024, Format::Jpeg,    FieldTile},
        {"Data/ackerbau_tiled2.jpg",    1024, 1024, Format::Jpeg,    Plaza},
        {"Data/skybox_left.jpg",        1024,  512, Format::Jpeg,    NightLeft},
        {"Data/skybox_back.jpg",        1024,  512, Format::Jpeg,    NightBack},
        {"Data/skybox_right.jpg",       1024,  512, Format::Jpeg,    NightRight},
        {"Data/skybox_top.jpg",         1024, 1024, Format::Jpeg,    NightTop},
        {"Data/ring.jpg",                512,  512, Format::Jpeg,    RingOfLight},
    }};
}
// clang-format on

} // namespace atelier
