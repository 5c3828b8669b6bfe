// SPDX-License-Identifier: MIT
// Ink and wash on warm paper: the show's colours, as the timeline uses them.
#pragma once

#include <cstdint>

namespace timeline
{

struct Colour {
    uint8_t red, green, blue;
    float alpha = 1; // 0 clear to 1 opaque
};

inline bool operator==(const Colour& a, const Colour& b)
{
    return a.red == b.red && a.green == b.green && a.blue == b.blue && a.alpha == b.alpha;
}

constexpr Colour Faded(Colour colour, float alpha)
{
    return {colour.red, colour.green, colour.blue, alpha};
}

// The way from one colour to another: 0 is from, 1 is to.
constexpr Colour Mix(Colour from, Colour to, float way)
{
    return {uint8_t(float(from.red) + (float(to.red) - float(from.red)) * way + 0.5f),
            uint8_t(float(from.green) + (float(to.green) - float(from.green)) * way + 0.5f),
            uint8_t(float(from.blue) + (float(to.blue) - float(from.blue)) * way + 0.5f)};
}

// clang-format off
constexpr Colour Ink       = {0x0d, 0x10, 0x20};
constexpr Colour Night     = {0x1b, 0x21, 0x40};
constexpr Colour Slate     = {0x38, 0x46, 0x6b};
constexpr Colour Mist      = {0x8f, 0x9b, 0xb3};
constexpr Colour Ochre     = {0xc8, 0x82, 0x2a};
constexpr Colour Amber     = {0xf0, 0xb0, 0x50};
constexpr Colour Rust      = {0x8a, 0x3b, 0x1e};
constexpr Colour Moss      = {0x55, 0x60, 0x2f};
constexpr Colour Bone      = {0xef, 0xe6, 0xd2}; // the paper
constexpr Colour Parchment = {0xd9, 0xc9, 0xa3};

// The pigments of the entries, by the effect's row in the registry, over and over: the ink of an edge, and the
// tint that the brush leaves. Blues lie on warm paper, where they would turn grey, so theirs are stronger.
struct Pigment {
    Colour ink, tint;
};
constexpr Pigment pigments[] = {
    {Slate,              {0x56, 0x72, 0xb4}},
    {Mix(Ochre, Ink, 0.3f), Ochre},
    {Mix(Moss, Ink, 0.2f),  {0x6f, 0x82, 0x32}},
    {Rust,               {0xae, 0x52, 0x30}},
    {Mix(Slate, Mist, 0.5f), {0x86, 0xa4, 0xd2}},
    {Night,              {0x4a, 0x54, 0x98}},
    {Ochre,              Amber},
};
constexpr int pigmentCount = sizeof pigments / sizeof pigments[0];
// clang-format on

} // namespace timeline
