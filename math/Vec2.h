// SPDX-License-Identifier: MIT
#pragma once

// A texture coordinate of a mesh: u to the right, v upward from the bottom of the picture.
class Vec2
{
public:
    Vec2() = default; // (0, 0)
    Vec2(float s, float t) : u(s), v(t) {}

    float u = 0.0f;
    float v = 0.0f;
};
