// SPDX-License-Identifier: MIT
#include "tools/capture/FrameRate.h"

#include <gtest/gtest.h>

using capture::FrameRate;
using capture::ReadFrameRate;
using capture::ReadTime;
using capture::TimeText;

static FrameRate Rate(int64_t frames, int64_t seconds = 1)
{
    FrameRate rate;
    rate.frames = frames;
    rate.seconds = seconds;
    return rate;
}

TEST(FrameRate, IsSixtyUnlessTold)
{
    EXPECT_EQ("60", FrameRate().Text());
}

TEST(FrameRate, CountsAFrameThatHasBegun)
{
    struct {
        FrameRate rate;
        int64_t microseconds;
        int64_t frames;
    } const rows[] = {
        {Rate(30), 0, 0},
        {Rate(30), 1, 1},
        {Rate(30), 33333, 1},
        {Rate(30), 33334, 2}, // frame 1 began at 33333.3
        {Rate(30), 1000000, 30},
        {Rate(30), 1000001, 31},
        {Rate(60), 372600000, 22356},
        {Rate(60000, 1001), 1000000, 60},      // 59.94
        {Rate(60000, 1001), 1001000, 60},      // exactly
        {Rate(60000, 1001), 1001001, 61},      //
        {Rate(60000, 1001), 372600000, 22334}, // 22333.67
        {Rate(7, 3), 1000000, 3},              // 2.33
        {Rate(1, 1000000), 1, 1},              //
        {Rate(1000000), 4294967296000, 4294967296000},
        {Rate(999999, 1000000), 4294967296000, 4294964},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.frames, row.rate.FramesBefore(row.microseconds))
            << row.rate.Text() << " " << row.microseconds;
}

TEST(FrameRate, KnowsTheMomentOfAFrameToTheCount)
{
    EXPECT_EQ(0, Rate(30).MomentOf(0, 1000000000));
    EXPECT_EQ(33333333, Rate(30).MomentOf(1, 1000000000));
    EXPECT_EQ(66666666, Rate(30).MomentOf(2, 1000000000));
    EXPECT_EQ(100000000, Rate(30).MomentOf(3, 1000000000));
    EXPECT_EQ(1001000000000, Rate(60000, 1001).MomentOf(60000, 1000000000));
    EXPECT_EQ(16683333, Rate(60000, 1001).MomentOf(1, 1000000000));
    EXPECT_EQ(735, Rate(60).MomentOf(1, 44100));
    EXPECT_EQ(735, Rate(60000, 1001).MomentOf(1, 44100)); // 735.735
    EXPECT_EQ(1471, Rate(60000, 1001).MomentOf(2, 44100));
    // Days into a show at the finest rate.
    EXPECT_EQ(4294967296000000, Rate(1000000).MomentOf(4294967296000, 1000000000));
}

TEST(FrameRate, FramesBeginNeitherEarlierNorLaterThanTheyAreCounted)
{
    for (const FrameRate& rate : {Rate(30), Rate(24000, 1001), Rate(60000, 1001), Rate(7, 3), Rate(144)})
        for (int64_t frame = 1; frame < 5000; frame += 7) {
            const int64_t moment = rate.MomentOf(frame, 1000000);
            EXPECT_LE(rate.FramesBefore(moment), frame) << rate.Text();
            EXPECT_EQ(frame + 1, rate.FramesBefore(moment + 1)) << rate.Text();
        }
}

TEST(FrameRate, IsReadAsAWholeNumberOrAFraction)
{
    FrameRate rate;
    EXPECT_TRUE(ReadFrameRate("24", &rate));
    EXPECT_EQ("24", rate.Text());
    EXPECT_TRUE(ReadFrameRate("60000/1001", &rate));
    EXPECT_EQ("60000/1001", rate.Text());
    EXPECT_TRUE(ReadFrameRate("50/2", &rate));
    EXPECT_EQ("25", rate.Text());
    EXPECT_TRUE(ReadFrameRate("1000000/1000000", &rate));
    EXPECT_EQ("1", rate.Text());
    for (const char* wrong : {"", "0", "-1", "29.97", "30/", "/2", "30/0", "30/1/1", "1000001", "1/1000001",
                              " 30", "30 ", "x", "99999999999999999999"})
        EXPECT_FALSE(ReadFrameRate(wrong, &rate)) << wrong;
    EXPECT_EQ("1", rate.Text());
}

TEST(CaptureTime, IsReadInSecondsOrWithMinutesAndHours)
{
    int64_t time = -1;
    const struct {
        const char* text;
        int64_t microseconds;
    } rows[] = {{"0", 0},
                {"90", 90000000},
                {"90.5", 90500000},
                {"90.000001", 90000001},
                {"1:30.25", 90250000},
                {"0:07", 7000000},
                {"2:00:00.1", 7200100000},
                {"4294967.295", 4294967295000}};
    for (const auto& row : rows) {
        EXPECT_TRUE(ReadTime(row.text, &time)) << row.text;
        EXPECT_EQ(row.microseconds, time) << row.text;
    }
    for (const char* wrong : {"", "-1", "1,5", "1:60", "1:00:60", "1:2:3:4", ":5", "5:", ".5", "5.",
                              "1.0000001", "1e3", "5000001", "1:5000000", "99999999999999999999", "5 "})
        EXPECT_FALSE(ReadTime(wrong, &time)) << wrong;
}

TEST(CaptureTime, IsToldInMinutesAndSecondsAndDecimalsOnlyWhereThereAreAny)
{
    EXPECT_EQ("0:00", TimeText(0));
    EXPECT_EQ("0:07.5", TimeText(7500000));
    EXPECT_EQ("6:12.6", TimeText(372600000));
    EXPECT_EQ("61:01.000001", TimeText(3661000001));
}
