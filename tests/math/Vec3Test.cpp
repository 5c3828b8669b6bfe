// SPDX-License-Identifier: MIT
#include "math/Vec3.h"

#include "math/Matrix16.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

static void ExpectVec3(float x, float y, float z, const Vec3 v)
{
    EXPECT_FLOAT_EQ(x, v[0]);
    EXPECT_FLOAT_EQ(y, v[1]);
    EXPECT_FLOAT_EQ(z, v[2]);
}

// One element for each index, so that a wrong index shows.
static const Matrix16 counted = {2, 3, 5, 7, 11, 13, 17, 19, 23, 29, 31, 37, 41, 43, 47, 53};

TEST(Vec3, LiesInMemoryAsThreeFloats)
{
    EXPECT_EQ(12u, sizeof(Vec3));
}

TEST(Vec3, SetAndCopyStoreXYZInThisOrder)
{
    Vec3 v, w;
    Vec3Set(v, 1, 2, 3);
    Vec3Copy(w, v);
    ExpectVec3(1, 2, 3, v);
    ExpectVec3(1, 2, 3, w);
    EXPECT_EQ(3.0f, (&w[0])[2]);
}

TEST(Vec3, ScaleAddSubAndMulAdd)
{
    const Vec3 a = {1, -2, 3}, b = {10, 20, 40};
    Vec3 out;
    Vec3Scale(out, a, 2.5f);
    ExpectVec3(2.5f, -5, 7.5f, out);
    Vec3Add(out, a, b);
    ExpectVec3(11, 18, 43, out);
    Vec3Sub(out, a, b);
    ExpectVec3(-9, -22, -37, out);
    Vec3MulAdd(out, a, b, 0.5f);
    ExpectVec3(6, 8, 23, out);
}

TEST(Vec3, WorksInPlaceOnEitherInput)
{
    const Vec3 a = {1, -2, 3}, b = {10, 20, 40};
    Vec3 v;
    Vec3Copy(v, a);
    Vec3Copy(v, v);
    Vec3Scale(v, v, 2);
    ExpectVec3(2, -4, 6, v);
    Vec3Add(v, v, b);
    ExpectVec3(12, 16, 46, v);
    Vec3Add(v, b, v);
    ExpectVec3(22, 36, 86, v);
    Vec3Sub(v, v, b);
    ExpectVec3(12, 16, 46, v);
    Vec3Sub(v, b, v);
    ExpectVec3(-2, 4, -6, v);
    Vec3MulAdd(v, v, b, 2);
    ExpectVec3(18, 44, 74, v);
    Vec3MulAdd(v, b, v, 2);
    ExpectVec3(46, 108, 188, v);
    Vec3MulAdd(v, v, v, -0.5f);
    ExpectVec3(23, 54, 94, v);
    Vec3Set(v, 0, 3, 4);
    Vec3Normalize(v, v);
    ExpectVec3(0, 0.6f, 0.8f, v);
}

TEST(Vec3, NormalizeScalesToLengthOne)
{
    const Vec3 a = {2, -3, 6};
    Vec3 out;
    Vec3Normalize(out, a);
    ExpectVec3(2 / 7.0f, -3 / 7.0f, 6 / 7.0f, out);
}

TEST(Vec3, NormalizeOfAZeroVectorIsNonFiniteAndSaysNothing)
{
    const Vec3 zero = {0, 0, 0};
    Vec3 out;
    Vec3Normalize(out, zero);
    for (float component : out)
        EXPECT_FALSE(std::isfinite(component));
}

TEST(Vec3, CrossIsRightHanded)
{
    const Vec3 x = {1, 0, 0}, y = {0, 1, 0}, a = {2, 3, 5}, b = {7, 11, 13};
    Vec3 out;
    Vec3Cross(out, x, y);
    ExpectVec3(0, 0, 1, out);
    Vec3Cross(out, a, b);
    ExpectVec3(-16, 9, 1, out);
}

TEST(Vec3, CrossWorksInPlaceOnEitherInput)
{
    const Vec3 a = {2, 3, 5}, b = {7, 11, 13};
    Vec3 v;
    Vec3Copy(v, a);
    Vec3Cross(v, v, b);
    ExpectVec3(-16, 9, 1, v);
    Vec3Copy(v, b);
    Vec3Cross(v, a, v);
    ExpectVec3(-16, 9, 1, v);
    Vec3Cross(v, v, v);
    ExpectVec3(0, 0, 0, v);
}

TEST(Vec3, DotAndLength)
{
    const Vec3 a = {2, 3, 5}, b = {7, -11, 13};
    EXPECT_FLOAT_EQ(46, Vec3Dot(a, b));
    EXPECT_FLOAT_EQ(6.16441400f, Vec3Length(a));
    const Vec3 c = {-2, -3, -6};
    EXPECT_FLOAT_EQ(7, Vec3Length(c));
}

TEST(Vec3, AngleIsInDegreesByThePiOfTheVectors)
{
    const Vec3 x = {3, 0, 0}, y = {0, 0.5f, 0}, minusX = {-2, 0, 0}, diagonal = {1, std::sqrt(3.0f), 0};
    EXPECT_FLOAT_EQ(90.0020828f, Vec3Angle(x, y));
    EXPECT_FLOAT_EQ(180.004166f, Vec3Angle(x, minusX));
    EXPECT_FLOAT_EQ(0, Vec3Angle(x, x));
    EXPECT_NEAR(60.0013885f, Vec3Angle(x, diagonal), 2e-5f);
}

TEST(Vec3, AngleDoesNotClampACosinePastOne)
{
    // The root of the squared length is rounded down here, and the quotient is 1.0000001.
    const Vec3 a = {0.1f, 0.3f, 0.2f};
    bool seen = false;
    for (int i = 1; i < 1000 && !seen; i++) {
        Vec3 b;
        Vec3Scale(b, a, 0.37f * float(i));
        seen = std::isnan(Vec3Angle(b, b));
    }
    EXPECT_TRUE(seen);
}

TEST(Vec3, AngleToAZeroVectorIsNotANumber)
{
    const Vec3 a = {1, 2, 3}, zero = {0, 0, 0};
    EXPECT_TRUE(std::isnan(Vec3Angle(a, zero)));
}

TEST(Vec3, LerpIsNotLimited)
{
    const Vec3 a = {1, 2, 4}, b = {3, -2, 8};
    Vec3 out;
    Vec3Lerp(out, a, b, 0);
    ExpectVec3(1, 2, 4, out);
    Vec3Lerp(out, a, b, 1);
    ExpectVec3(3, -2, 8, out);
    Vec3Lerp(out, a, b, 0.25f);
    ExpectVec3(1.5f, 1, 5, out);
    Vec3Lerp(out, a, b, 2);
    ExpectVec3(5, -6, 12, out);
    Vec3Lerp(out, a, b, -1);
    ExpectVec3(-1, 6, 0, out);
}

TEST(Vec3, LerpWorksInPlaceOnEitherInput)
{
    const Vec3 a = {1, 2, 4}, b = {3, -2, 8};
    Vec3 v;
    Vec3Copy(v, a);
    Vec3Lerp(v, v, b, 0.25f);
    ExpectVec3(1.5f, 1, 5, v);
    Vec3Copy(v, b);
    Vec3Lerp(v, a, v, 0.25f);
    ExpectVec3(1.5f, 1, 5, v);
}

TEST(Vec3, LerpWeighsBothEndsAndDoesNotAddADifference)
{
    // a + t (b - a) would lose the small end.
    const Vec3 a = {1e8f, 1e8f, 1e8f}, b = {1, 1, 1};
    Vec3 out;
    Vec3Lerp(out, a, b, 1);
    ExpectVec3(1, 1, 1, out);
}

TEST(Vec3, TransformThroughTheIdentityChangesNothing)
{
    Matrix16 m;
    MatrixIdentity(m);
    const Vec3 v = {1.25f, -7, 1e-3f};
    Vec3 out;
    Vec3Transform(out, v, m);
    ExpectVec3(1.25f, -7, 1e-3f, out);
}

TEST(Vec3, TransformTakesAPointThroughAColumnMajorMatrix)
{
    const Vec3 v = {100, 10000, 1000000};
    Vec3 out;
    Vec3Transform(out, v, counted);
    // 23110241, 29130343 and 31170547, as floats have them.
    ExpectVec3(23110240, 29130344, 31170548, out);
}

TEST(Vec3, TransformDoesNotDivideByW)
{
    const Matrix16 m = {1, 0, 0, 5, 0, 1, 0, 6, 0, 0, 1, 7, 0, 0, 0, 8};
    const Vec3 v = {1, 2, 3};
    Vec3 out;
    Vec3Transform(out, v, m);
    ExpectVec3(1, 2, 3, out);
}

TEST(Vec3, TransformWorksInPlace)
{
    Vec3 v = {1, 2, 3};
    Vec3Transform(v, v, counted);
    ExpectVec3(134, 159, 179, v);
}

TEST(Vec3, CrossStandsUprightOnBothForRandomVectors)
{
    std::mt19937 random(20);
    std::uniform_real_distribution<float> any(-1, 1);
    for (int i = 0; i < 500; i++) {
        const Vec3 a = {any(random), any(random), any(random)}, b = {any(random), any(random), any(random)};
        Vec3 cross, unit;
        Vec3Cross(cross, a, b);
        EXPECT_NEAR(0, Vec3Dot(cross, a), 1e-6f);
        EXPECT_NEAR(0, Vec3Dot(cross, b), 1e-6f);
        Vec3Normalize(unit, a);
        EXPECT_NEAR(1, Vec3Length(unit), 2e-7f);
        EXPECT_NEAR(Vec3Dot(a, b) * Vec3Dot(a, b) + Vec3Dot(cross, cross), Vec3Dot(a, a) * Vec3Dot(b, b),
                    2e-6f);
    }
}
