// SPDX-License-Identifier: MIT
// The start of the sound system, its channels and its pause. Its streams are in SoundSystemStreamTest.cpp.
#include "music/SoundSystem.h"
#include "music/SoundSystemHooks.h"

#include "platform/SoundOutput.h"
#include "platform/SoundOutputHooks.h"
#include "tests/music/SoundSystemFixture.h"
#include "tests/support/WithoutNewThreads.h"

// The start: no stream, and no output that would stay open from one case to the next.
class SoundSystemStart : public testing::Test
{
protected:
    SoundSystemStart() { platform::UseSoundOutput(platform::SoundPulledByHand); }
};

TEST_F(SoundSystemStart, TheVersionIsNewEnough)
{
    EXPECT_EQ(3.75f, SoundSystem::GetVersion());
}

TEST_F(SoundSystemStart, TheVersionCanBePretended)
{
    PretendSoundVersion(3.5f);
    EXPECT_EQ(3.5f, SoundSystem::GetVersion());
}

TEST_F(SoundSystemStart, NeedsTheDefaultDriverToBeChosenFirst)
{
    EXPECT_FALSE(SoundSystem::Init(44100, 32, 0));
    for (int driver : {0, 2, -1}) {
        SoundSystem::SetDriver(driver);
        EXPECT_FALSE(SoundSystem::Init(44100, 32, 0)) << driver;
    }
    SoundSystem::SetDriver(1);
    EXPECT_TRUE(SoundSystem::Init(44100, 32, 0));
}

TEST_F(SoundSystemStart, RefusesWhatItCannotDo)
{
    SoundSystem::SetDriver(1);
    EXPECT_FALSE(SoundSystem::Init(7999, 32, 0));
    EXPECT_FALSE(SoundSystem::Init(192001, 32, 0));
    EXPECT_FALSE(SoundSystem::Init(44100, 0, 0));
    EXPECT_FALSE(SoundSystem::Init(44100, 1025, 0));
    EXPECT_FALSE(SoundSystem::Init(44100, 32, 1));
    EXPECT_TRUE(SoundSystem::Init(44100, 1024, 0));
}

TEST_F(SoundSystemStart, TakesTheLowestRateAndOneChannel)
{
    SoundSystem::SetDriver(1);
    EXPECT_TRUE(SoundSystem::Init(8000, 1, 0));
}

TEST_F(SoundSystemStart, TakesTheHighestRate)
{
    SoundSystem::SetDriver(1);
    EXPECT_TRUE(SoundSystem::Init(192000, 32, 0));
}

TEST_F(SoundSystemStart, FailsWithoutAnOutputAndCanBeTriedAgain)
{
    SoundSystem::SetDriver(1);
    platform::UseSoundOutput(platform::SoundMissing);
    EXPECT_FALSE(SoundSystem::Init(44100, 32, 0));
    platform::UseSoundOutput(platform::SoundPulledByHand);
    EXPECT_TRUE(SoundSystem::Init(44100, 32, 0));
}

TEST_F(SoundSystemStart, FailsWhereTheSystemRefusesTheDecodersThread)
{
    WithoutNewThreads([] {
        SoundSystem::SetDriver(1);
        EXPECT_FALSE(SoundSystem::Init(44100, 32, 0));
        EXPECT_FALSE(SoundSystem::Init(44100, 32, 0));
        platform::StereoFrame frames[64];
        std::fill_n(frames, 64, platform::StereoFrame{1, 1});
        platform::PullSound(frames, 64, false);
        for (const platform::StereoFrame& frame : frames) {
            EXPECT_EQ(0, frame.left);
            EXPECT_EQ(0, frame.right);
        }
    });
}

TEST_F(SoundSystemStart, HappensOnce)
{
    SoundSystem::SetDriver(1);
    EXPECT_TRUE(SoundSystem::Init(44100, 32, 0));
    EXPECT_TRUE(SoundSystem::Init(44100, 32, 0));
    EXPECT_TRUE(SoundSystem::Init(1, 0, 7)) << "whatever it is told by then";
}

TEST_F(SoundSystemStart, BeforeItNothingWorksAndNothingHappens)
{
    const std::string path = soundfiles::Make(soundfiles::KindOf("16bit.wav"), 0.1);
    EXPECT_EQ(nullptr, SoundSystem::OpenStream(path, mode, 0, 0));
    EXPECT_EQ(-1, SoundSystem::PlayStream(-1, nullptr));
    EXPECT_FALSE(SoundSystem::SetStreamTime(nullptr, 0));
    EXPECT_EQ(0, SoundSystem::GetStreamTime(nullptr));
    EXPECT_FALSE(SoundSystem::StopStream(nullptr));
    EXPECT_FALSE(SoundSystem::CloseStream(nullptr));
    EXPECT_FALSE(SoundSystem::SetPaused(-3, true));
    EXPECT_FALSE(SoundSystem::GetPaused(-3));
    SoundSystem::SetBufferSize(2000);
}

TEST_F(SoundSystemStart, TheOutputRunsAtTheGivenRate)
{
    const std::string path = soundfiles::Make(soundfiles::KindOf("16bit.wav"), 2.0);
    SoundSystem::SetDriver(1);
    ASSERT_TRUE(SoundSystem::Init(22050, 32, 0));
    SoundStream* stream = SoundSystem::OpenStream(path, mode, 0, 0);
    SoundSystem::PlayStream(-1, stream);
    Pull(22050);
    EXPECT_EQ(1000, SoundSystem::GetStreamTime(stream));
    Pull(22049);
    EXPECT_FALSE(IsSilent(Pull(1)));
    EXPECT_TRUE(IsSilent(Pull(1000)));
}

TEST_F(SoundSystemStart, EveryCallIsNotedWithItsArguments)
{
    std::vector<std::string> calls;
    CollectSoundCalls(&calls);
    SoundSystem::GetVersion();
    SoundSystem::SetDriver(1);
    SoundSystem::Init(44100, 32, 0);
    SoundSystem::Init(1, 0, 7);
    SoundSystem::SetBufferSize(500);
    SoundSystem::OpenStream("nowhere.wav", 0x20041, 1, 2);
    SoundSystem::PlayStream(-1, nullptr);
    SoundSystem::SetStreamTime(nullptr, 7);
    SoundSystem::GetStreamTime(nullptr);
    SoundSystem::StopStream(nullptr);
    SoundSystem::CloseStream(nullptr);
    SoundSystem::GetPaused(-3);
    SoundSystem::SetPaused(-3, true);
    SoundSystem::SetPaused(-2, false);
    CollectSoundCalls(nullptr);
    SoundSystem::GetVersion();
    EXPECT_EQ((std::vector<std::string>{
                  "GetVersion", "SetDriver 1", "Init 44100 32 0", "Init 1 0 7", "SetBufferSize 500",
                  "OpenStream nowhere.wav 0x20041 1 2", "PlayStream -1", "SetStreamTime 7", "GetStreamTime",
                  "StopStream", "CloseStream", "GetPaused -3", "SetPaused -3 true", "SetPaused -2 false"}),
              calls);
}

TEST(SoundSystemChannels, AreAsManyAsInitWasTold)
{
    StartHandPulledSound(3);
    const std::string path = soundfiles::Make(soundfiles::KindOf("mono.wav"), 1.0);
    std::vector<SoundStream*> streams;
    for (int i = 0; i < 4; ++i)
        streams.push_back(SoundSystem::OpenStream(path, mode, 0, 0));
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(i, SoundSystem::PlayStream(-1, streams[i]));
    EXPECT_EQ(-1, SoundSystem::PlayStream(-1, streams[3]));
    EXPECT_EQ(0, SoundSystem::GetStreamTime(streams[3]));
    Pull(1000);
    EXPECT_EQ(0, SoundSystem::GetStreamTime(streams[3]));

    // A channel is free when its stream has stopped and the device knows it.
    SoundSystem::StopStream(streams[1]);
    EXPECT_EQ(-1, SoundSystem::PlayStream(-1, streams[3]));
    Pull(1);
    EXPECT_EQ(1, SoundSystem::PlayStream(-1, streams[3]));
    EXPECT_EQ(-1, SoundSystem::PlayStream(-1, streams[1]));

    // Or when it is closed.
    SoundSystem::CloseStream(streams[2]);
    EXPECT_TRUE(Eventually([&] {
        Pull(1);
        return SoundSystem::PlayStream(-1, streams[1]) == 2;
    }));
}

TEST(SoundSystemChannels, APausedStreamKeepsItsChannel)
{
    StartHandPulledSound(1);
    const std::string path = soundfiles::Make(soundfiles::KindOf("mono.wav"), 1.0);
    SoundSystem::PlayStream(-1, SoundSystem::OpenStream(path, mode, 0, 0));
    SoundSystem::SetPaused(-3, true);
    Pull(1000);
    EXPECT_EQ(-1, SoundSystem::PlayStream(-1, SoundSystem::OpenStream(path, mode, 0, 0)));
}

class SoundSystemPause : public SoundSystemFixture
{
};

TEST_F(SoundSystemPause, AllChannelsPauseAndResumeWithoutLosingAFrame)
{
    EXPECT_FALSE(SoundSystem::GetPaused(-3));
    SoundSystem::PlayStream(-1, stream);
    ExpectTune(Pull(1000), 0);
    EXPECT_TRUE(SoundSystem::SetPaused(-3, true));
    EXPECT_TRUE(SoundSystem::GetPaused(-3));
    Pull(fade);
    EXPECT_TRUE(IsSilent(Pull(10000)));
    EXPECT_TRUE(SoundSystem::SetPaused(-3, false));
    EXPECT_FALSE(SoundSystem::GetPaused(-3));
    Pull(fade);
    ExpectTune(Pull(1000), 1000 + 2 * fade);
}

TEST_F(SoundSystemPause, ThePauseKnowsNoSingleChannels)
{
    SoundSystem::PlayStream(-1, stream);
    for (int channel : {0, 1, -1, -2, -4}) {
        EXPECT_FALSE(SoundSystem::SetPaused(channel, true)) << channel;
        EXPECT_FALSE(SoundSystem::GetPaused(-3));
    }
    SoundSystem::SetPaused(-3, true);
    for (int channel : {0, 1, -1, -2, -4})
        EXPECT_FALSE(SoundSystem::GetPaused(channel)) << channel;
}

TEST_F(SoundSystemPause, APauseOutlastsStopAndPlay)
{
    SoundSystem::SetPaused(-3, true);
    SoundSystem::PlayStream(-1, stream);
    EXPECT_TRUE(IsSilent(Pull(1000)));
    SoundSystem::SetPaused(-3, false);
    ExpectTune(Pull(1000), 0);
}
