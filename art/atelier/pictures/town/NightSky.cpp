// SPDX-License-Identifier: MIT
// The night over the village. The sky is a colour for every direction, so that it goes on across the edges of
// its box; the faces only look it up.
#include "art/atelier/Paper.h"
#include "art/atelier/pictures/town/Town.h"

namespace atelier
{

namespace
{

constexpr float BoxHeight = 0.55f; // of the box's width, above its middle

struct Direction {
    float x, y, z; // y up, unit length
};

Direction Towards(float x, float y, float z)
{
    const float length = Sqrt(x * x + y * y + z * z);
    return {x / length, y / length, z / length};
}

const Direction Moon = Towards(0.11f, 0.27f, -0.5f);
constexpr float MoonRadius = 0.062f; // radians

float AngleTo(const Direction& a, const Direction& b)
{
    // The chord is the angle nearly enough for what is near, and does not lose its figures there.
    const float x = a.x - b.x, y = a.y - b.y, z = a.z - b.z;
    return Sqrt(x * x + y * y + z * z);
}

// The half globe of the sky laid flat, the zenith in the middle, the horizon at length 1.
Vec2 Flat(const Direction& d)
{
    return {d.x / (1 + d.y), d.z / (1 + d.y)};
}

float HillsAt(Vec2 round)
{
    static const Noise hills(401), firs(402);
    const float high = 0.045f + 0.05f * hills.Fbm(round.x * 2.6f + 9, round.y * 2.6f + 9, 3);
    const float wood = Smooth(-0.1f, 0.4f, hills.Gradient(round.x * 3 + 40, round.y * 3));
    const float trees = Abs(firs.Gradient(round.x * 90, round.y * 90)) * 0.7f +
                        0.5f * firs.Value(round.x * 210, round.y * 210);
    return Max(0.012f, high) + 0.026f * wood * trees;
}

Colour SkyTowards(const Direction& d)
{
    static const Noise cloud(411), milk(412), dust(413), grain(414), maria(415);
    const Vec2 p = Flat(d);
    Colour sky = Mix(palette::Slate * 0.62f, palette::Night * 0.9f, Smooth(0.0f, 0.35f, d.y));
    sky = Mix(sky, palette::Ink * 0.9f, Smooth(0.25f, 0.9f, d.y));
    // A last warmth low over the land.
    sky = sky + palette::Rust * (0.16f * Bell(d.y / 0.11f) * (0.55f - 0.45f * d.z));
    // The milky way crosses the zenith.
    const float across = p.x * 0.8f + p.y * 0.6f + 0.10f * milk.Fbm(p.x * 3, p.y * 3, 3);
    const float lane = dust.Fbm(p.x * 7 + 3, p.y * 7, 5);
    const float band = Bell(across / 0.20f) * Smooth(0.12f, 0.5f, d.y);
    const float river =
        band * Clamp(0.55f + 0.9f * lane) * (1 - 0.75f * Bell((across + 0.05f * lane) / 0.045f));
    sky = sky + Mix(palette::Mist, palette::Bone, 0.4f) * (0.16f * river);
    // Washes of cloud, and the moon behind and over them.
    const float far = AngleTo(d, Moon);
    const Vec2 w = cloud.Warp(p.x * 3.2f, p.y * 3.2f, 0.5f);
    const float veil = Smooth(0.02f, 0.5f, cloud.Fbm(w.x, w.y, 5)) * Smooth(0.85f, 0.25f, d.y);
    sky = Mix(sky, palette::Slate * 0.75f + palette::Mist * (0.45f * Bell(far / 0.30f)), 0.6f * veil);
    sky = sky + palette::Parchment * (0.30f * Bell(far / 0.10f) + 0.10f * Bell(far / 0.33f));
    const float disc = Smooth(MoonRadius * 1.02f, MoonRadius * 0.96f, far);
    const Colour face = Mix(palette::Bone, Mix(palette::Mist, palette::Parchment, 0.5f),
                            Smooth(-0.1f, 0.45f, maria.Fbm(p.x * 22 + 5, p.y * 22 + 2, 4)));
    sky = Mix(sky, face * 0.96f, disc * (1 - 0.25f * veil));
    sky = sky * (1 + 0.10f * grain.Gradient(p.x * 420, p.y * 420));
    // The land stands black before it; mist lies in front of the hills, and the foot is all dark.
    const float level = Sqrt(d.x * d.x + d.z * d.z);
    const float rise = d.y / level;
    const float hill = HillsAt({d.x / level, d.z / level});
    const Colour land =
        Mix(Colour{0, 0, 0}, Mix(palette::Ink, palette::Night, 0.35f), Smooth(0, 0.05f, rise));
    return Mix(sky, land, Smooth(0.0012f, -0.0012f, rise - hill));
}

struct Star {
    Direction place;
    float light, radius; // radius in pixels
    Colour colour;
};

std::vector<Star> Stars()
{
    Dice dice(421);
    std::vector<Star> stars;
    while (stars.size() < 1500) {
        const float x = dice.Range(-1, 1), y = dice.Range(0, 1), z = dice.Range(-1, 1);
        const float length = Sqrt(x * x + y * y + z * z);
        const Direction d = {x / length, y / length, z / length};
        const Vec2 p = Flat(d);
        const float milky = Bell((p.x * 0.8f + p.y * 0.6f) / 0.2f);
        const float light = Pow(dice.Unit(), 5);
        if (length > 1 || length < 0.05f || !dice.Chance(0.35f + 0.65f * milky) || AngleTo(d, Moon) < 0.13f ||
            d.y < 0.13f)
            continue;
        const Colour colour =
            Mix(palette::Bone, dice.Chance(0.3f) ? palette::Amber : palette::ColdLight, dice.Range(0, 0.6f));
        stars.push_back({d, 0.10f + 0.9f * light, 0.7f + 1.1f * light, colour});
    }
    return stars;
}

// A face of the box: which point of the box a pixel shows (u and v from 0 to 1), and the way back.
struct Face {
    int width, height;
    Direction (*at)(float u, float v);
    bool (*seen)(const Direction& d, Vec2& uv);
};

Canvas Paint(const Face& face)
{
    Canvas canvas(face.width, face.height, palette::Black);
    const float w = static_cast<float>(face.width), h = static_cast<float>(face.height);
    canvas.Ground([&](float x, float y) { return SkyTowards(face.at(x / w, y / h)); });
    for (const Star& star : Stars()) {
        Vec2 uv;
        if (!face.seen(star.place, uv))
            continue;
        const Vec2 p = {uv.x * w, uv.y * h};
        const int reach = Floor(star.radius * 3) + 1;
        for (int y = Floor(p.y) - reach; y <= Floor(p.y) + reach; ++y)
            for (int x = Floor(p.x) - reach; x <= Floor(p.x) + reach; ++x) {
                if (x < 0 || y < 0 || x >= face.width || y >= face.height)
                    continue;
                const Vec2 off = {static_cast<float>(x) + 0.5f - p.x, static_cast<float>(y) + 0.5f - p.y};
                const Colour light = star.colour * (star.light * Bell(Length(off) / star.radius));
                Pixel& pixel = canvas.At(x, y);
                pixel = {pixel.r + light.r, pixel.g + light.g, pixel.b + light.b, pixel.a};
            }
    }
    // The paper goes on from wall to wall, but not over the upper edges, so that it gives way there.
    constexpr float Way = 40;
    const bool isTop = face.height == face.width;
    const Paper& paper = SketchPaper();
    Dice dice(431);
    const Mask tooth = Mask(face.width, face.height).Each([&](float x, float y) {
        const float edge = isTop ? Min(Min(x, w - x), y) : y;
        return 0.5f +
               Smooth(0, Way, edge) * (paper.Height(Floor(x), Floor(y)) - 0.5f + dice.Range(-0.45f, 0.45f));
    });
    canvas.Tone(tooth, 0.66f, 1.34f);
    return canvas;
}

// clang-format off
constexpr Face Left = {1024, 512,
    [](float u, float v) { return Towards(-0.5f, (1 - v) * BoxHeight, 0.5f - u); },
    [](const Direction& d, Vec2& uv) {
        if (d.x > -0.01f)
            return false;
        uv = {0.5f - d.z / -d.x * 0.5f, 1 - d.y / -d.x * 0.5f / BoxHeight};
        return true;
    }};
constexpr Face Back = {1024, 512,
    [](float u, float v) { return Towards(u - 0.5f, (1 - v) * BoxHeight, -0.5f); },
    [](const Direction& d, Vec2& uv) {
        if (d.z > -0.01f)
            return false;
        uv = {0.5f + d.x / -d.z * 0.5f, 1 - d.y / -d.z * 0.5f / BoxHeight};
        return true;
    }};
constexpr Face Right = {1024, 512,
    [](float u, float v) { return Towards(0.5f, (1 - v) * BoxHeight, u - 0.5f); },
    [](const Direction& d, Vec2& uv) {
        if (d.x < 0.01f)
            return false;
        uv = {0.5f + d.z / d.x * 0.5f, 1 - d.y / d.x * 0.5f / BoxHeight};
        return true;
    }};
constexpr Face Top = {1024, 1024,
    [](float u, float v) { return Towards(u - 0.5f, BoxHeight, v - 0.5f); },
    [](const Direction& d, Vec2& uv) {
        if (d.y < 0.01f)
            return false;
        uv = {0.5f + d.x / d.y * BoxHeight, 0.5f + d.z / d.y * BoxHeight};
        return true;
    }};
// clang-format on

} // namespace

Canvas NightLeft()
{
    return Paint(Left);
}
Canvas NightBack()
{
    return Paint(Back);
}
Canvas NightRight()
{
    return Paint(Right);
}
Canvas NightTop()
{
    return Paint(Top);
}

} // namespace atelier
