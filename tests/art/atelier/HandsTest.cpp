// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/hands/Study.h"

#include <gtest/gtest.h>

using namespace atelier;

static Bone Ball(float x, float y, float z, float half, float melt)
{
    return {{x, y, z}, {x, y, z}, half, half, melt};
}

// Canvas and hand's frame are the same.
static const Sight Plain = {{0, 0}, 0, 1, 0};

TEST(AtelierHands, ABoneIsRoundAndTapers)
{
    Solid solid;
    solid.palm = {{{0, 0, 0}, {20, 0, 0}, 4, 2, 1}};
    EXPECT_FLOAT_EQ(4, solid.Distance({10, 7, 0})) << "half-way it is 3 thick";
    EXPECT_FLOAT_EQ(3, solid.Distance({0, 0, 7}));
    EXPECT_FLOAT_EQ(8, solid.Distance({30, 0, 0}));
    EXPECT_LT(solid.Distance({10, 1, 1}), 0);
}

TEST(AtelierHands, BonesOfOnePartMeltIntoEachOtherAndDigitsDoNot)
{
    // Two balls with a gap of 2 between them, which a melt of 6 closes: 1 - 6 * 6 / (4 * 6) = -0.5.
    Solid solid;
    solid.palm = {Ball(0, 0, 0, 5, 6), Ball(12, 0, 0, 5, 6)};
    EXPECT_FLOAT_EQ(-0.5f, solid.Distance({6, 0, 0}));
    Solid digits;
    digits.rootMelt = digits.jointMelt = 6;
    digits.digits[0][0] = {Ball(0, 0, 0, 5, 6)};
    digits.digits[1][0] = {Ball(12, 0, 0, 5, 6)};
    EXPECT_FLOAT_EQ(1, digits.Distance({6, 0, 0}));
    digits.palm = {Ball(6, 6, 0, 5, 6)};
    EXPECT_LT(digits.Distance({6, 0, 0}), 1) << "a digit's root melts into the palm";
}

TEST(AtelierHands, APartOfAPictureNeedsOnlyTheBonesOverIt)
{
    const Skeleton hand =
        Posed({.right = true,
               .turn = 20,
               .lean = 5,
               .roll = 10,
               .fingers = {{5, 20, 30, 20}, {0, 30, 30, 20}, {-5, 60, 60, 30}, {-9, 70, 70, 40}},
               .thumb = {{0.6f, 0.7f, 0.4f}, {0.2f, 0.9f, 0.3f}, {0, 1, 0}},
               .nail = {0, 0, 1},
               .pad = {0, 0},
               .lift = 0,
               .size = 2});
    const Vector2 from = {10, 40}, to = {34, 64};
    const Solid over = hand.flesh.Over(from, to);
    EXPECT_LT(over.palm.size(), hand.flesh.palm.size());
    int surfaces = 0;
    for (float y = from.y; y <= to.y; y += 3)
        for (float x = from.x; x <= to.x; x += 3)
            for (float z = -120; z < 120; z += 1) {
                const float whole = hand.flesh.Distance({x, y, z});
                if (Abs(whole) > 1)
                    continue;
                surfaces++;
                EXPECT_NEAR(whole, over.Distance({x, y, z}), 1e-3f) << x << ' ' << y << ' ' << z;
            }
    EXPECT_GT(surfaces, 50);
}

TEST(AtelierHands, TheThumbsPadLiesOnTheCardAndFingersStopBehindIt)
{
    const Pose pose = {
        .right = false,
        .turn = 0,
        .lean = 0,
        .roll = 0,
        .fingers = {{5, 20, 30, 20, true}, {0, 20, 30, 20, true}, {-5, 70, 80, 40}, {-9, 70, 80, 40}},
        .thumb = {{0.6f, 0.7f, 0.4f}, {0.2f, 0.9f, 0.3f}, {0, 1, 0}},
        .nail = {0, 0, 1},
        .pad = {-40, -20},
        .lift = 0,
        .size = 2.5f};
    const Skeleton hand = Posed(pose);
    const Phalanx& thumb = hand.digits[Thumb][2];
    const Point3 pad = Mix(thumb.a, thumb.b, 0.62f);
    EXPECT_NEAR(-40, pad.x, 0.01f);
    EXPECT_NEAR(-20, pad.y, 0.01f);
    EXPECT_NEAR(0, hand.flesh.Distance({pad.x, pad.y, 0}), 2.5f) << "its skin is at the card";
    for (int finger = 0; finger < 2; finger++) {
        float nearest = -1000;
        for (const Phalanx& part : hand.digits[finger])
            if (part.b.y < 0)
                nearest = Max(nearest, part.b.z + part.halfB);
        EXPECT_LE(nearest, 0.5f) << finger;
        EXPECT_GT(nearest, -8) << "and it touches the card, finger " << finger;
    }
}

static Pose HalfClosed()
{
    return {.right = true,
            .turn = 0,
            .lean = 0,
            .roll = 0,
            .fingers = {{5, 20, 30, 20}, {0, 30, 30, 20}, {-5, 60, 60, 30}, {-9, 70, 70, 40}},
            .thumb = {{0.6f, 0.7f, 0.4f}, {0.2f, 0.9f, 0.3f}, {0, 1, 0}},
            .nail = {0, 0, 1},
            .pad = {0, 0},
            .lift = 0,
            .size = 2};
}

TEST(AtelierHands, ALeftHandIsTheMirrorImageOfARightOne)
{
    Pose pose = HalfClosed();
    pose.lean = 10;
    const Skeleton right = Posed(pose);
    pose.right = false;
    const Skeleton left = Posed(pose);
    for (int digit = 0; digit < Solid::Digits; digit++) {
        const Point3 a = right.digits[digit][2].b, b = left.digits[digit][2].b;
        EXPECT_NEAR(-a.x, b.x, 1e-3f) << digit;
        EXPECT_NEAR(a.y, b.y, 1e-3f) << digit;
        EXPECT_NEAR(a.z, b.z, 1e-3f) << digit;
    }
}

TEST(AtelierHands, AThumbMayBeSlimmerThanItsHand)
{
    Pose pose = HalfClosed();
    const Skeleton plain = Posed(pose);
    pose.thumbGirth = 0.5f;
    const Skeleton slim = Posed(pose);
    // The thumb's pad lies on the card, so that a slim one brings the hand nearer.
    const float nearer = slim.wrist.z - plain.wrist.z;
    EXPECT_LT(nearer, -4);
    for (int part = 0; part < 3; part++) {
        const Phalanx &was = plain.digits[Thumb][part], &is = slim.digits[Thumb][part];
        EXPECT_NEAR(was.halfA, 2 * is.halfA, 1e-3f) << part;
        EXPECT_NEAR(was.b.x, is.b.x, 1e-3f) << part;
        EXPECT_NEAR(was.b.z + nearer, is.b.z, 1e-3f) << part;
        EXPECT_FLOAT_EQ(plain.digits[1][part].halfA, slim.digits[1][part].halfA) << part;
    }
}

TEST(AtelierHands, WhatIsNearerHidesWhatIsBehindAndEndsWithAnEdge)
{
    Skeleton two; // one finger before another
    two.flesh.digits[0][0] = {{{20, 50, 40}, {80, 50, 40}, 10, 10, 1}};
    two.flesh.digits[1][0] = {{{50, 20, 0}, {50, 80, 0}, 10, 10, 1}};
    const Study study = Studied(two, Plain, 100, 100);
    EXPECT_EQ(1, study.body.At(50, 50));
    EXPECT_EQ(0, study.body.At(20, 20));
    EXPECT_NEAR(50, study.depth.At(50, 50), 0.5f);
    EXPECT_NEAR(10, study.depth.At(50, 70), 0.5f);
    EXPECT_TRUE(study.Sees({50, 50}, 50, 1));
    EXPECT_FALSE(study.Sees({50, 50}, 10, 1)) << "the other one is behind it";
    EXPECT_FALSE(study.Sees({20, 20}, 100, 1)) << "there is nothing";
    EXPECT_FALSE(study.Sees({-5, 500}, 100, 1));
    EXPECT_GT(study.edges.At(50, 59), 0.5f) << "the nearer one's rim";
    EXPECT_LT(study.edges.At(50, 50), 0.1f);
    EXPECT_LT(study.edges.At(50, 72), 0.1f);
}

TEST(AtelierHands, LightComesFromTheUpperLeftAndThrowsShadows)
{
    Skeleton ball;
    ball.flesh.palm = {Ball(50, 50, 0, 30, 1)};
    const Study lit = Studied(ball, Plain, 100, 100);
    EXPECT_LT(lit.dark.At(36, 40), 0.2f);
    EXPECT_GT(lit.dark.At(72, 66), 0.6f);
    EXPECT_LT(lit.cast.At(36, 40), 0.1f);
    ball.flesh.digits[0][0] = {Ball(50 - 0.52f * 60, 50 - 0.42f * 60, 30 + 0.74f * 60, 10, 1)};
    const Study shaded = Studied(ball, Plain, 100, 100);
    EXPECT_GT(shaded.cast.At(50, 50), 0.8f);
    EXPECT_GT(shaded.dark.At(50, 50), lit.dark.At(50, 50) + 0.3f);
}

TEST(AtelierHands, GapsThatRaysMissedBetweenPartsAreDarkFlesh)
{
    Study study(9, 9);
    for (int y = 1; y < 8; y++)
        for (int x = 1; x < 8; x++) {
            study.body.At(x, y) = 1;
            study.depth.At(x, y) = float(10 + y);
        }
    study.body.At(4, 4) = 0;
    study.depth.At(4, 4) = -1e5f;
    study.CloseGaps();
    EXPECT_EQ(1, study.body.At(4, 4));
    EXPECT_EQ(1, study.dark.At(4, 4));
    EXPECT_EQ(1, study.edges.At(4, 4));
    EXPECT_EQ(13, study.depth.At(4, 4)) << "it lies behind what is round it";
    EXPECT_EQ(0, study.dark.At(4, 5)) << "flesh stays as it was";
    EXPECT_EQ(0, study.body.At(0, 4)) << "and so does what is beside the hand";
    EXPECT_EQ(0, study.body.At(8, 8));
}

TEST(AtelierHands, APlaceOnTheCanvasAndInTheHandsFrameAreEachOthersOpposite)
{
    // A quarter turn clockwise at twice the size, the card's middle 10 above its lower edge: the origin goes 20 to the left.
    const Sight sight = {{100, 50}, Pi / 2, 2, 10};
    const Vector2 origin = sight(Vector2{0, 0});
    EXPECT_NEAR(80, origin.x, 1e-4f);
    EXPECT_NEAR(50, origin.y, 1e-4f);
    const Vector2 back = sight.Back({80, 56});
    EXPECT_NEAR(3, back.x, 1e-4f);
    EXPECT_NEAR(0, back.y, 1e-4f);
}
