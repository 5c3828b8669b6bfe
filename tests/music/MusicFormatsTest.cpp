// SPDX-License-Identifier: MIT
// What is heard of a file, of every kind, against the same file decoded by the libraries alone.
#include "music/Resampler.h"
#include "music/SoundSystem.h"
#include "tests/support/SoundFiles.h"
#include "tests/support/SoundPulls.h"

#include <gtest/gtest.h>

#include <cmath>

static const unsigned mode = 0x20041;
static const int fadeFrames = 220; // 5 ms

// The file in stereo at 44100 Hz: the channels of mono doubled, other rates by the formula of the resampler.
static std::vector<float> ExpectedSound(const std::string& path, const soundfiles::Kind& kind)
{
    if (kind.format == 0)
        return soundfiles::Render(path);
    const std::vector<float> decoded = soundfiles::Decode(path);
    std::vector<float> stereo;
    for (size_t i = 0; i < decoded.size(); i += size_t(kind.channels)) {
        stereo.push_back(decoded[i]);
        stereo.push_back(decoded[i + size_t(kind.channels) - 1]);
    }
    if (kind.rate == 44100)
        return stereo;
    Resampler resampler(kind.rate, 44100);
    const int64_t length = resampler.OutputLength(int64_t(stereo.size() / 2));
    std::vector<float> output(size_t(length) * 2);
    for (int64_t n = 0; n < length; ++n) {
        std::vector<StereoFrame> around;
        for (int64_t i = resampler.FirstInput(n); i <= resampler.LastInput(n); ++i) {
            const bool within = i >= 0 && i < int64_t(stereo.size() / 2);
            around.push_back(
                {within ? stereo[size_t(i) * 2] : 0.0f, within ? stereo[size_t(i) * 2 + 1] : 0.0f});
        }
        const StereoFrame frame = resampler.Interpolate(n, around.data());
        output[size_t(n) * 2] = frame.left;
        output[size_t(n) * 2 + 1] = frame.right;
    }
    return output;
}

class MusicFormats : public testing::TestWithParam<std::string>
{
protected:
    void SetUp() override
    {
        const soundfiles::Kind& kind = soundfiles::KindOf(GetParam());
        const std::string path = soundfiles::Make(kind, 8.0);
        expected = ExpectedSound(path, kind);
        frames = int(expected.size() / 2);
        ASSERT_GT(frames, 7 * 44100);
        StartHandPulledSound();
        stream = SoundSystem::OpenStream(path, mode, 0, 0);
        ASSERT_NE(nullptr, stream);
    }
    void TearDown() override
    {
        SoundSystem::CloseStream(stream);
        Pull(1024); // so that the next test in the same process finds silence
    }

    // The first frame from `first` on that isn't as expected, or -1.
    int FirstDifference(const std::vector<float>& heard, int position, int first)
    {
        for (int i = first; i < int(heard.size() / 2); ++i)
            for (int side = 0; side < 2; ++side) {
                const size_t at = size_t(position + i) * 2 + side;
                const float wanted = at < expected.size() ? expected[at] : 0.0f;
                if (heard[size_t(i) * 2 + side] != wanted)
                    return i;
            }
        return -1;
    }

    std::vector<float> expected;
    int frames = 0;
    SoundStream* stream = nullptr;
};

TEST_P(MusicFormats, EverySampleFromTheFirstToTheLastIsHeardAsItIsAndThenSilence)
{
    ASSERT_LE(0, SoundSystem::PlayStream(-1, stream));
    const int pieces[] = {1, 735, 1024, 4096, 44100};
    int position = 0;
    for (int i = 0; position < frames + 44100; ++i) {
        const std::vector<float> heard = Pull(pieces[i % 5]);
        ASSERT_EQ(-1, FirstDifference(heard, position, 0)) << "from frame " << position << " of " << frames;
        position += pieces[i % 5];
    }
}

TEST_P(MusicFormats, ASeekLandsOnTheExactFrame)
{
    ASSERT_LE(0, SoundSystem::PlayStream(-1, stream));
    // Back and forth, within what is buffered and beyond it.
    for (int time : {5000, 5001, 5013, 7400, 1, 0, 777, 7209, 2500, 2499, 3333, 6107, 15, 4531}) {
        ASSERT_TRUE(SoundSystem::SetStreamTime(stream, time));
        const int position = int(std::lround(time * 44.1));
        const std::vector<float> heard = Pull(3000);
        ASSERT_EQ(-1, FirstDifference(heard, position, fadeFrames)) << "at " << time << " ms";
    }
}

TEST_P(MusicFormats, AStartInTheMiddleIsExactFromItsFirstSampleOnButForTheRamp)
{
    for (int time : {1, 4321, 6789}) {
        SoundSystem::StopStream(stream);
        Pull(fadeFrames);
        ASSERT_TRUE(SoundSystem::SetStreamTime(stream, time));
        ASSERT_LE(0, SoundSystem::PlayStream(-1, stream));
        const int position = int(std::lround(time * 44.1));
        const std::vector<float> heard = Pull(fadeFrames + 1);
        for (int i = 0; i <= fadeFrames; ++i) {
            const float gain = i < fadeFrames ? float(i + 1) / 221.0f : 1.0f;
            EXPECT_EQ(expected[size_t(position + i) * 2] * gain, heard[size_t(i) * 2]) << i;
            EXPECT_EQ(expected[size_t(position + i) * 2 + 1] * gain, heard[size_t(i) * 2 + 1]) << i;
        }
    }
}

static std::vector<std::string> Names()
{
    std::vector<std::string> names;
    for (const soundfiles::Kind& kind : soundfiles::kinds)
        names.push_back(kind.name);
    return names;
}

static std::string TestName(const testing::TestParamInfo<std::string>& info)
{
    std::string name = info.param;
    name[name.find('.')] = '_';
    return name;
}

INSTANTIATE_TEST_SUITE_P(EveryKind, MusicFormats, testing::ValuesIn(Names()), TestName);
