// SPDX-License-Identifier: MIT
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
    canvas.Cover(Mask(Side, Side, 1), Mix(palette::Rust, palette::Night, 0.6f));
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
    canvas.Cover(bars, Mix(palette::Rust, palette::Ink, 0.75f));
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

Canvas RingOfLight()
{
    constexpr int Side = 512;
    Canvas canvas(Side, Side, palette::Black);
    Mask line(Side, Side), echo(Side, Side);
    Pen pen(line, SketchPaper(),
            {.width = 7, .least = 0.2f, .wobble = 2, .wave = 90, .wander = 0.6f, .skip = 0.1f}, 571);
    pen.Stroke(Turned(Ellipse({256, 256}, 196, 193), 1.0f, {256, 256}),
               {.start = 0.2f, .middle = 1, .end = 0.3f});
    pen.nib.width = 3;
    pen.Stroke(Turned(Ellipse({258, 254}, 204, 201), 3.4f, {256, 256}),
               {.start = 0, .middle = 0.7f, .end = 0});
    Pen faint(echo, SketchPaper(), {.width = 2.5f, .wobble = 2.5f, .wave = 120, .skip = 0.5f}, 572);
    faint.Stroke(Turned(Ellipse({255, 257}, 178, 181), 5, {256, 256}),
                 {.start = 0, .middle = 0.8f, .end = 0});
    GlowAlong(canvas, line, 34, {.strength = 0.9f, .haloPart = 0.4f});
    GlowAlong(canvas, echo, 14, {.strength = 0.4f, .haloPart = 0.3f});
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
