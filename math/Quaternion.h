// SPDX-License-Identifier: MIT
// Quaternions. The library carries them; no effect of this production uses them.
//
// CONVENTIONS
//   A plain array x, y, z, w. Rotations are unit quaternions; nothing here normalises.
//   The result may be the same array as any input. Angles in radians. Matrices column-major.
#pragma once

#include "math/Matrix16.h"
#include "math/Vec3.h"

typedef float Quaternion[4];

void QuaternionSet(Quaternion q, float x, float y, float z, float w);
void QuaternionCopy(Quaternion q, const Quaternion in);
void QuaternionSub(Quaternion out, const Quaternion a, const Quaternion b);

void QuaternionToMatrix(Matrix16 m, const Quaternion q);

// Along the shorter arc from a (t = 0) to b (t = 1); t is not limited. The same under two orders of
// arguments. The inputs stay as they are.
void QuaternionSlerp(const Quaternion a, const Quaternion b, float t, Quaternion out);
void QuaternionSlerpTo(Quaternion out, const Quaternion a, const Quaternion b, float t);

// The axis is (x, y, z) divided by the square of its length and not by the length; (0, 0, 0) where that is
// 0. The angle does not reach the caller.
void QuaternionToAxisAngle(Vec3 axis, float angle, const Quaternion q);
