// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Numbers.h"
#include "platform/ShowColours.h"

#include <cstdint>

// The colours of the show. All painting is done in linear light, 0 to 1; ToScreen and FromScreen are the way
// to the values of a picture file and back.

namespace atelier
{

struct LinearColour {
    float r = 0, g = 0, b = 0; // linear light
};

constexpr LinearColour operator*(LinearColour c, float s)
{
    return {c.r * s, c.g * s, c.b * s};
}
constexpr LinearColour operator*(LinearColour a, LinearColour b)
{
    return {a.r * b.r, a.g * b.g, a.b * b.b};
}
constexpr LinearColour operator+(LinearColour a, LinearColour b)
{
    return {a.r + b.r, a.g + b.g, a.b + b.b};
}
constexpr LinearColour Mix(LinearColour a, LinearColour b, float t)
{
    return {Mix(a.r, b.r, t), Mix(a.g, b.g, t), Mix(a.b, b.b, t)};
}

// A value of a picture file, 0 to 1, as linear light. x to the power 2.4 is x * x times the fifth root of x *
// x.
constexpr float FromScreen(float s)
{
    if (s <= 0.04045f)
        return s / 12.92f;
    const double x = (double(s) + 0.055) / 1.055;
    const double square = x * x;
    double root = 1;
    for (int step = 0; step < 40; step++)
        root = (4 * root + square / (root * root * root * root)) / 5;
    return float(square * root);
}

inline float ToScreen(float linear)
{
    return linear <= 0.0031308f ? linear * 12.92f : 1.055f * Pow(linear, 1 / 2.4f) - 0.055f;
}

constexpr LinearColour FromHex(uint32_t rgb)
{
    return {FromScreen(float(rgb >> 16 & 255) / 255), FromScreen(float(rgb >> 8 & 255) / 255),
            FromScreen(float(rgb & 255) / 255)};
}

namespace palette
{
// clang-format off
constexpr LinearColour Ink       = FromHex(showcolours::Ink);
constexpr LinearColour Night     = FromHex(showcolours::Night);
constexpr LinearColour Slate     = FromHex(showcolours::Slate);
constexpr LinearColour Mist      = FromHex(showcolours::Mist);
constexpr LinearColour Ochre     = FromHex(showcolours::Ochre);
constexpr LinearColour Amber     = FromHex(showcolours::Amber);
constexpr LinearColour Rust      = FromHex(showcolours::Rust);
constexpr LinearColour Bone      = FromHex(showcolours::Bone);
constexpr LinearColour Parchment = FromHex(showcolours::Parchment);
constexpr LinearColour Moss      = FromHex(showcolours::Moss);
constexpr LinearColour ColdLight = FromHex(showcolours::ColdLight);
constexpr LinearColour Black     = {0, 0, 0};         // only as the ground of pictures that are added to what lies behind
// clang-format on
} // namespace palette

} // namespace atelier
