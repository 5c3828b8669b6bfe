// SPDX-License-Identifier: MIT
// The window of a message box.
#pragma once

#include "platform/Boxes.h"

namespace platform
{

// ShowBox with a real window. There must be a display.
void RunMessageBox(const Box& box);

} // namespace platform
