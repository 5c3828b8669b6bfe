// SPDX-License-Identifier: MIT
#include "effects/BlackFlashOverlay.h"

#include "tests/effects/FlashOverlayPicture.h"

class BlackFlashOverlayPicture : public FlashOverlayPicture
{
protected:
    BlackFlashOverlay overlay;
};

TEST_F(BlackFlashOverlayPicture, AtRestItChangesNothing)
{
    const Picture below = Below();
    Prepare(&overlay);
    EXPECT_EQ(0, Compare(Under(&overlay), below, 0).maximum);
}

TEST_F(BlackFlashOverlayPicture, AtItsPeakItLeavesNothing)
{
    Prepare(&overlay);
    Send(&overlay, "flash");
    EXPECT_EQ(0, Compare(Under(&overlay), PlainPicture(320, 240, 3, 0, 0, 0), 0).maximum);
}

TEST_F(BlackFlashOverlayPicture, HalfWayItHalvesThePicture)
{
    Prepare(&overlay);
    Send(&overlay, "flash", {2});
    PassTime(0.25);
    overlay.Update();
    EXPECT_TRUE(MatchesGolden(Under(&overlay), "BlackFlashOverlay-half", Smooth()));
}
