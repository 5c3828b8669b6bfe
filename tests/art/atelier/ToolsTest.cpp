// SPDX-License-Identifier: MIT
#include "art/atelier/Commands.h"
#include "art/atelier/DryBrush.h"
#include "art/atelier/Files.h"
#include "art/atelier/Glow.h"
#include "art/atelier/Pen.h"
#include "art/atelier/Wash.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace atelier;

static double Sum(const Mask& mask)
{
    double sum = 0;
    for (int y = 0; y < mask.Height(); y++)
        for (int x = 0; x < mask.Width(); x++)
            sum += mask.At(x, y);
    return sum;
}

TEST(AtelierMask, FillsExactlyTheAreaOfAShapeWhicheverWayItRuns)
{
    Line ring = Ellipse({50, 40}, 30, 20);
    EXPECT_NEAR(Pi * 30 * 20, Sum(Filled(100, 80, ring)), 12);
    std::reverse(ring.begin(), ring.end());
    EXPECT_NEAR(Pi * 30 * 20, Sum(Filled(100, 80, ring)), 12);
    EXPECT_NEAR(10.5 * 7.25, Sum(Filled(100, 80, Rectangle(3.25f, 4.5f, 13.75f, 11.75f))), 1e-3);
}

TEST(AtelierMask, CutsShapesAtItsBordersUnlessItWraps)
{
    const Shape square = Rectangle(-5, -5, 5, 5);
    EXPECT_NEAR(25, Sum(Filled(20, 20, square)), 1e-3);
    const Mask tile = Filled(20, 20, square, true);
    EXPECT_NEAR(100, Sum(tile), 1e-3);
    EXPECT_EQ(1, tile.At(19, 19));
}

TEST(AtelierMask, UnitesOverlappingOutlinesAndErasesHoles)
{
    Shape two = Rectangle(0, 0, 10, 10);
    two.Add(Rectangle(5, 0, 15, 10).outlines[0]);
    Mask mask = Filled(20, 20, two);
    EXPECT_NEAR(150, Sum(mask), 1e-3);
    mask.Erase(Rectangle(2, 2, 4, 4));
    EXPECT_NEAR(146, Sum(mask), 1e-3);
}

TEST(AtelierMask, BlurKeepsTheAmountAndHasTheWidthThatItIsAskedFor)
{
    Mask mask(101, 101);
    mask.At(50, 50) = 1;
    mask.Blur(6);
    EXPECT_NEAR(1, Sum(mask), 1e-4);
    double variance = 0;
    for (int y = 0; y < 101; y++)
        for (int x = 0; x < 101; x++)
            variance += mask.At(x, y) * (x - 50) * (x - 50);
    EXPECT_NEAR(6, Sqrt(float(variance)), 0.3);
}

TEST(AtelierMask, BlurOfATileGoesOnOverItsBorders)
{
    Mask tile(64, 64, 0, true);
    tile.At(0, 10) = 1;
    tile.Blur(3);
    EXPECT_NEAR(tile.At(1, 10), tile.At(63, 10), 1e-6f);
    EXPECT_NEAR(1, Sum(tile), 1e-4);
}

TEST(AtelierMask, MeasuresDistancesToTheEdge)
{
    const Mask square = Filled(60, 60, Rectangle(10, 10, 50, 50));
    EXPECT_FLOAT_EQ(10, square.Inside().At(19, 30));
    EXPECT_FLOAT_EQ(0, square.Inside().At(5, 30));
    EXPECT_FLOAT_EQ(4, square.Outside().At(6, 30));
    EXPECT_FLOAT_EQ(0, square.Outside().At(30, 30));
    EXPECT_FLOAT_EQ(3, square.Inside(3).At(30, 30));
}

TEST(AtelierMask, DistancesOfATileSeeTheNeighbouringTile)
{
    const Mask tile = Filled(40, 40, Rectangle(0, 0, 40, 36), true);
    EXPECT_FLOAT_EQ(1, tile.Inside(20).At(10, 0));
    EXPECT_FLOAT_EQ(1, tile.Inside(20).At(10, 35));
}

TEST(AtelierMask, AFieldAskedForAtEveryFourthPixelIsDrawnOutBetween)
{
    const auto slope = [](float x, float y) { return 2 * x - 3 * y; };
    const Mask exact = Mask(30, 22).Each(slope), quick = Mask(30, 22).Each(slope, 4);
    for (int y = 0; y < 22; y++)
        for (int x = 0; x < 30; x++)
            EXPECT_NEAR(exact.At(x, y), quick.At(x, y), 1e-3f);
}

TEST(AtelierMask, FadesToExactlyNothingOnTheOutermostTwoPixels)
{
    const Mask mask = Mask(40, 30, 1).FadeToBorder(8);
    for (int i = 0; i < 2; i++) {
        EXPECT_EQ(0, mask.At(i, 15));
        EXPECT_EQ(0, mask.At(39 - i, 15));
        EXPECT_EQ(0, mask.At(20, i));
        EXPECT_EQ(0, mask.At(20, 29 - i));
    }
    EXPECT_GT(mask.At(2, 15), 0);
    EXPECT_EQ(1, mask.At(20, 15));
}

TEST(AtelierLine, RunsThroughItsPointsInEvenSteps)
{
    const std::vector<Vector2> points = {{0, 0}, {40, 30}, {90, 10}, {120, 80}};
    const Line line = Through(points);
    for (const Vector2& p : points) {
        float nearest = 100;
        for (const Vector2& q : line)
            nearest = Min(nearest, Length(p - q));
        EXPECT_LT(nearest, 0.01f);
    }
    for (size_t i = 0; i + 1 < line.size(); i++)
        EXPECT_LT(Length(line[i + 1] - line[i]), 3.5f);
    EXPECT_NEAR(LengthOf(line) / 2, LengthOf(Part(line, 0.25f, 0.75f)), 0.1f);
}

TEST(AtelierCanvas, AGlazeOfDensityOneOverWhiteGivesThePigment)
{
    Canvas canvas(4, 4, {1, 1, 1});
    canvas.Glaze(Mask(4, 4, 1), palette::Slate);
    EXPECT_NEAR(palette::Slate.r, canvas.At(1, 1).r, 1e-4f);
    EXPECT_NEAR(palette::Slate.b, canvas.At(1, 1).b, 1e-4f);
    canvas.Glaze(Mask(4, 4, 1), palette::Slate);
    EXPECT_NEAR(palette::Slate.r * palette::Slate.r, canvas.At(1, 1).r, 1e-4f);
}

TEST(AtelierCanvas, CoverIsOpaqueLightIsAddedAndAlphaFollowsOnlyCover)
{
    Canvas canvas(4, 4);
    canvas.Light(Mask(4, 4, 1), {1, 0, 0}, 0.25f);
    EXPECT_EQ(0, canvas.At(0, 0).a);
    canvas.Cover(Mask(4, 4, 0.5f), {0, 1, 0});
    EXPECT_FLOAT_EQ(0.5f, canvas.At(0, 0).a);
    EXPECT_FLOAT_EQ(0.5f, canvas.At(0, 0).g);
    EXPECT_FLOAT_EQ(0.125f, canvas.At(0, 0).r);
    canvas.CutOut(Mask(4, 4, 0.5f));
    EXPECT_FLOAT_EQ(0.25f, canvas.At(0, 0).a);
}

TEST(AtelierCanvas, SqueezingKeepsTheMeanAndTheProportion)
{
    Canvas canvas(40, 30, palette::Black);
    canvas.Light(Filled(40, 30, Rectangle(8, 6, 24, 18)), {1, 1, 1});
    const Canvas small = Squeezed(canvas, 10, 15);
    EXPECT_NEAR(Sum(canvas.Brightness()) / (40 * 30), Sum(small.Brightness()) / (10 * 15), 1e-3);
    EXPECT_FLOAT_EQ(1, small.At(3, 5).r);
    EXPECT_FLOAT_EQ(0, small.At(8, 12).r);
}

TEST(AtelierPaper, HasNoSeamAndItsMeanInTheMiddle)
{
    const Paper& paper = SketchPaper(256);
    double mean = 0, seam = 0, inside = 0;
    for (int y = 0; y < 256; y++)
        for (int x = 0; x < 256; x++)
            mean += paper.Height(x, y);
    for (int y = 0; y < 256; y++) {
        seam += Abs(paper.Height(255, y) - paper.Height(256, y));
        inside += Abs(paper.Height(100, y) - paper.Height(101, y));
    }
    EXPECT_NEAR(0.5, mean / (256 * 256), 0.02);
    EXPECT_LT(seam, 1.3 * inside);
    EXPECT_EQ(paper.Height(3, 4), paper.Height(259, 260));
}

TEST(AtelierPen, DrawsALineOfTheWidthOfItsPressure)
{
    Mask sheet(200, 60);
    Pen pen(sheet, SketchPaper(),
            {.width = 10, .least = 0.2f, .wobble = 0, .wander = 0, .skip = 0, .dry = 0, .pool = 0}, 1);
    pen.Stroke(Straight({{20, 30}, {180, 30}}), {.start = 0, .middle = 1, .end = 0});
    const auto width = [&](int x) {
        float sum = 0;
        for (int y = 0; y < 60; y++)
            sum += sheet.At(x, y);
        return sum;
    };
    EXPECT_NEAR(10, width(100), 0.3f);
    EXPECT_NEAR(2, width(22), 0.5f);
    EXPECT_NEAR(width(60), width(140), 0.2f);
    EXPECT_EQ(0, width(10));
}

TEST(AtelierPen, BreaksItsLineWhenItMayAndNeverWhenItMayNot)
{
    const auto gaps = [](float skip) {
        Mask sheet(1000, 20);
        Pen pen(sheet, SketchPaper(), {.width = 4, .wobble = 0, .skip = skip, .dry = 0}, 3);
        pen.Stroke(Straight({{10, 10}, {990, 10}}), {.start = 1, .middle = 1, .end = 1});
        int count = 0;
        for (int x = 20; x < 980; x++)
            count += sheet.At(x, 10) < 0.3f ? 1 : 0;
        return count;
    };
    EXPECT_EQ(0, gaps(0));
    EXPECT_GT(gaps(1), 40);
}

TEST(AtelierPen, OnATileItDrawsOnAcrossTheBorder)
{
    Mask tile(64, 64, 0, true);
    Pen pen(tile, SketchPaper(128), {.width = 6, .wobble = 0, .skip = 0}, 1);
    pen.Stroke(Straight({{50, 32}, {80, 32}}), {.start = 1, .middle = 1, .end = 1});
    EXPECT_GT(tile.At(63, 32), 0.9f);
    EXPECT_GT(tile.At(5, 32), 0.9f);
    EXPECT_EQ(0, tile.At(30, 32));
}

TEST(AtelierPen, TheSameSeedDrawsTheSameLine)
{
    Mask a(200, 100), b(200, 100), c(200, 100);
    const Line line = Through({{10, 50}, {90, 20}, {190, 70}});
    Pen(a, SketchPaper(), {}, 5).Stroke(line);
    Pen(b, SketchPaper(), {}, 5).Stroke(line);
    Pen(c, SketchPaper(), {}, 6).Stroke(line);
    double difference = 0;
    for (int y = 0; y < 100; y++)
        for (int x = 0; x < 200; x++) {
            EXPECT_EQ(a.At(x, y), b.At(x, y));
            difference += Abs(a.At(x, y) - c.At(x, y));
        }
    EXPECT_GT(difference, 10);
}

TEST(AtelierPen, HatchingStaysWhereTheToneIs)
{
    Mask sheet(120, 120);
    const Mask tone = Filled(120, 120, Rectangle(30, 30, 90, 90));
    Pen pen(sheet, SketchPaper(), {.width = 2, .wobble = 0, .pool = 0}, 1);
    Hatch(pen, tone, {.spacing = 6, .bend = 0}, 2);
    EXPECT_GT(Sum(sheet), 200);
    EXPECT_EQ(0, sheet.At(10, 60));
    EXPECT_EQ(0, sheet.At(110, 60));
}

TEST(AtelierDryBrush, ADrierBrushLeavesMorePaper)
{
    const auto covered = [](float load) {
        Mask sheet(300, 80);
        DryBrush brush(sheet, SketchPaper(), {.width = 40, .load = load}, 1);
        brush.Stroke(Straight({{20, 40}, {280, 40}}));
        return Sum(sheet);
    };
    EXPECT_GT(covered(0.9f), 1.5 * covered(0.4f));
    EXPECT_GT(covered(0.4f), 10);
}

TEST(AtelierWash, PoolsAtItsEdgeAndStaysNearItsShape)
{
    const Mask shape = Filled(200, 200, Rectangle(40, 40, 160, 160));
    const Mask density =
        WashDensity(SketchPaper(), shape, {.pool = 1, .granulation = 0, .bloom = 0, .stray = 0}, 1);
    EXPECT_GT(density.At(42, 100), 1.3f);
    EXPECT_NEAR(1, density.At(100, 100), 0.01f);
    EXPECT_EQ(0, density.At(30, 100));
}

TEST(AtelierWash, OfATileHasNoSeam)
{
    const Mask shape = Filled(128, 128, Rectangle(-40, 20, 60, 90), true);
    const Mask density = WashDensity(SketchPaper(128), shape, {.bloomSize = 40, .bleed = 10}, 1);
    double seam = 0, inside = 0;
    for (int y = 0; y < 128; y++) {
        seam += Abs(density.At(127, y) - density.At(0, y));
        inside += Abs(density.At(20, y) - density.At(21, y));
    }
    EXPECT_LT(seam, 1.3 * inside + 1);
}

TEST(AtelierGlow, DarkensTheBorderToBlack)
{
    Canvas canvas(64, 64, palette::Black);
    GlowAt(canvas, {32, 32}, 6, 60);
    DarkenBorder(canvas, 12);
    for (int i = 0; i < 64; i++) {
        EXPECT_EQ(0, canvas.At(i, 1).r);
        EXPECT_EQ(0, canvas.At(62, i).g);
    }
    EXPECT_GT(canvas.At(32, 32).r, 0.7f);
}

TEST(AtelierFinish, BleedsColourUnderTheTransparentPart)
{
    Canvas canvas(64, 64);
    canvas.Cover(Filled(64, 64, Rectangle(20, 20, 44, 44)), palette::Amber);
    const Raster raster = Finished(canvas, 4);
    const unsigned char* corner = raster.bytes.data();
    EXPECT_EQ(0, corner[3]);
    EXPECT_NEAR(0xf0, corner[0], 2);
    EXPECT_NEAR(0xb0, corner[1], 2);
    EXPECT_NEAR(0x50, corner[2], 2);
    const unsigned char* middle = &raster.bytes[(32 * 64 + 32) * 4];
    EXPECT_EQ(255, middle[3]);
    EXPECT_NEAR(0xf0, middle[0], 1);
}

TEST(AtelierFinish, BlackStaysBlack)
{
    const Raster raster = Finished(Canvas(32, 32, palette::Black), 3);
    EXPECT_EQ(0, *std::max_element(raster.bytes.begin(), raster.bytes.end()));
}

static Raster Checkered(int channels)
{
    Raster raster{48, 32, channels, {}};
    for (int i = 0; i < 48 * 32; i++)
        for (int c = 0; c < channels; c++)
            raster.bytes.push_back(static_cast<unsigned char>((i * 5 + c * 60 + i / 48 * 3) % 200 + 20));
    return raster;
}

TEST(AtelierFiles, PngComesBackAsItWasWithItsChannels)
{
    for (int channels = 3; channels <= 4; channels++) {
        const Raster raster = Checkered(channels);
        Raster back;
        ASSERT_TRUE(Decode(EncodedPng(raster), back));
        EXPECT_EQ(channels, back.channels);
        EXPECT_EQ(raster.bytes, back.bytes);
    }
}

TEST(AtelierFiles, JpegKeepsColourAtFullResolution)
{
    // Red and blue columns by turns: with halved colour they would run together.
    Raster raster{64, 64, 3, {}};
    for (int i = 0; i < 64 * 64; i++)
        for (int c = 0; c < 3; c++)
            raster.bytes.push_back(c == (i % 2 == 0 ? 0 : 2) ? 200 : 20);
    Raster back;
    ASSERT_TRUE(Decode(Encoded(raster, "x.jpg"), back));
    EXPECT_EQ(3, back.channels);
    EXPECT_LT(Compare(raster, back).mean, 8);
}

TEST(AtelierFiles, BrokenBytesAreNoPicture)
{
    Raster raster;
    EXPECT_FALSE(Decode("", raster));
    EXPECT_FALSE(Decode("nothing of the kind", raster));
    EXPECT_FALSE(Decode(EncodedPng(Checkered(3)).substr(0, 60), raster));
}

TEST(AtelierCommands, ToleranceAllowsForCodecsAndNotForAnotherPicture)
{
    Raster a = Checkered(3), b = a;
    EXPECT_TRUE(WithinTolerance(Compare(a, b)));
    for (size_t i = 0; i < b.bytes.size(); i += 5)
        b.bytes[i] = static_cast<unsigned char>(b.bytes[i] + 1);
    EXPECT_TRUE(WithinTolerance(Compare(a, b)));
    for (size_t i = 0; i < b.bytes.size(); i += 3)
        b.bytes[i] = static_cast<unsigned char>(b.bytes[i] + 1);
    EXPECT_FALSE(WithinTolerance(Compare(a, b))); // everywhere a little
    Raster c = a;
    for (size_t i = 0; i < 12; i++)
        c.bytes[i] = static_cast<unsigned char>(c.bytes[i] + LargestDifference + 1);
    EXPECT_FALSE(WithinTolerance(Compare(a, c))); // in one place a lot
}
