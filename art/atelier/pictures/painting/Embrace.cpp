// SPDX-License-Identifier: MIT
// The arms: two that hold, two that are stretched out behind the bodies.
#include "art/atelier/DryBrush.h"
#include "art/atelier/pictures/clouds/Body.h"
#include "art/atelier/pictures/hands/Drawing.h"
#include "art/atelier/pictures/painting/Dancers.h"

namespace atelier
{

constexpr LinearColour HerShade = Mix(palette::Rust, palette::Ochre, 0.45f);
static const Skin HerFlesh = {.light = HerSkin, .shade = HerShade, .age = 0.2f, .pen = 1.7f};
static const Skin HisFlesh = {.light = HisSkin, .shade = Earth, .age = 0.7f, .pen = 1.7f};

// Flesh is looked at from so near that a hand is as large there as those in the clouds.
constexpr float Unit = 0.2f; // pixels of the painting

// A round piece of an arm or a leg; z is towards us. In pixels of the painting.
struct Flesh {
    Point3 a, b;
    float halfA, halfB;
};

static void AddFlesh(std::vector<Bone>& bones, const std::vector<Flesh>& pieces, float melt)
{
    for (const Flesh& piece : pieces)
        bones.push_back({piece.a * (1 / Unit), piece.b * (1 / Unit), piece.halfA / Unit, piece.halfB / Unit,
                         melt / Unit});
}

static Skeleton HandAt(Pose pose, Vector2 wrist)
{
    pose.pad = {};
    const Point3 there = Posed(pose).wrist;
    pose.pad = wrist * (1 / Unit) - Vector2{there.x, there.y};
    pose.lift = -there.z;
    return Posed(pose);
}

// Draws flesh at twice the painting's size. Within `fade` pixels of its root it goes over into what is there.
static void PaintFlesh(Canvas& canvas, const Skeleton& body, bool hand, const Skin& skin, Vector2 root,
                       float fade, uint32_t seed)
{
    const Frame frame = FrameOf(body.flesh, {{}, 0, Unit, 0}, 20, W, H);
    const Vector2 corner = {float(frame.left), float(frame.top)};
    const int width = 2 * frame.width, height = 2 * frame.height;
    const Sight sight = {corner * -2, 0, 2 * Unit, 0};
    const Study study = Studied(body, sight, width, height);
    Canvas drawn(width, height);
    if (hand)
        DrawHand(drawn, body, study, sight, skin, seed);
    else
        DrawFlesh(drawn, study, sight, skin, seed);
    if (fade > 0)
        drawn.CutOut(Mask(width, height).Each([&](float x, float y) {
            const Vector2 at = Vector2{x, y} * 0.5f + corner;
            return Smooth(0.45f * fade, fade, Length(at - root));
        }));
    canvas.Lay(Squeezed(drawn, frame.width, frame.height), frame.left, frame.top);
}

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
    // The round of the shoulder, the upper arm, the elbow that gives a little, the forearm's muscles, the wrist.
    Skeleton arm;
    AddFlesh(arm.flesh.palm,
             {{{702, 368, 0}, {724, 350, 0}, 30, 29},
              {{722, 348, 2}, {738, 336, 2}, 28, 24},
              {{736, 338, 0}, {766, 318, 0}, 22, 18},
              {{762, 320, 0}, {808, 296, 0}, 18, 13},
              {{808, 298, -3}, {813, 292, -3}, 13, 12.5f},
              {{812, 292, 2}, {856, 264, 2}, 13.5f, 14},
              {{852, 266, 0}, {934, 182, 0}, 13.5f, 7}},
             7);
    PaintFlesh(canvas, arm, false, HerFlesh, {}, 0, 142);
    PaintBark(canvas, Through(HerArm), 0.78f, 8, 153);
}

// His arm round her: a shoulder that stands out of the coat, the elbow below her breast, the hand on her shoulder blade.
void PaintHisHold(Canvas& canvas)
{
    PaintLimb(canvas, {HisHold[4] + Vector2{-14, 1}, HisHold[4] + Vector2{10, -3}}, {13, 11}, HisSkin, Earth,
              143);
    PaintFlesh(canvas,
               HandAt({.right = true,
                       .turn = 172,
                       .lean = -6,
                       .roll = 62,
                       .fingers = {{9, 10, 16, 8}, {2, 14, 18, 10}, {-5, 16, 20, 12}, {-13, 18, 22, 12}},
                       .thumb = {{0.80f, 0.56f, 0.20f}, {0.55f, 0.82f, 0.15f}, {0.35f, 0.93f, 0.10f}},
                       .nail = {0.1f, -0.3f, 0.95f},
                       .pad = {},
                       .lift = 0,
                       .size = 2.3f,
                       .bony = 1.05f},
                      HisHold[4] + Vector2{6, -2}),
               true, HisFlesh, {}, 0, 150);
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
    Skeleton arm = HandAt({.right = true,
                           .turn = 176,
                           .lean = -8,
                           .roll = -112,
                           .fingers = {{6, 14, 20, 12}, {1, 18, 24, 14}, {-4, 22, 26, 14}, {-11, 26, 28, 14}},
                           .thumb = {{0.78f, 0.60f, 0.20f}, {0.45f, 0.88f, 0.15f}, {0.25f, 0.96f, 0.10f}},
                           .nail = {0.1f, -0.3f, 0.95f},
                           .pad = {},
                           .lift = 0,
                           .size = 2.05f,
                           .girth = 0.86f},
                          HerHold[4]);
    // From the shoulder over the elbow, which hangs a little, to the wrist.
    AddFlesh(arm.flesh.palm,
             {{{704, 374, 0}, {676, 366, 0}, 26, 24},
              {{676, 366, 0}, {640, 358, 0}, 21, 19},
              {{640, 358, 0}, {598, 346, 0}, 18, 14},
              {{600, 348, -2}, {592, 344, -2}, 14.5f, 14.5f},
              {{594, 340, 3}, {560, 320, 3}, 15, 14},
              {{566, 324, 0}, {HerHold[4].x, HerHold[4].y, 0}, 14, 7.5f}},
             7);
    PaintFlesh(canvas, arm, true, HerFlesh, HerHold[0] + Vector2{14, 2}, 40, 147);
    Mask lines(W, H);
    Pen pen(lines, SketchPaper(), {.width = 2.4f, .wobble = 0.5f, .skip = 0.1f}, 148);
    pen.Stroke(Through({{668, 386}, {690, 402}, {714, 400}}), {0.1f, 0.9f, 0}); // below the shoulder
    canvas.Cover(lines, DarkInk, 0.7f);
}

// Calf, ankle, heel and arch, and five toes.
void PaintHerCalfAndFoot(Canvas& canvas)
{
    Skeleton leg;
    AddFlesh(leg.flesh.palm,
             {{{476, 560, 0}, {436, 622, 0}, 30, 27},
              {{436, 622, 0}, {410, 650, 0}, 26, 22},
              {{410, 650, 0}, {374, 686, 0}, 21, 11.5f},
              {{428, 640, 4}, {412, 658, 4}, 20, 17},     // the calf
              {{390, 688, 0}, {379, 706, 0}, 6, 7},       // the heel's sinew
              {{368, 690, 7}, {368, 691, 7}, 6.5f, 6.5f}, // the ankle
              {{376, 706, 0}, {372, 713, 0}, 11, 11},
              {{370, 692, 0}, {340, 706, 0}, 11.5f, 10},
              {{346, 703, 0}, {318, 716, 2}, 10, 8.5f},
              {{368, 716, 2}, {340, 713, 0}, 8, 7.5f},
              {{318, 718, 4}, {316, 716, -8}, 8.0f, 6.5f}},
             5);
    // The big toe is nearest to us.
    constexpr Flesh Toes[5] = {{{316, 718, 6}, {295, 721, 8}, 6.8f, 5.6f},
                               {{314, 717, 0}, {289, 720, 1}, 4.8f, 4.2f},
                               {{314, 717, -5}, {293, 721, -5}, 4.4f, 3.8f},
                               {{315, 718, -9}, {297, 722, -10}, 4.2f, 3.6f},
                               {{317, 718, -12}, {302, 722, -14}, 4.0f, 3.4f}};
    for (int toe = 0; toe < 5; toe++)
        AddFlesh(leg.flesh.digits[toe][0], {Toes[toe]}, 3);
    leg.flesh.rootMelt = 4 / Unit;
    PaintFlesh(canvas, leg, false, HerFlesh, {}, 0, 88);
}

} // namespace atelier
