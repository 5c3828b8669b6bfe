// SPDX-License-Identifier: MIT
#include "math/Vector3.h"

#include "math/Scalar.h"

Vector3::Vector3(float vx, float vy, float vz) : x(vx), y(vy), z(vz) {}

Vector3 Vector3::operator*(float s) const
{
    return Vector3(x * s, y * s, z * s);
}

Vector3 Vector3::operator+(const Vector3& b) const
{
    return Vector3(x + b.x, y + b.y, z + b.z);
}

Vector3 Vector3::operator-(const Vector3& b) const
{
    return Vector3(x - b.x, y - b.y, z - b.z);
}

float Vector3::Length() const
{
    return SqrtF(x * x + y * y + z * z);
}

float Vector3::Normalize()
{
    const float factor = 1.0f / Length();
    *this = *this * factor;
    return factor;
}
