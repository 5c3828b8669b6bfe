// SPDX-License-Identifier: MIT
// Files that are cut off, scribbled over or made of noise: they aren't opened, or something is heard, or
// nothing. What matters is that each is over soon, that no sample is beyond reason, and that the next file
// plays as if nothing had happened.
#include "music/SoundSystem.h"

#include "tests/support/ReadFile.h"
#include "tests/support/SoundFiles.h"
#include "tests/support/SoundPulls.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>

static const unsigned mode = 0x20041;

class BrokenMusic : public testing::TestWithParam<std::string>
{
protected:
    void SetUp() override
    {
        StartHandPulledSound();
        whole = ReadFile(soundfiles::Make(soundfiles::KindOf(GetParam()), 0.5));
        ASSERT_GT(whole.size(), 1000u);
        path = soundfiles::TemporaryPath("broken-" + GetParam());
    }
    uint32_t Random(size_t range)
    {
        random = random * 1664525u + 1013904223u;
        return uint32_t((uint64_t(random) * range) >> 32);
    }
    void Play(const std::string& bytes)
    {
        soundfiles::WriteBytes(path, bytes);
        SoundStream* stream = SoundSystem::OpenStream(path, mode, 0, 0);
        if (!stream)
            return;
        SoundSystem::PlayStream(-1, stream);
        ExpectReason(Pull(2000));
        for (int time : {300, 100, 499, 3000, 0}) {
            SoundSystem::SetStreamTime(stream, time);
            ExpectReason(Pull(2000));
        }
        SoundSystem::CloseStream(stream);
        Pull(512);
    }
    // Damaged numbers may be loud, but they are numbers.
    static void ExpectReason(const std::vector<float>& heard)
    {
        for (float sample : heard)
            ASSERT_TRUE(std::isfinite(sample));
    }
    void ExpectTheWholeFileToPlay()
    {
        soundfiles::WriteBytes(path, whole);
        SoundStream* stream = SoundSystem::OpenStream(path, mode, 0, 0);
        ASSERT_NE(nullptr, stream);
        SoundSystem::PlayStream(-1, stream);
        EXPECT_FALSE(IsSilent(Pull(10000)));
        SoundSystem::CloseStream(stream);
        Pull(512);
    }

    std::string path;
    std::string whole;
    uint32_t random = 12345;
};

TEST_P(BrokenMusic, CutOffAnywhere)
{
    for (size_t length = 0; length < 200; length += 7)
        Play(whole.substr(0, length));
    for (int i = 0; i < 25; ++i)
        Play(whole.substr(0, Random(whole.size())));
    ExpectTheWholeFileToPlay();
}

TEST_P(BrokenMusic, WithBytesThatTurnedIntoOthers)
{
    for (int i = 0; i < 60; ++i) {
        std::string bytes = whole;
        const size_t range = i % 2 == 0 ? 200 : bytes.size(); // the headers are where it hurts
        for (uint32_t count = 1 + Random(8); count > 0; --count)
            bytes[Random(std::min(range, bytes.size()))] = char(Random(256));
        Play(bytes);
    }
    ExpectTheWholeFileToPlay();
}

TEST_P(BrokenMusic, WithNumbersAtTheirLimits)
{
    for (int i = 0; i < 50; ++i) {
        std::string bytes = whole;
        const char value = i % 3 == 0 ? '\0' : i % 3 == 1 ? '\xFF' : '\x7F';
        const size_t from = Random(std::min<size_t>(bytes.size() - 8, 1200));
        for (size_t at = from; at < from + 4; ++at)
            bytes[at] = value;
        Play(bytes);
    }
    ExpectTheWholeFileToPlay();
}

TEST_P(BrokenMusic, WithARightHeaderAndThenNoise)
{
    for (int i = 0; i < 12; ++i) {
        std::string bytes = whole;
        for (size_t at = 4 + Random(200); at < bytes.size(); ++at)
            bytes[at] = char(Random(256));
        Play(bytes);
    }
    ExpectTheWholeFileToPlay();
}

static std::string TestName(const testing::TestParamInfo<std::string>& info)
{
    std::string name = info.param;
    name[name.find('.')] = '_';
    return name;
}

INSTANTIATE_TEST_SUITE_P(Files, BrokenMusic,
                         testing::Values("16bit.wav", "float.wav", "lossless.flac", "vorbis.ogg", "opus.opus",
                                         "constant.mp3", "variable.mp3", "waltz.mod"),
                         TestName);
