// SPDX-License-Identifier: MIT
// Ploughed land. Every field has a phase, a number that grows by one from furrow to furrow; its light and the
// strokes of the pen follow it.
#include "art/atelier/Pen.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/town/Town.h"

#include <functional>
#include <vector>

namespace atelier
{

constexpr float Size = 1024;
constexpr int Side = 1024;

using Field = std::function<float(float x, float y)>;

// Where a line of equal phase goes from here. Left and right of it the phase falls and grows.
static Vec2 AlongFurrow(const Field& phase, Vec2 p)
{
    const Vec2 slope = {phase(p.x + 1, p.y) - phase(p.x - 1, p.y), phase(p.x, p.y + 1) - phase(p.x, p.y - 1)};
    return Normalised({-slope.y, slope.x});
}

static void Finish(Canvas& canvas, const Mask& light)
{
    SketchPaper().Show(canvas, 0.6f);
    canvas.Tone(light, 0, 1);
}

// The ground of the village ends 20 units beside the way; it is lost in the night before.
static float SideLight(float beside)
{
    return Smooth(19.5f, 8, Abs(beside));
}

// ---- The ground of the village, in its own units: X along the way, Z across it, to the right. The field's
// picture is laid 7 times along 100 units, so its land repeats in X.
constexpr float Repeat = 100.0f / 7;
constexpr float FurrowUnits = 0.64f;

// Which furrow, and how far across it. They follow the way and bend a little.
static float VillageFurrow(float X, float Z)
{
    static const Noise bend(301, 3, 0), sway(304, 1, 0);
    const float along = X / Repeat;
    return Z / FurrowUnits + 0.75f * sway.Gradient(along, Z / 9) + 0.30f * bend.Gradient(along * 3, Z / 3);
}

// Wet earth at night. The moon stands ahead and lies on the crests; stubble and moss show here and there.
static LinearColour VillageEarth(float X, float Z)
{
    // What is large changes across the way only: along it, it would show where the land repeats.
    static const Noise tint(302, 11, 0), strip(307, 1, 0), clod(303, 128, 0), grit(305, 512, 0),
        wet(306, 7, 0);
    const float u = X / Repeat;
    const float t = 0.5f + 0.42f * tint.Fbm(u * 11, Z / 1.3f, 4) + 0.5f * strip.Gradient(0.3f, Z / 4.5f);
    LinearColour earth = Mix(Mix(palette::Slate, palette::Ink, 0.5f),
                             Mix(palette::Moss, palette::Slate, 0.35f), 0.55f * Smooth(0.1f, 0.9f, t));
    earth = Mix(earth, Mix(palette::Ochre, palette::Slate, 0.45f), 0.22f * Smooth(0.55f, 1.0f, t));
    const float f = Fraction(VillageFurrow(X, Z));
    const float lump = clod.Fbm(u * 128, Z / 0.20f, 3);
    const float ridge = Smooth(0.12f, 0.48f, f + 0.10f * lump) * Smooth(1.0f, 0.66f, f + 0.10f * lump);
    const float grain = 1 + 0.62f * grit.Gradient(u * 512, Z / 0.08f) + 0.35f * lump;
    LinearColour c = earth * (0.42f + 0.75f * ridge) * grain;
    c = Mix(c, palette::Mist, 0.20f * Hill(0.62f, 0.16f, f + 0.12f * lump) * Smooth(-0.2f, 0.5f, lump));
    // Water stands in some furrows.
    const float pool =
        Smooth(0.20f, 0.34f, wet.Fbm(u * 7, Z / 2.4f, 3)) * Hill(0.02f, 0.17f, Fraction(f + 0.5f) - 0.5f);
    return Mix(c, Mix(palette::Mist, palette::Slate, 0.3f), 0.5f * pool);
}

// The pen goes along the furrows. `place` says where a point of the ground lies on the sheet; strokes start
// at random points of the given ground and stop where `open` is low.
static void HatchFurrows(Pen& pen, Dice& dice, int strokes, Vec2 low, Vec2 high,
                         const std::function<Vec2(Vec2)>& place, const std::function<bool(Vec2)>& open)
{
    for (int i = 0; i < strokes; i++) {
        Vec2 p = {dice.Range(low.x, high.x), dice.Range(low.y, high.y)};
        // To the shaded side of the ridge, where the shadow is drawn in two or three lines.
        const float wanted = float(Floor(VillageFurrow(p.x, p.y))) + 0.86f + dice.Range(-0.07f, 0.16f);
        for (int step = 0; step < 4; step++)
            p.y += (wanted - VillageFurrow(p.x, p.y)) * FurrowUnits;
        const float length = dice.Range(0.6f, 4.2f);
        Line line;
        for (float d = 0; d < length; d += 0.06f) {
            if (!open(p))
                break;
            line.push_back(place(p));
            p.x += 0.06f;
            p.y += (wanted - VillageFurrow(p.x, p.y)) * FurrowUnits;
        }
        if (line.size() > 8)
            pen.Stroke(line, {.start = 0.1f, .middle = dice.Range(0.35f, 1), .end = 0});
    }
}

Canvas FieldTile()
{
    constexpr float Across = 40;
    Canvas canvas(Side, Side);
    const auto toGround = [](float x, float y) {
        return Vec2{y / Size * Repeat, (x / Size - 0.5f) * Across};
    };
    const auto toSheet = [](Vec2 g) { return Vec2{(g.y / Across + 0.5f) * Size, g.x / Repeat * Size}; };
    canvas.Ground([&](float x, float y) {
        const Vec2 g = toGround(x, y);
        return VillageEarth(g.x, g.y);
    });
    Mask lines(Side, Side, 0, true);
    Pen pen(lines, SketchPaper(), {.width = 3.4f, .wobble = 1.2f, .wave = 40, .skip = 0.5f, .dry = 0.5f},
            310);
    Dice dice(311);
    HatchFurrows(pen, dice, 900, {0, -19}, {Repeat, 19}, toSheet, [](Vec2) { return true; });
    canvas.Cover(lines, palette::Ink, 0.7f);
    // Stubble, drawn long: the picture is laid out nearly three times as wide as it is deep.
    Mask stubble(Side, Side, 0, true);
    Pen straw(stubble, SketchPaper(), {.width = 2.0f, .wobble = 0.4f, .skip = 0.2f}, 312);
    for (int i = 0; i < 1500; i++) {
        const Vec2 p = {dice.Range(0, Size), dice.Range(0, Size)};
        const Vec2 g = toGround(p.x, p.y);
        if (Abs(Fraction(VillageFurrow(g.x, g.y)) - 0.5f) < 0.2f)
            straw.Stroke(Straight({p, p + Vec2{dice.Range(-3, 3), dice.Range(6, 20)}}),
                         {.start = 0.9f, .middle = 0.7f, .end = 0});
    }
    canvas.Cover(stubble, Mix(palette::Parchment, palette::Slate, 0.35f), 0.38f);
    Finish(canvas,
           Mask(Side, Side).Each([](float x, float) { return SideLight((x / Size - 0.5f) * Across); }));
    return canvas;
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

Canvas Plaza()
{
    constexpr float Units = 60, PerUnit = Size / Units, Middle = Size / 2;
    constexpr float PlazaX = 64; // where it lies on the way
    const Noise stones(323), worn(326), soil(327), ash(328);
    // The picture's top is the right-hand side of the way.
    const auto fromMiddle = [](float x, float y) {
        return Vec2{(x - Middle) / PerUnit, (Middle - y) / PerUnit};
    };
    const auto raggedness = [&](Vec2 g) { return 1.5f * worn.Fbm(g.x / 2.6f, g.y / 2.6f, 3); };
    Canvas canvas(Side, Side);
    canvas.Ground([&](float x, float y) {
        const Vec2 g = fromMiddle(x, y);
        const float r = Length(g);
        // The land lies darker and drier in places; not where the field's picture goes on.
        const float lie = soil.Fbm(g.x / 9, g.y / 6, 3) * Smooth(-28, -16, g.x);
        const LinearColour field =
            Mix(VillageEarth(g.x + PlazaX, g.y) * (1 + 0.55f * lie),
                Mix(palette::Moss, palette::Slate, 0.35f), 0.22f * Smooth(0.05f, 0.5f, lie));
        const float t = 0.5f + 0.7f * soil.Fbm(g.x / 2.2f, g.y / 2.2f, 5);
        const LinearColour trodden =
            Mix(Mix(palette::Slate, palette::Moss, 0.55f), palette::Parchment, 0.16f * t) *
            (0.55f + 0.35f * t);
        LinearColour c = Mix(trodden, field, Smooth(12.6f, 14.6f, r + raggedness(g)));
        const Stone stone = StoneAt(g.x, g.y);
        if (stone.is) {
            const float own = float(stone.name >> 8 & 255) / 255;
            const float lost = float(stone.name >> 16 & 255) / 255;
            const float there =
                stone.slab ? 1.0f
                           : Smooth(lost - 0.1f, lost + 0.1f, 1.2f * (13.9f - r - raggedness(g)) / 1.6f);
            const float rough = 0.75f * stones.Fbm(g.x / 0.8f, g.y / 0.8f, 4);
            LinearColour s = Mix(palette::Slate, Mix(palette::Mist, palette::Parchment, 0.35f),
                                 0.12f + 0.42f * own + 0.3f * rough);
            s = s * (0.62f + 0.16f * stone.toLight + 0.35f * rough);
            s = Mix(s, palette::Mist,
                    0.35f * Hill(0.10f, 0.06f, stone.edge) * Smooth(-0.2f, 0.8f, stone.toLight));
            const LinearColour joint = Mix(palette::Ink, palette::Night, 0.4f);
            s = Mix(joint, s, Smooth(0.015f, 0.075f, stone.edge));
            c = Mix(c, s, there);
        }
        // The hearth: a round of ash that the fire grows out of.
        const float hearth = Smooth(1.5f, 1.3f, r + 0.12f * ash.Gradient(g.x / 0.5f, g.y / 0.5f));
        return Mix(c, Mix(palette::Ink, palette::Slate, 0.25f + 0.35f * ash.Fbm(g.x / 0.4f, g.y / 0.4f, 4)),
                   hearth);
    });
    Wash(canvas, SketchPaper(), Mask(Side, Side).Each([&](float x, float y) {
        const Vec2 g = fromMiddle(x, y);
        return Smooth(0.05f, 0.2f, soil.Fbm(g.x / 5 + 7, g.y / 5, 4)) * Smooth(14.5f, 13, Length(g));
    }),
         {.pigment = palette::Slate, .density = 0.3f, .pool = 1, .poolWidth = 5}, 330);
    Mask lines(Side, Side), ink(Side, Side);
    const auto toSheet = [](Vec2 g) {
        return Vec2{Middle + (g.x - PlazaX) * PerUnit, Middle - g.y * PerUnit};
    };
    Pen plough(lines, SketchPaper(), {.width = 2.0f, .wobble = 0.8f, .wave = 30, .skip = 0.5f, .dry = 0.5f},
               331);
    Dice dice(332);
    HatchFurrows(plough, dice, 2600, {PlazaX - 30, -29}, {PlazaX + 30, 29}, toSheet, [&](Vec2 g) {
        const Vec2 m = {g.x - PlazaX, g.y};
        return Length(m) + raggedness(m) > 14.4f;
    });
    canvas.Cover(lines, palette::Ink, 0.7f);
    // The slabs are drawn round with the pen, and shaded a little each its own way.
    Pen pen(ink, SketchPaper(), {.width = 2.4f, .wobble = 0.8f, .wave = 20, .skip = 0.45f}, 333);
    for (const PavingRing& ring : Paving)
        for (const float r : {ring.inner, ring.outer})
            if (ring.slab)
                for (int i = 0; i < ring.count; i++) {
                    const float a = 2 * Pi * (float(i) + dice.Range(0, 0.5f)) / float(ring.count);
                    pen.Stroke(Shaken(Arc({Middle, Middle}, r * PerUnit, r * PerUnit, a,
                                          a + dice.Range(0.6f, 1.3f) * 2 * Pi / float(ring.count)),
                                      1.2f, 16, dice.Next()),
                               {.start = 0.3f, .middle = 1, .end = 0.1f});
                }
    Mask shade = Mask(Side, Side).Each([&](float x, float y) {
        const Vec2 g = fromMiddle(x, y);
        const Stone stone = StoneAt(g.x, g.y);
        const float own = float(stone.name >> 20 & 255) / 255;
        return stone.is && stone.slab ? 0.7f * Smooth(0.45f, 0.95f, own) * Smooth(0.02f, 0.15f, stone.edge)
                                      : 0.0f;
    });
    pen.nib.width = 1.8f;
    Hatch(pen, shade, {.angle = 0.7f, .spacing = 6, .length = 22}, 334);
    canvas.Cover(ink, palette::Ink, 0.85f);
    // Embers in the joints about the hearth.
    const Mask embers = Mask(Side, Side).Each([&](float x, float y) {
        const Vec2 g = fromMiddle(x, y);
        const float r = Length(g);
        const Stone stone = StoneAt(g.x, g.y);
        const float joint = stone.is ? Smooth(0.09f, 0.0f, stone.edge) : r < 1.45f ? 0.5f : 0.0f;
        return joint * Bell(r / 3.2f) * Smooth(-0.3f, 0.4f, ash.Fbm(g.x / 0.7f, g.y / 0.7f, 4));
    });
    canvas.Light(embers, palette::Amber, 0.85f);
    canvas.Light(embers.Blurred(9), palette::Ochre, 0.8f);
    Finish(canvas, Mask(Side, Side).Each([&](float x, float y) {
        const Vec2 g = fromMiddle(x, y);
        const float beside = SideLight(g.y);
        const float round = Smooth(29, 14, Length(g));
        return Max(round, beside * Smooth(0.55f, 0.2f, x / Size));
    }));
    return canvas;
}

// The line of mist of postprocessing_blur.fp.
constexpr LinearColour NightMist = {FromScreen(0.21f), FromScreen(0.26f), FromScreen(0.36f)};

// The land of FieldOfTheNames in pixels: patches, each ploughed its own way, the tracks to the tree in the
// middle, and a pond.
class PatchedLand
{
public:
    PatchedLand();

    uint32_t NameAt(float x, float y) const // of the patch: a random number
    {
        const int i = Floor(Clamp(x, 0, Size - 1)), j = Floor(Clamp(y, 0, Size - 1));
        return names[size_t(j) * Side + size_t(i)];
    }
    float Phase(float x, float y) const; // of the furrows

    Line tracks[3], shore;
    Mask trodden, water;
    Mask between; // 1 on the borders of the patches

private:
    std::vector<uint32_t> names;
    Noise bend;
};

PatchedLand::PatchedLand()
    : trodden(Side, Side), water(Side, Side), between(Side, Side), names(size_t(Side) * Side), bend(342)
{
    constexpr float Patch = 215;
    constexpr Vec2 Pond = {352, 604};
    tracks[0] = Shaken(Through({{512, 512}, {600, 486}, {690, 520}, {800, 492}, {1024, 540}}), 7, 60, 355);
    tracks[1] = Shaken(Through({{512, 512}, {470, 440}, {486, 330}, {430, 210}, {440, 0}}), 7, 60, 356);
    tracks[2] = Shaken(Through({{512, 512}, {540, 600}, {500, 720}, {560, 1024}}), 7, 60, 357);
    for (const Line& track : tracks)
        trodden.Fill(Limb(track, 9, 7, 6));
    trodden.Fill(Shaken(Ellipse({512, 512}, 34, 30), 6, 26, 358)).Shake(3, 14, 359);
    shore = Shaken(Ellipse(Pond, 62, 37, -0.4f), 7, 50, 360);
    water.Fill(shore);
    const Noise patches(341);
    between.Each([&](float x, float y) {
        const Vec2 p = patches.Warp(x / Patch + 0.35f, y / Patch + 0.2f, 0.10f, 2);
        const Noise::WorleyCell cell = patches.Worley(p.x, p.y);
        names[size_t(Floor(y)) * Side + size_t(Floor(x))] = cell.name;
        return Smooth(0.050f, 0.022f, cell.second - cell.nearest);
    });
}

float PatchedLand::Phase(float x, float y) const
{
    const uint32_t name = NameAt(x, y);
    const float turn = float(name & 1023) / 1024 * Pi;
    const float spacing = 8.5f + 4.5f * float(name >> 10 & 255) / 255;
    return (x * Cos(turn) + y * Sin(turn)) / spacing + 0.8f * bend.Fbm(x / 150, y / 150, 2);
}

// The earth under the moon, and the shores that a wet wash dried in.
static void PaintEarth(Canvas& canvas, const PatchedLand& land)
{
    const Noise tint(343), clod(344), lost(345);
    canvas.Ground([&](float x, float y) {
        const uint32_t name = land.NameAt(x, y);
        const float kind = float(name >> 18 & 255) / 255, t = 0.5f + 0.65f * tint.Fbm(x / 95, y / 95, 5);
        const LinearColour earth = Mix(palette::Mist, palette::Parchment, 0.40f + 0.35f * kind + 0.25f * t);
        const float grain = 1 + 0.18f * clod.Fbm(x / 7, y / 7, 3);
        const float ridge = 0.5f + 0.5f * Sin(2 * Pi * land.Phase(x, y));
        return earth * (0.24f + 0.08f * kind + 0.16f * t + 0.05f * ridge) * grain;
    });
    // Where the wash was wet it pooled and dried in shores.
    Wash(canvas, SketchPaper(), Mask(Side, Side).Each([&](float x, float y) {
        return Smooth(-0.02f, 0.12f, lost.Fbm(x / 170, y / 170, 4));
    }),
         {.pigment = palette::Slate, .density = 0.20f, .pool = 1.4f, .poolWidth = 6, .stray = 5}, 349);
}

// Every fourth stroke is chalk on the ridge, the others are ink in the furrow.
static void DrawFurrows(Canvas& canvas, const PatchedLand& land, Dice& dice)
{
    const Paper& paper = SketchPaper();
    const Field phase = [&](float x, float y) { return land.Phase(x, y); };
    Mask lines(Side, Side), light(Side, Side);
    Pen pen(lines, paper, {.width = 2.5f, .wobble = 0.8f, .wave = 26, .skip = 0.55f, .dry = 0.6f}, 350);
    Pen chalk(light, paper, {.width = 2.2f, .wobble = 0.8f, .wave = 26, .skip = 0.6f, .dry = 0.9f}, 351);
    for (int i = 0; i < 5200; i++) {
        Vec2 p = {dice.Range(0, Size), dice.Range(0, Size)};
        const bool bright = i % 4 == 0;
        // Onto the furrow, then along it to the border of the patch.
        const float wanted =
            float(Floor(phase(p.x, p.y))) + (bright ? 0.27f : 0.75f) + dice.Range(-0.08f, 0.08f);
        const uint32_t name = land.NameAt(p.x, p.y);
        const Vec2 way = AlongFurrow(phase, p), over = {way.y, -way.x};
        const float slope = phase(p.x + over.x, p.y + over.y) - phase(p.x, p.y);
        if (Abs(slope) < 0.02f)
            continue;
        p = p + over * ((wanted - phase(p.x, p.y)) / slope);
        const float length = dice.Range(20, 120);
        Line line;
        for (float d = 0; d < length; d += 3) {
            if (p.x < 1 || p.y < 1 || p.x > Size - 2 || p.y > Size - 2 || land.NameAt(p.x, p.y) != name ||
                land.between.Sample(p.x, p.y) > 0.4f || land.trodden.Sample(p.x, p.y) > 0.5f ||
                land.water.Sample(p.x, p.y) > 0.5f)
                break;
            line.push_back(p);
            p = p + AlongFurrow(phase, p) * 3;
        }
        if (line.size() > 5)
            (bright ? chalk : pen).Stroke(line, {.start = 0.15f, .middle = dice.Range(0.4f, 1), .end = 0});
    }
    canvas.Cover(light, palette::Parchment, 0.08f);
    canvas.Cover(lines, palette::Night, 0.42f);
}

// Trodden earth with its ruts, and the water with its bank, its sky and its reeds.
static void PaintTracksAndPond(Canvas& canvas, const PatchedLand& land, Dice& dice)
{
    const Noise clod(344), lost(345);
    canvas.Cover(
        Mask(land.trodden).Blur(1.5f),
        [&](float x, float y) {
            const float t = 0.5f + 0.8f * clod.Fbm(x / 9, y / 9, 4);
            return Mix(palette::Mist, palette::Bone, 0.4f + 0.4f * t) * (0.40f + 0.20f * t);
        },
        0.9f);
    Mask drawn(Side, Side);
    Pen rut(drawn, SketchPaper(), {.width = 2.6f, .wobble = 1.5f, .wave = 30, .skip = 0.5f, .dry = 0.5f},
            361);
    for (const Line& track : land.tracks)
        for (const float side : {-4.5f, 4.0f})
            rut.Stroke(Beside(track, side), {.start = 0.6f, .middle = 0.9f, .end = 0.5f});
    // The bank lies in shade on one side. The water is still: the sky's mist, and the dark of its depth.
    canvas.Cover(Mask(land.water).Blur(9).Scale(1.3f), palette::Night, 0.55f);
    const Mask deep = land.water.Inside(40);
    canvas.Cover(land.water, [&](float x, float y) {
        const float ripple = lost.Fbm(x / 60, y / 14, 2);
        const float depth = Smooth(2, 26, deep.Sample(x, y) + 6 * ripple);
        return Mix(Mix(palette::Slate, palette::Mist, 0.35f) * 0.55f, palette::Night, 0.8f * depth);
    });
    rut.nib.width = 3.4f;
    rut.Stroke(land.shore, {.start = 0.7f, .middle = 1, .end = 0.6f});
    rut.nib.width = 2.2f;
    for (int i = 0; i < 70; i++) {
        const Vec2 at = PointAt(land.shore, dice.Unit());
        rut.Stroke(
            Through({at, at + Vec2{dice.Range(-3, 3), -5}, at + Vec2{dice.Range(-7, 7), -dice.Range(9, 17)}}),
            {.start = 0.9f, .middle = 0.7f, .end = 0});
    }
    canvas.Cover(drawn, palette::Ink, 0.6f);
}

// Ditches, and hedges along some of them.
static void PaintHedges(Canvas& canvas, const Mask& between, Dice& dice)
{
    const Paper& paper = SketchPaper();
    const Noise bush(346);
    canvas.Cover(Mask(between).Blur(1.2f), palette::Night, 0.45f);
    Mask hedge(Side, Side), lit(Side, Side);
    Pen leaf(hedge, paper, {.width = 3}, 353), top(lit, paper, {.width = 2}, 354);
    for (int i = 0; i < 26000; i++) {
        const Vec2 p = {dice.Range(0, Size), dice.Range(0, Size)};
        if (between.Sample(p.x, p.y) < 0.3f || bush.Fbm(p.x / 60, p.y / 60, 2) < -0.12f)
            continue;
        leaf.Dot(p + Vec2{dice.Range(-5, 5), dice.Range(-5, 5)}, dice.Range(1.2f, 4.2f));
        if (dice.Chance(0.4f))
            top.Dot(p + Vec2{dice.Range(-4, 4), dice.Range(-6, 2)}, dice.Range(0.7f, 1.7f));
    }
    canvas.Cover(hedge, Mix(palette::Ink, palette::Moss, 0.25f), 0.72f);
    canvas.Cover(lit, Mix(palette::Moss, palette::Mist, 0.4f), 0.35f);
}

// Seen from above and from near, under the moon: each patch ploughed its own way, in pen strokes over a wash,
// with hedges and ditches between them, a pond, and tracks that lead to the tree in the middle. All of it is
// parchment and mist of nearly one tone, the ground on which the tree is ink; the far border is the mist from
// which postprocessing_blur.fp lets the sky rise.
Canvas FieldOfTheNames()
{
    const PatchedLand land;
    Canvas canvas(Side, Side);
    PaintEarth(canvas, land);
    Dice dice(352);
    DrawFurrows(canvas, land, dice);
    PaintTracksAndPond(canvas, land, dice);
    PaintHedges(canvas, Mask(land.between).Subtract(Mask(land.trodden).Blur(2)).Subtract(land.water), dice);
    SketchPaper().Show(canvas, 0.6f);
    const Noise lost(345);
    // The land is lost in mist towards the border, so that the square's edge is not seen.
    canvas.Cover(Mask(Side, Side).Each([&](float x, float y) {
        const float r = Length({x - Size / 2, y - Size / 2}) / (Size / 2);
        return Smooth(0.42f, 0.93f, r + 0.10f * lost.Fbm(x / 130, y / 130, 4));
    }),
                 NightMist);
    return canvas;
}

} // namespace atelier
