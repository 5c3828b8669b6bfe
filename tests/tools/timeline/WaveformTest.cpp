// SPDX-License-Identifier: MIT
#include "tools/timeline/Waveform.h"

#include "tests/support/SoundFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace timeline;

TEST(TimelineWaveform, ItsSwingsAreThoseOfTheSamples)
{
    const int frames = 44100 * 3 + 100;
    const std::vector<float> tune = soundfiles::Tune(44100, 2, frames);
    const std::string path = soundfiles::TemporaryPath("tune.wav");
    soundfiles::Write(path, tune, soundfiles::KindOf("float.wav"));
    Waveform wave;
    ASSERT_TRUE(wave.Read(path));
    EXPECT_NEAR(frames / 44100.0, wave.Length(), 1e-9);
    ASSERT_EQ(301u, wave.swings.size());
    for (size_t i = 0; i < wave.swings.size(); i++) {
        float peak = 0;
        double squares = 0;
        const size_t first = i * 441 * 2, end = std::min(first + 441 * 2, tune.size());
        for (size_t k = first; k < end; k++) {
            peak = std::max(peak, std::fabs(tune[k]));
            squares += double(tune[k]) * double(tune[k]);
        }
        EXPECT_FLOAT_EQ(peak, wave.swings[i].peak) << i;
        EXPECT_NEAR(std::sqrt(squares / double(end - first)), wave.swings[i].loudness, 1e-5) << i;
    }
}

TEST(TimelineWaveform, EveryKindOfMusicHasItsLength)
{
    for (const soundfiles::Kind& kind : soundfiles::kinds) {
        if (kind.format == 0)
            continue; // a module has its length from its patterns
        const std::string path = soundfiles::Make(kind, 2);
        Waveform wave;
        ASSERT_TRUE(wave.Read(path)) << kind.name;
        // Compressed ones may be padded to whole packets: an MP3's are 26 ms each.
        EXPECT_NEAR(2, wave.Length(), 0.08) << kind.name;
        EXPECT_GT(wave.Between(0.5, 1.5).peak, 0.05f) << kind.name;
    }
    Waveform module;
    ASSERT_TRUE(module.Read(soundfiles::Make(soundfiles::KindOf("waltz.mod"), 7)));
    EXPECT_NEAR(7.68, module.Length(), 0.12); // the last note rings on
}

TEST(TimelineWaveform, BetweenTakesTheLoudestPeakAndTheMeanPower)
{
    Waveform wave;
    wave.swings = {{0.1f, 0.1f}, {0.5f, 0.3f}, {0.2f, 0.2f}, {0.9f, 0.4f}};
    EXPECT_FLOAT_EQ(0.5f, wave.Between(0, 0.03).peak);
    EXPECT_FLOAT_EQ(std::sqrt((0.01f + 0.09f + 0.04f) / 3), wave.Between(0, 0.03).loudness);
    EXPECT_FLOAT_EQ(0.9f, wave.Between(0.035, 0.036).peak);
    EXPECT_FLOAT_EQ(0.9f, wave.Between(0.03, 5).peak);
    EXPECT_EQ(0, wave.Between(0.05, 1).peak);
    EXPECT_EQ(0, wave.Between(0.05, 1).loudness);
}

TEST(TimelineWaveform, WhatIsNoMusicIsRefused)
{
    Waveform wave;
    EXPECT_FALSE(wave.Read("/nowhere/tune.wav"));
    const std::string path = soundfiles::TemporaryPath("noise.ogg");
    soundfiles::WriteBytes(path, "OggS but not really");
    EXPECT_FALSE(wave.Read(path));
    EXPECT_TRUE(wave.Empty());
    EXPECT_EQ(0, wave.Length());
}
