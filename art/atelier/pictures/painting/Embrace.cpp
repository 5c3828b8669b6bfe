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
    // The round of the shoulder, that melts into breast and nape; the upper arm, the elbow, which is bent and points
    // away from her, the forearm's muscles, the wrist.
    Skeleton arm;
    AddFlesh(arm.flesh.palm,
             {{{722, 356, 0}, {746, 334, 0}, 31, 27},
              {{764, 356, -4}, {752, 330, -4}, 19, 22}, // from the nape over the collarbone
              {{744, 336, 0}, {768, 304, 0}, 25, 19},
              {{764, 310, 0}, {798, 264, 0}, 20, 14},
              {{782, 296, 2}, {794, 276, 2}, 17, 14}, // what stretches the arm, below
              {{797, 262, 3}, {801, 257, 3}, 13.5f, 12.5f},
              {{802, 262, 2}, {846, 238, 2}, 14, 15},
              {{838, 240, 0}, {886, 213, 0}, 15, 10.5f},
              {{884, 214, 0}, {908, 198, 0}, 10.5f, 8.5f},
              {{906, 200, 0}, {936, 172, 0}, 9, 7}},
             8);
    PaintFlesh(canvas, arm, false, HerFlesh, {}, 0, 142);
    PaintBark(canvas, Part(Through(HerArm), 0.62f, 1), 0.35f, 8, 153);
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
                       .fingers = {{-4, 10, 16, 10}, {-1, 12, 18, 10}, {3, 14, 20, 12}, {5, 20, 26, 16}},
                       .thumb = {{0.72f, 0.62f, 0.24f}, {0.44f, 0.86f, 0.22f}, {0.26f, 0.94f, 0.20f}},
                       .nail = {0.1f, -0.3f, 0.95f},
                       .pad = {},
                       .lift = 0,
                       .size = 2.25f,
                       .girth = 1.14f},
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

// Her arm round his neck: it grows out of her shoulder, and the fingers lie together on his back.
void PaintHerHold(Canvas& canvas)
{
    Skeleton arm = HandAt({.right = false,
                           .turn = 186,
                           .lean = -8,
                           .roll = -106,
                           .fingers = {{-5, 10, 16, 8}, {-1, 12, 18, 10}, {3, 14, 20, 10}, {6, 18, 26, 12}},
                           .thumb = {{0.74f, 0.66f, 0.12f}, {0.56f, 0.83f, 0.04f}, {0.40f, 0.92f, 0.02f}},
                           .nail = {0.1f, -0.3f, 0.95f},
                           .pad = {},
                           .lift = 0,
                           .size = 2.15f,
                           .girth = 1.0f},
                          HerHold[4]);
    // From the shoulder over the elbow, which hangs, to the wrist.
    AddFlesh(arm.flesh.palm,
             {{{722, 386, 0}, {704, 386, 0}, 29, 28},
              {{704, 386, 0}, {676, 383, 0}, 27, 22},
              {{676, 382, 0}, {604, 364, 0}, 22, 15},
              {{660, 384, 0}, {628, 378, 0}, 18, 16}, // what stretches the arm hangs a little
              {{604, 366, -2}, {597, 362, -2}, 15, 14.5f},
              {{600, 356, 3}, {572, 334, 3}, 15.5f, 15.5f},
              {{580, 340, 0}, {534, 302, 0}, 15, 10.5f},
              {{540, 306, 0}, {HerHold[4].x, HerHold[4].y, 0}, 10.5f, 8}},
             7);
    PaintFlesh(canvas, arm, true, HerFlesh, HerHold[0] + Vector2{14, -4}, 46, 147);
    // The round of the shoulder lies before the chest, and shades it; the collarbone comes out of it.
    const std::vector<Vector2> round = {{712, 358}, {726, 360}, {738, 366}, {744, 376}, {744, 386}};
    Mask shade(W, H);
    shade.Fill(Limb(Moved(Through({{738, 366}, {747, 376}, {747, 390}, {738, 402}}), {2, 0}), 1, 5, 1));
    canvas.Glaze(shade.Blur(2.5f), HerShade, 0.42f);
    Mask lines(W, H);
    Pen pen(lines, SketchPaper(), {.width = 2.4f, .wobble = 0.5f, .skip = 0.05f}, 148);
    pen.Stroke(Through({{664, 405}, {684, 416}, {706, 416}, {720, 408}}), {0.1f, 0.9f, 0}); // the armpit
    pen.Stroke(Through(round), {0.2f, 0.8f, 0});
    pen.Stroke(Through({{736, 365}, {751, 361}, {767, 366}}), {0.1f, 0.9f, 0.5f});
    canvas.Cover(lines, DarkInk, 0.7f);
}

// The knee that comes out of the skirt, calf, ankle, heel and arch, and five toes.
void PaintHerCalfAndFoot(Canvas& canvas)
{
    Skeleton leg;
    AddFlesh(leg.flesh.palm,
             {{{450, 606, 0}, {424, 630, 0}, 22, 22},
              {{420, 632, 3}, {412, 640, 3}, 22, 20}, // the knee
              {{414, 642, 0}, {388, 668, 0}, 21, 16},
              {{414, 654, 4}, {392, 674, 4}, 19, 14}, // the calf
              {{394, 668, 0}, {365, 696, 0}, 16, 11},
              {{379, 694, 0}, {373, 708, 0}, 6, 8},       // the heel's sinew
              {{361, 697, 8}, {361, 698, 8}, 7.5f, 7.5f}, // the ankle
              {{371, 710, 0}, {365, 716, 0}, 13, 12.5f},  // the heel
              {{363, 700, 0}, {329, 711, 0}, 13, 11.5f},  // the instep
              {{335, 709, 0}, {306, 719, 2}, 11.5f, 9.5f},
              {{361, 720, 2}, {329, 716, 0}, 9, 8.5f},
              {{305, 721, 4}, {302, 719, -9}, 9, 7.5f}},
             5);
    // The big toe is nearest to us.
    constexpr Flesh Toes[5] = {{{305, 721, 7}, {278, 725, 9}, 8, 6.8f},
                               {{303, 720, 0}, {272, 724, 1}, 5.8f, 5},
                               {{303, 720, -6}, {276, 725, -6}, 5.2f, 4.5f},
                               {{304, 721, -11}, {281, 726, -12}, 5, 4.2f},
                               {{306, 721, -15}, {287, 726, -16}, 4.6f, 4}};
    for (int toe = 0; toe < 5; toe++)
        AddFlesh(leg.flesh.digits[toe][0], {Toes[toe]}, 3);
    leg.flesh.rootMelt = 4 / Unit;
    PaintFlesh(canvas, leg, false, HerFlesh, {}, 0, 88);
}

} // namespace atelier
