// SPDX-License-Identifier: MIT
#include "effects/ScrollerPaths.h"

#include <gtest/gtest.h>

struct PathFacts {
    int points;
    int firstX, firstY, lastX, lastY;
    long sum; // of all numbers in their places, see below: one number that changes changes it
};

// clang-format off
static const PathFacts facts[9] = {
    // points   first       last          sum
    {64,     19, 524,   1004,  512,   398720},
    {53,     25, 138,   1002,  294,   918305},
    {60,     60, 826,   1010,  408,     6525},
    {54,     26, 584,    997,  588,   348305},
    {47,     17, 312,   1009,  292,   732534},
    {65,     18, 376,   1005,  834,   744641},
    {33,      2, 610,    514, 1518,   596759},
    {30,      3, 296,    461,  784,   880916},
    {28,      3, 838,    514, 1518,   222975},
};
// clang-format on

TEST(ScrollerPaths, HoldExactlyTheirNumbers)
{
    for (int k = 0; k < 9; k++) {
        const float* path = scrollerPaths[k];
        int points = 0;
        long sum = 0;
        while (path[2 * points] != -1) {
            const long x = long(path[2 * points]), y = long(path[2 * points + 1]);
            EXPECT_EQ(float(x), path[2 * points]) << "whole units";
            sum = (sum * 31 + x * 7 + y * 13 + points) % 1000003;
            points++;
        }
        ASSERT_EQ(facts[k].points, points) << "path " << k;
        EXPECT_EQ(facts[k].firstX, path[0]);
        EXPECT_EQ(facts[k].firstY, path[1]);
        EXPECT_EQ(facts[k].lastX, path[2 * points - 2]);
        EXPECT_EQ(facts[k].lastY, path[2 * points - 1]);
        EXPECT_EQ(facts[k].sum, sum) << "path " << k;
    }
    EXPECT_EQ(1024.0f, scrollerPathUnit);
    EXPECT_EQ(-1.0f, scrollerPathEnd);
}

TEST(ScrollerPaths, RunFromLeftToRight)
{
    for (const float* path : scrollerPaths)
        for (int i = 0; path[2 * i + 2] != -1; i++)
            EXPECT_LE(path[2 * i], path[2 * i + 2]);
}
