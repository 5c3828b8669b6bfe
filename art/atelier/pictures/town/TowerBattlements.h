// SPDX-License-Identifier: MIT
// Where the towers end.
#pragma once

#include "art/atelier/pictures/town/TowerAtlas.h"

namespace atelier::towers
{

// The box of a tower is cut straight. So its walls end in battlements, and what is seen between these is painted as the
// night behind them.
void BuildBattlements(Canvas& canvas, const TowerNoise& noise);

// The roof: slabs of slate with moss between them.
void PaintSlates(Canvas& canvas, const TowerNoise& noise);

} // namespace atelier::towers
