// SPDX-License-Identifier: MIT
#include "math/CurvePoint.h"

#include <gtest/gtest.h>

#include <type_traits>

#include <cmath>

static void ExpectPoint(float x, float y, float z, const CurvePoint& p)
{
    EXPECT_FLOAT_EQ(x, p.x);
    EXPECT_FLOAT_EQ(y, p.y);
    EXPECT_FLOAT_EQ(z, p.z);
}

TEST(CurvePoint, StartsAtZeroWithItsFactor)
{
    const CurvePoint p;
    ExpectPoint(0, 0, 0, p);
    EXPECT_EQ(0.01745f, p.degToRad);
    EXPECT_EQ(0.01745f, CurvePoint(1, 2, 3).degToRad);
    EXPECT_EQ(16u, sizeof(CurvePoint));
    EXPECT_EQ(&p.degToRad + 1, &p.x);
    EXPECT_EQ(&p.x + 1, &p.y);
    EXPECT_EQ(&p.y + 1, &p.z);
}

TEST(CurvePoint, ACopyTakesTheCoordinatesAndNotTheFactor)
{
    const CurvePoint p(1, 2, 3);
    const CurvePoint copy(p);
    ExpectPoint(1, 2, 3, copy);
    EXPECT_EQ(0.0f, copy.degToRad);
}

TEST(CurvePoint, AssignmentsLeaveTheFactorOfTheirTargetAlone)
{
    CurvePoint p, q(1, 2, 4);
    p.degToRad = 5;
    q.degToRad = 6;
    EXPECT_EQ(&p, &(p = q));
    ExpectPoint(1, 2, 4, p);
    p += CurvePoint(10, 20, 30);
    ExpectPoint(11, 22, 34, p);
    p -= CurvePoint(1, 4, 2);
    ExpectPoint(10, 18, 32, p);
    p *= 0.5f;
    ExpectPoint(5, 9, 16, p);
    p /= 4;
    ExpectPoint(1.25f, 2.25f, 4, p);
    EXPECT_EQ(5.0f, p.degToRad);
}

TEST(CurvePoint, CompoundOperatorsGiveTrue)
{
    CurvePoint p(1, 2, 3);
    EXPECT_EQ(true, p += CurvePoint());
    EXPECT_EQ(true, p -= p);
    EXPECT_EQ(true, p *= 0.0f);
    EXPECT_EQ(true, p /= 0.0f);
    static_assert(std::is_same_v<bool, decltype(p += p)> && std::is_same_v<bool, decltype(p -= p)> &&
                  std::is_same_v<bool, decltype(p *= 1.0f)> && std::is_same_v<bool, decltype(p /= 1.0f)>);
}

TEST(CurvePoint, BinaryOperatorsGiveNewPoints)
{
    const CurvePoint a(1, -2, 3), b(10, 20, 40);
    ExpectPoint(2.5f, -5, 7.5f, a * 2.5f);
    ExpectPoint(11, 18, 43, a + b);
    ExpectPoint(-9, -22, -37, a - b);
    ExpectPoint(1, -2, 3, a);
    ExpectPoint(10, 20, 40, b);
}

TEST(CurvePoint, ComparesExactlyAndOnCoordinatesAlone)
{
    CurvePoint a(1, 2, 3), b(1, 2, 3);
    b.degToRad = 7;
    EXPECT_TRUE(a == b);
    EXPECT_FALSE(a != b);
    for (const CurvePoint& other :
         {CurvePoint(1.0000001f, 2, 3), CurvePoint(1, 2.0000002f, 3), CurvePoint(1, 2, 3.0000002f)}) {
        EXPECT_FALSE(a == other);
        EXPECT_TRUE(a != other);
    }
    const CurvePoint none(NAN, 0, 0);
    EXPECT_FALSE(none == none);
    EXPECT_TRUE(none != none);
}

TEST(CurvePoint, NegateTurnsThePointItself)
{
    CurvePoint p(1, -2, 3);
    p.Negate();
    ExpectPoint(-1, 2, -3, p);
}

TEST(CurvePoint, LengthSquareAndDot)
{
    const CurvePoint p(2, 3, 5);
    EXPECT_FLOAT_EQ(38, p.LengthSquared());
    EXPECT_FLOAT_EQ(6.16441400f, p.Length());
    EXPECT_FLOAT_EQ(46, p.Dot(CurvePoint(7, -11, 13)));
}

TEST(CurvePoint, NormalizeReturnsTheFactor)
{
    CurvePoint p(0, 3, -4);
    EXPECT_FLOAT_EQ(0.2f, p.Normalize());
    ExpectPoint(0, 0.6f, -0.8f, p);
    CurvePoint zero;
    EXPECT_EQ(INFINITY, zero.Normalize());
    EXPECT_FALSE(std::isfinite(zero.x));
}

TEST(CurvePoint, MultipliesComponentByComponent)
{
    CurvePoint p(2, 3, 5);
    p.MultiplyComponents(CurvePoint(7, 11, -13));
    ExpectPoint(14, 33, -65, p);
}

TEST(CurvePoint, PolarAnglesAreRadiansUpAndRound)
{
    CurvePoint p;
    p.SetPolar(2, 0, 0);
    ExpectPoint(2, 0, 0, p);
    p.SetPolar(2, 0.5f, 1.25f);
    EXPECT_NEAR(2 * std::cos(0.5) * std::cos(1.25), p.x, 3e-7);
    EXPECT_NEAR(2 * std::cos(0.5) * std::sin(1.25), p.y, 3e-7);
    EXPECT_NEAR(2 * std::sin(0.5), p.z, 3e-7);
    EXPECT_EQ(0.01745f, p.degToRad);
}
