// SPDX-License-Identifier: MIT
// A channel for debug text that users never see: it is written to stderr in debug builds and dropped in others.
#pragma once

namespace platform
{

void OutputDebugText(const char* text); // null is allowed and writes nothing

} // namespace platform
