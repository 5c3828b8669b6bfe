// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Numbers.h"

#include <vector>

// Bodies of flesh as a distance field: round bones that melt into each other. A drawing is made from what one sees of
// it, so that foreshortening, overlaps and shadows are right.
//
// CONVENTIONS
//   x to the right and y down as on a picture, z towards the viewer. The viewer looks along -z, without perspective.

namespace atelier
{

struct Point3 {
    float x = 0, y = 0, z = 0;
};

constexpr Point3 operator+(Point3 a, Point3 b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
constexpr Point3 operator-(Point3 a, Point3 b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
constexpr Point3 operator*(Point3 a, float s)
{
    return {a.x * s, a.y * s, a.z * s};
}
constexpr float Dot(Point3 a, Point3 b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
constexpr Point3 Cross(Point3 a, Point3 b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
constexpr Point3 Mix(Point3 a, Point3 b, float t)
{
    return a + (b - a) * t;
}
float Length(Point3 v);
Point3 Normalised(Point3 v); // (0, 0, 0) stays

// A round body from a to b. Bones of one part melt into each other within `melt`.
struct Bone {
    Point3 a, b;
    float halfA, halfB, melt;
};

// A hand is a palm and digits. The first part of a digit melts into the palm, and each part of it into the one before;
// what merely touches stays apart.
class Solid
{
public:
    static constexpr int Digits = 5, PartsOfDigit = 3;

    std::vector<Bone> palm;
    std::vector<Bone> digits[Digits][PartsOfDigit];
    float rootMelt = 1, jointMelt = 1;

    // To the surface, negative within; a little too small where bones melt, never too large.
    float Distance(Point3 p) const;
    float PalmDistance(Point3 p) const;
    // Which is nearest: 0 the palm, 1 + digit * PartsOfDigit + part.
    int PartAt(Point3 p) const;
    // What can lie in front of or behind a rectangle of the picture.
    Solid Over(Vector2 from, Vector2 to) const;
    Point3 Normal(Point3 p, float step) const;
};

} // namespace atelier
