// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Canvas.h"

// The larger pictures of the scenes that have ground, houses and a sky.

namespace atelier
{

Canvas FieldOfTheNames(); // fields from above, under the tree of the names
Canvas FieldTile();       // across the picture 40 units of ground, down it 14.3: furrows run down it
Canvas Plaza();           // 60 units of ground both ways, the ring of stones in its middle

// Atlases: four walls side by side in the middle half of the rows, a roof above the last of them.
Canvas HouseWalls();
Canvas TowerWalls();

// The faces of the box of the night sky: from the box's middle, -x, -z, +x and up.
enum class SkyFace { Left, Back, Right, Top };
Canvas NightSky(SkyFace face);

// The score of the theme, eight bars on five staves, on a strip of paper.
Canvas ScoreStrip();

} // namespace atelier
