// SPDX-License-Identifier: MIT
// The masonry of the towers.
#pragma once

#include "art/atelier/pictures/town/TowerAtlas.h"

namespace atelier::towers
{

// Squared stones in courses, which show between the turns of the feathers and towards the foot.
LinearColour AshlarColour(float x, float y, const TowerNoise& noise);

// The course of projecting stone that winds round the tower, with a shade below it.
void LayMoulding(Canvas& canvas, const Paper& paper);

} // namespace atelier::towers
