// SPDX-License-Identifier: MIT
// A painting in ochres: two dancers that are also a landscape. His back is a steep hill with a wood on it,
// she is the long ridge that falls to the right, her skirt the ploughed fields below, their far hands bare
// trees.
#include "art/atelier/DryBrush.h"
#include "art/atelier/Glow.h"
#include "art/atelier/Pictures.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/Wood.h"
#include "art/atelier/pictures/painting/Dancers.h"

#include <algorithm>

namespace atelier
{

constexpr Vec2 Disc = {622, 268};
constexpr float DiscRadius = 206;

static Shape Between(const std::vector<Vec2>& a, const std::vector<Vec2>& b)
{
    Line outline = Through(a), back = Through(b);
    outline.insert(outline.end(), back.rbegin(), back.rend());
    return outline;
}

static Shape Him()
{
    Shape shape = Between(HisBack, HisFront);
    shape.Add(Round(HisFace));
    shape.Add(Limb(Through({{502, 238}, {480, 264}, {452, 306}}), 21, 32, 50));
    shape.Add(Limb(Through(HisArm), 36, 17, 6));
    return shape;
}

static Shape Her()
{
    Shape shape = Between(HerFront, HerBack);
    shape.Add(Round(HerFace));
    shape.Add(Limb(Through({{724, 372}, {758, 364}, {790, 372}}), 22, 15, 14));
    shape.Add(Shaken(Ellipse({706, 358}, 30, 21, -0.5f), 2, 30, 48)); // her shoulders
    shape.Add(Limb(Through(HerArm), 19, 11, 5));
    return shape;
}

static void PaintSky(Canvas& canvas, const Paper& paper)
{
    const WashStyle style = {.pool = 0, .granulation = 0.3f, .bloom = 0.7f, .bloomSize = 230, .stray = 0};
    const Mask down = Mask(W, H).Each(
        [](float x, float y) {
            return Mix(1.15f, 0.35f, Smooth(0, 560, y)) * (0.85f + 0.25f * Smooth(600, 0, x));
        },
        4);
    canvas.Glaze(WashDensity(paper, down, style, 11), palette::Ochre, 0.85f);
    const Mask corners = Mask(W, H).Each(
        [](float x, float y) {
            return Smooth(330, 760, Length(Vec2{x - Disc.x, (y - Disc.y) * 1.2f}));
        },
        4);
    canvas.Glaze(WashDensity(paper, corners, style, 12), palette::Rust, 0.5f);
    // Banks of cloud, torn to the right.
    const Noise noise(13);
    const Mask clouds = Mask(W, H).Each(
        [&](float x, float y) {
            const Vec2 p = noise.Warp(x / 330, y / 90, 0.6f);
            return Smooth(0.1f, 0.18f, noise.Fbm(p.x, p.y, 5) * Smooth(400, 200, y)) *
                   Smooth(DiscRadius, DiscRadius + 90, Length(Vec2{x, y} - Disc));
        },
        2);
    Wash(canvas, paper, clouds,
         {.pigment = palette::Rust,
          .density = 0.3f,
          .pool = 0.6f,
          .granulation = 0.5f,
          .bloom = 0.8f,
          .stray = 4,
          .bleed = 26,
          .wetness = 0.55f},
         14);
    // The disc is bare paper.
    Canvas disc(W, H);
    paper.Sheet(disc, palette::Bone, 1.1f);
    const Mask round = Filled(W, H, Shaken(Ellipse(Disc, DiscRadius, DiscRadius), 2, 80, 15));
    const Mask rim = Mask(W, H).Each([](float x, float y) {
        return Smooth(DiscRadius - 80, DiscRadius, Length(Vec2{x, y} - Disc));
    });
    disc.Glaze(WashDensity(paper, rim, style, 16), palette::Amber, 0.6f);
    canvas.Light(round.Blurred(50), palette::Amber, 0.3f);
    canvas.Lay(disc.CutOut(round), 0, 0);
}

// Folds of land behind them, each with its hedges and trees.
static void PaintFar(Canvas& canvas, const Paper& paper)
{
    const Noise noise(21);
    for (int layer = 0; layer < 3; layer++) {
        const float k = float(layer), base = 528 + 58 * k;
        const auto top = [&](float x) {
            return base + 26 * noise.Fbm(x / 300 + 9 * k, 0.5f, 3) + 18 * (2 - k) * Smooth(60, 620, x);
        };
        Line hill;
        for (float x = -8; x <= W + 8; x += 4)
            hill.push_back({x, top(x)});
        hill.push_back({W + 8, H + 8});
        hill.push_back({-8, H + 8});
        const Mask shape = Filled(W, H, hill);
        const Mask density = WashDensity(
            paper, shape,
            {.pool = 0.8f, .poolWidth = 9, .granulation = 0.5f, .bloom = 0.6f, .bloomSize = 150, .stray = 0},
            22 + uint32_t(layer));
        const Colour light = Mix(palette::Ochre, palette::Parchment, 0.6f - 0.22f * k),
                     dark = Mix(palette::Ochre, palette::Rust, 0.2f + 0.28f * k);
        Mask ink(W, H);
        Pen pen(ink, paper, {.width = 2, .wobble = 0.6f, .pool = 0}, 26 + uint32_t(layer));
        Dice dice(29 + uint32_t(layer));
        for (int i = 0; i < 34; i++) {
            const float x = dice.Range(0, W);
            DrawDeadTree(pen, {x, top(x) + 3},
                         {.height = dice.Range(10, 18) + 8 * k,
                          .trunk = 1.6f,
                          .lean = 0.1f * dice.Bell(),
                          .generations = 3},
                         2200 + uint32_t(i + 40 * layer));
        }
        for (int i = 0; i < 26; i++) {
            const float x = dice.Range(-60, W), y = dice.Range(14, 46), w = dice.Range(60, 190);
            pen.nib.width = 1.6f;
            pen.Stroke(Through({{x, top(x) + y},
                                {x + w / 2, top(x + w / 2) + y * 1.1f},
                                {x + w, top(x + w) + y * 1.3f}}),
                       {.start = 0.1f, .middle = 0.5f, .end = 0});
        }
        canvas.Cover(shape, [&](float x, float y) {
            return Mix(light, dark, Smooth(0.55f, 1.7f, density.At(Floor(x), Floor(y))));
        });
        canvas.Cover(ink, Mix(palette::Rust, palette::Ink, 0.25f + 0.2f * k), 0.7f);
    }
}

// A body: an opaque wash that is lighter towards the disc, with dry furrows along it.
static void PaintBody(Canvas& canvas, const Paper& paper, const Mask& shape, Colour light, Colour dark,
                      uint32_t seed)
{
    const Mask density = WashDensity(
        paper, shape,
        {.pool = 0.7f, .poolWidth = 8, .granulation = 0.6f, .bloom = 0.7f, .bloomSize = 130, .stray = 1},
        seed);
    canvas.Cover(shape, [&](float x, float y) {
        const float lit = Smooth(420, 60, Length(Vec2{x, y} - Vec2{620, 330}));
        return Mix(Mix(light, dark, Smooth(0.4f, 1.7f, density.At(Floor(x), Floor(y)))), light, 0.45f * lit);
    });
}

static void DrawFurrows(Canvas& canvas, const Paper& paper, const std::vector<Vec2>& a,
                        const std::vector<Vec2>& b, int count, float width, const Mask& within, Colour light,
                        Colour dark, uint32_t seed)
{
    Mask bright(W, H), deep(W, H);
    DryBrush brush(bright, paper,
                   {.width = width, .count = 8, .thickness = 1.5f, .load = 0.52f, .ragged = 0.3f, .wave = 80},
                   seed);
    Pen pen(deep, paper, {.width = 3.2f, .wobble = 1.5f, .wave = 80, .skip = 0.5f, .dry = 0.5f}, seed + 1);
    Dice dice(seed + 2);
    for (int i = 0; i < count; i++) {
        const float t = (float(i) + 0.5f + 0.2f * dice.Bell()) / float(count);
        const Line line = Furrow(a, b, Clamp(t));
        brush.Stroke(Beside(line, width * 0.5f), dice.Range(0.7f, 1.1f));
        pen.Stroke(line, {.start = 0.5f, .middle = 0.8f, .end = 0.3f});
    }
    canvas.Cover(bright.Multiply(within), light, 0.6f);
    canvas.Cover(deep.Multiply(within), dark, 0.75f);
}

// A village on her hip: a few gables, a church, and lit windows.
static void DrawVillage(Canvas& canvas, const Paper& paper, Vec2 at)
{
    Mask ink(W, H), windows(W, H);
    Pen pen(windows, paper, {.width = 2, .wobble = 0}, 61);
    const float houses[][3] = {{0, 26, 17},  {30, 20, 22},  {54, 30, 15},
                               {88, 22, 19}, {-28, 22, 14}, {114, 26, 13}};
    for (const auto& house : houses) {
        const float x = at.x + house[0], w = house[1], h = house[2],
                    foot = at.y + 0.012f * (house[0] - 40) * (house[0] - 40) * 0.5f;
        ink.Fill(Shaken(Straight({{x, foot},
                                  {x, foot - h},
                                  {x - 3, foot - h + 1},
                                  {x + w * 0.5f, foot - h * 1.75f},
                                  {x + w + 3, foot - h + 1},
                                  {x + w, foot - h},
                                  {x + w, foot}}),
                        0.8f, 9, uint32_t(x)));
        pen.Dot({x + w * 0.32f, foot - h * 0.45f}, 1.8f);
        if (w > 21)
            pen.Dot({x + w * 0.7f, foot - h * 0.5f}, 1.7f);
    }
    ink.Fill(Straight({{at.x + 64, at.y - 4},
                       {at.x + 65, at.y - 42},
                       {at.x + 70, at.y - 66},
                       {at.x + 75, at.y - 42},
                       {at.x + 76, at.y - 4}}));
    canvas.Cover(ink, Mix(palette::Rust, palette::Ink, 0.75f), 0.95f);
    canvas.Cover(windows, palette::Amber);
    canvas.Light(windows.Blurred(7), palette::Amber, 1.2f);
}

static Canvas Painting()
{
    Canvas canvas(W, H);
    const Paper& paper = SketchPaper();
    paper.Sheet(canvas, palette::Bone, 1.3f);
    PaintSky(canvas, paper);
    PaintFar(canvas, paper);

    const Mask him = Filled(W, H, Him()).Shake(2.5f, 40, 31), her = Filled(W, H, Her()).Shake(2.5f, 40, 32);
    Mask skirt(W, H);
    Line fields = Through(FieldTop);
    fields.push_back({2000, 1500});
    const Line left = Through(FieldLeft);
    fields.insert(fields.end(), left.rbegin(), left.rend());
    skirt.Fill(fields).Shake(3, 90, 33);
    const Colour earth = Mix(palette::Rust, palette::Ink, 0.55f),
                 clay = Mix(palette::Rust, palette::Ochre, 0.4f),
                 straw = Mix(palette::Ochre, palette::Parchment, 0.4f);

    PaintBody(canvas, paper, him, Mix(palette::Rust, palette::Ochre, 0.2f) * 0.8f, earth, 34);
    DrawFurrows(canvas, paper, HisBack, HisFront, 11, 12, him, clay, palette::Ink, 35);
    PaintBody(canvas, paper, skirt, straw, clay, 36);
    DrawFurrows(canvas, paper, FieldTop, FieldLeft, 34, 17, skirt, palette::Parchment,
                Mix(palette::Rust, palette::Ink, 0.6f), 37);
    // Her hair falls behind her and is the river.
    Mask hair(W, H), river(W, H);
    DryBrush strands(hair, paper,
                     {.width = 50,
                      .count = 36,
                      .thickness = 2.4f,
                      .load = 0.85f,
                      .ragged = 0.12f,
                      .spread = 0.9f,
                      .wave = 90},
                     42),
        shine(river, paper,
              {.width = 40, .count = 12, .thickness = 1.6f, .load = 0.6f, .ragged = 0.4f, .spread = 0.9f},
              43);
    strands.Stroke(Through(Hair));
    strands.Stroke(Moved(Through(Hair), {6, -3}));
    shine.Stroke(Moved(Through(Hair), {4, 0}));
    Pen lock(hair, paper, {.width = 3.2f, .wobble = 1, .skip = 0.2f, .pool = 0}, 46);
    const Line crown = Through(OnHerHead({{30, 4}, {54, -5}, {84, 6}, {101, 36}, {98, 64}})),
               fall = Through(Hair);
    for (int i = 0; i < 34; i++) {
        const float t = float(i) / 33;
        const Vec2 p = PointAt(crown, t);
        lock.Stroke(Through({p, Mix(p, PointAt(fall, 0.10f), 0.5f) + Vec2{16 - 14 * t, 0},
                             PointAt(fall, 0.12f) + Vec2{22 - 44 * t, 0},
                             PointAt(fall, 0.3f) + Vec2{24 - 48 * t, 0}}),
                    {.start = 0.5f, .middle = 0.9f, .end = 0.1f});
    }
    canvas.Cover(hair, Mix(palette::Rust, palette::Ink, 0.6f), 0.92f);
    canvas.Cover(river, palette::Parchment, 0.7f);

    PaintBody(canvas, paper, her, straw, clay, 38);
    DrawFurrows(canvas, paper, HerFront, HerBack, 9, 9, her, palette::Parchment,
                Mix(palette::Rust, palette::Ink, 0.5f), 39);
    // Ink: contours where the pen felt like it.
    Mask ink(W, H);
    Pen pen(ink, paper, {.width = 4.5f, .wobble = 1.2f, .wave = 60, .skip = 0.4f, .dry = 0.4f}, 50);
    const auto contour = [&](const Line& line, float width) {
        pen.nib.width = width;
        pen.Stroke(line, {.start = 0.2f, .middle = 1, .end = 0.1f});
    };
    const Colour line = Mix(palette::Ink, palette::Rust, 0.15f);
    const Line arm = Limb(Through(HisArm), 36, 17, 6), farArm = Limb(Through(HerArm), 19, 11, 5),
               holdArm = Limb(Through(HisHold), 10, 25, 9), neckArm = Limb(Through(HerHold), 15, 12, 8);
    const auto along = [&](const Line& limb, float width) { // both sides of an arm, not its ends
        contour(Part(limb, 0.03f, 0.46f), width);
        contour(Part(limb, 0.55f, 0.96f), width * 0.7f);
    };
    contour(Part(Through(HisBack), 0.05f, 0.95f), 4.5f);
    contour(Part(Through(HisFront), 0.05f, 0.62f), 4);
    contour(Part(Through(HerFront), 0.05f, 0.9f), 4);
    contour(Part(Through(HerBack), 0, 1), 4.5f);
    contour(Part(Through(FieldTop), 0, 0.4f), 4);
    contour(Part(Through(FieldLeft), 0.02f, 0.4f), 4);
    pen.nib.skip = 0;
    pen.nib.dry = 0.05f; // no stubble on his chin
    contour(Round(HisFace), 3.5f);
    pen.nib.skip = 0.4f;
    pen.nib.dry = 0.4f;
    along(arm, 4);
    contour(Part(farArm, 0.07f, 0.46f), 3.4f);
    contour(Part(farArm, 0.55f, 0.9f), 2.4f);
    canvas.Cover(ink, line, 0.92f);
    ink = Mask(W, H);

    // The arms that hold: his round her, its fingers spread on her back, hers round his neck.
    Shape holding(holdArm);
    for (int finger = 0; finger < 4; finger++) {
        const float k = float(finger);
        holding.Add(Limb(Through({{672, 426 + 2.5f * k}, {700, 409 + 8 * k}, {726 - 3 * k, 399 + 11.5f * k}}),
                         5.5f, 5, 2.5f));
    }
    holding.Add(Limb(Through({{664, 424}, {676, 402}, {694, 388}}), 7, 5, 2.5f));
    Shape shoulder(neckArm);
    shoulder.Add(Ellipse({672, 354}, 16, 15));
    // Her hand lies on his nape: the back of it, four fingers spread down over his shoulder, the thumb at his ear.
    shoulder.Add(Shaken(Ellipse({470, 260}, 15, 11, 0.45f), 1, 16, 49));
    const auto nape = [](int finger) {
        const float k = float(finger);
        return Through(
            {{466 - 2 * k, 256 + 4 * k}, {450 - 2.5f * k, 257 + 8 * k}, {437 - 0.5f * k, 264 + 12 * k}});
    };
    for (int finger = 0; finger < 4; finger++)
        shoulder.Add(Limb(nape(finger), 5, 4.6f, 2.4f));
    shoulder.Add(Limb(Through({{478, 254}, {474, 240}, {478, 228}}), 5, 4.4f, 2.4f));
    const Mask hold = Filled(W, H, holding).Shake(1.2f, 30, 44),
               neck = Filled(W, H, shoulder).Shake(2, 30, 45);
    PaintBody(canvas, paper, hold, clay * 0.75f, earth, 40);
    PaintBody(canvas, paper, neck, straw, clay, 41);
    DrawVillage(canvas, paper, {640, 634});
    pen.nib.skip = 0.25f;
    along(holdArm, 4);
    along(neckArm, 3.4f);
    for (int finger = 0; finger < 4; finger++) {
        contour(Beside(nape(finger), -4.5f), 2.2f);
        contour(Part(Beside(nape(finger), 4.5f), 0.35f, 1), 2);
    }
    contour(Through({{473, 252}, {469, 240}, {476, 227}}), 2.2f);
    for (int finger = 0; finger < 4; finger++) {
        const float k = float(finger);
        contour(Through({{684, 424 + 6.5f * k}, {704, 413.5f + 9 * k}, {724 - 3 * k, 404 + 12 * k}}), 2.6f);
    }
    // His eye, closed. Her profile, her eye, brow, lips and ear.
    contour(Through({{524, 212}, {531, 215}, {538, 212}}), 3);
    const Line profile = Through(OnHerHead({{26, 8},
                                            {14, 22},
                                            {9, 34},
                                            {11, 42},
                                            {2, 52},
                                            {-7, 59},
                                            {3, 64},
                                            {0, 69},
                                            {5, 73},
                                            {1, 78},
                                            {7, 84},
                                            {4, 92},
                                            {9, 99},
                                            {24, 99},
                                            {40, 96}}),
                                 1.5f);
    pen.nib.skip = 0.05f;
    contour(profile, 3.4f);
    contour(Through(OnHerHead({{15, 45}, {22, 50}, {31, 48}, {36, 44}})), 3.4f);
    for (const float x : {17.0f, 22.0f, 27.0f})
        contour(Through(OnHerHead({{x, 48}, {x - 4, 54}})), 1.8f);
    contour(Through(OnHerHead({{13, 35}, {24, 30}, {38, 34}})), 2.8f);
    contour(Through(OnHerHead({{5, 73}, {12, 72}, {18, 74}})), 3);
    contour(Through(OnHerHead({{8, 61}, {12, 58}, {11, 63}})), 2);
    contour(Through(OnHerHead({{40, 96}, {54, 84}, {60, 70}})), 2);
    DrawHandTree(pen, HisArm, 8, 51);
    DrawHandTree(pen, HerArm, 6, 52);
    const Line ridge = Through(HisBack);
    Dice dice(53);
    for (int i = 0; i < 46; i++) {
        const float t = Mix(0.14f, 0.8f, (float(i) + dice.Unit()) / 46);
        const Vec2 foot = PointAt(ridge, t) + Vec2{dice.Range(-1, 26), 7};
        DrawDeadFir(pen, foot, {.height = dice.Range(20, 52), .trunk = 3.4f, .reach = 10, .bare = 0.05f},
                    500 + uint32_t(i));
    }
    // Cropped hair, as a copse on a hilltop.
    ink.Fill(Shaken(
        Round(
            {{478, 240}, {469, 206}, {484, 174}, {514, 164}, {536, 177}, {518, 188}, {500, 206}, {494, 232}}),
        2, 14, 54));
    for (int i = 0; i < 70; i++) {
        const Vec2 p =
            PointAt(Through({{478, 242}, {468, 206}, {484, 173}, {514, 163}, {537, 177}}), dice.Unit());
        pen.nib.width = 2;
        pen.Stroke(Through({p + Vec2{4, 4}, p + Vec2{dice.Range(-6, 0), dice.Range(-7, 0)}}),
                   {.start = 0.8f, .middle = 0.7f, .end = 0});
    }
    // Hers begins at the temple and leaves the brow free.
    ink.Fill(Shaken(Round(OnHerHead({{24, 9},
                                     {50, -5},
                                     {84, 4},
                                     {103, 36},
                                     {99, 66},
                                     {88, 92},
                                     {76, 88},
                                     {72, 74},
                                     {68, 62},
                                     {60, 54},
                                     {56, 40},
                                     {40, 24}})),
                    1.2f, 16, 55));
    canvas.Cover(ink, line, 0.92f);
    // A comb of light on it, and her ear.
    Mask gleam(W, H);
    Pen hairline(gleam, paper, {.width = 2, .wobble = 0.8f, .skip = 0.4f}, 56);
    for (int i = 0; i < 9; i++) {
        const float k = float(i);
        hairline.Stroke(
            Through(OnHerHead({{34 + 3.4f * k, 12 - k}, {62 + 3 * k, 22 + 2.6f * k}, {84 + k, 50 + 3 * k}})),
            {.start = 0.1f, .middle = 0.7f, .end = 0.2f});
    }
    canvas.Cover(gleam, Mix(palette::Ochre, palette::Rust, 0.4f), 0.8f);
    const Line ear = Round(OnHerHead({{62, 52}, {69, 54}, {69, 63}, {63, 70}, {60, 62}}));
    canvas.Cover(Filled(W, H, ear), Mix(straw, clay, 0.25f));
    // A warm cheek.
    const Vec2 cheek = OnHerHead({{32, 66}})[0];
    canvas.Glaze(Mask(W, H).Each(
                     [&](float x, float y) {
                         return Bell(Length(Vec2{x, y} - cheek) / 15);
                     },
                     2),
                 palette::Rust, 0.3f);
    ink = Mask(W, H);
    contour(ear, 2);
    contour(Through({{500, 214}, {506, 210}, {509, 218}, {504, 226}}), 2.6f);
    canvas.Cover(ink, line, 0.92f);
    paper.Show(canvas, 0.4f);
    return canvas;
}

// clang-format off
Group FS_ImagePictures()
{
    return {"FS_Image", {
        {"Data/ochre_painting1.jpg",        1024, 1024, Format::Jpeg,   Painting},
        {"Data/glowmask.jpg",               1024, 1024, Format::Jpeg,   GlowMask},
    }};
}
// clang-format on

} // namespace atelier
