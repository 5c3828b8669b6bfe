// SPDX-License-Identifier: MIT
#include "math/CurvePoint.h"

#include "math/Scalar.h"

CurvePoint::CurvePoint(float px, float py, float pz) : x(px), y(py), z(pz) {}

CurvePoint::CurvePoint(const CurvePoint& p) : degToRad(0.0f), x(p.x), y(p.y), z(p.z) {}

CurvePoint& CurvePoint::operator=(const CurvePoint& p)
{
    x = p.x;
    y = p.y;
    z = p.z;
    return *this;
}

bool CurvePoint::operator+=(const CurvePoint& p)
{
    *this = *this + p;
    return true;
}

bool CurvePoint::operator-=(const CurvePoint& p)
{
    *this = *this - p;
    return true;
}

bool CurvePoint::operator*=(float s)
{
    *this = *this * s;
    return true;
}

bool CurvePoint::operator/=(float s)
{
    x /= s;
    y /= s;
    z /= s;
    return true;
}

CurvePoint CurvePoint::operator*(float s) const
{
    return CurvePoint(x * s, y * s, z * s);
}

CurvePoint CurvePoint::operator+(const CurvePoint& p) const
{
    return CurvePoint(x + p.x, y + p.y, z + p.z);
}

CurvePoint CurvePoint::operator-(const CurvePoint& p) const
{
    return CurvePoint(x - p.x, y - p.y, z - p.z);
}

bool CurvePoint::operator==(const CurvePoint& p) const
{
    return x == p.x && y == p.y && z == p.z;
}

bool CurvePoint::operator!=(const CurvePoint& p) const
{
    return !(*this == p);
}

void CurvePoint::Negate()
{
    *this *= -1.0f;
}

float CurvePoint::Length() const
{
    return SqrtF(LengthSquared());
}

float CurvePoint::LengthSquared() const
{
    return Dot(*this);
}

float CurvePoint::Dot(const CurvePoint& p) const
{
    return x * p.x + y * p.y + z * p.z;
}

float CurvePoint::Normalize()
{
    const float factor = 1.0f / Length();
    *this *= factor;
    return factor;
}

void CurvePoint::MultiplyComponents(const CurvePoint& p)
{
    x *= p.x;
    y *= p.y;
    z *= p.z;
}

void CurvePoint::SetPolar(float r, float a, float b)
{
    x = r * CosF(a) * CosF(b);
    y = r * CosF(a) * SinF(b);
    z = r * SinF(a);
}
