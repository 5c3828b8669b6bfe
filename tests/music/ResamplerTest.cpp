// SPDX-License-Identifier: MIT
#include "music/Resampler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

static const double pi = std::numbers::pi;

// Resamples a function of time (seconds) at output frames first to first + count - 1; left samples.
static std::vector<double> Resample(double (*wave)(double), int from, int to, int64_t first, int count)
{
    Resampler resampler(from, to);
    std::vector<double> output;
    for (int64_t n = first; n < first + count; ++n) {
        std::vector<StereoFrame> input;
        for (int64_t i = resampler.FirstInput(n); i <= resampler.LastInput(n); ++i)
            input.push_back({float(wave(double(i) / from)), float(-wave(double(i) / from))});
        const StereoFrame stereo = resampler.Interpolate(n, input.data());
        EXPECT_EQ(stereo.left, -stereo.right);
        output.push_back(stereo.left);
    }
    return output;
}

// The largest distance from the wave itself, in decibels below full scale.
static double Error(double (*wave)(double), int from, int to)
{
    const std::vector<double> output = Resample(wave, from, to, 100000, 2000);
    double worst = 0.0;
    for (size_t i = 0; i < output.size(); ++i)
        worst = std::max(worst, std::fabs(output[i] - wave(double(100000 + i) / to)));
    return 20.0 * std::log10(worst);
}

static double Level(double (*wave)(double), int from, int to)
{
    double largest = 1e-10;
    for (double sample : Resample(wave, from, to, 100000, 2000))
        largest = std::max(largest, std::fabs(sample));
    return 20.0 * std::log10(largest);
}

static double Constant(double)
{
    return 1.0;
}
static double Low(double t)
{
    return std::sin(2.0 * pi * 440.0 * t);
}
static double Middle(double t)
{
    return std::sin(2.0 * pi * 9876.0 * t);
}
static double High(double t)
{
    return std::sin(2.0 * pi * 19500.0 * t);
}
static double BeyondHearing(double t)
{
    return std::sin(2.0 * pi * 22500.0 * t);
}
static double NearTheEdgeOfHalf(double t)
{
    return std::sin(2.0 * pi * 9700.0 * t);
}

TEST(ResamplerQuality, WavesUpToTheBandEdgeComeThroughWithin95Decibels)
{
    for (int from : {48000, 88200, 96000, 192000, 44056, 44099, 47999}) {
        EXPECT_LT(Error(Constant, from, 44100), -95.0) << from;
        EXPECT_LT(Error(Low, from, 44100), -95.0) << from;
        EXPECT_LT(Error(Middle, from, 44100), -95.0) << from;
        EXPECT_LT(Error(High, from, 44100), -95.0) << from;
    }
}

TEST(ResamplerQuality, LowRatesGainNoNewTones)
{
    for (int from : {22050, 24000, 32000}) {
        EXPECT_LT(Error(Constant, from, 44100), -95.0) << from;
        EXPECT_LT(Error(Low, from, 44100), -95.0) << from;
        EXPECT_LT(Error(NearTheEdgeOfHalf, from, 44100), -95.0) << from;
    }
    EXPECT_LT(Error(Low, 8000, 44100), -95.0);
    EXPECT_LT(Error(Low, 11025, 44100), -95.0);
}

TEST(ResamplerQuality, WhatTheLowerRateCannotHoldIsAHundredDecibelsDown)
{
    for (int from : {48000, 96000, 192000, 47999})
        EXPECT_LT(Level(BeyondHearing, from, 44100), -97.0) << from;
}

TEST(ResamplerQuality, AnOutputAtAnotherRateIsServedAsWell)
{
    EXPECT_LT(Error(Middle, 44100, 48000), -95.0);
    EXPECT_LT(Error(High, 44100, 48000), -95.0);
}

TEST(ResamplerPlaces, EqualRatesCopy)
{
    Resampler resampler(44100, 44100);
    const StereoFrame input = {0.3f, -0.7f};
    for (int64_t n : {int64_t(0), int64_t(1), int64_t(94704028833)}) {
        EXPECT_EQ(n, resampler.FirstInput(n));
        EXPECT_EQ(n, resampler.LastInput(n));
        const StereoFrame stereo = resampler.Interpolate(n, &input);
        EXPECT_EQ(0.3f, stereo.left);
        EXPECT_EQ(-0.7f, stereo.right);
    }
    EXPECT_EQ(1234, resampler.OutputLength(1234));
}

TEST(ResamplerPlaces, AFrameIsMadeOfItsSurroundings)
{
    const Resampler up(22050, 44100);
    EXPECT_EQ(-63, up.FirstInput(0));
    EXPECT_EQ(64, up.LastInput(0));
    EXPECT_EQ(-63, up.FirstInput(1)); // half a frame on
    EXPECT_EQ(-62, up.FirstInput(2));
    EXPECT_EQ(65, up.LastInput(2));
    const Resampler down(88200, 44100);
    EXPECT_EQ(2 * 1000 - 127, down.FirstInput(1000));
    EXPECT_EQ(2 * 1000 + 128, down.LastInput(1000));
    const Resampler studio(48000, 44100);
    EXPECT_EQ(160 - 71, studio.FirstInput(147)); // 64 * 48000 / 44100 is 69.7, in fours
    EXPECT_EQ(160 + 72, studio.LastInput(147));
}

TEST(ResamplerPlaces, ThePlaceIsExactHoweverFarInTheMusic)
{
    Resampler studio(48000, 44100);
    const int64_t far = 147LL * 600000000; // 23 days
    EXPECT_EQ(studio.FirstInput(77) + 160LL * 600000000, studio.FirstInput(77 + far));
    std::vector<StereoFrame> input;
    for (int i = 0; i < 144; ++i)
        input.push_back({float(i * 37 % 101) / 101.0f, float(i * 41 % 103) / 103.0f});
    const StereoFrame here = studio.Interpolate(77, input.data());
    const StereoFrame there = studio.Interpolate(77 + far, input.data());
    EXPECT_EQ(here.left, there.left);
    EXPECT_EQ(here.right, there.right);
}

TEST(ResamplerPlaces, TheKernelIsSymmetrical)
{
    Resampler studio(48000, 44100);
    std::vector<StereoFrame> input(144, {0.0f, 0.0f});
    input[70].left = 1.0f;  // the frame before the place
    input[72].right = 1.0f; // the frame behind it
    const StereoFrame stereo = studio.Interpolate(147, input.data());
    EXPECT_EQ(stereo.left, stereo.right);
    EXPECT_NE(0.0f, stereo.left);
}

TEST(ResamplerPlaces, TheOutputEndsWithTheInput)
{
    const Resampler studio(48000, 44100);
    EXPECT_EQ(0, studio.OutputLength(0));
    EXPECT_EQ(1, studio.OutputLength(1));
    EXPECT_EQ(44100, studio.OutputLength(48000));
    EXPECT_EQ(44101, studio.OutputLength(48001)); // frame 44100 lies at 48000
    EXPECT_EQ(2, Resampler(22050, 44100).OutputLength(1));
    EXPECT_EQ(2, Resampler(44099, 44100).OutputLength(1)); // frame 1 lies at 0.99998
}

// The weight of an input frame that lies that many frames of the lower rate from the place: the sinc and the
// window as the header tells them, the Bessel function by the standard library's own road.
static double Kernel(double distance)
{
    const double side = distance / 64.0;
    if (side >= 1.0)
        return 0.0;
    const double angle = pi * 0.95 * distance;
    const double sinc = angle == 0.0 ? 1.0 : std::sin(angle) / angle;
    return 0.95 * sinc * std::cyl_bessel_i(0.0, 10.06 * std::sqrt(1.0 - side * side)) /
           std::cyl_bessel_i(0.0, 10.06);
}

// Between two entries of the table, 1024 to a crossing, the kernel is a line: that is off by 4e-7 where it bends most.
TEST(ResamplerKernel, EveryWeightIsThatOfTheWindowedSinc)
{
    // Fewer phases than are kept ready, more than that, and a place in the middle of the table's last step.
    for (const auto& [from, to] : {std::pair(48000, 44100), std::pair(22050, 44100), std::pair(44100, 48000),
                                   std::pair(44099, 44100), std::pair(44100, 44099), std::pair(1, 2048)}) {
        Resampler resampler(from, to);
        const double scale = std::min(1.0, double(to) / from);
        for (int64_t n : {1, 2, 1000, 12345}) {
            const int64_t first = resampler.FirstInput(n);
            const int length = int(resampler.LastInput(n) - first + 1);
            for (int i = 0; i < length; ++i) {
                std::vector<StereoFrame> input(length, {0.0f, 0.0f});
                input[i] = {1.0f, -1.0f};
                const StereoFrame weight = resampler.Interpolate(n, input.data());
                const double distance = std::fabs(double(first + i) - double(n) * from / to) * scale;
                // The table's last step falls to the nought behind it.
                const double last = 65535.0 / 1024.0;
                const double expected = distance > last && distance < 64.0
                                            ? Kernel(last) * (64.0 - distance) * 1024.0
                                            : Kernel(distance);
                const double tolerance =
                    5e-7 * std::fabs(
                               std::cyl_bessel_i(0.0, 10.06 * std::sqrt(std::max(
                                                                  0.0, 1.0 - distance * distance / 4096.0))) /
                               std::cyl_bessel_i(0.0, 10.06)) +
                    1e-9;
                ASSERT_NEAR(scale * expected, weight.left, tolerance)
                    << from << " to " << to << ", frame " << n << ", input " << i << " of " << length;
                ASSERT_EQ(-weight.left, weight.right);
            }
        }
    }
}
