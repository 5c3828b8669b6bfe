// SPDX-License-Identifier: MIT
// Bézier curves. The library carries them; no effect of this production uses them.
//
// CONVENTIONS
//   Single precision. The parameter t runs along the curve from 0 to 1 and is limited to that.
#pragma once

#include "math/CurvePoint.h"

CurvePoint BezierQuadratic(const CurvePoint& p0, const CurvePoint& p1, const CurvePoint& p2, float t);

// The curve of degree n - 1 through the first and the last of n points; (0, 0, 0) for n = 0. Good for up
// to 13 points: beyond, the factorials wrap around in 32 bits and the weights mean nothing.
CurvePoint BezierEvaluate(const CurvePoint* points, unsigned n, float t);

class BezierCurve
{
public:
    explicit BezierCurve(unsigned n); // room for n points, none used
    ~BezierCurve();
    BezierCurve(const BezierCurve&) = delete;
    BezierCurve& operator=(const BezierCurve&) = delete;

    void AddPoint(const CurvePoint& p);             // no effect when the room is used up
    void SetPoint(const CurvePoint& p, unsigned i); // no effect unless i is below count

    // An array of `steps` points of the curve, evenly spaced in t from 0 to 1; the caller frees it with
    // delete[]. The sum of the rounded steps can pass 1 too early: then the last of them stays at
    // (0, 0, 0). The array has room for one point more, for a sum that falls short. One step gives the
    // first point alone, none gives no point.
    CurvePoint* Tessellate(unsigned steps) const;

    // Not to be written from outside.
    unsigned capacity;
    unsigned count;
    CurvePoint* points; // capacity of them, owned
};
