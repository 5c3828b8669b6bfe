// SPDX-License-Identifier: MIT
#include "tools/capture/ProgressText.h"

#include <gtest/gtest.h>

using namespace capture;

TEST(CaptureProgressText, TellsPartSpeedAndTimeLeft)
{
    const CaptureExtent whole = {0, 1000, 1000};
    EXPECT_EQ(" 25 %  250 of 1000  50 a second  15 s left", ProgressLine(whole, 249, 250, 5));
    EXPECT_EQ("100 %  1000 of 1000  50 a second  0 s left", ProgressLine(whole, 999, 1000, 20));
    EXPECT_EQ("  0 %  1 of 1000  0 a second", ProgressLine(whole, 0, 1, 0));
}

TEST(CaptureProgressText, TellsWhatIsPlayedUnseenApart)
{
    const CaptureExtent late = {800, 1000, 200};
    EXPECT_EQ(" 50 %  of what comes before  4 s left", ProgressLine(late, 399, 0, 4));
    EXPECT_EQ(" 50 %  100 of 200  10 a second  10 s left", ProgressLine(late, 899, 100, 10));
}

TEST(CaptureProgressText, DrawsItsBarInWholeCells)
{
    EXPECT_EQ("[....]", BarText(0, 4));
    EXPECT_EQ("[##..]", BarText(0.5, 4));
    EXPECT_EQ("[####]", BarText(1, 4));
}

TEST(CaptureProgressText, TellsTimesInTheirTwoLargestUnits)
{
    EXPECT_EQ("0 s", DurationText(0.4));
    EXPECT_EQ("59 s", DurationText(59.4));
    EXPECT_EQ("1 min 00 s", DurationText(59.6));
    EXPECT_EQ("3 min 05 s", DurationText(185));
    EXPECT_EQ("2 h 07 min", DurationText(7620));
}
