// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/town/Town.h"
#include "art/atelier/pictures/town/VillageEarth.h"

namespace atelier
{

constexpr float Size = 2048;
constexpr int Side = 2048;
constexpr float Units = 60, PerUnit = Size / Units, Middle = Size / 2;
constexpr float PlazaX = 64; // where it lies on the way
constexpr uint32_t SoilSeed = 327, AshSeed = 328;

// What the pillars keep from the fire's light: the bars of black that the show lays on the ground, outwards from the
// ring. Each begins at a pillar's foot, in the ring's radius, and widens; the further side bends away as the pillar
// does. They are opaque and their edges ruled: it is the ground that is painted darker towards them, so that they lie
// in soft, hatched shadows.
struct PillarShadow {
    float round;  // its direction, radians from the way's towards the right
    float length; // units
    float spread; // of its further side at the end, units
};
constexpr float RingRadius = 7, ShadowHalf = 1;
// clang-format off
constexpr PillarShadow Shadows[] = {
    {-0.611f, 27.3f, 2.5f},
    {-1.658f, 16.6f, 1.5f},
    {-2.705f, 16.6f, 1.5f},
    {-3.752f, 27.3f, 2.5f},
    {-4.800f, 21.6f, 1.9f},
    {-5.847f, 27.6f, 2.5f},
};
// clang-format on

// Units from the plaza's middle. The picture's top is the right-hand side of the way.
static Vector2 FromMiddle(float x, float y)
{
    return {(x - Middle) / PerUnit, (Middle - y) / PerUnit};
}

// How far the plaza's rim strays from its circle, in units.
static float Raggedness(Vector2 g)
{
    static const Noise worn(326);
    return 1.5f * worn.Fbm(g.x / 2.6f, g.y / 2.6f, 3);
}

// The plaza's paving: rings of setts and slabs about the tree's place, in units from it. The broad ring
// carries the pillars.
struct PavingRing {
    float inner, outer;
    int count; // stones round it
    bool slab;
};
// clang-format off
constexpr PavingRing Paving[] = {
    { 1.45f,  2.90f,  9, true },
    { 2.90f,  3.45f, 20, false},
    { 3.45f,  3.98f, 24, false},
    { 3.98f,  4.52f, 28, false},
    { 4.52f,  5.06f, 31, false},
    { 5.06f,  5.60f, 34, false},
    { 5.60f,  8.40f, 18, true },
    { 8.40f,  9.00f, 55, false},
    { 9.00f,  9.62f, 60, false},
    { 9.62f, 10.26f, 63, false},
    {10.26f, 10.90f, 68, false},
    {10.90f, 12.30f, 40, true },
    {12.30f, 12.95f, 80, false},
    {12.95f, 13.60f, 84, false},
    {13.60f, 14.25f, 88, false},
};
// clang-format on

struct Stone {
    bool is;
    float edge;    // units to its rim
    uint32_t name; // a random number
    float toLight; // -1 to 1: the side that looks at the middle is 1
    bool slab;
};

static Stone StoneAt(float x, float z) // from the plaza's middle
{
    static const Noise crooked(324), press(325);
    const float r = Length({x, z}) + 0.07f * crooked.Gradient(x / 0.9f, z / 0.9f);
    const float a = Angle({x, z}) / (2 * Pi) + 0.5f;
    uint32_t ringName = 11;
    for (const PavingRing& ring : Paving) {
        ringName = ringName * 1664525u + 1013904223u;
        if (r < ring.inner || r >= ring.outer)
            continue;
        const float middle = (ring.inner + ring.outer) / 2;
        const float u = a * float(ring.count) + float(ringName >> 16 & 255) / 255 +
                        0.07f * crooked.Gradient(x / 0.5f + 30, z / 0.5f);
        const int i = Wrap(Floor(u), ring.count);
        const float arc = 2 * Pi * middle / float(ring.count);
        const float fu = Fraction(u), fr = (r - ring.inner) / (ring.outer - ring.inner);
        const float sideways = Min(fu, 1 - fu) * arc, inward = Min(r - ring.inner, ring.outer - r);
        // Rounded corners: the two distances meet softly.
        const float k = ring.slab ? 0.22f : 0.16f;
        const float edge = Min(Min(sideways, inward), (sideways + inward) - k);
        const uint32_t name = (uint32_t(i) * 2654435761u) ^ ringName;
        return {true, edge + 0.03f * press.Gradient(x / 0.18f, z / 0.18f), name * 2246822519u, 1 - 2 * fr,
                ring.slab};
    }
    return {false, 0, 0, 0, false};
}

// The ground of the village about the plaza, and the earth that is trodden between the stones.
static LinearColour EarthAt(Vector2 g)
{
    static const Noise soil(SoilSeed);
    // The land lies darker and drier in places; not where the field's picture goes on.
    const float lie = soil.Fbm(g.x / 9, g.y / 6, 3) * Smooth(-28, -16, g.x);
    // The furrows sink into the distance beyond the camera's round.
    const float far = Smooth(21, 36, Length({g.x, g.y - 10})) * Smooth(-30, -14, g.x);
    const LinearColour ploughed =
        Mix(VillageEarth(g.x + PlazaX, g.y), Mix(palette::Slate, palette::Ink, 0.5f) * 0.72f, 0.85f * far);
    const LinearColour field = Mix(ploughed * (1 + 0.55f * lie), Mix(palette::Moss, palette::Slate, 0.35f),
                                   0.22f * Smooth(0.05f, 0.5f, lie));
    const float t = 0.5f + 0.7f * soil.Fbm(g.x / 2.2f, g.y / 2.2f, 5);
    const Noise::WorleyCell pebble =
        soil.Worley(g.x / 0.17f + 0.3f * soil.Gradient(g.x / 0.4f, g.y / 0.4f), g.y / 0.17f);
    const float gravel = Smooth(0.02f, 0.22f, pebble.second - pebble.nearest) *
                         (0.55f + 0.45f * float(pebble.name & 255) / 255);
    const LinearColour trodden =
        Mix(Mix(palette::Slate, palette::Moss, 0.35f), palette::Parchment, 0.16f * t) *
        (0.30f + 0.30f * t + 0.34f * gravel);
    return Mix(trodden, field, Smooth(12.6f, 14.6f, Length(g) + Raggedness(g)));
}

static LinearColour StoneColour(const Stone& stone, Vector2 g)
{
    static const Noise stones(323);
    const float own = float(stone.name >> 8 & 255) / 255;
    const float rough = 0.75f * stones.Fbm(g.x / 0.8f, g.y / 0.8f, 4);
    LinearColour s = Mix(palette::Slate, Mix(palette::Mist, palette::Parchment, 0.35f),
                         0.12f + 0.42f * own + 0.3f * rough);
    s = s * (0.62f + 0.16f * stone.toLight + 0.35f * rough);
    s = Mix(s, palette::Mist, 0.35f * Hill(0.10f, 0.06f, stone.edge) * Smooth(-0.2f, 0.8f, stone.toLight));
    const LinearColour joint = Mix(palette::Ink, palette::Night, 0.4f);
    return Mix(joint, s, Smooth(0.015f, 0.075f, stone.edge));
}

// Setts are missing towards the rim of the plaza; slabs are all there.
static float IsThere(const Stone& stone, Vector2 g)
{
    if (stone.slab)
        return 1;
    const float lost = float(stone.name >> 16 & 255) / 255;
    return Smooth(lost - 0.1f, lost + 0.1f, 1.2f * (13.9f - Length(g) - Raggedness(g)) / 1.6f);
}

static LinearColour GroundAt(Vector2 g)
{
    static const Noise ash(AshSeed);
    LinearColour c = EarthAt(g);
    const Stone stone = StoneAt(g.x, g.y);
    if (stone.is)
        c = Mix(c, StoneColour(stone, g), IsThere(stone, g));
    // The hearth: a round of ash that the fire grows out of.
    const float hearth = Smooth(1.5f, 1.3f, Length(g) + 0.12f * ash.Gradient(g.x / 0.5f, g.y / 0.5f));
    return Mix(c, Mix(palette::Ink, palette::Slate, 0.25f + 0.35f * ash.Fbm(g.x / 0.4f, g.y / 0.4f, 4)),
               hearth);
}

// 1 in the pillars' shadows, falling off beside them: sharply at their feet, over four units at their ends, as the shadow
// of a fire that is as wide as a tree does.
static float ShadowAt(Vector2 g)
{
    static const Noise uneven(335);
    float dark = 0;
    for (const PillarShadow& shadow : Shadows) {
        const float along = g.x * Cos(shadow.round) + g.y * Sin(shadow.round) - RingRadius;
        const float aside = g.y * Cos(shadow.round) - g.x * Sin(shadow.round);
        const float t = Clamp(along / shadow.length);
        const float near = -ShadowHalf + 0.6f * t * t, far = ShadowHalf + shadow.spread * t * Sqrt(t);
        const float beside = Max(near - aside, aside - far);
        const float beyond = Max(along - shadow.length, -1 - along);
        const float outside = Length({Max(beside, 0), Max(beyond, 0)});
        const float soft = (0.8f + 3.4f * t) * (1 + 0.25f * uneven.Fbm(g.x / 2.4f, g.y / 2.4f, 2));
        const float lit = Clamp((outside - 0.10f) / soft);
        dark = Max(dark, 1 - lit * (2 - lit));
    }
    return dark;
}

static void DrawFurrowsAround(Canvas& canvas, Dice& dice)
{
    Mask lines(Side, Side);
    Pen plough(lines, SketchPaper(), {.width = 4.2f, .wobble = 1.6f, .wave = 60, .skip = 0.4f, .dry = 0.4f},
               331);
    const auto toSheet = [](Vector2 g) {
        return Vector2{Middle + (g.x - PlazaX) * PerUnit, Middle - g.y * PerUnit};
    };
    const auto field = [](Vector2 g) {
        const Vector2 m = {g.x - PlazaX, g.y};
        return Length(m) + Raggedness(m) > 14.4f;
    };
    HatchFurrows(plough, dice, 2900, ShadedSide, {PlazaX - 30, -30}, {PlazaX + 30, 30}, toSheet, field);
    plough.nib.width = 2.0f;
    HatchFurrows(plough, dice, 1500, WholeFurrow, {PlazaX - 30, -30}, {PlazaX + 30, 30}, toSheet, field);
    canvas.Cover(lines, palette::Ink, 0.7f);
    // The camera comes as near as its own height: clods and stubble are drawn one by one.
    Mask stubble(Side, Side);
    Pen straw(stubble, SketchPaper(), {.width = 1.9f, .wobble = 0.5f, .skip = 0.25f}, 337);
    for (int i = 0; i < 4200; i++) {
        const Vector2 g = {dice.Range(-30, 30), dice.Range(-30, 30)};
        const Vector2 p = toSheet({g.x + PlazaX, g.y});
        const float across = Abs(Fraction(VillageFurrow(g.x + PlazaX, g.y)) - 0.5f);
        const Vector2 blade = {dice.Range(4, 17), dice.Range(-4, 4)};
        if (across < 0.22f && field({g.x + PlazaX, g.y}))
            straw.Stroke(Straight({p, p + blade}), {.start = 0.9f, .middle = 0.7f, .end = 0});
    }
    canvas.Cover(stubble, Mix(palette::Parchment, palette::Slate, 0.45f), 0.34f);
}

// The fire lights the ground, warmly about it and less with distance, and the pillars stand in its light.
static void DarkenGround(Canvas& canvas)
{
    const Mask shadow = Mask(Side, Side).Each([](float x, float y) { return ShadowAt(FromMiddle(x, y)); }, 2);
    constexpr LinearColour FireLight = {1.45f, 1.05f, 0.66f}, MoonLight = {0.86f, 0.96f, 1.12f};
    for (int y = 0; y < Side; y++)
        for (int x = 0; x < Side; x++) {
            const Vector2 g = FromMiddle(float(x) + 0.5f, float(y) + 0.5f);
            const float field = Smooth(-16, -30, g.x); // where the field's picture goes on
            const float far = Mix(1, Mix(0.32f, 1, Smooth(32, 9, Length(g))), 1 - field);
            const LinearColour light =
                Mix(Mix(MoonLight, FireLight, Smooth(15, 3, Length(g))), LinearColour{1, 1, 1}, field) * far;
            Pixel& p = canvas.At(x, y);
            p = {p.r * light.r, p.g * light.g, p.b * light.b, p.a};
        }
    // What lies on the far side of the camera's round, whose middle is ten units to the right, is seen through mist.
    canvas.Cover(Mask(Side, Side)
                     .Each(
                         [](float x, float y) {
                             const Vector2 g = FromMiddle(x, y);
                             return 0.8f * Smooth(18, 37, Length({g.x, g.y - 10})) * Smooth(-30, -14, g.x);
                         },
                         4),
                 NightBehind);
    // The pen follows the light outwards, closer where it is darker.
    Mask ink(Side, Side);
    Pen pen(ink, SketchPaper(), {.width = 1.5f, .wobble = 0.8f, .wave = 60, .skip = 0.25f}, 342);
    Dice dice(343);
    for (const PillarShadow& bar : Shadows) {
        const Vector2 out = {Cos(bar.round), Sin(bar.round)}, side = {-out.y, out.x};
        for (int i = 0; i < 420; i++) {
            const float from = RingRadius + bar.length * dice.Unit(), aside = dice.Range(-6.5f, 6.5f);
            Line line;
            for (float d = 0; d < 3.5f; d += 0.1f) {
                const Vector2 g = out * (from + d) + side * aside;
                const Vector2 at = {Middle + g.x * PerUnit, Middle - g.y * PerUnit};
                if (at.x < 1 || at.y < 1 || at.x > Size - 2 || at.y > Size - 2)
                    break;
                const float s = shadow.Sample(at.x, at.y);
                if (s < 0.12f + 0.5f * Abs(Fraction(float(i) * 0.618f) - 0.5f) || s > 0.97f)
                    break;
                line.push_back(at);
            }
            if (line.size() > 6)
                pen.Stroke(line, {.start = 0.1f, .middle = 0.9f, .end = 0});
        }
    }
    canvas.Cover(ink, palette::Ink * 0.35f, 0.5f);
    canvas.Tone(Mask(shadow).Each([&](float x, float y) { return 1 - shadow.At(Floor(x), Floor(y)); }), 0.02f,
                1);
}

// The slabs are drawn round with the pen, and shaded a little each its own way.
static void DrawSlabs(Canvas& canvas, Dice& dice)
{
    Mask ink(Side, Side);
    Pen pen(ink, SketchPaper(), {.width = 4.8f, .wobble = 1.4f, .wave = 40, .skip = 0.45f}, 333);
    for (const PavingRing& ring : Paving)
        for (const float r : {ring.inner, ring.outer})
            if (ring.slab)
                for (int i = 0; i < ring.count; i++) {
                    const float a = 2 * Pi * (float(i) + dice.Range(0, 0.5f)) / float(ring.count);
                    pen.Stroke(Shaken(Arc({Middle, Middle}, r * PerUnit, r * PerUnit, a,
                                          a + dice.Range(0.6f, 1.3f) * 2 * Pi / float(ring.count)),
                                      2.4f, 32, dice.Next()),
                               {.start = 0.3f, .middle = 1, .end = 0.1f});
                }
    const Mask shade = Mask(Side, Side).Each([](float x, float y) {
        const Vector2 g = FromMiddle(x, y);
        const Stone stone = StoneAt(g.x, g.y);
        const float own = float(stone.name >> 20 & 255) / 255;
        return stone.is && stone.slab ? 0.7f * Smooth(0.45f, 0.95f, own) * Smooth(0.02f, 0.15f, stone.edge)
                                      : 0.0f;
    });
    pen.nib.width = 2.8f;
    Hatch(pen, shade, {.angle = 0.7f, .spacing = 8, .length = 36}, 334);
    canvas.Cover(ink, palette::Ink, 0.85f);
}

// Embers in the joints about the hearth.
static void LightEmbers(Canvas& canvas)
{
    const Noise ash(AshSeed);
    const Mask embers = Mask(Side, Side).Each([&](float x, float y) {
        const Vector2 g = FromMiddle(x, y);
        const float r = Length(g);
        const Stone stone = StoneAt(g.x, g.y);
        const float joint = stone.is ? Smooth(0.09f, 0.0f, stone.edge) : r < 1.45f ? 0.5f : 0.0f;
        return joint * Bell(r / 3.2f) * Smooth(-0.3f, 0.4f, ash.Fbm(g.x / 0.7f, g.y / 0.7f, 4));
    });
    canvas.Light(embers, palette::Amber, 0.85f);
    canvas.Light(embers.Blurred(18), palette::Ochre, 0.8f);
}

Canvas Plaza()
{
    Canvas canvas(Side, Side);
    canvas.Ground([](float x, float y) { return GroundAt(FromMiddle(x, y)); });
    const Noise soil(SoilSeed);
    Wash(canvas, SketchPaper(), Mask(Side, Side).Each([&](float x, float y) {
        const Vector2 g = FromMiddle(x, y);
        return Smooth(0.05f, 0.2f, soil.Fbm(g.x / 5 + 7, g.y / 5, 4)) * Smooth(14.5f, 13, Length(g));
    }),
         {.pigment = palette::Slate,
          .density = 0.3f,
          .pool = 1,
          .poolWidth = 10,
          .bloomSize = 260,
          .stray = 8},
         330);
    Dice dice(332);
    DrawFurrowsAround(canvas, dice);
    DrawSlabs(canvas, dice);
    LightEmbers(canvas);
    DarkenGround(canvas);
    // On its left the field's picture goes on, which is narrower.
    const Noise rim(340);
    FinishGround(canvas, Mask(Side, Side).Each([&](float x, float y) {
        const Vector2 g = FromMiddle(x, y);
        const float own = Smooth(-30, -14, g.x);
        const float ragged = 5 * own * rim.Fbm(g.x / 7, g.y / 7, 4);
        const float beside = SideLight(Max(0, Abs(g.y) - 10 * own + ragged * Smooth(30, 24, Abs(g.y))));
        return beside * Smooth(29.6f, 22.5f, g.x + ragged * Smooth(30, 24, g.x));
    }));
    return canvas;
}

} // namespace atelier
