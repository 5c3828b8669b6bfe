// SPDX-License-Identifier: MIT
#include "math/Matrix4.h"

#include "math/Scalar.h"
#include "math/Vector3.h"

static const float degreesToRadians = 0.017453292f;

Matrix4::Matrix4()
{
    SetIdentity();
}

void Matrix4::SetIdentity()
{
    SetScale(1.0f, 1.0f, 1.0f);
}

void Matrix4::SetRotationX(float degrees)
{
    const float s = SinF(degrees * degreesToRadians);
    const float c = CosF(degrees * degreesToRadians);
    SetIdentity();
    // clang-format off
    m[5] = c;  m[ 9] = -s;
    m[6] = s;  m[10] =  c;
    // clang-format on
}

void Matrix4::SetRotationY(float degrees)
{
    const float s = SinF(degrees * degreesToRadians);
    const float c = CosF(degrees * degreesToRadians);
    SetIdentity();
    // clang-format off
    m[0] =  c;  m[ 8] = s;
    m[2] = -s;  m[10] = c;
    // clang-format on
}

void Matrix4::SetRotationZ(float degrees)
{
    const float s = SinF(degrees * degreesToRadians);
    const float c = CosF(degrees * degreesToRadians);
    SetIdentity();
    // clang-format off
    m[0] = c;  m[4] = -s;
    m[1] = s;  m[5] =  c;
    // clang-format on
}

void Matrix4::SetScale(float sx, float sy, float sz)
{
    for (float& element : m)
        element = 0.0f;
    m[0] = sx;
    m[5] = sy;
    m[10] = sz;
    m[15] = 1.0f;
}

void Matrix4::SetScale(const Vector3& v)
{
    SetScale(v.x, v.y, v.z);
}

void Matrix4::SetTranslation(const Vector3& v)
{
    SetIdentity();
    m[12] = v.x;
    m[13] = v.y;
    m[14] = v.z;
}

Matrix4 Matrix4::operator*(const Matrix4& b) const
{
    Matrix4 r;
    for (int c = 0; c < 4; c++)
        for (int row = 0; row < 4; row++)
            r.m[c * 4 + row] = b.m[c * 4 + 0] * m[0 + row] + b.m[c * 4 + 1] * m[4 + row] +
                               b.m[c * 4 + 2] * m[8 + row] + b.m[c * 4 + 3] * m[12 + row];
    return r;
}
