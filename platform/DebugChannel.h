// SPDX-License-Identifier: MIT
// A channel for traces that a user never sees: collected where somebody does that, otherwise written to
// stderr in debug builds and dropped in others.
#pragma once

#include <string>

namespace platform
{

void OutputDebugText(const char* text); // null is allowed and counts as nothing

// Appends all further text to *sink; null ends that. The sink is borrowed.
void CollectDebugText(std::string* sink);

} // namespace platform
