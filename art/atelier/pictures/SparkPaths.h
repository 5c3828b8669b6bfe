// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Line.h"

// The ways of the sparks over the opening's sky, from the effect's own table, so that the threads can be
// painted where the sparks run. Paths 0 to 2 belong to the second sky picture, 3 to 5 to the third, 6 to 8 to
// the fourth.

namespace atelier
{

constexpr int SparkPathCount = 9;

// A path in pixels of its own sky picture of the given size, through every point of the table. The last
// points of paths 6 and 8 lie above the picture.
Line SparkPath(int path, float width, float height);

} // namespace atelier
