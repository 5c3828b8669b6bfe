// SPDX-License-Identifier: MIT
// The pictures of the towers.
#include "tests/art/atelier/PaintedPicture.h"

#include <gtest/gtest.h>

using namespace atelier;

TEST(FX_TowersPictures, LightThatIsAddedUpManyTimesIsFaint)
{
    // 7 discs and 15 blades, and 5 boxes in each other: what is left of them where nothing shines.
    EXPECT_LE(MeanOf(LoadPicture("spirograph.jpg")), 6);
    for (const char* face : {"left", "back", "right", "front"})
        EXPECT_LE(MeanOf(LoadPicture(std::string("skybox_tower_") + face + ".jpg")), 10) << face;
    // Overhead one sees the middle of the spirograph only, drawn out to half the sky.
    const Raster spirograph = LoadPicture("spirograph.jpg");
    int lit = 0, all = 0;
    for (int y = 512 - 200; y < 512 + 200; y++)
        for (int x = 512 - 200; x < 512 + 200; ++x, ++all)
            lit += At(spirograph, x, y, 0) > 40 ? 1 : 0;
    EXPECT_LT(lit, 0.08 * all);
    EXPECT_GT(lit, 0.01 * all);
}

// A tower is a box that is cut straight, and its walls are seen edge-on without mipmaps.
TEST(FX_TowersPictures, TheTowersWallsEndInOneParapetAndGoIntoTheDarkAtTheirCorners)
{
    const Raster walls = LoadPicture("fasanenbude.jpg");
    ASSERT_EQ(1024, walls.width);
    const auto mean = [&](int x0, int y0, int x1, int y1) {
        double sum = 0;
        for (int y = y0; y <= y1; y++)
            for (int x = x0; x <= x1; x++)
                for (int c = 0; c < 3; c++)
                    sum += At(walls, x, y, c);
        return sum / (3.0 * (x1 - x0 + 1) * (y1 - y0 + 1));
    };
    // The parapet's edge: of one tone all round and through the corners, in the last row of the picture that the
    // walls show and in those that filtering adds above it.
    const double edge = mean(0, 254, 1023, 257);
    EXPECT_GE(edge, 120);
    for (int x = 0; x < 1024; x += 16)
        EXPECT_NEAR(edge, mean(x, 254, x + 15, 257), 26) << x;
    for (const int wall : {0, 256, 512, 768}) {
        const double coping = mean(wall, 262, wall + 255, 270);
        EXPECT_GE(coping, 72) << wall;
        EXPECT_LE(mean(wall + 20, 318, wall + 235, 326), 0.55 * coping)
            << "the shade below the corbels " << wall;
        EXPECT_NEAR(coping, mean(wall, 262, wall + 15, 270), 0.25 * coping) << "at the corner " << wall;
    }
    for (const int corner : {256, 512, 768}) {
        EXPECT_LE(mean(corner - 12, 360, corner + 12, 700), 24) << corner;
        EXPECT_GE(mean(corner - 148, 380, corner - 108, 480), 48) << "the middle of the wall before it";
    }
}
