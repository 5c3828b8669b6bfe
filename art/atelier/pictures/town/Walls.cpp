// SPDX-License-Identifier: MIT
// The walls of the village's houses and of the towers: four side by side, joining at their edges.
#include "art/atelier/DryBrush.h"
#include "art/atelier/Pen.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/town/Town.h"

namespace atelier
{

namespace
{

constexpr float Size = 1024;
constexpr int Side = 1024;
constexpr float WallWidth = 256, WallTop = 256, WallFoot = 768;
constexpr float RoofLeft = 768, RoofFoot = 256;

Mask Roof()
{
    return Filled(Side, Side, Rectangle(RoofLeft, 0, Size, RoofFoot));
}

// Timber: one beam from place to place.
struct Beam {
    Vec2 from, to;
    float width;
};

void DrawBeam(Mask& timber, Pen& pen, DryBrush& grain, const Beam& beam, uint32_t seed)
{
    const Line spine = Straight({beam.from, beam.to});
    const Line body = Shaken(Limb(spine, beam.width / 2, beam.width / 2, beam.width / 2), 2, 40, seed);
    timber.Fill(body);
    pen.nib.width = 3.4f;
    pen.Stroke(Shaken(Beside(spine, beam.width / 2), 2, 50, seed),
               {.start = 0.8f, .middle = 0.9f, .end = 0.6f});
    pen.Stroke(Shaken(Beside(spine, -beam.width / 2), 2, 50, seed + 1),
               {.start = 0.6f, .middle = 0.7f, .end = 0.5f});
    grain.bristles.width = beam.width * 0.8f;
    grain.Stroke(spine);
}

void DrawDoor(Mask& wood, Pen& pen, float left, float right, float top)
{
    const float middle = (left + right) / 2;
    const Line outline = Through({{left, WallFoot - 40},
                                  {left + 1, top + 24},
                                  {middle, top},
                                  {right - 1, top + 24},
                                  {right, WallFoot - 40}});
    Line closed = outline;
    closed.push_back({right, WallFoot});
    closed.push_back({left, WallFoot});
    wood.Fill(closed);
    pen.nib.width = 5;
    pen.Stroke(Line(closed), {.start = 0.9f, .middle = 1, .end = 0.8f});
    pen.nib.width = 2.4f;
    for (float x = left + 13; x < right - 6; x += 13)
        pen.Stroke(Straight({{x, top + 16}, {x + 1, WallFoot - 4}}),
                   {.start = 0.3f, .middle = 0.9f, .end = 0.4f});
    for (const float y : {top + 46, WallFoot - 62}) {
        pen.nib.width = 6;
        pen.Stroke(Straight({{left + 4, y}, {right - 16, y + 2}}), {.start = 1, .middle = 0.8f, .end = 0.2f});
    }
    pen.Dot({right - 12, (top + WallFoot) / 2}, 4);
}

} // namespace

Canvas HouseWalls()
{
    const Paper& paper = SketchPaper();
    const Noise tint(501, 8, 8), stone(502, 28, 28), damp(503, 6, 6);
    Canvas canvas(Side, Side);
    canvas.Ground([&](float x, float y) {
        const float t = 0.5f + 0.6f * tint.Fbm(x / Size * 8, y / Size * 8, 5);
        const float wet = Smooth(560, 760, y + 120 * damp.Fbm(x / Size * 6, y / Size * 6, 3));
        const Colour plaster =
            Mix(Mix(palette::Parchment, palette::Mist, 0.35f), palette::Bone, 0.5f * Clamp(t));
        return Mix(plaster * 0.72f, Mix(palette::Slate, palette::Moss, 0.4f), 0.55f * wet);
    });
    const Mask blots = Mask(Side, Side, 0, true).Each([&](float x, float y) {
        return Smooth(0.08f, 0.3f, damp.Fbm(x / Size * 6 + 2, y / Size * 6, 4));
    });
    Wash(canvas, paper, blots,
         {.pigment = Mix(palette::Ochre, palette::Mist, 0.4f), .density = 0.45f, .stray = 6}, 504);
    Mask timber(Side, Side, 0, true), ink(Side, Side, 0, true), grain(Side, Side, 0, true), wood(Side, Side);
    Pen pen(ink, paper, {.width = 3, .wobble = 1, .wave = 40, .skip = 0.3f}, 505);
    DryBrush brush(grain, paper, {.width = 18, .count = 9, .thickness = 1.3f, .load = 0.5f}, 506);
    Dice dice(507);
    // Plaster cracks where nothing holds it.
    for (int i = 0; i < 46; ++i) {
        const Vec2 p = {dice.Range(0, Size), dice.Range(WallTop, WallFoot)};
        pen.nib.width = 1.6f;
        pen.Stroke(Shaken(Through({p, p + Vec2{dice.Range(-16, 16), dice.Range(10, 34)}}), 4, 9, dice.Next()),
                   {.start = 0.7f, .middle = 0.6f, .end = 0});
    }
    // Each wall has a beam at its sill, its middle and its head, and braces of its own; the doors are on the
    // two walls that look at the way.
    struct Frame {
        Vec2 braceFrom, braceTo, otherFrom, otherTo;
        float studs[2];
        float door; // left edge, 0: none
    };
    // clang-format off
    constexpr Frame Frames[4] = {
        {{ 14, 500}, { 92, 408}, {242, 500}, {170, 400}, { 92, 170}, 152},
        {{ 14, 740}, {110, 520}, {110, 500}, {240, 290}, {110, 190},   0},
        {{242, 740}, {176, 530}, { 14, 290}, { 84, 492}, { 88, 172},  20},
        {{ 20, 290}, {236, 492}, {236, 290}, { 20, 492}, {128, 128},   0},
    };
    // clang-format on
    for (int wall = 0; wall < 4; ++wall) {
        const float left = WallWidth * static_cast<float>(wall);
        const Vec2 at = {left, 0};
        const Frame& frame = Frames[wall];
        for (const float y : {268.0f, 394.0f, 508.0f, 752.0f})
            DrawBeam(timber, pen, brush, {{left - 6, y}, {left + WallWidth + 6, y}, 20}, dice.Next());
        DrawBeam(timber, pen, brush, {at + frame.braceFrom, at + frame.braceTo, 15}, dice.Next());
        DrawBeam(timber, pen, brush, {at + frame.otherFrom, at + frame.otherTo, 15}, dice.Next());
        for (const float x : frame.studs)
            DrawBeam(timber, pen, brush, {{left + x, 514}, {left + x + 2, 744}, 15}, dice.Next());
        DrawBeam(timber, pen, brush, {{left, WallTop - 30}, {left, WallFoot + 30}, 30}, dice.Next());
    }
    for (int wall = 0; wall < 4; ++wall)
        if (Frames[wall].door > 0) {
            const float left = WallWidth * static_cast<float>(wall) + Frames[wall].door;
            DrawDoor(wood, pen, left, left + 84, 596);
        }
    timber.Subtract(Roof());
    canvas.Cover(timber, Mix(palette::Rust, palette::Night, 0.62f), 0.93f);
    canvas.Cover(wood, Mix(palette::Rust, palette::Ochre, 0.25f) * 0.6f);
    grain.Multiply(timber);
    canvas.Cover(grain, Mix(palette::Ochre, palette::Rust, 0.5f), 0.55f);
    Hatch(pen, Mask(Side, Side, 0, true).Each([](float, float y) {
        return 0.20f * Smooth(640, 768, y) * Smooth(860, 770, y) +
               0.18f * Smooth(330, 262, y) * Smooth(180, 256, y);
    }),
          {.angle = 1.1f, .spacing = 7, .length = 30}, 508);
    // The roof: shingles in rows, a little crooked.
    canvas.Cover(Roof(), Mix(palette::Rust, palette::Slate, 0.55f) * 0.8f);
    Mask shade(Side, Side);
    pen.nib.width = 3;
    for (int row = 0; row < 8; ++row)
        for (int i = 0; i < 9; ++i) {
            const float x = RoofLeft + (static_cast<float>(i) - (row % 2 == 0 ? 0.5f : 0.0f)) * 32,
                        y = static_cast<float>(row) * 32;
            const float foot = y + 32 + dice.Range(-4, 4);
            const Line shingle = Shaken(
                Through({{x + 2, y}, {x + 2, foot - 8}, {x + 16, foot}, {x + 30, foot - 8}, {x + 30, y}}),
                1.5f, 14, dice.Next());
            shade.Fill(shingle, dice.Range(0, 0.8f));
            pen.Stroke(shingle, {.start = 0.4f, .middle = 1, .end = 0.3f});
        }
    canvas.Glaze(shade.Multiply(Roof()), palette::Ochre, 0.4f);
    canvas.Cover(ink, palette::Ink, 0.9f);
    paper.Show(canvas, 0.6f);
    return canvas;
}

Canvas TowerWalls()
{
    // Feathers hang like shingles, each row over the one below; across they fit sixteen times, so that the
    // walls join.
    constexpr float Wide = 64, Row = 44, Length_ = 104;
    const Paper& paper = SketchPaper();
    const Noise barb(521, 256, 64), age(522, 8, 8), chip(523, 64, 64);
    struct Place {
        float u, v; // across -1 to 1, along 0 to 1 at the tip
        int row, column;
    };
    const auto feather = [&](float x, float y) {
        const int last = Floor(y / Row);
        for (int row = last - 2; row <= last; ++row) {
            const float shifted = x / Wide + (row % 2 == 0 ? 0.0f : 0.5f);
            const int column = Floor(shifted);
            const float u = (shifted - static_cast<float>(column)) * 2 - 1;
            const float v = (y - static_cast<float>(row) * Row) / Length_;
            if (v <= 1 - 0.36f * u * u - 0.10f * Pow(Abs(u), 6))
                return Place{u, v, row, Wrap(column, 16)};
        }
        return Place{0, 0, last, 0};
    };
    Canvas canvas(Side, Side);
    canvas.Ground([&](float x, float y) {
        const Place f = feather(x, y);
        const float tip = 1 - 0.36f * f.u * f.u - 0.10f * Pow(Abs(f.u), 6) - f.v; // to the edge, in lengths
        const uint32_t name = static_cast<uint32_t>(f.row * 16 + f.column) * 2654435761u;
        const float own = static_cast<float>(name >> 12 & 255) / 255;
        // Barbs run from the shaft outwards and down.
        const float comb = barb.Value((f.v * 60 - Abs(f.u) * 16) * 0.8f, static_cast<float>(f.column) + 0.5f);
        const Colour stone = Mix(palette::Slate, palette::Mist, 0.25f + 0.3f * own);
        Colour c = Mix(Mix(palette::Rust, palette::Ochre, 0.25f + 0.5f * own), stone, 0.25f + 0.35f * own);
        c = c * (0.62f + 0.5f * comb);
        c = Mix(c, palette::Amber * 0.9f, Hill(0.17f, 0.07f, tip) * 0.85f);
        c = Mix(c, palette::Ink, Hill(0.085f, 0.055f, tip) * 0.9f);
        c = Mix(c, stone * 1.15f, Smooth(0.06f, 0.0f, tip));
        // The eye, and the shaft that ends in it.
        const float eye = Length({f.u * 0.72f, (f.v - 0.66f) * 2.2f});
        c = Mix(c, palette::Ink, Smooth(0.25f, 0.21f, eye));
        c = Mix(c, Mix(palette::Mist, palette::ColdLight, 0.3f) * 0.9f, Smooth(0.14f, 0.10f, eye));
        c = Mix(c, palette::Parchment, 0.8f * Smooth(0.06f, 0.03f, Abs(f.u)) * Smooth(0.62f, 0.5f, f.v));
        // Set in courses like stone: light on the shoulder, a dark joint below each edge.
        const float above = Smooth(0.30f, 0.0f, 1 - Max(Abs(f.u), 0.0f));
        c = c * (1.08f - 0.45f * above);
        const float under = Smooth(0.62f, 0.44f, f.v); // lies in the shade of the row above
        c = c * (1 - 0.6f * under);
        const float worn = 0.5f + 0.6f * age.Fbm(x / Size * 8, y / Size * 8, 4);
        c = Mix(c, stone * 0.7f, 0.4f * Clamp(worn));
        return Mix(c, palette::Slate * 0.6f,
                   Smooth(0.45f, 0.6f, chip.Gradient(x / Size * 64, y / Size * 64)) * 0.7f);
    });
    Mask ink(Side, Side, 0, true);
    Pen pen(ink, paper, {.width = 3.4f, .wobble = 1, .wave = 22, .skip = 0.35f}, 524);
    for (int row = -2; row < 24; ++row)
        for (int column = 0; column < 16; ++column) {
            const float x = (static_cast<float>(column) + (row % 2 == 0 ? 0.5f : 0.0f)) * Wide,
                        y = static_cast<float>(row) * Row;
            const float h = Wide / 2;
            Line edge;
            for (int i = -12; i <= 12; ++i) {
                const float u = static_cast<float>(i) / 12;
                edge.push_back({x + u * h, y + Length_ * (1 - 0.36f * u * u - 0.10f * Pow(Abs(u), 6))});
            }
            pen.Stroke(edge, {.start = 0.3f, .middle = 1, .end = 0.15f});
        }
    canvas.Cover(ink, palette::Ink, 0.85f);
    // Corner stones down the edges of the walls.
    Mask corner(Side, Side, 0, true);
    Mask joints(Side, Side, 0, true);
    Pen mason(joints, paper, {.width = 3.2f, .wobble = 0.9f, .wave = 26, .skip = 0.3f}, 525);
    Dice dice(526);
    for (int wall = 0; wall < 4; ++wall)
        for (int i = 0; i < 16; ++i) {
            const float x = WallWidth * static_cast<float>(wall), y = WallTop + 32 * static_cast<float>(i);
            const float half = (i % 2 == 0 ? 22 : 13) + dice.Range(-2, 2);
            const Line block = Shaken(Straight({{x - half, y + 2},
                                                {x + half, y + 2},
                                                {x + half, y + 30},
                                                {x - half, y + 30},
                                                {x - half, y + 2}}),
                                      1.6f, 14, dice.Next());
            corner.Fill(block, dice.Range(0.75f, 1));
            mason.Stroke(block, {.start = 0.9f, .middle = 1, .end = 0.8f});
        }
    canvas.Cover(corner, [&](float x, float y) {
        return Mix(palette::Slate, palette::Mist,
                   Clamp(0.35f + 0.8f * age.Fbm(x / Size * 32, y / Size * 32, 4)));
    });
    canvas.Cover(joints, palette::Ink, 0.9f);
    // The foot stands in the dark.
    canvas.Tone(
        Mask(Side, Side).Each([](float, float y) { return Smooth(WallFoot + 60, WallFoot - 190, y); }, 4),
        0.35f, 1);
    paper.Show(canvas, 0.6f);
    return canvas;
}

} // namespace atelier
