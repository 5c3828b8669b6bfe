// SPDX-License-Identifier: MIT
// CONVENTIONS
//   u grows to the right and v upward, both from 0 at the lower left corner of the picture to 1.
#pragma once

// A texture coordinate of a mesh.
class Vec2
{
public:
    Vec2() = default; // (0, 0)
    Vec2(float s, float t) : u(s), v(t) {}

    float u = 0.0f;
    float v = 0.0f;
};
