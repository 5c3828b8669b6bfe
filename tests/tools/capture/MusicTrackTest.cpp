// SPDX-License-Identifier: MIT
#include "tools/capture/MusicTrack.h"

#include "tests/support/ShowFixture.h"
#include "tests/support/SoundFiles.h"

class CaptureMusic : public ShowFixture
{
protected:
    bool Open(const std::string& script) { return track.Open(script); }

    void AddTune(const std::string& name, const std::string& kind, double seconds)
    {
        const soundfiles::Kind& how = soundfiles::KindOf(kind);
        soundfiles::Write(PathOf(name), soundfiles::Tune(how.rate, how.channels, int(how.rate * seconds)),
                          how);
    }

    std::vector<float> Read(int count)
    {
        std::vector<float> samples(size_t(count) * 2);
        track.Read(reinterpret_cast<platform::StereoFrame*>(samples.data()), count);
        return samples;
    }

    capture::MusicTrack track;
};

TEST_F(CaptureMusic, IsEachSampleOfTheFileAndThenSilence)
{
    AddTune("tune.wav", "16bit.wav", 0.5);
    ASSERT_TRUE(Open("[MUSIC]FileName=tune.wav;")) << track.error;
    EXPECT_FALSE(track.IsSilent());
    std::vector<float> expected = soundfiles::Decode(PathOf("tune.wav"));
    expected.resize(2 * 30000, 0.0f);
    EXPECT_TRUE(expected == Read(30000));
    EXPECT_TRUE(std::vector<float>(200, 0.0f) == Read(100));
}

TEST_F(CaptureMusic, BeginsAtAnySampleOfACompressedFileToo)
{
    AddTune("tune.ogg", "vorbis.ogg", 3);
    ASSERT_TRUE(Open("[MUSIC]FileName=tune.ogg;"));
    const std::vector<float> all = Read(3 * 44100);
    for (int64_t start : {0, 1, 12345, 44100, 100001, 131000}) {
        track.Seek(start);
        EXPECT_TRUE(std::vector<float>(all.begin() + 2 * start, all.begin() + 2 * start + 600) == Read(300))
            << start;
    }
}

TEST_F(CaptureMusic, ComesAtTheRateOfTheShowWhateverThatOfTheFile)
{
    AddTune("tune.wav", "studio.wav", 1); // 48000 Hz
    ASSERT_TRUE(Open("[MUSIC]FileName=tune.wav;"));
    const std::vector<float> all = Read(44200);
    EXPECT_NE(0.0f, all[2 * 44098]);
    EXPECT_EQ(0.0f, all[2 * 44101]);
}

TEST_F(CaptureMusic, NeverLeavesFullScale)
{
    soundfiles::Write(PathOf("loud.wav"), std::vector<float>{1.5f, -3.0f, 0.25f, -0.5f},
                      soundfiles::KindOf("float.wav"));
    ASSERT_TRUE(Open("[MUSIC]FileName=loud.wav;"));
    EXPECT_EQ((std::vector<float>{1.0f, -1.0f, 0.25f, -0.5f}), Read(2));
}

TEST_F(CaptureMusic, IsThatOfTheLastBlockAsInTheShow)
{
    AddTune("one.wav", "16bit.wav", 0.1);
    soundfiles::Write(PathOf("two.wav"), std::vector<float>{0.5f, -0.5f}, soundfiles::KindOf("float.wav"));
    ASSERT_TRUE(Open("[MUSIC]FileName=one.wav;[EFFECT]FileName=no.wav;[MUSIC]FileName=two.wav"));
    EXPECT_EQ((std::vector<float>{0.5f, -0.5f, 0.0f, 0.0f}), Read(2));
}

TEST_F(CaptureMusic, IsSilenceWhereAScriptHasNone)
{
    for (const char* script : {"", "[EFFECT]EffectName=x;"}) {
        ASSERT_TRUE(Open(script));
        EXPECT_TRUE(track.IsSilent());
    }
    track.Seek(7);
    EXPECT_EQ((std::vector<float>{0.0f, 0.0f}), Read(1));
}

TEST_F(CaptureMusic, ThatCanNotBeOpenedIsAnErrorInEveryBlock)
{
    AddTune("one.wav", "16bit.wav", 0.1);
    EXPECT_FALSE(Open("[MUSIC]FileName=gone.ogg;[MUSIC]FileName=one.wav;"));
    EXPECT_EQ("the music can't be opened: " + PathOf("gone.ogg"), track.error);
}
