// SPDX-License-Identifier: MIT
// What is heard, sample by sample, and which time the transport says that it is. The sound output is pulled by hand,
// the clock is stepped.
#include "tools/edit/MusicTransport.h"

#include "platform/SoundOutput.h"
#include "platform/SoundOutputHooks.h"
#include "platform/SteppedClock.h"
#include "tests/support/SoundFiles.h"
#include "tests/support/SoundPulls.h"
#include "tools/edit/Transport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <random>

#include <unistd.h>

static const int64_t nanoseconds = 1000000000;
static const int fadeFrames = 220; // 5 ms: the ramp of a start in the middle

class Transport : public testing::Test
{
protected:
    Transport()
    {
        platform::UseSteppedClock();
        platform::UseSoundOutput(platform::SoundPulledByHand);
    }
    ~Transport() override { platform::UseRealClock(); }

    // Ten seconds of music at the rate of the output.
    std::string MakeTune(const std::string& kind = "16bit.wav")
    {
        const std::string path = soundfiles::Make(soundfiles::KindOf(kind), 10);
        tune = soundfiles::Decode(path);
        return path;
    }
    void Load(const std::string& path)
    {
        transport.SetMusic(path);
        ASSERT_TRUE(Eventually([this] { return transport.IsReady(); }));
        ASSERT_TRUE(transport.HasMusic()) << transport.Failure();
    }

    // The tune from a frame on.
    std::vector<float> Tune(int64_t frame, int count) const
    {
        const auto begin = tune.begin() + 2 * frame;
        return std::vector<float>(begin, begin + 2 * count);
    }
    // The same without the ramp at the start.
    static std::vector<float> BehindRamp(const std::vector<float>& samples)
    {
        return std::vector<float>(samples.begin() + 2 * fadeFrames, samples.end());
    }

    static std::vector<float> PullImpatiently(int frames)
    {
        std::vector<platform::StereoFrame> pulled(static_cast<size_t>(frames));
        platform::PullSound(pulled.data(), frames, false);
        std::vector<float> samples;
        for (const platform::StereoFrame& frame : pulled)
            samples.insert(samples.end(), {frame.left, frame.right});
        return samples;
    }

    edit::MusicTransport transport;
    std::vector<float> tune;
};

TEST_F(Transport, FromTheStartEverySampleIsHeardAsItIs)
{
    Load(MakeTune());
    EXPECT_TRUE(IsSilent(Pull(1000)));
    transport.Play(0);
    EXPECT_TRUE(Tune(0, 20000) == Pull(20000));
}

TEST_F(Transport, AStartAnywhereIsExactToTheSample)
{
    for (const char* kind : {"16bit.wav", "vorbis.ogg"}) {
        Load(MakeTune(kind));
        for (int milliseconds : {3, 1234, 7777, 2500, 9001}) {
            transport.Play(milliseconds / 1000.0);
            // 44.1 frames a millisecond, rounded to the nearest.
            const int64_t frame = (int64_t(milliseconds) * 441 + 5) / 10;
            const std::vector<float> heard = Pull(5000);
            EXPECT_TRUE(BehindRamp(Tune(frame, 5000)) == BehindRamp(heard)) << kind << " " << milliseconds;
        }
        transport.Stop();
        Pull(2000);
        EXPECT_TRUE(IsSilent(Pull(2000)));
    }
}

// A device doesn't wait: until the place is decoded there is silence, and then the music from its first sample on.
TEST_F(Transport, AStartWaitsForItsPlaceAndLosesNothing)
{
    Load(MakeTune("vorbis.ogg"));
    for (int milliseconds : {8000, 500, 6001}) {
        transport.Play(milliseconds / 1000.0);
        PullImpatiently(1024);
        const int64_t frame = (int64_t(milliseconds) * 441 + 5) / 10;
        std::vector<float> heard;
        ASSERT_TRUE(Eventually([&] {
            heard = PullImpatiently(512);
            return !IsSilent(heard);
        }));
        EXPECT_TRUE(BehindRamp(Tune(frame, 512)) == BehindRamp(heard)) << milliseconds;
        EXPECT_TRUE(Tune(frame + 512, 3000) == PullImpatiently(3000)) << milliseconds;
        transport.Stop();
        PullImpatiently(1024);
    }
}

TEST_F(Transport, TheTimeIsThatOfTheSampleThatIsHeard)
{
    Load(MakeTune());
    transport.Play(2.5);
    platform::StepClock(nanoseconds / 10);
    EXPECT_DOUBLE_EQ(2.5, transport.PositionSeconds()); // nothing is heard yet
    Pull(441);
    EXPECT_NEAR(2.5, transport.PositionSeconds(), 1e-6); // the first of them
    platform::StepClock(nanoseconds / 200);
    EXPECT_NEAR(2.505, transport.PositionSeconds(), 1e-6);
    platform::StepClock(nanoseconds / 200);
    Pull(441);
    EXPECT_NEAR(2.51, transport.PositionSeconds(), 1e-6);
    transport.Stop();
    platform::StepClock(nanoseconds);
    EXPECT_NEAR(2.51, transport.PositionSeconds(), 1e-6);
    EXPECT_FALSE(transport.IsPlaying());
}

// A device that takes a little more than a second's frames in a second, in buffers that come unevenly.
TEST_F(Transport, WithUnevenBuffersTheTimeStaysWithTheSound)
{
    Load(MakeTune());
    transport.Play(1);
    double last = 1;
    int64_t given = 44100;
    for (int buffer = 0; buffer < 300; buffer++) {
        const bool late = buffer % 7 == 3;
        platform::StepClock(late ? 30000000 : 22000000);
        const double position = transport.PositionSeconds();
        EXPECT_GE(position, last);
        last = position;
        Pull(1024);
        if (buffer > 50) {
            EXPECT_NEAR(double(given) / 44100, transport.PositionSeconds(), 0.012) << buffer;
        }
        given += 1024;
    }
}

// Silence of so many seconds that takes no room on the disk.
static std::string MakeLongTune(uint32_t seconds)
{
    const std::string path = testing::TempDir() + "marlinex-long-tune-" + std::to_string(getpid()) + ".wav";
    const uint32_t bytes = seconds * 44100 * 4;
    const auto number = [](uint32_t value, int size) {
        std::string written;
        for (int i = 0; i < size; i++)
            written += char(value >> (8 * i));
        return written;
    };
    const std::string header = "RIFF" + number(36 + bytes, 4) + "WAVEfmt " + number(16, 4) + number(1, 2) +
                               number(2, 2) + number(44100, 4) + number(44100 * 4, 4) + number(4, 2) +
                               number(16, 2) + "data" + number(bytes, 4);
    std::ofstream(path, std::ios::binary) << header;
    EXPECT_EQ(0, truncate(path.c_str(), off_t(header.size() + bytes)));
    return path;
}

// The device's quartz is not the process's, and its buffers come late by up to half of one, now and then two at once. The
// picture's frame is the one of the sound that is heard, or its neighbour, to the end.
TEST_F(Transport, OverTheWholeNightPictureAndSoundAreLessThanAFrameApart)
{
    const int buffer = 1024, night = 400; // frames, seconds
    Load(MakeLongTune(night));
    edit::EditorState state;
    state.rate = {60, 1};
    edit::Transport player(&state, &transport);
    player.SetEnd(night);
    for (const double deviceRate : {44102.0, 44079.0, 44100.0 * 1.001}) {
        SCOPED_TRACE(deviceRate);
        player.GoTo(0);
        player.Play();
        std::mt19937 random(7);
        double now = 0, farthest = 0; // seconds since the first buffer
        int64_t unequalFrames = 0, frames = 0;
        const auto pass = [&](double until) {
            // The window looks at its own times in between.
            while (now < until) {
                const double step = std::min(1 / 144.0, until - now);
                platform::StepClock(std::llround(step * 1e9));
                now += step;
                player.Update();
                const double heard = now * deviceRate / 44100;
                if (now < 1)
                    continue; // while the clock settles
                farthest = std::max(farthest, std::fabs(state.playhead - heard));
                frames++;
                unequalFrames += std::abs(int64_t(state.playhead * 60) - int64_t(heard * 60)) > 1 ? 1 : 0;
            }
        };
        for (int64_t given = 0; given + 2 * buffer < int64_t(night) * 44100 - 44100; given += buffer) {
            const bool comesWithTheNext = random() % 50 == 0;
            const double late = double(random() % 1000) / 1000 * buffer / 2 / deviceRate;
            pass(double(given) / deviceRate + late);
            Pull(buffer);
            if (comesWithTheNext) {
                given += buffer;
                Pull(buffer);
            }
        }
        EXPECT_GT(state.playhead, night - 2);
        EXPECT_LT(farthest, 1 / 60.0);
        EXPECT_EQ(0, unequalFrames) << "of " << frames;
        RecordProperty("farthestMicroseconds", int(farthest * 1e6));
        player.Stop();
        Pull(buffer);
    }
}

// A machine with too much to do lets the device run dry for a moment: the music goes on later than it would have.
TEST_F(Transport, AfterADeviceThatStoodStillTheTimeIsSoonWithTheSoundAgain)
{
    Load(MakeTune());
    transport.Play(0);
    const auto give = [&](int buffers) {
        for (int i = 0; i < buffers; i++) {
            platform::StepClock(int64_t(1024) * nanoseconds / 44100);
            transport.PositionSeconds();
            Pull(1024);
            transport.PositionSeconds();
        }
    };
    Pull(1024);
    give(100);
    EXPECT_NEAR(100 * 1024 / 44100.0, transport.PositionSeconds(), 0.001);
    double last = transport.PositionSeconds();
    platform::StepClock(nanoseconds * 8 / 100);
    give(6);
    EXPECT_GE(transport.PositionSeconds(), last) << "it stands, but never goes back";
    give(4);
    EXPECT_NEAR(110 * 1024 / 44100.0, transport.PositionSeconds(), 1 / 60.0);
}

TEST_F(Transport, BehindTheMusicTheTimeRunsOnInSilence)
{
    Load(MakeTune());
    transport.Play(9.9);
    for (int i = 0; i < 100; i++) {
        Pull(441);
        platform::StepClock(nanoseconds / 100);
    }
    EXPECT_NEAR(10.9, transport.PositionSeconds(), 0.02);
    EXPECT_TRUE(IsSilent(Pull(441)));
    // And from there.
    transport.Play(20);
    Pull(441);
    platform::StepClock(nanoseconds);
    EXPECT_NEAR(21, transport.PositionSeconds(), 0.02);
}

TEST_F(Transport, OtherSpeedsAreSilentAndRunOnTheClock)
{
    Load(MakeTune());
    transport.Play(4, 0.5);
    platform::StepClock(nanoseconds);
    EXPECT_TRUE(IsSilent(Pull(4410)));
    EXPECT_DOUBLE_EQ(4.5, transport.PositionSeconds());
    transport.Play(transport.PositionSeconds(), 0.25);
    platform::StepClock(2 * nanoseconds);
    EXPECT_DOUBLE_EQ(5, transport.PositionSeconds());
    transport.Play(5);
    Pull(fadeFrames);
    EXPECT_TRUE(Tune(5 * 44100 + fadeFrames, 100) == Pull(100));
}

TEST_F(Transport, WithoutMusicTheClockRuns)
{
    EXPECT_TRUE(transport.IsReady());
    transport.Play(1.25);
    platform::StepClock(nanoseconds / 2);
    EXPECT_DOUBLE_EQ(1.75, transport.PositionSeconds());
    transport.SetMusic("/nowhere/gone.ogg");
    ASSERT_TRUE(Eventually([this] { return transport.IsReady(); }));
    EXPECT_FALSE(transport.HasMusic());
    EXPECT_EQ("the music can't be opened: /nowhere/gone.ogg", transport.Failure());
    platform::StepClock(nanoseconds / 2);
    EXPECT_DOUBLE_EQ(2.25, transport.PositionSeconds());
}

TEST_F(Transport, MusicThatIsChangedWhileItPlaysGoesOnFromTheSamePlace)
{
    Load(MakeTune());
    transport.Play(3);
    Pull(44100);
    platform::StepClock(nanoseconds);
    Load(MakeTune("vorbis.ogg"));
    EXPECT_TRUE(transport.IsPlaying());
    const std::vector<float> heard = Pull(3000);
    EXPECT_TRUE(BehindRamp(Tune(4 * 44100, 3000)) == BehindRamp(heard));
    transport.SetMusic("");
    Pull(1000);
    EXPECT_TRUE(IsSilent(Pull(1000)));
    const double position = transport.PositionSeconds();
    platform::StepClock(nanoseconds);
    EXPECT_NEAR(position + 1, transport.PositionSeconds(), 1e-6);
}

TEST_F(Transport, ADeviceThatTakesNothingIsNotWaitedFor)
{
    Load(MakeTune());
    transport.Play(3);
    platform::StepClock(nanoseconds / 2);
    EXPECT_DOUBLE_EQ(3, transport.PositionSeconds());
    platform::StepClock(nanoseconds);
    EXPECT_NEAR(3.5, transport.PositionSeconds(), 1e-6);
}

TEST_F(Transport, WithoutADeviceTheClockRuns)
{
    platform::UseSoundOutput(platform::SoundMissing);
    transport.SetMusic(MakeTune());
    EXPECT_TRUE(Eventually([this] { return transport.IsReady(); }));
    EXPECT_FALSE(transport.HasMusic());
    EXPECT_EQ("there is no sound device", transport.Failure());
    transport.Play(1);
    platform::StepClock(nanoseconds);
    EXPECT_DOUBLE_EQ(2, transport.PositionSeconds());
}
