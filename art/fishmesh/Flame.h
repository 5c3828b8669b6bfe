// SPDX-License-Identifier: MIT
#pragma once

#include "art/fishmesh/Mesh.h"

namespace fishmesh
{

// The fire in the tail fin: a brush stroke for each tongue, from the root of the fin outwards. It lies folded in the
// fin; fish.vp draws it out, gives it its width and turns it to the eye.
void AddFlame(Mesh* mesh);

// The night behind the fish: one small quad inside of it, which fish.vp spreads over the picture.
void AddNight(Mesh* mesh);

} // namespace fishmesh
