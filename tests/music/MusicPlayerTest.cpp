// SPDX-License-Identifier: MIT
#include "music/MusicPlayer.h"

#include "music/SoundSystem.h"
#include "music/SoundSystemHooks.h"
#include "platform/Paths.h"
#include "platform/SoundOutputHooks.h"
#include "tests/support/SoundFiles.h"
#include "tests/support/SoundPulls.h"

#include <gtest/gtest.h>

#include <chrono>
#include <climits>
#include <cmath>
#include <filesystem>
#include <thread>

static const int fade = 220; // frames
typedef std::vector<std::string> Calls;

// A data directory with two pieces of stereo: "waltz.wav" of 3 seconds and "polka.wav" of 1 second.
class MusicPlayerTest : public testing::Test
{
protected:
    MusicPlayerTest()
    {
        platform::UseSoundOutput(platform::SoundPulledByHand);
        folder = soundfiles::TemporaryPath("MusicPlayerTest");
        std::filesystem::create_directories(folder);
        platform::SetDataDirectory(folder);
        const soundfiles::Kind& kind = soundfiles::KindOf("16bit.wav");
        soundfiles::Write(folder + "/waltz.wav", soundfiles::Tune(44100, 2, 3 * 44100), kind);
        soundfiles::Write(folder + "/polka.wav", soundfiles::Tune(40000, 2, 44100), kind);
        waltz = soundfiles::Decode(folder + "/waltz.wav");
        polka = soundfiles::Decode(folder + "/polka.wav");
        CollectSoundCalls(&calls);
    }
    ~MusicPlayerTest() override { CollectSoundCalls(nullptr); }

    // The calls since the last time.
    Calls TakeCalls()
    {
        Calls taken;
        taken.swap(calls);
        return taken;
    }
    void OpenWaltz()
    {
        ASSERT_TRUE(player.Init());
        ASSERT_TRUE(player.Open("waltz.wav"));
        calls.clear();
    }
    static void ExpectMusic(const std::vector<float>& piece, size_t position, const std::vector<float>& heard)
    {
        for (size_t i = 0; i < heard.size(); ++i)
            ASSERT_EQ(position * 2 + i < piece.size() ? piece[position * 2 + i] : 0.0f, heard[i]) << i;
    }

    std::string folder;
    std::vector<float> waltz;
    std::vector<float> polka;
    Calls calls;
    MusicPlayer player;
};

TEST_F(MusicPlayerTest, InitAsksTheVersionChoosesTheDriverStartsAndThenSetsTheBuffer)
{
    EXPECT_TRUE(player.Init());
    EXPECT_EQ((Calls{"GetVersion", "SetDriver 1", "Init 44100 32 0", "SetBufferSize 20000"}), TakeCalls());
}

TEST_F(MusicPlayerTest, ASoundSystemOlderThan37FailsBeforeAnythingElse)
{
    PretendSoundVersion(std::nextafterf(3.7f, 0.0f));
    EXPECT_FALSE(player.Init());
    EXPECT_EQ((Calls{"GetVersion"}), TakeCalls());
    PretendSoundVersion(3.0f);
    EXPECT_FALSE(player.Init());
}

TEST_F(MusicPlayerTest, Version37IsNewEnough)
{
    PretendSoundVersion(3.7f);
    EXPECT_TRUE(player.Init());
}

TEST_F(MusicPlayerTest, ANewerVersionIsNewEnough)
{
    PretendSoundVersion(4.0f);
    EXPECT_TRUE(player.Init());
}

TEST_F(MusicPlayerTest, WithoutASoundDeviceInitFailsAndSetsNoBuffer)
{
    platform::UseSoundOutput(platform::SoundMissing);
    EXPECT_FALSE(player.Init());
    EXPECT_EQ((Calls{"GetVersion", "SetDriver 1", "Init 44100 32 0"}), TakeCalls());
}

TEST_F(MusicPlayerTest, OpenLooksInTheDataDirectory)
{
    ASSERT_TRUE(player.Init());
    TakeCalls();
    EXPECT_TRUE(player.Open("waltz.wav"));
    EXPECT_EQ((Calls{"OpenStream " + folder + "/waltz.wav 0x20041 0 0"}), TakeCalls());
}

TEST_F(MusicPlayerTest, OpenSaysWhetherThereIsAStream)
{
    ASSERT_TRUE(player.Init());
    EXPECT_FALSE(player.Open("tango.wav"));
    EXPECT_FALSE(player.Open(""));
    TakeCalls();
    player.Play();
    EXPECT_EQ(Calls{}, TakeCalls());
}

TEST_F(MusicPlayerTest, AFailedOpenForgetsTheStreamAsWell)
{
    OpenWaltz();
    EXPECT_FALSE(player.Open("tango.wav"));
    TakeCalls();
    player.Play();
    EXPECT_EQ(Calls{}, TakeCalls());
    EXPECT_EQ(0.0f, player.GetTime());
    EXPECT_TRUE(IsSilent(Pull(1000)));
}

TEST_F(MusicPlayerTest, WithoutAStreamNothingIsAskedOfTheSoundSystem)
{
    player.Play();
    player.SetTime(100);
    player.Stop();
    player.Close();
    player.Rewind(100);
    player.Forward(100);
    player.Pause();
    EXPECT_EQ(0.0f, player.GetTime());
    EXPECT_EQ(Calls{}, TakeCalls());
}

TEST_F(MusicPlayerTest, PlayAsksForThePauseAndPlaysOnAnyChannel)
{
    OpenWaltz();
    player.Play();
    EXPECT_EQ((Calls{"GetPaused -3", "PlayStream -1"}), TakeCalls());
    ExpectMusic(waltz, 0, Pull(5000));
}

TEST_F(MusicPlayerTest, PlayEndsThePauseFirst)
{
    OpenWaltz();
    player.Play();
    player.Pause();
    TakeCalls();
    player.Play();
    EXPECT_EQ((Calls{"GetPaused -3", "SetPaused -3 false", "PlayStream -1"}), TakeCalls());
}

TEST_F(MusicPlayerTest, PauseHoldsTheMusicAndPlayResumesItExactly)
{
    OpenWaltz();
    player.Play();
    ExpectMusic(waltz, 0, Pull(1000));
    TakeCalls();
    player.Pause();
    EXPECT_EQ((Calls{"SetPaused -3 true"}), TakeCalls());
    Pull(fade);
    EXPECT_TRUE(IsSilent(Pull(5000)));
    player.Play();
    Pull(fade);
    ExpectMusic(waltz, 1000 + 2 * fade, Pull(5000));
}

TEST_F(MusicPlayerTest, SetTimeSeeksToTheExactFrame)
{
    OpenWaltz();
    player.Play();
    TakeCalls();
    player.SetTime(1234);
    EXPECT_EQ((Calls{"SetStreamTime 1234"}), TakeCalls());
    Pull(fade);
    ExpectMusic(waltz, 54419 + fade, Pull(5000)); // 54419.4
}

TEST_F(MusicPlayerTest, PlayAndThenSeekToTheStartIsTheWholePiece)
{
    OpenWaltz();
    player.Play();
    player.SetTime(0);
    ExpectMusic(waltz, 0, Pull(4 * 44100));
}

TEST_F(MusicPlayerTest, PlayAndThenSeekMayLetTheStartBeHeardButNeverClicks)
{
    OpenWaltz();
    player.Play();
    std::vector<float> heard = Pull(500); // the device was quicker than the caller
    ExpectMusic(waltz, 0, heard);
    player.SetTime(2000);
    const std::vector<float> ramp = Pull(fade);
    heard.insert(heard.end(), ramp.begin(), ramp.end());
    ExpectMusic(waltz, 88200 + fade, Pull(5000));
    EXPECT_LT(LargestStep(heard), 2 * LargestStep(waltz));
}

TEST_F(MusicPlayerTest, StopStopsTheStream)
{
    OpenWaltz();
    player.Play();
    Pull(1000);
    TakeCalls();
    player.Stop();
    EXPECT_EQ((Calls{"StopStream"}), TakeCalls());
    Pull(fade);
    EXPECT_TRUE(IsSilent(Pull(1000)));
}

TEST_F(MusicPlayerTest, ThereIsNoClickAtStartStopPauseAndSeek)
{
    OpenWaltz();
    std::vector<float> heard;
    const auto hear = [&](int frames) {
        const std::vector<float> more = Pull(frames);
        heard.insert(heard.end(), more.begin(), more.end());
    };
    hear(100);
    player.SetTime(700);
    player.Play();
    hear(3000);
    for (int time : {100, 1400, 2100, 50, 51, 52, 2900}) {
        player.SetTime(time);
        hear(777);
    }
    player.Pause();
    hear(1000);
    player.Play();
    hear(1000);
    player.Stop();
    hear(1000);
    // Two places that cross may move the sum twice as fast as each of them.
    EXPECT_LT(LargestStep(heard), 2 * LargestStep(waltz));
}

TEST_F(MusicPlayerTest, CloseStopsThenClosesAndNothingIsLeft)
{
    OpenWaltz();
    player.Play();
    Pull(1000);
    TakeCalls();
    player.Close();
    EXPECT_EQ((Calls{"StopStream", "CloseStream"}), TakeCalls());
    player.Close();
    player.Play();
    EXPECT_EQ(0.0f, player.GetTime());
    EXPECT_EQ(Calls{}, TakeCalls());
    Pull(fade);
    EXPECT_TRUE(IsSilent(Pull(1000)));
}

TEST_F(MusicPlayerTest, RewindGoesBackAsFarAsTheStart)
{
    OpenWaltz();
    player.Play();
    player.SetTime(1500);
    TakeCalls();
    player.Rewind(600);
    EXPECT_EQ((Calls{"GetStreamTime", "SetStreamTime 900"}), TakeCalls());
    player.Rewind(900);
    EXPECT_EQ((Calls{"GetStreamTime", "SetStreamTime 0"}), TakeCalls());
    player.Rewind(1);
    EXPECT_EQ((Calls{"GetStreamTime", "SetStreamTime 0"}), TakeCalls());
    player.SetTime(1);
    TakeCalls();
    player.Rewind(INT_MAX);
    EXPECT_EQ((Calls{"GetStreamTime", "SetStreamTime 0"}), TakeCalls());
}

TEST_F(MusicPlayerTest, ForwardGoesOnAndWithANegativeWayBackAsFarAsTheStart)
{
    OpenWaltz();
    player.Play();
    player.SetTime(500);
    TakeCalls();
    player.Forward(700);
    EXPECT_EQ((Calls{"GetStreamTime", "SetStreamTime 1200"}), TakeCalls());
    player.Forward(-200);
    EXPECT_EQ((Calls{"GetStreamTime", "SetStreamTime 1000"}), TakeCalls());
    player.Forward(-1001);
    EXPECT_EQ((Calls{"GetStreamTime", "SetStreamTime 0"}), TakeCalls());
}

TEST_F(MusicPlayerTest, AWayBeyondAllNumbersEndsAtTheLargest)
{
    OpenWaltz();
    player.SetTime(10);
    player.Forward(INT_MAX);
    EXPECT_EQ(2147483.75f, player.GetTime()); // INT_MAX milliseconds
    player.Rewind(INT_MIN);
    EXPECT_EQ(2147483.75f, player.GetTime()); // INT_MAX milliseconds
    player.Forward(INT_MIN);
    EXPECT_EQ(0.0f, player.GetTime());
}

TEST_F(MusicPlayerTest, RewindAndForwardAreHeard)
{
    OpenWaltz();
    player.Play();
    Pull(44100);
    player.Rewind(600);
    Pull(fade);
    ExpectMusic(waltz, 17640 + fade, Pull(22050 - fade));
    player.Forward(1000); // from 900 ms
    Pull(fade);
    ExpectMusic(waltz, 83790 + fade, Pull(1000));
}

TEST_F(MusicPlayerTest, TheTimeIsInSeconds)
{
    OpenWaltz();
    EXPECT_EQ(0.0f, player.GetTime());
    player.Play();
    Pull(22050);
    EXPECT_EQ(0.5f, player.GetTime());
    player.SetTime(1001);
    EXPECT_EQ(1.001f, player.GetTime());
    TakeCalls();
    player.GetTime();
    EXPECT_EQ((Calls{"GetStreamTime"}), TakeCalls());
}

TEST_F(MusicPlayerTest, OfTwoFilesOnlyTheLastIsPlayedAndTheFirstStaysOpenAndSilent)
{
    OpenWaltz();
    ASSERT_TRUE(player.Open("polka.wav"));
    EXPECT_EQ((Calls{"OpenStream " + folder + "/polka.wav 0x20041 0 0"}), TakeCalls());
    player.Play();
    ExpectMusic(polka, 0, Pull(2 * 44100));
    EXPECT_NE(-1, ReadPositionOf(folder + "/waltz.wav"));
}

TEST_F(MusicPlayerTest, MusicShorterThanTheShowStopsByItself)
{
    OpenWaltz();
    player.Play();
    ExpectMusic(waltz, 0, Pull(3 * 44100));
    EXPECT_TRUE(IsSilent(Pull(20 * 44100)));
    EXPECT_EQ(3.0f, player.GetTime());
    player.Stop();
}

TEST_F(MusicPlayerTest, ASeekPastTheEndIsSilentAndHarmless)
{
    OpenWaltz();
    player.Play();
    player.SetTime(3001);
    EXPECT_TRUE(IsSilent(Pull(44100)));
    EXPECT_EQ(3.001f, player.GetTime());
    player.SetTime(INT_MAX);
    EXPECT_TRUE(IsSilent(Pull(44100)));
    player.SetTime(1000);
    Pull(fade);
    ExpectMusic(waltz, 44100 + fade, Pull(1000));
}

TEST_F(MusicPlayerTest, ANegativeOffsetStartsAtTheStart)
{
    OpenWaltz();
    player.Play();
    player.SetTime(-5000);
    ExpectMusic(waltz, 0, Pull(1000));
}

TEST_F(MusicPlayerTest, TheMusicOutlivesItsPlayer)
{
    {
        MusicPlayer shortLived;
        ASSERT_TRUE(shortLived.Init());
        ASSERT_TRUE(shortLived.Open("waltz.wav"));
        shortLived.Play();
        TakeCalls();
    }
    EXPECT_EQ(Calls{}, TakeCalls());
    ExpectMusic(waltz, 0, Pull(3 * 44100));
}

TEST_F(MusicPlayerTest, TheBufferHoldsTwentySeconds)
{
    const std::string path = folder + "/long.wav";
    soundfiles::Write(path, soundfiles::Tune(44100, 2, 25 * 44100), soundfiles::KindOf("16bit.wav"));
    ASSERT_TRUE(player.Init());
    ASSERT_TRUE(player.Open("long.wav"));
    player.Play();
    Pull(1);
    const long expected = 44 + 861 * 1024 * 4; // the header, and the pieces within 882000 frames
    EXPECT_TRUE(Eventually([&] { return ReadPositionOf(path) >= expected; }));
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(expected, ReadPositionOf(path));
}

TEST_F(MusicPlayerTest, ThirtyTwoPiecesCanSoundAtOnce)
{
    ASSERT_TRUE(player.Init());
    for (int i = 0; i < 33; ++i) {
        ASSERT_TRUE(player.Open("waltz.wav"));
        player.Play();
    }
    EXPECT_FALSE(IsSilent(Pull(1000)));
    player.SetTime(500); // the 33rd found no channel
    EXPECT_EQ(0.5f, player.GetTime());
    Pull(1000);
    EXPECT_EQ(0.5f, player.GetTime());
}
