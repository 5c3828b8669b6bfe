// SPDX-License-Identifier: MIT
// The windows of the towers.
#pragma once

#include "art/atelier/pictures/town/TowerAtlas.h"

namespace atelier::towers
{

// Somebody is up there, in some of the rooms. One sees the same wall of two or three towers at once: so each has many
// small windows, no two of them alike and few lit, instead of one that would be known again.
void LightWindows(Canvas& canvas, const Paper& paper);

} // namespace atelier::towers
