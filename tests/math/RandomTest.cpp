// SPDX-License-Identifier: MIT
#include "math/Random.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <random>

TEST(NextRandom, OfAStateOfOne)
{
    int state = 1;
    EXPECT_EQ(346, NextRandom(&state, 1000));
    EXPECT_EQ(22695477, state);
    state = 1;
    EXPECT_EQ(346 % 100, NextRandom(&state, 100));
    state = 1;
    EXPECT_EQ(0, NextRandom(&state, 346));
}

// The rule in 64 bits and plain division, without a shift of a negative number.
static int DrawnByHand(int64_t* state, int n)
{
    int64_t product = *state * 22695477 % 4294967296;
    if (product < 0)
        product += 4294967296;
    *state = product >= 2147483648 ? product - 4294967296 : product;
    const int64_t upper = product / 65536; // of the unsigned form; 32768 and above are negative
    const int64_t drawn = upper >= 32768 ? upper - 65536 : upper;
    return int(drawn % n);
}

TEST(NextRandom, FollowsItsRuleForManySeedsAndRanges)
{
    std::mt19937 random(27);
    for (int round = 0; round < 200; round++) {
        int state = int(random());
        int64_t byHand = state;
        for (int n : {1, 2, 7, 360, 1000, 2000, 32768, 65536, INT_MAX, -5}) {
            ASSERT_EQ(DrawnByHand(&byHand, n), NextRandom(&state, n));
            ASSERT_EQ(byHand, state);
        }
    }
}

TEST(NextRandom, OfTheSeedOfTheClouds)
{
    int state = 310312;
    const int drawn[] = {NextRandom(&state, 2000), NextRandom(&state, 2000), NextRandom(&state, 2000),
                         NextRandom(&state, 2000), NextRandom(&state, 2000)};
    const int expected[] = {-289, -1712, 202, -1287, -385};
    for (int i = 0; i < 5; i++)
        EXPECT_EQ(expected[i], drawn[i]);
}

TEST(NextRandom, IsNegativeHalfOfTheTimeAndLiesWithinItsRange)
{
    int state = 352362122;
    int negative = 0;
    for (int i = 0; i < 10000; i++) {
        const int drawn = NextRandom(&state, 360);
        ASSERT_LT(drawn, 360);
        ASSERT_GT(drawn, -360);
        negative += drawn < 0;
    }
    EXPECT_GT(negative, 4500);
    EXPECT_LT(negative, 5500);
}

TEST(NextRandom, OfAStateOfZeroStaysZero)
{
    int state = 0;
    EXPECT_EQ(0, NextRandom(&state, 10));
    EXPECT_EQ(0, state);
}

TEST(NextRandom, OfNoRangeIsZeroButAdvances)
{
    int state = 1;
    EXPECT_EQ(0, NextRandom(&state, 0));
    EXPECT_EQ(22695477, state);
}

TEST(SkipRandom, IsAsManyDraws)
{
    for (unsigned draws = 0; draws < 100; draws++) {
        int state = 352362123, skipped = 352362123;
        for (unsigned i = 0; i < draws; i++)
            NextRandom(&state, 360);
        SkipRandom(&skipped, draws);
        ASSERT_EQ(state, skipped) << draws;
    }
}

TEST(SkipRandom, ReachesFarAtOnce)
{
    int state = 1;
    SkipRandom(&state, 4294967295u);
    // One more closes the circle: the powers of this multiplier repeat after 2^30 draws.
    NextRandom(&state, 1);
    EXPECT_EQ(1, state);
    SkipRandom(&state, 1000000);
    EXPECT_EQ(-280562943, state);
}

TEST(Random, StartsAsSeededWithOne)
{
    const int expected[] = {41, 18467, 6334, 26500, 19169, 15724, 11478, 29358, 26962, 24464};
    for (int number : expected)
        EXPECT_EQ(number, Random());
    SeedRandom(1);
    EXPECT_EQ(41, Random());
}

TEST(Random, OfTheSeedOfTheGlowTree)
{
    SeedRandom(0x23456789);
    const int expected[] = {15473, 27011, 22647, 18764, 7467, 20521, 1616, 9637};
    for (int number : expected)
        EXPECT_EQ(number, Random());
}

TEST(Random, StaysWithinFifteenBits)
{
    SeedRandom(4294967295u);
    int highest = 0;
    for (int i = 0; i < 100000; i++) {
        const int drawn = Random();
        ASSERT_GE(drawn, 0);
        ASSERT_LE(drawn, 32767);
        highest = drawn > highest ? drawn : highest;
    }
    EXPECT_GT(highest, 32700);
}
