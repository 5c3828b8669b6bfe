// SPDX-License-Identifier: MIT
#include "music/Downmix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

// Each channel alone at full scale: what the two sides hear, in the order of the channels.
static std::vector<StereoGain> Heard(int channels)
{
    const std::vector<StereoGain> gains = StereoGains(UsualSpeakers(channels));
    std::vector<StereoGain> heard;
    for (int channel = 0; channel < channels; ++channel) {
        std::vector<float> frame(size_t(channels), 0.0f);
        frame[size_t(channel)] = 1.0f;
        StereoFrame stereo;
        MixDown(frame.data(), 1, gains, &stereo);
        heard.push_back({stereo.left, stereo.right});
    }
    return heard;
}

static void ExpectGains(const std::vector<StereoGain>& expected, const std::vector<StereoGain>& gains)
{
    ASSERT_EQ(expected.size(), gains.size());
    for (size_t i = 0; i < gains.size(); ++i) {
        EXPECT_NEAR(expected[i].left, gains[i].left, 1e-6) << "left of channel " << i;
        EXPECT_NEAR(expected[i].right, gains[i].right, 1e-6) << "right of channel " << i;
    }
}

static const float half = 0.70710678f; // of the power

TEST(Downmix, MonoIsOnBothSidesAsItIs)
{
    const float samples[3] = {0.1f, -0.9f, 1.0f};
    StereoFrame stereo[3];
    MixDown(samples, 3, StereoGains(UsualSpeakers(1)), stereo);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(samples[i], stereo[i].left);
        EXPECT_EQ(samples[i], stereo[i].right);
    }
}

TEST(Downmix, StereoStaysAsItIs)
{
    const float samples[4] = {0.1f, -0.9f, 1.0f, -0.3f};
    StereoFrame stereo[2];
    MixDown(samples, 2, StereoGains(UsualSpeakers(2)), stereo);
    EXPECT_EQ(0.1f, stereo[0].left);
    EXPECT_EQ(-0.9f, stereo[0].right);
    EXPECT_EQ(1.0f, stereo[1].left);
    EXPECT_EQ(-0.3f, stereo[1].right);
}

TEST(Downmix, ThreeChannelsAreLeftRightCentre)
{
    const float sum = 1.0f + half;
    ExpectGains({{1 / sum, 0}, {0, 1 / sum}, {half / sum, half / sum}}, Heard(3));
}

TEST(Downmix, FourChannelsAreTwoPairs)
{
    const float sum = 1.0f + half;
    ExpectGains({{1 / sum, 0}, {0, 1 / sum}, {half / sum, 0}, {0, half / sum}}, Heard(4));
}

TEST(Downmix, FiveChannelsHaveACentre)
{
    const float sum = 1.0f + 2 * half;
    ExpectGains({{1 / sum, 0}, {0, 1 / sum}, {half / sum, half / sum}, {half / sum, 0}, {0, half / sum}},
                Heard(5));
}

TEST(Downmix, SixChannelsHaveALowFrequencyOneThatIsLeftOut)
{
    const float sum = 1.0f + 2 * half;
    ExpectGains(
        {{1 / sum, 0}, {0, 1 / sum}, {half / sum, half / sum}, {0, 0}, {half / sum, 0}, {0, half / sum}},
        Heard(6));
}

TEST(Downmix, SevenChannelsHaveOneBehind)
{
    const float sum = 1.0f + 2 * half + 0.5f;
    ExpectGains({{1 / sum, 0},
                 {0, 1 / sum},
                 {half / sum, half / sum},
                 {0, 0},
                 {0.5f / sum, 0.5f / sum},
                 {half / sum, 0},
                 {0, half / sum}},
                Heard(7));
}

TEST(Downmix, EightChannelsHaveTwoPairsBehind)
{
    const float sum = 1.0f + 3 * half;
    ExpectGains({{1 / sum, 0},
                 {0, 1 / sum},
                 {half / sum, half / sum},
                 {0, 0},
                 {half / sum, 0},
                 {0, half / sum},
                 {half / sum, 0},
                 {0, half / sum}},
                Heard(8));
}

TEST(Downmix, MoreChannelsGoLeftAndRightInTurns)
{
    const std::vector<StereoGain> heard = Heard(9);
    for (size_t i = 0; i < 9; ++i) {
        EXPECT_NEAR(i % 2 == 0 ? 0.2f : 0.0f, heard[i].left, 1e-6) << i;
        EXPECT_NEAR(i % 2 == 0 ? 0.0f : 0.2f, heard[i].right, 1e-6) << i;
    }
}

TEST(Downmix, FullScaleOnAllChannelsNeverComesOutLouder)
{
    for (int channels = 1; channels <= 16; ++channels) {
        const std::vector<float> frame(size_t(channels), 1.0f);
        StereoFrame stereo;
        MixDown(frame.data(), 1, StereoGains(UsualSpeakers(channels)), &stereo);
        EXPECT_NEAR(1.0f, std::max(stereo.left, stereo.right), 1e-6) << channels;
    }
}

TEST(Downmix, MoreOnTheRightIsMeasuredAsMoreOnTheLeftIs)
{
    for (const bool onTheRight : {false, true}) {
        const Speaker more = onTheRight ? SpeakerRight : SpeakerLeft;
        const Speaker less = onTheRight ? SpeakerLeft : SpeakerRight;
        for (const StereoGain& gain : StereoGains({more, less, more}))
            EXPECT_EQ(0.5f, gain.left + gain.right);
    }
}

TEST(Downmix, ALowFrequencyChannelAloneIsSilent)
{
    const float sample = 0.5f;
    StereoFrame stereo = {1.0f, 1.0f};
    MixDown(&sample, 1, StereoGains({SpeakerLowFrequency}), &stereo);
    EXPECT_EQ(0.0f, stereo.left);
    EXPECT_EQ(0.0f, stereo.right);
}

TEST(Downmix, WhatIsNoNumberIsSilentAndWhatIsTooLoudIsBroughtDown)
{
    const float samples[8] = {std::numeric_limits<float>::quiet_NaN(),
                              std::numeric_limits<float>::infinity(),
                              -std::numeric_limits<float>::infinity(),
                              0.25f,
                              0.5f,
                              -0.125f,
                              64.0f,
                              -64.01f};
    StereoFrame stereo[4];
    MixDown(samples, 4, StereoGains(UsualSpeakers(2)), stereo);
    EXPECT_EQ(0.0f, stereo[0].left);
    EXPECT_EQ(64.0f, stereo[0].right);
    EXPECT_EQ(-64.0f, stereo[1].left);
    EXPECT_EQ(0.25f, stereo[1].right);
    EXPECT_EQ(0.5f, stereo[2].left);
    EXPECT_EQ(-0.125f, stereo[2].right);
    EXPECT_EQ(64.0f, stereo[3].left);
    EXPECT_EQ(-64.0f, stereo[3].right);
}
