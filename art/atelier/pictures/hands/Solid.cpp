// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/hands/Solid.h"

namespace atelier
{

constexpr float Far = 1e6f;

float Length(Point3 v)
{
    return Sqrt(Dot(v, v));
}

Point3 Normalised(Point3 v)
{
    const float length = Length(v);
    return length > 0 ? v * (1 / length) : v;
}

static float ToBone(const Bone& bone, Point3 p)
{
    const Point3 way = bone.b - bone.a, d = p - bone.a;
    const float t = Clamp(Dot(d, way) / Max(Dot(way, way), 1e-6f));
    return Length(d - way * t) - Mix(bone.halfA, bone.halfB, t);
}

// The lesser of two distances, rounded where they are nearly equal.
static float Melted(float a, float b, float melt)
{
    const float h = Max(melt - Abs(a - b), 0);
    return Min(a, b) - (h > 0 ? h * h / (4 * melt) : 0);
}

static float ToBones(const std::vector<Bone>& bones, Point3 p)
{
    float distance = Far;
    for (const Bone& bone : bones)
        distance = Melted(distance, ToBone(bone, p), bone.melt);
    return distance;
}

float Solid::PalmDistance(Point3 p) const
{
    return ToBones(palm, p);
}

float Solid::Distance(Point3 p) const
{
    const float inPalm = ToBones(palm, p);
    float distance = inPalm;
    for (const auto& digit : digits) {
        const float root = ToBones(digit[0], p);
        float chain = root;
        for (int part = 1; part < PartsOfDigit; part++)
            chain = Melted(chain, ToBones(digit[part], p), jointMelt);
        distance = Min(distance, Min(chain, Melted(inPalm, root, rootMelt)));
    }
    return distance;
}

int Solid::PartAt(Point3 p) const
{
    float least = ToBones(palm, p);
    int nearest = 0;
    for (int digit = 0; digit < Digits; digit++)
        for (int part = 0; part < PartsOfDigit; part++) {
            const float distance = ToBones(digits[digit][part], p);
            if (distance < least) {
                least = distance;
                nearest = 1 + digit * PartsOfDigit + part;
            }
        }
    return nearest;
}

static std::vector<Bone> BonesOver(const std::vector<Bone>& bones, Vector2 from, Vector2 to, float melt)
{
    std::vector<Bone> over;
    for (const Bone& bone : bones) {
        const float room = Max(bone.halfA, bone.halfB) + Max(bone.melt, melt);
        if (Max(bone.a.x, bone.b.x) + room > from.x && Min(bone.a.x, bone.b.x) - room < to.x &&
            Max(bone.a.y, bone.b.y) + room > from.y && Min(bone.a.y, bone.b.y) - room < to.y)
            over.push_back(bone);
    }
    return over;
}

Solid Solid::Over(Vector2 from, Vector2 to) const
{
    Solid over;
    over.rootMelt = rootMelt;
    over.jointMelt = jointMelt;
    over.palm = BonesOver(palm, from, to, rootMelt);
    for (int digit = 0; digit < Digits; digit++)
        for (int part = 0; part < PartsOfDigit; part++)
            over.digits[digit][part] =
                BonesOver(digits[digit][part], from, to, part == 0 ? rootMelt : jointMelt);
    return over;
}

Point3 Solid::Normal(Point3 p, float step) const
{
    Point3 normal;
    for (const Point3 corner : {Point3{1, -1, -1}, Point3{-1, -1, 1}, Point3{-1, 1, -1}, Point3{1, 1, 1}})
        normal = normal + corner * Distance(p + corner * step);
    return Normalised(normal);
}

} // namespace atelier
