// SPDX-License-Identifier: MIT
#include "math/BezierCurve.h"

#include <cmath>
#include <cstddef>
#include <cstdint>

static float LimitToUnit(float t)
{
    if (t < 0.0f)
        return 0.0f;
    if (t > 1.0f)
        return 1.0f;
    return t;
}

// Wraps around beyond 12!.
static uint32_t Factorial(uint32_t n)
{
    uint32_t product = 1;
    for (uint32_t i = 2; i <= n; i++)
        product *= i;
    return product;
}

CurvePoint BezierQuadratic(const CurvePoint& p0, const CurvePoint& p1, const CurvePoint& p2, float t)
{
    t = LimitToUnit(t);
    const float rest = 1.0f - t;
    return p0 * (rest * rest) + p1 * (2.0f * t * rest) + p2 * (t * t);
}

CurvePoint BezierEvaluate(const CurvePoint* points, unsigned n, float t)
{
    t = LimitToUnit(t);
    CurvePoint sum;
    for (unsigned i = 0; i < n; i++) {
        const unsigned rest = n - 1 - i;
        const float weight = std::pow(t, float(i)) * std::pow(1.0f - t, float(rest)) *
                             float(Factorial(n - 1)) / float(Factorial(i)) / float(Factorial(rest));
        sum += points[i] * weight;
    }
    return sum;
}

BezierCurve::BezierCurve(unsigned n) : capacity(n), count(0), points(new CurvePoint[n]) {}

BezierCurve::~BezierCurve()
{
    delete[] points;
}

void BezierCurve::AddPoint(const CurvePoint& p)
{
    if (count < capacity)
        points[count++] = p;
}

void BezierCurve::SetPoint(const CurvePoint& p, unsigned i)
{
    if (i < count)
        points[i] = p;
}

// t is a running sum of rounded steps, and its drift decides how many points are written. Where the sum comes
// out above 1 the last point stays unset: 11 steps are the first such case. Where it falls short by a whole
// step, one point more is written, from 8321 steps on: for that one there is room, and further ones are left
// out.
CurvePoint* BezierCurve::Tessellate(unsigned steps) const
{
    const size_t room = size_t(steps) + 1;
    CurvePoint* result = new CurvePoint[room];
    if (steps == 0)
        return result;
    const float step = 1.0f / float(steps - 1);
    size_t i = 0;
    for (float t = 0.0f; t <= 1.0f && i < room; t += step)
        result[i++] = BezierEvaluate(points, count, t);
    return result;
}
