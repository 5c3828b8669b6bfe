// SPDX-License-Identifier: MIT
#include "platform/DebugChannel.h"

namespace platform
{

static std::string* debugSink = nullptr;

void OutputDebugText(const char* text)
{
    if (debugSink && text)
        *debugSink += text;
}

void CollectDebugText(std::string* sink)
{
    debugSink = sink;
}

} // namespace platform
