// SPDX-License-Identifier: MIT
// What the dancers stand on: his back leg pushes, his bent knee carries the two, one bare foot of hers is all of her that
// is still on the ground.
#include "art/atelier/Wash.h"
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
// Her foot from the inner ankle over the heel, along the sole to the toes, and back over the instep.
static const std::vector<Vector2> BareFoot = {{392, 690}, {401, 706}, {399, 720}, {386, 724},
                                              {364, 721}, {338, 726}, {317, 725}, {315, 718},
                                              {334, 709}, {354, 700}, {370, 687}};

Shape HisLegs()
{
    Shape legs(Limb(Through(HisPush), 52, 36, 13));
    legs.Add(Limb(Through(HisStand), 27, 26, 17));
    legs.Add(Round(PushingShoe));
    legs.Add(Round(StandingShoe));
    return legs;
}

Shape HerFoot()
{
    Shape foot(Limb(Through(HerStep), 19, 14, 10));
    foot.Add(Round(BareFoot));
    return foot;
}

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

void PaintHisLegs(Canvas& canvas, const Paper& paper, LinearColour light, LinearColour dark)
{
    CastShadow(canvas, paper, {150, 728}, {222, 729}, 70);
    CastShadow(canvas, paper, {532, 727}, {630, 729}, 74);
    PaintFigure(canvas, paper, Filled(W, H, HisLegs()).Shake(1.2f, 30, 78), light, dark, 79);
    const Line push = Limb(Through(HisPush), 52, 36, 13), stand = Limb(Through(HisStand), 27, 26, 17);
    InkContours(canvas, paper,
                {{Part(push, 0.2f, 0.47f), 3},
                 {Part(push, 0.53f, 0.8f), 3},
                 {Part(stand, 0.1f, 0.45f), 3},
                 {Part(stand, 0.55f, 0.9f), 3},
                 {Round(PushingShoe), 3.4f},
                 {Round(StandingShoe), 3.4f}},
                0.15f, 80);
    Mask gleam(W, H); // on the leather
    Pen pen(gleam, paper, {.width = 2.6f, .wobble = 0.5f, .skip = 0.3f, .dry = 0.5f}, 82);
    pen.Stroke(Through({{178, 704}, {194, 714}, {212, 720}}), {.start = 0.1f, .middle = 0.9f, .end = 0});
    pen.Stroke(Through({{578, 700}, {598, 708}, {618, 714}}), {.start = 0.1f, .middle = 0.9f, .end = 0});
    canvas.Cover(gleam, palette::Ochre, 0.7f);
}

void PaintHerFoot(Canvas& canvas, const Paper& paper, LinearColour light, LinearColour dark)
{
    CastShadow(canvas, paper, {318, 724}, {400, 724}, 84);
    PaintFigure(canvas, paper, Filled(W, H, HerFoot()).Shake(0.8f, 24, 88), light, dark, 89);
    const Line leg = Limb(Through(HerStep), 19, 14, 10);
    InkContours(
        canvas, paper,
        {{Part(leg, 0.1f, 0.44f), 3},
         {Part(leg, 0.58f, 0.85f), 3},
         {Through({{398, 698}, {401, 708}, {399, 720}, {386, 724}, {364, 721}, {338, 726}, {317, 725}}), 3},
         {Through({{368, 688}, {354, 700}, {334, 709}, {315, 718}, {317, 725}}), 3},
         {Through({{384, 698}, {389, 703}, {386, 709}}), 2}, // the ankle
         {Through({{326, 716}, {323, 721}}), 2},             // toes
         {Through({{334, 713}, {331, 719}}), 2},
         {Through({{341, 711}, {339, 716}}), 2}},
        0.15f, 90);
}

} // namespace atelier
