// SPDX-License-Identifier: MIT
// The sand of the walk.
#include "tests/art/atelier/PaintedPicture.h"

#include <gtest/gtest.h>

using namespace atelier;

TEST(FX_FootprintPictures, TheSandFadesToTheColourOfItsCornerOnBothSides)
{
    const Raster sand = LoadPicture("sandbau.jpg");
    ASSERT_EQ(3, sand.channels);
    for (int y = 0; y < sand.height; y++)
        for (int c = 0; c < 3; c++) {
            EXPECT_NEAR(At(sand, 0, 0, c), At(sand, 0, y, c), 4) << y;
            EXPECT_NEAR(At(sand, 0, 0, c), At(sand, sand.width - 1, y, c), 4) << y;
        }
}
