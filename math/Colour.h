// SPDX-License-Identifier: MIT
#pragma once

// A colour of a material, 0 to 1 for each channel, not limited to that. Opaque black unless told otherwise.
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
