// SPDX-License-Identifier: MIT
// What the dancers stand on: his back leg pushes, his bent knee carries the two, one bare foot of hers is all of her that
// is still on the ground.
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/clouds/Body.h"
#include "art/atelier/pictures/painting/Dancers.h"

namespace atelier
{

// The shoe that pushes: the heel is up, the ball of the foot is on the ground.
static const std::vector<Vector2> PushingShoe = {{184, 678}, {160, 672}, {147, 684}, {152, 704}, {166, 718},
                                                 {192, 727}, {218, 728}, {222, 718}, {206, 708}, {194, 696}};
// The shoe that stands flat, its heel below the shin.
static const std::vector<Vector2> StandingShoe = {{538, 684}, {532, 704}, {531, 726}, {552, 727},
                                                  {558, 721}, {580, 726}, {622, 727}, {630, 719},
                                                  {618, 708}, {592, 700}, {576, 684}};
// Where a foot touches the ground: darkest right below it, and longer on the side away from the sun.
static void CastShadow(Canvas& canvas, const Paper& paper, Vector2 from, Vector2 to, uint32_t seed)
{
    const Vector2 middle = Mix(from, to, 0.5f);
    const float half = Length(to - from) * 0.5f;
    Shape shape(Shaken(Ellipse(middle + Vector2{-half * 0.35f, 3}, half * 1.5f, 10), 3, 26, seed));
    Wash(canvas, paper, Filled(W, H, shape),
         {.pigment = Mix(palette::Rust, palette::Ink, 0.5f),
          .density = 0.75f,
          .granulation = 0.6f,
          .bleed = 10},
         seed + 1);
    Mask hatch(W, H);
    Pen pen(hatch, paper, {.width = 2.6f, .wobble = 0.8f, .skip = 0.3f, .dry = 0.4f}, seed + 2);
    Dice dice(seed + 3);
    for (int i = 0; i < 9; i++) {
        const float y = middle.y - 1 + 1.6f * float(i);
        const float left = middle.x - half * dice.Range(1.1f, 2.0f),
                    right = middle.x + half * dice.Range(0.7f, 1.1f);
        pen.Stroke(Through({{left, y + 2}, {Mix(left, right, 0.5f), y}, {right, y + 1}}),
                   {.start = 0, .middle = 0.8f, .end = 0.2f});
    }
    canvas.Cover(hatch, Mix(palette::Rust, palette::Ink, 0.7f), 0.7f);
}

static void PaintShoe(Canvas& canvas, const Paper& paper, const std::vector<Vector2>& shoe,
                      const std::vector<Vector2>& gleam, uint32_t seed)
{
    PaintFigure(canvas, paper, Filled(W, H, Round(shoe)).Shake(1, 30, seed), Trousers * 0.7f, DarkInk,
                seed + 1);
    InkContours(canvas, paper, {{Round(shoe), 3.4f}}, 0.1f, seed + 2);
    Mask light(W, H); // on the leather
    Pen pen(light, paper, {.width = 2.6f, .wobble = 0.5f, .skip = 0.3f, .dry = 0.5f}, seed + 3);
    pen.Stroke(Through(gleam), {.start = 0.1f, .middle = 0.9f, .end = 0});
    canvas.Cover(light, palette::Ochre, 0.7f);
}

static void PaintFolds(Canvas& canvas, const std::vector<std::vector<Vector2>>& folds, uint32_t seed)
{
    Mask ink(W, H), lit(W, H);
    Pen pen(ink, SketchPaper(), {.width = 3.4f, .wobble = 1, .skip = 0.15f}, seed),
        light(lit, SketchPaper(), {.width = 2.6f, .wobble = 1, .skip = 0.25f, .dry = 0.5f}, seed + 1);
    for (const std::vector<Vector2>& fold : folds) {
        pen.Stroke(Through(fold), {0.1f, 1, 0});
        light.Stroke(Moved(Through(fold), {-2, -5}), {0, 0.8f, 0});
    }
    canvas.Cover(ink, DarkInk, 0.8f);
    canvas.Cover(lit, Clay, 0.55f);
}

void PaintHisPushingLeg(Canvas& canvas, const Paper& paper)
{
    CastShadow(canvas, paper, {150, 728}, {222, 729}, 70);
    PaintShoe(canvas, paper, PushingShoe, {{178, 704}, {194, 714}, {212, 720}}, 78);
    PaintLimb(canvas, HisPush, {56, 45, 31, 28, 16}, Trousers, palette::Ink, 170);
    PaintFolds(canvas,
               {{{296, 586}, {274, 604}, {262, 626}},
                {{304, 602}, {284, 616}, {276, 640}},
                {{196, 664}, {192, 680}, {200, 694}}},
               172);
}

void PaintHisStandingLeg(Canvas& canvas, const Paper& paper)
{
    CastShadow(canvas, paper, {532, 727}, {630, 729}, 74);
    PaintShoe(canvas, paper, StandingShoe, {{578, 700}, {598, 708}, {618, 714}}, 79);
    // The shin first, then the thigh, that comes towards us.
    PaintLimb(canvas, {{598, 584}, {596, 624}, {582, 656}, {560, 694}}, {33, 32, 27, 18}, Trousers,
              palette::Ink, 171);
    PaintLimb(canvas, {HisStand[0], HisStand[1], HisStand[2] + Vector2{4, 4}}, {62, 51, 37}, Trousers,
              palette::Ink, 174);
    PaintFolds(canvas,
               {{{566, 604}, {590, 612}, {616, 606}},
                {{562, 590}, {582, 600}, {600, 598}},
                {{470, 560}, {510, 576}, {556, 590}},
                {{556, 678}, {566, 684}, {580, 684}}},
               176);
}

void PaintHerLeg(Canvas& canvas, const Paper& paper)
{
    CastShadow(canvas, paper, {292, 726}, {382, 726}, 84);
    PaintHerCalfAndFoot(canvas);
}

} // namespace atelier
