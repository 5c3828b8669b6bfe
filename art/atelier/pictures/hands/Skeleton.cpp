// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/hands/Skeleton.h"

namespace atelier
{

struct FingerMeasure {
    Point3 knuckle;
    float lengths[3];
    float girth;
};

// clang-format off
static const FingerMeasure Measures[4] = {
    {{ 25, 88, -1}, {43, 25, 22}, 1.00f},
    {{  3, 92, -4}, {47, 29, 23}, 1.04f},
    {{-17, 85, -3}, {44, 28, 23}, 0.98f},
    {{-35, 73,  1}, {34, 20, 20}, 0.85f},
};
constexpr Point3 ThumbRoot = {17, 12, 6};
constexpr float ThumbLengths[3] = {45, 33, 26};
// Half the thickness of a finger at its four joints, the tip last.
constexpr float FingerHalves[4] = {9.6f, 8.2f, 7.2f, 5.6f};
constexpr float ThumbHalves[4] = {12.5f, 10.4f, 9.4f, 6.8f};
// clang-format on

// From the hand's frame to the picture, without its place.
struct View {
    Point3 x, y, z; // the hand's axes
    explicit View(const Pose& pose)
    {
        const float mirror = pose.right ? 1.0f : -1.0f;
        x = Turned({mirror, 0, 0}, pose);
        y = Turned({0, 1, 0}, pose);
        z = Turned({0, 0, 1}, pose);
    }
    Point3 operator()(Point3 p) const { return x * p.x + y * p.y + z * p.z; }
    // A direction of the picture in the hand's frame.
    Point3 Back(Point3 d) const
    {
        const float square = Dot(x, x);
        return {Dot(x, d) / square, Dot(y, d) / square, Dot(z, d) / square};
    }

private:
    static Point3 Turned(Point3 p, const Pose& pose)
    {
        const float toRadians = Pi / 180;
        float c = Cos(pose.turn * toRadians), s = Sin(pose.turn * toRadians);
        p = {p.x * c + p.z * s, p.y, -p.x * s + p.z * c};
        c = Cos(pose.lean * toRadians);
        s = Sin(pose.lean * toRadians);
        p = {p.x, p.y * c - p.z * s, p.y * s + p.z * c};
        c = Cos(pose.roll * toRadians);
        s = Sin(pose.roll * toRadians);
        p = {p.x * c + p.y * s, -p.x * s + p.y * c, p.z};
        return Point3{p.x, -p.y, p.z} * pose.size;
    }
};

// The three parts of a finger in the hand's frame.
static void BendFinger(Phalanx* parts, const FingerMeasure& measure, const Flex& flex, const Pose& pose)
{
    const float toRadians = Pi / 180, s = flex.spread * toRadians;
    const Point3 straight = {Sin(s), Cos(s), 0}, across = {Cos(s), -Sin(s), 0};
    const float bends[3] = {flex.knuckle, flex.middle, flex.end};
    Point3 at = measure.knuckle;
    float angle = 0;
    for (int i = 0; i < 3; i++) {
        angle += bends[i] * toRadians;
        const Point3 along = straight * Cos(angle) + Point3{0, 0, 1} * Sin(angle);
        const Point3 palmar = Point3{0, 0, 1} * Cos(angle) - straight * Sin(angle);
        const float girth = measure.girth * pose.girth;
        parts[i] = {at,
                    at + along * measure.lengths[i],
                    along,
                    across,
                    palmar,
                    FingerHalves[i] * girth,
                    FingerHalves[i + 1] * girth};
        at = parts[i].b;
    }
}

static void BendThumb(Phalanx* parts, const Pose& pose, const View& view)
{
    const Point3 dorsal = view.Back(pose.nail);
    Point3 at = ThumbRoot;
    for (int i = 0; i < 3; i++) {
        const Point3 along = Normalised(pose.thumb[i]);
        const Point3 palmar = Normalised((dorsal - along * Dot(dorsal, along)) * -1);
        parts[i] = {at,
                    at + along * ThumbLengths[i],
                    along,
                    Cross(along, palmar),
                    palmar,
                    ThumbHalves[i] * pose.girth * pose.thumbGirth,
                    ThumbHalves[i + 1] * pose.girth * pose.thumbGirth};
        at = parts[i].b;
    }
}

// The flesh of one part: its shaft, the pad on its palmar side, and the joint that it hangs on.
static void Clothe(std::vector<Bone>& flesh, const Phalanx& part, int index, bool thumb, float bony)
{
    const float melt = 4;
    const float length = Length(part.b - part.a);
    const bool last = index == 2;
    const Point3 tip = last ? part.b - part.along * part.halfB : part.b;
    const float mean = 0.5f * (part.halfA + part.halfB);
    const auto at = [&](float t, float out, float aside = 0) {
        return part.a + part.along * (t * length) + part.palmar * out + part.across * aside;
    };
    if (thumb && last) { // it is broad and flat
        for (const float side : {-1.0f, 1.0f})
            flesh.push_back({part.a + part.across * (1.0f * side), tip + part.across * (1.8f * side),
                             part.halfA * 0.94f, part.halfB, melt});
    } else {
        flesh.push_back({part.a, tip, part.halfA * 0.97f, part.halfB, melt});
    }
    const float pad = last ? 0.86f : 0.88f;
    flesh.push_back({at(last ? 0.34f : 0.32f, 0.18f * mean), at(last ? 0.62f : 0.74f, 0.2f * mean),
                     mean * pad, mean * pad, melt});
    if (index > 0) // the joint, which stands out at the back
        flesh.push_back({at(0.01f, -0.1f * part.halfA), at(0, -0.1f * part.halfA), part.halfA * 1.05f * bony,
                         part.halfA * 1.05f * bony, melt});
}

static void ClothePalm(Skeleton& hand, const Phalanx digits[][3], const Pose& pose)
{
    std::vector<Bone>& palm = hand.flesh.palm;
    const auto add = [&](Point3 a, Point3 b, float halfA, float halfB, float melt) {
        palm.push_back({a, b, halfA, halfB, melt});
    };
    const Point3 roots[4] = {{11, 24, -1}, {2, 26, -3}, {-8, 25, -2}, {-16, 22, 0}};
    const float girth = pose.girth;
    for (int i = 0; i < 4; i++) {
        const Point3 head = Measures[i].knuckle;
        const float half = 10.4f * Mix(1, Measures[i].girth, 0.6f) * girth;
        add(roots[i], head, 12 * girth, half, 9);
        // The pad before the knuckle, and the sinew to it at the back.
        add(head + Point3{0, -6, 4}, head + Point3{0, 2, 3}, half * 0.85f, half * 0.8f, 6);
    }
    for (int i = 0; i < 4; i++) {
        const Point3 head = Measures[i].knuckle;
        add({0.25f * head.x, 4, -12.0f * girth}, head + Point3{0, -8, -9.2f * girth}, 1.5f, 2.0f, 5);
        add(head + Point3{0, 0, -2.4f}, head + Point3{0, 1, -2.4f}, 9.3f * pose.bony * girth,
            9.3f * pose.bony * girth, 3.5f);
    }
    // The balls of the thumb and of the little finger, the heel, the web.
    const Phalanx& root = digits[Thumb][0];
    add({12, 14, 6}, Mix(root.a, root.b, 0.62f) + root.palmar * 1.0f, 14 * girth, 13.5f * girth, 8);
    add(Mix(root.a, root.b, 0.3f), root.b, 12.5f * girth, 11.0f * girth, 8);
    add({-17, 14, 5}, {-30, 56, 4}, 13 * girth, 11 * girth, 9);
    add({12, 6, 2}, {-13, 6, 2}, 14, 13.5f, 9);
    add(Mix(root.a, root.b, 0.72f), Mix(roots[0], Measures[0].knuckle, 0.62f), 7.4f, 8.0f, 13);
    add(Mix(root.a, root.b, 0.92f), Mix(roots[0], Measures[0].knuckle, 0.45f), 5.6f, 7.5f, 14);
    add({9, 34, 4}, {20, 64, 3}, 10, 10, 10);
    add({22, 34, 5}, {32, 56, 4}, 9, 8, 12);
    // The wrist is broader than thick; at its back, on the little finger's side, a bone stands out.
    add({9, -2, -1}, {-9, -2, -1}, 15, 15, 9);
    add({8, -16, -1}, {-8, -16, -1}, 14, 14, 9);
    add({-14, -9, -8}, {-14, -11, -8}, 8.5f, 8.5f, 5);
    // Two sinews at the front of it.
    add({2, 4, 13.0f}, {2.5f, -13, 12.5f}, 1.8f, 1.8f, 4);
    add({-4, 2, 12.5f}, {-3.5f, -13, 12}, 1.5f, 1.5f, 4);
}

static void MoveBones(std::vector<Bone>& bones, const Skeleton& hand, float size)
{
    for (Bone& bone : bones)
        bone = {hand(bone.a), hand(bone.b), bone.halfA * size, bone.halfB * size, bone.melt * size};
}

Skeleton Posed(const Pose& pose)
{
    const View view(pose);
    Skeleton hand;
    Phalanx digits[Solid::Digits][3];
    BendThumb(digits[Thumb], pose, view);

    // The thumb's pad lies on the card.
    const Phalanx& last = digits[Thumb][2];
    const Point3 pad = view(Mix(last.a, last.b, 0.62f));
    const float half = Mix(last.halfA, last.halfB, 0.62f) * 1.08f;
    hand.wrist = Point3{pose.pad.x, pose.pad.y, pose.lift + half * pose.size} - pad;
    hand.toThumb = view.x;
    hand.toFingers = view.y;
    hand.outOfPalm = view.z;

    for (int i = 0; i < 4; i++) {
        Flex flex = pose.fingers[i];
        BendFinger(digits[i], Measures[i], flex, pose);
        if (!flex.onCard)
            continue;
        // From away from the card towards it.
        const float step = view.z.z > 0 ? 0.5f : -0.5f;
        flex.knuckle -= 120 * step;
        for (int tries = 0; tries < 260; tries++, flex.knuckle += step) {
            BendFinger(digits[i], Measures[i], flex, pose);
            float through = -1;
            for (const Phalanx& part : digits[i])
                if (hand(part.b).y < 0)
                    through = Max(through, hand(part.b).z + 1.25f * part.halfB * pose.size);
            if (through > 0)
                break;
        }
    }

    for (int i = 0; i < Solid::Digits; i++)
        for (int k = 0; k < 3; k++)
            if (i != Thumb || k > 0) // the thumb's first bone lies in the palm
                Clothe(hand.flesh.digits[i][i == Thumb ? k - 1 : k], digits[i][k], k, i == Thumb, pose.bony);
    ClothePalm(hand, digits, pose);

    hand.flesh.rootMelt = 8 * pose.size;
    hand.flesh.jointMelt = 3 * pose.size;
    MoveBones(hand.flesh.palm, hand, pose.size);
    for (int i = 0; i < Solid::Digits; i++)
        for (int k = 0; k < 3; k++) {
            MoveBones(hand.flesh.digits[i][k], hand, pose.size);
            const Phalanx& part = digits[i][k];
            hand.digits[i][k] = {hand(part.a),
                                 hand(part.b),
                                 Normalised(view(part.along)),
                                 Normalised(view(part.across)),
                                 Normalised(view(part.palmar)),
                                 part.halfA * pose.size,
                                 part.halfB * pose.size};
        }
    return hand;
}

Point3 Skeleton::OnPalm(float x, float y, bool back) const
{
    const float size = Length(outOfPalm), side = back ? -1.0f : 1.0f;
    float z = 60 * side;
    for (int step = 0; step < 60; step++) {
        const float distance = flesh.PalmDistance((*this)({x, y, z})) / size;
        if (distance < 0.1f || z * side < -20)
            break;
        z -= side * 0.8f * distance;
    }
    return (*this)({x, y, z});
}

} // namespace atelier
