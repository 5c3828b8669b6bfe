// SPDX-License-Identifier: MIT
// The colours of the show, as 0xRRGGBB of the screen. Form and boxes, the painted pictures and the tools take
// theirs from here, each in a type of its own.
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

} // namespace showcolours
