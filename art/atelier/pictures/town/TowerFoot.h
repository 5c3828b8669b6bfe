// SPDX-License-Identifier: MIT
// Where the towers stand. One sees it while the camera comes near.
#pragma once

#include "art/atelier/pictures/town/TowerAtlas.h"

namespace atelier::towers
{

// Courses that grow thicker downwards, and on every other wall a gate with a lamp behind it.
void BuildFoot(Canvas& canvas, const Paper& paper, const TowerNoise& noise);

} // namespace atelier::towers
