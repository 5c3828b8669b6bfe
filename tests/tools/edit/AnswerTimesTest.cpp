// SPDX-License-Identifier: MIT
#include "tools/edit/AnswerTimes.h"

#include <gtest/gtest.h>

using edit::AnswerTimes;

TEST(AnswerTimesOfTheWindow, AreTheRoundAloneForWhatCameWhileItWaited)
{
    AnswerTimes times;
    times.Wait(10);
    times.Begin(10.5, true);
    times.Draw(10.51);
    times.Wait(10.53);
    ASSERT_EQ(1u, times.Answers().size());
    EXPECT_NEAR(0.03, times.Answers()[0], 1e-6);
    EXPECT_NEAR(0.03, times.LongestBusy(), 1e-6);
    EXPECT_NEAR(0.01, times.LongestBusyAhead(), 1e-6);
}

TEST(AnswerTimesOfTheWindow, CountTheRoundBeforeForWhatCameDuringIt)
{
    AnswerTimes times;
    times.Wait(10);
    times.Begin(10.5, false); // without an event: nobody waits for an answer
    times.Wait(10.6);
    times.Begin(10.6002, true);
    times.Wait(10.65);
    ASSERT_EQ(1u, times.Answers().size());
    EXPECT_NEAR(0.15, times.Answers()[0], 1e-6);
    EXPECT_NEAR(0.1, times.LongestBusy(), 1e-6);
    EXPECT_NEAR(0.1, times.LongestBusyAhead(), 1e-6) << "it drew nothing";
}
