// SPDX-License-Identifier: MIT
#include "platform/SteppedClock.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/time.h>

static const int64_t millisecond = 1000000;

TEST(RealClock, CountsNanosecondsAndNeverGoesBack)
{
    EXPECT_EQ(1000000000, platform::CounterFrequency());
    int64_t last = platform::ReadCounter();
    EXPECT_GT(last, 0);
    for (int i = 0; i < 10000; i++) {
        const int64_t now = platform::ReadCounter();
        ASSERT_GE(now, last);
        last = now;
    }
}

TEST(RealClock, AWaitLastsAtLeastItsMilliseconds)
{
    const int64_t start = platform::ReadCounter();
    platform::Sleep(20);
    EXPECT_GE(platform::ReadCounter() - start, 20 * millisecond);
    const int64_t late = platform::ReadCounter();
    platform::Sleep(1005); // more than a second: whole ones and the rest
    EXPECT_GE(platform::ReadCounter() - late, 1005 * millisecond);
}

static int alarms = 0;

TEST(RealClock, ASignalDoesNotCutAWaitShort)
{
    struct sigaction action = {};
    action.sa_handler = [](int) { alarms++; };
    sigaction(SIGALRM, &action, nullptr);
    const itimerval every5Milliseconds = {{0, 5000}, {0, 5000}};
    setitimer(ITIMER_REAL, &every5Milliseconds, nullptr);
    const int64_t start = platform::ReadCounter();
    platform::Sleep(50);
    EXPECT_GE(platform::ReadCounter() - start, 50 * millisecond);
    const itimerval never = {};
    setitimer(ITIMER_REAL, &never, nullptr);
    EXPECT_GT(alarms, 0);
}

TEST(RealClock, CannotBeStepped)
{
    const int64_t before = platform::ReadCounter();
    platform::StepClock(int64_t(1) << 60);
    EXPECT_LT(platform::ReadCounter() - before, int64_t(1) << 59);
}

TEST(SteppedClock, StartsAtZeroAndMovesOnlyWhenItIsTold)
{
    platform::UseSteppedClock();
    EXPECT_EQ(0, platform::ReadCounter());
    EXPECT_EQ(0, platform::ReadCounter());
    platform::StepClock(7);
    EXPECT_EQ(7, platform::ReadCounter());
    platform::Sleep(1000);
    EXPECT_EQ(7 + 1000 * millisecond, platform::ReadCounter()) << "a wait passes at once and counts";
    EXPECT_EQ(1000000000, platform::CounterFrequency());
    platform::UseSteppedClock();
    EXPECT_EQ(0, platform::ReadCounter()) << "a new one, whatever the old one had reached";
    platform::UseRealClock();
    EXPECT_GT(platform::ReadCounter(), 7);
}
