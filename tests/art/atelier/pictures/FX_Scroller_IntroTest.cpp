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
