// SPDX-License-Identifier: MIT
// The vector for code that must not construct: a plain array of x, y, z, as glVertex3fv takes it.
//
// CONVENTIONS
//   Single precision throughout. The result comes first; it may be the same array as any input.
//   Angles in degrees, with VectorPi (math/Scalar.h) for pi. Matrices column-major, as in math/Matrix16.h.
//   Nothing is guarded and nothing fails: a division by zero gives infinities or not-a-numbers.
#pragma once

typedef float Vec3[3];
typedef float Matrix16[16];

void Vec3Set(Vec3 out, float x, float y, float z);
void Vec3Copy(Vec3 out, const Vec3 in);
void Vec3Scale(Vec3 out, const Vec3 in, float s);
void Vec3Add(Vec3 out, const Vec3 a, const Vec3 b);
void Vec3Sub(Vec3 out, const Vec3 a, const Vec3 b);
void Vec3MulAdd(Vec3 out, const Vec3 a, const Vec3 b, float s); // a + s * b
void Vec3Normalize(Vec3 out, const Vec3 in);                    // a zero vector gives non-finite values
void Vec3Cross(Vec3 out, const Vec3 a, const Vec3 b);

float Vec3Dot(const Vec3 a, const Vec3 b);
float Vec3Length(const Vec3 v);

// The angle between two vectors, 0 to 180 (and a little more, by the figure of pi). The cosine is not
// clamped: parallel vectors whose cosine rounds past 1 give not-a-number.
float Vec3Angle(const Vec3 a, const Vec3 b);

void Vec3Lerp(Vec3 out, const Vec3 a, const Vec3 b, float t); // (1 - t) a + t b; t is not limited

// v as a point, with w = 1, through the matrix; the resulting w is not divided by.
void Vec3Transform(Vec3 out, const Vec3 v, const Matrix16 m);
