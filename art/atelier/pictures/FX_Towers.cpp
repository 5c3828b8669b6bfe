// SPDX-License-Identifier: MIT
#include "art/atelier/Glow.h"
#include "art/atelier/Pen.h"
#include "art/atelier/Pictures.h"
#include "art/atelier/pictures/town/Town.h"

namespace atelier
{

namespace
{

// A point on a wheel that rolls inside (or, with a negative radius, outside) a ring, till the line closes.
Line Spirograph(Vec2 centre, float ring, float wheel, float pen, int turns)
{
    Line line;
    const int count = turns * 360;
    for (int i = 0; i <= count; ++i) {
        const float a =
            2 * Pi * static_cast<float>(turns) * static_cast<float>(i) / static_cast<float>(count);
        const float b = a * (ring - wheel) / wheel;
        line.push_back(centre +
                       Vec2{(ring - wheel) * Cos(a) + pen * Cos(b), (ring - wheel) * Sin(a) - pen * Sin(b)});
    }
    return line;
}

Canvas SpirographOfLight()
{
    constexpr int Side = 1024;
    constexpr Vec2 Middle = {512, 512};
    struct Wheel {
        float ring, wheel, pen;
        int turns; // the smallest count that closes the line
        float width, strength;
        Colour halo;
    };
    // clang-format off
    const Wheel Wheels[] = {
        {440, 440 *  5 / 12.0f, 190,  5, 3.4f, 0.75f, palette::Amber},
        {400, 400 *  7 / 30.0f, 130,  7, 2.4f, 0.50f, palette::Ochre},
        {300, 300 * 11 / 26.0f, 100, 11, 2.2f, 0.50f, palette::Amber},
        {150, 150 *  4 / 15.0f,  62,  4, 2.2f, 0.60f, palette::ColdLight},
        {476, 476 *  1 / 48.0f,  12,  1, 2.2f, 0.45f, palette::Ochre},
    };
    // clang-format on
    Canvas canvas(Side, Side, palette::Black);
    uint32_t seed = 601;
    for (const Wheel& w : Wheels) {
        Mask lines(Side, Side);
        Pen pen(lines, SketchPaper(),
                {.width = w.width,
                 .least = 0.4f,
                 .wobble = 0.8f,
                 .wave = 90,
                 .wander = 0.5f,
                 .skip = 0.05f,
                 .dry = 0.1f,
                 .ink = 0.9f},
                seed++);
        pen.Stroke(Spirograph(Middle, w.ring, w.wheel, w.pen, w.turns),
                   {.start = 0.8f, .middle = 0.9f, .end = 0.8f});
        GlowAlong(canvas, lines, 16,
                  {.core = Mix(palette::Bone, w.halo, 0.5f),
                   .halo = w.halo,
                   .strength = w.strength,
                   .haloPart = 0.35f});
    }
    DarkenBorder(canvas, 20);
    return canvas;
}

// The four faces are cut from one panorama that closes on itself: left, back, right, front.
const Canvas& TowerPanorama()
{
    static const Canvas panorama = [] {
        constexpr int W = 2048, H = 512;
        const Noise warp(611, 8, 4), veil(612, 12, 4), thin(613, 16, 8);
        Canvas canvas(W, H, palette::Black);
        const auto fade = [](float y) { return Smooth(10, 190, y) * Mix(1, 0.35f, Smooth(330, 512, y)); };
        canvas.Light(Mask(W, H, 0, true).Each([&](float x, float y) {
            const float u = x / W, v = y / H;
            const float w = 0.7f * warp.Fbm(u * 8, v * 4, 3);
            return fade(y) * Pow(veil.Ridges(u * 12 + w, v * 2 + 0.5f * w, 4), 2);
        }),
                     Mix(palette::Slate, palette::Night, 0.3f), 0.65f);
        canvas.Light(Mask(W, H, 0, true).Each([&](float x, float y) {
            const float u = x / W, v = y / H;
            return fade(y) *
                   Smooth(0.05f, 0.6f, thin.Fbm(u * 16 + 0.4f * warp.Gradient(u * 8, v * 4), v * 2, 5));
        }),
                     palette::Rust, 0.16f);
        canvas.Light(Mask(W, H).Each([&](float, float y) { return Bell((H - y) / 130); }), palette::Ochre,
                     0.035f);
        Mask stars(W, H, 0, true);
        Dice dice(614);
        for (int i = 0; i < 420; ++i) {
            const Vec2 p = {dice.Range(0, W), dice.Range(24, H - 8)};
            const float light = Pow(dice.Unit(), 4), radius = 0.7f + 0.9f * light;
            for (int y = Floor(p.y) - 5; y <= Floor(p.y) + 5; ++y)
                for (int x = Floor(p.x) - 5; x <= Floor(p.x) + 5; ++x)
                    if (y >= 0 && y < H) {
                        float& s = stars.At(Wrap(x, W), y);
                        s += (0.08f + 0.5f * light) * fade(p.y) *
                             Bell(Length({static_cast<float>(x) + 0.5f - p.x,
                                          static_cast<float>(y) + 0.5f - p.y}) /
                                  radius);
                    }
        }
        canvas.Light(stars, Mix(palette::Bone, palette::ColdLight, 0.3f));
        return canvas;
    }();
    return panorama;
}

Canvas TowerLeft()
{
    return TowerPanorama().Crop(0, 0, 512, 512);
}
Canvas TowerBack()
{
    return TowerPanorama().Crop(512, 0, 512, 512);
}
Canvas TowerRight()
{
    return TowerPanorama().Crop(1024, 0, 512, 512);
}
Canvas TowerFront()
{
    return TowerPanorama().Crop(1536, 0, 512, 512);
}

Canvas Beam()
{
    constexpr int W = 512, H = 64;
    const Noise streak(621), mote(622);
    const Mask shape =
        Mask(W, H)
            .Each([&](float x, float y) {
                const float across = Abs(y - H / 2.0f) / (H / 2.0f);
                const float ends = Smooth(2, 70, Min(x, W - x));
                const float dust =
                    0.8f + 0.25f * streak.Fbm(x / 120, y / 5, 3) + 0.15f * mote.Gradient(x / 5, y / 5);
                return Clamp((Bell(across / 0.16f) * 0.6f + Bell(across / 0.42f) * 0.55f) * dust) * ends;
            })
            .FadeToBorder(8);
    Canvas canvas(W, H);
    canvas.Cover(shape, [](float, float y) {
        return Mix(palette::Bone, palette::ColdLight, Smooth(0.05f, 0.6f, Abs(y - H / 2.0f) / (H / 2.0f)));
    });
    return canvas;
}

} // namespace

// clang-format off
Group FX_TowersPictures()
{
    return {"FX_Towers", {
        {"Data/fasanenbude.jpg",         1024, 1024, Format::Jpeg,    TowerWalls},
        {"Data/spirograph.jpg",          1024, 1024, Format::Jpeg,    SpirographOfLight},
        {"Data/skybox_tower_left.jpg",    512,  512, Format::Jpeg,    TowerLeft},
        {"Data/skybox_tower_back.jpg",    512,  512, Format::Jpeg,    TowerBack},
        {"Data/skybox_tower_right.jpg",   512,  512, Format::Jpeg,    TowerRight},
        {"Data/skybox_tower_front.jpg",   512,  512, Format::Jpeg,    TowerFront},
        {"Data/beam_1.png",               512,   64, Format::PngRgba, Beam},
    }};
}
// clang-format on

} // namespace atelier
