// SPDX-License-Identifier: MIT
#include "art/atelier/Pen.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/town/Town.h"

#include <functional>
#include <vector>

namespace atelier
{

constexpr float Size = 1024;
constexpr int Side = 1024;

// What the land ends in.
constexpr LinearColour NightMist = {FromScreen(0.21f), FromScreen(0.26f), FromScreen(0.36f)};

// A phase that grows by one from furrow to furrow; the strokes of the pen follow it.
using Field = std::function<float(float x, float y)>;

// Where a line of equal phase goes from here. Left and right of it the phase falls and grows.
static Vector2 AlongFurrow(const Field& phase, Vector2 p)
{
    const Vector2 slope = {phase(p.x + 1, p.y) - phase(p.x - 1, p.y),
                           phase(p.x, p.y + 1) - phase(p.x, p.y - 1)};
    return Normalised({-slope.y, slope.x});
}

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
    constexpr Vector2 Pond = {352, 604};
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
        const Vector2 p = patches.Warp(x / Patch + 0.35f, y / Patch + 0.2f, 0.10f, 2);
        const Noise::WorleyCell cell = patches.Worley(p.x, p.y);
        names[size_t(Floor(y)) * Side + size_t(Floor(x))] = cell.name;
        return Smooth(0.050f, 0.022f, cell.second - cell.nearest);
    });
}

float PatchedLand::Phase(float x, float y) const
{
    const uint32_t name = NameAt(x, y);
    const float turn = float(name & 1023) / 1024 * Pi;
    const float spacing = 15 + 6 * float(name >> 10 & 255) / 255;
    return (x * Cos(turn) + y * Sin(turn)) / spacing + 0.8f * bend.Fbm(x / 150, y / 150, 2);
}

// The earth under the moon, and the shores that a wet wash dried in.
static void PaintEarth(Canvas& canvas, const PatchedLand& land)
{
    const Noise tint(343), clod(344), lost(345);
    canvas.Ground([&](float x, float y) {
        const uint32_t name = land.NameAt(x, y);
        const float kind = float(name >> 18 & 255) / 255, t = 0.5f + 0.65f * tint.Fbm(x / 95, y / 95, 5);
        const LinearColour earth = Mix(palette::Mist, palette::Parchment, 0.10f + 0.22f * kind + 0.14f * t);
        const float grain = 1 + 0.18f * clod.Fbm(x / 7, y / 7, 3);
        // A furrow is a steep dark side and a long slope up to the next ridge.
        const float way = Fraction(land.Phase(x, y) + 0.25f);
        const float ridge = Smooth(0, 0.55f, way) * Smooth(1, 0.85f, way);
        return earth * (0.22f + 0.07f * kind + 0.10f * t + 0.17f * ridge) * grain;
    });
    // Where the wash was wet it pooled and dried in shores.
    Wash(canvas, SketchPaper(), Mask(Side, Side).Each([&](float x, float y) {
        return Smooth(-0.02f, 0.12f, lost.Fbm(x / 170, y / 170, 4));
    }),
         {.pigment = palette::Slate, .density = 0.12f, .pool = 0.5f, .poolWidth = 12, .stray = 5}, 349);
}

// Every fourth stroke is chalk on the ridge, the others are ink in the furrow.
static void DrawFurrows(Canvas& canvas, const PatchedLand& land, Dice& dice)
{
    const Paper& paper = SketchPaper();
    const Field phase = [&](float x, float y) { return land.Phase(x, y); };
    Mask lines(Side, Side), light(Side, Side);
    Pen pen(lines, paper, {.width = 4, .wobble = 1, .wave = 34, .skip = 0.35f, .dry = 0.5f}, 350);
    Pen chalk(light, paper, {.width = 3, .wobble = 1, .wave = 34, .skip = 0.5f, .dry = 0.8f}, 351);
    for (int i = 0; i < 4200; i++) {
        Vector2 p = {dice.Range(0, Size), dice.Range(0, Size)};
        const bool bright = i % 4 == 0;
        // Onto the furrow, then along it to the border of the patch.
        const float wanted =
            float(Floor(phase(p.x, p.y))) + (bright ? 0.45f : 0.73f) + dice.Range(-0.04f, 0.04f);
        const uint32_t name = land.NameAt(p.x, p.y);
        const Vector2 way = AlongFurrow(phase, p), over = {way.y, -way.x};
        const float slope = phase(p.x + over.x, p.y + over.y) - phase(p.x, p.y);
        if (Abs(slope) < 0.02f)
            continue;
        p = p + over * ((wanted - phase(p.x, p.y)) / slope);
        const float length = dice.Range(40, 190);
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
    canvas.Cover(light, palette::Parchment, 0.16f);
    canvas.Cover(lines, palette::Night, 0.55f);
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
        const Vector2 at = PointAt(land.shore, dice.Unit());
        rut.Stroke(Through({at, at + Vector2{dice.Range(-3, 3), -5},
                            at + Vector2{dice.Range(-7, 7), -dice.Range(9, 17)}}),
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
        const Vector2 p = {dice.Range(0, Size), dice.Range(0, Size)};
        if (between.Sample(p.x, p.y) < 0.3f || bush.Fbm(p.x / 60, p.y / 60, 2) < -0.12f)
            continue;
        leaf.Dot(p + Vector2{dice.Range(-5, 5), dice.Range(-5, 5)}, dice.Range(1.2f, 4.2f));
        if (dice.Chance(0.4f))
            top.Dot(p + Vector2{dice.Range(-4, 4), dice.Range(-6, 2)}, dice.Range(0.7f, 1.7f));
    }
    canvas.Cover(hedge, Mix(palette::Ink, palette::Moss, 0.25f), 0.72f);
    canvas.Cover(lit, Mix(palette::Moss, palette::Mist, 0.4f), 0.35f);
}

// Seen from above and from near, under the moon: each patch ploughed its own way, in pen strokes over a wash,
// with hedges and ditches between them, a pond, and tracks that lead to the tree in the middle. All of it is
// parchment and mist of nearly one tone, the ground on which the tree is ink, and mist at the
// far border.
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
