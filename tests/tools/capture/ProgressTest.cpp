// SPDX-License-Identifier: MIT
#include "tools/capture/Progress.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

using capture::Progress;

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
