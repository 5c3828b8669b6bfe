// SPDX-License-Identifier: MIT
#include "math/BezierCurve.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iterator>
#include <memory>
#include <random>
#include <vector>

static void ExpectPoint(float x, float y, float z, const CurvePoint& p)
{
    EXPECT_FLOAT_EQ(x, p.x);
    EXPECT_FLOAT_EQ(y, p.y);
    EXPECT_FLOAT_EQ(z, p.z);
}

TEST(BezierQuadratic, WeighsThreePoints)
{
    const CurvePoint p0(1, 2, 3), p1(10, 20, -30), p2(100, 0, 50);
    ExpectPoint(1, 2, 3, BezierQuadratic(p0, p1, p2, 0));
    ExpectPoint(100, 0, 50, BezierQuadratic(p0, p1, p2, 1));
    // 9/16, 6/16, 1/16
    ExpectPoint(10.5625f, 8.625f, -6.4375f, BezierQuadratic(p0, p1, p2, 0.25f));
}

TEST(BezierQuadratic, LimitsItsParameter)
{
    const CurvePoint p0(1, 2, 3), p1(10, 20, -30), p2(100, 0, 50);
    ExpectPoint(1, 2, 3, BezierQuadratic(p0, p1, p2, -0.5f));
    ExpectPoint(100, 0, 50, BezierQuadratic(p0, p1, p2, 1.5f));
    ExpectPoint(1, 2, 3, BezierQuadratic(p0, p1, p2, -0.00005f));
    ExpectPoint(100, 0, 50, BezierQuadratic(p0, p1, p2, 1.00005f));
    EXPECT_LT(BezierQuadratic(p0, p1, p2, 0.99995f).x, 99.995f);
    EXPECT_GT(BezierQuadratic(p0, p1, p2, 0.00005f).x, 1.0005f);
}

TEST(BezierEvaluate, OfNoPointIsZeroAndOfOneIsThatPoint)
{
    const CurvePoint one(1, 2, 3);
    ExpectPoint(0, 0, 0, BezierEvaluate(nullptr, 0, 0.5f));
    ExpectPoint(1, 2, 3, BezierEvaluate(&one, 1, 0));
    ExpectPoint(1, 2, 3, BezierEvaluate(&one, 1, 0.7f));
    ExpectPoint(1, 2, 3, BezierEvaluate(&one, 1, 1));
}

TEST(BezierEvaluate, LimitsItsParameterAndMeetsItsEnds)
{
    const CurvePoint points[] = {{1, 2, 3}, {10, 20, -30}, {7, 7, 7}, {100, 0, 50}};
    ExpectPoint(1, 2, 3, BezierEvaluate(points, 4, -2));
    ExpectPoint(1, 2, 3, BezierEvaluate(points, 4, 0));
    ExpectPoint(100, 0, 50, BezierEvaluate(points, 4, 1));
    ExpectPoint(100, 0, 50, BezierEvaluate(points, 4, 2));
}

TEST(BezierEvaluate, IsInBernsteinForm)
{
    const CurvePoint points[] = {{1, 2, 3}, {10, 20, -30}, {7, 7, 7}, {100, 0, 50}};
    // 27/64, 27/64, 9/64, 1/64
    ExpectPoint((27 + 270 + 63 + 100) / 64.0f, (54 + 540 + 63) / 64.0f, (81 - 810 + 63 + 50) / 64.0f,
                BezierEvaluate(points, 4, 0.25f));
}

TEST(BezierEvaluate, AgreesWithRepeatedInterpolationUpToThirteenPoints)
{
    std::mt19937 random(21);
    std::uniform_real_distribution<float> any(-10, 10), unit(0, 1);
    for (unsigned n = 1; n <= 13; n++)
        for (int round = 0; round < 20; round++) {
            std::vector<CurvePoint> points;
            std::vector<double> x, y, z;
            for (unsigned i = 0; i < n; i++) {
                points.push_back(CurvePoint(any(random), any(random), any(random)));
                x.push_back(points[i].x);
                y.push_back(points[i].y);
                z.push_back(points[i].z);
            }
            const float t = unit(random);
            for (unsigned left = n - 1; left > 0; left--)
                for (unsigned i = 0; i < left; i++) {
                    x[i] += t * (x[i + 1] - x[i]);
                    y[i] += t * (y[i + 1] - y[i]);
                    z[i] += t * (z[i + 1] - z[i]);
                }
            const CurvePoint p = BezierEvaluate(points.data(), n, t);
            EXPECT_NEAR(x[0], p.x, 2e-5) << n;
            EXPECT_NEAR(y[0], p.y, 2e-5) << n;
            EXPECT_NEAR(z[0], p.z, 2e-5) << n;
        }
}

TEST(BezierEvaluate, LosesItsMeaningBeyondThirteenPointsByFactorialsOf32Bits)
{
    // Fourteen times the same point: true weights would add up to that point.
    const std::vector<CurvePoint> points(14, CurvePoint(1, 1, 1));
    // 13! is 1932053504 in 32 bits. At an end its quotient by itself is still 1.
    EXPECT_FLOAT_EQ(1, BezierEvaluate(points.data(), 14, 0).x);
    // All weights in the middle have the factor 1932053504 / 6227020800, but those of the ends.
    const double ends = 2 * std::pow(0.5, 13);
    const double expected = (1 - ends) * (1932053504.0 / 6227020800.0) + ends;
    EXPECT_NEAR(expected, BezierEvaluate(points.data(), 14, 0.5f).x, 1e-5);
}

TEST(BezierCurve, StartsEmptyWithItsRoom)
{
    const BezierCurve curve(3);
    EXPECT_EQ(3u, curve.capacity);
    EXPECT_EQ(0u, curve.count);
}

TEST(BezierCurve, TakesPointsUntilItsRoomIsUsedUp)
{
    BezierCurve curve(2);
    curve.AddPoint(CurvePoint(1, 0, 0));
    EXPECT_EQ(1u, curve.count);
    curve.AddPoint(CurvePoint(2, 0, 0));
    EXPECT_EQ(2u, curve.count);
    curve.AddPoint(CurvePoint(3, 0, 0));
    EXPECT_EQ(2u, curve.count);
    EXPECT_EQ(1.0f, curve.points[0].x);
    EXPECT_EQ(2.0f, curve.points[1].x);

    BezierCurve none(0);
    none.AddPoint(CurvePoint(1, 0, 0));
    EXPECT_EQ(0u, none.count);
}

TEST(BezierCurve, ReplacesOnlyPointsThatAreThere)
{
    BezierCurve curve(3);
    curve.AddPoint(CurvePoint(1, 0, 0));
    curve.AddPoint(CurvePoint(2, 0, 0));
    curve.SetPoint(CurvePoint(5, 6, 7), 0);
    curve.SetPoint(CurvePoint(8, 0, 0), 1);
    curve.SetPoint(CurvePoint(9, 0, 0), 2);
    curve.SetPoint(CurvePoint(9, 0, 0), 4000000000u);
    EXPECT_EQ(2u, curve.count);
    ExpectPoint(5, 6, 7, curve.points[0]);
    ExpectPoint(8, 0, 0, curve.points[1]);
    ExpectPoint(0, 0, 0, curve.points[2]);
}

static BezierCurve* NewLine() // x = 1 + t
{
    BezierCurve* line = new BezierCurve(2);
    line->AddPoint(CurvePoint(1, 0, 0));
    line->AddPoint(CurvePoint(2, 0, 0));
    return line;
}

TEST(BezierCurve, TessellatesEvenlyInItsParameter)
{
    const std::unique_ptr<BezierCurve> line(NewLine());
    const std::unique_ptr<CurvePoint[]> points(line->Tessellate(5));
    for (int i = 0; i < 5; i++)
        EXPECT_EQ(1 + float(i) / 4, points[size_t(i)].x) << i;
}

TEST(BezierCurve, ASumOfStepsThatPassesOneTooEarlyLeavesTheLastPointUnset)
{
    const std::unique_ptr<BezierCurve> line(NewLine());
    // Worked out with an addition in single precision, by hand for 11: ten times 0.1 is 1.0000001.
    static const unsigned early[] = {11, 12, 15, 19, 21, 23, 25, 26, 27, 30, 31, 35, 37, 39};
    size_t next = 0;
    for (unsigned steps = 2; steps < 43; steps++) {
        const bool isEarly = next < std::size(early) && steps == early[next];
        next += isEarly;
        const std::unique_ptr<CurvePoint[]> points(line->Tessellate(steps));
        for (unsigned i = 0; i + 1 < steps; i++)
            ASSERT_NEAR(1 + double(i) / (steps - 1), points[i].x, 1e-6) << steps;
        ASSERT_NEAR(isEarly ? 0 : 2, points[steps - 1].x, 1e-6) << steps;
        ASSERT_EQ(0.0f, points[steps].x) << steps;
    }
    EXPECT_EQ(std::size(early), next);
}

TEST(BezierCurve, ASumOfStepsThatFallsShortByAStepWritesOnePointMore)
{
    const std::unique_ptr<BezierCurve> line(NewLine());
    const std::unique_ptr<CurvePoint[]> short8320(line->Tessellate(8320));
    EXPECT_EQ(0.0f, short8320[8320].x);
    const std::unique_ptr<CurvePoint[]> short8321(line->Tessellate(8321));
    EXPECT_NEAR(2, short8321[8321].x, 1e-4);
}

TEST(BezierCurve, TessellatesIntoOnePointForOneStepAndNoneForNone)
{
    const std::unique_ptr<BezierCurve> line(NewLine());
    const std::unique_ptr<CurvePoint[]> one(line->Tessellate(1));
    EXPECT_EQ(1.0f, one[0].x);
    EXPECT_EQ(0.0f, one[1].x);
    const std::unique_ptr<CurvePoint[]> none(line->Tessellate(0));
    EXPECT_EQ(0.0f, none[0].x);
}

TEST(BezierCurve, WritesNoSecondPointMore)
{
    // The sum falls short by two steps here; the sanitizers watch the end of the array.
    const std::unique_ptr<BezierCurve> line(NewLine());
    const std::unique_ptr<CurvePoint[]> points(line->Tessellate(11664));
    EXPECT_NEAR(2, points[11664].x, 1e-3);
}

TEST(BezierCurve, WithoutPointsTessellatesIntoZeroes)
{
    const BezierCurve empty(4);
    const std::unique_ptr<CurvePoint[]> points(empty.Tessellate(3));
    for (int i = 0; i < 3; i++)
        ExpectPoint(0, 0, 0, points[size_t(i)]);
}
