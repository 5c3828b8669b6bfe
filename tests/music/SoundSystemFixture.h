// SPDX-License-Identifier: MIT
// For tests that play streams of the sound system on an output that is pulled by hand.
#pragma once

#include "music/SoundSystem.h"
#include "tests/support/SoundFiles.h"
#include "tests/support/SoundPulls.h"

#include <gtest/gtest.h>

inline constexpr unsigned mode = 0x20041; // the one in which streams are opened
inline constexpr int fade = 220;          // frames of the ramp after a seek, a stop or a pause

// An open stream of 3 seconds of mono.
class SoundSystemFixture : public testing::Test
{
protected:
    void SetUp() override
    {
        StartHandPulledSound();
        path = soundfiles::Make(soundfiles::KindOf("mono.wav"), 3.0);
        for (const float sample : soundfiles::Decode(path))
            tune.insert(tune.end(), 2, sample);
        stream = SoundSystem::OpenStream(path, mode, 0, 0);
        ASSERT_NE(nullptr, stream);
    }

    // What was pulled is the tune from this frame on.
    void ExpectTune(const std::vector<float>& heard, size_t position)
    {
        for (size_t i = 0; i < heard.size(); ++i)
            ASSERT_EQ(tune.at(position * 2 + i), heard[i]) << "sample " << i;
    }

    std::string path;
    std::vector<float> tune; // stereo
    SoundStream* stream = nullptr;
};
