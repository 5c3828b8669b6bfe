// SPDX-License-Identifier: MIT
// The photograph, which lies over the sand and fades.
#include "tests/art/atelier/PaintedPicture.h"

#include <gtest/gtest.h>

#include <set>

using namespace atelier;

TEST(FX_FlashHandPictures, ThePhotographIsWholeAndItsPaperHasNoStraightSides)
{
    const Raster photograph = LoadPicture("foto.png");
    ASSERT_EQ(4, photograph.channels);
    std::set<int> left, right;
    for (int y = 0; y < photograph.height; y++) {
        int from = 0, to = photograph.width - 1;
        while (from < photograph.width && At(photograph, from, y, 3) < 128)
            from++;
        while (to > from && At(photograph, to, y, 3) < 128)
            to--;
        left.insert(from);
        right.insert(photograph.width - 1 - to);
        EXPECT_EQ(0, At(photograph, 0, y, 3)) << y;
        EXPECT_EQ(0, At(photograph, photograph.width - 1, y, 3)) << y;
        for (int x = 38; x < photograph.width - 38; x++)
            ASSERT_EQ(255, At(photograph, x, y, 3)) << x << " " << y;
    }
    EXPECT_GT(left.size(), 10u);
    EXPECT_GT(right.size(), 10u);
    EXPECT_LT(*left.rbegin(), 38) << "the border is left";
    EXPECT_LT(*right.rbegin(), 38);
}

TEST(FX_FlashHandPictures, ThePhotographIsTonedBrown)
{
    const Raster photograph = LoadPicture("foto.png");
    ASSERT_EQ(4, photograph.channels);
    double red = 0, green = 0, blue = 0;
    for (int y = 200; y < 600; y++)
        for (int x = 700; x < 900; x++) {
            red += At(photograph, x, y, 0);
            green += At(photograph, x, y, 1);
            blue += At(photograph, x, y, 2);
        }
    EXPECT_GT(red, 1.15 * green);
    EXPECT_GT(green, 1.15 * blue);
}
