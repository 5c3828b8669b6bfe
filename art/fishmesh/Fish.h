// SPDX-License-Identifier: MIT
// A lean fish that has come up from where no light is: about 2 long, the head towards -z, y up.
#pragma once

#include "resources/Model.h"

namespace fishmesh
{

Model MakeFish();
Model MakeEyes();

} // namespace fishmesh
