// SPDX-License-Identifier: MIT
#include "math/Vec2.h"

#include <gtest/gtest.h>

TEST(Vec2, StartsAtZero)
{
    const Vec2 v;
    EXPECT_EQ(0.0f, v.u);
    EXPECT_EQ(0.0f, v.v);
}

TEST(Vec2, HoldsUBeforeV)
{
    const Vec2 v(1, 2);
    EXPECT_EQ(1.0f, v.u);
    EXPECT_EQ(2.0f, v.v);
    EXPECT_EQ(8u, sizeof(Vec2));
    EXPECT_LT(&v.u, &v.v);
}
