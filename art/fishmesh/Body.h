// SPDX-License-Identifier: MIT
// The fish's body: one skin from the throat over the lips to the tail, with a mouth that hangs open.
#pragma once

#include "art/fishmesh/Mesh.h"

namespace fishmesh
{

// The outlines at a z from -1 (snout) to 0.7 (root of the tail fin).
float BackHeight(float z);
float BellyHeight(float z);
float HalfWidth(float z);

// A point of the skin before the jaws open. angle in radians from the back (0) down either side to the
// belly (pi); side +1 right, -1 left.
Vector3 SkinPoint(float z, float angle, float side);

// Opens the mouth: how a point moves that belongs to the lower jaw by so much (0 to 1).
Vector3 OpenJaw(const Vector3& point, float lower);

// The edge of the lips, jaws open. along: 0 at the tip of a jaw, 1 at the corner of the mouth.
Vector3 LipPoint(bool lowerJaw, float along, float side);
Vector3 LipInward(bool lowerJaw, float along, float side); // from there into the mouth, length 1

// The skin is unwrapped side-on: u from the snout (0) to the tail, v from the belly (0) to the back, the same
// on both sides. SkinV goes by the angle of SkinPoint.
float SkinU(float z);
float SkinV(float angle);

struct EyeSocket {
    Vector3 centre; // of the right eye; the left is its mirror image
    Vector3 axis;   // where it looks, length 1
    float radius;
};
extern const EyeSocket Socket;

void AddBody(Mesh* mesh);

} // namespace fishmesh
