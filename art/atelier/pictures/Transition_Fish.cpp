// SPDX-License-Identifier: MIT
// A fish's skeleton on two cards that meet at a hinge: skull and spine, and the tail. Both are cut from one
// drawing, so that they meet without a step.
#include "art/atelier/Pen.h"
#include "art/atelier/Pictures.h"
#include "art/atelier/Wash.h"

namespace atelier
{

// 512 pixels to a unit of the scene, the hinge at x = 1024, the spine in the middle. The cards keep the size of the
// drawing: the scene begins on a few pixels of them.
constexpr int W = 1536, H = 1024;
constexpr float Hinge = 1024, Spine = 512;
// The first frame of the scene looks at a few pixels round this place; there must be nothing but bone.
constexpr Vector2 FirstSight = {384, 486};

static float SpineY(float x)
{
    return Spine + 9 * Sin((x - Hinge) * 0.0055f);
}
// Half the height of a vertebra.
static float Vertebra(float x)
{
    return Mix(30, 7, Smooth(480, 1440, x));
}

static void DrawSkull(Mask& bone, Mask& ink, const Paper& paper)
{
    Pen pen(ink, paper, {.width = 6, .wobble = 1.2f, .wave = 50, .skip = 0.25f}, 11);
    const Line crown =
        Round({{22, 560},  {40, 508},  {92, 452},  {170, 392}, {262, 330}, {330, 292}, {404, 300},
               {452, 344}, {508, 356}, {540, 430}, {548, 505}, {536, 590}, {500, 668}, {424, 722},
               {350, 716}, {300, 742}, {252, 700}, {236, 644}, {178, 612}, {110, 592}, {52, 598}});
    const Line jaw = Round({{258, 700},
                            {330, 742},
                            {318, 776},
                            {236, 764},
                            {140, 716},
                            {54, 650},
                            {58, 626},
                            {86, 628},
                            {140, 668},
                            {206, 694}});
    bone.Fill(Shaken(crown, 3, 40, 12));
    bone.Fill(Shaken(jaw, 2.5f, 30, 13));
    // Openings: the nostril, one before and one behind the eye, one in the lower jaw.
    for (const Line& hole : {Round({{92, 500}, {124, 478}, {140, 490}, {118, 512}}),
                             Round({{180, 486}, {208, 452}, {222, 474}, {210, 530}, {186, 532}}),
                             Round({{398, 340}, {430, 362}, {436, 400}, {410, 392}}),
                             Round({{190, 724}, {236, 728}, {262, 746}, {222, 748}})})
        bone.Erase(Shaken(hole, 3, 24, 16));
    // Teeth, none like its neighbour.
    Dice dice(14);
    for (int i = 0; i < 15; i++) {
        const float t = float(i) / 14, x = Mix(46, 232, t);
        const float upper = 584 + 46 * t, lower = 618 + 80 * t,
                    tall = dice.Range(12, 30) * (i % 4 == 1 ? 1.5f : 1);
        bone.Fill(Line{{x - 5, upper - 4}, {x + 6, upper - 1}, {x + dice.Range(-3, 4), upper + tall}});
        if (i % 2 == 0)
            bone.Fill(Line{
                {x + 4, lower + 10}, {x + 15, lower + 14}, {x + 9 + dice.Range(-4, 3), lower - tall * 0.8f}});
    }
    pen.Stroke(crown, {.start = 0.6f, .middle = 1, .end = 0.5f});
    pen.Stroke(jaw, {.start = 0.5f, .middle = 0.9f, .end = 0.4f});
    // The socket, the plates of the cheek and the gill cover, sutures.
    const Vector2 eye = {292, 440};
    ink.Fill(Shaken(Ellipse(eye, 54, 48), 5, 34, 15));
    pen.nib.width = 7;
    pen.Stroke(Ellipse(eye, 66, 60, 0.5f), {.start = 0.2f, .middle = 0.9f, .end = 0.1f});
    pen.nib.width = 5;
    pen.Stroke(Through({{452, 346}, {470, 430}, {468, 520}, {444, 610}, {392, 716}}),
               {.start = 0.3f, .middle = 1, .end = 0.2f});
    pen.Stroke(Through({{502, 400}, {512, 490}, {498, 590}, {456, 668}}),
               {.start = 0.1f, .middle = 0.7f, .end = 0});
    pen.Stroke(Through({{240, 632}, {300, 600}, {352, 606}, {400, 640}}),
               {.start = 0.7f, .middle = 0.7f, .end = 0.1f});
    pen.Stroke(Through({{70, 530}, {140, 512}, {216, 520}, {240, 560}, {236, 620}}),
               {.start = 0.5f, .middle = 0.8f, .end = 0.3f});
    pen.Stroke(Through({{196, 424}, {222, 412}, {238, 420}}), {.start = 0.3f, .middle = 0.8f, .end = 0.1f});
    pen.Stroke(Through({{120, 488}, {134, 480}, {142, 492}}), {.start = 0.6f, .middle = 1, .end = 0.4f});
    pen.nib.width = 2.6f;
    for (int i = 0; i < 46; i++) {
        // Growth lines of the plates, away from the place of the first sight.
        const float a = dice.Range(-1.1f, 1.2f), r = dice.Range(196, 232);
        const Vector2 p = Vector2{286, 500} + Vector2{Cos(a), Sin(a)} * r;
        if (Length(p - FirstSight) > 46)
            pen.Stroke(Arc({286, 500}, r, r, a, a + dice.Range(0.05f, 0.2f)),
                       {.start = 0, .middle = 0.7f, .end = 0});
    }
    // Shade under the brow, along the jaw and behind the cheek.
    Mask shade(W, H);
    shade.Fill(Round({{60, 586},
                      {180, 604},
                      {250, 660},
                      {300, 730},
                      {420, 712},
                      {500, 660},
                      {440, 668},
                      {360, 660},
                      {290, 590},
                      {200, 560},
                      {100, 560}}));
    shade.Fill(Round({{504, 360}, {548, 500}, {500, 668}, {516, 560}, {520, 460}}));
    shade.Fill(Round({{230, 400}, {330, 372}, {360, 420}, {300, 386}}));
    pen.nib.width = 2.8f;
    Hatch(pen, shade.Blur(9).Multiply(bone), {.angle = -0.9f, .spacing = 8, .length = 44, .bend = 8}, 17);
    for (int i = 0; i < 40; i++) {
        const Vector2 p = {dice.Range(90, 330), dice.Range(390, 560)};
        if (bone.Sample(p.x, p.y) > 0.9f && Length(p - FirstSight) > 60 && Length(p - eye) > 70)
            pen.Dot(p, dice.Range(0.8f, 2.2f));
    }
}

static void DrawSpine(Mask& bone, Mask& ink, const Paper& paper)
{
    Pen ribs(bone, paper,
             {.width = 9,
              .least = 0.25f,
              .wobble = 1.4f,
              .wave = 70,
              .wander = 0.15f,
              .skip = 0,
              .dry = 0,
              .pool = 0.2f},
             21);
    Pen pen(ink, paper, {.width = 4, .wobble = 0.8f, .wave = 30, .skip = 0.2f}, 22);
    Dice dice(23);
    // The rays of the dorsal fin stand on bones of their own, which reach down between the spines of the back: thick where
    // the ray is hinged, thin below.
    for (int i = 0; i < 15; i++) {
        const float x = 640 + 21.0f * float(i), tall = 110 * Hill(760, 260, x) + 44;
        const Vector2 foot = {x + 56, SpineY(x) - 176 + 0.0009f * (x - 740) * (x - 740)};
        const Vector2 deep = foot + Vector2{-50, 66} * Mix(1.1f, 0.75f, float(i) / 14);
        ribs.nib.width = 6.5f;
        ribs.Stroke(Through({foot, Mix(foot, deep, 0.5f) + Vector2{6, 5}, deep}),
                    {.start = 1, .middle = 0.65f, .end = 0.1f});
        bone.Fill(Shaken(Ellipse(foot, 5, 4, -0.9f), 0.8f, 8, 40 + unsigned(i)));
        ribs.nib.width = 5;
        ribs.Stroke(
            Through({foot, foot + Vector2{tall * 0.35f, -tall * 0.6f}, foot + Vector2{tall * 0.9f, -tall}}),
            {.start = 0.9f, .middle = 0.7f, .end = 0.05f});
    }
    // Long bones, the spine over them.
    for (float x = 520; x < 1430; x += Mix(40, 27, Smooth(520, 1430, x))) {
        const float y = SpineY(x), along = (x - 520) / 910;
        const float back = Mix(0.5f, 1.2f, along);
        // Spines above: low behind the skull, high under the fin, low at the tail.
        const float above = (90 + 140 * Hill(760, 420, x)) * Mix(1, 0.4f, along) * dice.Range(0.9f, 1.08f);
        ribs.nib.width = Mix(12.5f, 6, along);
        ribs.Stroke(
            Through(
                {{x, y - 8}, {x + above * back * 0.45f, y - above * 0.6f}, {x + above * back, y - above}}),
            {.start = 1, .middle = 0.75f, .end = 0.1f});
        // Ribs below, bent as a cage as far as the belly goes, then straight.
        const float belly = Smooth(1010, 880, x),
                    below = Mix(above * 0.95f, 320 * Mix(0.7f, 1, Hill(680, 260, x)), belly) *
                            dice.Range(0.93f, 1.05f);
        const float bend = Mix(back, 0.22f, belly);
        const bool broken = dice.Chance(0.1f);
        ribs.Stroke(Through({{x, y + 8},
                             {x + below * (bend * 0.5f + 0.20f * belly), y + below * 0.45f},
                             {x + below * (bend + 0.16f * belly), y + below * (broken ? 0.62f : 0.8f)},
                             {x + below * (bend + (broken ? 0.15f : 0.02f) * belly),
                              y + below * (broken ? 0.7f : 1)}}),
                    {.start = 1, .middle = 0.75f, .end = broken ? 0.6f : 0.1f});
    }
    // The tail fin: two fans of rays from the last vertebrae.
    for (int i = -9; i <= 9; i++) {
        const float k = float(i) / 9, long_ = 58 + 30 * Abs(k) + dice.Range(-6, 6);
        const Vector2 root = {1432 - 14 * Abs(k), SpineY(1432) + 14 * k};
        const Vector2 tip = root + Vector2{long_ * Cos(k * 1.05f), long_ * 2.6f * Sin(k * 1.05f)};
        ribs.nib.width = 5.5f;
        ribs.Stroke(Through({root, Mix(root, tip, 0.5f) + Vector2{9, 0}, tip}),
                    {.start = 0.9f, .middle = 0.7f, .end = 0.08f});
    }
    // Vertebrae: hourglasses, shorter and lower towards the tail.
    for (float x = 506; x < 1436;) {
        const float half = Vertebra(x), length = half * 1.05f + 9, y0 = SpineY(x), y1 = SpineY(x + length);
        const Line body = Shaken(Straight({{x + 1, y0 - half},
                                           {x + length * 0.3f, y0 - half * 0.62f},
                                           {x + length * 0.7f, y1 - half * 0.62f},
                                           {x + length - 1, y1 - half * 0.97f},
                                           {x + length - 1, y1 + half * 0.97f},
                                           {x + length * 0.7f, y1 + half * 0.66f},
                                           {x + length * 0.3f, y0 + half * 0.66f},
                                           {x + 1, y0 + half},
                                           {x + 1, y0 - half}}),
                                 1.2f, 14, dice.Next());
        bone.Fill(body);
        pen.nib.width = 3.6f;
        pen.Stroke(body, {.start = 0.7f, .middle = 0.9f, .end = 0.6f});
        pen.nib.width = 2.6f;
        pen.Stroke(Through({{x + length * 0.25f, y0 + half * 0.3f},
                            {x + length * 0.5f, y0 + half * 0.42f},
                            {x + length * 0.8f, y1 + half * 0.35f}}),
                   {.start = 0.1f, .middle = 0.8f, .end = 0});
        x += length;
    }
}

static Canvas Skeleton()
{
    const Paper& paper = SketchPaper();
    Mask bone(W, H), ink(W, H);
    DrawSpine(bone, ink, paper);
    DrawSkull(bone, ink, paper);

    // Each bone has an ink contour of uneven breadth: the bones' own shape, a little larger, shaken apart
    // from them.
    ink.Multiply(bone.Blurred(5).Scale(3).Curve(0, 1));
    Mask contour = bone.Blurred(2.6f);
    contour.Scale(2.6f).Curve(0.15f, 0.75f).Shake(1.6f, 22, 31);

    Canvas canvas(W, H);
    // A breath of ink lies about the bones. The scene draws the fish a second time, in black, as their shadows on the
    // clouds: by this these have a soft border.
    Mask breath = contour.Blurred(20);
    breath.Scale(1.3f).FadeToBorder(30);
    canvas.Cover(breath, palette::Ink, 0.58f);
    canvas.Cover(contour, palette::Ink, 0.95f);
    Canvas body(W, H);
    paper.Sheet(body, palette::Bone, 1.5f);
    Wash(body, paper, bone,
         {.pigment = palette::Parchment,
          .density = 0.7f,
          .pool = 1,
          .poolWidth = 5,
          .granulation = 0.9f,
          .bloom = 0.9f,
          .bloomSize = 110,
          .stray = 0},
         32);
    // Shade below, and rust where the water stood.
    const Mask low = Mask(W, H).Each([](float, float y) { return Smooth(430, 760, y); });
    Wash(body, paper, low,
         {.pigment = palette::Mist,
          .density = 0.6f,
          .pool = 0,
          .granulation = 0.8f,
          .bloom = 0.8f,
          .bloomSize = 140,
          .stray = 0},
         33);
    const Noise noise(34);
    const Mask stain = Mask(W, H).Each(
        [&](float x, float y) { return Smooth(0.12f, 0.24f, noise.Fbm(x / 190, y / 150, 4)); }, 2);
    Wash(body, paper, stain,
         {.pigment = palette::Ochre,
          .density = 0.45f,
          .pool = 0.8f,
          .granulation = 0.9f,
          .stray = 6,
          .bleed = 24},
         35);
    canvas.Lay(body.CutOut(bone), 0, 0);
    canvas.Cover(ink, palette::Ink, 0.92f);
    paper.Show(canvas, 0.7f);
    return canvas;
}

static const Canvas& WholeSkeleton()
{
    static const Canvas skeleton = Skeleton();
    return skeleton;
}

// clang-format off
PictureGroup Transition_FishPictures()
{
    return {"Transition_Fish", {
        {"Data/fischgraeten_1.png", 1024, 1024, Format::PngRgba, [] { return WholeSkeleton().Crop(0, 0, 1024, H); }},
        {"Data/fischgraeten_2.png",  512, 1024, Format::PngRgba, [] { return WholeSkeleton().Crop(1024, 0, 512, H); }},
    }};
}
// clang-format on

} // namespace atelier
