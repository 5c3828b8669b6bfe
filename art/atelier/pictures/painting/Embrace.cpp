// SPDX-License-Identifier: MIT
// The arms: two that hold, two that are stretched out behind the bodies.
#include "art/atelier/DryBrush.h"
#include "art/atelier/pictures/clouds/Body.h"
#include "art/atelier/pictures/painting/Dancers.h"

namespace atelier
{

constexpr LinearColour HerShade = Mix(palette::Rust, palette::Ochre, 0.45f);

// The end of an arm turns to bark, and goes over into the tree that is its hand.
static void PaintBark(Canvas& canvas, const Line& arm, float from, float half, uint32_t seed)
{
    Mask bark(W, H);
    DryBrush brush(
        bark, SketchPaper(),
        {.width = 2.2f * half, .count = 16, .thickness = 2, .load = 0.9f, .ragged = 0.3f, .spread = -0.3f},
        seed);
    for (int i = 0; i < 3; i++)
        brush.Stroke(Part(arm, from + 0.05f * float(i), 1));
    bark.Fill(Shaken(Ellipse(arm.back(), half * 1.15f, half * 0.8f, Angle(DirectionAt(arm, 1))), 1.5f, 8,
                     seed + 1));
    canvas.Cover(bark, DarkInk, 0.92f);
}

void PaintHisFarArm(Canvas& canvas)
{
    // The sleeve over elbow and forearm to the wrist, that is bare.
    const Vector2 end = HisArm[3] + Vector2{-26, -33};
    PaintLimb(canvas, {end + Vector2{10, 12}, Mix(end, HisArm[4], 0.6f), HisArm[4]}, {15, 12, 10}, HisSkin,
              Earth, 140);
    PaintBark(canvas, Through({end, HisArm[4]}), 0.2f, 9, 149);
    PaintLimb(canvas,
              {HisArm[0], HisArm[1], HisArm[2] + Vector2{14, 2}, HisArm[2] + Vector2{-14, -16}, HisArm[3],
               end + Vector2{8, 10}},
              {42, 37, 31, 30, 25, 19}, Coat, Earth, 141);
    const Vector2 way = Normalised(HisArm[4] - HisArm[3]), across = Vector2{-way.y, way.x} * 20;
    PaintLimb(canvas, {end - across, end + way * 3, end + across}, {6, 7, 6}, Coat * 0.8f, Earth, 151);
    Mask folds(W, H);
    Pen pen(folds, SketchPaper(), {.width = 3, .wobble = 0.8f, .skip = 0.15f}, 152);
    for (const std::vector<Vector2>& fold :
         std::vector<std::vector<Vector2>>{{{306, 262}, {288, 276}, {264, 276}},
                                           {{318, 268}, {300, 288}, {276, 294}},
                                           {{290, 256}, {272, 262}, {252, 258}},
                                           {{340, 276}, {330, 300}, {312, 312}},
                                           {{232, 214}, {226, 232}, {232, 250}}})
        pen.Stroke(Through(fold), {0.1f, 0.9f, 0});
    canvas.Cover(folds, DarkInk, 0.7f);
}

void PaintHerFarArm(Canvas& canvas)
{
    PaintLimb(canvas, HerArm, {24, 21, 15, 14, 7}, HerSkin, HerShade, 142);
    PaintBark(canvas, Through(HerArm), 0.78f, 8, 153);
}

// His arm round her: a shoulder that stands out of the coat, the elbow below her breast, the hand on her shoulder blade.
void PaintHisHold(Canvas& canvas)
{
    PaintLimb(canvas, {HisHold[4] + Vector2{-14, 1}, HisHold[4] + Vector2{10, -3}}, {13, 11}, HisSkin, Earth,
              143);
    PaintLaidHand(canvas, HisHold[4] + Vector2{6, -2}, -0.52f, 0.2f, 1, 76, HisSkin, Earth, 150);
    PaintLimb(canvas, {HisHold[0], HisHold[1], HisHold[2], HisHold[3], HisHold[4] + Vector2{-22, 0}},
              {44, 40, 31, 27, 18}, Coat, Earth, 144, true);
    // Its cuff, and the folds that the elbow makes.
    PaintLimb(canvas, {{654, 427}, {659, 446}, {656, 465}}, {7, 8, 7}, Coat * 0.8f, Earth, 145);
    Mask folds(W, H);
    Pen pen(folds, SketchPaper(), {.width = 3, .wobble = 0.8f, .skip = 0.15f}, 146);
    for (const std::vector<Vector2>& fold :
         std::vector<std::vector<Vector2>>{{{536, 418}, {556, 408}, {582, 410}},
                                           {{540, 432}, {562, 424}, {590, 430}},
                                           {{528, 400}, {548, 392}, {566, 392}},
                                           {{556, 448}, {572, 440}, {600, 446}},
                                           {{498, 300}, {518, 320}, {526, 346}},
                                           {{462, 324}, {470, 352}, {488, 376}}})
        pen.Stroke(Through(fold), {0.1f, 0.9f, 0});
    canvas.Cover(folds, DarkInk, 0.7f);
}

// Her arm round his neck: it grows out of her shoulder, and the fingers hang down his back.
void PaintHerHold(Canvas& canvas)
{
    PaintLimb(canvas, HerHold, {27, 20, 15, 13, 9.5f}, HerSkin, HerShade, 147, true);
    PaintLaidHand(canvas, HerHold[4] + Vector2{2, 0}, Pi - 0.5f, 0.2f, 1, 68, HerSkin, HerShade, 160);
    Mask lines(W, H);
    Pen pen(lines, SketchPaper(), {.width = 2.4f, .wobble = 0.5f, .skip = 0.1f}, 148);
    pen.Stroke(Through({{584, 338}, {592, 332}, {594, 322}}), {0.1f, 0.8f, 0}); // the elbow
    pen.Stroke(Through({{668, 386}, {690, 402}, {714, 400}}), {0.1f, 0.9f, 0}); // below the shoulder
    canvas.Cover(lines, DarkInk, 0.7f);
}

} // namespace atelier
