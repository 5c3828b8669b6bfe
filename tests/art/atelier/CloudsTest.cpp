// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/clouds/Arm.h"
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

static Arm BareArm(Gesture gesture)
{
    return {.seed = 1, .elbow = {-100, 800}, .girth = 1, .tan = 0.5f, .wear = Wear::Rope, .gesture = gesture};
}

// The card is a square of 260 pixels, from 70 to 330 and from the upper border to 260.
static const Sight CardOverMiddle = {{200, 130}, 0, 1, 130};

TEST(AtelierClouds, OnlyTheThumbsOfHandsThatHoldACardLieBeforeIt)
{
    for (const Gesture gesture :
         {Gesture::Fist, Gesture::Lean, Gesture::Tray, Gesture::Pinch, Gesture::Clench, Gesture::Corner}) {
        const Mask thumb = ThumbOnCard(BareArm(gesture), CardOverMiddle, 400, 400);
        float covered = 0;
        for (int y = 0; y < 400; y++)
            for (int x = 0; x < 400; x++) {
                covered += thumb.At(x, y);
                if (y > 270 || x < 60 || x > 340) {
                    ASSERT_LT(thumb.At(x, y), 1e-3f) << int(gesture) << ": beside the card " << x << ' ' << y;
                }
            }
        const bool holds = gesture == Gesture::Lean || gesture == Gesture::Tray || gesture == Gesture::Corner;
        if (holds) {
            EXPECT_GT(covered, 600) << int(gesture);
            EXPECT_LT(covered, 8450) << int(gesture) << ": an eighth of the card";
        } else {
            EXPECT_EQ(0, covered) << int(gesture);
        }
    }
}

TEST(AtelierClouds, AHandIsInFrontOfAPlaneThatSlopesAway)
{
    const DrawnHand hand(BareArm(Gesture::Lean), CardOverMiddle, 400, 900);
    const auto area = [](const Mask& mask, int from, int to) {
        float sum = 0;
        for (int y = from; y < to; y++)
            for (int x = 0; x < mask.Width(); x++)
                sum += mask.At(x, y);
        return sum;
    };
    EXPECT_EQ(0, area(hand.InFrontOf(1000), 0, 900));
    const Mask sloping = hand.InFrontOf(1000, 4); // from 1000 at y = 260 to -1000 at y = 760
    EXPECT_EQ(0, area(sloping, 0, 310));
    EXPECT_FLOAT_EQ(area(hand.InFrontOf(-1000), 780, 880), area(sloping, 780, 880));
    EXPECT_GT(area(sloping, 780, 880), 100);
}
