// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/clouds/Arm.h"

#include "art/atelier/pictures/hands/Drawing.h"

namespace atelier
{

// How the six hold their cards, by gesture.
// clang-format off
static const Pose Poses[] = {
    {.right = false, .turn = -12, .lean = 4, .roll = 4,
     .fingers = {{5, 20, 46, 30, 1}, {1, 20, 44, 30, 1}, {-3, 72, 82, 45}, {-7, 74, 80, 48}},
     .thumb = {{0.62f, 0.66f, 0.42f}, {0.22f, 0.93f, 0.30f}, {-0.12f, 0.98f, 0.10f}}, .nail = {-0.35f, 0, 0.94f},
     .pad = {-72, -24}, .lift = 0, .size = 2.7f},
    {.right = false, .turn = 16, .lean = 0, .roll = 6,
     .fingers = {{6, 20, 28, 16, 1}, {1, 20, 34, 20, 1}, {-4, 20, 40, 20, 1}, {-8, 12, 30, 16}},
     .thumb = {{0.70f, 0.62f, 0.36f}, {0.20f, 0.92f, 0.32f}, {-0.35f, 0.93f, 0.10f}}, .nail = {-0.35f, -0.2f, 0.9f},
     .pad = {-44, -34}, .lift = 0, .size = 2.75f, .bony = 1.06f},
    {.right = true, .turn = 158, .lean = 0, .roll = 8,
     .fingers = {{5, 20, 42, 22, -1}, {0, 20, 42, 22, -1}, {-5, 20, 46, 22, -1}, {-12, 26, 46, 20}},
     .thumb = {{0.50f, 0.72f, 0.48f}, {0.05f, 0.95f, 0.30f}, {-0.25f, 0.95f, 0.10f}}, .nail = {0.3f, 0, -0.95f},
     .pad = {-30, 110}, .lift = -42, .size = 2.35f},
    {.right = false, .turn = 0, .lean = 0, .roll = 28,
     .fingers = {{5, 20, 38, 22, 1}, {-4, 12, 20, 10, 1}, {-20, 8, 18, 10, 1}, {-38, -2, 14, 8}},
     .thumb = {{0.62f, 0.66f, 0.42f}, {0.22f, 0.93f, 0.30f}, {-0.12f, 0.98f, 0.10f}}, .nail = {-0.3f, 0, 0.95f},
     .pad = {-104, -24}, .lift = 0, .size = 2.5f},
    {.right = true, .turn = 165, .lean = 0, .roll = 4,
     .fingers = {{8, 10, 22, 12, -1}, {-7, 0, 20, 10, -1}, {-3, 62, 75, 40}, {-6, 66, 75, 45}},
     .thumb = {{0.62f, 0.66f, 0.42f}, {0.22f, 0.93f, 0.30f}, {-0.12f, 0.98f, 0.10f}}, .nail = {0.3f, 0, -0.95f},
     .pad = {-40, 114}, .lift = -42, .size = 2.45f},
    {.right = false, .turn = 14, .lean = 2, .roll = 12,
     .fingers = {{8, 20, 46, 28, 1}, {1, 74, 84, 44}, {-3, 76, 86, 46}, {-8, 78, 84, 48}},
     .thumb = {{0.70f, 0.62f, 0.38f}, {0.26f, 0.91f, 0.30f}, {-0.30f, 0.92f, 0.10f}}, .nail = {-0.4f, -0.1f, 0.92f},
     .pad = {-84, -12}, .lift = 0, .size = 2.5f},
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
    const Vector2 from = {wrist.x, wrist.y}, end = {-92 - 0.98f * arm.bend, 898 + 0.2f * arm.bend};
    return {from, Mix(from, end, 0.1f), Mix(from, end, 0.5f), end};
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

DrawnHand::DrawnHand(const Arm& arm, const Sight& whole, int width, int height)
    : drawn(1, 1), before(1, 1), shadow(1, 1), left(0), top(0)
{
    const Skeleton hand = HandOf(arm);
    constexpr float ShadowsRoom = 46;
    const Frame frame = FrameOf(hand.flesh, whole, ShadowsRoom, width, height);
    left = frame.left;
    top = frame.top;
    const Sight sight = whole.From({float(left), float(top)});
    const Study study = Studied(hand, sight, frame.width, frame.height);
    drawn = Canvas(frame.width, frame.height);
    DrawHand(drawn, hand, study, sight, SkinOf(arm), arm.seed);
    const float a = sight.cardHalf;
    const Mask card = Filled(frame.width, frame.height,
                             Straight(sight({{-a, -2 * a}, {a, -2 * a}, {a, 2}, {-a, 2}, {-a, -2 * a}})));
    Mask front(frame.width, frame.height);
    for (int y = 0; y < frame.height; y++)
        for (int x = 0; x < frame.width; x++)
            front.At(x, y) = study.depth.At(x, y) > 0 ? 1.0f : 0.0f;
    before = Canvas(drawn).CutOut(front.Blur(0.6f).Multiply(card));
    shadow = study.onCard;
    shadow.Blur(2.5f * sight.scale).Multiply(card);
}

void DrawnHand::Paint(Canvas& canvas) const
{
    canvas.Lay(drawn, left, top);
}

void DrawnHand::PaintGrip(Canvas& canvas) const
{
    Mask whole(canvas.Width(), canvas.Height());
    for (int y = 0; y < shadow.Height(); y++)
        for (int x = 0; x < shadow.Width(); x++)
            whole.At(left + x, top + y) = shadow.At(x, y);
    canvas.Glaze(whole.Multiply(canvas.Alpha()), Mix(palette::Slate, palette::Rust, 0.3f), 0.75f);
    canvas.Lay(before, left, top);
}

} // namespace atelier
