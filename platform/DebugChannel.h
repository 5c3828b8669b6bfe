// SPDX-License-Identifier: MIT
// A channel for traces that a user never sees: dropped, unless somebody collects it.
#pragma once

#include <string>

namespace platform
{

void OutputDebugText(const char* text); // null is allowed and counts as nothing

// Appends all further text to *sink; null drops it again. The sink is borrowed.
void CollectDebugText(std::string* sink);

} // namespace platform
