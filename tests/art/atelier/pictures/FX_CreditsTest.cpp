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
