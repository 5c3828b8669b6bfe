// SPDX-License-Identifier: MIT
#include "math/Quaternion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

static void ExpectQuaternion(float x, float y, float z, float w, const Quaternion q, float tolerance = 2e-7f)
{
    EXPECT_NEAR(x, q[0], tolerance);
    EXPECT_NEAR(y, q[1], tolerance);
    EXPECT_NEAR(z, q[2], tolerance);
    EXPECT_NEAR(w, q[3], tolerance);
}

TEST(Quaternion, SetCopyAndSub)
{
    Quaternion q, copy, out;
    EXPECT_EQ(16u, sizeof(Quaternion));
    QuaternionSet(q, 1, 2, 3, 4);
    ExpectQuaternion(1, 2, 3, 4, q, 0);
    QuaternionCopy(copy, q);
    ExpectQuaternion(1, 2, 3, 4, copy, 0);
    const Quaternion b = {10, 30, 60, 100};
    QuaternionSub(out, q, b);
    ExpectQuaternion(-9, -28, -57, -96, out, 0);
    QuaternionSub(q, b, q);
    ExpectQuaternion(9, 28, 57, 96, q, 0);
    QuaternionSub(q, q, b);
    ExpectQuaternion(-1, -2, -3, -4, q, 0);
}

TEST(Quaternion, ToMatrixElementByElement)
{
    // Not of unit length, so that no two elements agree by chance.
    const Quaternion q = {1, 2, 3, 5};
    const Matrix16 expected = {-25, 34, -14, 0, -26, -19, 22, 0, 26, 2, -9, 0, 0, 0, 0, 1};
    Matrix16 m;
    for (float& element : m)
        element = 77;
    QuaternionToMatrix(m, q);
    for (int i = 0; i < 16; i++)
        EXPECT_EQ(expected[i], m[i]) << "element " << i;
}

TEST(Quaternion, ToMatrixAgreesWithTheRotationAboutItsAxis)
{
    std::mt19937 random(26);
    std::uniform_real_distribution<float> any(-1, 1);
    for (int round = 0; round < 200; round++) {
        Vec3 axis = {any(random), any(random), any(random)};
        Vec3Normalize(axis, axis);
        const double half = any(random) * 3;
        const Quaternion q = {float(axis[0] * std::sin(half)), float(axis[1] * std::sin(half)),
                              float(axis[2] * std::sin(half)), float(std::cos(half))};
        Matrix16 m, expected;
        QuaternionToMatrix(m, q);
        MatrixRotationAxis(expected, float(half * 2 * 180 / M_PI), axis[0], axis[1], axis[2]);
        for (int i = 0; i < 16; i++)
            ASSERT_NEAR(expected[i], m[i], 2e-6f);
    }
}

TEST(Quaternion, SlerpRunsAlongTheArc)
{
    const Quaternion a = {0, 0, 0, 1}, b = {0.6f, 0, 0, 0.8f};
    Quaternion out;
    QuaternionSlerp(a, b, 0, out);
    ExpectQuaternion(0, 0, 0, 1, out);
    QuaternionSlerp(a, b, 1, out);
    ExpectQuaternion(0.6f, 0, 0, 0.8f, out);
    QuaternionSlerp(a, b, 0.25f, out);
    ExpectQuaternion(0.160182243f, 0, 0, 0.987087458f, out);
    QuaternionSlerp(a, b, 2, out);
    ExpectQuaternion(0.96f, 0, 0, 0.28f, out, 1e-6f);
}

TEST(Quaternion, SlerpTakesTheShorterArcAndLeavesItsInputsAlone)
{
    const Quaternion a = {0.5f, 0.5f, 0.5f, 0.5f}, b = {-0.8f, 0, -0.6f, 0};
    Quaternion out;
    QuaternionSlerp(a, b, 0.3f, out);
    ExpectQuaternion(0.634770188f, 0.36999222f, 0.568575696f, 0.36999222f, out);
    QuaternionSlerp(a, b, 1, out);
    ExpectQuaternion(0.8f, 0, 0.6f, 0, out);
    ExpectQuaternion(-0.8f, 0, -0.6f, 0, b, 0);
}

TEST(Quaternion, SlerpSumsAllFourComponentsIntoTheAngle)
{
    // Each pair differs in sign in one component only, which decides which arc is the shorter.
    for (int i = 0; i < 4; i++) {
        Quaternion a = {0.1f, 0.1f, 0.1f, 0.1f}, b = {0.1f, 0.1f, 0.1f, 0.1f}, out;
        a[i] = 0.9f;
        b[i] = -0.9f;
        QuaternionSlerp(a, b, 1, out);
        EXPECT_NEAR(0.9f, out[i], 1e-6f);
        EXPECT_NEAR(-0.1f, out[(i + 1) % 4], 1e-6f);
    }
}

TEST(Quaternion, SlerpOfARightAngleDoesNotTurnRound)
{
    const Quaternion a = {0, 0, 0, 1}, b = {1, 0, 0, 0};
    Quaternion out;
    QuaternionSlerp(a, b, 0.5f, out);
    ExpectQuaternion(0.707106781f, 0, 0, 0.707106781f, out);
}

TEST(Quaternion, SlerpIsALineForNearlyEqualInputsAndAnArcJustBeyond)
{
    // 1 - d is 9.5e-7 and 1.01e-6. A far t tells the two forms apart.
    const float ulp = 1.0f / 16777216;
    const Quaternion a = {0, 0, 0, 1}, near = {0, 0, 0, 1 - 16 * ulp}, far = {0, 0, 0, 1 - 17 * ulp};
    Quaternion out;
    QuaternionSlerp(a, near, 1000, out);
    EXPECT_NEAR(0.999046326, out[3], 1e-4);
    QuaternionSlerp(a, far, 1000, out);
    EXPECT_NEAR(0.146692699, out[3], 1e-3);
}

TEST(Quaternion, SlerpOfEqualInputsIsThatInput)
{
    const Quaternion a = {0.5f, -0.5f, 0.5f, -0.5f};
    Quaternion out;
    QuaternionSlerp(a, a, 0.3f, out);
    ExpectQuaternion(0.5f, -0.5f, 0.5f, -0.5f, out);
    // A dot product above 1 is a line as well, and no arc cosine of it is taken.
    const Quaternion b = {1, 0, 0, 1}, c = {1, 0, 0, 3};
    QuaternionSlerp(b, c, 0.25f, out);
    ExpectQuaternion(1, 0, 0, 1.5f, out);
}

TEST(Quaternion, SlerpToIsTheSameUnderAnotherOrder)
{
    const Quaternion a = {0.5f, 0.5f, 0.5f, 0.5f}, b = {-0.8f, 0, -0.6f, 0};
    Quaternion out;
    QuaternionSlerpTo(out, a, b, 0.3f);
    ExpectQuaternion(0.634770188f, 0.36999222f, 0.568575696f, 0.36999222f, out);
}

TEST(Quaternion, SlerpWorksInPlaceOnEitherInput)
{
    const Quaternion a = {0.5f, 0.5f, 0.5f, 0.5f}, b = {-0.8f, 0, -0.6f, 0};
    Quaternion q;
    QuaternionCopy(q, a);
    QuaternionSlerp(q, b, 0.3f, q);
    ExpectQuaternion(0.634770188f, 0.36999222f, 0.568575696f, 0.36999222f, q);
    QuaternionCopy(q, b);
    QuaternionSlerpTo(q, a, q, 0.3f);
    ExpectQuaternion(0.634770188f, 0.36999222f, 0.568575696f, 0.36999222f, q);
}

TEST(Quaternion, ToAxisAngleDividesByTheSquareOfTheLength)
{
    const Quaternion q = {0, 3, -4, 0.5f};
    Vec3 axis;
    float angle = 7;
    QuaternionToAxisAngle(axis, angle, q);
    EXPECT_FLOAT_EQ(0, axis[0]);
    EXPECT_FLOAT_EQ(3 / 25.0f, axis[1]);
    EXPECT_FLOAT_EQ(-4 / 25.0f, axis[2]);
    EXPECT_EQ(7.0f, angle); // it stays inside
    const Quaternion alongX = {0.5f, 0, 0, 0};
    QuaternionToAxisAngle(axis, angle, alongX);
    EXPECT_FLOAT_EQ(2, axis[0]);
    const Quaternion slight = {0, 0, 0.0001f, 1};
    QuaternionToAxisAngle(axis, angle, slight);
    EXPECT_FLOAT_EQ(10000, axis[2]);
}

TEST(Quaternion, ToAxisAngleOfNoRotationHasNoAxis)
{
    const Quaternion q = {0, 0, 0, 1};
    Vec3 axis = {9, 9, 9};
    QuaternionToAxisAngle(axis, 0, q);
    for (float component : axis)
        EXPECT_EQ(0.0f, component);
}
