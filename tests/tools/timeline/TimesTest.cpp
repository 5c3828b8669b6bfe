// SPDX-License-Identifier: MIT
#include "tools/timeline/Times.h"

#include <gtest/gtest.h>

using namespace timeline;

TEST(TimelineTimes, AClockTextHasNoMoreDecimalsThanItTakes)
{
    EXPECT_EQ("0:00", ClockText(0));
    EXPECT_EQ("1:26.4", ClockText(86.4));
    EXPECT_EQ("1:26.4", ClockText(double(86.4f)));
    EXPECT_EQ("6:12.6", ClockText(double(372.6f)));
    EXPECT_EQ("0:01.003", ClockText(1.003));
    EXPECT_EQ("0:01.05", ClockText(1.05));
    EXPECT_EQ("59:59.999", ClockText(3599.999));
    EXPECT_EQ("1:00:00", ClockText(3600));
    EXPECT_EQ("1193:02:47.295", ClockText(4294967.295));
}

TEST(TimelineTimes, LengthsAndMillisecondsAreRoundedToWholeOnes)
{
    EXPECT_EQ("57.6 s", LengthText(57.6));
    EXPECT_EQ("0 s", LengthText(0.0004));
    EXPECT_EQ("0.001 s", LengthText(0.0006));
    EXPECT_EQ("86400", MillisecondText(double(86.4f)));
    EXPECT_EQ("372600", MillisecondText(double(372.6f)));
}

TEST(TimelineTimes, AWaltzHasBarsOf1800AndBeatsOf600Milliseconds)
{
    const Tempo waltz;
    EXPECT_DOUBLE_EQ(0.6, waltz.BeatSeconds());
    EXPECT_DOUBLE_EQ(1.8, waltz.BarSeconds());
    EXPECT_EQ("bar 0", MusicalText(0, waltz));
    EXPECT_EQ("bar 48", MusicalText(double(86.4f), waltz));
    EXPECT_EQ("bar 47, beat 2", MusicalText(85.2, waltz));
    EXPECT_EQ("bar 47, beat 2 + 30 ms", MusicalText(85.23, waltz));
    EXPECT_EQ("bar 47, beat 1 + 1 ms", MusicalText(84.601, waltz));
    EXPECT_EQ("bar 46, beat 3 + 599 ms", MusicalText(84.599, waltz));
}

TEST(TimelineTimes, OtherTemposCountOtherwise)
{
    const Tempo march = {120, 4};
    EXPECT_DOUBLE_EQ(2, march.BarSeconds());
    EXPECT_EQ("bar 30, beat 4", MusicalText(61.5, march));
    const Tempo odd = {170, 5}; // a beat of 352.94 ms: whole milliseconds lie beside it
    EXPECT_EQ("bar 1", MusicalText(1.765, odd));
    EXPECT_EQ("bar 20", MusicalText(35.294, odd));
}

TEST(TimelineTimes, BarsAreNumberedInPowersOfTwo)
{
    const Tempo waltz;
    EXPECT_EQ(1, BarStep(0.1, waltz));
    EXPECT_EQ(1, BarStep(1.8, waltz));
    EXPECT_EQ(2, BarStep(1.81, waltz));
    EXPECT_EQ(16, BarStep(20, waltz));
    EXPECT_EQ(1024, BarStep(1000, waltz));
}

TEST(TimelineTimes, TheClockHasTheStepsOfAClock)
{
    EXPECT_EQ(0.01, ClockStep(0.001));
    EXPECT_EQ(0.5, ClockStep(0.3));
    EXPECT_EQ(1, ClockStep(1));
    EXPECT_EQ(15, ClockStep(11));
    EXPECT_EQ(60, ClockStep(31));
    EXPECT_EQ(3600, ClockStep(3000));
    EXPECT_EQ(14400, ClockStep(10000));
}
