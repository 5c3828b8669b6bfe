// SPDX-License-Identifier: MIT
#include "art/atelier/Outline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace atelier;

static Mask MaskOf(const std::vector<std::string>& rows)
{
    Mask mask(int(rows[0].size()), int(rows.size()));
    for (int y = 0; y < mask.Height(); y++)
        for (int x = 0; x < mask.Width(); x++)
            mask.At(x, y) = rows[size_t(y)][size_t(x)] == '#' ? 1.0f : 0.0f;
    return mask;
}

static bool Has(const Line& line, float x, float y)
{
    return std::any_of(line.begin(), line.end(),
                       [&](Vector2 p) { return std::fabs(p.x - x) < 1e-4f && std::fabs(p.y - y) < 1e-4f; });
}

TEST(Outline, OfOnePixelIsASquareRoundItOnItsTip)
{
    const std::vector<Line> outlines = Traced(MaskOf({"...", ".#.", "..."}), 0.5f, 0, 0);
    ASSERT_EQ(1u, outlines.size());
    ASSERT_EQ(4u, outlines[0].size());
    EXPECT_TRUE(Has(outlines[0], 1, 0.5f));
    EXPECT_TRUE(Has(outlines[0], 1.5f, 1));
    EXPECT_TRUE(Has(outlines[0], 1, 1.5f));
    EXPECT_TRUE(Has(outlines[0], 0.5f, 1));
}

TEST(Outline, PassesBetweenPixelsWhereTheAmountPassesTheLevel)
{
    Mask mask(3, 1);
    mask.At(1, 0) = 1;
    mask.At(2, 0) = 0.25f;
    const std::vector<Line> outlines = Traced(mask, 0.75f, 0, 0);
    ASSERT_EQ(1u, outlines.size());
    EXPECT_TRUE(Has(outlines[0], 0.75f, 0)) << "three quarters of the way from 0 to 1";
    EXPECT_TRUE(Has(outlines[0], 1 + 1.0f / 3, 0)) << "a third of the way from 1 to 0.25";
}

TEST(Outline, GoesRoundHolesToo)
{
    EXPECT_EQ(2u, Traced(MaskOf({"#####", "#...#", "#...#", "#####"}), 0.5f, 0, 0).size());
}

TEST(Outline, KeepsCornersApartThatTouchAcross)
{
    EXPECT_EQ(2u, Traced(MaskOf({"#.", ".#"}), 0.5f, 0, 0).size());
    EXPECT_EQ(2u, Traced(MaskOf({".#", "#."}), 0.5f, 0, 0).size());
}

TEST(Outline, ClosesAtTheBorderOfTheMask)
{
    const std::vector<Line> outlines = Traced(MaskOf({"##", "##"}), 0.5f, 0, 0);
    ASSERT_EQ(1u, outlines.size());
    EXPECT_TRUE(Has(outlines[0], -0.5f, 0));
    EXPECT_TRUE(Has(outlines[0], 1, 1.5f));
}

TEST(Outline, LeavesOutPointsOfStraightLinesAndSmallSpots)
{
    const Mask bar = MaskOf({".........", ".#######.", ".#######.", "........."});
    const Line octagon = Traced(bar, 0.5f, 0, 0)[0];
    EXPECT_EQ(8u, octagon.size()) << "of eighteen points, those on straight pieces are gone";
    for (const Vector2 corner : {Vector2{1, 0.5f}, Vector2{7, 0.5f}, Vector2{7.5f, 1}, Vector2{7.5f, 2},
                                 Vector2{7, 2.5f}, Vector2{1, 2.5f}, Vector2{0.5f, 2}, Vector2{0.5f, 1}})
        EXPECT_TRUE(Has(octagon, corner.x, corner.y)) << corner.x << " " << corner.y;
    EXPECT_LT(Traced(bar, 0.5f, 0.6f, 0)[0].size(), 8u);
    EXPECT_EQ(0u, Traced(MaskOf({"...", ".#.", "..."}), 0.5f, 0, 0.6f).size()) << "its area is a half";
    EXPECT_EQ(1u, Traced(MaskOf({"...", ".#.", "..."}), 0.5f, 0, 0.4f).size());
}

TEST(Outline, IsWrittenAsAPath)
{
    EXPECT_EQ("M1.0 2.5L3.0 4.0Z", PathData({{{2, 5}, {6, 8}}}, 0.5f));
    EXPECT_EQ("", PathData({}, 1));
}
