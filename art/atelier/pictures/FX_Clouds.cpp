// SPDX-License-Identifier: MIT
// The flight through the clouds: a moon over a sea of clouds, in blue and in rust, and the clouds that stream
// past.
#include "art/atelier/Glow.h"
#include "art/atelier/Pen.h"
#include "art/atelier/Pictures.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/clouds/Billow.h"
#include "art/atelier/pictures/clouds/Greetings.h"

#include <algorithm>

namespace atelier
{

// The sky fills the whole screen, so it is painted in the screen's proportion and squeezed at the end.
constexpr int W = 1707, H = 1024;
constexpr Vector2 Moon = {1120, 395};
constexpr float MoonRadius = 98, Horizon = 560;

// A cloud far away that stands above the others: the middle of its foot, its height above the horizon, its width.
struct Head {
    float foot, height, wide;
};

static void PaintAir(Canvas& canvas, const Paper& paper, const CloudTones& tones, Dice& dice)
{
    const Noise wash(32);
    canvas.Ground([&](float x, float y) {
        const float bloom = 0.09f * wash.Fbm(x / 330, y / 210, 5);
        const float t = Clamp(y / Horizon + bloom);
        LinearColour c = Mix(tones.zenith, tones.middle, Smooth(0, 0.62f, t));
        c = Mix(c, tones.horizon, Smooth(0.45f, 1.05f, t));
        const float far = Length(Vector2{x, y} - Moon);
        return c + tones.halo * (0.42f * Bell(far / 240) + 0.2f * Bell(far / 560));
    });
    // The wash did not dry quite evenly.
    canvas.Glaze(WashDensity(paper, Mask(W, H, 1),
                             {.pool = 0, .granulation = 0.7f, .bloom = 0.35f, .bloomSize = 300, .stray = 0},
                             38)
                     .By([](float x, float y) {
                         return Smooth(130, 520, Length(Vector2{x, y} - Moon));
                     }),
                 Mix(tones.middle, tones.horizon, 0.5f), 0.3f);
    // Stars, fewer towards the light.
    Mask stars(W, H);
    Pen pen(stars, paper, {.width = 2}, 34);
    for (int i = 0; i < 260; i++) {
        const Vector2 p = {dice.Range(0, W), dice.Range(0, Horizon * 0.8f)};
        const float radius = 0.5f + 1.1f * Pow(dice.Unit(), 5);
        if (Length(p - Moon) > 300 && dice.Unit() > p.y / Horizon)
            pen.Dot(p, radius);
    }
    canvas.Light(stars, Mix(tones.moon, tones.halo, 0.4f), 0.55f);
}

// The moon and its seas, and thin bands that are drawn across the sky, some before the moon.
static void PaintMoon(Canvas& canvas, const CloudTones& tones)
{
    const Noise veil(31), wash(32);
    const Mask disc = Filled(W, H, Ellipse(Moon, MoonRadius, MoonRadius)).Blur(0.9f);
    canvas.Cover(disc, [&](float x, float y) {
        const float sea = Smooth(-0.05f, 0.32f, wash.Fbm(x / 74 + 3, y / 74, 5));
        const float limb = Length(Vector2{x, y} - Moon) / MoonRadius;
        return Mix(tones.moon, tones.halo, 0.34f * sea + 0.16f * Smooth(0.6f, 1, limb)) * 0.97f;
    });
    canvas.Light(disc.Blurred(16), tones.halo, 0.14f);
    canvas.Light(disc.Blurred(46), tones.halo, 0.3f);
    Mask bands(W, H);
    bands.Each(
        [&](float x, float y) {
            const Vector2 q = veil.Warp(x / 420, y / 60, 0.5f);
            return Smooth(0.08f, 0.6f, veil.Fbm(q.x, q.y, 5)) * Smooth(120, 420, y) * Smooth(640, 500, y);
        },
        2);
    canvas.Cover(
        bands,
        [&](float x, float y) {
            const float near = Bell(Length(Vector2{x, y} - Moon) / 300);
            return Mix(tones.body, tones.lit, 0.1f + 0.5f * near);
        },
        0.5f);
}

// Far heads tower above the level of the sea, away from the moon.
static void PaintHeads(Canvas& canvas, const CloudTones& tones)
{
    const Noise curls(33);
    // What shows between the rows is more cloud.
    canvas.Cover(Filled(W, H, Rectangle(0, Horizon - 6, W, H)).Blur(3), [&](float, float y) {
        return Mix(tones.body, tones.horizon, 0.5f * Smooth(680, Horizon, y));
    });
    Dice pile(36);
    for (const auto& [foot, height, wide] : {Head{330, 84, 120},
                                             {455, 44, 80},
                                             {1405, 104, 130},
                                             {1530, 62, 90},
                                             {1690, 92, 110},
                                             {752, 34, 84},
                                             {60, 40, 90}})
        for (int i = 0; i < 11; i++) {
            const float up = 1 - float(i) / 10; // from its top down
            const float r = wide * Mix(0.42f, 0.24f, up) * pile.Range(0.8f, 1.15f);
            const float aside = wide * (1 - 0.75f * up) * pile.Range(-0.55f, 0.55f);
            const Vector2 c = {foot + aside, Horizon + 14 - (height - 0.4f * r) * up};
            PaintBillow(canvas, curls,
                        {c, r, r * 0.8f, 0.3f + 0.5f * Bell((foot - Moon.x) / 420), 0.5f, 1.2f}, Moon, tones);
        }
}

// The sea: rows from the horizon to below our feet, each larger and nearer than the last.
static void PaintSea(Canvas& canvas, const CloudTones& tones, Dice& dice)
{
    const Noise veil(31), curls(33);
    constexpr int Rows = 10;
    for (int row = 0; row < Rows; row++) {
        const float t = float(row) / (Rows - 1);
        const float y = Mix(Horizon + 4, H + 40, Pow(t, 1.35f)), size = Mix(15, 190, Pow(t, 1.2f));
        const int count = Floor(W / size * 2.3f);
        for (int i = 0; i < count; i++) {
            const float x = (float((i * 7) % count) + dice.Range(-0.4f, 0.4f)) * W / float(count - 1);
            const float swell = curls.Fbm(x / (size * 5) + 9 * t, 5 * t, 2);
            const float rx = size * dice.Range(0.7f, 1.35f), ry = rx * dice.Range(0.5f, 0.68f);
            const Vector2 c = {x, y - size * (0.3f + 1.1f * swell) + dice.Range(-0.25f, 0.25f) * size};
            const float path = Bell((x - Moon.x) / (190 + 330 * t));
            PaintBillow(
                canvas, curls,
                {c, rx, ry, (0.26f + 0.95f * path) * (1 - 0.5f * t), 0.55f * Pow(1 - t, 2), 1.1f + 2.0f * t},
                Moon, tones);
        }
        // Mist lies between the rows.
        Mask mist(W, H);
        mist.Each(
            [&](float mx, float my) {
                return Hill(y + size * 0.35f, size * 0.7f, my) *
                       (0.5f + 0.5f * veil.Fbm(mx / (size * 4), my / size, 3));
            },
            2);
        canvas.Cover(mist, Mix(tones.body, tones.horizon, 0.6f * (1 - t)), 0.3f * (1 - t));
    }
}

static Canvas Sky(const CloudTones& tones)
{
    const Paper& paper = SketchPaper();
    Canvas canvas(W, H, tones.zenith);
    Dice dice(35);
    PaintAir(canvas, paper, tones, dice);
    PaintMoon(canvas, tones);
    PaintHeads(canvas, tones);
    PaintSea(canvas, tones, dice);
    const Mask corner = Mask(W, H).Each(
        [](float x, float y) {
            return Smooth(0.42f, 0.85f, Length({(x - Moon.x * 0.85f) / W, (y - Moon.y) / H}));
        },
        2);
    canvas.Tone(corner, 1, 0.55f);
    paper.Show(canvas, 0.8f);
    return Squeezed(canvas, 1024, 1024);
}

// The clouds that come towards us. Hundreds of them lie over one another, so each is thin.
constexpr int Size = 512;
constexpr float Thickest = 0.33f;

// Where the cloud lies: balls that grow into each other, the same for both.
static Mask Balls()
{
    Mask balls(Size, Size);
    Dice dice(51);
    for (int i = 0; i < 44; i++) {
        const float a = dice.Range(0, 2 * Pi), r = Sqrt(dice.Unit());
        const Vector2 c = {256 + Cos(a) * r * 142, 266 + Sin(a) * r * 104};
        const float radius = dice.Range(36, 62) * (1.15f - 0.45f * r);
        balls.Screen(Filled(Size, Size, Ellipse(c, radius, radius * 0.86f)).Scale(0.42f));
    }
    return balls;
}

static Canvas Laid(const Mask& amount, const Mask& light, LinearColour dark, LinearColour bright)
{
    Mask alpha = amount;
    alpha.FadeToBorder(90);
    Canvas canvas(Size, Size);
    for (int y = 0; y < Size; y++)
        for (int x = 0; x < Size; x++) {
            const float a = Clamp(alpha.At(x, y)) * Thickest;
            const LinearColour c = Mix(dark, bright, Clamp(light.At(x, y)));
            canvas.At(x, y) = {c.r * a, c.g * a, c.b * a, a};
        }
    return canvas;
}

static Canvas Cloud()
{
    const Noise curl(52);
    const Paper& paper = SketchPaper(512);
    const Mask balls = Balls();
    // Three washes, each smaller than the one before, over a breath of fog.
    Mask amount = balls.Blurred(34).Scale(0.5f);
    for (uint32_t i = 0; i < 3; i++) {
        Mask shape = balls;
        const float level = 0.42f + 0.2f * float(i);
        shape.Blur(9).Shake(26, 90, 53 + i).Curve(level - 0.06f, level + 0.06f);
        Mask density = WashDensity(paper, shape,
                                   {.density = 0.5f,
                                    .pool = 0.7f,
                                    .poolWidth = 6,
                                    .granulation = 0.45f,
                                    .bloom = 0.6f,
                                    .bloomSize = 90,
                                    .stray = 7,
                                    .bleed = 26},
                                   56 + i);
        amount.Screen(density.Blur(2.4f).Scale(0.62f));
    }
    amount.By([&](float x, float y) { return 0.82f + 0.4f * curl.Fbm(x / 60, y / 60, 4); });
    const Mask form = balls.Blurred(20);
    Mask light(Size, Size);
    light.Each([&](float x, float y) {
        return 0.5f + 1.6f * (form.Sample(x, y) - form.Sample(x + 12, y - 22)) +
               0.25f * curl.Fbm(x / 44, y / 44, 4);
    });
    return Laid(amount, light, Mix(palette::Slate, palette::Mist, 0.25f),
                Mix(palette::Mist, palette::Bone, 0.75f));
}

static Canvas Smoke()
{
    const Noise curl(61), thread(62);
    // Soft enough that no outline of a ball is left, torn by a warp of many sizes.
    const Mask balls = Balls().Blur(38).Scale(1.25f);
    Mask amount(Size, Size), light(Size, Size);
    amount.Each([&](float x, float y) {
        const Vector2 q = curl.Warp(x / 120, y / 120, 0.28f, 5);
        const float rise = balls.Sample(q.x * 120, q.y * 120) * 0.6f + balls.Sample(x, y) * 0.4f;
        const float thick = 1.9f * rise * (0.2f + 0.95f * thread.Ridges(q.x * 1.5f, q.y * 1.5f, 5));
        return thick / (1 + 0.75f * thick); // nowhere so thick that it is a flat patch
    });
    light.Each([&](float x, float y) {
        return 0.35f + 0.9f * (amount.Sample(x, y) - amount.Sample(x + 10, y - 16)) +
               0.5f * Smooth(320, 150, y) * amount.Sample(x, y);
    });
    return Laid(amount, light, Mix(palette::Ink, palette::Rust, 0.5f),
                Mix(palette::Amber, palette::Parchment, 0.35f));
}

PictureGroup FX_CloudsPictures()
{
    // clang-format off
    PictureGroup group = {"FX_Clouds", {
        {"Data/himmelarsch.jpg",    1024, 1024, Format::Jpeg,    [] { return Sky(BlueNight); }},
        {"Data/himmelarschling.jpg", 1024, 1024, Format::Jpeg,   [] { return Sky(AmberNight); }},
        {"Data/cloud_5.png",         512,  512, Format::PngRgba, Cloud},
        {"Data/cloud_6.png",         512,  512, Format::PngRgba, Smoke},
        {"Data/greetings_01.png",    1024, 1024, Format::PngRgba, [] { return GreetingHand(0); }},
        {"Data/greetings_02.png",    512,  512, Format::PngRgba, [] { return GreetingCard(0); }},
        {"Data/greetings_03.png",    1024, 1024, Format::PngRgba, [] { return GreetingHand(1); }},
        {"Data/greetings_04.png",    512,  512, Format::PngRgba, [] { return GreetingCard(1); }},
        {"Data/greetings_05.png",    1024, 1024, Format::PngRgba, [] { return GreetingHand(2); }},
        {"Data/greetings_06.png",    512,  512, Format::PngRgba, [] { return GreetingCard(2); }},
        {"Data/greetings_07.png",    1024, 1024, Format::PngRgba, [] { return GreetingHand(3); }},
        {"Data/greetings_08.png",    512,  512, Format::PngRgba, [] { return GreetingCard(3); }},
        {"Data/greetings_09.png",    1024, 1024, Format::PngRgba, [] { return GreetingHand(4); }},
        {"Data/greetings_11.png",    512,  512, Format::PngRgba, [] { return GreetingCard(4); }},
        {"Data/greetings_12.png",    1024, 1024, Format::PngRgba, [] { return GreetingHand(5); }},
        {"Data/greetings_13.png",    512,  512, Format::PngRgba, [] { return GreetingCard(5); }},
    }};
    // clang-format on
    return group;
}

} // namespace atelier
