// SPDX-License-Identifier: MIT
// CONVENTIONS
//   Channels run from 0 to 1 and are not limited to that range. The alpha of an opaque colour is 1.
#pragma once

// A colour of a material, opaque black by default.
class Colour
{
public:
    Colour() = default; // (0, 0, 0, 1)
    Colour(float red, float green, float blue, float alpha) : r(red), g(green), b(blue), a(alpha) {}

    float r = 0.0f;
    float g = 0.0f;
    float b = 0.0f;
    float a = 1.0f;
};
