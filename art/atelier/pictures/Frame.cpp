// SPDX-License-Identifier: MIT
// What frames the night: the loading picture and the start form's picture.
#include "art/atelier/Glow.h"
#include "art/atelier/PenAlphabet.h"
#include "art/atelier/Pictures.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/Wood.h"

namespace atelier
{

// On black: a thin moon that is just being drawn, and a line of staves that nobody has written on yet. Shown
// 614 wide and 269 high, so the round is drawn 1.14 times as high as wide.
static Canvas Loading()
{
    constexpr int W = 1024, H = 512;
    Canvas canvas(W, H, palette::Black);
    const Paper& paper = SketchPaper();

    Mask staves(W, H);
    Pen pen(staves, paper, {.width = 2.2f, .least = 0.3f, .wobble = 2.2f, .wave = 150, .skip = 0.14f}, 3);
    for (int i = 0; i < 5; i++)
        pen.Stroke(Through({{90 + 7.0f * float(i % 3), 372 + 17.0f * float(i)},
                            {380, 366 + 17.0f * float(i)},
                            {690, 374 + 17.0f * float(i)},
                            {930 - 9.0f * float(i % 2), 368 + 17.0f * float(i)}}),
                   {.start = 0.4f, .middle = 0.8f, .end = 0.1f});
    // The bar line that opens them, and no clef yet.
    pen.nib.width = 4;
    pen.Stroke(Through({{96, 366}, {93, 402}, {97, 446}}), {.start = 0.9f, .middle = 0.8f, .end = 0.7f});
    canvas.Light(staves, palette::Mist, 0.5f);

    // The moon: the outer round is nearly closed, the inner one begun; where the pen is now, light.
    Mask moon(W, H);
    Pen nib(moon, paper,
            {.width = 7, .least = 0.12f, .wobble = 1.6f, .wave = 70, .skip = 0.15f, .pool = 0.2f}, 5);
    const Vector2 centre = {512, 180};
    nib.Stroke(Arc(centre, 104, 119, -2.2f, 1.9f), {.start = 0.05f, .middle = 1, .end = 0.25f});
    nib.nib.width = 3;
    nib.Stroke(Arc(centre + Vector2{-42, -4}, 108, 124, -1.0f, 0.72f),
               {.start = 0.1f, .middle = 0.6f, .end = 0.5f});
    GlowAlong(canvas, moon, 70,
              {.core = palette::Bone, .halo = palette::Amber, .strength = 0.9f, .haloPart = 0.35f});
    // Shade, laid where the dark side will be, as far as the pen has come.
    Mask dark(W, H), hatching(W, H);
    dark.Fill(Arc(centre, 100, 115, -1.5f, 1.2f)).Erase(Ellipse(centre + Vector2{-42, -4}, 108, 124));
    Pen fine(hatching, paper, {.width = 1.8f, .skip = 0.2f, .pool = 0}, 6);
    Hatch(fine, dark.Blur(3), {.angle = -0.9f, .spacing = 7, .length = 60, .bend = 3}, 7);
    canvas.Light(hatching, palette::Amber, 0.5f);
    // And here is the pen now.
    GlowAt(canvas, PointAt(Arc(centre + Vector2{-42, -4}, 108, 124, -1.0f, 0.72f), 1), 3.5f, 46,
           {.strength = 0.9f});
    DarkenBorder(canvas, 24);
    return canvas;
}

// The start form's picture: the moon over the wood's edge, and the title. Painted three times as large.
static Canvas StartForm()
{
    constexpr int W = 1044, H = 414;
    constexpr Vector2 Moon = {268, 186};
    Canvas canvas(W, H);
    const Paper& paper = SketchPaper();
    paper.Sheet(canvas, palette::Bone, 1.2f);
    const WashStyle sky = {.pool = 0, .granulation = 0.25f, .bloom = 0.6f, .bloomSize = 200, .stray = 0};
    const Mask night = Mask(W, H).Each([&](float x, float y) {
        return Mix(1, 0.42f, Smooth(0, H, y)) * (1 - 0.55f * Bell(Length(Vector2{x, y} - Moon) / 260));
    });
    canvas.Glaze(WashDensity(paper, night, sky, 31), palette::Slate, 1.5f);
    canvas.Glaze(WashDensity(paper, night, sky, 32), palette::Slate, 0.6f);
    const Mask disc = Filled(W, H, Shaken(Ellipse(Moon, 118, 118), 1.5f, 70, 33));
    canvas.Light(disc.Blurred(50), palette::Amber, 0.28f);
    Canvas face(W, H);
    paper.Sheet(face, palette::Bone, 1);
    const Noise noise(34);
    const Mask seas = Mask(W, H).Each([&](float x, float y) {
        const Vector2 p = noise.Warp(x / 100, y / 100, 0.5f);
        return Smooth(0.02f, 0.12f, noise.Fbm(p.x, p.y, 4));
    });
    Wash(face, paper, seas,
         {.pigment = palette::Mist,
          .density = 0.4f,
          .granulation = 0.8f,
          .bloom = 0.9f,
          .bloomSize = 80,
          .stray = 5,
          .bleed = 24},
         35);
    const Mask limb = Mask(W, H).Each([&](float x, float y) {
        return Smooth(70, 120, Length(Vector2{x, y} - Moon));
    });
    face.Glaze(limb, palette::Ochre, 0.35f);
    canvas.Lay(face.CutOut(disc), 0, 0);

    Mask ground(W, H), far(W, H), near(W, H);
    const Noise hills(36);
    Line bank;
    for (float x = -6; x <= W + 6; x += 4)
        bank.push_back({x, 352 + 14 * hills.Fbm(x / 260, 0.5f, 3) + 20 * Smooth(400, W, x)});
    bank.push_back({W + 6, H + 6});
    bank.push_back({-6, H + 6});
    Pen farPen(far, paper, {.width = 2}, 37), pen(near, paper, {.width = 3}, 38);
    Dice dice(39);
    for (int i = 0; i < 26; i++) {
        const float x = 40.0f * (float(i) + dice.Unit());
        DrawDeadFir(farPen, {x, 374},
                    {.height = dice.Range(50, 150) * Smooth(1000, 300, x) + 24,
                     .trunk = 4,
                     .reach = 22,
                     .bare = 0.25f},
                    400 + uint32_t(i));
    }
    canvas.Cover(far, Mix(palette::Night, palette::Slate, 0.35f), 0.8f);
    DrawDeadTree(pen, {84, 396}, {.height = 400, .trunk = 20, .lean = 0.10f}, 41);
    for (const Vector2 f : {Vector2{392, 250}, Vector2{446, 160}, Vector2{180, 130}, Vector2{232, 96}})
        DrawDeadFir(pen, {f.x, 392}, {.height = f.y, .trunk = 9, .reach = f.y * 0.24f, .bare = 0.2f},
                    uint32_t(f.x));
    canvas.Cover(Filled(W, H, bank), palette::Ink, 0.97f);
    canvas.Cover(near, palette::Ink, 0.98f);

    Mask title(W, H);
    Pen quill(title, paper, {.width = 15, .least = 0.2f, .skip = 0.04f, .dry = 0.2f, .pool = 0.2f}, 42);
    Write(quill, "moonwaltz", {724, 224}, {.size = 100, .slant = 0.08f, .spacing = 1.2f, .lively = 0.5f},
          Anchor::Middle, 7);
    Pen fine(title, paper, {.width = 6, .least = 0.5f, .skip = 0, .dry = 0, .pool = 0.1f}, 43);
    Write(fine, "caution: flashing light", {724, 318},
          {.size = 43, .slant = 0.04f, .spacing = 1.25f, .lively = 0.2f}, Anchor::Middle, 8);
    canvas.Cover(title.Blurred(9), palette::Ink, 0.5f);
    canvas.Cover(title, palette::Bone, 0.96f);
    paper.Show(canvas, 0.4f);
    // The form goes on below in plain ink.
    canvas.Cover(Mask(W, H).Each([](float, float y) { return Smooth(H - 48, H - 9, y); }), palette::Ink);
    return Squeezed(canvas, 348, 138);
}

// clang-format off
PictureGroup FramePictures()
{
    return {"Frame", {
        {"Data/loading.jpg",                1024, 512, Format::Jpeg,    Loading},
        {"platform/embedded/start-form.png", 348, 138, Format::PngRgb, StartForm},
    }};
}
// clang-format on

} // namespace atelier
