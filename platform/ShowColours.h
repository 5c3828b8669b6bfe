// SPDX-License-Identifier: MIT
// The colours of the show, as 0xRRGGBB of the screen. Form and boxes, the timeline and the tool window use these as
// they are; the painted pictures need them in linear light (art/atelier/Palette.h).
#pragma once

#include <cstdint>

namespace showcolours
{

// clang-format off
constexpr uint32_t Ink       = 0x0d1020;
constexpr uint32_t Night     = 0x1b2140;
constexpr uint32_t Slate     = 0x38466b;
constexpr uint32_t Mist      = 0x8f9bb3;
constexpr uint32_t Ochre     = 0xc8822a;
constexpr uint32_t Amber     = 0xf0b050;
constexpr uint32_t Rust      = 0x8a3b1e;
constexpr uint32_t Moss      = 0x55602f;
constexpr uint32_t Bone      = 0xefe6d2; // paper
constexpr uint32_t Parchment = 0xd9c9a3;
constexpr uint32_t ColdLight = 0x9fe8ff; // a second light, used sparingly
// clang-format on

// The channels of a colour, 0 to 255.
constexpr int RedOf(uint32_t rgb)
{
    return int(rgb >> 16 & 255);
}
constexpr int GreenOf(uint32_t rgb)
{
    return int(rgb >> 8 & 255);
}
constexpr int BlueOf(uint32_t rgb)
{
    return int(rgb & 255);
}

// Mixes two colours channel by channel: `part` 0 gives the first, 1 the second.
constexpr uint32_t Mix(uint32_t from, uint32_t to, float part)
{
    uint32_t mixed = 0;
    for (int shift = 0; shift <= 16; shift += 8) {
        const float a = float(from >> shift & 255), b = float(to >> shift & 255);
        // Rounded; std::lround is not constexpr before C++23.
        mixed |= uint32_t(int(2 * (a + (b - a) * part) + 1) / 2) << shift;
    }
    return mixed;
}

} // namespace showcolours
