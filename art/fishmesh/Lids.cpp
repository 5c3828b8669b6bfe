// SPDX-License-Identifier: MIT
#include "art/fishmesh/Lids.h"

#include "art/fishmesh/Body.h"

#include <algorithm>
#include <cmath>

namespace fishmesh
{

static const float pi = 3.14159265f;

static const int lidColumns = 10; // from corner to corner of the eye
static const int lidRows = 3;
static const float lidRadius = 1.07f; // of the eyeball's
static const float lidTilt = 0.30f;   // radians that the front corner of the eye is lower
static const float upperLid = 0.50f;  // radians above where the eye looks at which the lid ends
static const float lowerLid = 0.85f;  // below
static const float lidBack = 2.20f;   // where both have sunk into the head

// A lid is a piece of a ball round the eyeball, between the corners of the eye, with its edge turned in.
static void AddLid(Mesh* mesh, float side, bool upper, int smoothing)
{
    const Vector3 centre(side * Socket.centre.x, Socket.centre.y, Socket.centre.z);
    const Vector3 axis(side * Socket.axis.x, Socket.axis.y, Socket.axis.z);
    const Vector3 level = Normalized(Cross(axis, Vector3(0.0f, -side, 0.0f))); // towards the snout
    const Vector3 above = Cross(level, axis) * side;
    const Vector3 corner = level * std::cos(lidTilt) - above * std::sin(lidTilt);
    const Vector3 brow = above * std::cos(lidTilt) + level * std::sin(lidTilt);
    const float turn = upper ? 1.0f : -1.0f;

    std::vector<std::vector<int>> rows;
    for (int row = 0; row <= lidRows + 1; row++) {
        const float open = upper ? upperLid : lowerLid;
        const float angle = row == 0 ? open : Mix(open, lidBack, float(row - 1) / lidRows);
        const float radius = Socket.radius * (row == 0 ? 0.985f : lidRadius);
        std::vector<int> points;
        for (int column = 0; column <= lidColumns; column++) {
            const float round = pi * (0.02f + 0.96f * float(column) / lidColumns);
            const Vector3 d = corner * std::cos(round) +
                              (axis * std::cos(angle) + brow * (turn * std::sin(angle))) * std::sin(round);
            const Vector3 p = centre + d * radius;
            const float height = (p.y - BellyHeight(p.z)) / (BackHeight(p.z) - BellyHeight(p.z));
            points.push_back(mesh->AddPoint(p, SkinU(p.z), std::clamp(height, 0.01f, 0.99f)));
        }
        if (turn * side > 0.0f)
            std::reverse(points.begin(), points.end());
        rows.push_back(points);
    }
    mesh->AddGrid(rows, false, Skin, smoothing);
}

void AddLids(Mesh* mesh)
{
    AddLid(mesh, 1.0f, true, 50);
    AddLid(mesh, 1.0f, false, 51);
    AddLid(mesh, -1.0f, true, 52);
    AddLid(mesh, -1.0f, false, 53);
}

} // namespace fishmesh
