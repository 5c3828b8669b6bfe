// SPDX-License-Identifier: MIT
// A painting in ochres: two dancers that are also a landscape. His back is a steep hill with a wood on it,
// she is the long ridge that falls to the right, her skirt the ploughed fields below, their far hands bare
// trees.
#include "art/atelier/Pictures.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/Wood.h"
#include "art/atelier/pictures/clouds/Body.h"
#include "art/atelier/pictures/painting/Dancers.h"

namespace atelier
{

constexpr Vector2 Disc = {622, 268};
constexpr float DiscRadius = 206;

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

static Mask Skirt()
{
    Mask skirt(W, H);
    Line fields = Through(FieldTop);
    fields.push_back({2000, 1500});
    const Line left = Through(FieldLeft);
    fields.insert(fields.end(), left.rbegin(), left.rend());
    skirt.Fill(fields).Shake(3, 90, 33);
    return skirt;
}

static void PaintSkirt(Canvas& canvas, const Paper& paper)
{
    const Mask skirt = Skirt();
    PaintFigure(canvas, paper, skirt, Straw, Clay, 36);
    DrawFurrows(canvas, paper, FieldTop, FieldLeft, 34, 17, skirt, palette::Parchment,
                Mix(palette::Rust, palette::Ink, 0.6f), 37);
    // Her hip and her thigh are round below the cloth, which falls from the knee.
    Mask hollow(W, H), lines(W, H), lit(W, H);
    hollow.Fill(Round({{566, 600},
                       {520, 608},
                       {474, 634},
                       {436, 668},
                       {416, 704},
                       {410, 760},
                       {430, 770},
                       {452, 716},
                       {492, 668},
                       {548, 628}}));
    hollow.Blur(5).Multiply(skirt);
    canvas.Glaze(hollow, Mix(palette::Rust, palette::Ink, 0.3f), 0.26f);
    Pen hatching(lines, paper, {.width = 2, .wobble = 0.8f, .skip = 0.3f}, 94);
    Hatch(hatching, hollow.Scale(0.75f), {.angle = -0.35f, .spacing = 6.5f, .length = 46, .bend = 8}, 97);
    canvas.Cover(lines.Multiply(skirt), Mix(palette::Rust, palette::Ink, 0.6f), 0.6f);
    lit.Fill(Limb(Through({{470, 572}, {440, 596}, {416, 632}}), 6, 9, 5));
    canvas.Cover(lit.Blur(5).Multiply(skirt), palette::Bone, 0.25f);
    InkContours(canvas, paper,
                {{Part(Through(FieldTop), 0, 0.4f), 4},
                 {Part(Through(FieldLeft), 0.02f, 0.4f), 4},
                 {Through({{556, 604}, {506, 616}, {458, 646}, {424, 680}, {414, 720}}), 3},
                 {Through({{500, 628}, {462, 660}, {440, 700}, {428, 752}}), 2.4f},
                 {Through({{404, 640}, {414, 650}, {430, 652}}), 2.2f}},
                0.4f, 92);
}

// Her body in its dress, which is cut low: shoulder and throat are bare.
static void PaintHer(Canvas& canvas, const Paper& paper)
{
    const Shape body = Between(HerFront, HerBack);
    const Mask her = Filled(W, H, body).Shake(2, 40, 32);
    Mask dress = her;
    dress.Subtract(Filled(W, H,
                          Round({{656, 322},
                                 {670, 356},
                                 {690, 396},
                                 {716, 420},
                                 {734, 446},
                                 {840, 430},
                                 {820, 320},
                                 {700, 300}}))
                       .Blur(0.8f));
    Mask skin = her;
    skin.Subtract(dress);
    // It grows out of her throat, and the far shoulder out of it.
    const Mask throat = Mask(W, H).Each(
        [](float x, float y) {
            return Max(Smooth(38, 20, Length(Vector2{x, y} - Vector2{764, 380})),
                       Smooth(34, 20, Length(Vector2{x, y} - Vector2{746, 338})));
        },
        2);
    PaintBody(canvas, her,
              {.light = HerSkin,
               .shade = Mix(palette::Rust, palette::Ochre, 0.45f),
               .depth = 0.7f,
               .hatch = 0.15f,
               .contour = 0.8f,
               .back = Clay,
               .rim = 0.25f},
              0.7f, 38, &throat);
    PaintFigure(canvas, paper, dress, Straw, Clay, 39);
    DrawFurrows(canvas, paper, HerFront, HerBack, 9, 9, dress, palette::Parchment,
                Mix(palette::Rust, palette::Ink, 0.5f), 40);
    // The side that is turned from the sun.
    Mask side = dress;
    side.Subtract(Filled(W, H, Shape(Moved(body.outlines[0], {-22, -20}))).Blur(9));
    canvas.Glaze(side.Multiply(dress), palette::Rust, 0.55f);
    // Her nape is turned from the sun, too.
    canvas.Glaze(Filled(W, H, Limb(Through({{802, 395}, {778, 391}, {750, 401}}), 3, 6, 6)).Blur(3.5f),
                 Mix(palette::Rust, palette::Ochre, 0.45f), 0.6f);
    InkContours(canvas, paper,
                {{Part(Through(HerFront), 0.05f, 0.72f), 4},
                 {Part(Through(HerBack), 0, 0.99f), 4},
                 {Through({{662, 331}, {672, 358}, {690, 394}, {712, 414}, {726, 424}}), 3.2f}, // neckline
                 {Through({{700, 336}, {716, 340}, {730, 352}}), 2.2f}, // before the far arm
                 {Through({{762, 362}, {756, 351}, {745, 343}}), 1.8f}, // the far collarbone
                 // From the ear to where the collarbones meet.
                 {Through({{822, 389}, {804, 383}, {784, 374}, {768, 367}}), 2.6f},
                 {Through({{797, 402}, {777, 396}, {757, 400}, {737, 416}}), 2.8f}}, // the nape
                0.25f, 93);
}

static void PaintHim(Canvas& canvas, const Paper& paper)
{
    PaintHisPushingLeg(canvas, paper);
    PaintHisStandingLeg(canvas, paper);
    const Shape coat = Between(HisBack, HisFront);
    const Mask him = Filled(W, H, coat).Shake(2, 40, 31);
    // The coat hangs before the leg that pushes and throws its shadow on it.
    Mask cast = Filled(W, H, Shape(Moved(coat.outlines[0], {7, 15}))).Blur(5);
    cast.Multiply(Filled(W, H, Round(PushingLeg)).Blur(1));
    canvas.Cover(cast, DarkInk, 0.8f);
    PaintFigure(canvas, paper, him, Coat, Earth, 34);
    DrawFurrows(canvas, paper, HisBack, HisFront, 10, 12, him, Clay, palette::Ink, 35);
    Mask side = him; // his back is turned from the sun
    side.Subtract(Filled(W, H, Shape(Moved(coat.outlines[0], {34, 4}))).Blur(14));
    canvas.Glaze(side.Multiply(him), Mix(palette::Rust, palette::Ink, 0.5f), 0.6f);
    // Its hem catches the sun.
    const Line front = Through(HisFront);
    Mask hem(W, H);
    Pen turned(hem, paper, {.width = 3.4f, .wobble = 1.6f, .wave = 60, .skip = 0.3f, .dry = 0.6f}, 96);
    turned.Stroke(Moved(Part(front, 0.58f, 0.99f), {-1, -5}), {.start = 0, .middle = 1, .end = 0});
    canvas.Cover(hem, Mix(Clay, palette::Amber, 0.3f), 0.75f);
    InkContours(canvas, paper,
                {{Part(Through(HisBack), 0.03f, 1), 4.5f},
                 {Part(front, 0.03f, 1), 4.5f},
                 {Through({{512, 276}, {524, 300}, {552, 318}}), 3},  // lapel
                 {Through({{472, 256}, {490, 270}, {510, 276}}), 4}}, // collar
                0.25f, 95);
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
    Mask ground(W, H, 1);
    ground.Subtract(Skirt());
    PaintGroundShadow(canvas, paper, ground);
    PaintHerCalfAndFoot(canvas);
    PaintSkirt(canvas, paper);
    PaintGroundShadow(canvas, paper, Skirt());
    DrawVillage(canvas, paper, {700, 632});
    PaintHisFarArm(canvas);
    PaintHerFarArm(canvas);
    PaintHerHead(canvas, paper);
    PaintHer(canvas, paper);
    PaintHair(canvas, paper);
    PaintHim(canvas, paper);
    PaintHisHead(canvas, paper);
    PaintHerHold(canvas);
    PaintHisHold(canvas);
    PaintWood(canvas, paper);
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
