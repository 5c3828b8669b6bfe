// SPDX-License-Identifier: MIT
// The sand of the walk, and the print in it.
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

// How many rows of a column of the print are pressed.
static int BreadthAt(const Raster& print, int x)
{
    int rows = 0;
    for (int y = 0; y < print.height; y++)
        rows += At(print, x, y, 3) > 110 ? 1 : 0;
    return rows;
}

TEST(FX_FootprintPictures, TheSoleIsOnePieceFromTheBallToTheHeel)
{
    const Raster print = LoadPicture("footprint.png");
    ASSERT_EQ(4, print.channels);
    int ball = 0, heel = 0, waist = print.height;
    for (int x = 150; x < 240; x++)
        ball = std::max(ball, BreadthAt(print, x));
    for (int x = 390; x < 460; x++)
        heel = std::max(heel, BreadthAt(print, x));
    for (int x = 240; x < 390; x++)
        waist = std::min(waist, BreadthAt(print, x));
    EXPECT_GT(ball, heel);
    EXPECT_GT(heel, waist) << "the arch is hollow";
    EXPECT_GT(waist, ball * 0.48) << "but the outer edge of the foot carries";
}

TEST(FX_FootprintPictures, TheToesOfThePrintLieOnAnArc)
{
    const Raster print = LoadPicture("footprint.png");
    ASSERT_EQ(4, print.channels);
    // The first pressed column in the rows of each toe, from the big one on.
    const int rows[] = {70, 115, 145, 172, 198};
    int tips[5] = {};
    for (int toe = 0; toe < 5; toe++)
        while (tips[toe] < print.width && At(print, tips[toe], rows[toe], 3) < 110)
            tips[toe]++;
    for (int toe = 1; toe < 5; toe++)
        EXPECT_LT(tips[toe - 1], tips[toe]) << toe;
    EXPECT_LT(1.4 * (tips[2] - tips[0]), tips[4] - tips[2]) << "not a slanting row";
}

TEST(FX_FootprintPictures, ThePrintHasAShadowOnTheSideOfTheLightAndAShiningWallOnTheOther)
{
    const Raster print = LoadPicture("footprint.png");
    ASSERT_EQ(4, print.channels);
    const auto brightness = [&](int left, int right, int y) {
        double sum = 0, weight = 0;
        for (int x = left; x < right; x++) {
            sum += (At(print, x, y, 0) + At(print, x, y, 1) + At(print, x, y, 2)) / 3.0 * At(print, x, y, 3);
            weight += At(print, x, y, 3);
        }
        return weight > 0 ? sum / weight : 0;
    };
    double dark = 0, floor = 0, bright = 0;
    for (int y = 100; y < 150; y++) {
        dark += brightness(124, 136, y) / 50;
        floor += brightness(190, 260, y) / 50;
        bright += brightness(464, 478, y) / 50;
    }
    EXPECT_LT(dark, floor - 20);
    EXPECT_GT(bright, floor + 40);
}
