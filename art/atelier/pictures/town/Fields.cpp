// SPDX-License-Identifier: MIT
// Ploughed land. Every field is a phase, a number that grows by one from furrow to furrow; shade, crest and
// the strokes of the pen all follow it.
#include "art/atelier/Pen.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/town/Town.h"

namespace atelier
{

namespace
{

constexpr float Size = 1024;
constexpr int Side = 1024;

using Field = std::function<float(float x, float y)>;

struct Soil {
    std::function<Colour(float x, float y)> earth;
    Colour shade, crest;
    float crestOpacity;
    int strokes;
    float strokeLength; // pixels
    bool wraps;
};

// Where a line of equal phase goes from here. Left and right of it the phase falls and grows.
Vec2 AlongFurrow(const Field& phase, Vec2 p)
{
    const Vec2 slope = {phase(p.x + 1, p.y) - phase(p.x - 1, p.y), phase(p.x, p.y + 1) - phase(p.x, p.y - 1)};
    return Normalised({-slope.y, slope.x});
}

// `open` is 1 where the plough went.
Canvas Ploughed(const Field& phase, const Mask& open, const Soil& soil, uint32_t seed)
{
    const Paper& paper = SketchPaper();
    Canvas canvas(Side, Side);
    canvas.Ground(soil.earth);
    const auto profile = [&](float from, float to, float back) {
        return Mask(Side, Side, 0, soil.wraps)
            .Each([&](float x, float y) {
                const float f = Fraction(phase(x, y));
                return Smooth(from, to, f) * Smooth(back, to, f);
            })
            .Multiply(open);
    };
    Wash(canvas, paper, profile(0.0f, 0.25f, 0.6f),
         {.pigment = soil.shade,
          .density = 0.75f,
          .pool = 0.3f,
          .poolWidth = 3,
          .granulation = 0.9f,
          .bloom = 0.7f,
          .bloomSize = 128,
          .stray = 2},
         seed);
    canvas.Cover(profile(0.6f, 0.82f, 1.0f), soil.crest, soil.crestOpacity);
    Mask lines(Side, Side, 0, soil.wraps);
    Pen pen(lines, paper, {.width = 2.6f, .wobble = 1.2f, .wave = 30, .skip = 0.5f, .dry = 0.5f}, seed + 1);
    Dice dice(seed + 2);
    for (int i = 0; i < soil.strokes; ++i) {
        Vec2 p = {dice.Range(0, Size), dice.Range(0, Size)};
        const float wanted = soil.strokeLength * dice.Range(0.4f, 1.3f);
        Line line;
        for (float s = 0; s < wanted; s += 4) {
            const int x = Wrap(Floor(p.x), Side), y = Wrap(Floor(p.y), Side);
            if (open.At(x, y) < 0.5f)
                break;
            line.push_back(p);
            p = p + AlongFurrow(phase, p) * 4;
        }
        if (line.size() > 4)
            pen.Stroke(line, {.start = 0.1f, .middle = dice.Range(0.4f, 1), .end = 0});
    }
    canvas.Cover(lines, palette::Ink, 0.72f);
    return canvas;
}

void Finish(Canvas& canvas, const Mask& light)
{
    SketchPaper().Show(canvas, 0.6f);
    canvas.Tone(light, 0, 1);
}

// The ground of the village ends 20 units beside the way; it is lost in the night before.
float SideLight(float beside)
{
    return Smooth(19.5f, 8, Abs(beside));
}

} // namespace

Canvas FieldTile()
{
    constexpr float Furrows = 32;
    const Noise bend(301, 6, 4), tint(302, 8, 4), clod(303, 128, 64);
    const Field phase = [&](float x, float y) {
        return x / Size * Furrows + 0.8f * bend.Fbm(x / Size * 6, y / Size * 4, 2);
    };
    Soil soil;
    soil.earth = [&](float x, float y) {
        const float t = 0.5f + 0.6f * tint.Fbm(x / Size * 8, y / Size * 4, 4);
        const float grain = 1 + 0.35f * clod.Gradient(x / Size * 128, y / Size * 64);
        return Mix(Mix(palette::Slate, palette::Moss, 0.45f), Mix(palette::Ochre, palette::Slate, 0.55f),
                   Clamp(t)) *
               (1.05f * grain);
    };
    soil.shade = palette::Night;
    soil.crest = palette::Mist;
    soil.crestOpacity = 0.28f;
    soil.strokes = 620;
    soil.strokeLength = 220;
    soil.wraps = true;
    Canvas canvas = Ploughed(phase, Mask(Side, Side, 1, true), soil, 310);
    // Clods and stubble, drawn long: the picture is laid out nearly three times as wide as it is deep.
    Mask stubble(Side, Side, 0, true);
    Pen pen(stubble, SketchPaper(), {.width = 2.4f, .wobble = 0.4f, .skip = 0.2f}, 311);
    Dice dice(312);
    for (int i = 0; i < 900; ++i) {
        const Vec2 p = {dice.Range(0, Size), dice.Range(0, Size)};
        pen.Stroke(Straight({p, p + Vec2{dice.Range(-3, 3), dice.Range(8, 22)}}),
                   {.start = 0.9f, .middle = 0.7f, .end = 0});
    }
    canvas.Cover(stubble, Mix(palette::Parchment, palette::Slate, 0.4f), 0.5f);
    Finish(canvas, Mask(Side, Side).Each([](float x, float) { return SideLight((x / Size - 0.5f) * 40); }));
    return canvas;
}

Canvas Plaza()
{
    constexpr float Units = 60, PerUnit = Size / Units, Middle = Size / 2;
    const Noise bend(321), tint(322), stones(323), worn(324);
    const auto away = [](float x, float y) { return Length({x - Middle, y - Middle}) / PerUnit; };
    // A furrow every 1.25 units, as in the field, giving way before the ring.
    const Field phase = [&](float x, float y) {
        return y / Size * 48 + 0.8f * bend.Fbm(x / 170, y / 170, 2);
    };
    const Mask open = Mask(Side, Side).Each([&](float x, float y) {
        return Smooth(13, 14.5f, away(x, y) + 1.3f * worn.Fbm(x / 60, y / 60, 3));
    });
    Soil soil;
    soil.earth = [&](float x, float y) {
        const float t = 0.5f + 0.6f * tint.Fbm(x / 90, y / 90, 4);
        const Colour field = Mix(Mix(palette::Slate, palette::Moss, 0.45f),
                                 Mix(palette::Ochre, palette::Slate, 0.55f), Clamp(t));
        const Colour trodden = Mix(Mix(palette::Ochre, palette::Slate, 0.6f), palette::Parchment, 0.25f * t);
        return Mix(field * 1.05f, trodden, Smooth(15, 9, away(x, y)));
    };
    soil.shade = palette::Night;
    soil.crest = palette::Mist;
    soil.crestOpacity = 0.28f;
    soil.strokes = 520;
    soil.strokeLength = 130;
    soil.wraps = false;
    Canvas canvas = Ploughed(phase, open, soil, 330);
    // Stones: three rings of slabs about the tree's place; the middle one carries the pillars.
    struct Ring {
        float inner, outer;
        int count;
    };
    // clang-format off
    constexpr Ring Rings[] = {
        {1.6f,  2.9f,  9},
        {5.6f,  8.4f, 18},
        {10.9f, 12.3f, 40},
    };
    // clang-format on
    Mask slabs(Side, Side), ink(Side, Side), lit(Side, Side);
    Pen pen(ink, SketchPaper(), {.width = 3, .wobble = 0.9f, .wave = 20, .skip = 0.3f}, 331);
    Dice dice(332);
    for (const Ring& ring : Rings)
        for (int i = 0; i < ring.count; ++i) {
            const float step = 2 * Pi / static_cast<float>(ring.count);
            const float from = (static_cast<float>(i) + dice.Range(0.02f, 0.1f)) * step;
            const float to = (static_cast<float>(i) + dice.Range(0.88f, 0.97f)) * step;
            const float inner = (ring.inner + dice.Range(0, 0.25f)) * PerUnit,
                        outer = (ring.outer - dice.Range(0, 0.3f)) * PerUnit;
            Line outline = Arc({Middle, Middle}, outer, outer, from, to);
            const Line back = Arc({Middle, Middle}, inner, inner, to, from);
            outline.insert(outline.end(), back.begin(), back.end());
            outline.push_back(outline.front());
            outline = Shaken(outline, 2.2f, 18, dice.Next());
            slabs.Fill(outline, dice.Range(0.55f, 1));
            lit.Fill(Beside(Part(outline, 0, 0.3f), 2), 0.6f);
            pen.Stroke(outline, {.start = 0.8f, .middle = 1, .end = 0.7f});
        }
    canvas.Cover(slabs, [&](float x, float y) {
        return Mix(palette::Slate, Mix(palette::Mist, palette::Parchment, 0.3f),
                   Clamp(0.55f + 0.7f * stones.Fbm(x / 24, y / 24, 4)));
    });
    Wash(canvas, SketchPaper(), slabs, {.pigment = palette::Slate, .density = 0.4f, .poolWidth = 6}, 333);
    Hatch(pen, Mask(slabs).Scale(0.5f), {.angle = 0.7f, .spacing = 9, .length = 26}, 334);
    canvas.Cover(ink, palette::Ink, 0.9f);
    canvas.Light(Mask(Side, Side).Each([&](float x, float y) { return Bell(away(x, y) / 9); }, 4),
                 palette::Amber, 0.05f);
    Finish(canvas, Mask(Side, Side).Each([&](float x, float y) {
        const float beside = SideLight((y - Middle) / PerUnit);
        const float round = Smooth(29, 15, away(x, y));
        return Max(round, beside * Smooth(0.55f, 0.2f, x / Size));
    }));
    return canvas;
}

Canvas FieldOfTheNames()
{
    // Patches of land as the seed points' neighbourhoods, each ploughed its own way.
    const Noise land(341), bend(342), tint(343);
    constexpr float Patch = 250;
    const auto cellAt = [&](float x, float y) {
        const Vec2 p = land.Warp(x / Patch, y / Patch, 0.09f, 2);
        return land.Worley(p.x, p.y);
    };
    std::vector<uint32_t> names(static_cast<size_t>(Side) * Side);
    Mask open(Side, Side);
    open.Each([&](float x, float y) {
        const Noise::Cell cell = cellAt(x, y);
        names[static_cast<size_t>(Floor(y)) * Side + static_cast<size_t>(Floor(x))] = cell.name;
        return Smooth(0.02f, 0.05f, cell.second - cell.nearest);
    });
    const auto nameAt = [&](float x, float y) {
        const int i = Floor(Clamp(x, 0, Size - 1)), j = Floor(Clamp(y, 0, Size - 1));
        return names[static_cast<size_t>(j) * Side + static_cast<size_t>(i)];
    };
    const Field phase = [&](float x, float y) {
        const uint32_t name = nameAt(x, y);
        const float turn = static_cast<float>(name & 1023) / 1024 * Pi;
        const float spacing = 15 + 9 * static_cast<float>(name >> 10 & 255) / 255;
        return (x * Cos(turn) + y * Sin(turn)) / spacing + 0.9f * bend.Fbm(x / 200, y / 200, 2);
    };
    Soil soil;
    soil.earth = [&](float x, float y) {
        const uint32_t name = nameAt(x, y);
        const float t = 0.5f + 0.5f * tint.Fbm(x / 110, y / 110, 4);
        const float kind = static_cast<float>(name >> 18 & 255) / 255;
        const Colour earth = kind < 0.25f  ? Mix(palette::Moss, palette::Ochre, 0.35f)
                             : kind < 0.6f ? Mix(palette::Rust, palette::Ochre, 0.55f)
                                           : Mix(palette::Ochre, palette::Parchment, 0.35f);
        return earth * (0.55f + 0.35f * t);
    };
    soil.shade = Mix(palette::Rust, palette::Night, 0.6f);
    soil.crest = palette::Parchment;
    soil.crestOpacity = 0.24f;
    soil.strokes = 1300;
    soil.strokeLength = 120;
    soil.wraps = false;
    Canvas canvas = Ploughed(phase, open, soil, 350);
    // Ditches and hedges between them.
    Mask ditch = Mask(open).Invert();
    canvas.Cover(ditch, Mix(palette::Moss, palette::Ink, 0.45f), 0.75f);
    Mask hedge(Side, Side);
    Pen pen(hedge, SketchPaper(), {.width = 3}, 351);
    Dice dice(352);
    for (int i = 0; i < 9000; ++i) {
        const Vec2 p = {dice.Range(0, Size), dice.Range(0, Size)};
        if (ditch.Sample(p.x, p.y) > 0.6f && dice.Chance(0.6f))
            pen.Splatter(p, 7, 4, 3.2f);
    }
    canvas.Cover(hedge, palette::Ink, 0.85f);
    // The land is lost in the dark towards the border, so that the square's edge is not seen.
    Finish(canvas, Mask(Side, Side).Each([](float x, float y) {
        return Smooth(1, 0.5f, Length({x - Size / 2, y - Size / 2}) / (Size / 2));
    }));
    return canvas;
}

} // namespace atelier
