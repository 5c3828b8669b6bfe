// SPDX-License-Identifier: MIT
#include "platform/dialogs/Pixmap.h"

#include <gtest/gtest.h>

static const platform::Tint black = {0, 0, 0}, white = {255, 255, 255};

// A row for each line of pixels: a blank is black, '#' white, anything between '+'.
static std::vector<std::string> Rows(const platform::Pixmap& pixmap)
{
    std::vector<std::string> rows;
    for (int y = 0; y < pixmap.height; ++y) {
        rows.emplace_back();
        for (int x = 0; x < pixmap.width; ++x) {
            const int red = pixmap.pixels[size_t(y * pixmap.width + x) * 3];
            rows.back() += red == 0 ? ' ' : red == 255 ? '#' : '+';
        }
    }
    return rows;
}

typedef std::vector<std::string> Picture;

TEST(Pixmap, StartsInTheColourOfItsGround)
{
    const platform::Pixmap pixmap(3, 2, {1, 2, 3});
    EXPECT_EQ(3, pixmap.width);
    EXPECT_EQ(2, pixmap.height);
    const std::vector<unsigned char> expected = {1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3};
    EXPECT_EQ(expected, pixmap.pixels);
}

TEST(Pixmap, ARectangleOnWholePixelsIsSharp)
{
    platform::Pixmap pixmap(6, 4, black);
    pixmap.FillRoundRect(1, 1, 3, 2, 0, white);
    EXPECT_EQ((Picture{"      ", " ###  ", " ###  ", "      "}), Rows(pixmap));
}

TEST(Pixmap, HalfAPixelIsHalfAsBright)
{
    platform::Pixmap pixmap(4, 1, black);
    pixmap.FillRoundRect(0.5f, -2, 2, 5, 0, {200, 100, 50});
    const std::vector<unsigned char> expected = {100, 50, 25, 200, 100, 50, 100, 50, 25, 0, 0, 0};
    EXPECT_EQ(expected, pixmap.pixels);
}

TEST(Pixmap, MixesEachChannelWithWhatWasThere)
{
    platform::Pixmap pixmap(1, 1, {10, 20, 30});
    pixmap.FillRoundRect(0, 0.5f, 1, 1, 0, {110, 140, 170});
    EXPECT_EQ((std::vector<unsigned char>{60, 80, 100}), pixmap.pixels);
}

TEST(Pixmap, CornersAreRound)
{
    platform::Pixmap pixmap(8, 6, black);
    pixmap.FillRoundRect(0, 0, 8, 6, 3, white);
    EXPECT_EQ((Picture{" ++##++ ", "+######+", "+######+", "+######+", "+######+", " ++##++ "}),
              Rows(pixmap));
}

TEST(Pixmap, ACircleIsRoundAndInItsPlace)
{
    platform::Pixmap pixmap(8, 7, black);
    pixmap.FillCircle(4, 3, 3, white);
    EXPECT_EQ((Picture{"  ++++  ", " +####+ ", " +####+ ", " +####+ ", " +####+ ", "  ++++  ", "        "}),
              Rows(pixmap));
}

TEST(Pixmap, ALineHasThicknessAndRoundEnds)
{
    platform::Pixmap pixmap(9, 4, black);
    pixmap.Line(2, 2, 7, 2, 2, white);
    EXPECT_EQ((Picture{"         ", " +#####+ ", " +#####+ ", "         "}), Rows(pixmap));
    for (int y = 0; y < 4; ++y) // both ends are the same
        for (int x = 0; x < 9; ++x)
            EXPECT_EQ(pixmap.pixels[(y * 9 + x) * 3], pixmap.pixels[(y * 9 + 8 - x) * 3]);
    platform::Pixmap steep(4, 4, black);
    steep.Line(0, 0, 4, 4, 1, white);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ('#', Rows(steep)[i][i]);
    EXPECT_EQ(' ', Rows(steep)[0][2]);
    EXPECT_EQ(' ', Rows(steep)[3][1]);
}

TEST(Pixmap, ShapesMayReachOutOfIt)
{
    platform::Pixmap pixmap(3, 3, black);
    pixmap.FillRoundRect(-10, -10, 30, 30, 2, white);
    pixmap.FillCircle(-5, 50, 4, black);
    pixmap.Line(-9, 1.5f, 1, 1.5f, 1, black);
    EXPECT_EQ((Picture{"###", " +#", "###"}), Rows(pixmap));
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
