// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/pictures/clouds/RoundArm.h"

namespace atelier
{

// A moth on the wrist, as one sees it from its side: its far wings are foreshortened, and all of them stand off the arm, on
// which their shadow lies.
void PaintMoth(Canvas& canvas, const RoundArm& limb, uint32_t seed);

} // namespace atelier
