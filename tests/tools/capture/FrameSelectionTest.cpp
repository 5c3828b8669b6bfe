// SPDX-License-Identifier: MIT
#include "tools/capture/FrameSelection.h"

#include <gtest/gtest.h>

using capture::FrameRate;
using capture::FrameSelection;

static std::vector<int64_t> PicksOf(const FrameSelection& selection)
{
    std::vector<int64_t> picks;
    for (int64_t i = 0; i < selection.picks; i++)
        picks.push_back(selection.Pick(i));
    return picks;
}

// The same by asking frame by frame, as a capture does.
static std::vector<int64_t> WantedOf(const FrameSelection& selection, int64_t frames)
{
    std::vector<int64_t> wanted;
    for (int64_t frame = 0; frame < frames; frame++)
        if (selection.Wants(frame))
            wanted.push_back(frame);
    return wanted;
}

static FrameRate Rate(const char* text)
{
    FrameRate rate;
    EXPECT_TRUE(capture::ReadFrameRate(text, &rate));
    return rate;
}

TEST(FrameSelection, HasTheFramesThatBeginInItsTime)
{
    const FrameSelection whole = FrameSelection::Of(Rate("10"), 0, 1000000);
    EXPECT_EQ((std::vector<int64_t>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}), PicksOf(whole));
    const FrameSelection part = FrameSelection::Of(Rate("10"), 200000, 450000);
    EXPECT_EQ((std::vector<int64_t>{2, 3, 4}), PicksOf(part));
    EXPECT_EQ(PicksOf(part), WantedOf(part, 20));
}

TEST(FrameSelection, OfTimesThatMeetSharesNoFrameAndLosesNone)
{
    for (const char* rate : {"60", "60000/1001", "7/3"})
        for (int64_t cut = 0; cut <= 3000000; cut += 123457) {
            const FrameSelection before = FrameSelection::Of(Rate(rate), 0, cut);
            const FrameSelection behind = FrameSelection::Of(Rate(rate), cut, 3000000);
            EXPECT_EQ(before.end, behind.first);
            EXPECT_EQ(FrameSelection::Of(Rate(rate), 0, 3000000).picks, before.picks + behind.picks);
        }
}

TEST(FrameSelection, WithNoTimeHasNoFrame)
{
    EXPECT_EQ(0, FrameSelection::Of(Rate("30"), 500000, 500000).picks);
    EXPECT_EQ(0, FrameSelection::Of(Rate("30"), 500000, 100000).picks);
    EXPECT_EQ(0, FrameSelection::Of(Rate("1"), 500000, 900000).picks); // no frame begins in between
}

TEST(FrameSelection, FallsIntoEvenParts)
{
    const FrameSelection whole = FrameSelection::Of(Rate("10"), 100000, 1100000);
    for (int64_t count : {1, 2, 3, 7, 10, 25}) {
        int64_t next = whole.first;
        for (int64_t number = 1; number <= count; number++) {
            const FrameSelection part = whole.Part(number, count);
            EXPECT_EQ(next, part.first);
            EXPECT_EQ(part.end - part.first, part.picks);
            EXPECT_LE(std::abs(part.picks - 10 / count), 1);
            next = part.end;
        }
        EXPECT_EQ(whole.end, next);
    }
}

TEST(FrameSelection, TakesTheFirstFrameOfEachPeriod)
{
    const FrameSelection thinned = FrameSelection::Of(Rate("10"), 0, 2000000).Every(750000);
    EXPECT_EQ((std::vector<int64_t>{0, 8, 15}), PicksOf(thinned));
    EXPECT_EQ(PicksOf(thinned), WantedOf(thinned, 30));
    const FrameSelection late = FrameSelection::Of(Rate("10"), 300000, 2000000).Every(1000000);
    EXPECT_EQ((std::vector<int64_t>{3, 13}), PicksOf(late));
    EXPECT_EQ(20, thinned.NextWanted(16));
    EXPECT_EQ(8, thinned.NextWanted(1));
}

TEST(FrameSelection, LeavesNothingOutWhereAPeriodIsNoLongerThanAFrame)
{
    EXPECT_EQ(20, FrameSelection::Of(Rate("10"), 0, 2000000).Every(100000).picks);
    EXPECT_EQ(20, FrameSelection::Of(Rate("10"), 0, 2000000).Every(1).picks);
    EXPECT_EQ(10, FrameSelection::Of(Rate("10"), 0, 2000000).Every(200000).picks);
}

TEST(FrameSelection, TakesTheWholeRangeForItsPeriodsAfterASpread)
{
    const FrameSelection spread = FrameSelection::Of(Rate("10"), 0, 2000000).Spread(3);
    EXPECT_EQ((std::vector<int64_t>{0, 8, 15}), PicksOf(spread.Every(750000)));
}

TEST(FrameSelection, SpreadsPicksOverTheMiddlesOfEqualStretches)
{
    const FrameSelection spread = FrameSelection::Of(Rate("10"), 0, 2000000).Spread(4);
    EXPECT_EQ((std::vector<int64_t>{2, 7, 12, 17}), PicksOf(spread));
    EXPECT_EQ(PicksOf(spread), WantedOf(spread, 30));
    // No more than there are frames.
    const FrameSelection few = FrameSelection::Of(Rate("10"), 0, 300000).Spread(30);
    EXPECT_EQ((std::vector<int64_t>{0, 1, 2}), PicksOf(few));
}
