// SPDX-License-Identifier: MIT
// The matrix as a plain array with free functions, for glMultMatrixf and glLoadMatrixf as it is.
//
// CONVENTIONS
//   Column-major: element [column * 4 + row], the translation in elements 12, 13, 14.
//   The result comes first; it may be the same array as any input.
//   Angles in degrees. MatrixFromEuler has VectorPi (math/Scalar.h) for pi, the MatrixRotation functions
//   have the true pi, since they give what glRotatef gives.
//   MatrixMultiply takes its operands in the opposite order of Matrix4's operator*.
#pragma once

#include "math/Vec3.h"

typedef float Matrix16[16];

void MatrixIdentity(Matrix16 m);
void MatrixCopy(Matrix16 out, const Matrix16 in);
void MatrixTranspose(Matrix16 out, const Matrix16 in);

// The product b a of column-major notation: a applies first to a vector, b after it.
void MatrixMultiply(Matrix16 out, const Matrix16 a, const Matrix16 b);

float MatrixDeterminant(const Matrix16 m);

// Meant for a rotation alone or a translation alone: the upper-left 3 by 3 is transposed, and the
// translation is negated without being rotated. Elements 3, 7, 11 and 15 of out are not written: the
// caller has set them.
void MatrixInverseRigid(Matrix16 out, const Matrix16 in);

// The matrix for the normals of points that go through m: the inverse transpose of its upper-left 3 by 3,
// as GL takes it. The identity where m flattens and has no inverse.
void MatrixOfNormals(Matrix16 out, const Matrix16 m);

void MatrixTranslation(Matrix16 m, float x, float y, float z);
void MatrixTranslationV(Matrix16 m, const Vec3 v);

// What glRotatef makes of the identity, computed without GL. The axis need not have length 1; a zero axis
// gives the identity.
void MatrixRotationX(Matrix16 out, float degrees);
void MatrixRotationY(Matrix16 out, float degrees);
void MatrixRotationZ(Matrix16 out, float degrees);
void MatrixRotationAxis(Matrix16 out, float degrees, float x, float y, float z);

// Turns by a about y, by b about x and by c about z, then translates. With b other than 0 it is not a
// rotation: element 9 has a plus where a rotation has a minus. The town and the glow tree are made for it.
void MatrixFromEuler(Matrix16 m, float a, float b, float c, float tx, float ty, float tz);
