// SPDX-License-Identifier: MIT
// What can be done with a stream of the sound system: opened, played, set to a time, stopped and closed.
#include "music/SoundSystem.h"

#include "platform/SoundOutput.h"
#include "platform/SoundOutputHooks.h"
#include "tests/music/SoundSystemFixture.h"

#include <sys/stat.h>

#include <atomic>
#include <chrono>
#include <climits>
#include <thread>

class SoundSystemStream : public SoundSystemFixture
{
};

TEST_F(SoundSystemStream, OpensInTheOneModeAndWholeOnly)
{
    for (unsigned other :
         {0u, 0x1u, 0x40u, 0x41u, 0x20000u, 0x20001u, 0x20040u, 0x20043u, 0x20045u, 0x60041u})
        EXPECT_EQ(nullptr, SoundSystem::OpenStream(path, other, 0, 0)) << other;
    EXPECT_EQ(nullptr, SoundSystem::OpenStream(path, mode, 1, 0));
    EXPECT_EQ(nullptr, SoundSystem::OpenStream(path, mode, 0, 1));
    EXPECT_NE(nullptr, SoundSystem::OpenStream(path, mode, 0, 0));
}

TEST_F(SoundSystemStream, WhatIsNoMusicFileIsNotOpened)
{
    EXPECT_EQ(nullptr, SoundSystem::OpenStream("", mode, 0, 0));
    EXPECT_EQ(nullptr, SoundSystem::OpenStream("no/such/file.ogg", mode, 0, 0));
    EXPECT_EQ(nullptr, SoundSystem::OpenStream(testing::TempDir(), mode, 0, 0));
    const std::string text = soundfiles::TemporaryPath("text.ogg");
    soundfiles::WriteBytes(text, "la la la\n");
    EXPECT_EQ(nullptr, SoundSystem::OpenStream(text, mode, 0, 0));
    soundfiles::WriteBytes(text, "");
    EXPECT_EQ(nullptr, SoundSystem::OpenStream(text, mode, 0, 0));
}

TEST_F(SoundSystemStream, APipeIsNotWaitedFor)
{
    const std::string pipe = soundfiles::TemporaryPath("pipe.wav");
    ASSERT_EQ(0, mkfifo(pipe.c_str(), 0600));
    EXPECT_EQ(nullptr, SoundSystem::OpenStream(pipe, mode, 0, 0));
}

TEST_F(SoundSystemStream, IsSilentAndAtItsStartUntilItIsPlayed)
{
    EXPECT_TRUE(IsSilent(Pull(5000)));
    EXPECT_EQ(0, SoundSystem::GetStreamTime(stream));
    EXPECT_EQ(0, SoundSystem::PlayStream(-1, stream));
    ExpectTune(Pull(5000), 0);
}

TEST_F(SoundSystemStream, PlaysOnAFreeChannelOnly)
{
    for (int channel : {0, 1, -2, -3, 31})
        EXPECT_EQ(-1, SoundSystem::PlayStream(channel, stream)) << channel;
    EXPECT_TRUE(IsSilent(Pull(1000)));
}

TEST_F(SoundSystemStream, TheTimeIsThatOfTheNextSampleToTheNearest)
{
    SoundSystem::PlayStream(-1, stream);
    Pull(22);
    EXPECT_EQ(0, SoundSystem::GetStreamTime(stream));
    Pull(1);
    EXPECT_EQ(1, SoundSystem::GetStreamTime(stream));
    Pull(44100 - 23);
    EXPECT_EQ(1000, SoundSystem::GetStreamTime(stream));
}

TEST_F(SoundSystemStream, ASeekLandsOnTheNearestFrameHalvesUp)
{
    SoundSystem::PlayStream(-1, stream);
    Pull(1000);
    EXPECT_TRUE(SoundSystem::SetStreamTime(stream, 5));
    EXPECT_EQ(5, SoundSystem::GetStreamTime(stream));
    Pull(fade);
    ExpectTune(Pull(1000), 221 + fade);
    EXPECT_TRUE(SoundSystem::SetStreamTime(stream, 1007));
    EXPECT_EQ(1007, SoundSystem::GetStreamTime(stream));
    Pull(fade);
    ExpectTune(Pull(1000), 44409 + fade);
}

TEST_F(SoundSystemStream, ASeekBeforePlayIsWhereItStarts)
{
    EXPECT_TRUE(SoundSystem::SetStreamTime(stream, 2000));
    EXPECT_EQ(2000, SoundSystem::GetStreamTime(stream));
    EXPECT_TRUE(IsSilent(Pull(1000)));
    SoundSystem::PlayStream(-1, stream);
    Pull(fade);
    ExpectTune(Pull(1000), 88200 + fade);
}

TEST_F(SoundSystemStream, OfManySeeksTheLastCounts)
{
    SoundSystem::PlayStream(-1, stream);
    for (int time = 0; time < 2500; time += 7)
        SoundSystem::SetStreamTime(stream, time);
    SoundSystem::SetStreamTime(stream, 1500);
    Pull(fade);
    ExpectTune(Pull(1000), 66150 + fade);
}

TEST_F(SoundSystemStream, TimesBelowZeroAreTheStart)
{
    SoundSystem::PlayStream(-1, stream);
    Pull(1000);
    EXPECT_TRUE(SoundSystem::SetStreamTime(stream, -1));
    EXPECT_EQ(0, SoundSystem::GetStreamTime(stream));
    Pull(fade);
    ExpectTune(Pull(1000), fade);
    EXPECT_TRUE(SoundSystem::SetStreamTime(stream, INT_MIN));
    Pull(fade);
    ExpectTune(Pull(1000), fade);
}

TEST_F(SoundSystemStream, BehindTheEndIsSilenceAndTheTimeStaysAsItWasSet)
{
    SoundSystem::PlayStream(-1, stream);
    Pull(1000);
    for (int time : {3000, 3001, 60000, INT_MAX}) {
        EXPECT_TRUE(SoundSystem::SetStreamTime(stream, time));
        Pull(fade);
        EXPECT_TRUE(IsSilent(Pull(2000))) << time;
        EXPECT_EQ(time, SoundSystem::GetStreamTime(stream));
    }
    SoundSystem::SetStreamTime(stream, 500);
    Pull(fade);
    ExpectTune(Pull(1000), 22050 + fade);
}

TEST_F(SoundSystemStream, RunsOutInSilenceWithoutLooping)
{
    SoundSystem::PlayStream(-1, stream);
    ExpectTune(Pull(3 * 44100), 0);
    EXPECT_TRUE(IsSilent(Pull(10 * 44100)));
    EXPECT_EQ(3000, SoundSystem::GetStreamTime(stream));
}

TEST_F(SoundSystemStream, HavingRunOutItBeginsAgainWhenItIsPlayed)
{
    SoundSystem::PlayStream(-1, stream);
    Pull(4 * 44100);
    EXPECT_EQ(0, SoundSystem::PlayStream(-1, stream));
    EXPECT_EQ(0, SoundSystem::GetStreamTime(stream));
    ExpectTune(Pull(3 * 44100), 0);
}

TEST_F(SoundSystemStream, PlayingWhatPlaysChangesNothing)
{
    SoundSystem::PlayStream(-1, stream);
    Pull(1000);
    EXPECT_EQ(0, SoundSystem::PlayStream(-1, stream));
    ExpectTune(Pull(1000), 1000);
}

TEST_F(SoundSystemStream, AStopIsSilentAfterItsRampAndMovesToTheStart)
{
    SoundSystem::PlayStream(-1, stream);
    Pull(1000);
    EXPECT_TRUE(SoundSystem::StopStream(stream));
    EXPECT_EQ(0, SoundSystem::GetStreamTime(stream));
    EXPECT_FALSE(IsSilent(Pull(fade)));
    EXPECT_TRUE(IsSilent(Pull(5000)));
    EXPECT_EQ(0, SoundSystem::GetStreamTime(stream));
    EXPECT_EQ(0, SoundSystem::PlayStream(-1, stream));
    ExpectTune(Pull(1000), 0);
}

TEST_F(SoundSystemStream, ASeekLeavesAStoppedStreamSilentAndIsWhereItGoesOn)
{
    EXPECT_TRUE(SoundSystem::SetStreamTime(stream, 500));
    EXPECT_TRUE(IsSilent(Pull(1000))) << "it was never played";
    SoundSystem::PlayStream(-1, stream);
    Pull(1000);
    SoundSystem::StopStream(stream);
    Pull(fade);
    EXPECT_TRUE(SoundSystem::SetStreamTime(stream, 1000));
    EXPECT_TRUE(IsSilent(Pull(1000)));
    EXPECT_EQ(1000, SoundSystem::GetStreamTime(stream));
    SoundSystem::PlayStream(-1, stream);
    Pull(fade);
    ExpectTune(Pull(1000), 44100 + fade);
}

TEST_F(SoundSystemStream, StoppedAndPlayedBetweenTwoCallsOfTheDeviceItStartsAgain)
{
    SoundSystem::PlayStream(-1, stream);
    Pull(1000);
    SoundSystem::StopStream(stream);
    EXPECT_EQ(0, SoundSystem::PlayStream(-1, stream));
    Pull(fade);
    ExpectTune(Pull(1000), fade);
}

TEST_F(SoundSystemStream, TwoStreamsAreHeardAsTheirSum)
{
    SoundStream* second = SoundSystem::OpenStream(path, mode, 0, 0);
    EXPECT_EQ(0, SoundSystem::PlayStream(-1, stream));
    ExpectTune(Pull(1000), 0);
    EXPECT_EQ(1, SoundSystem::PlayStream(-1, second));
    const std::vector<float> heard = Pull(3000);
    for (size_t i = 0; i < heard.size(); ++i)
        ASSERT_EQ(tune[2000 + i] + tune[i], heard[i]);
    SoundSystem::StopStream(stream);
    Pull(fade);
    ExpectTune(Pull(1000), 3000 + fade);
}

TEST_F(SoundSystemStream, AClosedHandleIsOfNoUse)
{
    SoundSystem::PlayStream(-1, stream);
    Pull(1000);
    EXPECT_TRUE(SoundSystem::CloseStream(stream));
    EXPECT_FALSE(SoundSystem::CloseStream(stream));
    EXPECT_FALSE(SoundSystem::StopStream(stream));
    EXPECT_FALSE(SoundSystem::SetStreamTime(stream, 0));
    EXPECT_EQ(0, SoundSystem::GetStreamTime(stream));
    EXPECT_EQ(-1, SoundSystem::PlayStream(-1, stream));
}

TEST_F(SoundSystemStream, ClosingStopsWithARampAndGivesTheFileBack)
{
    SoundSystem::PlayStream(-1, stream);
    Pull(1000);
    EXPECT_NE(-1, ReadPositionOf(path));
    SoundSystem::CloseStream(stream);
    std::vector<float> heard = Pull(fade);
    for (int i = 0; i < fade; ++i)
        ASSERT_EQ(tune[size_t(1000 + i) * 2] * (float(220 - i) / 221.0f), heard[size_t(i) * 2]);
    EXPECT_TRUE(IsSilent(Pull(1000)));
    EXPECT_TRUE(Eventually([&] { return ReadPositionOf(path) == -1; }));
}

TEST_F(SoundSystemStream, ClosingWhatNeverPlayedGivesTheFileBackWithoutTheDevice)
{
    SoundSystem::CloseStream(stream);
    EXPECT_TRUE(Eventually([&] { return ReadPositionOf(path) == -1; }));
}

TEST_F(SoundSystemStream, ClosingAStoppedStreamWhoseChannelIsTakenGivesTheFileBack)
{
    SoundSystem::PlayStream(-1, stream);
    Pull(1000);
    SoundSystem::StopStream(stream);
    Pull(1000);
    const std::string otherPath = soundfiles::Make(soundfiles::KindOf("16bit.wav"), 1.0);
    EXPECT_EQ(0, SoundSystem::PlayStream(-1, SoundSystem::OpenStream(otherPath, mode, 0, 0)));
    SoundSystem::CloseStream(stream);
    EXPECT_TRUE(Eventually([&] { return ReadPositionOf(path) == -1; }));
}

TEST_F(SoundSystemStream, OpeningAndClosingAThousandTimesWhileItSoundsIsHarmless)
{
    SoundSystem::PlayStream(-1, stream);
    for (int i = 0; i < 1000; ++i) {
        SoundStream* other = SoundSystem::OpenStream(path, mode, 0, 0);
        ASSERT_NE(nullptr, other);
        ASSERT_NE(-1, SoundSystem::PlayStream(-1, other));
        if (i % 3 == 0)
            SoundSystem::SetStreamTime(other, i);
        if (i % 2 == 0)
            Pull(64);
        SoundSystem::CloseStream(other);
        Pull(1); // so that its channel comes free
    }
}

TEST_F(SoundSystemStream, AStreamIsDecodedAsFarAheadAsTheBufferSizeSays)
{
    SoundSystem::SetBufferSize(2500);
    const std::string longPath = soundfiles::Make(soundfiles::KindOf("16bit.wav"), 5.0);
    SoundStream* buffered = SoundSystem::OpenStream(longPath, mode, 0, 0);
    SoundSystem::PlayStream(-1, buffered);
    Pull(1);
    const long expected = 44 + 107 * 1024 * 4; // the header, and the pieces within 110250 frames
    EXPECT_TRUE(Eventually([&] { return ReadPositionOf(longPath) >= expected; }));
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(expected, ReadPositionOf(longPath));
}

TEST_F(SoundSystemStream, WithoutABufferSizeThatIsASecond)
{
    const std::string longPath = soundfiles::Make(soundfiles::KindOf("16bit.wav"), 5.0);
    SoundStream* buffered = SoundSystem::OpenStream(longPath, mode, 0, 0);
    SoundSystem::PlayStream(-1, buffered);
    Pull(1);
    const long expected = 44 + 43 * 1024 * 4;
    EXPECT_TRUE(Eventually([&] { return ReadPositionOf(longPath) >= expected; }));
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(expected, ReadPositionOf(longPath));
}

TEST_F(SoundSystemStream, ADeviceThatHasStalledKeepsNobodyWaiting)
{
    SoundSystem::PlayStream(-1, stream);
    Pull(1000);
    // From here on the device asks for nothing: a call that waited for it would wait for ever.
    for (int i = 0; i < 10000; ++i) {
        SoundSystem::StopStream(stream);
        SoundSystem::PlayStream(-1, stream);
        SoundSystem::SetStreamTime(stream, i % 3000);
        ASSERT_EQ(i % 3000, SoundSystem::GetStreamTime(stream));
        SoundSystem::SetPaused(-3, i % 2 == 0);
    }
    SoundSystem::SetPaused(-3, false);
    SoundSystem::SetStreamTime(stream, 1000);
    Pull(fade);
    ExpectTune(Pull(1000), 44100 + fade);
}

TEST_F(SoundSystemStream, CallsFromTheMainThreadMeetADeviceOfItsOwnThread)
{
    std::atomic<bool> done(false);
    std::thread device([&done] {
        std::vector<platform::StereoFrame> frames(256);
        while (!done)
            platform::PullSound(frames.data(), 256, false);
    });
    for (int i = 0; i < 300; ++i) {
        SoundStream* other = SoundSystem::OpenStream(path, mode, 0, 0);
        SoundSystem::PlayStream(-1, stream);
        SoundSystem::PlayStream(-1, other);
        SoundSystem::SetStreamTime(stream, i * 10);
        SoundSystem::SetPaused(-3, i % 4 == 0);
        const int time = SoundSystem::GetStreamTime(stream);
        EXPECT_GE(time, i * 10);
        EXPECT_LE(time, 100000);
        if (i % 5 == 0)
            SoundSystem::StopStream(stream);
        SoundSystem::CloseStream(other);
    }
    done = true;
    device.join();
}
