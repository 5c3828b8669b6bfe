// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/photograph/Hand.h"

#include <algorithm>

namespace atelier::photograph
{

// A finger from its root to its tip: the places of its joints, and half its width there.
struct Finger {
    std::vector<Vector2> joints;
    std::vector<float> halves;
};

// clang-format off
static const std::vector<Finger> Fingers = {
    {{{532, 556}, {508, 408}, {490, 318}, {484, 240}}, {40, 36.5f, 31, 28.5f}}, // index
    {{{604, 536}, {596, 376}, {604, 272}, {614, 182}}, {41, 37.5f, 32, 29.5f}},
    {{{674, 552}, {694, 406}, {704, 308}, {710, 226}}, {39, 35.5f, 30, 27.5f}},
    {{{722, 614}, {790, 513}, {837, 451}, {866, 389}}, {36, 31, 26, 24}}, // little finger
    {{{560, 772}, {474, 684}, {398, 592}, {366, 500}}, {66, 48, 38, 33}}, // thumb
};
static const std::vector<Vector2> Palm = {{496, 566}, {560, 522}, {650, 518}, {726, 556}, {756, 640}, {746, 740}, {706, 830}, {692, 930}, {564, 934}, {548, 850}, {504, 786}, {478, 680}};
// The lines of the palm, each with how deep it is.
struct Furrow {
    std::vector<Vector2> points;
    float width;
};
static const std::vector<Furrow> PalmLines = {
    {{{492, 634}, {546, 652}, {594, 704}, {608, 784}, {592, 852}}, 7},  // life
    {{{490, 626}, {560, 630}, {636, 664}, {704, 716}}, 6},              // head
    {{{752, 640}, {700, 630}, {642, 610}, {598, 580}, {580, 556}}, 6},  // heart
    {{{650, 590}, {646, 660}, {640, 736}}, 3},
    {{{566, 896}, {622, 908}, {690, 894}}, 5},                          // the wrist
    {{{572, 912}, {624, 921}, {686, 912}}, 3},
};
// What stands out of the palm, and what is hollow: a place, its reach along and across, its turn, its height.
struct Mount {
    Vector2 place;
    float along, across, turn, height;
};
static const std::vector<Mount> Mounts = {
    {{536, 720}, 128, 70, 1.05f,  52}, // the ball of the thumb
    {{706, 734}, 136, 54, 1.75f,  26}, // the heel of the hand
    {{540, 590},  40, 34, 0.0f,   13}, // below each finger
    {{606, 574},  40, 34, 0.0f,   13},
    {{670, 588},  40, 34, 0.0f,   12},
    {{722, 634},  40, 32, 0.0f,   11},
    {{628, 690},  84, 50, 1.4f,  -20}, // the hollow
    {{600, 768},  96, 20, 1.62f, -15}, // where it falls off to the middle of the hand
};
// clang-format on

Line Tilted(const Line& line)
{
    return Turned(line, -0.13f, {610, 760});
}

static Vector2 TiltedPlace(Vector2 place)
{
    return Tilted({place}).front();
}

Mask HandShape()
{
    Shape hand = Tilted(Round(Palm));
    for (const Finger& finger : Fingers) {
        hand.Add(Tilted(Ellipse(finger.joints[0], finger.halves[0], finger.halves[0])));
        for (size_t i = 0; i + 1 < finger.joints.size(); i++) {
            const float a = finger.halves[i], b = finger.halves[i + 1];
            // The flesh between two joints is a little fuller than they are.
            hand.Add(
                Tilted(Limb(Straight({finger.joints[i], finger.joints[i + 1]}), a, (a + b) * 0.515f, b)));
            hand.Add(Tilted(Ellipse(finger.joints[i + 1], b, b)));
        }
        const size_t last = finger.joints.size() - 1;
        const Vector2 on = Normalised(finger.joints[last] - finger.joints[last - 1]);
        hand.Add(
            Tilted(Ellipse(finger.joints[last] + on * 4, finger.halves[last] * 0.96f, finger.halves[last])));
    }
    // The parts grow together where they meet.
    return Filled(W, H, hand).Blur(7).Curve(0.42f, 0.58f);
}

// Raises the relief to a round body from a to b.
static void RaiseBone(Mask& relief, Vector2 a, float halfA, Vector2 b, float halfB)
{
    const float room = Max(halfA, halfB) + 1;
    const int left = std::max(0, Floor(Min(a.x, b.x) - room)),
              right = std::min(W - 1, Floor(Max(a.x, b.x) + room));
    const int top = std::max(0, Floor(Min(a.y, b.y) - room)),
              foot = std::min(H - 1, Floor(Max(a.y, b.y) + room));
    const Vector2 way = b - a;
    for (int y = top; y <= foot; y++)
        for (int x = left; x <= right; x++) {
            const Vector2 p = Vector2{float(x) + 0.5f, float(y) + 0.5f} - a;
            const float t = Clamp(Dot(p, way) / Dot(way, way));
            const float half = Mix(halfA, halfB, t), d = Length(p - way * t);
            if (d < half)
                relief.At(x, y) = Max(relief.At(x, y), 0.85f * Sqrt(half * half - d * d));
        }
}

// Adds a soft hill, or a hollow.
static void RaiseMount(Mask& relief, const Mount& mount)
{
    const Vector2 place = TiltedPlace(mount.place);
    const Vector2 along = {Cos(mount.turn - 0.13f), Sin(mount.turn - 0.13f)}, across = {-along.y, along.x};
    const float room = 2.6f * Max(mount.along, mount.across);
    for (int y = std::max(0, Floor(place.y - room)); y <= std::min(H - 1, Floor(place.y + room)); y++)
        for (int x = std::max(0, Floor(place.x - room)); x <= std::min(W - 1, Floor(place.x + room)); x++) {
            const Vector2 d = Vector2{float(x) + 0.5f, float(y) + 0.5f} - place;
            relief.At(x, y) +=
                mount.height * Bell(Length({Dot(d, along) / mount.along, Dot(d, across) / mount.across}));
        }
}

// Creases of the joints, the lines of the palm, and the fine lines of the skin between them.
static Mask Creases(const Paper& paper)
{
    Mask creases(W, H);
    Pen pen(creases, paper, {.width = 4, .wobble = 1.4f, .wave = 34, .skip = 0.15f, .pool = 0}, 13);
    Dice dice(14);
    const auto across = [&](Vector2 place, Vector2 way, float half, float bow) {
        const Vector2 side = {-way.y, way.x};
        pen.Stroke(
            Tilted(Through({place - side * (half * 0.92f), place + way * bow, place + side * (half * 0.9f)})),
            {.start = 0.5f, .middle = 0.9f, .end = 0.3f});
    };
    for (const Finger& finger : Fingers)
        for (size_t i = 0; i + 1 < finger.joints.size(); i++) {
            const Vector2 way = Normalised(finger.joints[i + 1] - finger.joints[i]);
            const bool thumb = finger.halves[0] > 60;
            if (thumb && i == 0)
                continue;
            const Vector2 joint = finger.joints[i] + way * (i == 0 ? 46.0f : 0.0f);
            const float half = finger.halves[i] * (i == 0 ? 0.95f : 1);
            // One fold, none like the next; a second, shorter one where the finger bends most.
            pen.nib.width = dice.Range(3.4f, 5);
            across(joint + way * dice.Range(-4, 4), way + Vector2{way.y, -way.x} * dice.Range(-0.12f, 0.12f),
                   half, dice.Range(-7, -1));
            if (i == 1) {
                pen.nib.width = 2.2f;
                across(joint + way * dice.Range(7, 12), way, half * dice.Range(0.45f, 0.7f),
                       dice.Range(-4, 3));
            }
            pen.nib.width = 1.6f;
            for (int k = 0; k < 3; k++)
                across(joint + way * dice.Range(-16, 18), way, half * dice.Range(0.4f, 0.7f),
                       dice.Range(-4, 3));
        }
    for (const Furrow& line : PalmLines) {
        pen.nib.width = line.width;
        pen.Stroke(Tilted(Through(line.points)), {.start = 0.7f, .middle = 1, .end = 0.05f});
    }
    // Fine lines run with the great ones.
    pen.nib.width = 1.4f;
    for (int i = 0; i < 64; i++) {
        const Furrow& line = PalmLines[size_t(dice.Below(4))];
        const float t = dice.Range(0, 0.8f);
        const Line part = Part(Tilted(Through(line.points)), t, t + dice.Range(0.08f, 0.2f));
        pen.Stroke(Turned(Beside(part, dice.Range(-34, 34)), dice.Range(-0.5f, 0.5f), part.front()),
                   {.start = 0, .middle = 0.6f, .end = 0});
    }
    return creases.Blur(1.1f);
}

Mask LitHand(const Mask& shape, const Paper& paper)
{
    Mask relief = shape.Blurred(30);
    relief.Scale(50);
    for (const Finger& finger : Fingers)
        for (size_t i = 0; i + 1 < finger.joints.size(); i++)
            RaiseBone(relief, TiltedPlace(finger.joints[i]), finger.halves[i],
                      TiltedPlace(finger.joints[i + 1]), finger.halves[i + 1]);
    relief.Blur(6);
    for (const Mount& mount : Mounts)
        RaiseMount(relief, mount);
    // The pads of the fingers, and the two tendons of the wrist.
    for (const Finger& finger : Fingers)
        for (size_t i = 0; i + 1 < finger.joints.size(); i++) {
            const Vector2 a = finger.joints[i], b = finger.joints[i + 1];
            const float half = (finger.halves[i] + finger.halves[i + 1]) / 2;
            // The pad at the end lies towards the tip and is the fullest.
            const bool end = i + 2 == finger.joints.size();
            RaiseMount(relief, {Mix(a, b,
                                    end      ? 0.78f
                                    : i == 0 ? 0.66f
                                             : 0.52f),
                                Length(b - a) * (end ? 0.42f : 0.36f), half * 0.75f, Angle(b - a),
                                end ? 11.0f : 8.0f});
        }
    RaiseMount(relief, {{612, 890}, 70, 9, 1.62f, 9});
    RaiseMount(relief, {{646, 890}, 70, 8, 1.55f, 7});
    const Mask creases = Creases(paper);
    const Mask dents = creases.Blurred(3);
    const Noise skin(15);
    for (int y = 0; y < H; y++)
        for (int x = 0; x < W; x++)
            relief.At(x, y) += 1.6f * skin.Fbm(float(x) / 26, float(y) / 26, 3) - 5 * dents.At(x, y);
    relief.Blur(2);
    // The flash is a little above the lens and to its left.
    constexpr Vector2 Flash = {-0.36f, -0.42f};
    constexpr float Ahead = 0.83f;
    Mask lit(W, H);
    for (int y = 1; y + 1 < H; y++)
        for (int x = 1; x + 1 < W; x++) {
            if (shape.At(x, y) <= 0)
                continue;
            const Vector2 slope = {(relief.At(x + 1, y) - relief.At(x - 1, y)) / 2,
                                   (relief.At(x, y + 1) - relief.At(x, y - 1)) / 2};
            const float facing = (Ahead - Dot(slope, Flash)) / Sqrt(1 + Dot(slope, slope));
            const float fy = float(y);
            // The nearer, the brighter: the fingertips burn.
            const float near = 0.16f * Smooth(460, 220, fy);
            lit.At(x, y) =
                (0.05f + (0.80f + near) * Pow(Clamp(facing), 1.7f)) * (1 - 0.62f * creases.At(x, y));
        }
    return lit;
}

} // namespace atelier::photograph
