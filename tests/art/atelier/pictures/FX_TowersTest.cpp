// SPDX-License-Identifier: MIT
// The pictures of the towers.
#include "tests/art/atelier/PaintedPicture.h"

#include <gtest/gtest.h>

#include <cmath>

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
TEST(FX_TowersPictures, TheTowersWallsEndInBattlementsAndGoIntoTheDarkAtOneOfTheirCorners)
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
        EXPECT_LE(mean(gap - 3, 511, gap + 2, 530), 22) << i;
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
    // The box turns two of the walls over: where the shaded corner of each lies, and where the moonlit one.
    const struct {
        int dark, moonlit;
    } corners[4] = {{120, 2}, {130, 248}, {258, 376}, {504, 386}};
    for (int wall = 0; wall < 4; wall++) {
        const double dark = mean(corners[wall].dark, 720, corners[wall].dark + 5, 1400);
        EXPECT_LE(dark, 28) << wall;
        EXPECT_GE(mean(corners[wall].moonlit, 720, corners[wall].moonlit + 5, 1400), 1.5 * dark) << wall;
        EXPECT_GE(mean(128 * wall + 48, 800, 128 * wall + 80, 1000), 40) << "the middle of the wall " << wall;
    }
}

// As one walks round a tower, one wall's right edge meets the next one's left edge. What winds round it is not cut there: the
// feathers are warm and the stone is cold on both sides of a corner, at the same heights.
TEST(FX_TowersPictures, TheFeathersOfATowerGoOnRoundItsCorners)
{
    const Raster walls = LoadPicture("fasanenbude.jpg");
    ASSERT_EQ(512, walls.width);
    // The first pixels of strips that lie side by side on the tower: the last of a wall, the first of the next.
    const int meeting[4][2] = {{484, 376}, {268, 248}, {140, 0}, {108, 384}};
    constexpr int Rise = 13; // from the middle of one strip to that of the next
    // From -1, all blue, to 1, all red, however dark it is.
    const auto warmth = [&](int x0, int y0) {
        double red = 1, blue = 1;
        for (int y = y0; y < y0 + 16; y++)
            for (int x = x0; x < x0 + 8; x++) {
                red += At(walls, x, y, 0);
                blue += At(walls, x, y, 2);
            }
        return (red - blue) / (red + blue);
    };
    for (const auto& [right, left] : meeting) {
        double a = 0, b = 0, aa = 0, bb = 0, ab = 0, count = 0;
        for (int y = 720; y < 1200; y += 16, count++) {
            const double here = warmth(right, y + Rise), there = warmth(left, y);
            a += here, b += there, aa += here * here, bb += there * there, ab += here * there;
        }
        const double correlation =
            (count * ab - a * b) / std::sqrt((count * aa - a * a) * (count * bb - b * b));
        EXPECT_GE(correlation, 0.5) << right << ' ' << left;
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
        EXPECT_GE(lit, 40) << wall; // a window or two
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
