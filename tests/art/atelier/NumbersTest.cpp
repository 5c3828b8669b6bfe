// SPDX-License-Identifier: MIT
#include "art/atelier/Noise.h"
#include "art/atelier/Palette.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace atelier;

TEST(AtelierNumbers, CurvesAgreeWithTheLibrarysToSixDigits)
{
    for (float x = -20; x <= 20; x += 0.037f) {
        EXPECT_NEAR(std::sin(x), Sin(x), 2e-6f) << x;
        EXPECT_NEAR(std::cos(x), Cos(x), 2e-6f) << x;
        EXPECT_NEAR(1, Exp(x) / std::exp(x), 4e-6f) << x;
    }
    for (float x = 0.001f; x < 50; x *= 1.07f) {
        EXPECT_NEAR(std::log2(x), Log2(x), 2e-6f) << x;
        EXPECT_NEAR(1, Pow(x, 2.4f) / std::pow(x, 2.4f), 1e-5f) << x;
    }
    EXPECT_EQ(0, Pow(0, 2));
    EXPECT_EQ(0, Pow(-1, 2));
}

TEST(AtelierNumbers, AnglesCoverTheWholeCircle)
{
    for (float a = -3.1f; a < 3.14f; a += 0.01f)
        EXPECT_NEAR(a, Angle({std::cos(a), std::sin(a)}), 2e-4f);
    EXPECT_EQ(0, Angle({0, 0}));
}

TEST(AtelierNumbers, FloorAndWrapAreRightBelowZero)
{
    EXPECT_EQ(-2, Floor(-1.5f));
    EXPECT_EQ(-1, Floor(-1.0f));
    EXPECT_EQ(1, Floor(1.9f));
    EXPECT_EQ(4, Wrap(-1, 5));
    EXPECT_EQ(0, Wrap(-5, 5));
    EXPECT_EQ(2, Wrap(7, 5));
}

TEST(AtelierNumbers, SmoothFallsWhenItsEndsAreExchanged)
{
    EXPECT_EQ(0, Smooth(2, 4, 2));
    EXPECT_EQ(1, Smooth(2, 4, 4));
    EXPECT_FLOAT_EQ(0.5f, Smooth(2, 4, 3));
    EXPECT_EQ(1, Smooth(4, 2, 2));
    EXPECT_EQ(0, Smooth(4, 2, 4));
    EXPECT_EQ(1, Hill(3, 2, 3));
    EXPECT_EQ(0, Hill(3, 2, 5));
    EXPECT_EQ(0, Hill(3, 2, 1));
}

TEST(AtelierNumbers, EqualSeedsThrowEqualDice)
{
    Dice a(5), b(5), c(6);
    int same = 0;
    for (int i = 0; i < 100; i++) {
        const uint32_t value = a.Next();
        EXPECT_EQ(value, b.Next());
        same += value == c.Next() ? 1 : 0;
    }
    EXPECT_LT(same, 3);
}

TEST(AtelierNumbers, DiceAreFair)
{
    Dice dice(1);
    double sum = 0, bell = 0, square = 0;
    constexpr int Throws = 20000;
    for (int i = 0; i < Throws; i++) {
        const float u = dice.Unit();
        ASSERT_GE(u, 0);
        ASSERT_LT(u, 1);
        sum += u;
        const float b = dice.Bell();
        bell += b;
        square += b * b;
        const int below = dice.Below(7);
        ASSERT_GE(below, 0);
        ASSERT_LT(below, 7);
    }
    EXPECT_NEAR(0.5, sum / Throws, 0.01);
    EXPECT_NEAR(0, bell / Throws, 0.03);
    EXPECT_NEAR(1, square / Throws, 0.05);
}

TEST(AtelierNoise, RepeatsAfterItsPeriodsInEveryOctave)
{
    const Noise noise(3, 4, 6);
    for (float y = 0; y < 6; y += 0.37f)
        for (float x = 0; x < 4; x += 0.29f) {
            EXPECT_NEAR(noise.Value(x, y), noise.Value(x + 4, y), 1e-4f);
            EXPECT_NEAR(noise.Fbm(x, y, 5), noise.Fbm(x + 4, y - 6, 5), 1e-3f);
            EXPECT_NEAR(noise.Ridges(x, y, 4), noise.Ridges(x - 4, y + 12, 4), 1e-3f);
            EXPECT_NEAR(noise.Worley(x, y).nearest, noise.Worley(x + 4, y + 6).nearest, 1e-4f);
            const Vector2 here = noise.Warp(x, y, 0.5f), there = noise.Warp(x + 4, y + 6, 0.5f);
            EXPECT_NEAR(here.x + 4, there.x, 1e-3f);
            EXPECT_NEAR(here.y + 6, there.y, 1e-3f);
        }
}

TEST(AtelierNoise, WithoutPeriodsItDoesNotRepeat)
{
    const Noise noise(3);
    float difference = 0;
    for (float x = 0.3f; x < 4; x += 0.29f)
        difference += Abs(noise.Gradient(x, 0.4f) - noise.Gradient(x + 4, 0.4f));
    EXPECT_GT(difference, 1);
}

TEST(AtelierNoise, StaysNearItsRangeAndItsMean)
{
    const Noise noise(9);
    double sum = 0;
    int n = 0;
    for (float y = 0; y < 40; y += 0.31f)
        for (float x = 0; x < 40; x += 0.31f, ++n) {
            const float f = noise.Fbm(x, y, 5);
            sum += f;
            EXPECT_LT(Abs(f), 1.5f);
            const float r = noise.Ridges(x, y, 3);
            EXPECT_GE(r, 0);
            EXPECT_LE(r, 1);
            const Noise::WorleyCell cell = noise.Worley(x, y);
            EXPECT_LE(cell.nearest, cell.second);
        }
    EXPECT_NEAR(0, sum / n, 0.03);
}

TEST(AtelierPalette, HasTheColoursOfTheShowAndTheWayBackToTheScreen)
{
    EXPECT_NEAR(0xc8 / 255.0f, ToScreen(palette::Ochre.r), 1e-4f);
    EXPECT_NEAR(0x82 / 255.0f, ToScreen(palette::Ochre.g), 1e-4f);
    EXPECT_NEAR(0x2a / 255.0f, ToScreen(palette::Ochre.b), 1e-4f);
    EXPECT_NEAR(0x0d / 255.0f, ToScreen(palette::Ink.r), 1e-4f);
    for (int level = 0; level < 256; level++)
        EXPECT_NEAR(level / 255.0f, ToScreen(FromScreen(float(level) / 255)), 1e-4f);
}
