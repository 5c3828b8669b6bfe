// SPDX-License-Identifier: MIT
// The pictures of the names.
#include "tests/art/atelier/PaintedPicture.h"

#include <gtest/gtest.h>

using namespace atelier;

// The part of a picture in which red exceeds blue by more than this part of red.
static double WarmPart(const Raster& a, double by)
{
    int warm = 0;
    for (int y = 0; y < a.height; y++)
        for (int x = 0; x < a.width; x++)
            warm += At(a, x, y, 0) - At(a, x, y, 2) > by * At(a, x, y, 0) ? 1 : 0;
    return double(warm) / (a.width * a.height);
}

TEST(FX_CreditsPictures, TheBarkOfTheNamesTreesIsWarmerThanTheirLand)
{
    // Between these two postprocessing_blur.fp tells a tree from the land.
    EXPECT_GT(WarmPart(LoadPicture("stoned.jpg"), 0.45), 0.9);
    EXPECT_LT(WarmPart(LoadPicture("ackerbau_tiled2_2.jpg"), 0.30), 0.001);
}

TEST(FX_CreditsPictures, TheLandOfTheNamesIsAsColdAsItsNight)
{
    // Lit by half as much again, parchment would be a tan patch in a blue night.
    const Raster land = LoadPicture("ackerbau_tiled2_2.jpg");
    ASSERT_EQ(3, land.channels);
    EXPECT_LT(WarmPart(land, 0.15), 0.001);
    EXPECT_GT(WarmPart(land, 0.0), 0.01) << "but it is land, and no mist";
}

TEST(FX_CreditsPictures, TheFurrowsOfTheNamesLandAreBroadAndDrawn)
{
    // Before the second camera the furrows run down the picture. A screen's pixel is about a texel there: what is narrower than a dozen of them is a smear.
    const Raster land = LoadPicture("ackerbau_tiled2_2.jpg");
    ASSERT_EQ(3, land.channels);
    const auto tone = [&](int x) {
        double sum = 0;
        for (int y = 655; y < 665; y++)
            sum += At(land, x, y, 0) / 10.0;
        return sum;
    };
    const int left = 565, right = 685;
    double mean = 0;
    for (int x = left; x < right; x++)
        mean += tone(x) / (right - left);
    int borders = 0;
    bool ridge = tone(left) > mean;
    for (int x = left; x < right; x++)
        if (ridge ? tone(x) < mean - 8 : tone(x) > mean + 8) {
            ridge = !ridge;
            borders++;
        }
    EXPECT_GE(borders, 8) << "seen";
    EXPECT_LE(borders, 20) << "broad";
}

TEST(FX_CreditsPictures, TheBarkOfTheNamesTreesHasNoDarkPatchThatWouldPassForShade)
{
    const Raster bark = LoadPicture("stoned.jpg");
    double red = 0;
    int dark = 0;
    for (int y = 0; y < bark.height; y++)
        for (int x = 0; x < bark.width; x++) {
            red += At(bark, x, y, 0);
            dark += At(bark, x, y, 0) < 150 ? 1 : 0;
        }
    EXPECT_GT(red / (bark.width * bark.height), 190);
    EXPECT_LT(double(dark) / (bark.width * bark.height), 0.01);
}
