// SPDX-License-Identifier: MIT
#include "math/Colour.h"

#include <gtest/gtest.h>

TEST(Colour, StartsAsOpaqueBlack)
{
    const Colour c;
    EXPECT_EQ(0.0f, c.r);
    EXPECT_EQ(0.0f, c.g);
    EXPECT_EQ(0.0f, c.b);
    EXPECT_EQ(1.0f, c.a);
}

TEST(Colour, HoldsRedGreenBlueAlphaInThisOrder)
{
    const Colour c(1, 2, 3, 4);
    EXPECT_EQ(1.0f, c.r);
    EXPECT_EQ(2.0f, c.g);
    EXPECT_EQ(3.0f, c.b);
    EXPECT_EQ(4.0f, c.a);
    EXPECT_EQ(16u, sizeof(Colour));
    EXPECT_EQ(&c.r + 1, &c.g);
    EXPECT_EQ(&c.r + 2, &c.b);
    EXPECT_EQ(&c.r + 3, &c.a);
}
