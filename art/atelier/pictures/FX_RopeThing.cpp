// SPDX-License-Identifier: MIT
#include "art/atelier/Pen.h"
#include "art/atelier/Pictures.h"
#include "art/atelier/Wash.h"

#include <iterator>

namespace atelier
{

// The sheet of the fish's skin. Places are those of a sheet half as large, which Enlarged brings onto it.
static const int skinSide = 1024;
static const float fine = 2, sheetSize = skinSide / fine;

static Line Enlarged(const Line& line)
{
    return Scaled(line, fine);
}

struct SkinNoise {
    Noise tint = Noise(641), bend = Noise(642), own = Noise(643), wrinkle = Noise(648);
};

// The gill cover ends in lobes, of which no two are of one size: 0 where two meet, 1 in the middle of one.
static float GillLobe(float y)
{
    const float place = y / 30 + 0.35f * Sin(y / 41) + 0.15f * Sin(y / 17);
    const float across = 2 * (place - float(Floor(place))) - 1;
    return 1 - across * across;
}

// Where the gill cover ends, and the scales begin.
static float GillAt(float y)
{
    const float gill = 128, v = (y - 260) / 260;
    return gill + 10 - 52 * v * v + 8 * GillLobe(y);
}

struct FishScale {
    float u, v; // across -1 to 1, and 0 to 1 at the free edge, which looks to the tail
    float name; // a random number
    float size; // 1 for the largest
};

// A net of scales, each so wide along the body, and so tall.
struct ScaleNet {
    float wide, tall;
};
// Large ones on the back and the flanks, small ones on the belly, and between them a band that leads over.
static const ScaleNet nets[] = {{21, 62}, {14, 38}, {9.5f, 24}, {6.5f, 15}};
static const int netCount = int(std::size(nets));
static const float netEnds[] = {325, 392, 448}; // how far down all but the last one reach

static FishScale ScaleAt(float x, float y, const SkinNoise& noise)
{
    const float bent = y + 12 * noise.bend.Fbm(x / 120, y / 120, 2);
    for (int net = 0;; net++) {
        const auto& [wide, tall] = nets[net];
        // A scale nearer the head lies over the next.
        for (int column = Floor(x / wide) - 1;; column++) {
            const float shift = Wrap(column, 2) == 0 ? 0.0f : 0.5f, row = bent / tall + shift;
            const float u = (row - float(Floor(row))) * 2 - 1;
            const float v = (x - float(column) * wide) / (2 * wide);
            if (v > 1 - 0.5f * u * u)
                continue;
            // A net ends with whole scales.
            if (net < netCount - 1 && (float(Floor(row)) + 0.5f - shift) * tall > netEnds[net])
                break;
            return {u, v, noise.own.Value(float(column) * 3.7f + 50 * float(net), float(Floor(row)) * 5.3f),
                    wide / nets[0].wide};
        }
    }
}

// The colours from the back down, v from 0 at the top of the sheet to 1.
static const LinearColour backColour = Mix(palette::Ink, palette::Slate, 0.60f),
                          flankColour = Mix(palette::Ochre, palette::Amber, 0.25f),
                          bellyColour = Mix(palette::Parchment, palette::Bone, 0.7f) * 1.05f;

static LinearColour ScalyColour(float x, float y, float v, const SkinNoise& noise)
{
    LinearColour c = Mix(backColour, Mix(palette::Rust, palette::Ochre, 0.45f), Smooth(0.16f, 0.36f, v));
    c = Mix(c, flankColour, Smooth(0.32f, 0.52f, v));
    // The belly begins on single scales, in strokes of a dry brush.
    const FishScale s = ScaleAt(x, y, noise);
    const float broken = 0.26f * (s.name - 0.5f) + 0.16f * noise.bend.Fbm(x / 7, y / 80, 3);
    c = Mix(c, Mix(flankColour, bellyColour, 0.45f), Smooth(0.52f, 0.72f, v + broken));
    c = Mix(c, bellyColour, Smooth(0.72f, 0.96f, v + broken));
    // Towards the tail the gold sinks into rust.
    c = Mix(c, Mix(palette::Rust, palette::Slate, 0.35f),
            0.55f * Smooth(330, 520, x) * Smooth(0.9f, 0.5f, v));
    const float edge = 1 - 0.5f * s.u * s.u - s.v; // to the free edge
    LinearColour skin = c * (0.72f + 0.5f * s.name);
    const float below = Smooth(0.6f, 0.9f, v);
    skin = skin * (0.92f - 0.10f * below + (0.16f + 0.20f * below) * Smooth(0.7f, 0.15f, edge)); // domed
    skin = Mix(skin, Mix(c, palette::Bone, 0.55f), 0.42f * Hill(0.17f, 0.10f, edge) * Smooth(0.15f, 0.5f, v));
    skin = Mix(skin, palette::Mist, 0.18f * Hill(0.17f, 0.10f, edge) * Smooth(0.3f, 0.1f, v));
    skin =
        skin * (1 - (0.58f + 0.22f * s.size) * Smooth(0.13f, 0.015f, edge)); // small scales have thin edges
    return skin * (1 - 0.70f * Smooth(17, 0, x - GillAt(y))); // in the shadow of the gill cover
}

// The head is bare: leathery above, a cheek of copper, a bone-pale jaw.
static LinearColour HeadColour(float x, float y, float v, const SkinNoise& noise)
{
    LinearColour head =
        Mix(backColour * 0.9f, Mix(palette::Rust, palette::Ochre, 0.30f), Smooth(0.24f, 0.40f, v));
    head = Mix(head, Mix(flankColour, palette::Rust, 0.15f), Smooth(0.40f, 0.58f, v));
    head = Mix(head, bellyColour * 0.92f, Smooth(0.60f, 0.74f, v));
    const float crease = noise.wrinkle.Ridges(x / 30 + 0.4f * noise.tint.Gradient(x / 30, y / 60), y / 95, 3);
    head = head * (0.80f + 0.34f * noise.tint.Fbm(x / 12, y / 30, 4) + 0.20f * (1 - Pow(crease, 3)));
    head = head * (1 - 0.35f * Pow(crease, 6));
    // Rays run to the lobes of the gill cover, with dark furrows between them, and the edge of each glows.
    const float toGill = GillAt(y) - x, lobe = GillLobe(y);
    const float sides = Smooth(0.10f, 0.3f, v) * Smooth(1.0f, 0.8f, v);
    head = Mix(head, Mix(palette::Rust, palette::Ink, 0.55f),
               0.75f * Smooth(0.75f, 0.15f, lobe) * Smooth(58, 6, toGill) * sides);
    head = Mix(head, palette::Amber, 0.75f * Hill(4, 4, toGill) * Smooth(0.2f, 0.8f, lobe) * sides);
    return head;
}

static void PaintSkin(Canvas& canvas, const SkinNoise& noise)
{
    canvas.Ground([&](float column, float line) {
        const float x = column / fine, y = line / fine;
        const float v = y / sheetSize + 0.05f * noise.tint.Fbm(x / 60, y / 110, 4);
        const float behind = Smooth(-3, 5, x - GillAt(y));
        return Mix(HeadColour(x, y, v, noise), ScalyColour(x, y, v, noise), behind);
    });
}

// Bars down from the back, as a perch's: each runs out in a point, none like another.
static void PaintBars(Canvas& canvas, const Paper& paper, Dice& dice)
{
    Mask barred(skinSide, skinSide);
    for (int i = 0; i < 8; i++) {
        const float x = 168 + 44 * float(i) + dice.Range(-7, 7), low = dice.Range(250, 345) - 7 * float(i);
        const float half = dice.Range(8, 13);
        barred.Fill(
            Enlarged(Shaken(Limb(Through({{x + 6, -20}, {x + dice.Range(-6, 6), low * 0.5f}, {x - 8, low}}),
                                 half * 1.5f, half, 1),
                            5, 26, dice.Next())));
        if (i % 2 == 0)
            barred.Fill(Enlarged(Shaken(Ellipse({x + dice.Range(-10, 20), low + dice.Range(34, 56)}, 6, 17),
                                        3, 16, dice.Next())),
                        0.8f);
    }
    Wash(canvas, paper, barred,
         {.pigment = Mix(palette::Ink, palette::Rust, 0.22f),
          .density = 0.9f,
          .pool = 0.5f,
          .poolWidth = 5,
          .bloom = 0.6f,
          .bloomSize = 120,
          .stray = 8},
         644);
}

// Freckles where the blue of the skull runs out, larger towards the gill.
static void PaintFreckles(Canvas& canvas, const Paper& paper, Dice& dice)
{
    Mask freckles(skinSide, skinSide);
    for (int i = 0; i < 150; i++) {
        const float x = dice.Range(8, 112), y = 178 + 34 * dice.Bell();
        const float size = (0.5f + 2.2f * dice.Unit() * dice.Unit()) * (0.5f + x / 112);
        freckles.Fill(Enlarged(Shaken(Ellipse({x, y}, size * 0.7f, size * 1.7f), 0.6f, 5, dice.Next())));
    }
    Wash(canvas, paper, freckles,
         {.pigment = Mix(palette::Ink, palette::Rust, 0.3f), .density = 0.75f, .poolWidth = 2, .stray = 2},
         641);
}

// The edge of the gill cover, the plates of the cheek, the mouth, and the line along the side.
static void DrawCheek(Pen& pen, Dice& dice)
{
    Line gill;
    pen.nib.width = 6;
    for (float y = 46; y < 492; y += 1.5f)
        gill.push_back({GillAt(y) + 1.5f, y});
    pen.Stroke(Enlarged(gill), {.start = 0.3f, .middle = 1, .end = 0.3f});
    // The plates of the cheek, and the folds at the corner of the mouth.
    pen.nib.width = 6;
    pen.Stroke(Enlarged(Through({{100, 150}, {112, 250}, {104, 352}, {84, 408}})),
               {.start = 0, .middle = 0.9f, .end = 0.1f});
    pen.Stroke(Enlarged(Through({{52, 372}, {78, 336}, {88, 270}, {84, 214}})),
               {.start = 0.2f, .middle = 1, .end = 0.1f});
    pen.Stroke(Enlarged(Through({{22, 318}, {44, 306}, {66, 322}, {74, 356}})),
               {.start = 0.5f, .middle = 0.9f, .end = 0});
    pen.Stroke(Enlarged(Through({{8, 226}, {26, 214}, {40, 222}})),
               {.start = 0.4f, .middle = 0.8f, .end = 0}); // nostril
    pen.nib.width = 4;
    for (int i = 0; i < 46; i++) { // pores, in rows along the jaw
        const float along = float(i % 23) / 22;
        pen.Dot(Vector2{Mix(10, 100, along) + dice.Range(-2, 2),
                        Mix(392, 420, along) + (i < 23 ? 0.0f : 26.0f) + dice.Range(-5, 5)} *
                    fine,
                dice.Range(1.6f, 4));
    }
    for (float x = 146; x < 505; x += 10)
        pen.Stroke(Enlarged(Straight({{x, 236 + 20 * Sin(x * 0.008f)}, {x + 6, 238 + 20 * Sin(x * 0.008f)}})),
                   {.start = 0.9f, .middle = 1, .end = 0.6f});
}

// Furrows over the skull, from between the eyes to the nape, and folds that hang down the cheek.
static void DrawFurrows(Pen& pen, Dice& dice)
{
    pen.nib.width = 3.4f;
    for (int i = 0; i < 7; i++) {
        const float y = 16 + 17 * float(i), sink = 3.0f * float(i);
        pen.Stroke(Enlarged(Through({{14 + dice.Range(0, 22), y + dice.Range(-4, 4)},
                                     {52, y + dice.Range(-7, 7)},
                                     {84, y + sink + dice.Range(-6, 6)},
                                     {116 + dice.Range(-14, 6), y + 2 * sink}})),
                   {.start = 0, .middle = 0.8f, .end = 0.1f});
    }
    for (int i = 0; i < 9; i++) {
        const float x = 30 + 8 * float(i);
        pen.Stroke(Enlarged(Through({{x, 236 + dice.Range(-16, 16)},
                                     {x + 5, 268 + dice.Range(-8, 8)},
                                     {x + 1, 300 + dice.Range(-10, 34)}})),
                   {.start = 0, .middle = 0.75f, .end = 0});
    }
}

// Pen strokes darken the skull.
static void HatchSkin(Pen& pen, const SkinNoise& noise)
{
    pen.nib.width = 2.4f;
    Hatch(pen, Mask(skinSide, skinSide).Each([&](float column, float line) {
        const float x = column / fine, y = line / fine;
        return x < GillAt(y) - 14
                   ? 0.75f * Smooth(170, 96, y) * (0.5f + 0.5f * noise.tint.Fbm(x / 20, y / 60, 2))
                   : 0.0f;
    }),
          {.angle = 1.25f, .spacing = 9, .length = 70, .bend = 10}, 650);
}

// The throat is folded: fine rays run back from the chin and spread to the edge of the gill cover, a light line beside
// each, and pores lie between them.
static void DrawThroat(Mask& pale, Pen& pen, const Paper& paper, Dice& dice)
{
    Pen light(pale, paper, {.width = 3, .wobble = 1, .wave = 40, .skip = 0.2f, .dry = 0.3f}, 656);
    for (int i = 0; i < 11; i++) {
        const float part = float(i) / 10;
        const float to = Mix(398, 506, part), from = Mix(452, 509, part);
        const float reach = GillAt(to) - 6 + dice.Range(-5, 3);
        const Line fold = Through({{26 + 18 * dice.Unit(), from},
                                   {0.5f * reach, Mix(from, to, 0.35f) + dice.Range(-3, 3)},
                                   {reach, to + dice.Range(-3, 3)}});
        pen.nib.width = 2.6f;
        pen.Stroke(Enlarged(fold), {.start = 0.1f, .middle = 0.9f, .end = 0.25f});
        light.Stroke(Enlarged(Moved(fold, {0, 2.6f})), {.start = 0, .middle = 0.8f, .end = 0.1f});
    }
    for (int i = 0; i < 70; i++)
        pen.Dot(Vector2{dice.Range(24, 122), dice.Range(436, 508)} * fine, dice.Range(0.8f, 1.9f));
}

// The seam along the middle of the belly: a row of keeled scales that lean to the tail.
static void DrawSeam(Pen& pen, Dice& dice)
{
    pen.nib.width = 4;
    pen.Stroke(Enlarged(Straight({{112, 509}, {300, 509.5f}, {506, 509}})),
               {.start = 0.3f, .middle = 1, .end = 0.4f});
    pen.nib.width = 3;
    for (float x = 118; x < 500; x += 9)
        pen.Stroke(
            Enlarged(Through({{x, 509}, {x - 3, 502}, {x - 9 + dice.Range(-1, 1), 495 + dice.Range(-2, 2)}})),
            {.start = 0.9f, .middle = 0.8f, .end = 0});
}

// The skin unwrapped side-on: head at the left, back at the top, belly at the bottom. It lies on the fish
// four times as long as it is drawn: scales are few, large and drawn narrow and tall, the back is barred, the
// gill has a burning edge, the belly is pale. The head comes so near that it alone is half the screen, so it
// is worked with the pen: furrows over the skull, freckles, the plates of the cheek.
static Canvas FishSkin()
{
    const Paper& paper = SketchPaper(1024);
    const SkinNoise noise;
    Canvas canvas(skinSide, skinSide);
    PaintSkin(canvas, noise);
    Dice dice(646);
    PaintBars(canvas, paper, dice);
    PaintFreckles(canvas, paper, dice);
    Mask ink(skinSide, skinSide);
    Pen pen(ink, paper, {.width = 9, .wobble = 2, .wave = 52, .skip = 0.12f}, 645);
    DrawCheek(pen, dice);
    DrawFurrows(pen, dice);
    HatchSkin(pen, noise);
    Mask pale(skinSide, skinSide);
    DrawThroat(pale, pen, paper, dice);
    DrawSeam(pen, dice);
    canvas.Light(pale, palette::Bone, 0.55f);
    canvas.Cover(ink, palette::Ink, 0.85f);
    paper.Show(canvas, 0.4f);
    return canvas;
}

// The ball of the eye from the front; its rim goes on round the back.
static Canvas FishEye()
{
    constexpr int Side = 256;
    constexpr Vector2 Middle = {128, 128};
    constexpr float Pupil = 31, Iris = 84;
    const Paper& paper = SketchPaper(256);
    const Noise iris(651), vein(652);
    Canvas canvas(Side, Side);
    canvas.Ground([&](float x, float y) {
        const Vector2 d = Vector2{x, y} - Middle;
        const float r = Length(d);
        const Vector2 way = Normalised(d);
        const float fibre = iris.Fbm(way.x * 9 + 20, way.y * 9 + r / 60, 4);
        const float blotch = iris.Fbm(x / 34, y / 34, 3);
        // Round the iris it is dark and wet, with gold in its veins.
        LinearColour c =
            Mix(Mix(palette::Slate, palette::Ink, 0.45f), palette::Rust, 0.35f * Smooth(84, 118, r));
        c = Mix(c, palette::Ochre,
                0.6f * Pow(vein.Ridges(way.x * 3 + r / 70, way.y * 3, 4), 3) * Smooth(84, 112, r));
        LinearColour gold = Mix(palette::Amber, palette::Rust, Clamp(0.30f + 0.9f * fibre + 0.5f * blotch));
        gold = gold * (0.72f + 0.5f * Hill(Pupil + 14, 26, r)); // light gathers round the pupil
        gold = Mix(gold, palette::Rust * 0.7f, Smooth(62, 83, r));
        c = Mix(c, gold, Smooth(Iris + 2, Iris - 2, r + 2 * blotch));
        c = Mix(c, palette::Ink, 0.8f * Hill(Iris, 9, r));
        c = Mix(c, Mix(palette::Amber, palette::Bone, 0.5f), 0.55f * Hill(Pupil + 4, 4, r + 3 * fibre));
        return Mix(c, palette::Ink * 0.5f,
                   Smooth(Pupil + 1, Pupil - 2, r + 3.5f * iris.Gradient(way.x * 1.6f, way.y * 1.6f)));
    });
    Mask ink(Side, Side);
    Pen pen(ink, paper, {.width = 2.2f, .wobble = 0.8f, .wave = 14, .skip = 0.4f}, 653);
    Dice dice(654);
    for (int i = 0; i < 80; i++) {
        const float a = dice.Range(0, 2 * Pi), from = dice.Range(38, 50), to = dice.Range(56, 80);
        const Vector2 way = {Cos(a), Sin(a)};
        pen.Stroke(
            Through({Middle + way * to, Middle + Vector2{Cos(a + 0.04f), Sin(a + 0.04f)} * ((from + to) / 2),
                     Middle + way * from}),
            {.start = 0.9f, .middle = 0.6f, .end = 0});
    }
    pen.nib.width = 5;
    pen.Stroke(Ellipse(Middle, Iris, Iris - 1, 1), {.start = 0.6f, .middle = 1, .end = 0.3f});
    canvas.Cover(ink, palette::Ink, 0.7f);
    // The window that the night sees itself in.
    canvas.Light(Filled(Side, Side, Shaken(Ellipse({106, 100}, 14, 9, -0.5f), 1.5f, 20, 655)).Blur(1.8f),
                 palette::Bone, 0.9f);
    canvas.Light(Filled(Side, Side, Ellipse({148, 154}, 8, 4, -0.5f)).Blur(3), palette::ColdLight, 0.30f);
    paper.Show(canvas, 0.3f);
    return canvas;
}

// clang-format off
PictureGroup FX_RopeThingPictures()
{
    return {"FX_RopeThing", {
        {"Data/fischhaut.jpg",          1024, 1024, Format::Jpeg,    FishSkin},
        {"Data/fisheye.jpg",             256,  256, Format::Jpeg,    FishEye},
    }};
}
// clang-format on

} // namespace atelier
