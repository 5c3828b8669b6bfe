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
                     0.7f);
    }
}

// What the trees are of. Every side of every block shows the whole tile, mostly no larger than a thumbnail: one stone
// the colour of rust and ochre, by which postprocessing_blur.fp knows a tree from the land, with a few cracks, moss in
// large patches, lichen, and worn edges where block meets block.
static Canvas MossyStone()
{
    constexpr int Side = 512;
    constexpr float Size = Side;
    const Paper& paper = SketchPaper(512);
    const Noise rock(701, 4, 4), crack(702, 3, 3), moss(703, 3, 3), leaf(704, 64, 64), warp(705, 6, 6),
        pit(709, 24, 24);
    const auto border = [&](float x,
                            float y) { // pixels to the next border of the block, which is not straight
        return Min(Min(x, Size - x), Min(y, Size - y)) + 6 * warp.Fbm(x / Size * 6, y / Size * 6, 3);
    };
    Canvas canvas(Side, Side);
    canvas.Ground([&](float x, float y) {
        const float t = 0.5f + 0.7f * rock.Fbm(x / Size * 4, y / Size * 4, 5);
        const float bulge = Smooth(0, 70, border(x, y));
        const LinearColour stone = Mix(Mix(palette::Rust, palette::Ochre, 0.55f),
                                       Mix(palette::Ochre, palette::Amber, 0.8f), Clamp(t));
        return stone * (0.74f + 0.26f * bulge) * (0.92f + 0.22f * pit.Fbm(x / Size * 24, y / Size * 24, 3));
    });
    const Mask stains = Mask(Side, Side, 0, true).Each([&](float x, float y) {
        return Smooth(0.02f, 0.22f, rock.Fbm(x / Size * 4 + 2, y / Size * 4 + 1, 3));
    });
    Wash(canvas, paper, stains,
         {.pigment = Mix(palette::Rust, palette::Ochre, 0.35f),
          .density = 0.32f,
          .pool = 1,
          .poolWidth = 7,
          .bloomSize = 128},
         706);
    const Mask green = Mask(Side, Side, 0, true).Each([&](float x, float y) {
        const float w = 0.35f * warp.Fbm(x / Size * 6, y / Size * 6, 3);
        const float patch =
            moss.Fbm(x / Size * 3 + w, y / Size * 3, 3) + 0.10f * leaf.Gradient(x / Size * 64, y / Size * 64);
        return Smooth(0.10f, 0.20f, patch + 0.10f * Smooth(80, 10, border(x, y)));
    });
    canvas.Glaze(Mask(green).Blur(7), palette::Rust, 0.5f);
    canvas.Cover(
        green,
        [&](float x, float y) {
            const float t = 0.45f + 0.7f * leaf.Fbm(x / Size * 64, y / Size * 64, 3);
            return Mix(palette::Moss * 0.75f, Mix(palette::Moss, palette::Amber, 0.35f), Clamp(t));
        },
        0.9f);
    Mask ink(Side, Side, 0, true);
    ink.Each([&](float x, float y) {
        const float w = 0.4f * warp.Fbm(x / Size * 6 + 1, y / Size * 6, 3);
        const float ridge = crack.Ridges(x / Size * 3 + w, y / Size * 3 + 0.5f, 1);
        const float thin = Smooth(-0.2f, 0.4f, rock.Fbm(x / Size * 4 + 3, y / Size * 4, 2));
        return Smooth(0.965f - 0.012f * thin, 0.99f, ridge) * thin;
    });
    // Where block meets block, on both sides of the borders, a dark joint that is worn away here and there.
    ink.Unite(Mask(Side, Side, 0, true).Each([&](float x, float y) {
        const float u = x / Size, v = y / Size;
        const float off = Min(Min(x, Size - x), Min(y, Size - y)) + 2.5f * warp.Fbm(u * 12, v * 12, 3);
        return 0.85f * Smooth(4, 1, off) * Smooth(-0.25f, 0.15f, rock.Fbm(u * 8, v * 8, 2));
    }));
    AddPitsAndLichen(canvas, ink, paper);
    canvas.Cover(ink, Mix(palette::Ink, palette::Slate, 0.5f), 0.8f);
    // As on a pebble, light from the upper left and a shaded lower right, on every side of every block.
    canvas.Tone(Mask(Side, Side, 0, true).Each([&](float x, float y) {
        return (0.5f + 0.5f * Cos(2 * Pi * (x / Size - 0.36f))) *
               (0.5f + 0.5f * Cos(2 * Pi * (y / Size - 0.32f)));
    }),
                0.45f, 1.5f);
    paper.Show(canvas, 0.7f);
    return canvas;
}

// The hand that draws a mark: in pixels of a strip 128 high.
struct MarkPen {
    Pen& pen;
    float scale;

    void Stroke(const Line& line, Press press = {}) { pen.Stroke(Scaled(line, scale), press); }
    void Dot(Vector2 place, float radius) { pen.Dot(place * scale, radius * scale); }
    void Splatter(Vector2 place, float reach, int count, float largest)
    {
        pen.Splatter(place * scale, reach * scale, count, largest * scale);
    }
    void Width(float width) { pen.nib.width = width * scale; }
};

using Mark = void (*)(MarkPen& pen);

// The pictures' size, and how many times wider than high they are seen.
constexpr int NameWidth = 1024, NameHeight = 128;
constexpr float FirstSeen = 15.28f, OthersSeen = 6.67f;

// A name in pen, bone on a soft shade of night, with a mark of its owner's craft at its left. It is painted in the
// proportion in which it is seen.
static Canvas Name(const char* text, float seen, Mark mark, uint32_t seed)
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
    const Vector2 place = {164 * scale, 88 * scale};
    const LetterStyle style{
        .size = 74 * scale, .slant = 0.10f, .narrow = 1.1f, .spacing = 1.4f, .lively = 1.1f};
    Write(pen, text, place, style, Anchor::Left, seed + 1);
    MarkPen hand{pen, scale};
    hand.Width(6);
    mark(hand);
    hand.Width(4);
    const float end = place.x + WidthOf(text, style), line = 115 * scale;
    pen.Stroke(Shaken(Through({{place.x, line}, {Mix(place.x, end, 0.5f), line - 3}, {end, line + 1}}), 1.5f,
                      120, seed + 2),
               {.start = 0.1f, .middle = 0.8f, .end = 0});
    // Behind it lies what the tree stands on, bright or black: ink that has run out of the letters.
    Mask shade = ink.Blurred(6 * scale).Scale(2.4f);
    shade.Unite(ink.Blurred(17 * scale).Scale(3.4f)).Curve(0, 1.1f).FadeToBorder(16);
    Canvas canvas(width, height);
    canvas.Cover(shade, palette::Ink, 0.84f);
    canvas.Cover(Mask(ink).FadeToBorder(4), palette::Bone);
    return Squeezed(canvas, NameWidth, NameHeight);
}

// A reed's mouthpiece and the conical pipe with its holes.
static void Reed(MarkPen& pen)
{
    pen.Stroke(Through({{22, 96}, {70, 66}, {112, 34}}), {.start = 1, .middle = 0.9f, .end = 0.7f});
    pen.Stroke(Through({{34, 116}, {82, 80}, {118, 42}}), {.start = 1, .middle = 0.9f, .end = 0.7f});
    pen.Stroke(Through({{20, 92}, {18, 106}, {36, 120}}), {.start = 0.8f, .middle = 1, .end = 0.8f});
    pen.Stroke(Through({{112, 34}, {130, 20}, {140, 16}, {134, 28}, {118, 42}}),
               {.start = 0.8f, .middle = 0.9f, .end = 0.6f});
    for (int i = 0; i < 5; i++)
        pen.Dot(Vector2{42, 92} + Vector2{14, -10.5f} * float(i), 3.2f);
}

static void Brush(MarkPen& pen)
{
    pen.Stroke(Through({{136, 16}, {104, 42}, {76, 66}}), {.start = 0.5f, .middle = 1, .end = 1});
    pen.Stroke(Straight({{82, 54}, {90, 68}}), {.start = 1, .middle = 1, .end = 1});
    pen.Width(9);
    pen.Stroke(Through({{80, 64}, {58, 78}, {46, 98}, {28, 108}}), {.start = 0.8f, .middle = 1, .end = 0});
    pen.Width(5);
    pen.Stroke(Through({{78, 58}, {52, 72}, {40, 96}}), {.start = 0.8f, .middle = 0.7f, .end = 0.2f});
    pen.Splatter({32, 104}, 18, 8, 3);
}

static void Gear(MarkPen& pen, Vector2 at, float radius, int teeth, float turned)
{
    Line rim;
    for (int i = 0; i <= teeth * 4; i++) {
        const float a = turned + 2 * Pi * float(i) / float(teeth * 4);
        rim.push_back(at + Vector2{Cos(a), Sin(a)} * (i % 4 < 2 ? radius : radius * 0.78f));
    }
    pen.Stroke(Straight(rim), {.start = 0.8f, .middle = 1, .end = 0.8f});
    pen.Stroke(Ellipse(at, radius * 0.3f, radius * 0.3f), {.start = 0.8f, .middle = 0.9f, .end = 0.7f});
}
static void Gears(MarkPen& pen)
{
    Gear(pen, {58, 76}, 36, 10, 0.1f);
    Gear(pen, {112, 42}, 25, 8, 0.4f);
}

static void Lamp(MarkPen& pen)
{
    pen.Stroke(Through({{44, 108}, {58, 112}, {86, 112}, {100, 108}}),
               {.start = 0.8f, .middle = 1, .end = 0.8f});
    pen.Stroke(Through({{56, 104}, {46, 76}, {58, 46}}), {.start = 0.8f, .middle = 1, .end = 0.7f});
    pen.Stroke(Through({{88, 104}, {98, 76}, {86, 46}}), {.start = 0.8f, .middle = 1, .end = 0.7f});
    pen.Stroke(Through({{50, 46}, {72, 40}, {94, 46}}), {.start = 0.9f, .middle = 1, .end = 0.8f});
    pen.Stroke(Ellipse({72, 26}, 15, 13), {.start = 0.7f, .middle = 0.8f, .end = 0.4f});
    pen.Stroke(Round({{72, 58}, {80, 78}, {72, 90}, {64, 78}}), {.start = 0.9f, .middle = 1, .end = 0.8f});
    for (const float side : {-1.0f, 1.0f})
        for (int i = -1; i <= 1; i++)
            pen.Stroke(Straight({Vector2{72 + side * 38, 76 + 16 * float(i)},
                                 Vector2{72 + side * 58, 76 + 24 * float(i)}}),
                       {.start = 0.9f, .middle = 0.6f, .end = 0});
}

static Canvas NameFen()
{
    return Name("fen tarogato", FirstSeen, Reed, 721);
}
static Canvas NameOchre()
{
    return Name("ochre", OthersSeen, Brush, 731);
}
static Canvas NameDunmarrow()
{
    return Name("dunmarrow", OthersSeen, Gears, 741);
}
static Canvas NameLowbeam()
{
    return Name("lowbeam", OthersSeen, Lamp, 751);
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
