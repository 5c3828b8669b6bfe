// SPDX-License-Identifier: MIT
#include "tools/edit/FrameCache.h"

#include <gtest/gtest.h>

using namespace edit;

static FramePixels Pixels(uint8_t value)
{
    return std::make_shared<std::vector<uint8_t>>(100, value);
}

static int Value(const FramePixels& pixels)
{
    return pixels ? pixels->at(0) : -1;
}

TEST(FrameCache, FindsAFrameOfItsRevisionOnly)
{
    FrameCache cache(1000);
    cache.Add(7, 2, Pixels(70));
    EXPECT_EQ(70, Value(cache.Find(7, 2)));
    EXPECT_EQ(-1, Value(cache.Find(7, 1)));
    EXPECT_EQ(-1, Value(cache.Find(7, 3)));
    EXPECT_EQ(-1, Value(cache.Find(8, 2)));
}

TEST(FrameCache, TheLeastRecentlyUsedGoWhenThereIsNoRoom)
{
    FrameCache cache(300);
    for (int frame : {1, 2, 3})
        cache.Add(frame, 1, Pixels(uint8_t(frame)));
    EXPECT_EQ(300u, cache.Bytes());
    cache.Find(1, 1);
    cache.Add(4, 1, Pixels(4));
    EXPECT_EQ(300u, cache.Bytes());
    EXPECT_EQ(1, Value(cache.Find(1, 1)));
    EXPECT_EQ(-1, Value(cache.Find(2, 1)));
    EXPECT_EQ(3, Value(cache.Find(3, 1)));
    EXPECT_EQ(4, Value(cache.Find(4, 1)));
}

TEST(FrameCache, TheLatestFrameStaysHoweverLargeItIs)
{
    FrameCache cache(50);
    cache.Add(1, 1, Pixels(1));
    EXPECT_EQ(1, Value(cache.Find(1, 1)));
    cache.Add(2, 1, Pixels(2));
    EXPECT_EQ(2, Value(cache.Find(2, 1)));
    EXPECT_EQ(100u, cache.Bytes());
}

TEST(FrameCache, AFrameMadeAnewTakesItsOwnPlaceButNotThatOfANewerRevision)
{
    FrameCache cache(1000);
    cache.Add(1, 5, Pixels(15));
    cache.Add(1, 6, Pixels(16));
    EXPECT_EQ(100u, cache.Bytes());
    EXPECT_EQ(16, Value(cache.Find(1, 6)));
    cache.Add(1, 4, Pixels(14));
    EXPECT_EQ(16, Value(cache.Find(1, 6)));
    EXPECT_EQ(100u, cache.Bytes());
}

TEST(FrameCache, FramesThatAChangeLeavesAsTheyAreAreCarriedOver)
{
    FrameCache cache(1000);
    cache.Add(1, 1, Pixels(1));
    cache.Add(2, 1, Pixels(2));
    cache.Add(3, 9, Pixels(3));
    cache.Carry(1, 2, 2);
    EXPECT_EQ(1, Value(cache.Find(1, 2)));
    EXPECT_EQ(-1, Value(cache.Find(2, 2)));
    EXPECT_EQ(2, Value(cache.Find(2, 1)));
    cache.Carry(1, 2, 9);
    EXPECT_EQ(2, Value(cache.Find(2, 2)));
    EXPECT_EQ(-1, Value(cache.Find(3, 2)));
    cache.Clear();
    EXPECT_EQ(0u, cache.Bytes());
    EXPECT_EQ(-1, Value(cache.Find(1, 2)));
}
