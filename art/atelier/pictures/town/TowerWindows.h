// SPDX-License-Identifier: MIT
// The windows of the towers.
#pragma once

#include "art/atelier/pictures/town/TowerAtlas.h"

namespace atelier::towers
{

// Somebody is up there, in some of the rooms. One sees the same wall of two or three towers at once: so all windows are
// alike and stand in rows, as all towers of one builder have them, and what is lit is the stair, which winds up round each.
void LightWindows(Canvas& canvas, const Paper& paper);

} // namespace atelier::towers
