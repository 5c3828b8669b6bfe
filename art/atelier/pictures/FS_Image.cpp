// SPDX-License-Identifier: MIT
// A painting in ochres: two dancers that are also a landscape. His back is a steep hill with a wood on it,
// she is the long ridge that falls to the right, her skirt the ploughed fields below, their far hands bare
// trees.
#include "art/atelier/DryBrush.h"
#include "art/atelier/Pictures.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/Wood.h"
#include "art/atelier/pictures/painting/Dancers.h"

namespace atelier
{

constexpr Vector2 Disc = {622, 268};
constexpr float DiscRadius = 206;

static Shape Between(const std::vector<Vector2>& a, const std::vector<Vector2>& b)
{
    Line outline = Through(a), back = Through(b);
    outline.insert(outline.end(), back.rbegin(), back.rend());
    return outline;
}

static Shape Him()
{
    Shape shape = HisCoat();
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
            return Smooth(330, 760, Length(Vector2{x - Disc.x, (y - Disc.y) * 1.2f}));
        },
        4);
    canvas.Glaze(WashDensity(paper, corners, style, 12), palette::Rust, 0.5f);
    // Banks of cloud, torn to the right.
    const Noise noise(13);
    const Mask clouds = Mask(W, H).Each(
        [&](float x, float y) {
            const Vector2 p = noise.Warp(x / 330, y / 90, 0.6f);
            return Smooth(0.1f, 0.18f, noise.Fbm(p.x, p.y, 5) * Smooth(400, 200, y)) *
                   Smooth(DiscRadius, DiscRadius + 90, Length(Vector2{x, y} - Disc));
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
        return Smooth(DiscRadius - 80, DiscRadius, Length(Vector2{x, y} - Disc));
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
        const LinearColour light = Mix(palette::Ochre, palette::Parchment, 0.6f - 0.22f * k),
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

// A village on her hip: a few gables, a church, and lit windows.
static void DrawVillage(Canvas& canvas, const Paper& paper, Vector2 at)
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

static void PaintSkirt(Canvas& canvas, const Paper& paper)
{
    Mask skirt(W, H);
    Line fields = Through(FieldTop);
    fields.push_back({2000, 1500});
    const Line left = Through(FieldLeft);
    fields.insert(fields.end(), left.rbegin(), left.rend());
    skirt.Fill(fields).Shake(3, 90, 33);
    PaintFigure(canvas, paper, skirt, Straw, Clay, 36);
    DrawFurrows(canvas, paper, FieldTop, FieldLeft, 34, 17, skirt, palette::Parchment,
                Mix(palette::Rust, palette::Ink, 0.6f), 37);
    InkContours(canvas, paper,
                {{Part(Through(FieldTop), 0, 0.4f), 4}, {Part(Through(FieldLeft), 0.02f, 0.4f), 4}}, 0.4f,
                92);
}

// Her hair falls behind her and is the river.
static void PaintHair(Canvas& canvas, const Paper& paper)
{
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
        const Vector2 p = PointAt(crown, t);
        lock.Stroke(Through({p, Mix(p, PointAt(fall, 0.10f), 0.5f) + Vector2{16 - 14 * t, 0},
                             PointAt(fall, 0.12f) + Vector2{22 - 44 * t, 0},
                             PointAt(fall, 0.3f) + Vector2{24 - 48 * t, 0}}),
                    {.start = 0.5f, .middle = 0.9f, .end = 0.1f});
    }
    canvas.Cover(hair, Mix(palette::Rust, palette::Ink, 0.6f), 0.92f);
    canvas.Cover(river, palette::Parchment, 0.7f);
}

static void PaintHer(Canvas& canvas, const Paper& paper)
{
    const Mask her = Filled(W, H, Her()).Shake(2.5f, 40, 32);
    PaintFigure(canvas, paper, her, Straw, Clay, 38);
    DrawFurrows(canvas, paper, HerFront, HerBack, 9, 9, her, palette::Parchment,
                Mix(palette::Rust, palette::Ink, 0.5f), 39);
    const Line farArm = Limb(Through(HerArm), 19, 11, 5);
    InkContours(canvas, paper,
                {{Part(Through(HerFront), 0.05f, 0.9f), 4},
                 {Through(HerBack), 5},
                 {Part(farArm, 0.07f, 0.46f), 3.4f},
                 {Part(farArm, 0.55f, 0.9f), 2.4f}},
                0.4f, 93);
}

static void PaintHim(Canvas& canvas, const Paper& paper)
{
    const Mask him = Filled(W, H, Him()).Shake(2.5f, 40, 31);
    const LinearColour cloth = Mix(palette::Rust, palette::Ochre, 0.2f) * 0.8f;
    PaintHisLegs(canvas, paper, cloth * 0.45f, Mix(palette::Rust, palette::Ink, 0.8f));
    PaintFigure(canvas, paper, him, cloth, Earth, 34);
    DrawFurrows(canvas, paper, HisBack, HisFront, 11, 12, him, Clay, palette::Ink, 35);
    InkContours(canvas, paper, {{Round(HisFace), 3.5f}}, 0.05f, 94); // no stubble on his chin
    std::vector<Contour> contours = {
        {Part(Through(HisBack), 0.05f, 1), 4.5f}, {Part(Through(HisFront), 0.05f, 1), 4.5f}, {HisHem(), 4}};
    AddArm(contours, Limb(Through(HisArm), 36, 17, 6), 0.13f, 4);
    InkContours(canvas, paper, contours, 0.35f, 95);
}

// The wood on his back, and the bare trees that are their far hands.
static void PaintWood(Canvas& canvas, const Paper& paper)
{
    Mask ink(W, H);
    Pen pen(ink, paper, {.width = 2, .wobble = 1.2f, .wave = 60, .skip = 0.05f, .dry = 0.4f}, 50);
    DrawHandTree(pen, HisArm, 8, 51);
    DrawHandTree(pen, HerArm, 6, 52);
    const Line ridge = Through(HisBack);
    Dice dice(53);
    for (int i = 0; i < 46; i++) {
        const float t = Mix(0.14f, 0.92f, (float(i) + dice.Unit()) / 46);
        const Vector2 foot = PointAt(ridge, t) + Vector2{dice.Range(-1, 26), 7};
        DrawDeadFir(pen, foot, {.height = dice.Range(20, 52), .trunk = 3.4f, .reach = 10, .bare = 0.05f},
                    500 + uint32_t(i));
    }
    canvas.Cover(ink, DarkInk, 0.92f);
}

static Canvas Painting()
{
    Canvas canvas(W, H);
    const Paper& paper = SketchPaper();
    paper.Sheet(canvas, palette::Bone, 1.3f);
    PaintSky(canvas, paper);
    PaintFar(canvas, paper);
    PaintSkirt(canvas, paper);
    PaintHair(canvas, paper);
    PaintHerFoot(canvas, paper, Straw, Clay);
    PaintHer(canvas, paper);
    PaintHim(canvas, paper);
    PaintEmbrace(canvas, paper);
    DrawVillage(canvas, paper, {700, 632});
    PaintWood(canvas, paper);
    PaintHeads(canvas, paper);
    paper.Show(canvas, 0.4f);
    return canvas;
}

// clang-format off
PictureGroup FS_ImagePictures()
{
    return {"FS_Image", {
        {"Data/ochre_painting1.jpg",        1024, 1024, Format::Jpeg,   Painting},
        {"Data/glowmask.jpg",               1024, 1024, Format::Jpeg,   GlowMask},
    }};
}
// clang-format on

} // namespace atelier
