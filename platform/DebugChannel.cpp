// SPDX-License-Identifier: MIT
#include "platform/DebugChannel.h"

#include "platform/DebugChannelHooks.h"

#include <cstdio>

namespace platform
{

static std::string* debugSink = nullptr;

void OutputDebugText(const char* text)
{
    if (!text)
        return;
    if (debugSink)
        *debugSink += text;
#ifndef NDEBUG
    else
        fputs(text, stderr);
#endif
}

void CollectDebugText(std::string* sink)
{
    debugSink = sink;
}

} // namespace platform
