// SPDX-License-Identifier: MIT
#include "math/Matrix16.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>

// One element for each index, so that a wrong index shows.
static const Matrix16 counted = {2, 3, 5, 7, 11, 13, 17, 19, 23, 29, 31, 37, 41, 43, 47, 53};
static const float unset = -77;

static void ExpectMatrix(const Matrix16 expected, const Matrix16 m, float tolerance = 0)
{
    for (int i = 0; i < 16; i++)
        EXPECT_NEAR(expected[i], m[i], tolerance) << "element " << i;
}

static void FillUnset(Matrix16 m)
{
    for (int i = 0; i < 16; i++)
        m[i] = unset;
}

// Small whole numbers: products and sums of them are exact.
static void FillWithIntegers(Matrix16 m, std::mt19937& random)
{
    for (int i = 0; i < 16; i++)
        m[i] = float(int(random() % 13) - 6);
}

TEST(Matrix16, LiesInMemoryAsSixteenFloats)
{
    EXPECT_EQ(64u, sizeof(Matrix16));
}

TEST(Matrix16, Identity)
{
    const Matrix16 identity = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    Matrix16 m;
    FillUnset(m);
    MatrixIdentity(m);
    ExpectMatrix(identity, m);
}

TEST(Matrix16, CopyTakesAllElements)
{
    Matrix16 m;
    FillUnset(m);
    MatrixCopy(m, counted);
    ExpectMatrix(counted, m);
    MatrixCopy(m, m);
    ExpectMatrix(counted, m);
}

TEST(Matrix16, TransposeSwapsColumnsAndRowsAlsoInPlace)
{
    const Matrix16 transposed = {2, 11, 23, 41, 3, 13, 29, 43, 5, 17, 31, 47, 7, 19, 37, 53};
    Matrix16 m;
    MatrixTranspose(m, counted);
    ExpectMatrix(transposed, m);
    MatrixTranspose(m, m);
    ExpectMatrix(counted, m);
}

TEST(Matrix16, OfNormalsTurnsThemAsGlDoes)
{
    // Scaled by 2, 4 and 5 and turned by 90 degrees about z: x goes to 2 y, y to -4 x, z to 5 z.
    const Matrix16 m = {0, 2, 0, 0, -4, 0, 0, 0, 0, 0, 5, 0, 7, 8, 9, 1};
    const Matrix16 normals = {0, 0.5f, 0, 0, -0.25f, 0, 0, 0, 0, 0, 0.2f, 0, 0, 0, 0, 1};
    Matrix16 out;
    FillUnset(out);
    MatrixOfNormals(out, m);
    ExpectMatrix(normals, out, 1e-7f);
}

TEST(Matrix16, OfNormalsKeepsAPlaneAndItsNormalUpright)
{
    const Matrix16 sheared = {1, 0, 0, 0, 3, 1, 0.5f, 0, -2, 0, 2, 0, 0, 0, 0, 1};
    Matrix16 out;
    MatrixOfNormals(out, sheared);
    // The plane of (1, 1, 0) and (0, 1, 1), whose normal is (1, -1, 1).
    Vec3 a = {1, 1, 0}, b = {0, 1, 1}, n = {1, -1, 1};
    Vec3Transform(a, a, sheared);
    Vec3Transform(b, b, sheared);
    Vec3Transform(n, n, out);
    EXPECT_NEAR(0, Vec3Dot(a, n), 1e-5);
    EXPECT_NEAR(0, Vec3Dot(b, n), 1e-5);
    EXPECT_GT(Vec3Length(n), 0.1f);
}

TEST(Matrix16, OfNormalsIsTheIdentityWhereAMatrixFlattens)
{
    const Matrix16 flat = {1, 0, 0, 0, -0.5f, 0, -1, 0, 0, 0, 1, 0, 1, 2, 3, 1};
    const Matrix16 identity = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    Matrix16 out;
    FillUnset(out);
    MatrixOfNormals(out, flat);
    ExpectMatrix(identity, out);
}

TEST(Matrix16, MultiplyAppliesTheFirstOperandFirst)
{
    Matrix16 move, turn, both;
    MatrixTranslation(move, 10, 0, 0);
    MatrixRotationZ(turn, 90);
    MatrixMultiply(both, move, turn);
    Vec3 v = {1, 0, 0};
    Vec3Transform(v, v, both);
    EXPECT_NEAR(0, v[0], 1e-5f);
    EXPECT_NEAR(11, v[1], 1e-5f);
    MatrixMultiply(both, turn, move);
    Vec3Set(v, 1, 0, 0);
    Vec3Transform(v, v, both);
    EXPECT_NEAR(10, v[0], 1e-5f);
    EXPECT_NEAR(1, v[1], 1e-5f);
}

TEST(Matrix16, MultiplyIsTheProductInAllElementsAlsoInPlace)
{
    std::mt19937 random(22);
    for (int round = 0; round < 100; round++) {
        Matrix16 a, b, expected, out;
        FillWithIntegers(a, random);
        FillWithIntegers(b, random);
        for (int column = 0; column < 4; column++)
            for (int row = 0; row < 4; row++) {
                int sum = 0;
                for (int k = 0; k < 4; k++)
                    sum += int(b[k * 4 + row]) * int(a[column * 4 + k]);
                expected[column * 4 + row] = float(sum);
            }
        MatrixMultiply(out, a, b);
        ExpectMatrix(expected, out);
        MatrixCopy(out, b);
        MatrixMultiply(out, a, out);
        ExpectMatrix(expected, out);
        MatrixCopy(out, a);
        MatrixMultiply(out, out, b);
        ExpectMatrix(expected, out);
    }
}

TEST(Matrix16, MultiplyWithItselfInPlace)
{
    Matrix16 m, expected;
    MatrixMultiply(expected, counted, counted);
    MatrixCopy(m, counted);
    MatrixMultiply(m, m, m);
    ExpectMatrix(expected, m);
}

TEST(Matrix16, DeterminantHasASignForEachPermutation)
{
    int rows[4] = {0, 1, 2, 3};
    int permutations = 0;
    do {
        int inversions = 0;
        Matrix16 m = {};
        for (int column = 0; column < 4; column++) {
            m[column * 4 + rows[column]] = float(column + 2);
            for (int before = 0; before < column; before++)
                inversions += rows[before] > rows[column];
        }
        EXPECT_EQ(inversions % 2 == 0 ? 120.0f : -120.0f, MatrixDeterminant(m));
        permutations++;
    } while (std::next_permutation(rows, rows + 4));
    EXPECT_EQ(24, permutations);
}

// By minors along the first row of what is left.
static int WholeDeterminant(const int* m, int size)
{
    if (size == 1)
        return m[0];
    int sum = 0;
    for (int leftOut = 0; leftOut < size; leftOut++) {
        int minor[9];
        int next = 0;
        for (int row = 1; row < size; row++)
            for (int column = 0; column < size; column++)
                if (column != leftOut)
                    minor[next++] = m[row * size + column];
        sum += (leftOut % 2 == 0 ? 1 : -1) * m[leftOut] * WholeDeterminant(minor, size - 1);
    }
    return sum;
}

TEST(Matrix16, DeterminantOfWholeNumbersIsExact)
{
    std::mt19937 random(23);
    for (int round = 0; round < 500; round++) {
        Matrix16 m;
        FillWithIntegers(m, random);
        int whole[16];
        for (int i = 0; i < 16; i++)
            whole[i] = int(m[i]);
        ASSERT_EQ(float(WholeDeterminant(whole, 4)), MatrixDeterminant(m));
    }
}

TEST(Matrix16, InverseRigidTransposesNegatesAndLeavesFourElementsUnwritten)
{
    const Matrix16 expected = {2, 11, 23, unset, 3, 13, 29, unset, 5, 17, 31, unset, -41, -43, -47, unset};
    Matrix16 out;
    FillUnset(out);
    MatrixInverseRigid(out, counted);
    ExpectMatrix(expected, out);
}

TEST(Matrix16, InverseRigidInPlaceKeepsTheFourElements)
{
    const Matrix16 expected = {2, 11, 23, 7, 3, 13, 29, 19, 5, 17, 31, 37, -41, -43, -47, 53};
    Matrix16 m;
    MatrixCopy(m, counted);
    MatrixInverseRigid(m, m);
    ExpectMatrix(expected, m);
}

TEST(Matrix16, TranslationIsTheIdentityWithThreeElements)
{
    const Matrix16 expected = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5, -6, 7, 1};
    Matrix16 m;
    FillUnset(m);
    MatrixTranslation(m, 5, -6, 7);
    ExpectMatrix(expected, m);
    FillUnset(m);
    const Vec3 v = {5, -6, 7};
    MatrixTranslationV(m, v);
    ExpectMatrix(expected, m);
}

TEST(Matrix16, RotationsAboutTheAxesTurnAsGlRotatefDoes)
{
    const float s = 0.422618262f, c = 0.906307787f; // of 25 degrees
    const Matrix16 aboutX = {1, 0, 0, 0, 0, c, s, 0, 0, -s, c, 0, 0, 0, 0, 1};
    const Matrix16 aboutY = {c, 0, -s, 0, 0, 1, 0, 0, s, 0, c, 0, 0, 0, 0, 1};
    const Matrix16 aboutZ = {c, s, 0, 0, -s, c, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    Matrix16 m;
    FillUnset(m);
    MatrixRotationX(m, 25);
    ExpectMatrix(aboutX, m, 1e-7f);
    FillUnset(m);
    MatrixRotationY(m, 25);
    ExpectMatrix(aboutY, m, 1e-7f);
    FillUnset(m);
    MatrixRotationZ(m, 25);
    ExpectMatrix(aboutZ, m, 1e-7f);
}

TEST(Matrix16, RotationAboutAnyAxisNormalisesIt)
{
    const Matrix16 expected = {0.782755554f,
                               0.548798867f,
                               -0.293451096f,
                               0,
                               -0.481954422f,
                               0.832888888f,
                               0.272058882f,
                               0,
                               0.393717763f,
                               -0.0715255476f,
                               0.916444444f,
                               0,
                               0,
                               0,
                               0,
                               1};
    Matrix16 m;
    MatrixRotationAxis(m, 40, 1, 2, 3);
    ExpectMatrix(expected, m, 3e-7f);
    MatrixRotationAxis(m, 40, 10, 20, 30);
    ExpectMatrix(expected, m, 3e-7f);
}

TEST(Matrix16, RotationsHaveTheTruePi)
{
    Matrix16 m;
    MatrixRotationX(m, 180);
    EXPECT_FLOAT_EQ(-1, m[5]);
    EXPECT_NEAR(0, m[6], 1e-7f);
}

TEST(Matrix16, RotationAboutAZeroAxisIsTheIdentity)
{
    Matrix16 m, identity;
    MatrixRotationAxis(m, 40, 0, 0, 0);
    MatrixIdentity(identity);
    ExpectMatrix(identity, m);
}

TEST(Matrix16, RotationsKeepLengthsAndTheirAxis)
{
    std::mt19937 random(24);
    std::uniform_real_distribution<float> any(-1, 1);
    for (int round = 0; round < 300; round++) {
        const Vec3 axis = {any(random), any(random), any(random)};
        Matrix16 m, back, both, identity;
        MatrixRotationAxis(m, 720 * any(random), axis[0], axis[1], axis[2]);
        EXPECT_NEAR(1, MatrixDeterminant(m), 2e-6f);
        Vec3 turned;
        Vec3Transform(turned, axis, m);
        for (int i = 0; i < 3; i++)
            EXPECT_NEAR(axis[i], turned[i], 1e-6f);
        MatrixIdentity(back);
        MatrixInverseRigid(back, m);
        MatrixMultiply(both, m, back);
        MatrixIdentity(identity);
        ExpectMatrix(identity, both, 1e-6f);
    }
}

TEST(Matrix16, EulerWithoutAnglesIsThePureTranslation)
{
    const Matrix16 expected = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 4, 5, -6, 1};
    Matrix16 m;
    FillUnset(m);
    MatrixFromEuler(m, 0, 0, 0, 4, 5, -6);
    ExpectMatrix(expected, m);
}

TEST(Matrix16, EulerOfThreeAnglesElementByElement)
{
    static const struct {
        float a, b, c;
        Matrix16 expected;
    } rows[] = {
        // clang-format off
        {20, 35, 50, { 0.453769426f,  0.845932607f, -0.280163047f, 0,
                      -0.627502474f,  0.526558633f,  0.573564862f, 0,
                       0.63271949f,   0.608447956f,  0.769761012f, 0, 1, 2, 3, 1}},
        {300, -75, 12, { 0.315043305f,   0.922219522f,  0.224184902f, 0,
                        -0.0538163661f,  0.253192118f, -0.965917983f, 0,
                        -0.94755027f,   -0.652371791f,  0.129396985f, 0, 1, 2, 3, 1}},
        // clang-format on
    };
    for (const auto& row : rows) {
        Matrix16 m;
        FillUnset(m);
        MatrixFromEuler(m, row.a, row.b, row.c, 1, 2, 3);
        ExpectMatrix(row.expected, m, 2e-7f);
    }
}

TEST(Matrix16, EulerTurnsByAAboutYByBAboutXAndByCAboutZ)
{
    const float s110 = 0.939707796f, c110 = -0.341978447f, s60 = 0.866013259f, c60 = 0.500021035f;
    const float s30 = 0.499989482f, c30 = 0.866031476f;
    const Matrix16 aboutY = {c110, 0, -s110, 0, 0, 1, 0, 0, s110, 0, c110, 0, 0, 0, 0, 1};
    const Matrix16 aboutX = {1, 0, 0, 0, 0, c60, s60, 0, 0, s60, c60, 0, 0, 0, 0, 1}; // plus in element 9
    const Matrix16 aboutZ = {c30, s30, 0, 0, -s30, c30, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    Matrix16 m;
    MatrixFromEuler(m, 110, 0, 0, 0, 0, 0);
    ExpectMatrix(aboutY, m, 1e-7f);
    MatrixFromEuler(m, 0, 60, 0, 0, 0, 0);
    ExpectMatrix(aboutX, m, 1e-7f);
    MatrixFromEuler(m, 0, 0, 30, 0, 0, 0);
    ExpectMatrix(aboutZ, m, 1e-7f);
}

TEST(Matrix16, EulerWithBOfNinetyShowsThePlusInElementNine)
{
    Matrix16 m;
    MatrixFromEuler(m, 0, 90, 0, 0, 0, 0);
    EXPECT_FLOAT_EQ(1, m[9]);
    EXPECT_FLOAT_EQ(1, m[6]);
    EXPECT_NEAR(3.61959126e-5f, m[5], 1e-9f);
    EXPECT_NEAR(3.61959126e-5f, m[10], 1e-9f);
}

TEST(Matrix16, EulerHasThePiOfTheVectors)
{
    Matrix16 m;
    MatrixFromEuler(m, 180, 0, 0, 0, 0, 0);
    EXPECT_NEAR(7.23918274e-5f, m[8], 1e-9f);
}
