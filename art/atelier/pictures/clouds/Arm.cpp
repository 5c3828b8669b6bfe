// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/clouds/Arm.h"

#include "art/atelier/pictures/hands/Drawing.h"

namespace atelier
{

// How the six hold their cards, by gesture.
// clang-format off
static const Pose Poses[] = {
    {.right = false, .turn = 16, .lean = 4, .roll = 59,
     .fingers = {{4, 82, 94, 52}, {1, 87, 100, 70}, {-2, 90, 102, 84}, {-6, 93, 100, 86}},
     .thumb = {{0.42f, 0.55f, 0.72f}, {0.00f, 0.78f, 0.62f}, {-0.72f, 0.68f, 0.10f}}, .nail = {0, -0.3f, 0.95f},
     .pad = {22, 152}, .lift = 0, .size = 2.66f, .girth = 1.06f, .thumbGirth = 0.94f, .bony = 1.04f},
    {.right = false, .turn = 20, .lean = 0, .roll = 20,
     .fingers = {{0, 20, 28, 16, true}, {-6, 18, 30, 18, true}, {-12, 14, 30, 16, true}, {-21, 8, 24, 12}},
     .thumb = {{0.78f, 0.54f, 0.36f}, {0.55f, 0.72f, 0.42f}, {-0.20f, 0.94f, 0.24f}}, .nail = {-0.4f, -0.25f, 0.8f},
     .pad = {-115, -50}, .lift = 0, .size = 2.75f, .thumbGirth = 0.86f, .bony = 1.02f},
    {.right = true, .turn = -50, .lean = 0, .roll = 62,
     .fingers = {{6, 4, 10, 6}, {1, 2, 10, 6}, {-3, 2, 12, 8}, {-8, 2, 14, 8}},
     .thumb = {{0.73f, 0.54f, 0.40f}, {0.42f, 0.76f, 0.50f}, {-0.02f, 0.87f, 0.46f}}, .nail = {-0.4f, 0.2f, 0.8f},
     .pad = {-24, -26}, .lift = 0, .size = 2.6f},
    {.right = false, .turn = 24, .lean = 0, .roll = 24,
     .fingers = {{24, 60, 54, 26}, {-4, 26, 34, 18}, {-18, 14, 26, 14}, {-34, 4, 18, 12}},
     .thumb = {{0.55f, 0.70f, 0.42f}, {0.05f, 0.86f, 0.50f}, {-0.15f, 0.93f, 0.30f}}, .nail = {-0.6f, 0, 0.8f},
     .pad = {4, 62}, .lift = -10, .size = 2.45f},
    {.right = false, .turn = 14, .lean = 0, .roll = 66,
     .fingers = {{4, 82, 98, 56}, {1, 88, 104, 80}, {-2, 92, 106, 92}, {-5, 96, 106, 96}},
     .thumb = {{0.42f, 0.55f, 0.72f}, {0.05f, 0.72f, 0.70f}, {-0.78f, 0.60f, 0.12f}}, .nail = {0, -0.3f, 0.95f},
     .pad = {2, 150}, .lift = 0, .size = 2.7f, .girth = 1.15f},
    {.right = false, .turn = 28, .lean = -6, .roll = 16,
     .fingers = {{4, 14, 22, 14, true}, {0, 10, 22, 14}, {-4, 14, 30, 18}, {-9, 22, 40, 24}},
     .thumb = {{0.70f, 0.60f, 0.35f}, {0.45f, 0.80f, 0.45f}, {0.10f, 0.96f, 0.20f}}, .nail = {-0.3f, -0.1f, 0.95f},
     .pad = {-8, -34}, .lift = 0, .size = 2.3f, .girth = 1.12f, .thumbGirth = 0.9f},
};
// clang-format on

static Pose PoseOf(const Arm& arm)
{
    Pose pose = Poses[int(arm.gesture)];
    pose.girth *= arm.girth;
    return pose;
}

static Skin SkinOf(const Arm& arm)
{
    const LinearColour pale = Mix(palette::Bone, palette::Parchment, 0.35f);
    const LinearColour weathered = Mix(Mix(palette::Parchment, palette::Ochre, 0.3f), palette::Rust, 0.16f);
    // Fingers that lie on each other throw light into the hollow between them.
    const bool closed =
        arm.gesture == Gesture::Fist || arm.gesture == Gesture::Clench || arm.gesture == Gesture::Corner;
    return {.light = Mix(pale, weathered, arm.tan),
            .shade = Mix(Mix(palette::Slate, palette::Rust, 0.38f), palette::Mist, 0.12f),
            .age = arm.tan,
            .deep = closed ? 0.6f : 1,
            .inner = closed || arm.gesture == Gesture::Tray ? 0.7f : 1,
            .pen = 0.7f,
            .closeUp = true};
}

// The middle of the forearm in the hand's frame. It leaves the hand as the hand lies, and the more the wrist is bent, the
// longer is the way of its bend.
static std::vector<Vector2> ForearmWay(const Arm& arm, const Skeleton& hand)
{
    constexpr float Bend = 120;
    const Vector2 from = {hand.wrist.x, hand.wrist.y};
    const Vector2 back = Normalised(Vector2{hand.toFingers.x, hand.toFingers.y}) * -1,
                  on = Normalised(arm.elbow - from);
    // A hand that is bent back has more of its bend at the wrist.
    const float limp = arm.gesture == Gesture::Tray ? 0.8f : 1.0f;
    const float bend = limp * Bend * (1 - Max(0, Dot(back, on)));
    const Vector2 middle = from + back * (0.55f * bend) + on * (0.3f * bend);
    return {from, Mix(middle, arm.elbow, 0.1f), Mix(middle, arm.elbow, 0.5f), arm.elbow};
}

Line Forearm(const Sight& sight, const Arm& arm)
{
    return Through(sight(ForearmWay(arm, Posed(PoseOf(arm)))));
}

float ForearmHalf(const Arm& arm, float t)
{
    // Half its width at the wrist, and how much is added from one part of the way to another.
    struct Girth {
        float wrist, swell, from, to;
    };
    const Girth girth = arm.gesture == Gesture::Tray   ? Girth{42, 36, 0.12f, 0.70f}
                        : arm.gesture == Gesture::Fist ? Girth{50, 44, 0.06f, 0.60f}
                                                       : Girth{50, 54, 0.06f, 0.62f};
    return arm.girth * (girth.wrist + girth.swell * Smooth(girth.from, girth.to, t));
}

// What stands out at a wrist that is bent back, which one sees from the thumb's side: the heel of the hand, the end of the
// radius below it, the sinews that are taut from there into the arm, and the flesh that swells towards the elbow.
static void AddWrist(Skeleton& hand, const Arm& arm, const Line& line)
{
    const auto add = [&](float t, float u, float out, float t2, float u2, float out2, float half, float half2,
                         float melt) {
        const auto at = [&](float s, float aside, float above) {
            const float r = ForearmHalf(arm, s) + above;
            const Vector2 d = DirectionAt(line, s), across = {d.y, -d.x};
            const Vector2 p = PointAt(line, s) + across * (aside * r);
            return Point3{p.x, p.y, hand.wrist.z + Sqrt(1 - aside * aside) * r};
        };
        hand.flesh.palm.push_back({at(t, u, out), at(t2, u2, out2), half, half2, melt});
    };
    add(0.10f, 0.42f, -14, 0.15f, 0.46f, -18, 22, 18, 12); // the radius
    add(0.02f, -0.30f, -1, 0.18f, -0.34f, -6, 5, 3.5f, 9); // a sinew of the palm's side
    add(0.00f, 0.12f, 0, 0.18f, 0.20f, -6, 5.5f, 4, 9);    // the thumb's
    const Point3 heel = hand({4, -5, 9});
    hand.flesh.palm.push_back({heel, hand({-10, -5, 8}), 30, 30, 16});
}

// A wrist that is bent towards the little finger: on the thumb's side the outline runs straight from the root of the thumb
// into the swell of the forearm, and on the other side it turns in a wide bow.
static void FillWrist(Skeleton& hand, const Arm& arm, const Line& line)
{
    const auto at = [&](float t, float u, float half) {
        const Vector2 d = DirectionAt(line, t), across = {d.y, -d.x};
        const Vector2 p = PointAt(line, t) + across * (u * (ForearmHalf(arm, t) - half));
        return Point3{p.x, p.y, hand.wrist.z};
    };
    constexpr float AtWrist = 38, AtArm = 40, AtHeel = 34;
    hand.flesh.palm.push_back({hand({9, -6, -1}), at(0.40f, -1, AtArm), AtWrist, AtArm, 30});
    hand.flesh.palm.push_back({hand({9, -6, -1}), hand({20, 22, 2}), AtWrist, AtWrist - 4, 30});
    hand.flesh.palm.push_back({hand({-14, 14, 0}), at(0.22f, 1, AtArm), AtHeel, AtArm, 24});
}

// The hand with as much of the forearm as no sleeve hides.
static Skeleton HandOf(const Arm& arm)
{
    Skeleton hand = Posed(PoseOf(arm));
    const Line line = Through(ForearmWay(arm, hand));
    const auto add = [&](float t, float u) {
        const Vector2 a = PointAt(line, t), b = PointAt(line, u);
        hand.flesh.palm.push_back({{a.x, a.y, hand.wrist.z},
                                   {b.x, b.y, hand.wrist.z},
                                   ForearmHalf(arm, t),
                                   ForearmHalf(arm, u),
                                   t < 0.1f ? 24.0f : 8.0f});
    };
    for (float t = 0.03f; t < 0.7f; t += 0.09f)
        add(t, t + 0.09f);
    if (arm.gesture == Gesture::Tray)
        AddWrist(hand, arm, line);
    if (arm.gesture == Gesture::Fist)
        FillWrist(hand, arm, line);
    return hand;
}

DrawnHand::DrawnHand(const Arm& arm, const Sight& whole, int newWidth, int newHeight)
    : drawn(1, 1), depth(1, 1), sight(whole), left(0), top(0), width(newWidth), height(newHeight)
{
    const Skeleton hand = HandOf(arm);
    constexpr float OutlinesRoom = 12;
    const Frame frame = FrameOf(hand.flesh, whole, OutlinesRoom, width, height);
    left = frame.left;
    top = frame.top;
    const Sight part = whole.From({float(left), float(top)});
    Study study = Studied(hand, part, frame.width, frame.height);
    for (int widest = 0; widest < 3; widest++)
        study.CloseGaps();
    drawn = Canvas(frame.width, frame.height);
    DrawHand(drawn, hand, study, part, SkinOf(arm), arm.seed);
    depth = study.depth;
}

void DrawnHand::Paint(Canvas& canvas) const
{
    canvas.Lay(drawn, left, top);
}

Mask DrawnHand::InFrontOf(float z, float slope) const
{
    Mask front(width, height);
    for (int y = 0; y < depth.Height(); y++)
        for (int x = 0; x < depth.Width(); x++) {
            const Vector2 at = sight.Back({float(left + x), float(top + y)});
            front.At(left + x, top + y) = depth.At(x, y) > z - slope * at.y ? 1.0f : 0.0f;
        }
    return front.Blur(0.6f);
}

Mask ThumbOnCard(const Arm& arm, const Sight& sight, int width, int height)
{
    Mask before(width, height);
    if (arm.gesture != Gesture::Lean && arm.gesture != Gesture::Tray && arm.gesture != Gesture::Corner)
        return before;
    Skeleton thumb = Posed(PoseOf(arm));
    thumb.flesh.palm.clear();
    for (int finger = 0; finger < Thumb; finger++)
        for (std::vector<Bone>& part : thumb.flesh.digits[finger])
            part.clear();
    const Mask depth = Studied(thumb, sight, width, height).depth;
    constexpr float Margin = 5; // the card's border is not straight
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++)
            if (depth.At(x, y) > 0) {
                const Vector2 at = sight.Back({float(x), float(y)});
                if (Abs(at.x) < sight.cardHalf + Margin && at.y < Margin &&
                    at.y > -2 * sight.cardHalf - Margin)
                    before.At(x, y) = 1;
            }
    return before.Blur(1.2f).Curve(0.2f, 0.8f); // no steps where it is seen from near
}

} // namespace atelier
