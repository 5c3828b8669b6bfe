// SPDX-License-Identifier: MIT
// The village's land, its sky and its houses.
#include "art/atelier/pictures/town/VillageEarth.h"
#include "tests/art/atelier/PaintedPicture.h"

#include <gtest/gtest.h>

#include <cstdio>

using namespace atelier;

static double RowsNear(const Raster& a, bool last)
{
    double sum = 0;
    for (int i = 0; i < 15; i++) {
        const int y = last ? a.height - 2 - i : i;
        sum += BetweenRows(a, y, y + 1);
    }
    return sum / 15;
}

TEST(FX_PathPictures, TheNightSkyGoesOnAcrossTheEdgesOfItsBox)
{
    // Seen from inside, the left face's right border is the back face's left one, and so on round.
    const Raster left = LoadPicture("skybox_left.jpg"), back = LoadPicture("skybox_back.jpg"),
                 right = LoadPicture("skybox_right.jpg"), top = LoadPicture("skybox_top.jpg");
    ASSERT_EQ(3, left.channels);
    ASSERT_EQ(3, back.channels);
    ASSERT_EQ(3, right.channels);
    ASSERT_EQ(3, top.channels);
    EXPECT_LE(BetweenColumns(left, 1023, back, 0),
              1.2 * (ColumnsNear(left, true) + ColumnsNear(back, false)) / 2);
    EXPECT_LE(BetweenColumns(back, 1023, right, 0),
              1.2 * (ColumnsNear(back, true) + ColumnsNear(right, false)) / 2);
    // The top's upper border lies on the back face's upper one, its left on the left face's, its right on the
    // right's.
    double seam = 0, seamLeft = 0, seamRight = 0;
    for (int i = 0; i < 1024; i++)
        for (int c = 0; c < 3; c++) {
            seam += std::abs(At(top, i, 0, c) - At(back, i, 0, c)) / (3.0 * 1024);
            seamLeft += std::abs(At(top, 0, i, c) - At(left, 1023 - i, 0, c)) / (3.0 * 1024);
            seamRight += std::abs(At(top, 1023, i, c) - At(right, i, 0, c)) / (3.0 * 1024);
        }
    const double inner = 1.2 * std::max(InnerRows(top), RowsNear(back, false));
    EXPECT_LE(seam, inner);
    EXPECT_LE(seamLeft, inner);
    EXPECT_LE(seamRight, inner);
}

// The greatest difference of a channel, over the columns and rows given, from a colour.
static int FarthestFrom(const int colour[3], const Raster& raster, int x0, int y0, int x1, int y1)
{
    int farthest = 0;
    for (int y = y0; y <= y1; y++)
        for (int x = x0; x <= x1; x++)
            for (int c = 0; c < 3; c++)
                farthest = std::max(farthest, std::abs(At(raster, x, y, c) - colour[c]));
    return farthest;
}

TEST(FX_PathPictures, TheVillageEndsInTheNightThatIsDrawnBeforeIt)
{
    std::string shader;
    ASSERT_TRUE(ReadFile(std::string(SOURCE_DIR) + "/Data/glowmask.fp", shader));
    const size_t at = shader.find("const vec3 night = vec3(");
    ASSERT_NE(std::string::npos, at);
    double parts[3];
    ASSERT_EQ(3, sscanf(shader.c_str() + at, "const vec3 night = vec3(%lf, %lf, %lf)", &parts[0], &parts[1],
                        &parts[2]));
    // The mist alone, where nothing else is drawn.
    const LinearColour behind = NightBehind;
    EXPECT_NEAR(ToScreen(behind.r), parts[0], 0.008);
    EXPECT_NEAR(ToScreen(behind.g), parts[1], 0.008);
    EXPECT_NEAR(ToScreen(behind.b), parts[2], 0.008);
    constexpr int night[3] = {0, 0, 0}; // of the picture
    constexpr int Compressed = 10;
    const Raster left = LoadPicture("skybox_left.jpg"), back = LoadPicture("skybox_back.jpg"),
                 right = LoadPicture("skybox_right.jpg"), top = LoadPicture("skybox_top.jpg"),
                 plaza = LoadPicture("ackerbau_tiled2.jpg"), field = LoadPicture("ackerbau_tiled3.jpg");
    // Under the hills, and where the box is open.
    for (const Raster* face : {&left, &back, &right})
        EXPECT_LE(FarthestFrom(night, *face, 0, 511, 1023, 511), Compressed);
    EXPECT_LE(FarthestFrom(night, left, 0, 0, 0, 511), Compressed);
    EXPECT_LE(FarthestFrom(night, right, 1023, 0, 1023, 511), Compressed);
    EXPECT_LE(FarthestFrom(night, top, 0, 1023, 1023, 1023), Compressed);
    // The ground on both sides, and ahead.
    EXPECT_LE(FarthestFrom(night, field, 0, 0, 0, 1023), Compressed);
    EXPECT_LE(FarthestFrom(night, field, 1023, 0, 1023, 1023), Compressed);
    const int end = plaza.width - 1;
    EXPECT_LE(FarthestFrom(night, plaza, 0, 0, end, 0), Compressed);
    EXPECT_LE(FarthestFrom(night, plaza, 0, end, end, end), Compressed);
    EXPECT_LE(FarthestFrom(night, plaza, end, 0, end, end), Compressed);
}

TEST(FX_PathPictures, ThroughTheMistOfTheShaderOneSeesTheColoursThatWereMeant)
{
    std::string shader;
    ASSERT_TRUE(ReadFile(std::string(SOURCE_DIR) + "/Data/glowmask.fp", shader));
    double night[3], mist;
    ASSERT_EQ(3, sscanf(shader.c_str() + shader.find("const vec3 night = vec3("),
                        "const vec3 night = vec3(%lf, %lf, %lf)", &night[0], &night[1], &night[2]));
    ASSERT_EQ(1,
              sscanf(shader.c_str() + shader.find("const float mist = "), "const float mist = %lf", &mist));
    for (const float light : {1.0f, 0.5f}) {
        const LinearColour meant = FromHex(0xc0a080);
        Canvas canvas(1, 1, meant);
        AllowForMist(canvas, light);
        const Pixel& p = canvas.At(0, 0);
        const float drawn[3] = {ToScreen(p.r) * light, ToScreen(p.g) * light, ToScreen(p.b) * light};
        for (int c = 0; c < 3; c++)
            EXPECT_NEAR(light * double(0xc0a080 >> (16 - 8 * c) & 255) / 255,
                        night[c] + (1 - mist) * drawn[c], 0.002)
                << light << ' ' << c;
        EXPECT_EQ(1, p.a);
    }
    Canvas black(1, 1, palette::Black);
    AllowForMist(black);
    EXPECT_EQ(0, black.At(0, 0).r + black.At(0, 0).g + black.At(0, 0).b);
}

// A wall that no light reaches shows a twenty-fifth of what is painted.
TEST(FX_PathPictures, TheUnlitWallsOfTheHousesGoFromBlackToWhite)
{
    const Raster walls = LoadPicture("budentextur.jpg");
    ASSERT_EQ(1024, walls.width);
    for (const int left : {0, 256, 768}) {
        int dark = 0, bright = 0; // below the eaves
        for (int y = 350; y < 720; y++)
            for (int x = left; x < left + 256; x++) {
                const int sum = At(walls, x, y, 0) + At(walls, x, y, 1) + At(walls, x, y, 2);
                dark += sum < 3 * 60 ? 1 : 0;
                bright += sum > 3 * 170 ? 1 : 0;
            }
        EXPECT_GE(dark, 256 * 370 / 8) << left;
        EXPECT_GE(bright, 256 * 370 / 3) << left;
    }
    for (const int left : {0, 256})
        EXPECT_GE(At(walls, left + 4, 450, 0), 210) << "the post at the corner " << left;
    EXPECT_GE(At(walls, 256 + 128, 259, 0), 200) << "the moon on the ridge of the gable";
}

// On the beat the pillars bend, until their tops look at the camera, and those the lamp may shine on.
TEST(FX_PathPictures, APillarEndsInADarkRoofWhicheverWayItBends)
{
    const Raster walls = LoadPicture("budentextur.jpg");
    ASSERT_EQ(1024, walls.width);
    const auto mean = [&](int x0, int y0, int x1, int y1) {
        double sum = 0;
        for (int y = y0; y < y1; y++)
            for (int x = x0; x < x1; x++)
                sum += At(walls, x, y, 0) + At(walls, x, y, 1) + At(walls, x, y, 2);
        return sum / (3.0 * (x1 - x0) * (y1 - y0));
    };
    EXPECT_LE(mean(768, 0, 1024, 256), 45) << "its top";
    int bright = 0;
    for (int y = 0; y < 256; y++)
        for (int x = 768; x < 1024; x++)
            bright += At(walls, x, y, 0) > 110 ? 1 : 0;
    EXPECT_LE(bright, 256 * 256 / 200);
    // The last row of a pillar's walls may lie up to eleven pixels beyond their upper edge.
    for (const int left : {0, 768}) {
        EXPECT_LE(mean(left, 245, left + 256, 310), 75) << left;
        EXPECT_GE(mean(left + 40, 410, left + 216, 480), 2 * mean(left, 245, left + 256, 310)) << left;
    }
    EXPECT_LE(mean(512, 245, 768, 300), 75);
    EXPECT_LE(mean(256, 245, 512, 254), 140) << "the gable's";
}

// It is seen edge-on, one or two pixels wide, on walls that bend: what is bright there is a stair.
TEST(FX_PathPictures, TheWallThatTheLampShinesOnGoesIntoTheDarkAtItsCorners)
{
    const Raster walls = LoadPicture("budentextur.jpg");
    ASSERT_EQ(1024, walls.width);
    for (int y = 320; y < 720; y++) {
        for (int from = 0; from < 10; from++)
            for (const int x : {768 + 2 + from, 1023 - from})
                ASSERT_LE(At(walls, x, y, 0), 100) << x << ' ' << y;
        ASSERT_LE(At(walls, 0, y, 0), 150) << "half of it is seen at the edge " << y;
    }
    double middle = 0;
    for (int y = 540; y < 720; y++)
        for (int x = 820; x < 870; x++)
            middle += At(walls, x, y, 0) / (180.0 * 50);
    EXPECT_GE(middle, 200);
}

// The show lays opaque black on the ground there, with edges like a ruler's.
TEST(FX_PathPictures, ThePlazaIsDarkAboutThePillarsShadows)
{
    const Raster plaza = LoadPicture("ackerbau_tiled2.jpg");
    ASSERT_EQ(2048, plaza.width);
    const auto brightness = [&](double degrees) {
        const double across = 12.0 * 2048 / 60, a = degrees * 3.14159265 / 180;
        const int x = int(1024 + across * std::cos(a)), y = int(1024 + across * std::sin(a));
        double sum = 0;
        for (int dy = -12; dy <= 12; dy++)
            for (int dx = -12; dx <= 12; dx++)
                sum += At(plaza, x + dx, y + dy, 0) + At(plaza, x + dx, y + dy, 1) +
                       At(plaza, x + dx, y + dy, 2);
        return sum / (3 * 25 * 25);
    };
    for (int i = 0; i < 6; i++) {
        EXPECT_LE(brightness(35 + 60 * i), 4) << i; // mist lies over both
        EXPECT_GE(brightness(65 + 60 * i), 12) << i;
    }
}
