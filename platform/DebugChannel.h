// SPDX-License-Identifier: MIT
// A channel for debug text that users never see. While CollectDebugText has set a string, the text is
// appended to it; otherwise it is written to stderr in debug builds and dropped in others.
#pragma once

#include <string>

namespace platform
{

void OutputDebugText(const char* text); // null is allowed and writes nothing

// Appends all further text to *sink; null ends that. The sink is borrowed.
void CollectDebugText(std::string* sink);

} // namespace platform
