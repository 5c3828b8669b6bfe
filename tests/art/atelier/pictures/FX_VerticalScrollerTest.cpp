// SPDX-License-Identifier: MIT
// The pictures of the closing roll.
#include "tests/art/atelier/PaintedPicture.h"

#include <gtest/gtest.h>

using namespace atelier;

namespace
{

// What a page is drawn with: bone for its lines, amber for its accents, over ink that shades them from the sky.
bool IsDrawn(const Raster& page, int x, int y)
{
    return At(page, x, y, 3) > 128 && At(page, x, y, 0) > 140;
}

// The most rows in a row, of these, of which no pixel is drawn.
int LargestGap(const Raster& page, int top, int bottom)
{
    int largest = 0, gap = 0;
    for (int y = top; y < bottom; y++) {
        bool drawn = false;
        for (int x = 0; x < page.width; x++)
            drawn = drawn || IsDrawn(page, x, y);
        gap = drawn ? 0 : gap + 1;
        largest = std::max(largest, gap);
    }
    return largest;
}

} // namespace

TEST(FX_VerticalScrollerPictures, WhatIsDrawnKeepsClearOfTheLines)
{
    constexpr int Clear = 4; // rows: two of a window of 480
    const Raster first = LoadPicture("abspanner_1.png"), second = LoadPicture("abspanner_2.png");
    ASSERT_EQ(2048, first.height);
    ASSERT_EQ(2048, second.height);
    // Between the brush's tip and the x-height of the word below its stroke, and from below the rule to the ink pot's neck.
    EXPECT_GE(LargestGap(first, 1650, 1770), Clear);
    EXPECT_GE(LargestGap(second, 1420, 1500), Clear);
}

TEST(FX_VerticalScrollerPictures, TheLanternsLightGoesOutFromItsGlassOnBothSides)
{
    const Raster page = LoadPicture("abspanner_2.png");
    ASSERT_EQ(512, page.width);
    // Rows of 2048 from the lantern's roof to its foot, in three thirds; columns beside its glass.
    constexpr int Top = 880, Third = 62;
    for (int third = 0; third < 3; third++)
        for (const int left : {186, 292}) {
            int drawn = 0;
            for (int y = Top + third * Third; y < Top + (third + 1) * Third; y++)
                for (int x = left; x < left + 34; x++)
                    drawn += IsDrawn(page, x, y) ? 1 : 0;
            EXPECT_GT(drawn, 20) << third << ' ' << left;
        }
}
