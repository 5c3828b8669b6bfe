// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/clouds/Arm.h"

#include "art/atelier/pictures/hands/Drawing.h"

namespace atelier
{

// How the six hold their cards, by gesture.
// clang-format off
static const Pose Poses[] = {
    {.right = false, .turn = 8, .lean = 0, .roll = 58,
     .fingers = {{5, 72, 96, 50}, {1, 74, 98, 50}, {-3, 76, 98, 50}, {-7, 78, 96, 50}},
     .thumb = {{0.60f, 0.60f, 0.55f}, {0.05f, 0.72f, 0.70f}, {-0.65f, 0.70f, 0.25f}}, .nail = {-0.2f, -0.5f, 0.84f},
     .pad = {10, 66}, .lift = 0, .size = 2.6f},
    {.right = false, .turn = 16, .lean = 0, .roll = 8,
     .fingers = {{6, 20, 28, 16, true}, {1, 20, 34, 20, true}, {-4, 20, 40, 20, true}, {-8, 12, 30, 16}},
     .thumb = {{0.80f, 0.55f, 0.26f}, {0.55f, 0.82f, 0.10f}, {0.28f, 0.95f, 0.05f}}, .nail = {-0.75f, -0.1f, 0.62f},
     .pad = {-158, -40}, .lift = -20, .size = 2.75f, .bony = 1.06f},
    {.right = true, .turn = -58, .lean = 0, .roll = 86,
     .fingers = {{6, 4, 10, 6}, {1, 2, 10, 6}, {-3, 2, 12, 8}, {-8, 2, 14, 8}},
     .thumb = {{0.80f, 0.55f, 0.20f}, {0.45f, 0.88f, 0.10f}, {0.20f, 0.97f, 0.02f}}, .nail = {0.0f, 0.6f, 0.8f},
     .pad = {-6, 78}, .lift = 60, .size = 2.6f},
    {.right = false, .turn = 24, .lean = 0, .roll = 24,
     .fingers = {{24, 60, 54, 26}, {-4, 26, 34, 18}, {-18, 14, 26, 14}, {-34, 4, 18, 12}},
     .thumb = {{0.55f, 0.70f, 0.42f}, {0.05f, 0.86f, 0.50f}, {-0.15f, 0.93f, 0.30f}}, .nail = {-0.6f, 0, 0.8f},
     .pad = {4, 62}, .lift = -10, .size = 2.45f},
    {.right = true, .turn = 196, .lean = 0, .roll = 60,
     .fingers = {{5, 66, 92, 50}, {1, 66, 92, 50}, {-3, 68, 90, 50}, {-7, 70, 88, 50}},
     .thumb = {{0.62f, 0.55f, 0.56f}, {0.10f, 0.60f, 0.80f}, {-0.45f, 0.50f, 0.75f}}, .nail = {0.3f, 0, -0.95f},
     .pad = {-4, 74}, .lift = -80, .size = 2.55f},
    {.right = false, .turn = 3, .lean = 4, .roll = 4,
     .fingers = {{-5, 12, 26, 14}, {1, 86, 100, 55}, {-3, 88, 100, 55}, {-8, 90, 98, 55}},
     .thumb = {{0.85f, 0.40f, 0.25f}, {0.98f, 0.08f, 0.10f}, {0.99f, -0.06f, 0.0f}}, .nail = {0, -0.9f, 0.4f},
     .pad = {-36, 19}, .lift = 0, .size = 2.25f},
};
// clang-format on

static Pose PoseOf(const Arm& arm)
{
    Pose pose = Poses[int(arm.gesture)];
    pose.girth = arm.girth;
    return pose;
}

static Skin SkinOf(const Arm& arm)
{
    const LinearColour pale = Mix(palette::Bone, palette::Parchment, 0.35f);
    const LinearColour weathered = Mix(Mix(palette::Parchment, palette::Ochre, 0.3f), palette::Rust, 0.16f);
    return {.light = Mix(pale, weathered, arm.tan),
            .shade = Mix(Mix(palette::Slate, palette::Rust, 0.38f), palette::Mist, 0.12f),
            .age = arm.tan};
}

// The middle of the forearm in the hand's frame. It bends at the wrist only.
static std::vector<Vector2> ForearmWay(const Arm& arm, Point3 wrist)
{
    const Vector2 from = {wrist.x, wrist.y};
    return {from, Mix(from, arm.elbow, 0.1f), Mix(from, arm.elbow, 0.5f), arm.elbow};
}

Line Forearm(const Sight& sight, const Arm& arm)
{
    return Through(sight(ForearmWay(arm, Posed(PoseOf(arm)).wrist)));
}

float ForearmHalf(const Arm& arm, float t)
{
    return arm.girth * (52 + 40 * Smooth(0.03f, 0.75f, t) + 10 * Smooth(0.6f, 1, t));
}

// The hand with as much of the forearm as no sleeve hides.
static Skeleton HandOf(const Arm& arm)
{
    Skeleton hand = Posed(PoseOf(arm));
    const Line line = Through(ForearmWay(arm, hand.wrist));
    const auto add = [&](float t, float u) {
        const Vector2 a = PointAt(line, t), b = PointAt(line, u);
        hand.flesh.palm.push_back({{a.x, a.y, hand.wrist.z},
                                   {b.x, b.y, hand.wrist.z},
                                   ForearmHalf(arm, t),
                                   ForearmHalf(arm, u),
                                   24});
    };
    for (float t = 0.03f; t < 0.7f; t += 0.09f)
        add(t, t + 0.09f);
    return hand;
}

DrawnHand::DrawnHand(const Arm& arm, const Sight& whole, int newWidth, int newHeight)
    : drawn(1, 1), depth(1, 1), left(0), top(0), width(newWidth), height(newHeight)
{
    const Skeleton hand = HandOf(arm);
    constexpr float OutlinesRoom = 12;
    const Frame frame = FrameOf(hand.flesh, whole, OutlinesRoom, width, height);
    left = frame.left;
    top = frame.top;
    const Sight sight = whole.From({float(left), float(top)});
    const Study study = Studied(hand, sight, frame.width, frame.height);
    drawn = Canvas(frame.width, frame.height);
    DrawHand(drawn, hand, study, sight, SkinOf(arm), arm.seed);
    depth = study.depth;
}

void DrawnHand::Paint(Canvas& canvas) const
{
    canvas.Lay(drawn, left, top);
}

Mask DrawnHand::InFrontOf(float z) const
{
    Mask front(width, height);
    for (int y = 0; y < depth.Height(); y++)
        for (int x = 0; x < depth.Width(); x++)
            front.At(left + x, top + y) = depth.At(x, y) > z ? 1.0f : 0.0f;
    return front.Blur(0.6f);
}

} // namespace atelier
