// SPDX-License-Identifier: MIT
// The two cards of the fish.
#include "tests/art/atelier/PaintedPicture.h"

#include <gtest/gtest.h>

using namespace atelier;

TEST(Transition_FishPictures, TheBonesOfTheFishMeetAtTheHinge)
{
    const Raster head = LoadPicture("fischgraeten_1.png"), tail = LoadPicture("fischgraeten_2.png");
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

TEST(Transition_FishPictures, TheFirstSightOfTheFishIsNothingButBone)
{
    // The scene begins with a view 14 pixels high round this place of the first card.
    const Raster head = LoadPicture("fischgraeten_1.png");
    ASSERT_EQ(4, head.channels);
    for (int y = 486 - 24; y <= 486 + 24; y++)
        for (int x = 384 - 24; x <= 384 + 24; x++)
            EXPECT_EQ(255, At(head, x, y, 3)) << x << ' ' << y;
}

TEST(Transition_FishPictures, TheShadowsOfTheFishHaveASoftBorder)
{
    // A shadow is the picture itself in black. From the skull's crown upwards its alpha falls slowly to nothing.
    const Raster head = LoadPicture("fischgraeten_1.png");
    ASSERT_EQ(4, head.channels);
    for (const int x : {240, 300, 420}) {
        int crown = 0;
        while (crown < 512 && At(head, x, crown, 3) < 250)
            crown++;
        ASSERT_GT(crown, 100);
        int soft = 0;
        for (int y = crown - 6; y > 0; y--) {
            EXPECT_LE(At(head, x, y, 3), At(head, x, y + 1, 3) + 3) << x << ' ' << y;
            soft += At(head, x, y, 3) > 8 ? 1 : 0;
        }
        EXPECT_GT(soft, 20) << x;
        EXPECT_LT(soft, 60) << x;
    }
}
