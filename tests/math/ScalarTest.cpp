// SPDX-License-Identifier: MIT
#include "math/Scalar.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(Scalar, SineTakesRadians)
{
    EXPECT_EQ(0.0f, SinF(0.0f));
    EXPECT_FLOAT_EQ(0.841470957f, SinF(1.0f));
    EXPECT_FLOAT_EQ(0.598472118f, SinF(2.5f));
    EXPECT_FLOAT_EQ(-0.681638777f, SinF(-0.75f));
}

TEST(Scalar, CosineTakesRadians)
{
    EXPECT_EQ(1.0f, CosF(0.0f));
    EXPECT_FLOAT_EQ(0.540302277f, CosF(1.0f));
    EXPECT_FLOAT_EQ(-0.801143587f, CosF(2.5f));
    EXPECT_FLOAT_EQ(0.731688857f, CosF(-0.75f));
}

TEST(Scalar, SineAndCosineOfLargeAnglesAreThoseOfTheDoubleFunctions)
{
    EXPECT_FLOAT_EQ(-0.349993497f, SinF(1e6f));
    EXPECT_FLOAT_EQ(0.936752141f, CosF(1e6f));
}

TEST(Scalar, SquareRootOfANegativeIsNotANumber)
{
    EXPECT_EQ(1.41421354f, SqrtF(2.0f));
    EXPECT_EQ(1.5f, SqrtF(2.25f));
    EXPECT_EQ(0.0f, SqrtF(0.0f));
    EXPECT_TRUE(std::isnan(SqrtF(-1.0f)));
}

TEST(Scalar, ArcCosineOutsideItsRangeIsNotANumber)
{
    EXPECT_EQ(0.0f, AcosF(1.0f));
    EXPECT_FLOAT_EQ(1.04719758f, AcosF(0.5f));
    EXPECT_FLOAT_EQ(1.82347655f, AcosF(-0.25f));
    EXPECT_FLOAT_EQ(3.14159274f, AcosF(-1.0f));
    EXPECT_TRUE(std::isnan(AcosF(1.0000001f)));
    EXPECT_TRUE(std::isnan(AcosF(-1.5f)));
}

TEST(Scalar, ThePiOfTheVectorsIsNotPi)
{
    EXPECT_EQ(3.14152f, VectorPi);
}

TEST(Scalar, AHalfTurnInDegreesFallsShortOfPi)
{
    float s, c;
    SinCosDegrees(&s, &c, 180.0f);
    EXPECT_NEAR(0.0000727f, s, 5e-7f);
    EXPECT_NEAR(7.23918274e-05f, s, 1e-8f);
    EXPECT_FLOAT_EQ(-1.0f, c);
}

TEST(Scalar, SineAndCosineOfDegrees)
{
    static const struct {
        float degrees, s, c;
    } rows[] = {
        // clang-format off
        {   0.0f,  0.0f,             1.0f           },
        {  30.0f,  0.49998948f,      0.866031468f   },
        {  45.0f,  0.707093954f,     0.707119584f   },
        {  90.0f,  1.0f,             3.61959137e-5f },
        { -60.0f, -0.866013288f,     0.50002104f    },
        { 360.0f, -0.000144783655f,  1.0f           },
        {1000.0f, -0.984877825f,     0.173250273f   },
        // clang-format on
    };
    for (const auto& row : rows) {
        float s, c;
        SinCosDegrees(&s, &c, row.degrees);
        EXPECT_FLOAT_EQ(row.s, s) << row.degrees;
        EXPECT_FLOAT_EQ(row.c, c) << row.degrees;
    }
}
