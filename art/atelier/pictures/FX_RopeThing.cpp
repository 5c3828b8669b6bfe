// SPDX-License-Identifier: MIT
#include "art/atelier/Pen.h"
#include "art/atelier/Pictures.h"
#include "art/atelier/Wash.h"

namespace atelier
{

namespace
{

// The skin unwrapped side-on: head at the left, back at the top, belly at the bottom. It lies on the fish
// more than twice as long as it is drawn, so that the scales are drawn narrow and tall.
Canvas FishSkin()
{
    constexpr int Side = 512;
    constexpr float Size = Side, Wide = 18, Tall = 30;
    const Paper& paper = SketchPaper(512);
    const Noise tint(641), bend(642), own(643);
    // How far the scales go: behind the gills, which lie a quarter of the way back.
    const auto scaled = [](float x) { return Smooth(118, 150, x); };
    struct Place {
        float u, v; // across -1 to 1, and 0 to 1 at the free edge, which looks to the tail
        float name;
    };
    const auto scale = [&](float x, float y) {
        const float bent = y + 10 * bend.Fbm(x / 120, y / 120, 2);
        // A scale nearer the head lies over the next.
        for (int column = Floor(x / Wide) - 1;; ++column) {
            const float row = bent / Tall + (Wrap(column, 2) == 0 ? 0.0f : 0.5f);
            const float u = (row - static_cast<float>(Floor(row))) * 2 - 1;
            const float v = (x - static_cast<float>(column) * Wide) / (2 * Wide);
            if (v <= 1 - 0.5f * u * u)
                return Place{
                    u, v,
                    own.Value(static_cast<float>(column) * 3.7f, static_cast<float>(Floor(row)) * 5.3f)};
        }
    };
    Canvas canvas(Side, Side);
    canvas.Ground([&](float x, float y) {
        const float v = y / Size + 0.06f * tint.Fbm(x / 80, y / 80, 3);
        Colour c = Mix(Mix(palette::Ink, palette::Slate, 0.55f), Mix(palette::Ochre, palette::Rust, 0.35f),
                       Smooth(0.12f, 0.42f, v));
        c = Mix(c, palette::Amber * 0.9f, Smooth(0.38f, 0.62f, v));
        c = Mix(c, Mix(palette::Parchment, palette::Bone, 0.4f) * 0.9f, Smooth(0.66f, 0.92f, v));
        const Place s = scale(x, y);
        const float edge = 1 - 0.5f * s.u * s.u - s.v; // to the free edge
        const float ring = 0.5f + 0.5f * Sin(edge * 42);
        Colour skin = c * (0.70f + 0.45f * s.name);
        skin = skin * (0.85f + 0.15f * ring);
        skin = Mix(skin, palette::Bone, 0.35f * Hill(0.14f, 0.09f, edge)); // the edge that catches light
        skin = skin * (1 - 0.72f * Smooth(0.10f, 0.01f, edge));
        const Colour head = c * (0.85f + 0.4f * tint.Fbm(x / 14, y / 20, 4));
        return Mix(head, skin, scaled(x));
    });
    // Stains along the flank, as a trout's.
    const Mask stains = Mask(Side, Side).Each([&](float x, float y) {
        return Smooth(0.26f, 0.42f, tint.Fbm(x / 17 + 9, y / 36, 2)) * Smooth(0.75f, 0.5f, y / Size);
    });
    Wash(canvas, paper, stains,
         {.pigment = Mix(palette::Ink, palette::Rust, 0.25f), .density = 0.6f, .poolWidth = 2}, 644);
    Mask ink(Side, Side);
    Pen pen(ink, paper, {.width = 4, .wobble = 1, .wave = 26, .skip = 0.2f}, 645);
    // The gill cover, the plates of the cheek, and the side line.
    pen.Stroke(Through({{104, 60}, {136, 150}, {142, 260}, {128, 370}, {92, 450}}),
               {.start = 0.3f, .middle = 1, .end = 0.2f});
    pen.Stroke(Through({{120, 130}, {127, 240}, {114, 350}}), {.start = 0, .middle = 0.7f, .end = 0});
    pen.Stroke(Through({{60, 360}, {86, 320}, {92, 250}, {84, 190}}),
               {.start = 0.2f, .middle = 0.8f, .end = 0.1f});
    pen.Stroke(Through({{20, 300}, {44, 290}, {66, 300}}), {.start = 0.5f, .middle = 0.8f, .end = 0});
    Dice dice(646);
    for (int i = 0; i < 90; ++i)
        pen.Dot({dice.Range(6, 110), dice.Range(30, 330)}, dice.Range(0.8f, 2.6f));
    for (float x = 146; x < 505; x += 9)
        pen.Stroke(Straight({{x, 232 + 16 * Sin(x * 0.008f)}, {x + 5, 233 + 16 * Sin(x * 0.008f)}}),
                   {.start = 0.7f, .middle = 0.8f, .end = 0.5f});
    canvas.Cover(ink, palette::Ink, 0.85f);
    paper.Show(canvas, 0.4f);
    return canvas;
}

// The ball of the eye from the front; its rim goes on round the back.
Canvas FishEye()
{
    constexpr int Side = 256;
    constexpr Vec2 Middle = {128, 128};
    const Paper& paper = SketchPaper(256);
    const Noise iris(651), vein(652);
    Canvas canvas(Side, Side);
    canvas.Ground([&](float x, float y) {
        const Vec2 d = Vec2{x, y} - Middle;
        const float r = Length(d);
        const Vec2 way = Normalised(d);
        const float fibre = iris.Fbm(way.x * 9 + 20, way.y * 9 + r / 60, 4);
        Colour c = Mix(palette::Parchment, palette::Mist, 0.4f) * 0.8f; // the white
        c = Mix(c, palette::Rust,
                0.55f * Pow(vein.Ridges(way.x * 3 + r / 70, way.y * 3, 4), 3) * Smooth(80, 120, r));
        const Colour gold =
            Mix(palette::Amber, palette::Rust, Clamp(0.42f + 0.9f * fibre)) * (1 + 0.25f * Hill(58, 16, r));
        c = Mix(c, gold, Smooth(85, 81, r));
        c = Mix(c, palette::Ink, 0.85f * Hill(84, 9, r));
        c = Mix(c, palette::Bone, 0.7f * Hill(41, 4, r)); // a thin bright ring round the pupil
        return Mix(c, palette::Ink * 0.6f, Smooth(39, 36, r + 2.5f * iris.Gradient(way.x * 2, way.y * 2)));
    });
    Mask ink(Side, Side);
    Pen pen(ink, paper, {.width = 2.2f, .wobble = 0.8f, .wave = 14, .skip = 0.4f}, 653);
    Dice dice(654);
    for (int i = 0; i < 70; ++i) {
        const float a = dice.Range(0, 2 * Pi), from = dice.Range(44, 52), to = dice.Range(58, 80);
        const Vec2 way = {Cos(a), Sin(a)};
        pen.Stroke(Straight({Middle + way * to, Middle + way * from}),
                   {.start = 0.9f, .middle = 0.6f, .end = 0});
    }
    pen.nib.width = 5;
    pen.Stroke(Ellipse(Middle, 84, 83, 1), {.start = 0.6f, .middle = 1, .end = 0.3f});
    canvas.Cover(ink, palette::Ink, 0.75f);
    // The window that the night sees itself in.
    canvas.Light(Filled(Side, Side, Ellipse({106, 98}, 13, 9, -0.5f)).Blur(1.6f), palette::Bone, 0.9f);
    canvas.Light(Filled(Side, Side, Ellipse({150, 158}, 7, 4, -0.5f)).Blur(2), palette::ColdLight, 0.35f);
    paper.Show(canvas, 0.3f);
    return canvas;
}

} // namespace

// clang-format off
Group FX_RopeThingPictures()
{
    return {"FX_RopeThing", {
        {"Data/fischhaut.jpg",           512,  512, Format::Jpeg,    FishSkin},
        {"Data/fisheye.jpg",             256,  256, Format::Jpeg,    FishEye},
    }};
}
// clang-format on

} // namespace atelier
