// SPDX-License-Identifier: MIT
#include "art/music/SoundFile.h"

#include "art/music/Verify.h"
#include "art/music/WhiteNoise.h"

#include "tests/support/ReadFile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <unistd.h>

using namespace waltz;

class SoundFiles : public testing::Test
{
protected:
    SoundFiles() : sound(0, sampleRate), folder(testing::TempDir() + "sound-" + std::to_string(getpid()))
    {
        std::filesystem::create_directories(folder);
        WhiteNoise noise(7);
        for (int64_t i = 0; i < sound.Size(); i++) {
            sound.left[i] = 0.3f * SineOfTurns(440.0 * double(i) / sampleRate) + 0.01f * noise.White();
            sound.right[i] = 0.3f * SineOfTurns(660.0 * double(i) / sampleRate);
        }
    }
    ~SoundFiles() override { std::filesystem::remove_all(folder); }

    Stereo sound;
    std::string folder;
};

TEST_F(SoundFiles, WaveKeepsEverySample)
{
    ASSERT_TRUE(WriteWave(folder + "/a.wav", sound));
    Stereo again;
    ASSERT_TRUE(ReadSound(folder + "/a.wav", again));
    EXPECT_EQ(sound.left, again.left);
    EXPECT_EQ(sound.right, again.right);
}

TEST_F(SoundFiles, VorbisKeepsLengthAndSoundAndIsTheSameBytesEveryTime)
{
    ASSERT_TRUE(WriteVorbis(folder + "/a.ogg", sound));
    ASSERT_TRUE(WriteVorbis(folder + "/b.ogg", sound));
    EXPECT_EQ(ReadFile(folder + "/a.ogg"), ReadFile(folder + "/b.ogg"));
    Stereo again;
    ASSERT_TRUE(ReadSound(folder + "/a.ogg", again));
    EXPECT_EQ(sound.Size(), again.Size());
    EXPECT_GT(Compare(sound, again).worst, nearness);
}

TEST_F(SoundFiles, WhatCannotBeReadOrWrittenIsTold)
{
    Stereo none;
    EXPECT_FALSE(ReadSound(folder + "/missing.ogg", none));
    std::ofstream(folder + "/text.ogg") << "no sound";
    EXPECT_FALSE(ReadSound(folder + "/text.ogg", none));
    EXPECT_FALSE(WriteWave(folder + "/no/such/a.wav", sound));
    EXPECT_FALSE(WriteVorbis(folder + "/no/such/a.ogg", sound));
}
