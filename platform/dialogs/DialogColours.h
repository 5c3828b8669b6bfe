// SPDX-License-Identifier: MIT
// The colours of form and boxes: ink and wash, as in the show's pictures.
#pragma once

namespace platform
{

struct Tint {
    unsigned char red, green, blue;
};

// clang-format off
constexpr Tint TintInk   = {0x0d, 0x10, 0x20}; // the ground; the form's picture ends in it at the bottom
constexpr Tint TintNight = {0x1b, 0x21, 0x40};
constexpr Tint TintSlate = {0x38, 0x46, 0x6b};
constexpr Tint TintMist  = {0x8f, 0x9b, 0xb3};
constexpr Tint TintOchre = {0xc8, 0x82, 0x2a};
constexpr Tint TintAmber = {0xf0, 0xb0, 0x50};
constexpr Tint TintRust  = {0x8a, 0x3b, 0x1e};
constexpr Tint TintBone  = {0xef, 0xe6, 0xd2};
// clang-format on

// The way from one colour to another: 0 is from, 1 is to.
Tint MixTints(Tint from, Tint to, float way);

} // namespace platform
