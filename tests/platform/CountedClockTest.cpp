// SPDX-License-Identifier: MIT
#include "platform/CountedClock.h"
#include "kernel/FrameTimer.h"
#include "platform/SteppedClock.h"

#include <gtest/gtest.h>

class CountedClock : public testing::Test
{
protected:
    ~CountedClock() override { platform::UseRealClock(); }

    static int64_t Squares(void* factor, int64_t read)
    {
        return *static_cast<int64_t*>(factor) * read * read;
    }

    int64_t factor = 5;
};

TEST_F(CountedClock, AsksForTheCountOfEachRead)
{
    platform::UseCountedClock(Squares, &factor);
    EXPECT_EQ(0, platform::ClockReads());
    EXPECT_EQ(0, platform::ReadCounter());
    EXPECT_EQ(5, platform::ReadCounter());
    EXPECT_EQ(20, platform::ReadCounter());
    EXPECT_EQ(3, platform::ClockReads());
    EXPECT_EQ(1000000000, platform::CounterFrequency());
}

TEST_F(CountedClock, BeginsAnewEachTimeItIsChosen)
{
    platform::UseCountedClock(Squares, &factor);
    platform::ReadCounter();
    platform::UseCountedClock(Squares, &factor);
    EXPECT_EQ(0, platform::ClockReads());
    EXPECT_EQ(0, platform::ReadCounter());
}

TEST_F(CountedClock, IsMovedNeitherByAWaitNorByAStep)
{
    platform::UseCountedClock(Squares, &factor);
    platform::Sleep(100000000); // more than a day, at once
    platform::StepClock(7);
    EXPECT_EQ(0, platform::ClockReads());
    EXPECT_EQ(0, platform::ReadCounter());
    EXPECT_EQ(5, platform::ReadCounter());
}

TEST_F(CountedClock, IsReadByTheTimerOnceAtTheStartAndOnceBehindEachFrame)
{
    platform::UseCountedClock(Squares, &factor);
    FrameTimer::Init(0);
    EXPECT_EQ(1, platform::ClockReads());
    FrameTimer::GetTime();
    FrameTimer::GetDelta();
    FrameTimer::Update();
    EXPECT_EQ(2, platform::ClockReads());
}
