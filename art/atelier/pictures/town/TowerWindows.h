// SPDX-License-Identifier: MIT
// The windows of the towers.
#pragma once

#include "art/atelier/pictures/town/TowerAtlas.h"

namespace atelier::towers
{

// Somebody is up there, in some of the rooms. One sees the same wall of two or three towers at once: so windows are small and
// few, at no even distances, and stand on the moulding along the stair, which winds up round each.
void LightWindows(Canvas& canvas, const Paper& paper);

} // namespace atelier::towers
