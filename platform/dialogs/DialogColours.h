// SPDX-License-Identifier: MIT
// The colours of form and boxes: ink and wash, as in the show's pictures.
#pragma once

#include "platform/ShowColours.h"

namespace platform
{

struct Tint {
    unsigned char red, green, blue;
};

constexpr Tint TintOf(uint32_t rgb)
{
    return {static_cast<unsigned char>(rgb >> 16), static_cast<unsigned char>(rgb >> 8),
            static_cast<unsigned char>(rgb)};
}

// clang-format off
constexpr Tint TintInk   = TintOf(showcolours::Ink); // the ground; the form's picture ends in it at the bottom
constexpr Tint TintNight = TintOf(showcolours::Night);
constexpr Tint TintSlate = TintOf(showcolours::Slate);
constexpr Tint TintMist  = TintOf(showcolours::Mist);
constexpr Tint TintOchre = TintOf(showcolours::Ochre);
constexpr Tint TintAmber = TintOf(showcolours::Amber);
constexpr Tint TintRust  = TintOf(showcolours::Rust);
constexpr Tint TintBone  = TintOf(showcolours::Bone);
// clang-format on

} // namespace platform
