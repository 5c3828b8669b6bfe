// SPDX-License-Identifier: MIT
// How the picture of a house or a tower is laid out, in pixels: four walls side by side, joining at their edges, and a
// roof in the top right corner.
#pragma once

#include "art/atelier/Ink.h"
#include "art/atelier/Mask.h"

namespace atelier
{

constexpr float Size = 1024;
constexpr int Side = 1024;
constexpr float WallWidth = 256, WallTop = 256, WallFoot = 768;
constexpr float RoofLeft = 768, RoofFoot = 256;

inline Mask Roof()
{
    return Filled(Side, Side, Rectangle(RoofLeft, 0, Size, RoofFoot));
}

} // namespace atelier
