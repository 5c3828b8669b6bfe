// SPDX-License-Identifier: MIT
#include "kernel/FrameTimer.h"

#include "platform/SteppedClock.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

static const int64_t second = 1000000000;

class FrameTimerTest : public testing::Test
{
protected:
    FrameTimerTest() { platform::UseSteppedClock(); }
    static void Frame(int64_t counts)
    {
        platform::StepClock(counts);
        FrameTimer::Update();
    }
};

TEST_F(FrameTimerTest, AheadOfTheFirstInitNothingHasPassed)
{
    // Effects read it while they load.
    EXPECT_EQ(0.0f, FrameTimer::GetTime());
    EXPECT_EQ(0.0f, FrameTimer::GetDelta());
    EXPECT_EQ(0, FrameTimer::GetFPS());
}

TEST_F(FrameTimerTest, InitTakesTheFrameRateBack)
{
    FrameTimer::Init(0);
    Frame(second);
    EXPECT_EQ(2, FrameTimer::GetFPS());
    FrameTimer::Init(0);
    EXPECT_EQ(0, FrameTimer::GetFPS());
}

TEST_F(FrameTimerTest, StartsAtTheOffsetWithADeltaOfZero)
{
    platform::StepClock(5 * second);
    FrameTimer::Init(90.0f);
    EXPECT_EQ(90.0f, FrameTimer::GetTime());
    EXPECT_EQ(0.0f, FrameTimer::GetDelta());
    EXPECT_EQ(0, FrameTimer::GetFPS());
}

TEST_F(FrameTimerTest, AllIsZeroBeforeTheClockStarts)
{
    EXPECT_EQ(0.0f, FrameTimer::GetTime());
    EXPECT_EQ(0.0f, FrameTimer::GetDelta());
    EXPECT_EQ(0, FrameTimer::GetFPS());
}

TEST_F(FrameTimerTest, ASecondInitForgetsTheRateAndTheTimeGatheredForIt)
{
    FrameTimer::Init(0);
    Frame(second);
    Frame(second / 2);
    EXPECT_EQ(2, FrameTimer::GetFPS());
    FrameTimer::Init(0);
    EXPECT_EQ(0, FrameTimer::GetFPS());
    FrameTimer::Update(); // the elapsed time goes back to 0
    Frame(2 * second);
    Frame(second / 4);
    EXPECT_EQ(0, FrameTimer::GetFPS()) << "gathered since: -1.5 s, then 2 s and 0.25 s";
    Frame(second / 4);
    EXPECT_EQ(6, FrameTimer::GetFPS()) << "a frame and the Init before, four frames since";
}

TEST_F(FrameTimerTest, TimeMovesOnlyInUpdate)
{
    FrameTimer::Init(0);
    platform::StepClock(second);
    EXPECT_EQ(0.0f, FrameTimer::GetTime());
    FrameTimer::Update();
    EXPECT_EQ(1.0f, FrameTimer::GetTime());
    EXPECT_EQ(1.0f, FrameTimer::GetDelta());
}

TEST_F(FrameTimerTest, DeltaIsTheLengthOfTheLastFrame)
{
    FrameTimer::Init(10.0f);
    Frame(second / 4);
    EXPECT_EQ(0.25f, FrameTimer::GetDelta());
    Frame(second / 2);
    EXPECT_EQ(0.5f, FrameTimer::GetDelta());
    EXPECT_EQ(10.75f, FrameTimer::GetTime());
}

TEST_F(FrameTimerTest, ALongFrameCountsWholeAndEndsTheWindow)
{
    FrameTimer::Init(0);
    Frame(5 * second / 2);
    EXPECT_EQ(2.5f, FrameTimer::GetDelta());
    EXPECT_EQ(2, FrameTimer::GetFPS()) << "the first count holds one frame more than was drawn";
    Frame(5 * second / 2);
    EXPECT_EQ(1, FrameTimer::GetFPS());
}

TEST_F(FrameTimerTest, RateStaysZeroThroughTheFirstSecondAndThenIsTheCount)
{
    FrameTimer::Init(0);
    for (int i = 0; i < 3; i++) {
        Frame(second / 4);
        EXPECT_EQ(0, FrameTimer::GetFPS());
    }
    Frame(second / 4);
    EXPECT_EQ(5, FrameTimer::GetFPS());
    for (int i = 0; i < 3; i++) {
        Frame(second / 4);
        EXPECT_EQ(5, FrameTimer::GetFPS());
    }
    Frame(second / 4);
    EXPECT_EQ(4, FrameTimer::GetFPS());
}

TEST_F(FrameTimerTest, SixtyEqualFramesGiveSixtyOrSixtyOne)
{
    FrameTimer::Init(0);
    for (int i = 0; i < 61; i++)
        Frame(second / 60 + 1);
    EXPECT_GE(FrameTimer::GetFPS(), 60);
    EXPECT_LE(FrameTimer::GetFPS(), 61);
}

TEST_F(FrameTimerTest, WhatIsOverASecondIsThrownAway)
{
    FrameTimer::Init(0);
    Frame(15 * second / 10); // fps window 1.5 ends here and leaves nothing
    EXPECT_EQ(2, FrameTimer::GetFPS());
    Frame(6 * second / 10);
    EXPECT_EQ(2, FrameTimer::GetFPS()) << "0.5 left over would have ended this window";
    Frame(6 * second / 10);
    EXPECT_EQ(2, FrameTimer::GetFPS());
    Frame(second);
    EXPECT_EQ(1, FrameTimer::GetFPS());
}

TEST_F(FrameTimerTest, SpeedScalesTimeAndLeavesDeltaReal)
{
    FrameTimer::Init(0);
    FrameTimer::SetSpeed(2.0f);
    Frame(second / 2);
    EXPECT_EQ(1.0f, FrameTimer::GetTime());
    EXPECT_EQ(0.5f, FrameTimer::GetDelta());
}

TEST_F(FrameTimerTest, TheRateCountsRealSecondsWhateverTheSpeed)
{
    FrameTimer::Init(0);
    FrameTimer::SetSpeed(4.0f);
    for (int i = 0; i < 3; i++) {
        Frame(second / 4);
        EXPECT_EQ(0, FrameTimer::GetFPS()) << "not a second yet, though GetTime is " << FrameTimer::GetTime();
    }
    Frame(second / 4);
    EXPECT_EQ(5, FrameTimer::GetFPS());
    EXPECT_EQ(4.0f, FrameTimer::GetTime());
}

TEST_F(FrameTimerTest, SetTimeWritesTheScaledTimeUnderTheOffset)
{
    FrameTimer::Init(10.0f);
    FrameTimer::SetTime(3.0f);
    EXPECT_EQ(13.0f, FrameTimer::GetTime());
    Frame(second);
    EXPECT_EQ(14.0f, FrameTimer::GetTime());
}

TEST_F(FrameTimerTest, ASecondInitKeepsScaledTimeElapsedAndFrameCount)
{
    FrameTimer::Init(0);
    Frame(second / 2);
    FrameTimer::Init(100.0f);
    EXPECT_EQ(100.5f, FrameTimer::GetTime());
    EXPECT_EQ(0.0f, FrameTimer::GetDelta());
    Frame(second);
    EXPECT_EQ(0.5f, FrameTimer::GetDelta()) << "elapsed was 0.5 when the counter started anew";
    Frame(second / 2);
    EXPECT_EQ(5, FrameTimer::GetFPS()) << "two Inits and three frames";
}

TEST_F(FrameTimerTest, DeltasAreQuantisedToTheStepsOfAFloat)
{
    FrameTimer::Init(0);
    Frame(300 * second);
    EXPECT_EQ(300.0f, FrameTimer::GetDelta());
    // Floats from 256 to 512 are 2^-15 s apart, and 16666666 ns are 546.13 of those steps.
    Frame(16666666);
    EXPECT_EQ(546 / 32768.0f, FrameTimer::GetDelta());
    EXPECT_EQ(300 + 546 / 32768.0f, FrameTimer::GetTime());
    // 33333333 ns are 1092.27 steps.
    Frame(16666667);
    EXPECT_EQ(546 / 32768.0f, FrameTimer::GetDelta());
    EXPECT_EQ(300 + 1092 / 32768.0f, FrameTimer::GetTime());
}

TEST_F(FrameTimerTest, AQuotientOfCountsIsRoundedOnce)
{
    FrameTimer::Init(0);
    Frame(9 * second / 4);
    EXPECT_EQ(2.25f, FrameTimer::GetTime());
    EXPECT_EQ(2.25f, FrameTimer::GetDelta()) << "2250000000 is no float, the nearest is 2249999872";
}

// What the nearest float to a moment is, by way of its decimals: strtof rounds correctly.
static float NearestFloat(int64_t counts)
{
    char decimals[32];
    snprintf(decimals, sizeof decimals, "%lld.%09lld", static_cast<long long>(counts / second),
             static_cast<long long>(counts % second));
    return strtof(decimals, nullptr);
}

TEST_F(FrameTimerTest, EveryFrameOfTenMinutesShowsTheNearestFloatToItsMoment)
{
    for (const int64_t rate : {20, 25, 50, 60}) {
        platform::UseSteppedClock();
        FrameTimer::Init(0);
        FrameTimer::Update(); // takes over what the rate before left
        FrameTimer::Update();
        FrameTimer::SetTime(0);
        int64_t reached = 0;
        int wholeMilliseconds = 0;
        for (int64_t frame = 1; frame <= 600 * rate; frame++) {
            const int64_t moment = frame * second / rate;
            Frame(moment - reached);
            reached = moment;
            ASSERT_EQ(NearestFloat(moment), FrameTimer::GetTime()) << "frame " << frame << " at " << rate;
            wholeMilliseconds += frame * 1000 % rate == 0;
        }
        EXPECT_EQ(rate == 60 ? 12000 : 600 * rate, wholeMilliseconds);
    }
}
