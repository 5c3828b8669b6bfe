// SPDX-License-Identifier: MIT
#include "platform/Canvas.h"

#include <gtest/gtest.h>

static const platform::Tint black = {0, 0, 0}, white = {255, 255, 255};

// A row for each line of pixels: a blank is black, '#' white, anything between '+'.
static std::vector<std::string> Rows(const platform::Canvas& canvas)
{
    std::vector<std::string> rows;
    for (int y = 0; y < canvas.height; ++y) {
        rows.emplace_back();
        for (int x = 0; x < canvas.width; ++x) {
            const int red = canvas.pixels[size_t(y * canvas.width + x) * 3];
            rows.back() += red == 0 ? ' ' : red == 255 ? '#' : '+';
        }
    }
    return rows;
}

typedef std::vector<std::string> Picture;

TEST(Canvas, StartsInTheColourOfItsGround)
{
    const platform::Canvas canvas(3, 2, {1, 2, 3});
    EXPECT_EQ(3, canvas.width);
    EXPECT_EQ(2, canvas.height);
    const std::vector<unsigned char> expected = {1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3};
    EXPECT_EQ(expected, canvas.pixels);
}

TEST(Canvas, ARectangleOnWholePixelsIsSharp)
{
    platform::Canvas canvas(6, 4, black);
    canvas.FillRoundRect(1, 1, 3, 2, 0, white);
    EXPECT_EQ((Picture{"      ", " ###  ", " ###  ", "      "}), Rows(canvas));
}

TEST(Canvas, HalfAPixelIsHalfAsBright)
{
    platform::Canvas canvas(4, 1, black);
    canvas.FillRoundRect(0.5f, -2, 2, 5, 0, {200, 100, 50});
    const std::vector<unsigned char> expected = {100, 50, 25, 200, 100, 50, 100, 50, 25, 0, 0, 0};
    EXPECT_EQ(expected, canvas.pixels);
}

TEST(Canvas, MixesEachChannelWithWhatWasThere)
{
    platform::Canvas canvas(1, 1, {10, 20, 30});
    canvas.FillRoundRect(0, 0.5f, 1, 1, 0, {110, 140, 170});
    EXPECT_EQ((std::vector<unsigned char>{60, 80, 100}), canvas.pixels);
}

TEST(Canvas, CornersAreRound)
{
    platform::Canvas canvas(8, 6, black);
    canvas.FillRoundRect(0, 0, 8, 6, 3, white);
    EXPECT_EQ((Picture{" ++##++ ", "+######+", "+######+", "+######+", "+######+", " ++##++ "}),
              Rows(canvas));
}

TEST(Canvas, ACircleIsRoundAndInItsPlace)
{
    platform::Canvas canvas(8, 7, black);
    canvas.FillCircle(4, 3, 3, white);
    EXPECT_EQ((Picture{"  ++++  ", " +####+ ", " +####+ ", " +####+ ", " +####+ ", "  ++++  ", "        "}),
              Rows(canvas));
}

TEST(Canvas, ALineHasThicknessAndRoundEnds)
{
    platform::Canvas canvas(9, 4, black);
    canvas.Line(2, 2, 7, 2, 2, white);
    EXPECT_EQ((Picture{"         ", " +#####+ ", " +#####+ ", "         "}), Rows(canvas));
    for (int y = 0; y < 4; ++y) // both ends are the same
        for (int x = 0; x < 9; ++x)
            EXPECT_EQ(canvas.pixels[(y * 9 + x) * 3], canvas.pixels[(y * 9 + 8 - x) * 3]);
    platform::Canvas steep(4, 4, black);
    steep.Line(0, 0, 4, 4, 1, white);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ('#', Rows(steep)[i][i]);
    EXPECT_EQ(' ', Rows(steep)[0][2]);
    EXPECT_EQ(' ', Rows(steep)[3][1]);
}

TEST(Canvas, ShapesMayReachOutOfIt)
{
    platform::Canvas canvas(3, 3, black);
    canvas.FillRoundRect(-10, -10, 30, 30, 2, white);
    canvas.FillCircle(-5, 50, 4, black);
    canvas.Line(-9, 1.5f, 1, 1.5f, 1, black);
    EXPECT_EQ((Picture{"###", " +#", "###"}), Rows(canvas));
}

TEST(Tints, AreMixedByTheWayFromOneToTheOther)
{
    const platform::Tint quarter = platform::MixTints({0, 100, 255}, {100, 0, 254}, 0.25f);
    EXPECT_EQ(25, quarter.red);
    EXPECT_EQ(75, quarter.green);
    EXPECT_EQ(255, quarter.blue); // 254.75
    const platform::Tint end = platform::MixTints({0, 100, 255}, {100, 0, 254}, 1);
    EXPECT_EQ(100, end.red);
    EXPECT_EQ(0, end.green);
    EXPECT_EQ(254, end.blue);
}
