// SPDX-License-Identifier: MIT
// What the dancers stand on: his back leg pushes, his bent knee carries the two, one bare foot of hers is all of her that
// is still on the ground.
#include "art/atelier/DryBrush.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/clouds/Body.h"
#include "art/atelier/pictures/painting/Dancers.h"

namespace atelier
{

// clang-format off
// He pushes: hollow of the knee, calf and heel behind, knee and shin before.
const std::vector<Vector2> PushingLeg = {
    {380, 500}, {316, 556}, {272, 590}, {250, 606}, {226, 616}, {202, 638}, {182, 662}, {168, 676}, {186, 700}, {206, 704},
    {226, 696}, {252, 682}, {282, 672}, {304, 656}, {334, 638}, {390, 606}, {450, 566}, {440, 520}};
// He stands: the thigh's front swells up to the knee, below the knee it steps back, the shin is straight, the calf round.
const std::vector<Vector2> StandingLeg = {
    {430, 500}, {490, 512}, {542, 524}, {584, 543}, {614, 560}, {627, 578}, {624, 596}, {613, 612}, {607, 634}, {597, 660},
    {585, 694}, {566, 702}, {547, 696}, {546, 676}, {541, 656}, {544, 636}, {556, 620}, {548, 613}, {516, 606}, {470, 592},
    {424, 570}};
// The shoe that pushes: the heel is up, the ball of the foot is on the ground and bends.
static const std::vector<Vector2> PushingShoe = {
    {190, 672}, {164, 662}, {146, 666}, {137, 682}, {143, 700}, {162, 717}, {188, 731}, {220, 737}, {244, 736}, {248, 726},
    {235, 713}, {220, 704}, {210, 690}};
// The shoe that stands flat, its heel below the shin.
const std::vector<Vector2> StandingShoe = {
    {544, 682}, {536, 698}, {529, 716}, {529, 734}, {553, 735}, {562, 729}, {590, 734}, {636, 739}, {662, 738}, {668, 731},
    {650, 719}, {620, 707}, {590, 686}};
// clang-format on

// The sun stands low behind them: one shadow lies before all three feet, and comes towards us. It is darkest and has
// its edge below the soles, and runs out into strokes.
void PaintGroundShadow(Canvas& canvas, const Paper& paper, const Mask& within)
{
    const LinearColour dusk = Mix(palette::Rust, palette::Ink, 0.55f);
    Mask shadow(W, H);
    shadow.Fill(Shaken(Round({{138, 728},
                              {190, 733},
                              {262, 728},
                              {340, 730},
                              {372, 726},
                              {440, 736},
                              {528, 734},
                              {600, 738},
                              {664, 734},
                              {700, 742},
                              {664, 754},
                              {560, 762},
                              {430, 764},
                              {300, 757},
                              {180, 756},
                              {104, 746},
                              {96, 738}}),
                       3, 40, 70));
    canvas.Glaze(WashDensity(paper, shadow,
                             {.pool = 0.5f, .granulation = 0.6f, .bloom = 0.5f, .stray = 3, .bleed = 9}, 71)
                     .Multiply(within),
                 dusk, 0.62f);
    // Where they touch the ground.
    Mask touch(W, H);
    for (const auto& sole :
         {Ellipse({206, 738}, 54, 6), Ellipse({315, 729}, 52, 5), Ellipse({594, 740}, 68, 6)})
        touch.Fill(sole);
    canvas.Glaze(touch.Blur(3).Multiply(within), DarkInk, 0.8f);
    Mask strokes(W, H);
    DryBrush brush(strokes, paper,
                   {.width = 14, .count = 12, .thickness = 1.5f, .load = 0.5f, .ragged = 0.5f}, 72);
    Dice dice(73);
    for (int i = 0; i < 16; i++) {
        const float x = dice.Range(100, 560), y = dice.Range(738, 766);
        brush.Stroke(Through({{x, y + 1}, {x + 60, y - 1}, {x + 130, y + 1}}), dice.Range(0.6f, 1));
    }
    canvas.Cover(strokes.Multiply(within), dusk, 0.5f);
}

// A shoe of soft leather: `welt` is the seam over its sole, `heel` a block below it, `laces` cross its instep.
static void PaintShoe(Canvas& canvas, const Paper& paper, const std::vector<Vector2>& shoe,
                      const std::vector<Vector2>& welt, const std::vector<Vector2>& heel,
                      const std::vector<std::vector<Vector2>>& laces,
                      const std::vector<std::vector<Vector2>>& gleams, uint32_t seed)
{
    const Mask leather = Filled(W, H, Round(shoe)).Shake(1, 30, seed);
    PaintFigure(canvas, paper, leather, Trousers, DarkInk, seed + 1);
    const Line seam = Through(welt);
    Mask sole(W, H);
    sole.Fill(
        Between(welt, std::vector<Vector2>{welt.front() + Vector2{0, 24}, welt.back() + Vector2{0, 24}}));
    canvas.Cover(sole.Multiply(leather), DarkInk, 0.85f);
    canvas.Cover(Filled(W, H, Shape(Straight(heel))).Blur(0.7f), DarkInk);
    InkContours(canvas, paper, {{Round(shoe), 3.4f}, {seam, 2.2f}}, 0.1f, seed + 2);
    Mask light(W, H); // on the leather
    Pen pen(light, paper, {.width = 3.2f, .wobble = 0.5f, .skip = 0.3f, .dry = 0.5f}, seed + 3);
    for (const std::vector<Vector2>& gleam : gleams)
        pen.Stroke(Through(gleam), {.start = 0.1f, .middle = 0.9f, .end = 0});
    pen.nib.width = 1.8f;
    pen.Stroke(Moved(seam, {0, -2}), {0, 0.7f, 0});
    pen.nib = {.width = 2.2f, .wobble = 0.4f, .skip = 0};
    for (const std::vector<Vector2>& lace : laces)
        pen.Stroke(Through(lace), {.start = 0.7f, .middle = 0.9f, .end = 0.7f});
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

// What the sun behind him leaves on the edge of a leg.
static void PaintEdgeOfSun(Canvas& canvas, const std::vector<std::vector<Vector2>>& edges, uint32_t seed)
{
    Mask lit(W, H);
    Pen pen(lit, SketchPaper(), {.width = 3, .wobble = 0.8f, .wave = 50, .skip = 0.3f, .dry = 0.6f}, seed);
    for (const std::vector<Vector2>& edge : edges)
        pen.Stroke(Through(edge), {0, 1, 0});
    canvas.Cover(lit, Mix(Clay, palette::Amber, 0.3f), 0.7f);
}

void PaintHisPushingLeg(Canvas& canvas, const Paper& paper)
{
    PaintShoe(canvas, paper, PushingShoe, {{146, 692}, {160, 709}, {188, 724}, {220, 730}, {247, 729}},
              {{142, 692}, {132, 705}, {152, 723}, {165, 714}, {142, 692}},
              {{{209, 702}, {200, 710}}, {{219, 709}, {210, 717}}},
              {{{222, 716}, {232, 720}, {240, 724}}, {{148, 676}, {162, 670}, {176, 674}}}, 78);
    PaintClothed(canvas, PushingLeg, Trousers, palette::Ink, 170);
    PaintFolds(canvas,
               {{{292, 586}, {274, 604}, {268, 630}},
                {{270, 596}, {272, 616}, {290, 640}},
                {{258, 608}, {260, 622}, {272, 640}},
                {{296, 660}, {280, 660}, {266, 650}},
                {{186, 668}, {190, 684}, {204, 694}},
                {{178, 676}, {186, 690}, {198, 698}}},
               172);
    PaintEdgeOfSun(canvas, {{{246, 612}, {226, 621}, {204, 642}, {186, 664}}}, 173);
}

void PaintHisStandingLeg(Canvas& canvas, const Paper& paper)
{
    PaintShoe(canvas, paper, StandingShoe, {{530, 727}, {560, 726}, {600, 730}, {664, 731}},
              {{529, 727}, {527, 743}, {556, 743}, {560, 727}, {529, 727}},
              {{{584, 702}, {596, 697}}, {{594, 708}, {606, 703}}, {{605, 713}, {617, 708}}},
              {{{624, 712}, {638, 716}, {652, 724}}, {{540, 700}, {536, 712}, {536, 720}}}, 79);
    PaintClothed(canvas, StandingLeg, Trousers, palette::Ink, 171);
    // Cloth is drawn over the knee, and is pressed together in its hollow.
    PaintFolds(canvas,
               {{{560, 616}, {582, 612}, {606, 596}},
                {{556, 612}, {574, 600}, {588, 580}},
                {{552, 606}, {558, 592}, {560, 572}},
                {{560, 622}, {580, 626}, {602, 620}},
                {{602, 566}, {610, 580}, {606, 596}}, // the kneecap
                {{470, 562}, {512, 578}, {546, 604}},
                {{462, 540}, {500, 550}, {530, 566}},
                {{552, 672}, {562, 682}, {582, 682}},
                {{550, 684}, {564, 692}, {580, 690}}},
               176);
    PaintEdgeOfSun(canvas,
                   {{{546, 529}, {584, 547}, {612, 563}, {623, 580}, {620, 594}},
                    {{608, 616}, {603, 640}, {593, 666}, {584, 690}}},
                   177);
}

} // namespace atelier
