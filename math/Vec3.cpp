// SPDX-License-Identifier: MIT
#include "math/Vec3.h"

#include "math/Scalar.h"

void Vec3Set(Vec3 out, float x, float y, float z)
{
    out[0] = x;
    out[1] = y;
    out[2] = z;
}

void Vec3Copy(Vec3 out, const Vec3 in)
{
    Vec3Set(out, in[0], in[1], in[2]);
}

void Vec3Scale(Vec3 out, const Vec3 in, float s)
{
    Vec3Set(out, s * in[0], s * in[1], s * in[2]);
}

void Vec3Add(Vec3 out, const Vec3 a, const Vec3 b)
{
    Vec3Set(out, a[0] + b[0], a[1] + b[1], a[2] + b[2]);
}

void Vec3Sub(Vec3 out, const Vec3 a, const Vec3 b)
{
    Vec3Set(out, a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

void Vec3MulAdd(Vec3 out, const Vec3 a, const Vec3 b, float s)
{
    Vec3Set(out, a[0] + s * b[0], a[1] + s * b[1], a[2] + s * b[2]);
}

void Vec3Normalize(Vec3 out, const Vec3 in)
{
    Vec3Scale(out, in, 1.0f / Vec3Length(in));
}

// Here and below all results are computed before Vec3Set stores the first of them, so that out may be an
// input.
void Vec3Cross(Vec3 out, const Vec3 a, const Vec3 b)
{
    Vec3Set(out, a[1] * b[2] - b[1] * a[2], a[2] * b[0] - b[2] * a[0], a[0] * b[1] - b[0] * a[1]);
}

float Vec3Dot(const Vec3 a, const Vec3 b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

float Vec3Length(const Vec3 v)
{
    return SqrtF(Vec3Dot(v, v));
}

float Vec3Angle(const Vec3 a, const Vec3 b)
{
    return AcosF(Vec3Dot(a, b) / (Vec3Length(b) * Vec3Length(a))) * 180.0f / VectorPi;
}

void Vec3Lerp(Vec3 out, const Vec3 a, const Vec3 b, float t)
{
    const float rest = 1.0f - t;
    Vec3Set(out, rest * a[0] + t * b[0], rest * a[1] + t * b[1], rest * a[2] + t * b[2]);
}

void Vec3Transform(Vec3 out, const Vec3 v, const Matrix16 m)
{
    // clang-format off
    Vec3Set(out,
            v[0] * m[0] + v[1] * m[4] + v[2] * m[ 8] + m[12],
            v[0] * m[1] + v[1] * m[5] + v[2] * m[ 9] + m[13],
            v[0] * m[2] + v[1] * m[6] + v[2] * m[10] + m[14]);
    // clang-format on
}
