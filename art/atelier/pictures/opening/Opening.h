// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Canvas.h"

// What stands in front of the opening's sky.

namespace atelier
{

Canvas TesselLogo();
Canvas BlackChick();
Canvas MoonwaltzLogo();
Canvas Waldsterben();
Canvas Waldsterben2();

} // namespace atelier
