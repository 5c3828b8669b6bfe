// SPDX-License-Identifier: MIT
#include "tools/capture/Progress.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

using capture::Progress;

TEST(CaptureProgress, TellsPartSpeedAndTimeLeft)
{
    Progress progress(nullptr);
    progress.Begin(0, 1000, 1000);
    EXPECT_EQ(" 25 %  250 of 1000  50 a second  15 s left", progress.Line(249, 250, 5));
    EXPECT_EQ("100 %  1000 of 1000  50 a second  0 s left", progress.Line(999, 1000, 20));
    EXPECT_EQ("  0 %  1 of 1000  0 a second", progress.Line(0, 1, 0));
}

TEST(CaptureProgress, TellsWhatIsPlayedUnseenApart)
{
    Progress progress(nullptr);
    progress.Begin(800, 1000, 200);
    EXPECT_EQ(" 50 %  of what comes before  4 s left", progress.Line(399, 0, 4));
    EXPECT_EQ(" 50 %  100 of 200  10 a second  10 s left", progress.Line(899, 100, 10));
}

TEST(CaptureProgress, DrawsItsBarInWholeCells)
{
    EXPECT_EQ("[....]", Progress::BarText(0, 4));
    EXPECT_EQ("[##..]", Progress::BarText(0.5, 4));
    EXPECT_EQ("[####]", Progress::BarText(1, 4));
}

TEST(CaptureProgress, TellsTimesInTheirTwoLargestUnits)
{
    EXPECT_EQ("0 s", Progress::DurationText(0.4));
    EXPECT_EQ("59 s", Progress::DurationText(59.4));
    EXPECT_EQ("1 min 00 s", Progress::DurationText(59.6));
    EXPECT_EQ("3 min 05 s", Progress::DurationText(185));
    EXPECT_EQ("2 h 07 min", Progress::DurationText(7620));
}

TEST(CaptureProgress, OutsideATerminalIsALineForEachTenth)
{
    char* text = nullptr;
    size_t size = 0;
    FILE* const stream = open_memstream(&text, &size);
    {
        Progress progress(stream);
        progress.Begin(10, 110, 100);
        for (int frame = 0; frame < 110; frame++)
            progress.Show(frame, frame < 10 ? 0 : frame - 9);
        progress.Clear();
    }
    fclose(stream);
    const std::string told(text);
    free(text);
    EXPECT_EQ(0u, told.find("playing the 10 frames before the first without drawing\n 10 %  10 of 100"));
    EXPECT_EQ(10, std::count(told.begin(), told.end(), '\n'));
    EXPECT_NE(std::string::npos, told.find("\n 90 %  90 of 100"));
    EXPECT_EQ(std::string::npos, told.find("100 %"));
    EXPECT_EQ(std::string::npos, told.find('\r'));
}

TEST(CaptureProgress, SaysNothingWithoutAStream)
{
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    Progress progress(nullptr);
    progress.Begin(0, 10, 10);
    progress.Show(9, 10);
    progress.Clear();
    EXPECT_EQ("", testing::internal::GetCapturedStdout());
    EXPECT_EQ("", testing::internal::GetCapturedStderr());
}

TEST(CaptureProgress, CountsOneFrameBeforeTheFirstAsOne)
{
    char* text = nullptr;
    size_t size = 0;
    FILE* const stream = open_memstream(&text, &size);
    Progress progress(stream);
    progress.Begin(1, 3, 2);
    progress.Show(0, 0);
    fclose(stream);
    EXPECT_STREQ("playing the frame before the first without drawing\n", text);
    free(text);
}
