// SPDX-License-Identifier: MIT
// The night over the village. The sky is a colour for every direction, so that it goes on across the edges of
// its box; the faces only look it up.
#include "art/atelier/Glow.h"
#include "art/atelier/Noise.h"
#include "art/atelier/pictures/town/Town.h"
#include "art/atelier/pictures/town/VillageEarth.h"

namespace atelier
{

constexpr float BoxHeight = 0.55f; // of the box's width, above its middle
// The box has no face at +z: towards it the others fade to the night that is there, as a front of cloud would darken
// them, slowly and nowhere along a straight line.
constexpr float FadeBegins = -0.30f, FadeEnds = 0.48f;
constexpr float PlainRises = 0.034f; // the slope up to which the plain gets lighter
constexpr float FrontRagged = 0.42f; // by which the front strays, in widths of the box; nothing at its end

struct Direction {
    float x, y, z; // y up, unit length
};

static Direction Towards(float x, float y, float z)
{
    const float length = Sqrt(x * x + y * y + z * z);
    return {x / length, y / length, z / length};
}

static const Direction Moon = Towards(0.11f, 0.27f, -0.5f);
constexpr float MoonRadius = 0.062f; // radians

static float AngleTo(const Direction& a, const Direction& b)
{
    // The chord is the angle nearly enough for what is near, and does not lose its figures there.
    const float x = a.x - b.x, y = a.y - b.y, z = a.z - b.z;
    return Sqrt(x * x + y * y + z * z);
}

// The half globe of the sky laid flat, the zenith in the middle, the horizon at length 1.
static Vector2 Flat(const Direction& d)
{
    return {d.x / (1 + d.y), d.z / (1 + d.y)};
}

// How high the land stands in a direction round the horizon, as the tangent of its angle: two ranges of
// hills, the nearer one wooded.
static float FarHillsAt(Vector2 round)
{
    static const Noise hills(403);
    return 0.070f + 0.055f * hills.Fbm(round.x * 2.1f + 3, round.y * 2.1f + 7, 4);
}
static float HillsAt(Vector2 round)
{
    static const Noise hills(401), firs(402);
    const float high = 0.034f + 0.045f * hills.Fbm(round.x * 2.6f + 9, round.y * 2.6f + 9, 3);
    const float wood = Smooth(-0.1f, 0.4f, hills.Gradient(round.x * 3 + 40, round.y * 3));
    const float trees = Abs(firs.Gradient(round.x * 90, round.y * 90)) * 0.7f +
                        0.5f * firs.Value(round.x * 210, round.y * 210);
    return Max(0.012f, high) + 0.024f * wood * trees;
}

// What stands on the nearer hills against the sky. Round: the direction in radians from the middle of the
// back face, to the right.
struct Landmark {
    float round, half, high; // half its width and its height over the hill, as tangents
    bool pointed;
};
// clang-format off
constexpr Landmark Landmarks[] = {
    {-0.330f, 0.0060f, 0.052f, true }, // a steeple, with its nave
    {-0.308f, 0.0200f, 0.016f, false},
    { 0.520f, 0.0035f, 0.030f, true }, // a row of poplars
    { 0.536f, 0.0040f, 0.036f, true },
    { 0.553f, 0.0035f, 0.032f, true },
    { 0.571f, 0.0042f, 0.038f, true },
    { 0.590f, 0.0032f, 0.027f, true },
    {-1.240f, 0.0040f, 0.036f, true },
    {-1.218f, 0.0036f, 0.030f, true },
    { 1.700f, 0.0150f, 0.020f, false}, // a farm, with its chimney
    { 1.692f, 0.0022f, 0.030f, false},
};
// Windows far away. Above: from the top of the nearer hill, mostly below it.
struct FarLight {
    float round, above, bright;
};
constexpr FarLight FarLights[] = {
    {-0.300f,  0.006f, 0.9f}, {-0.420f, -0.012f, 0.7f}, {-0.436f, -0.016f, 0.5f}, { 0.235f, -0.010f, 0.8f},
    { 0.262f, -0.014f, 0.4f}, { 0.640f, -0.012f, 0.6f}, { 1.050f, -0.010f, 0.8f}, { 1.082f, -0.015f, 0.5f},
    { 1.705f,  0.006f, 0.9f}, {-0.850f, -0.012f, 0.7f}, {-1.300f, -0.010f, 0.6f}, {-1.760f, -0.013f, 0.8f},
    { 2.200f, -0.012f, 0.6f}, {-2.150f, -0.011f, 0.5f},
};
// clang-format on

static float RoundOf(const Direction& d)
{
    return Angle({-d.z, d.x});
}

static float LandmarksAt(float round)
{
    float high = 0;
    for (const Landmark& mark : Landmarks) {
        const float off = Abs(round - mark.round);
        if (off >= mark.half * 1.15f)
            continue;
        const float t = off / mark.half;
        high = Max(high,
                   mark.pointed ? mark.high * (1 - 0.85f * t) : mark.high * (t < 1 ? 1 - 0.35f * t : 0.0f));
    }
    return high;
}

// The tooth of the paper and the bristles of a broad brush, dragged across the whole globe: no wall of the
// box has a sheet of its own.
static float ToothTowards(Vector2 flat)
{
    static const Noise tooth(416), bristle(417), load(419);
    const Vector2 drag = {flat.x * 0.766f + flat.y * 0.643f + 0.02f * load.Gradient(flat.x * 6, flat.y * 6),
                          flat.y * 0.766f - flat.x * 0.643f +
                              0.04f * load.Gradient(flat.x * 4 + 9, flat.y * 4)};
    const float wet = 0.95f + 0.5f * load.Gradient(flat.x * 14, flat.y * 14);
    return 0.55f * tooth.Fbm(flat.x * 190, flat.y * 190, 2) +
           wet * (0.7f * bristle.Gradient(drag.x * 42, drag.y * 330) +
                  0.4f * bristle.Gradient(drag.x * 30, drag.y * 120));
}

static LinearColour SkyTowards(const Direction& d)
{
    static const Noise cloud(411), milk(412), dust(413), shore(414), maria(415), stroke(418);
    const Vector2 p = Flat(d);
    const float tooth = ToothTowards(p);
    LinearColour sky = Mix(palette::Slate * 0.66f, palette::Night * 0.9f, Smooth(0.0f, 0.35f, d.y));
    sky = Mix(sky, palette::Ink * 0.9f, Smooth(0.25f, 0.9f, d.y));
    // The brush went to and fro: broad, uneven strokes, level with the horizon.
    const float brushed =
        stroke.Fbm(p.x * 2.2f + 1.5f * d.y, d.y * 9 + 0.8f * stroke.Gradient(p.x * 2, p.y * 2), 4);
    sky = sky * (1 + 0.22f * brushed);
    // A last warmth low over the land.
    sky = sky + palette::Rust * (0.15f * Bell(d.y / 0.12f) * (0.55f - 0.45f * d.z) * (1 + 0.6f * brushed));
    // The milky way crosses the zenith.
    const float across = p.x * 0.8f + p.y * 0.6f + 0.10f * milk.Fbm(p.x * 3, p.y * 3, 3);
    const float lane = dust.Fbm(p.x * 7 + 3, p.y * 7, 5);
    const float band = Bell(across / 0.20f) * Smooth(0.12f, 0.5f, d.y);
    const float river =
        band * Clamp(0.55f + 0.9f * lane) * (1 - 0.75f * Bell((across + 0.05f * lane) / 0.045f));
    sky = sky + Mix(palette::Mist, palette::Slate, 0.35f) * (0.17f * river);
    // Washes of cloud: pigment pools where a wash ended and granulates inside it. The moon is behind them,
    // and lights the edges that look at her.
    const float far = AngleTo(d, Moon);
    const Vector2 w = cloud.Warp(p.x * 3.0f, p.y * 3.0f, 0.55f);
    const float body = cloud.Fbm(w.x, w.y, 5);
    const float low = Smooth(0.75f, 0.2f, d.y);
    const float veil = Smooth(-0.04f, 0.30f, body) * low;
    const float dried = Hill(0.075f, 0.035f, body + 0.012f * shore.Gradient(p.x * 60, p.y * 60)) * low;
    const LinearColour lit = palette::Slate * 0.62f + palette::Mist * (0.50f * Bell(far / 0.30f));
    sky = Mix(sky, lit * (1 + 0.12f * tooth), 0.55f * veil);
    sky = sky * (1 - 0.13f * dried * (1 - Bell(far / 0.22f)));
    sky = sky + palette::Parchment * (0.10f * dried * Bell(far / 0.26f));
    sky = sky +
          palette::Parchment * (0.26f * Bell(far / 0.095f) + 0.10f * Bell(far / 0.34f)) * (1 + 0.25f * body);
    // A ring about her, as before frost.
    sky = sky + palette::Ochre * (0.022f * Hill(0.150f, 0.050f, far + 0.02f * body));
    const float disc = Smooth(MoonRadius * 1.025f, MoonRadius * 0.975f, far + 0.0007f * tooth);
    const LinearColour face = Mix(palette::Bone, Mix(palette::Mist, palette::Parchment, 0.5f),
                                  Smooth(-0.1f, 0.45f, maria.Fbm(p.x * 22 + 5, p.y * 22 + 2, 4)));
    sky = Mix(sky, face * (0.95f - 0.30f * tooth), disc * (1 - 0.30f * veil));
    sky = sky * (1 + 0.64f * tooth);
    // Two ranges of land stand before it, mist between them; ground mist at the foot.
    const float level = Sqrt(d.x * d.x + d.z * d.z);
    const float rise = d.y / level;
    const Vector2 round = {d.x / level, d.z / level};
    const float farHill = FarHillsAt(round), hill = HillsAt(round), top = hill + LandmarksAt(RoundOf(d));
    const LinearColour farLand = Mix(Mix(palette::Slate, palette::Mist, 0.12f) * 0.55f, palette::Night * 0.8f,
                                     Smooth(0.02f, 0.10f, rise)) *
                                 (1 + 0.16f * tooth + 0.2f * brushed);
    sky = Mix(sky, farLand, 0.92f * Smooth(0.0016f, -0.0016f, rise - farHill));
    // Mist lies at their foot, on the plain. Below the box the night behind everything is seen from above: the plain
    // goes over into it.
    const float plain = Smooth(0.002f, PlainRises, rise + 0.006f * shore.Fbm(round.x * 9, round.y * 9, 3));
    const LinearColour land = Mix(Mix(palette::Slate, palette::Night, 0.45f) * 0.75f,
                                  Mix(palette::Ink, palette::Night, 0.45f), Smooth(0, 0.030f, rise)) *
                              (1 + 0.16f * tooth);
    return Mix(NightBehind, Mix(sky, land, Smooth(0.0012f, -0.0012f, rise - top)), plain);
}

struct Star {
    Direction place;
    float light, radius; // radius in pixels
    LinearColour colour;
};

static std::vector<Star> Stars()
{
    Dice dice(421);
    std::vector<Star> stars;
    while (stars.size() < 1500) {
        const float x = dice.Range(-1, 1), y = dice.Range(0, 1), z = dice.Range(-1, 1);
        const float length = Sqrt(x * x + y * y + z * z);
        const Direction d = {x / length, y / length, z / length};
        const Vector2 p = Flat(d);
        const float milky = Bell((p.x * 0.8f + p.y * 0.6f) / 0.2f);
        const float light = Pow(dice.Unit(), 5);
        if (length > 1 || length < 0.05f || !dice.Chance(0.35f + 0.65f * milky) || AngleTo(d, Moon) < 0.13f ||
            d.y < 0.13f)
            continue;
        const LinearColour colour =
            Mix(palette::Bone, dice.Chance(0.3f) ? palette::Amber : palette::ColdLight, dice.Range(0, 0.6f));
        stars.push_back({d, 0.10f + 0.9f * light, 0.7f + 1.1f * light, colour});
    }
    return stars;
}

// A face of the box: which point of the box a pixel shows (u and v from 0 to 1), and the way back.
struct PaintedFace {
    int width, height;
    Direction (*at)(float u, float v);
    bool (*seen)(const Direction& d, Vector2& uv);
    float (*depth)(float u, float v); // z of the point, in widths of the box
};

static Canvas Paint(const PaintedFace& face)
{
    Canvas canvas(face.width, face.height, palette::Black);
    const float w = float(face.width), h = float(face.height);
    canvas.Ground([&](float x, float y) { return SkyTowards(face.at(x / w, y / h)); });
    for (const Star& star : Stars()) {
        Vector2 uv;
        if (!face.seen(star.place, uv))
            continue;
        const Vector2 p = {uv.x * w, uv.y * h};
        const int reach = Floor(star.radius * 3) + 1;
        for (int y = Floor(p.y) - reach; y <= Floor(p.y) + reach; y++)
            for (int x = Floor(p.x) - reach; x <= Floor(p.x) + reach; x++) {
                if (x < 0 || y < 0 || x >= face.width || y >= face.height)
                    continue;
                const Vector2 off = {float(x) + 0.5f - p.x, float(y) + 0.5f - p.y};
                const LinearColour light = star.colour * (star.light * Bell(Length(off) / star.radius));
                Pixel& pixel = canvas.At(x, y);
                pixel = {pixel.r + light.r, pixel.g + light.g, pixel.b + light.b, pixel.a};
            }
    }
    for (const FarLight& light : FarLights) {
        const Vector2 round = {Sin(light.round), -Cos(light.round)};
        Vector2 uv;
        // None so low that its halo is cut off where the face ends.
        const float high = Max(HillsAt(round) + light.above, 0.032f);
        if (!face.seen(Towards(round.x, high, round.y), uv) || uv.x < 0 || uv.x > 1 || uv.y < 0 || uv.y > 1)
            continue;
        GlowAt(canvas, {uv.x * w, uv.y * h}, 1.1f, 11,
               {.core = palette::Amber, .halo = palette::Ochre, .strength = light.bright, .haloPart = 0.35f});
    }
    const Noise front(422);
    canvas.Cover(Mask(face.width, face.height).Each([&](float x, float y) {
        const Direction d = face.at(x / w, y / h);
        const Vector2 p = Flat(d);
        const float depth = face.depth(x / w, y / h);
        const float ragged = FrontRagged * front.Fbm(p.x * 2.6f + 5, p.y * 2.6f + 0.8f * d.y, 5);
        const float dark = Smooth(FadeBegins, FadeEnds, depth + ragged * Smooth(FadeEnds, 0.2f, depth));
        return 1 - (1 - dark) * (1 - dark) * Smooth(FadeEnds + 0.01f, FadeEnds - 0.12f, depth);
    }),
                 NightBehind);
    AllowForMist(canvas);
    return canvas;
}

// clang-format off
constexpr PaintedFace Faces[] = { // in the order of SkyFace
    {1024, 512,
        [](float u, float v) { return Towards(-0.5f, (1 - v) * BoxHeight, 0.5f - u); },
        [](const Direction& d, Vector2& uv) {
            if (d.x > -0.01f)
                return false;
            uv = {0.5f - d.z / -d.x * 0.5f, 1 - d.y / -d.x * 0.5f / BoxHeight};
            return true;
        },
        [](float u, float) { return 0.5f - u; }},
    {1024, 512,
        [](float u, float v) { return Towards(u - 0.5f, (1 - v) * BoxHeight, -0.5f); },
        [](const Direction& d, Vector2& uv) {
            if (d.z > -0.01f)
                return false;
            uv = {0.5f + d.x / -d.z * 0.5f, 1 - d.y / -d.z * 0.5f / BoxHeight};
            return true;
        },
        [](float, float) { return -0.5f; }},
    {1024, 512,
        [](float u, float v) { return Towards(0.5f, (1 - v) * BoxHeight, u - 0.5f); },
        [](const Direction& d, Vector2& uv) {
            if (d.x < 0.01f)
                return false;
            uv = {0.5f + d.z / d.x * 0.5f, 1 - d.y / d.x * 0.5f / BoxHeight};
            return true;
        },
        [](float u, float) { return u - 0.5f; }},
    {1024, 1024,
        [](float u, float v) { return Towards(u - 0.5f, BoxHeight, v - 0.5f); },
        [](const Direction& d, Vector2& uv) {
            if (d.y < 0.01f)
                return false;
            uv = {0.5f + d.x / d.y * BoxHeight, 0.5f + d.z / d.y * BoxHeight};
            return true;
        },
        [](float, float v) { return v - 0.5f; }},
};
// clang-format on

Canvas NightSky(SkyFace face)
{
    return Paint(Faces[int(face)]);
}

} // namespace atelier
