// SPDX-License-Identifier: MIT
#include "effects/WhiteFlashOverlay.h"

#include "tests/effects/FlashOverlayPicture.h"

class WhiteFlashOverlayPicture : public FlashOverlayPicture
{
protected:
    WhiteFlashOverlay overlay;
};

TEST_F(WhiteFlashOverlayPicture, AtRestItChangesNothing)
{
    const Picture below = Below();
    EXPECT_TRUE(MatchesGolden(below, "WhiteFlashOverlay-at-rest", Smooth()));
    Prepare(&overlay);
    EXPECT_EQ(0, Compare(Under(&overlay), below, 0).maximum);
}

TEST_F(WhiteFlashOverlayPicture, AtItsPeakItAddsNineTenthsEverywhere)
{
    Prepare(&overlay);
    Send(&overlay, "flash");
    const Picture picture = Under(&overlay);
    for (int y : {0, 119, 239})
        for (int x : {0, 160, 319})
            for (int i = 0; i < 3; i++)
                EXPECT_GE(picture.At(x, y)[i], 229) << x << " " << y;
    EXPECT_TRUE(MatchesGolden(picture, "WhiteFlashOverlay-peak", Smooth()));
}

TEST_F(WhiteFlashOverlayPicture, HalfWayItAddsHalfOfThat)
{
    Prepare(&overlay);
    Send(&overlay, "flash", {2});
    PassTime(0.25);
    overlay.Update();
    EXPECT_TRUE(MatchesGolden(Under(&overlay), "WhiteFlashOverlay-half", Smooth()));
}
