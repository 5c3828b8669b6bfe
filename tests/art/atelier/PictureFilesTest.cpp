// SPDX-License-Identifier: MIT
// The bars for the finished pictures: sizes, channels, borders, seams.
#include "art/atelier/Files.h"
#include "art/atelier/Pictures.h"
#include "kernel/LoadingScreen.h"
#include "kernel/Production.h"
#include "tests/Folders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <set>

using namespace atelier;

// What the show asks for: the textures of the effects, the loading screen and the form.
static std::set<std::string> WantedPictures()
{
    std::set<std::string> wanted = {loadingPicture, "start-form.png"};
    for (const EffectRecord& row : ProductionEffects())
        for (const EffectFile& file : ListFiles(row.files))
            if (file.kind == TextureFile)
                wanted.insert(file.name);
    return wanted;
}

// The file of a picture, from the project's own folders.
static Raster Load(const std::string& name)
{
    Raster raster;
    std::string bytes;
    const Picture* picture = FindPicture(name);
    if (picture != nullptr && ReadFile(std::string(SOURCE_DIR) + "/" + picture->file, bytes))
        Decode(bytes, raster);
    return raster;
}

static int At(const Raster& raster, int x, int y, int channel)
{
    return raster
        .bytes[(size_t(y) * size_t(raster.width) + size_t(x)) * size_t(raster.channels) + size_t(channel)];
}

// The mean difference between a column of one picture and a column of another, over the colours.
static double BetweenColumns(const Raster& a, int columnA, const Raster& b, int columnB)
{
    double sum = 0;
    for (int y = 0; y < a.height; y++)
        for (int c = 0; c < 3; c++)
            sum += std::abs(At(a, columnA, y, c) - At(b, columnB, y, c));
    return sum / (3.0 * a.height);
}

static double BetweenRows(const Raster& a, int rowA, int rowB)
{
    double sum = 0;
    for (int x = 0; x < a.width; x++)
        for (int c = 0; c < 3; c++)
            sum += std::abs(At(a, x, rowA, c) - At(a, x, rowB, c));
    return sum / (3.0 * a.width);
}

static double InnerColumns(const Raster& a)
{
    double sum = 0;
    for (int x = 0; x + 1 < a.width; x++)
        sum += BetweenColumns(a, x, a, x + 1);
    return sum / (a.width - 1);
}

static double InnerRows(const Raster& a)
{
    double sum = 0;
    for (int y = 0; y + 1 < a.height; y++)
        sum += BetweenRows(a, y, y + 1);
    return sum / (a.height - 1);
}

// The mean difference between neighbouring columns among the first or the last sixteen: what a seam there is
// to be measured by, where a picture is not alike all over.
static double ColumnsNear(const Raster& a, bool last)
{
    double sum = 0;
    for (int i = 0; i < 15; i++) {
        const int x = last ? a.width - 2 - i : i;
        sum += BetweenColumns(a, x, a, x + 1);
    }
    return sum / 15;
}

static double RowsNear(const Raster& a, bool last)
{
    double sum = 0;
    for (int i = 0; i < 15; i++) {
        const int y = last ? a.height - 2 - i : i;
        sum += BetweenRows(a, y, y + 1);
    }
    return sum / 15;
}

// The greatest value of a channel on the outermost two pixels of the sides named by letters: l, r, t, b.
static int LargestOnBorder(const Raster& raster, int channel, const std::string& sides)
{
    int largest = 0;
    for (int y = 0; y < raster.height; y++)
        for (int x = 0; x < raster.width; x++)
            if ((sides.find('l') != std::string::npos && x < 2) ||
                (sides.find('r') != std::string::npos && x >= raster.width - 2) ||
                (sides.find('t') != std::string::npos && y < 2) ||
                (sides.find('b') != std::string::npos && y >= raster.height - 2))
                largest = std::max(largest, At(raster, x, y, channel));
    return largest;
}

TEST(PictureFiles, EveryPictureOfTheShowHasAPainterAndNoOtherIsPainted)
{
    std::set<std::string> painted;
    for (const PictureGroup& group : AllGroups()) {
        EXPECT_FALSE(group.pictures.empty()) << group.effect;
        for (const Picture& picture : group.pictures) {
            // The desktop's icons, and the pictures of another production.
            const std::string file = picture.file;
            if (file.starts_with("desktop/icons/") || file.starts_with("template/"))
                continue;
            EXPECT_TRUE(painted.insert(NameOf(picture)).second) << picture.file << " is painted twice";
            EXPECT_TRUE(WantedPictures().count(NameOf(picture))) << picture.file << ": no effect loads it";
        }
    }
    for (const std::string& name : WantedPictures())
        EXPECT_EQ(1u, painted.count(name))
            << name << " has no painter: it stands in no table under art/atelier/pictures whose group "
            << "art/atelier/Pictures.cpp lists";
}

TEST(PictureFiles, EachGroupHasTheKeyOfTheEffectThatLoadsItsPictures)
{
    for (const PictureGroup& group : AllGroups()) {
        const std::string key = group.effect;
        if (key == "Frame" || key == "Icon" || key == "Template")
            continue; // of the program, the desktop, and another production
        const EffectRecord* const record = FindRecord(key);
        ASSERT_NE(nullptr, record) << key << ", for which " << group.pictures.at(0).file
                                   << " is painted, is no effect of kernel/Production.cpp";
        for (const Picture& picture : group.pictures) {
            const std::vector<EffectFile> files = ListFiles(record->files);
            EXPECT_TRUE(std::any_of(files.begin(), files.end(),
                                    [&](const EffectFile& file) { return file.name == NameOf(picture); }))
                << key << ", for which " << picture.file << " is painted, does not load it";
        }
    }
}

TEST(PictureFiles, EachFileHasTheSizeAndTheChannelsOfItsRow)
{
    for (const PictureGroup& group : AllGroups())
        for (const Picture& picture : group.pictures) {
            if (picture.format == Format::Svg)
                continue; // no pixels
            const Raster raster = Load(picture.file);
            EXPECT_EQ(picture.width, raster.width) << picture.file;
            EXPECT_EQ(picture.height, raster.height) << picture.file;
            EXPECT_EQ(ChannelsOf(picture.format), raster.channels) << picture.file;
        }
}

TEST(PictureFiles, PicturesThatAreAddedAreBlackAtTheirBorder)
{
    std::map<std::string, std::string> sides = {{"loading.jpg", "lrtb"}};
    for (const EffectRecord& row : ProductionEffects())
        for (const char* light : row.files.lights)
            sides[light] = "lrtb";
    // Where the faces of the box meet, and where it stands on the ground, there may be light.
    for (const char* face : {"left", "back", "right", "front"})
        sides.at(std::string("skybox_tower_") + face + ".jpg") = "t";
    sides.erase("glowmask.jpg"); // covers the painting, and is read by a shader
    EXPECT_GE(sides.size(), 9u);
    for (const auto& [name, which] : sides) {
        const Raster raster = Load(name);
        ASSERT_FALSE(raster.bytes.empty()) << name;
        for (int c = 0; c < 3; c++)
            EXPECT_LE(LargestOnBorder(raster, c, which), 3)
                << name << ", a light, is not black at its border";
    }
}

TEST(PictureFiles, LightThatIsAddedUpManyTimesIsFaint)
{
    // How often the show lays the picture over itself, and what is left of it then where nothing shines.
    const std::map<std::string, double> largestMeans = {
        {"spirograph.jpg", 6}, // 7 discs and 15 blades
        {"skybox_tower_left.jpg", 10},  {"skybox_tower_back.jpg", 10},
        {"skybox_tower_right.jpg", 10}, {"skybox_tower_front.jpg", 10}, // 5 boxes in each other
        {"partikel_2.jpg", 12},
    };
    for (const auto& [name, largest] : largestMeans) {
        const Raster raster = Load(name);
        ASSERT_EQ(3, raster.channels) << name;
        double sum = 0;
        for (const unsigned char value : raster.bytes)
            sum += value;
        EXPECT_LE(sum / double(raster.bytes.size()), largest) << name;
    }
    // Overhead one sees the middle of the spirograph only, drawn out to half the sky.
    const Raster spirograph = Load("spirograph.jpg");
    int lit = 0, all = 0;
    for (int y = 512 - 200; y < 512 + 200; y++)
        for (int x = 512 - 200; x < 512 + 200; ++x, ++all)
            lit += At(spirograph, x, y, 0) > 40 ? 1 : 0;
    EXPECT_LT(lit, 0.08 * all);
    EXPECT_GT(lit, 0.01 * all);
}

TEST(PictureFiles, SoftPicturesReachAlphaNothingAtTheirBorder)
{
    std::map<std::string, std::string> sides = {
        {"tessel-logo.png", "lrtb"},   {"black-chick.png", "lrtb"},   {"moonwaltz-logo.png", "lrtb"},
        {"waldsterben.png", "lrt"},    {"waldsterben2.png", "lrt"},   {"cloud_5.png", "lrtb"},
        {"cloud_6.png", "lrtb"},       {"footprint.png", "lrtb"},     {"teststreifen.png", "tb"},
        {"fischgraeten_1.png", "ltb"}, {"fischgraeten_2.png", "rtb"}, {"beam_1.png", "lrtb"},
        {"abspanner_1.png", "lrtb"},   {"abspanner_2.png", "lrtb"},   {"abspanner_3.png", "lrtb"},
    };
    for (const auto& [name, which] : sides) {
        const Raster raster = Load(name);
        ASSERT_EQ(4, raster.channels) << name;
        EXPECT_EQ(0, LargestOnBorder(raster, 3, which)) << name;
    }
}

TEST(PictureFiles, TheChicksPictureEndsWhereItsQuadEnds)
{
    const Raster chick = Load("black-chick.png");
    ASSERT_EQ(4, chick.channels);
    int largest = 0, inside = 0;
    for (int y = 0; y < 512; y++)
        for (int x = 0; x < 512; x++)
            (y >= 343 ? largest : inside) = std::max(y >= 343 ? largest : inside, At(chick, x, y, 3));
    EXPECT_EQ(0, largest);
    EXPECT_EQ(255, inside);
}

TEST(PictureFiles, CloudsStayThin)
{
    for (const char* name : {"cloud_5.png", "cloud_6.png"}) {
        const Raster cloud = Load(name);
        ASSERT_EQ(4, cloud.channels) << name;
        int largest = 0;
        for (int y = 0; y < 512; y++)
            for (int x = 0; x < 512; x++)
                largest = std::max(largest, At(cloud, x, y, 3));
        EXPECT_LT(largest, 0.35 * 255) << name;
    }
}

TEST(PictureFiles, TheCardsLieBeforeTheHandsWhereTheShowLaysTheirFaces)
{
    // The effect's figures, in halves of the hand's picture, y up; the angle in degrees, clockwise.
    const double centreX = 0.386699, centreY = 0.787674, half = 0.26, turn = 11.729964 * 3.14159265 / 180;
    const struct {
        const char *hand, *face;
        double sky; // v down to which there is nothing on the left of the card
    } pairs[] = {
        {"greetings_01.png", "greetings_02.png", 0.6},  {"greetings_03.png", "greetings_04.png", 0.25},
        {"greetings_05.png", "greetings_06.png", 0.6},  {"greetings_07.png", "greetings_08.png", 0.6},
        {"greetings_09.png", "greetings_11.png", -0.1}, {"greetings_12.png", "greetings_13.png", 0.6}};
    // The show fades the hand and not the face: what lay across the card's edge would be cut in two. Ink and shadows are
    // darker than this, paper is not.
    const int darkestPaper = 150;
    for (const auto& pair : pairs) {
        const Raster hand = Load(pair.hand), face = Load(pair.face);
        ASSERT_EQ(4, hand.channels);
        ASSERT_EQ(4, face.channels);
        // u and v: -1 to 1 over the face, y down.
        const auto place = [&](double u, double v, int& x, int& y) {
            const double dx = half * (u * std::cos(turn) - v * std::sin(turn)),
                         dy = half * (u * std::sin(turn) + v * std::cos(turn));
            x = int(std::floor((1 + centreX + dx) * hand.width / 2));
            y = int(std::floor((1 - centreY + dy) * hand.height / 2));
            return x >= 0 && x < hand.width && y >= 0 && y < hand.height;
        };
        for (double v = -0.95; v < 1; v += 0.05)
            for (double u = -0.95; u < 1; u += 0.05) {
                int x, y;
                if (place(u, v, x, y)) {
                    EXPECT_EQ(255, At(hand, x, y, 3)) << pair.hand << ' ' << u << ' ' << v;
                    EXPECT_GT(At(hand, x, y, 0), darkestPaper) << pair.hand << ' ' << u << ' ' << v;
                }
            }
        // Beside it there is sky on the left, and its face ends as the card does.
        for (double v = -0.4; v < pair.sky; v += 0.05) {
            int x, y;
            if (place(-1.08, v, x, y)) {
                EXPECT_EQ(0, At(hand, x, y, 3)) << pair.hand << ' ' << v;
            }
        }
        // Between its frame and its lower edge the face is bare paper as well.
        for (double u = -0.9; u < 0.9; u += 0.01)
            EXPECT_GT(At(face, int((u + 1) * 256), int(1.965 * 256), 0), darkestPaper)
                << pair.face << ' ' << u;
    }
}

TEST(PictureFiles, TilesHaveNoSeam)
{
    for (const char* name : {"sandbau.jpg", "stoned.jpg", "ackerbau_tiled3.jpg"}) {
        const Raster tile = Load(name);
        ASSERT_EQ(3, tile.channels) << name;
        EXPECT_LE(BetweenColumns(tile, tile.width - 1, tile, 0), 1.2 * InnerColumns(tile)) << name;
        EXPECT_LE(BetweenRows(tile, tile.height - 1, 0), 1.2 * InnerRows(tile)) << name;
    }
}

// The part of a picture in which red exceeds blue by more than this part of red.
static double WarmPart(const Raster& a, double by)
{
    int warm = 0;
    for (int y = 0; y < a.height; y++)
        for (int x = 0; x < a.width; x++)
            warm += At(a, x, y, 0) - At(a, x, y, 2) > by * At(a, x, y, 0) ? 1 : 0;
    return double(warm) / (a.width * a.height);
}

TEST(PictureFiles, TheBarkOfTheNamesTreesIsWarmerThanTheirLand)
{
    // Between these two postprocessing_blur.fp tells a tree from the land.
    EXPECT_GT(WarmPart(Load("stoned.jpg"), 0.45), 0.9);
    EXPECT_LT(WarmPart(Load("ackerbau_tiled2_2.jpg"), 0.30), 0.001);
}

TEST(PictureFiles, TheBarkOfTheNamesTreesHasNoDarkPatchThatWouldPassForShade)
{
    const Raster bark = Load("stoned.jpg");
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

TEST(PictureFiles, TheScoreTilesAlongItsLength)
{
    const Raster score = Load("teststreifen.png");
    ASSERT_EQ(4, score.channels);
    EXPECT_LE(BetweenColumns(score, score.width - 1, score, 0), 1.2 * InnerColumns(score));
}

TEST(PictureFiles, TheSkyOfTheOpeningIsOnePanorama)
{
    const Raster parts[] = {Load("sky-background_01.jpg"), Load("sky-background_02.jpg"),
                            Load("sky-background_03.jpg"), Load("sky-background_04.jpg")};
    for (int i = 0; i < 3; i++) {
        ASSERT_EQ(3, parts[i].channels);
        ASSERT_EQ(3, parts[i + 1].channels);
        EXPECT_LE(BetweenColumns(parts[i], 1023, parts[i + 1], 0),
                  1.2 * std::max((ColumnsNear(parts[i], true) + ColumnsNear(parts[i + 1], false)) / 2,
                                 (InnerColumns(parts[i]) + InnerColumns(parts[i + 1])) / 2))
            << i;
    }
}

TEST(PictureFiles, TheNightSkyGoesOnAcrossTheEdgesOfItsBox)
{
    // Seen from inside, the left face's right border is the back face's left one, and so on round.
    const Raster left = Load("skybox_left.jpg"), back = Load("skybox_back.jpg"),
                 right = Load("skybox_right.jpg"), top = Load("skybox_top.jpg");
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

TEST(PictureFiles, TheVillageEndsInTheNightThatIsDrawnBehindIt)
{
    std::string shader;
    ASSERT_TRUE(ReadFile(std::string(SOURCE_DIR) + "/Data/glowmask.fp", shader));
    const size_t at = shader.find("const vec3 night = vec3(");
    ASSERT_NE(std::string::npos, at);
    double parts[3];
    ASSERT_EQ(3, sscanf(shader.c_str() + at, "const vec3 night = vec3(%lf, %lf, %lf)", &parts[0], &parts[1],
                        &parts[2]));
    int night[3];
    for (int c = 0; c < 3; c++)
        night[c] = int(std::lround(parts[c] * 255));
    constexpr int Compressed = 10;
    const Raster left = Load("skybox_left.jpg"), back = Load("skybox_back.jpg"),
                 right = Load("skybox_right.jpg"), top = Load("skybox_top.jpg"),
                 plaza = Load("ackerbau_tiled2.jpg"), field = Load("ackerbau_tiled3.jpg");
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

// The show lays opaque black on the ground there, with edges like a ruler's.
TEST(PictureFiles, ThePlazaIsDarkAboutThePillarsShadows)
{
    const Raster plaza = Load("ackerbau_tiled2.jpg");
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
        EXPECT_LE(brightness(35 + 60 * i), 12) << i;
        EXPECT_GE(brightness(65 + 60 * i), 30) << i;
    }
}

// A tower is a box that is cut straight, and its walls are seen edge-on without mipmaps.
TEST(PictureFiles, TheTowersWallsEndInOneParapetAndGoIntoTheDarkAtTheirCorners)
{
    const Raster walls = Load("fasanenbude.jpg");
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

TEST(PictureFiles, TheBonesOfTheFishMeetAtTheHinge)
{
    const Raster head = Load("fischgraeten_1.png"), tail = Load("fischgraeten_2.png");
    ASSERT_EQ(4, head.channels);
    ASSERT_EQ(4, tail.channels);
    int bone = 0;
    double across = 0, near = 0;
    for (int y = 0; y < 1024; y++) {
        across += std::abs(At(head, 1023, y, 3) - At(tail, 0, y, 3));
        for (int i = 0; i < 8; i++)
            near += (std::abs(At(head, 1022 - i, y, 3) - At(head, 1023 - i, y, 3)) +
                     std::abs(At(tail, i, y, 3) - At(tail, i + 1, y, 3))) /
                    16.0;
        bone += At(head, 1023, y, 3) > 200 ? 1 : 0;
    }
    EXPECT_LT(across, 1.4 * near);
    EXPECT_GT(bone, 20);
}

TEST(PictureFiles, TheFirstSightOfTheFishIsNothingButBone)
{
    // The scene begins with a view 14 pixels high round this place of the first card.
    const Raster head = Load("fischgraeten_1.png");
    ASSERT_EQ(4, head.channels);
    for (int y = 486 - 24; y <= 486 + 24; y++)
        for (int x = 384 - 24; x <= 384 + 24; x++)
            EXPECT_EQ(255, At(head, x, y, 3)) << x << ' ' << y;
}

TEST(PictureFiles, APictureIsTheSameBytesWheneverItIsPainted)
{
    for (const char* name : {"partikel_2.jpg", "loading.jpg"}) {
        const Picture* picture = FindPicture(name);
        ASSERT_NE(nullptr, picture);
        const std::string first = Encoded(Finished(picture->paint(), 3), picture->file);
        const std::string second = Encoded(Finished(picture->paint(), 3), picture->file);
        EXPECT_FALSE(first.empty());
        EXPECT_EQ(first, second) << name;
    }
}

// What the shader would have to read around each pixel stands in the mask's green and blue.
TEST(PictureFiles, TheGlowMaskHoldsWhatLiesAroundItsWays)
{
    const Raster mask = Load("glowmask.jpg");
    ASSERT_EQ(1024, mask.width);
    const int reach = 13;
    const int noise =
        24; // of the compression, at the few worst places; an unmeasured mask is off by 100 and more
    int ways = 0, beside = 0, far = 0;
    for (int y = 16; y < mask.height - 16; y += 7)
        for (int x = 16; x < mask.width - 16; x += 7) {
            double sum = 0;
            int pixels = 0, brightest = 0, darkest = 255;
            for (int dy = -reach; dy <= reach; dy++)
                for (int dx = -reach; dx <= reach; dx++)
                    if (dx * dx + dy * dy <= 177) { // 13.3 squared
                        const int red = At(mask, x + dx, y + dy, 0);
                        sum += red;
                        pixels++;
                        brightest = std::max(brightest, red);
                        darkest = std::min(darkest, red);
                    }
            const int red = At(mask, x, y, 0), green = At(mask, x, y, 1), blue = At(mask, x, y, 2);
            EXPECT_NEAR(sum / pixels, green, noise) << x << " " << y;
            EXPECT_LE(blue, brightest + noise) << x << " " << y;
            if (red > 40) {
                ways++;
                EXPECT_GT(blue, red * 0.75) << x << " " << y;
            } else if (red < 10 && green > 20) {
                beside++;
                EXPECT_GT(blue, brightest * 0.5) << "the time of the way beside it " << x << " " << y;
            } else if (brightest < 8) {
                far++;
                EXPECT_LT(green, 8) << "nothing to be lit " << x << " " << y;
                EXPECT_LT(blue, 8 + noise) << x << " " << y;
            }
        }
    EXPECT_GT(ways, 500);
    EXPECT_GT(beside, 500);
    EXPECT_GT(far, 500);
}
