// SPDX-License-Identifier: MIT
#include "art/atelier/Pen.h"
#include "art/atelier/PenAlphabet.h"
#include "art/atelier/Pictures.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/town/Town.h"

namespace atelier
{

// What the weather leaves on a stone: pits, more of them together here and there, and rosettes of lichen.
static void AddPitsAndLichen(Canvas& canvas, Mask& ink, const Paper& paper)
{
    const int side = canvas.Width();
    const float size = float(side);
    Dice dice(708);
    Pen pit(ink, paper, {.width = 3}, 710);
    for (int nest = 0; nest < 16; nest++) {
        const Vector2 middle = {dice.Range(0, size), dice.Range(0, size)};
        for (int i = 0; i < 11; i++)
            pit.Dot(middle + Vector2{dice.Bell(), dice.Bell()} * 22, dice.Range(0.8f, 3));
    }
    const Noise ragged(711);
    for (int i = 0; i < 13; i++) {
        const Vector2 middle = {dice.Range(60, size - 60), dice.Range(60, size - 60)};
        const float radius = dice.Range(12, 38);
        const Mask rosette = Mask(side, side, 0, true).Each([&](float x, float y) {
            const Vector2 d = Vector2{x, y} - middle;
            const float r = Length(d) / radius + 0.45f * ragged.Fbm(x / 13, y / 13, 3);
            return Smooth(1, 0.86f, r) * Mix(0.35f, 1, Smooth(0.3f, 0.85f, r));
        });
        canvas.Cover(rosette,
                     Mix(Mix(palette::Parchment, palette::Amber, 0.6f), palette::Amber, 0.3f * dice.Unit()),
                     0.25f);
    }
}

// What the trees are of. Every side of every block shows the whole tile, mostly no larger than a thumbnail, and
// postprocessing_blur.fp draws ink in its place: one even stone of ochre, by whose hue a tree is known
// from the land, with moss and lichen that are but a breath darker and lighter, since a dark patch would be a hole.
static Canvas MossyStone()
{
    constexpr int Side = 512;
    constexpr float Size = Side;
    const Paper& paper = SketchPaper(512);
    const Noise rock(701, 4, 4), crack(702, 3, 3), moss(703, 3, 3), leaf(704, 64, 64), warp(705, 6, 6),
        pit(709, 24, 24);
    Canvas canvas(Side, Side);
    canvas.Ground([&](float x, float y) {
        const float t = 0.5f + 0.7f * rock.Fbm(x / Size * 4, y / Size * 4, 5);
        const LinearColour stone = Mix(Mix(palette::Ochre, palette::Amber, 0.6f), palette::Amber, Clamp(t));
        return stone * (0.98f + 0.10f * pit.Fbm(x / Size * 24, y / Size * 24, 3));
    });
    const Mask stains = Mask(Side, Side, 0, true).Each([&](float x, float y) {
        return Smooth(0.02f, 0.22f, rock.Fbm(x / Size * 4 + 2, y / Size * 4 + 1, 3));
    });
    Wash(canvas, paper, stains,
         {.pigment = Mix(palette::Rust, palette::Ochre, 0.35f),
          .density = 0.10f,
          .pool = 1,
          .poolWidth = 7,
          .bloomSize = 128},
         706);
    const Mask green = Mask(Side, Side, 0, true).Each([&](float x, float y) {
        const float w = 0.35f * warp.Fbm(x / Size * 6, y / Size * 6, 3);
        const float patch =
            moss.Fbm(x / Size * 3 + w, y / Size * 3, 3) + 0.10f * leaf.Gradient(x / Size * 64, y / Size * 64);
        return Smooth(0.10f, 0.20f, patch);
    });
    canvas.Glaze(Mask(green).Blur(7), palette::Rust, 0.12f);
    canvas.Cover(
        green,
        [&](float x, float y) {
            const float t = 0.45f + 0.7f * leaf.Fbm(x / Size * 64, y / Size * 64, 3);
            return Mix(palette::Moss * 0.75f, Mix(palette::Moss, palette::Amber, 0.35f), Clamp(t));
        },
        0.22f);
    Mask ink(Side, Side, 0, true);
    ink.Each([&](float x, float y) {
        const float w = 0.4f * warp.Fbm(x / Size * 6 + 1, y / Size * 6, 3);
        const float ridge = crack.Ridges(x / Size * 3 + w, y / Size * 3 + 0.5f, 1);
        const float thin = Smooth(-0.2f, 0.4f, rock.Fbm(x / Size * 4 + 3, y / Size * 4, 2));
        return Smooth(0.965f - 0.012f * thin, 0.99f, ridge) * thin;
    });
    AddPitsAndLichen(canvas, ink, paper);
    canvas.Cover(ink, Mix(palette::Ink, palette::Slate, 0.5f), 0.2f);
    // As on a pebble, light from the upper left, on every side of every block.
    canvas.Tone(Mask(Side, Side, 0, true).Each([&](float x, float y) {
        return (0.5f + 0.5f * Cos(2 * Pi * (x / Size - 0.36f))) *
               (0.5f + 0.5f * Cos(2 * Pi * (y / Size - 0.32f)));
    }),
                0.9f, 1.1f);
    paper.Show(canvas, 0.3f);
    return canvas;
}

// The hand that draws a mark: bone lines, bodies of slate, and amber for what sounds, runs or glows. In pixels of a
// strip 128 high.
struct MarkPen {
    Mask& lines;
    Mask& bodies;
    Mask& accents;
    Pen pen, amber;
    float scale;

    void Stroke(const Line& line, float width, Press press = {.start = 0.8f, .middle = 1, .end = 0.7f})
    {
        pen.nib.width = width * scale;
        pen.Stroke(Scaled(line, scale), press);
    }
    void Body(const Line& outline, float width = 4)
    {
        bodies.Fill(Scaled(outline, scale));
        Stroke(outline, width, {.start = 0.9f, .middle = 1, .end = 0.9f});
    }
    // Where a body is open, and where a line goes on behind it.
    void Open(const Line& outline) { bodies.Erase(Scaled(outline, scale)); }
    void Clear(const Line& outline)
    {
        Open(outline);
        lines.Erase(Scaled(outline, scale));
    }
    void Solid(const Line& outline) { lines.Fill(Scaled(outline, scale)); }
    void Glow(const Line& line, float width, Press press)
    {
        amber.nib.width = width * scale;
        amber.Stroke(Scaled(line, scale), press);
    }
    void GlowSolid(const Line& outline) { accents.Fill(Scaled(outline, scale)); }
};

using Mark = void (*)(MarkPen& pen);

// The pictures' size, and how many times wider than high they are seen.
constexpr int NameWidth = 1024, NameHeight = 128;
constexpr float FirstSeen = 15.28f, OthersSeen = 6.67f;

// A name in pen, bone on a soft shade of night, with a mark of its owner's craft at its left, which the closing roll
// shows again. It is painted in the proportion in which it is seen. The name begins at `left`, in pixels of a strip
// 128 high.
static Canvas Name(const char* text, float seen, Mark mark, float left, uint32_t seed)
{
    const Paper& paper = SketchPaper();
    const float wide = seen * NameHeight > NameWidth ? seen * NameHeight : NameWidth, high = wide / seen;
    const int width = Floor(wide + 0.5f), height = Floor(high + 0.5f);
    const float scale = high / NameHeight;
    Mask ink(width, height);
    Pen pen(ink, paper,
            {.width = 10.5f * scale,
             .least = 0.26f,
             .wobble = 0.8f,
             .wander = 0.4f,
             .skip = 0.06f,
             .dry = 0.2f,
             .pool = 0.5f},
            seed);
    const Vector2 place = {left * scale, 88 * scale};
    const LetterStyle style{
        .size = 74 * scale, .slant = 0.10f, .narrow = 1.1f, .spacing = 1.4f, .lively = 1.1f};
    Write(pen, text, place, style, Anchor::Left, seed + 1);
    pen.nib.width = 4 * scale;
    const float end = place.x + WidthOf(text, style), line = 115 * scale;
    pen.Stroke(Shaken(Through({{place.x, line}, {Mix(place.x, end, 0.5f), line - 3}, {end, line + 1}}), 1.5f,
                      120, seed + 2),
               {.start = 0.1f, .middle = 0.8f, .end = 0});
    Mask bodies(width, height), accents(width, height);
    const Nib nib{.least = 0.4f, .wobble = 0.8f, .skip = 0, .dry = 0.1f, .pool = 0.3f};
    MarkPen hand{ink,  bodies, accents, Pen(ink, paper, nib, seed + 3), Pen(accents, paper, nib, seed + 4),
                 scale};
    mark(hand);
    // Behind it lies what the tree stands on, bright or black: ink that has run out of the letters.
    Mask all = ink;
    all.Unite(accents).Unite(bodies);
    Mask shade = all.Blurred(6 * scale).Scale(2.4f);
    shade.Unite(all.Blurred(17 * scale).Scale(3.4f)).Curve(0, 1.1f).FadeToBorder(16);
    Canvas canvas(width, height);
    canvas.Cover(shade, palette::Ink, 0.84f);
    canvas.Cover(bodies.FadeToBorder(4), palette::Slate, 0.9f);
    canvas.Cover(Mask(ink).FadeToBorder(4), palette::Bone);
    canvas.Cover(accents.FadeToBorder(4), Mix(palette::Amber, palette::Bone, 0.22f));
    return Squeezed(canvas, NameWidth, NameHeight);
}

// A tarogato from its beak to its bell, with keys and rings, and three notes that have come out of it.
static void Reed(MarkPen& pen)
{
    const Line axis = Through({{54, 34}, {140, 60}, {222, 82}});
    pen.Body(Limb(axis, 7, 12, 19), 5);
    pen.Body(Limb(Through({{220, 82}, {240, 87}}), 22, 26, 36), 5);
    pen.Solid(Limb(Through({{14, 20}, {34, 28}, {54, 34}}), 3, 6, 8));
    for (int i = 0; i < 6; i++) {
        const float t = 0.16f + 0.125f * float(i);
        pen.Solid(Ellipse(PointAt(axis, t), 4.5f + 2 * t, 4 + 2 * t));
    }
    for (const float t : {0.08f, 0.53f, 0.90f}) {
        const Vector2 p = PointAt(axis, t), d = DirectionAt(axis, t), n = {-d.y, d.x};
        pen.Stroke(Straight({p - n * (9 + 10 * t), p + n * (9 + 10 * t)}), 5);
    }
    for (int i = 0; i < 3; i++) {
        const Vector2 head = Vector2{268, 78} + Vector2{17, -13} * float(i) + Vector2{0, 8} * float(i % 2);
        pen.GlowSolid(Ellipse(head, 8.5f, 6, -0.4f));
        pen.Glow(Straight({head + Vector2{7, -2}, head + Vector2{8, -34}}), 4.5f,
                 {.start = 1, .middle = 1, .end = 1});
        pen.Glow(Through({head + Vector2{8, -34}, head + Vector2{15, -26}, head + Vector2{16, -15}}), 5,
                 {.start = 1, .middle = 0.8f, .end = 0.2f});
    }
}

// A brush, and the ochre that it has laid.
static void Brush(MarkPen& pen)
{
    pen.Glow(Shaken(Through({{34, 104}, {74, 118}, {140, 106}, {206, 114}}), 2, 30, 735), 13,
             {.start = 0.9f, .middle = 1, .end = 0});
    pen.Glow(Through({{60, 106}, {120, 100}, {178, 102}}), 5, {.start = 0.3f, .middle = 0.8f, .end = 0});
    pen.Clear(Limb(Through({{94, 66}, {64, 78}, {24, 106}}), 18, 17, 4));
    pen.Body(Limb(Through({{230, 16}, {170, 36}, {122, 56}}), 4, 10, 10));
    pen.Body(Limb(Through({{122, 56}, {96, 67}}), 11, 13, 15), 5);
    for (const float t : {0.3f, 0.65f}) {
        const Vector2 p = Vector2{122, 56} + Vector2{-26, 11} * t;
        pen.Stroke(Straight({p + Vector2{-5, -12}, p + Vector2{5, 12}}), 3.5f);
    }
    pen.Solid(Limb(Through({{94, 68}, {64, 80}, {26, 104}}), 14, 15, 1));
}

static void Gear(MarkPen& pen, Vector2 at, float radius, int teeth, float turned)
{
    Line rim;
    for (int i = 0; i <= teeth * 4; i++) {
        const float a = turned + 2 * Pi * float(i) / float(teeth * 4);
        rim.push_back(at + Vector2{Cos(a), Sin(a)} * (i % 4 < 2 ? radius : radius * 0.79f));
    }
    pen.Body(Straight(rim), 4.5f);
    const Line inside = Ellipse(at, radius * 0.52f, radius * 0.52f);
    pen.Open(inside);
    pen.Stroke(inside, 4.5f, {.start = 0.9f, .middle = 1, .end = 0.9f});
    pen.Solid(Ellipse(at, radius * 0.14f, radius * 0.14f));
    for (int i = 0; i < 5; i++) {
        const float a = turned + 0.3f + float(i) * 2 * Pi / 5;
        pen.Stroke(Straight({at, at + Vector2{Cos(a), Sin(a)} * (radius * 0.52f)}), 4.5f);
    }
}
static void Gears(MarkPen& pen)
{
    Gear(pen, {62, 72}, 50, 12, 0.1f);
    Gear(pen, {138, 46}, 34, 8, 0.28f);
}

// A lantern with its bow, and the light that goes out from it to all sides.
static void Lamp(MarkPen& pen)
{
    const Vector2 at = {84, 74};
    pen.Stroke(Arc(at + Vector2{0, -40}, 20, 26, -2.9f, -0.24f), 5, {.start = 1, .middle = 1, .end = 1});
    pen.Body(Through({at + Vector2{-26, -32}, at + Vector2{-10, -46}, at + Vector2{10, -46},
                      at + Vector2{26, -32}, at + Vector2{-26, -32}}),
             5);
    for (const float side : {-1.0f, 1.0f})
        pen.Stroke(
            Through({at + Vector2{side * 24, -30}, at + Vector2{side * 31, 0}, at + Vector2{side * 24, 30}}),
            5.5f);
    pen.Body(Straight({at + Vector2{-28, 30}, at + Vector2{-34, 46}, at + Vector2{34, 46},
                       at + Vector2{28, 30}, at + Vector2{-28, 30}}),
             5);
    pen.GlowSolid(Round({at + Vector2{0, -24}, at + Vector2{11, 4}, at + Vector2{8, 20}, at + Vector2{0, 24},
                         at + Vector2{-8, 20}, at + Vector2{-11, 4}}));
    for (const float side : {-1.0f, 1.0f})
        for (int i = 0; i < 4; i++) {
            const float a = 0.58f - 0.38f * float(i), from = 45, to = i % 2 == 0 ? 72 : 80;
            const Vector2 d = {side * Cos(a), Sin(a)};
            pen.Glow(Straight({at + d * from, at + d * to}), 6, {.start = 1, .middle = 0.7f, .end = 0.1f});
        }
}

static Canvas NameFen()
{
    return Name("fen tarogato", FirstSeen, Reed, 338, 721);
}
static Canvas NameOchre()
{
    return Name("ochre", OthersSeen, Brush, 258, 731);
}
static Canvas NameDunmarrow()
{
    return Name("dunmarrow", OthersSeen, Gears, 190, 741);
}
static Canvas NameLowbeam()
{
    return Name("lowbeam", OthersSeen, Lamp, 182, 751);
}

// clang-format off
PictureGroup FX_CreditsPictures()
{
    return {"FX_Credits", {
        {"Data/stoned.jpg",               512,  512, Format::Jpeg,    MossyStone},
        {"Data/ackerbau_tiled2_2.jpg",   1024, 1024, Format::Jpeg,    FieldOfTheNames},
        {"Data/credit-fen_tarogato.png", 1024,  128, Format::PngRgba, NameFen},
        {"Data/credit-ochre.png",        1024,  128, Format::PngRgba, NameOchre},
        {"Data/credit-dunmarrow.png",    1024,  128, Format::PngRgba, NameDunmarrow},
        {"Data/credit-lowbeam.png",      1024,  128, Format::PngRgba, NameLowbeam},
    }};
}
// clang-format on

} // namespace atelier
