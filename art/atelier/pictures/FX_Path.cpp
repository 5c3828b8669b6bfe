// SPDX-License-Identifier: MIT
#include "art/atelier/DryBrush.h"
#include "art/atelier/Glow.h"
#include "art/atelier/Pen.h"
#include "art/atelier/Pictures.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/town/Town.h"
#include "art/atelier/pictures/town/VillageEarth.h"

namespace atelier
{

// The beams that a window hangs between.
static Mask WindowTimber(int side)
{
    const float size = float(side), beam = 0.055f * size;
    Mask timber(side, side);
    const auto lay = [&](Vector2 from, Vector2 to, uint32_t seed) {
        const Line spine = Straight({from * size, to * size});
        timber.Fill(Shaken(Limb(spine, beam / 2, beam / 2, beam / 2), 2.5f, 50, seed));
    };
    lay({0.125f, 0}, {0.12f, 1}, 567);
    lay({0.88f, 0}, {0.885f, 1}, 568);
    lay({0, 0.125f}, {1, 0.13f}, 569);
    lay({0, 0.875f}, {1, 0.87f}, 570);
    return timber;
}

// A window in its frame, which one passes at arm's length. The frame stands inside the
// picture, so that its uneven edge shows, and a lit window has room for its light: the wall about it is black,
// and all that is seen of it is what the lamp throws there.
static Canvas Window(bool lit)
{
    constexpr int Side = 512;
    constexpr float Size = Side, Middle = Size / 2;
    const float room = lit ? 0.58f : 0.96f; // of the picture, for the frame
    // Places below are those of a sheet 128 wide that the frame fills.
    const auto drawn = [&](const Line& line) {
        return Moved(Scaled(Moved(line, {-64, -64}), 4 * room), {Middle, Middle});
    };
    const float fine = 4 * room;
    const Paper& paper = SketchPaper(512);
    const Noise glass(561), wall(566);
    const Line opening =
        drawn(Shaken(Straight({{15, 15}, {113, 14}, {114, 113}, {14, 114}, {15, 15}}), 1.2f, 30, 562));
    const Mask frame = Filled(
        Side, Side, drawn(Shaken(Straight({{5, 6}, {122, 5}, {123, 122}, {5, 122}, {5, 6}}), 1.6f, 24, 563)));
    Canvas canvas(Side, Side);
    canvas.Cover(Mask(Side, Side, 1), Mix(palette::Rust, palette::Ink, 0.72f));
    const Mask inner = Filled(Side, Side, opening);
    canvas.Cover(inner, [&](float column, float line) {
        const float x = (column - Middle) / fine + 64, y = (line - Middle) / fine + 64;
        const float cloud = 0.12f * glass.Fbm(x / 30, y / 30, 3);
        if (!lit)
            return Mix(palette::Night, palette::Slate,
                       Clamp(0.25f + 0.5f * Smooth(110, 10, x * 0.4f + y) + cloud));
        // The lamp hangs behind the upper middle.
        const float lamp = Bell(Length({x - 64, (y - 52) * 0.85f}) / 52);
        return Mix(palette::Ochre * 0.8f, Mix(palette::Amber, palette::Bone, 0.45f * lamp),
                   Clamp(lamp + cloud));
    });
    Mask ink(Side, Side), cloth(Side, Side);
    Pen pen(ink, paper, {.width = 3 * fine, .wobble = 0.6f * fine, .wave = 24 * fine, .skip = 0.15f}, 564);
    for (const float side : {-1.0f, 1.0f}) {
        const float edge = 64 + side * 49;
        const auto in = [&](float by) { return edge - side * by; };
        cloth.Fill(drawn(Through({{edge, 15},
                                  {in(44), 15},
                                  {in(36), 44},
                                  {in(17), 72},
                                  {in(22), 90},
                                  {in(28), 113},
                                  {edge, 113}})));
        pen.nib.width = 1.6f * fine;
        for (int fold = 0; fold < 4; fold++) {
            const float by = 9 * float(fold);
            pen.Stroke(drawn(Through({{in(6 + by * 1.2f), 16},
                                      {in(4 + by * 0.8f), 50},
                                      {in(3 + by * 0.45f), 73},
                                      {in(5 + by * 0.6f), 112}})),
                       {.start = 0.6f, .middle = 0.8f, .end = 0.4f});
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
    Pen joiner(bars, paper,
               {.width = 7 * fine, .wobble = 0.7f * fine, .wave = 40 * fine, .skip = 0, .dry = 0}, 565);
    joiner.Stroke(drawn(Straight({{64, 10}, {65, 118}})), {.start = 1, .middle = 0.9f, .end = 1});
    joiner.Stroke(drawn(Straight({{10, 56}, {118, 57}})), {.start = 1, .middle = 0.9f, .end = 1});
    joiner.nib.width = 4 * fine;
    joiner.Stroke(opening, {.start = 1, .middle = 0.9f, .end = 1});
    canvas.Cover(bars, Mix(palette::Rust, palette::Ink, 0.8f));
    if (lit)
        canvas.Light(inner.Blurred(28), palette::Amber, 0.10f);
    paper.Show(canvas, lit ? 0.25f : 0.5f);
    AllowForMist(canvas);
    canvas.CutOut(frame);
    if (!lit)
        return canvas;
    // The light on the wall: brighter below the lamp's height than above, gone at the picture's border.
    Canvas shine(Side, Side);
    const Mask near = Mask(frame).Blur(24), wide = Mask(frame).Blur(70);
    const Mask timber = WindowTimber(Side);
    Mask light(Side, Side);
    light.Each([&](float x, float y) {
        const float grain = 1 + 0.20f * wall.Fbm(x / 70, y / 70, 2) + 0.15f * wall.Fbm(x / 40, y / 9, 3);
        const float shone = 0.7f * near.Sample(x, y) + 1.05f * wide.Sample(x, y);
        return Min(0.92f, shone * grain) * Smooth(2, 64, Min(Min(x, Size - x), Min(y, Size - y)));
    });
    shine.Cover(light, [&](float x, float y) {
        const LinearColour plaster = Mix(palette::Ochre, palette::Rust, 0.25f);
        const LinearColour beam =
            Mix(palette::Rust, palette::Ink, 0.35f) * (0.8f + 0.5f * wall.Fbm(x / 60, y / 60, 3));
        return Mix(plaster, beam, timber.Sample(x, y));
    });
    return shine.Lay(canvas, 0, 0);
}

// It is laid twice over the whole view, once so large that only what lies within two thirds of the way to the
// border is seen: one ring round the fire, one that opens and closes. Drawn in three goes of a brush that
// does not come back to where it began; embers fly off it.
static Canvas RingOfLight()
{
    constexpr int Side = 512;
    constexpr Vector2 Middle = {256, 256};
    constexpr float Radius = 122;
    const Paper& paper = SketchPaper();
    Canvas canvas(Side, Side, palette::Black);
    Mask line(Side, Side), echo(Side, Side), embers(Side, Side);
    DryBrush brush(line, paper,
                   {.width = 11, .count = 9, .thickness = 1.3f, .load = 0.75f, .ragged = 0.3f, .wave = 90},
                   571);
    const auto sweep = [&](float radius, float from, float to, float drift) {
        Line arc;
        for (int i = 0; i <= 160; i++) {
            const float t = float(i) / 160, a = Mix(from, to, t);
            arc.push_back(Middle + Vector2{Cos(a), Sin(a) * 0.985f} * (radius + drift * t));
        }
        return Shaken(arc, 2.5f, 120, uint32_t(from * 100) + 5);
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
    for (int i = 0; i < 90; i++) {
        const float a = dice.Range(0, 2 * Pi), out = Radius + dice.Bell() * 9 + 26 * Pow(dice.Unit(), 2);
        const Vector2 p = Middle + Vector2{Cos(a), Sin(a)} * out, way = {-Sin(a + 0.5f), Cos(a + 0.5f)};
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

// clang-format off
PictureGroup FX_PathPictures()
{
    return {"FX_Path", {
        {"Data/budentextur.jpg",        1024, 1024, Format::Jpeg,    HouseWalls},
        {"Data/licht-an.png",            512,  512, Format::PngRgba, [] { return Window(true); }},
        {"Data/licht-aus.png",           512,  512, Format::PngRgba, [] { return Window(false); }},
        {"Data/teststreifen.png",       4096, 1024, Format::PngRgba, ScoreStrip},
        {"Data/ackerbau_tiled3.jpg",    1024, 1024, Format::Jpeg,    FieldTile},
        {"Data/ackerbau_tiled2.jpg",    2048, 2048, Format::Jpeg,    Plaza},
        {"Data/skybox_left.jpg",        1024,  512, Format::Jpeg,    [] { return NightSky(SkyFace::Left); }},
        {"Data/skybox_back.jpg",        1024,  512, Format::Jpeg,    [] { return NightSky(SkyFace::Back); }},
        {"Data/skybox_right.jpg",       1024,  512, Format::Jpeg,    [] { return NightSky(SkyFace::Right); }},
        {"Data/skybox_top.jpg",         1024, 1024, Format::Jpeg,    [] { return NightSky(SkyFace::Top); }},
        {"Data/ring.jpg",                512,  512, Format::Jpeg,    RingOfLight},
    }};
}
// clang-format on

} // namespace atelier
