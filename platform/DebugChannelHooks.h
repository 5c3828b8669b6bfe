// SPDX-License-Identifier: MIT
// How tests read the debug channel.
#pragma once

#include "platform/DebugChannel.h"

#include <string>

namespace platform
{

// Appends all further text to *sink instead of writing or dropping it; null ends that. The sink is borrowed.
void CollectDebugText(std::string* sink);

} // namespace platform
