// SPDX-License-Identifier: MIT
// The window system that a show uses: windows and GL contexts of SDL.
#pragma once

#include "platform/WindowSystem.h"

namespace platform
{

const WindowSystem& SdlWindowSystem();

} // namespace platform
