// SPDX-License-Identifier: MIT
// The vector with operators, passed by value.
//
// CONVENTIONS
//   Single precision. Operators give new vectors; Normalize works in place. x, y, z lie in this order
//   with nothing between them, so &v.x serves an interface that takes float[3].
#pragma once

class Vector3
{
public:
    Vector3() = default; // (0, 0, 0)
    Vector3(float vx, float vy, float vz);

    Vector3 operator*(float s) const;
    Vector3 operator+(const Vector3& b) const;
    Vector3 operator-(const Vector3& b) const;

    float Length() const;

    // Scales to length 1 and returns the factor, 1 / length. Not guarded: a zero vector returns infinity
    // and is left with non-finite components.
    float Normalize();

    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;
};
