// SPDX-License-Identifier: MIT
#include "math/Matrix4.h"

#include "math/Matrix16.h"
#include "math/Vector3.h"

#include <gtest/gtest.h>

#include <random>
#include <type_traits>

static void ExpectMatrix(const float* expected, const Matrix4& m, float tolerance = 0)
{
    for (int i = 0; i < 16; i++)
        EXPECT_NEAR(expected[i], m.m[i], tolerance) << "element " << i;
}

static Matrix4 Filled(float value)
{
    Matrix4 m;
    for (float& element : m.m)
        element = value;
    return m;
}

static const float identity[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

TEST(Matrix4, HoldsSixteenFloatsAndNothingElse)
{
    EXPECT_EQ(64u, sizeof(Matrix4));
    EXPECT_FALSE(std::is_polymorphic_v<Matrix4>);
}

TEST(Matrix4, StartsAsTheIdentity)
{
    ExpectMatrix(identity, Matrix4());
    Matrix4 m = Filled(9);
    m.SetIdentity();
    ExpectMatrix(identity, m);
}

TEST(Matrix4, CopiesElementByElement)
{
    Matrix4 m;
    for (int i = 0; i < 16; i++)
        m[i] = float(i);
    const Matrix4 copy(m);
    m.SetIdentity();
    for (int i = 0; i < 16; i++)
        EXPECT_EQ(float(i), copy[i]);
}

TEST(Matrix4, IndexReachesTheElements)
{
    Matrix4 m = Filled(0);
    m[0] = 1;
    m[7] = 8;
    m[15] = 16;
    EXPECT_EQ(1.0f, m.m[0]);
    EXPECT_EQ(8.0f, m.m[7]);
    EXPECT_EQ(16.0f, m.m[15]);
    const Matrix4& constant = m;
    EXPECT_EQ(8.0f, constant[7]);
    EXPECT_EQ(16.0f, constant[15]);
}

TEST(Matrix4, NoIndexLeadsOutOfTheMatrix)
{
    Matrix4 m;
    m[16] = 5;
    EXPECT_EQ(5.0f, m.m[0]);
    m[-1] = 6;
    EXPECT_EQ(6.0f, m.m[15]);
    const Matrix4& constant = m;
    EXPECT_EQ(5.0f, constant[32]);
    EXPECT_EQ(6.0f, constant[-1]);
}

TEST(Matrix4, RotationsOverwriteTheWholeMatrix)
{
    const float s = 0.5f, c = 0.866025388f; // of 30 degrees
    const float aboutX[16] = {1, 0, 0, 0, 0, c, s, 0, 0, -s, c, 0, 0, 0, 0, 1};
    const float aboutY[16] = {c, 0, -s, 0, 0, 1, 0, 0, s, 0, c, 0, 0, 0, 0, 1};
    const float aboutZ[16] = {c, s, 0, 0, -s, c, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    Matrix4 m = Filled(9);
    m.SetRotationX(30);
    ExpectMatrix(aboutX, m, 6e-8f);
    m = Filled(9);
    m.SetRotationY(30);
    ExpectMatrix(aboutY, m, 6e-8f);
    m = Filled(9);
    m.SetRotationZ(30);
    ExpectMatrix(aboutZ, m, 6e-8f);
}

TEST(Matrix4, RotationOfNinetyDegreesAboutX)
{
    Matrix4 m;
    m.SetRotationX(90);
    EXPECT_NEAR(0, m[5], 1e-7f);
    EXPECT_EQ(1.0f, m[6]);
}

TEST(Matrix4, RotationsHaveTheTrueFactorAndNotThePiOfTheVectors)
{
    Matrix4 m;
    m.SetRotationX(180);
    EXPECT_NEAR(-8.74227766e-8f, m[6], 1e-12f);
    m.SetRotationY(180);
    EXPECT_NEAR(-8.74227766e-8f, m[8], 1e-12f);
    m.SetRotationZ(90);
    EXPECT_NEAR(-4.37113883e-8f, m[0], 1e-12f);
    m.SetRotationZ(-200);
    EXPECT_FLOAT_EQ(0.342020154f, m[1]);
    EXPECT_FLOAT_EQ(-0.939692616f, m[0]);
}

TEST(Matrix4, ScaleAndTranslationOverwriteTheWholeMatrix)
{
    const float scale[16] = {2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 5, 0, 0, 0, 0, 1};
    const float move[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 2, 3, 5, 1};
    Matrix4 m = Filled(9);
    m.SetScale(2, 3, 5);
    ExpectMatrix(scale, m);
    m = Filled(9);
    m.SetScale(Vector3(2, 3, 5));
    ExpectMatrix(scale, m);
    m = Filled(9);
    m.SetTranslation(Vector3(2, 3, 5));
    ExpectMatrix(move, m);
}

TEST(Matrix4, ProductIsTheMirrorOfMatrixMultiply)
{
    std::mt19937 random(25);
    for (int round = 0; round < 100; round++) {
        Matrix4 a, b;
        for (int i = 0; i < 16; i++) {
            a[i] = float(int(random() % 13) - 6);
            b[i] = float(int(random() % 13) - 6);
        }
        const Matrix4 product = a * b;
        for (int column = 0; column < 4; column++)
            for (int row = 0; row < 4; row++) {
                int sum = 0;
                for (int k = 0; k < 4; k++)
                    sum += int(a[k * 4 + row]) * int(b[column * 4 + k]);
                ASSERT_EQ(float(sum), product[column * 4 + row]);
            }
        Matrix16 mirrored;
        MatrixMultiply(mirrored, b.m, a.m);
        ExpectMatrix(mirrored, product);
    }
}

TEST(Matrix4, AProductReplacesItsOwnOperand)
{
    Matrix4 m, s;
    m.SetTranslation(Vector3(1, 2, 3));
    s.SetScale(2, 2, 2);
    m = m * s;
    const float expected[16] = {2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 1, 2, 3, 1};
    ExpectMatrix(expected, m);
}

TEST(Matrix4, AChainScalesFirstAndTranslatesLast)
{
    Matrix4 t, r, s;
    t.SetTranslation(Vector3(10, 20, 30));
    r.SetRotationZ(90);
    s.SetScale(2, 3, 4);
    const Matrix4 chain = t * r * s;
    Vec3 v = {1, 1, 1};
    Vec3Transform(v, v, chain.m);
    EXPECT_NEAR(7, v[0], 1e-5f);
    EXPECT_NEAR(22, v[1], 1e-5f);
    EXPECT_NEAR(34, v[2], 1e-5f);
}
