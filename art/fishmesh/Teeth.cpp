// SPDX-License-Identifier: MIT
#include "art/fishmesh/Teeth.h"

#include "art/fishmesh/Body.h"

#include <cmath>

namespace fishmesh
{

static const float pi = 3.14159265f;

struct Tooth {
    bool lowerJaw;
    float along; // the lip, from the tip of the jaw to the corner of the mouth
    float length;
    float lean; // along the lip, radians; positive towards the corner
};
static const Tooth teeth[] = {
    // clang-format off
    { false, 0.10f, 0.070f,  0.10f },
    { false, 0.24f, 0.118f,  0.22f },  // fang
    { false, 0.36f, 0.062f, -0.05f },
    { false, 0.46f, 0.084f,  0.18f },
    { false, 0.56f, 0.050f,  0.05f },
    { false, 0.66f, 0.060f,  0.24f },
    { false, 0.76f, 0.036f,  0.12f },
    { false, 0.86f, 0.028f,  0.20f },
    { true,  0.08f, 0.086f,  0.06f },
    { true,  0.20f, 0.140f,  0.26f },  // fang
    { true,  0.31f, 0.064f,  0.02f },
    { true,  0.41f, 0.100f,  0.16f },
    { true,  0.51f, 0.056f, -0.04f },
    { true,  0.61f, 0.072f,  0.20f },
    { true,  0.72f, 0.044f,  0.10f },
    { true,  0.83f, 0.030f,  0.18f },
    // clang-format on
};

static const int sides = 5;
static const float curl = 0.30f; // of the length, inwards at the tip's half

static void AddTooth(Mesh* mesh, const Tooth& tooth, float side, int smoothing)
{
    const Vector3 root = LipPoint(tooth.lowerJaw, tooth.along, side);
    const Vector3 tangent = Normalized(LipPoint(tooth.lowerJaw, tooth.along + 0.04f, side) -
                                       LipPoint(tooth.lowerJaw, tooth.along - 0.04f, side));
    // Straight out of the jaw: the lower one has turned with the mouth.
    const float tilt = tooth.lowerJaw ? 0.38f : 0.0f;
    const Vector3 bite =
        tooth.lowerJaw ? Vector3(0.0f, std::cos(tilt), -std::sin(tilt)) : Vector3(0.0f, -1.0f, 0.0f);
    Vector3 inward = LipInward(tooth.lowerJaw, tooth.along, side);
    inward = Normalized(inward - bite * Dot(inward, bite));
    const Vector3 axis = Normalized(bite * std::cos(tooth.lean) + tangent * std::sin(tooth.lean));
    const float radius = 0.006f + 0.055f * tooth.length;

    // The jaws are thin at their tips: further back the tooth sits deeper.
    const float depth = 0.002f + 0.012f * tooth.along;
    const Vector3 foot = root + inward * (radius + 0.010f) - bite * depth;
    const Vector3 middle = foot + axis * (0.5f * tooth.length) - inward * (0.10f * tooth.length);
    const Vector3 tip = foot + axis * tooth.length + inward * (curl * 0.3f * tooth.length);
    const Vector3 a = Normalized(Cross(axis, inward));
    const Vector3 b = Cross(a, axis);

    std::vector<std::vector<int>> rings(2);
    for (int ring = 0; ring < 2; ring++)
        for (int i = 0; i < sides; i++) {
            const float angle = 2.0f * pi * float(i) / sides;
            const float r = ring == 0 ? radius : 0.62f * radius;
            const Vector3 p =
                (ring == 0 ? foot : middle) + a * (r * std::cos(angle)) - b * (r * std::sin(angle));
            rings[ring].push_back(mesh->AddPoint(p, 0.1f + 0.8f * float(i) / sides, ring == 0 ? 0.1f : 0.5f));
        }
    // As seen from outside the foot lies below the tip, so the upper row comes first.
    mesh->AddGrid({rings[1], rings[0]}, true, Bone, smoothing);
    const int point = mesh->AddPoint(tip, 0.5f, 0.9f);
    for (int i = 0; i < sides; i++)
        mesh->AddTriangle(point, rings[1][i], rings[1][(i + 1) % sides], Bone, smoothing);
}

void AddTeeth(Mesh* mesh)
{
    int smoothing = 100;
    for (const Tooth& tooth : teeth)
        for (float side : {1.0f, -1.0f})
            AddTooth(mesh, tooth, side, smoothing++);
}

} // namespace fishmesh
