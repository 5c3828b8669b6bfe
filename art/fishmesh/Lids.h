// SPDX-License-Identifier: MIT
#pragma once

#include "art/fishmesh/Mesh.h"

namespace fishmesh
{

// The lids of both eyes, heavy above, so that the fish looks out from under them.
void AddLids(Mesh* mesh);

} // namespace fishmesh
