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

// A colour of a place of the print as it is seen over a ground of that level.
static double Over(const Raster& print, double ground, int x, int y, int channel)
{
    const double alpha = At(print, x, y, 3) / 255.0;
    return alpha * At(print, x, y, channel) + (1 - alpha) * ground;
}

TEST(FX_FootprintPictures, ThePrintHasAShadowOnTheSideOfTheLightAndAShiningWallOnTheOther)
{
    const Raster print = LoadPicture("footprint.png");
    ASSERT_EQ(4, print.channels);
    const double sand[] = {190, 165, 110};
    const auto brightness = [&](int left, int right) {
        double sum = 0;
        for (int y = 100; y < 150; y++)
            for (int x = left; x < right; x++)
                for (int c = 0; c < 3; c++)
                    sum += Over(print, sand[c], x, y, c);
        return sum / (3.0 * 50 * (right - left));
    };
    const double dark = brightness(124, 136), floor = brightness(190, 260), bright = brightness(464, 472);
    EXPECT_LT(dark, floor - 20);
    EXPECT_GT(bright, floor + 25);
    EXPECT_GT(bright, 140) << "hardly darker than the sand";
}

TEST(FX_FootprintPictures, WithoutSandThePrintIsWarmLightAndNowhereWhite)
{
    const Raster print = LoadPicture("footprint.png");
    ASSERT_EQ(4, print.channels);
    int bright = 0, cold = 0;
    for (int y = 0; y < print.height; y++)
        for (int x = 0; x < print.width; x++) {
            const double red = Over(print, 0, x, y, 0), blue = Over(print, 0, x, y, 2);
            bright += blue > 75 ? 1 : 0;
            cold += red > 40 && red < 1.4 * blue ? 1 : 0;
        }
    EXPECT_EQ(0, bright);
    EXPECT_EQ(0, cold);
}

TEST(FX_FootprintPictures, WithoutSandTheRidgesDrawTheSoleAndTheRimIsDim)
{
    const Raster print = LoadPicture("footprint.png");
    ASSERT_EQ(4, print.channels);
    double sum = 0, squares = 0;
    int count = 0;
    for (int y = 90; y < 170; y++)
        for (int x = 150; x < 230; x++) {
            const double red = Over(print, 0, x, y, 0);
            sum += red;
            squares += red * red;
            count++;
        }
    const double mean = sum / count;
    EXPECT_GT(std::sqrt(squares / count - mean * mean), 0.35 * mean) << "lines on dark";
    // What is only a veil lies outside the sole.
    double rim = 0;
    for (int y = 0; y < print.height; y++)
        for (int x = 0; x < print.width; x++)
            if (At(print, x, y, 3) < 80)
                rim = std::max(rim, Over(print, 0, x, y, 0));
    EXPECT_LT(rim, 76);
}

TEST(FX_FootprintPictures, TheLightLeavesPaleSandUnburntAndEndsWhereTheFootDoes)
{
    const Raster light = LoadPicture("footprint_white.jpg");
    ASSERT_EQ(3, light.channels);
    double most = 0, sole = 0, ground = 0;
    for (int y = 0; y < light.height; y++)
        for (int x = 0; x < light.width; x++)
            most = std::max(most, double(At(light, x, y, 0)));
    EXPECT_LT(most, 125);
    // The darkest of the means over small squares of ball and heel, and the brightest beside the arch.
    sole = 255;
    for (const int left : {320, 360, 400, 440, 800, 840})
        for (int top = 200; top < 320; top += 24) {
            double mean = 0;
            for (int y = top; y < top + 24; y++)
                for (int x = left; x < left + 24; x++)
                    mean += At(light, x, y, 0) / (24.0 * 24);
            sole = std::min(sole, mean);
        }
    for (int y = 120; y < 150; y++)
        for (int x = 660; x < 740; x++)
            ground = std::max(ground, double(At(light, x, y, 0)));
    EXPECT_GT(sole, 30);
    EXPECT_LT(ground, 8);
}

TEST(FX_FootprintPictures, TheBandBehindTheSandIsOfTheSandsOwnLight)
{
    const Raster sand = LoadPicture("sandbau.jpg");
    ASSERT_EQ(3, sand.channels);
    for (int c = 0; c < 3; c++) {
        double mean = 0;
        for (int y = 0; y < sand.height; y++)
            for (int x = 400; x < 624; x++)
                mean += At(sand, x, y, c) / (224.0 * sand.height);
        EXPECT_NEAR(mean, At(sand, 0, 0, c), 50) << c;
    }
    EXPECT_GT(At(sand, 0, 0, 0), At(sand, 0, 0, 2)) << "the dusk is warm";
}

TEST(FX_FootprintPictures, GrainsAroundThePrintAreGroundToItWithoutSand)
{
    const Raster print = LoadPicture("footprint.png");
    ASSERT_EQ(4, print.channels);
    // The hollow beside the arch, which the sole leaves free.
    int grains = 0, places = 0;
    for (int y = 60; y < 90; y++)
        for (int x = 300; x < 360; x++) {
            grains += Over(print, 0, x, y, 0) > 30 ? 1 : 0;
            places++;
        }
    EXPECT_GT(grains, 20);
    EXPECT_LT(grains, places / 5) << "sparse";
}
