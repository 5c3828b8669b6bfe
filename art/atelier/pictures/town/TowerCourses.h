// SPDX-License-Identifier: MIT
// The masonry of the towers.
#pragma once

#include "art/atelier/pictures/town/TowerAtlas.h"

namespace atelier::towers
{

// Courses of projecting stone between the storeys, at other heights on each wall: pixels below the head.
constexpr float Courses[4][4] = {
    {222, 418, 640, 800}, {268, 372, 590, 760}, {196, 470, 668, 860}, {300, 520, 610, 826}};

// Squared stones in courses, which show where the feathers fell and towards the foot.
LinearColour AshlarColour(float x, float y, const TowerNoise& noise);

// The projecting stone, with a shade below it.
void LayStringCourses(Canvas& canvas, const Paper& paper);

} // namespace atelier::towers
