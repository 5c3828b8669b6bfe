// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Canvas.h"

namespace atelier
{

// The six small night pictures on the cards of the clouds, each about 380 pixels wide round `at`. They are
// painted in body colour onto a wash of night.
void LanternEmblem(Canvas& canvas, Vector2 at, uint32_t seed);
void FerryEmblem(Canvas& canvas, Vector2 at, uint32_t seed);
void LoafEmblem(Canvas& canvas, Vector2 at, uint32_t seed);
void MothEmblem(Canvas& canvas, Vector2 at, uint32_t seed);
void TowerEmblem(Canvas& canvas, Vector2 at, uint32_t seed);
void MastEmblem(Canvas& canvas, Vector2 at, uint32_t seed);

} // namespace atelier
