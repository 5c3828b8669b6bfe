// SPDX-License-Identifier: MIT
#pragma once

#include "art/fishmesh/Mesh.h"

namespace fishmesh
{

// Dorsal, second dorsal, anal, tail, pectoral and pelvic fins: membranes between spines, with thickness.
void AddFins(Mesh* mesh);

} // namespace fishmesh
