// SPDX-License-Identifier: MIT
#pragma once

#include "platform/WindowSystem.h"

namespace platform
{

const WindowSystem& SdlWindowSystem();

} // namespace platform
