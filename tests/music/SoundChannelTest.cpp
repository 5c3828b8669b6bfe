// SPDX-License-Identifier: MIT
// What a channel lets be heard, frame by frame, with the decode thread played by hand.
#include "music/SoundChannel.h"

#include "tests/support/SoundPulls.h"

#include <gtest/gtest.h>

static const int fade = 220; // frames, 5 ms

// In these tests the right side always is the left one with the other sign: the left stands for both.
class SoundChannelSound : public testing::Test
{
protected:
    SoundChannelSound() : channel(44100) { Open(20000, 100 * 44100); }

    void Open(int bufferMilliseconds, int64_t frames)
    {
        auto numbered = std::make_unique<NumberedDecoder>(frames);
        stream = std::make_unique<SoundStream>(std::move(numbered), 44100, bufferMilliseconds, &wakeUp);
    }
    void Decode()
    {
        while (stream->Decode()) {
        }
    }
    // The left samples of the next frames.
    std::vector<float> Mix(int count)
    {
        std::vector<float> left;
        while (count > 0) {
            const int piece = std::min(count, 100);
            std::vector<StereoFrame> mix(piece, {0.0f, 0.0f});
            channel.Mix(user ? user : stream.get(), paused, mix.data(), piece, false);
            for (int i = 0; i < piece; ++i) {
                EXPECT_EQ(mix[i].left, -mix[i].right);
                left.push_back(mix[i].left);
            }
            count -= piece;
        }
        return left;
    }
    void Play(int milliseconds)
    {
        stream->Give(true, milliseconds);
        Decode();
    }
    void ExpectSteady(const std::vector<float>& heard, int64_t position)
    {
        for (size_t i = 0; i < heard.size(); ++i)
            ASSERT_EQ(NumberedDecoder::Sample(position + int64_t(i)), heard[i]) << "frame " << i;
    }
    void ExpectSilence(const std::vector<float>& heard)
    {
        for (size_t i = 0; i < heard.size(); ++i)
            ASSERT_EQ(0.0f, heard[i]) << "frame " << i;
    }
    static float Rising(int i) { return float(i + 1) / 221.0f; }
    static float Falling(int i) { return float(220 - i) / 221.0f; }

    EventCount wakeUp;
    std::unique_ptr<SoundStream> stream;
    SoundStream* user = nullptr;
    SoundChannel channel;
    bool paused = false;
};

TEST_F(SoundChannelSound, NobodyIsSilent)
{
    std::vector<StereoFrame> mix(32, {0.25f, -0.5f});
    channel.Mix(nullptr, false, mix.data(), 32, false);
    for (const StereoFrame& frame : mix) {
        EXPECT_EQ(0.25f, frame.left);
        EXPECT_EQ(-0.5f, frame.right);
    }
}

TEST_F(SoundChannelSound, AStreamThatIsNotToldToPlayIsSilent)
{
    Decode();
    ExpectSilence(Mix(1000));
    EXPECT_EQ(0, stream->GetTime());
    EXPECT_EQ(0, stream->Reported());
}

TEST_F(SoundChannelSound, ItAddsToWhatTheMixHolds)
{
    Play(0);
    StereoFrame mix[2] = {{0.25f, 0.5f}, {0.125f, -0.5f}};
    channel.Mix(stream.get(), false, mix, 2, false);
    EXPECT_EQ(0.25f + NumberedDecoder::Sample(0), mix[0].left);
    EXPECT_EQ(0.5f - NumberedDecoder::Sample(0), mix[0].right);
    EXPECT_EQ(0.125f + NumberedDecoder::Sample(1), mix[1].left);
    EXPECT_EQ(-0.5f - NumberedDecoder::Sample(1), mix[1].right);
}

TEST_F(SoundChannelSound, TheBeginningOfTheMusicHasNoRamp)
{
    Play(0);
    ExpectSteady(Mix(5000), 0);
    EXPECT_TRUE(stream->HasAppliedOrder());
    EXPECT_EQ(5000, stream->Reported());
}

TEST_F(SoundChannelSound, AStartFurtherInRises)
{
    Play(1000);
    const std::vector<float> heard = Mix(1000);
    for (int i = 0; i < fade; ++i)
        ASSERT_EQ(NumberedDecoder::Sample(44100 + i) * Rising(i), heard[size_t(i)]) << i;
    ExpectSteady(std::vector<float>(heard.begin() + fade, heard.end()), 44100 + fade);
}

TEST_F(SoundChannelSound, AStopFallsToSilenceOverTheMusicThatFollows)
{
    Play(0);
    Mix(1000);
    stream->Give(false, 0);
    const std::vector<float> heard = Mix(1000);
    for (int i = 0; i < fade; ++i)
        ASSERT_EQ(NumberedDecoder::Sample(1000 + i) * Falling(i), heard[size_t(i)]) << i;
    ExpectSilence(std::vector<float>(heard.begin() + fade, heard.end()));
    EXPECT_EQ(0, stream->GetTime());
}

TEST_F(SoundChannelSound, AStopWhileTheMusicStillRisesFallsFromWhereItIs)
{
    Play(1000);
    Mix(100);
    stream->Give(false, 0);
    const std::vector<float> heard = Mix(fade + 10);
    for (int i = 0; i < fade; ++i) {
        const float gain = Rising(100) * 220.0f / 221.0f * float(220 - i) / 220.0f;
        ASSERT_NEAR(NumberedDecoder::Sample(44200 + i) * gain, heard[size_t(i)], 1e-6) << i;
    }
    ExpectSilence(std::vector<float>(heard.begin() + fade, heard.end()));
}

TEST_F(SoundChannelSound, ASeekFallsAtTheOldPlaceAndRisesAtTheNewOne)
{
    Play(0);
    Mix(1000);
    stream->Give(true, 10000);
    const std::vector<float> heard = Mix(1000);
    for (int i = 0; i < fade; ++i)
        ASSERT_NEAR(NumberedDecoder::Sample(441000 + i) * Rising(i) +
                        NumberedDecoder::Sample(1000 + i) * Falling(i),
                    heard[size_t(i)], 1e-6)
            << i;
    ExpectSteady(std::vector<float>(heard.begin() + fade, heard.end()), 441000 + fade);
    EXPECT_EQ(441000 + 1000, stream->Reported());
}

TEST_F(SoundChannelSound, ASeekToTheBeginningHasTheFallOnly)
{
    Play(0);
    Mix(1000);
    stream->Give(true, 0);
    const std::vector<float> heard = Mix(1000);
    for (int i = 0; i < fade; ++i)
        ASSERT_NEAR(NumberedDecoder::Sample(i) + NumberedDecoder::Sample(1000 + i) * Falling(i),
                    heard[size_t(i)], 1e-6)
            << i;
    ExpectSteady(std::vector<float>(heard.begin() + fade, heard.end()), fade);
}

TEST_F(SoundChannelSound, FallsThatFollowEachOtherQuicklyAddUp)
{
    Play(0);
    Mix(1000);
    stream->Give(true, 10000);
    Mix(50);
    stream->Give(false, 0);
    const std::vector<float> heard = Mix(fade + 10);
    for (int i = 0; i < fade; ++i) {
        const float first = i < fade - 50 ? NumberedDecoder::Sample(1050 + i) * Falling(50 + i) : 0.0f;
        const float second = NumberedDecoder::Sample(441050 + i) * Rising(50) * Falling(i);
        ASSERT_NEAR(first + second, heard[size_t(i)], 1e-6) << i;
    }
    ExpectSilence(std::vector<float>(heard.begin() + fade, heard.end()));
}

TEST_F(SoundChannelSound, APauseLetsTheRampThroughAndResumesAtTheFrameBehindIt)
{
    Play(0);
    Mix(1000);
    paused = true;
    std::vector<float> heard = Mix(3000);
    for (int i = 0; i < fade; ++i)
        ASSERT_EQ(NumberedDecoder::Sample(1000 + i) * Falling(i), heard[size_t(i)]) << i;
    ExpectSilence(std::vector<float>(heard.begin() + fade, heard.end()));
    EXPECT_EQ(1000 + fade, stream->Reported());
    paused = false;
    heard = Mix(3000);
    for (int i = 0; i < fade; ++i)
        ASSERT_EQ(NumberedDecoder::Sample(1000 + fade + i) * Rising(i), heard[size_t(i)]) << i;
    ExpectSteady(std::vector<float>(heard.begin() + fade, heard.end()), 1000 + 2 * fade);
}

TEST_F(SoundChannelSound, APauseBeforeTheFirstFrameLosesNothing)
{
    paused = true;
    Play(0);
    ExpectSilence(Mix(1000));
    EXPECT_EQ(0, stream->Reported());
    paused = false;
    ExpectSteady(Mix(1000), 0);
}

TEST_F(SoundChannelSound, ASeekDuringThePauseIsHeardAfterIt)
{
    Play(0);
    Mix(1000);
    paused = true;
    Mix(1000);
    stream->Give(true, 10000);
    ExpectSilence(Mix(1000));
    EXPECT_EQ(10000, stream->GetTime());
    paused = false;
    Mix(fade);
    ExpectSteady(Mix(1000), 441000 + fade);
}

TEST_F(SoundChannelSound, AStopDuringThePauseIsSilent)
{
    Play(0);
    Mix(1000);
    paused = true;
    Mix(1000);
    stream->Give(false, 0);
    ExpectSilence(Mix(1000));
    paused = false;
    ExpectSilence(Mix(1000));
}

TEST_F(SoundChannelSound, TheLastFrameIsAsItIsAndSilenceFollows)
{
    Open(20000, 2500);
    Play(0);
    const std::vector<float> heard = Mix(4000);
    ExpectSteady(std::vector<float>(heard.begin(), heard.begin() + 2500), 0);
    ExpectSilence(std::vector<float>(heard.begin() + 2500, heard.end()));
    EXPECT_EQ(2500, stream->Reported());
    EXPECT_TRUE(stream->HasRunOut());
    stream->Give(false, 0);
    ExpectSilence(Mix(1000));
    EXPECT_FALSE(stream->HasRunOut());
}

TEST_F(SoundChannelSound, AStreamHasRunOutNotBeforeItsLastFrame)
{
    Open(20000, 2500);
    Play(0);
    Mix(2499);
    EXPECT_FALSE(stream->HasRunOut());
    Mix(1);
    EXPECT_TRUE(stream->HasRunOut());
}

TEST_F(SoundChannelSound, AStreamThatIsStoppedBeyondItsEndHasNotRunOut)
{
    Open(20000, 2500);
    Play(0);
    Mix(1000);
    stream->Give(false, 1000); // the music ends at 57 ms
    Mix(1000);
    Decode();
    Mix(1000);
    EXPECT_TRUE(stream->HasAppliedOrder());
    EXPECT_FALSE(stream->HasRunOut());
}

TEST_F(SoundChannelSound, AStopShortOfTheEndHoldsTheLastFrameWhileItFalls)
{
    Open(20000, 2500);
    Play(0);
    Mix(2400);
    stream->Give(false, 0);
    const std::vector<float> heard = Mix(1000);
    for (int i = 0; i < fade; ++i)
        ASSERT_EQ(NumberedDecoder::Sample(std::min(2400 + i, 2499)) * Falling(i), heard[size_t(i)]) << i;
    ExpectSilence(std::vector<float>(heard.begin() + fade, heard.end()));
}

TEST_F(SoundChannelSound, AShortWayBackNeedsNoDecoder)
{
    Play(0);
    Mix(44100);
    stream->Give(true, 0);
    Mix(fade); // nothing was decoded in between
    ExpectSteady(Mix(1000), fade);
}

TEST_F(SoundChannelSound, WhatWasBufferedIsNotHeardAfterASeekElsewhere)
{
    Play(0);
    Mix(1000);
    stream->Give(true, 50000);
    std::vector<float> heard = Mix(1000);
    for (int i = 0; i < fade; ++i)
        ASSERT_EQ(NumberedDecoder::Sample(1000 + i) * Falling(i), heard[size_t(i)]) << i;
    ExpectSilence(std::vector<float>(heard.begin() + fade, heard.end()));
}

TEST_F(SoundChannelSound, TheTimeGoesOnWhileTheDecoderIsLateAndTheMusicJoinsIt)
{
    Play(0);
    Mix(1000);
    stream->Give(true, 50000);
    Mix(1000);
    EXPECT_EQ(50 * 44100 + 1000, stream->Reported());
    Decode();
    const std::vector<float> heard = Mix(1000);
    for (int i = 0; i < fade; ++i)
        ASSERT_EQ(NumberedDecoder::Sample(50 * 44100 + 1000 + i) * Rising(i), heard[size_t(i)]) << i;
    ExpectSteady(std::vector<float>(heard.begin() + fade, heard.end()), 50 * 44100 + 1000 + fade);
    EXPECT_EQ(50 * 44100 + 2000, stream->Reported());
}

TEST_F(SoundChannelSound, WhenTheDecoderFallsBehindTheLastFrameFallsToSilence)
{
    stream->Give(true, 0);
    stream->Decode(); // 1024 frames
    const std::vector<float> heard = Mix(1400);
    ExpectSteady(std::vector<float>(heard.begin(), heard.begin() + 1024), 0);
    for (int i = 0; i < fade; ++i)
        ASSERT_EQ(NumberedDecoder::Sample(1023) * Falling(i), heard[size_t(1024 + i)]) << i;
    ExpectSilence(std::vector<float>(heard.begin() + 1024 + fade, heard.end()));
    EXPECT_EQ(1400, stream->Reported());
    EXPECT_FALSE(stream->HasRunOut());

    // Not far enough: nothing to hear yet.
    stream->Decode();
    Mix(100);
    Decode();
    Mix(1100);
    ExpectSteady(Mix(1000), 2600);
}

TEST_F(SoundChannelSound, SteadyMusicThatTheDecoderLostRisesWhereTheTimeIsByThen)
{
    stream->Give(true, 0);
    stream->Decode(); // 1024 frames
    Mix(1100);        // in pieces of 100: the last one alone is short
    Decode();
    const std::vector<float> heard = Mix(1000);
    // The frame at which the music broke off is still falling: 76 frames of it are heard already.
    for (int i = 0; i < fade; ++i) {
        const float falling = i < fade - 76 ? NumberedDecoder::Sample(1023) * Falling(76 + i) : 0.0f;
        ASSERT_NEAR(NumberedDecoder::Sample(1100 + i) * Rising(i) + falling, heard[size_t(i)], 1e-6) << i;
    }
    ExpectSteady(std::vector<float>(heard.begin() + fade, heard.end()), 1100 + fade);
    EXPECT_EQ(2100, stream->Reported());
}

TEST_F(SoundChannelSound, AFrameThatIsHeardAloneIsTheOneThatFallsWhenTheDecoderIsLate)
{
    stream->Give(true, 0);
    stream->Decode(); // 1024 frames
    Mix(1023);
    const std::vector<float> heard = Mix(100);
    EXPECT_EQ(NumberedDecoder::Sample(1023), heard[0]);
    for (int i = 1; i < 100; ++i)
        ASSERT_EQ(NumberedDecoder::Sample(1023) * Falling(i - 1), heard[size_t(i)]) << i;
}

TEST_F(SoundChannelSound, OneFrameOfLatenessIsEnoughForARamp)
{
    stream->Give(true, 0);
    stream->Decode();
    Mix(1025);
    Decode();
    const std::vector<float> heard = Mix(1000);
    for (int i = 0; i < fade; ++i) {
        const float falling = i < fade - 1 ? NumberedDecoder::Sample(1023) * Falling(1 + i) : 0.0f;
        ASSERT_NEAR(NumberedDecoder::Sample(1025 + i) * Rising(i) + falling, heard[size_t(i)], 1e-6) << i;
    }
    ExpectSteady(std::vector<float>(heard.begin() + fade, heard.end()), 1025 + fade);
}

TEST_F(SoundChannelSound, OneFrameOfLatenessIsEnoughForAStopToAddNoMusic)
{
    stream->Give(true, 0);
    stream->Decode();
    Mix(1025);
    Decode();
    stream->Give(false, 0);
    const std::vector<float> heard = Mix(300);
    for (int i = 0; i < 300; ++i)
        ASSERT_EQ(i < fade - 1 ? NumberedDecoder::Sample(1023) * Falling(1 + i) : 0.0f, heard[size_t(i)])
            << i;
}

TEST_F(SoundChannelSound, ASeekWhileTheDecoderIsLateStartsAtItsExactFrame)
{
    stream->Give(true, 0);
    stream->Decode(); // 1024 frames
    Mix(2000);
    stream->Give(true, 0);
    ExpectSteady(Mix(1000), 0);
    EXPECT_EQ(1000, stream->Reported());
}

TEST_F(SoundChannelSound, AStopWhileTheDecoderIsLateIsSilent)
{
    stream->Give(true, 0);
    stream->Decode();
    Mix(2000);
    stream->Give(false, 0);
    Decode();
    ExpectSilence(Mix(1000));
}

TEST_F(SoundChannelSound, ALateDecoderThatFindsTheEndLeavesTheTimeThere)
{
    Open(20000, 1500);
    stream->Give(true, 0);
    stream->Decode();
    Mix(5000);
    Decode();
    ExpectSilence(Mix(100));
    EXPECT_EQ(1500, stream->Reported());
    EXPECT_TRUE(stream->HasRunOut());
}

TEST_F(SoundChannelSound, TheNextStreamOnTheChannelStartsAfresh)
{
    Play(0);
    Mix(1000);
    stream->Give(false, 0);
    Mix(1000);
    SoundStream next(std::make_unique<NumberedDecoder>(44100), 44100, 1000, &wakeUp);
    next.Give(true, 0);
    while (next.Decode()) {
    }
    user = &next;
    ExpectSteady(Mix(1000), 0);
    EXPECT_EQ(1000, next.Reported());
    EXPECT_EQ(0, stream->Reported());
}

TEST_F(SoundChannelSound, AStreamThatWasToldNothingStandsAtItsOwnBeginning)
{
    Decode();
    stream->Give(false, 300);
    Mix(10);
    SoundStream next(std::make_unique<NumberedDecoder>(44100), 44100, 1000, &wakeUp);
    user = &next;
    Mix(10);
    EXPECT_EQ(0, next.GetTime());
}

TEST_F(SoundChannelSound, WhatFallsToSilenceIsHeardOutWhenItsStreamIsGone)
{
    Play(0);
    Mix(1000);
    stream->Give(false, 0);
    Mix(100);
    StereoFrame mix[200] = {};
    channel.Mix(nullptr, false, mix, 200, false);
    for (int i = 0; i < 120; ++i)
        ASSERT_EQ(NumberedDecoder::Sample(1100 + i) * Falling(100 + i), mix[i].left) << i;
    for (int i = 120; i < 200; ++i)
        ASSERT_EQ(0.0f, mix[i].left) << i;
}

TEST_F(SoundChannelSound, AStreamThatComesBackToAChannelIsWhereItWas)
{
    Decode();
    stream->Give(false, 300);
    Mix(10);
    SoundStream next(std::make_unique<NumberedDecoder>(44100), 44100, 1000, &wakeUp);
    user = &next;
    Mix(10);
    user = nullptr;
    Mix(10);
    EXPECT_EQ(300, stream->GetTime());
}

TEST(SoundChannelRamp, IsFiveMillisecondsAtEveryRate)
{
    // 44199 * 0.005 = 220.995, and the frame that isn't whole isn't counted.
    for (const auto& [rate, frames] : {std::pair(48000, 240), std::pair(44199, 220)}) {
        EventCount wakeUp;
        SoundChannel channel(rate);
        SoundStream stream(std::make_unique<NumberedDecoder>(44100), rate, 1000, &wakeUp);
        stream.Give(true, 0);
        while (stream.Decode()) {
        }
        StereoFrame mix[300] = {};
        channel.Mix(&stream, false, mix, 300, false);
        stream.Give(false, 0);
        std::fill(mix, mix + 300, StereoFrame{0.0f, 0.0f});
        channel.Mix(&stream, false, mix, 300, false);
        EXPECT_NE(0.0f, mix[frames - 1].left) << rate;
        EXPECT_EQ(0.0f, mix[frames].left) << rate;
    }
}
