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

// It is laid over 520 units, six wide, and drawn without mipmaps: what is narrow would be a dotted line, and what reaches as
// far as the eye does a ruled one.
TEST(FX_TowersPictures, ABeamIsBornInTheMiddleAndRunsOutBeforeTheViewEnds)
{
    const Raster beam = LoadPicture("beam_1.png");
    ASSERT_EQ(512, beam.width);
    ASSERT_EQ(64, beam.height);
    ASSERT_EQ(4, beam.channels);
    const auto brightest = [&](int x) {
        int most = 0;
        for (int y = 0; y < 64; y++)
            most = std::max<int>(most, At(beam, x, y, 3));
        return most;
    };
    EXPECT_GE(brightest(256), 150);
    for (const int side : {-1, 1}) {
        int last = brightest(256);
        for (const int away : {20, 45, 65}) { // units
            EXPECT_LT(brightest(256 + side * away), 0.75 * last) << side * away;
            last = brightest(256 + side * away);
        }
        EXPECT_GE(brightest(256 + side * 30), 20) << side;
        for (int away = 90; away < 255; away += 5)
            EXPECT_EQ(0, brightest(256 + side * away)) << side * away;
    }
    for (int x = 0; x < 512; x++)
        for (int y = 1; y < 64; y++)
            ASSERT_LE(std::abs(At(beam, x, y, 3) - At(beam, x, y - 1, 3)), 50) << x << ' ' << y;
}

// A tower is a box that is cut straight, and its walls are seen edge-on without mipmaps.
TEST(FX_TowersPictures, TheTowersWallsEndInBattlementsAndGoIntoTheDarkAtTheirCorners)
{
    const Raster walls = LoadPicture("fasanenbude.jpg");
    ASSERT_EQ(512, walls.width);
    ASSERT_EQ(2048, walls.height);
    const auto mean = [&](int x0, int y0, int x1, int y1) {
        double sum = 0;
        for (int y = y0; y <= y1; y++)
            for (int x = x0; x <= x1; x++)
                for (int c = 0; c < 3; c++)
                    sum += At(walls, x, y, c);
        return sum / (3.0 * (x1 - x0 + 1) * (y1 - y0 + 1));
    };
    // Sixteen merlons all round, those at the corners whole, and as dark between them as the sky is, up to the row
    // that filtering adds.
    for (int i = 0; i < 16; i++) {
        const int merlon = 32 * i, gap = merlon + 16;
        EXPECT_GE(mean(merlon, 540, merlon + 3, 552), 45) << i;
        EXPECT_LE(mean(gap - 3, 511, gap + 3, 530), 22) << i;
        if (i % 4 == 0) {
            EXPECT_GE(mean(merlon, 514, merlon + 3, 524), 55) << i;
        }
    }
    for (const int wall : {0, 128, 256, 384}) {
        const double coping = mean(wall, 560, wall + 127, 566);
        EXPECT_GE(coping, 60) << wall;
        EXPECT_LE(mean(wall + 10, 622, wall + 117, 630), 0.55 * coping)
            << "the shade below the corbels " << wall;
    }
    for (const int corner : {128, 256, 384}) {
        EXPECT_LE(mean(corner - 4, 720, corner + 4, 1400), 28) << corner;
        EXPECT_GE(mean(corner - 80, 800, corner - 48, 1000), 40) << "the middle of the wall before it";
    }
}

// What is lit on a wall is seen on two or three towers at once.
TEST(FX_TowersPictures, NoWindowOfATowerIsSoLargeThatItWouldBeKnownAgain)
{
    const Raster walls = LoadPicture("fasanenbude.jpg");
    ASSERT_EQ(512, walls.width);
    for (const int wall : {0, 128, 256, 384}) {
        int lit = 0, rows = 0, longest = 0;
        for (int y = 620; y < 1400; y++) {
            int inRow = 0;
            for (int x = wall; x < wall + 128; x++)
                inRow += At(walls, x, y, 0) > 200 && At(walls, x, y, 1) > 150 ? 1 : 0;
            lit += inRow;
            rows = inRow > 0 ? rows + 1 : 0;
            longest = std::max(longest, rows);
        }
        EXPECT_GE(lit, 100) << wall;
        EXPECT_LE(lit, 128 * 780 / 50) << wall;
        EXPECT_LE(longest, 60) << wall;
    }
}

// The camera comes from afar, and there is no ground but light.
TEST(FX_TowersPictures, ATowerStandsOnAFootWithAGateOnEveryOtherWall)
{
    const Raster walls = LoadPicture("fasanenbude.jpg");
    ASSERT_EQ(512, walls.width);
    const auto mean = [&](int x0, int y0, int x1, int y1, int channel) {
        double sum = 0;
        for (int y = y0; y <= y1; y++)
            for (int x = x0; x <= x1; x++)
                sum += At(walls, x, y, channel);
        return sum / ((x1 - x0 + 1) * (y1 - y0 + 1));
    };
    for (int wall = 0; wall < 4; wall++) {
        const int middle = 128 * wall + 64;
        const double red = mean(middle - 14, 1500, middle + 14, 1528, 0),
                     blue = mean(middle - 14, 1500, middle + 14, 1528, 2);
        if (wall % 2 == 0) {
            EXPECT_GE(red, 100) << wall;
            EXPECT_LE(blue, 0.7 * red) << "lamplight " << wall;
        } else
            EXPECT_LE(red, blue) << "stone " << wall;
        // Beside a gate the plinth is paler than the wall that stands on it.
        EXPECT_GE(mean(128 * wall + 6, 1470, 128 * wall + 30, 1528, 2),
                  1.3 * mean(128 * wall + 6, 1390, 128 * wall + 30, 1450, 2))
            << wall;
    }
}
