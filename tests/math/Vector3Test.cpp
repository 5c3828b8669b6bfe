// SPDX-License-Identifier: MIT
#include "math/Vector3.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <type_traits>

static void ExpectVector3(float x, float y, float z, const Vector3& v)
{
    EXPECT_FLOAT_EQ(x, v.x);
    EXPECT_FLOAT_EQ(y, v.y);
    EXPECT_FLOAT_EQ(z, v.z);
}

TEST(Vector3, StartsAtZero)
{
    ExpectVector3(0, 0, 0, Vector3());
    Vector3 v;
    ExpectVector3(0, 0, 0, v);
}

TEST(Vector3, LiesInMemoryAsThreeFloatsAndNothingElse)
{
    EXPECT_EQ(12u, sizeof(Vector3));
    EXPECT_FALSE(std::is_polymorphic_v<Vector3>);
    const Vector3 v(1, 2, 3);
    float raw[3];
    memcpy(raw, &v, sizeof(raw));
    EXPECT_EQ(1.0f, raw[0]);
    EXPECT_EQ(2.0f, raw[1]);
    EXPECT_EQ(3.0f, raw[2]);
}

TEST(Vector3, OperatorsGiveNewVectors)
{
    const Vector3 a(1, -2, 3), b(10, 20, 40);
    ExpectVector3(2.5f, -5, 7.5f, a * 2.5f);
    ExpectVector3(11, 18, 43, a + b);
    ExpectVector3(-9, -22, -37, a - b);
    ExpectVector3(1, -2, 3, a);
    ExpectVector3(10, 20, 40, b);
    const Vector3 copy = b;
    ExpectVector3(10, 20, 40, copy);
}

TEST(Vector3, LengthIsTheRootOfTheSumOfSquares)
{
    EXPECT_FLOAT_EQ(7, Vector3(2, -3, 6).Length());
    EXPECT_FLOAT_EQ(6.16441400f, Vector3(2, 3, 5).Length());
    EXPECT_FLOAT_EQ(13, Vector3(3, 4, -12).Length());
    EXPECT_EQ(0.0f, Vector3().Length());
}

TEST(Vector3, NormalizeScalesInPlaceAndReturnsTheFactor)
{
    Vector3 v(0, 3, -4);
    EXPECT_FLOAT_EQ(0.2f, v.Normalize());
    ExpectVector3(0, 0.6f, -0.8f, v);
    Vector3 w(2, -3, 6);
    EXPECT_FLOAT_EQ(1 / 7.0f, w.Normalize());
    ExpectVector3(2 / 7.0f, -3 / 7.0f, 6 / 7.0f, w);
}

TEST(Vector3, NormalizeOfAZeroVectorReturnsInfinityAndLeavesNonFiniteComponents)
{
    Vector3 zero;
    EXPECT_EQ(INFINITY, zero.Normalize());
    EXPECT_FALSE(std::isfinite(zero.x));
    EXPECT_FALSE(std::isfinite(zero.y));
    EXPECT_FALSE(std::isfinite(zero.z));
}
