// SPDX-License-Identifier: MIT
// The pictures of the opening.
#include "tests/art/atelier/PaintedPicture.h"

#include <gtest/gtest.h>

using namespace atelier;

TEST(FX_Scroller_IntroPictures, TheChicksPictureEndsWhereItsQuadEnds)
{
    const Raster chick = LoadPicture("black-chick.png");
    ASSERT_EQ(4, chick.channels);
    int largest = 0, inside = 0;
    for (int y = 0; y < 512; y++)
        for (int x = 0; x < 512; x++)
            (y >= 343 ? largest : inside) = std::max(y >= 343 ? largest : inside, At(chick, x, y, 3));
    EXPECT_EQ(0, largest);
    EXPECT_EQ(255, inside);
}

TEST(FX_Scroller_IntroPictures, TheSkyOfTheOpeningIsOnePanorama)
{
    const Raster parts[] = {LoadPicture("sky-background_01.jpg"), LoadPicture("sky-background_02.jpg"),
                            LoadPicture("sky-background_03.jpg"), LoadPicture("sky-background_04.jpg")};
    for (int i = 0; i < 3; i++) {
        ASSERT_EQ(3, parts[i].channels);
        ASSERT_EQ(3, parts[i + 1].channels);
        EXPECT_LE(BetweenColumns(parts[i], 1023, parts[i + 1], 0),
                  1.2 * std::max((ColumnsNear(parts[i], true) + ColumnsNear(parts[i + 1], false)) / 2,
                                 (InnerColumns(parts[i]) + InnerColumns(parts[i + 1])) / 2))
            << i;
    }
}

TEST(FX_Scroller_IntroPictures, TheSparkOfWhichDozensAreAddedUpIsFaint)
{
    EXPECT_LE(MeanOf(LoadPicture("partikel_2.jpg")), 12);
}

TEST(FX_Scroller_IntroPictures, NoLightLiesAboutTheTitle)
{
    // The sky is gone before the title is: what is not ink would shine in the dark.
    const Raster title = LoadPicture("moonwaltz-logo.png");
    ASSERT_EQ(4, title.channels);
    int ink = 0, brightest = 0; // seen, or bled under what is clear
    for (int y = 0; y < title.height; y++)
        for (int x = 0; x < title.width; x++) {
            for (int c = 0; c < 3; c++)
                brightest = std::max(brightest, At(title, x, y, c));
            ink += At(title, x, y, 3) > 200 ? 1 : 0;
        }
    EXPECT_LT(brightest, 80);
    EXPECT_GT(ink, 8000);
}
