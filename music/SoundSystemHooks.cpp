// SPDX-License-Identifier: MIT
#include "music/SoundSystemHooks.h"

static std::vector<std::string>* callSink = nullptr;
static float soundVersion = 3.75f;

void CollectSoundCalls(std::vector<std::string>* sink)
{
    callSink = sink;
}

void PretendSoundVersion(float version)
{
    soundVersion = version;
}

void NoteSoundCall(const std::string& call)
{
    if (callSink)
        callSink->push_back(call);
}

float SoundVersion()
{
    return soundVersion;
}
