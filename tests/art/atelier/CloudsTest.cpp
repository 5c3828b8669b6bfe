// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/clouds/CloudBank.h"

#include <gtest/gtest.h>

using namespace atelier;

TEST(AtelierClouds, ABillowOnAClearCanvasIsOpaqueInItsHeadAndLosesItselfDownwards)
{
    Canvas canvas(200, 200);
    PaintBillow(canvas, Noise(1), {{100, 100}, 60, 60, 0.5f, 0, 2}, {180, 20}, BlueNight);
    EXPECT_FLOAT_EQ(1, canvas.At(100, 90).a);
    EXPECT_EQ(0, canvas.At(100, 165).a) << "below it";
    EXPECT_EQ(0, canvas.At(5, 5).a);
    EXPECT_GT(canvas.At(100, 130).a, 0.1f);
    EXPECT_LT(canvas.At(100, 130).a, 0.9f);
}

TEST(AtelierClouds, ABillowOnPaintLeavesTheCanvasOpaque)
{
    Canvas canvas(100, 100, palette::Rust);
    PaintBillow(canvas, Noise(1), {{50, 50}, 30, 30, 0.5f, 0, 2}, {90, 10}, BlueNight);
    for (int y = 0; y < 100; y++)
        for (int x = 0; x < 100; x++)
            ASSERT_EQ(1, canvas.At(x, y).a) << x << ' ' << y;
}

TEST(AtelierClouds, ABankIsClearAtTheBordersOfItsPicture)
{
    Canvas canvas(512, 512);
    const CloudBank bank = {{40, 470}, 0.5f, AmberNight, 7}; // in the corner, where it is cut off
    bank.PaintBehind(canvas);
    bank.PaintBefore(canvas);
    for (int i = 0; i < 512; i++)
        for (const Pixel& p : {canvas.At(i, 0), canvas.At(i, 511), canvas.At(0, i), canvas.At(511, i)})
            ASSERT_LT(p.a, 1e-3f) << i;
    float most = 0;
    for (int x = 60; x < 200; x++)
        most = Max(most, canvas.At(x, 420).a);
    EXPECT_GT(most, 0.9f) << "and there is a bank";
}

TEST(AtelierClouds, BillowsLieBeforeWhereSomethingGoesIntoABank)
{
    Canvas alone(512, 512), worn(512, 512);
    CloudBank{{256, 256}, 0, AmberNight, 7}.PaintBefore(alone);
    CloudBank{{256, 256}, 0, AmberNight, 7, {{116, 240}, {396, 240}}}.PaintBefore(worn);
    for (const int x : {116, 396}) {
        EXPECT_LT(alone.At(x, 250).a, 0.1f) << "the crest sinks to its ends";
        EXPECT_GT(worn.At(x, 250).a, 0.9f);
    }
}

TEST(AtelierClouds, ABankLiesLevelWhenItsPictureIsTurned)
{
    // The crest's middle is at the place; what is before it lies on its lower side.
    constexpr float QuarterTurn = Pi / 2;
    Canvas upright(512, 512), turned(512, 512);
    CloudBank{{256, 256}, 0, BlueNight, 7}.PaintBefore(upright);
    CloudBank{{256, 256}, QuarterTurn, BlueNight, 7}.PaintBefore(turned);
    EXPECT_GT(upright.At(256, 356).a, 0.9f);
    EXPECT_EQ(0, upright.At(256, 156).a);
    EXPECT_GT(turned.At(356, 256).a, 0.9f) << "a turn to the right takes it below";
    EXPECT_EQ(0, turned.At(156, 256).a);
}
