// SPDX-License-Identifier: MIT
#pragma once

#include "platform/WindowSystem.h"

namespace platform
{

const WindowSystem& NullWindowSystem();
void ResetNullWindows(); // back to how a process finds it

} // namespace platform
