// SPDX-License-Identifier: MIT
#include "art/atelier/Glow.h"
#include "art/atelier/Pen.h"
#include "art/atelier/Pictures.h"
#include "art/atelier/pictures/town/Town.h"

namespace atelier
{

// A point on a wheel that rolls inside (or, with a negative radius, outside) a ring, till the line closes.
static Line Spirograph(Vector2 centre, float ring, float wheel, float pen, int turns)
{
    Line line;
    const int count = turns * 360;
    for (int i = 0; i <= count; i++) {
        const float a = 2 * Pi * float(turns) * float(i) / float(count);
        const float b = a * (ring - wheel) / wheel;
        line.push_back(
            centre + Vector2{(ring - wheel) * Cos(a) + pen * Cos(b), (ring - wheel) * Sin(a) - pen * Sin(b)});
    }
    return line;
}

// An opening spiral, from `inner` to `outer` pixels.
static Line Spiral(Vector2 centre, float inner, float outer, float turns, float turned)
{
    Line line;
    const int count = Floor(turns * 180);
    for (int i = 0; i <= count; i++) {
        const float t = float(i) / float(count);
        const float a = turned + 2 * Pi * turns * t, r = Mix(inner, outer, t);
        line.push_back(centre + Vector2{Cos(a), Sin(a)} * r);
    }
    return line;
}

// Some twenty of these lie over each other and are added up, the largest overhead, so that of their middle
// one sees a few thin lines drawn out to soft bands, and of their outer parts a net against the horizon.
// Lines are thin and few; between them there is next to nothing.
static Canvas SpirographOfLight()
{
    constexpr int Side = 1024;
    constexpr Vector2 Middle = {512, 512};
    struct WheelDrawing {
        Line line;
        float width, strength;
        LinearColour halo;
    };
    // Wheels that roll in rings and keep clear of the middle, and a spiral and its cold shadow in it.
    // clang-format off
    const WheelDrawing Drawings[] = {
        {Spirograph(Middle, 430, 430 *  5 / 19.0f, 150,  5),                 1.6f, 0.10f, palette::Amber},
        {Spirograph(Middle, 372, 372 *  3 / 16.0f,  52,  3),                 1.4f, 0.075f, palette::Ochre},
        {Spiral(Middle,  16, 214, 2.6f, 0.0f),                               1.4f, 0.15f, palette::Amber},
        {Spiral(Middle,  90, 150, 1.2f, 2.4f),                               1.3f, 0.10f, palette::ColdLight},
    };
    // clang-format on
    Canvas canvas(Side, Side, palette::Black);
    const Noise lift(600);
    uint32_t seed = 601;
    for (const WheelDrawing& drawing : Drawings) {
        Mask lines(Side, Side);
        Pen pen(lines, SketchPaper(),
                {.width = drawing.width,
                 .least = 0.3f,
                 .wobble = 1.2f,
                 .wave = 110,
                 .wander = 0.8f,
                 .skip = 0.12f,
                 .dry = 0.1f,
                 .ink = 1},
                seed);
        pen.Stroke(drawing.line, {.start = 0.5f, .middle = 0.9f, .end = 0.2f});
        // The light does not reach all round: it is seen turning.
        // Near the middle it is thin: the heads of the towers stand before that.
        lines.By([&](float x, float y) {
            return (0.2f + 0.95f * Smooth(-0.35f, 0.45f, lift.Fbm(x / 260 + float(seed), y / 260, 3))) *
                   Mix(0.25f, 1, Smooth(70, 210, Length(Vector2{x, y} - Middle)));
        });
        seed++;
        GlowAlong(canvas, lines, 12,
                  {.core = Mix(palette::Bone, drawing.halo, 0.6f),
                   .halo = drawing.halo,
                   .strength = drawing.strength,
                   .haloPart = 0.10f});
    }
    DarkenBorder(canvas, 20);
    return canvas;
}

// The four faces are cut from one panorama that closes on itself: left, back, right, front. Six boxes of it
// stand in each other and are added up.
static const Canvas& TowerPanorama()
{
    static const Canvas panorama = [] {
        constexpr int W = 2048, H = 512;
        const Noise warp(611, 8, 4), veil(612, 8, 4), thin(613, 16, 8), rent(615, 6, 4);
        Canvas canvas(W, H, palette::Black);
        // Dark where the towers end, and down to the ground, below which there is nothing.
        const auto fade = [](float y) { return Smooth(80, 380, y) * Smooth(511, 425, y); };
        // Veils hang in folds, bright at one edge and thinning away from it.
        canvas.Light(Mask(W, H, 0, true).Each([&](float x, float y) {
            const float u = x / W, v = y / H;
            const float w = 0.9f * warp.Fbm(u * 8, v * 4, 4);
            const float fold = Pow(veil.Ridges(u * 8 + w, v * 2 + 0.6f * w, 4), 3);
            const float torn = Smooth(-0.2f, 0.35f, rent.Fbm(u * 6, v * 4, 3));
            return fade(y) * fold * torn;
        }),
                     Mix(palette::Slate, palette::Night, 0.3f), 0.34f);
        canvas.Light(Mask(W, H, 0, true).Each([&](float x, float y) {
            const float u = x / W, v = y / H;
            return fade(y) *
                   Smooth(0.1f, 0.7f, thin.Fbm(u * 16 + 0.5f * warp.Gradient(u * 8, v * 4), v * 2, 5));
        }),
                     palette::Rust, 0.028f);
        canvas.Light(Mask(W, H).Each([&](float, float y) { return Bell((H - 60 - y) / 60) * fade(y); }),
                     Mix(palette::Rust, palette::Slate, 0.4f), 0.012f);
        Mask stars(W, H, 0, true);
        Dice dice(614);
        for (int i = 0; i < 190; i++) {
            const Vector2 p = {dice.Range(0, W), dice.Range(24, H - 8)};
            const float light = Pow(dice.Unit(), 5), radius = 0.5f + 0.4f * light;
            for (int y = Floor(p.y) - 4; y <= Floor(p.y) + 4; y++)
                for (int x = Floor(p.x) - 4; x <= Floor(p.x) + 4; x++)
                    if (y >= 0 && y < H) {
                        float& s = stars.At(Wrap(x, W), y);
                        s += (0.05f + 0.5f * light) * fade(p.y) *
                             Bell(Length({float(x) + 0.5f - p.x, float(y) + 0.5f - p.y}) / radius);
                    }
        }
        canvas.Light(stars, Mix(palette::Bone, palette::ColdLight, 0.3f));
        return canvas;
    }();
    return panorama;
}

// A lamp in the middle, among the towers, throws its light both ways. It is born as a small glow and spreads in the
// strokes of a dry brush, which bend a little as the threads of the sky do, and of which each runs out at its own
// place: all before the view ends. Nothing is finer than six pixels across: far off only one in six is seen.
static Canvas Beam()
{
    constexpr int W = 512, H = 64;
    constexpr float Reach = 0.27f; // of the way to the picture's end, for the longest stroke
    const Noise bristle(621), tooth(622), haze(623);
    const Mask shape =
        Mask(W, H)
            .Each([&](float x, float y) {
                const bool left = x < W / 2.0f;
                const float along = Abs(x - W / 2.0f) / (W / 2.0f), part = along / Reach;
                const float bend = (left ? 0.36f : -0.30f) * part * part;
                const float across = (y - H / 2.0f) / (H / 2.0f);
                const float in = (across - bend) / (0.30f + 1.3f * along);
                const float side = left ? 0.0f : 9.0f;
                const float apart = Smooth(0, 0.07f, along); // both ways are one at the lamp
                const float own = apart * bristle.Fbm(in * 1.5f + side, 0.5f, 2);
                const float end = Reach * (0.72f + 0.7f * own - 0.2f * in * in), out = along / end;
                const float dry = Mix(0.1f, tooth.Fbm(in * 2 + side, x / 13, 2), apart);
                const float stroke = Smooth(1, 0.1f, out) * (0.75f + 0.7f * own) *
                                     Smooth(-0.9f + 1.2f * out, 0.1f + 1.2f * out, dry);
                const float air = 0.30f * Pow(Max(0, 1 - part), 2) * (1 + 0.5f * haze.Fbm(x / 30, y / 20, 3));
                const float spread = 0.14f / (0.14f + along);
                const float lamp = 0.30f * Bell(Length({(x - W / 2.0f) / 9, across / 0.46f}));
                return Clamp(Bell(in / 0.66f) * (0.52f * stroke + air) * spread + lamp);
            })
            .FadeToBorder(7);
    Canvas canvas(W, H);
    canvas.Cover(shape, [](float x, float) {
        const float along = Abs(x - W / 2.0f) / (W / 2.0f);
        return Mix(Mix(palette::Amber, palette::Bone, 0.22f),
                   Mix(Mix(palette::Amber, palette::Rust, 0.25f), palette::Mist, 0.25f),
                   Smooth(0, Reach, along));
    });
    return canvas;
}

// clang-format off
PictureGroup FX_TowersPictures()
{
    return {"FX_Towers", {
        {"Data/fasanenbude.jpg",          512, 2048, Format::Jpeg, TowerWalls},
        {"Data/spirograph.jpg",          1024, 1024, Format::Jpeg, SpirographOfLight},
        {"Data/skybox_tower_left.jpg",    512,  512, Format::Jpeg, [] { return TowerPanorama().Crop(0, 0, 512, 512); }},
        {"Data/skybox_tower_back.jpg",    512,  512, Format::Jpeg, [] { return TowerPanorama().Crop(512, 0, 512, 512); }},
        {"Data/skybox_tower_right.jpg",   512,  512, Format::Jpeg, [] { return TowerPanorama().Crop(1024, 0, 512, 512); }},
        {"Data/skybox_tower_front.jpg",   512,  512, Format::Jpeg, [] { return TowerPanorama().Crop(1536, 0, 512, 512); }},
        {"Data/beam_1.png",               512,   64, Format::PngRgba, Beam},
    }};
}
// clang-format on

} // namespace atelier
