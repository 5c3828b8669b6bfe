// SPDX-License-Identifier: MIT
#pragma once

#include "art/fishmesh/Mesh.h"

namespace fishmesh
{

// Needles in both jaws, uneven as they grew.
void AddTeeth(Mesh* mesh);

} // namespace fishmesh
