// SPDX-License-Identifier: MIT
#include "math/Matrix16.h"

#include "math/Scalar.h"

#include <cstring>

void MatrixIdentity(Matrix16 m)
{
    for (int i = 0; i < 16; i++)
        m[i] = i % 5 == 0 ? 1.0f : 0.0f;
}

void MatrixCopy(Matrix16 out, const Matrix16 in)
{
    memmove(out, in, sizeof(Matrix16));
}

void MatrixTranspose(Matrix16 out, const Matrix16 in)
{
    Matrix16 result;
    for (int c = 0; c < 4; c++)
        for (int r = 0; r < 4; r++)
            result[c * 4 + r] = in[r * 4 + c];
    MatrixCopy(out, result);
}

void MatrixMultiply(Matrix16 out, const Matrix16 a, const Matrix16 b)
{
    Matrix16 result;
    for (int c = 0; c < 4; c++)
        for (int r = 0; r < 4; r++)
            result[c * 4 + r] = a[c * 4 + 0] * b[0 + r] + a[c * 4 + 1] * b[4 + r] + a[c * 4 + 2] * b[8 + r] +
                                a[c * 4 + 3] * b[12 + r];
    MatrixCopy(out, result);
}

float MatrixDeterminant(const Matrix16 m)
{
    // One row per element of the first column; in each term the columns stand in order, and the sign is
    // that of the permutation of the rows.
    // clang-format off
    return
        m[0] * m[5] * m[10] * m[15] - m[0] * m[5] * m[11] * m[14] - m[0] * m[6] * m[ 9] * m[15] +
        m[0] * m[6] * m[11] * m[13] + m[0] * m[7] * m[ 9] * m[14] - m[0] * m[7] * m[10] * m[13] -
        m[1] * m[4] * m[10] * m[15] + m[1] * m[4] * m[11] * m[14] + m[1] * m[6] * m[ 8] * m[15] -
        m[1] * m[6] * m[11] * m[12] - m[1] * m[7] * m[ 8] * m[14] + m[1] * m[7] * m[10] * m[12] +
        m[2] * m[4] * m[ 9] * m[15] - m[2] * m[4] * m[11] * m[13] - m[2] * m[5] * m[ 8] * m[15] +
        m[2] * m[5] * m[11] * m[12] + m[2] * m[7] * m[ 8] * m[13] - m[2] * m[7] * m[ 9] * m[12] -
        m[3] * m[4] * m[ 9] * m[14] + m[3] * m[4] * m[10] * m[13] + m[3] * m[5] * m[ 8] * m[14] -
        m[3] * m[5] * m[10] * m[12] - m[3] * m[6] * m[ 8] * m[13] + m[3] * m[6] * m[ 9] * m[12];
    // clang-format on
}

void MatrixInverseRigid(Matrix16 out, const Matrix16 in)
{
    float rotation[3][3];
    for (int c = 0; c < 3; c++)
        for (int r = 0; r < 3; r++)
            rotation[c][r] = in[r * 4 + c];
    for (int c = 0; c < 3; c++)
        for (int r = 0; r < 3; r++)
            out[c * 4 + r] = rotation[c][r];
    out[12] = -in[12];
    out[13] = -in[13];
    out[14] = -in[14];
}

void MatrixOfNormals(Matrix16 out, const Matrix16 m)
{
    // The columns of the inverse transpose are the cross products of the other two, over the determinant.
    const Vec3 columns[3] = {{m[0], m[1], m[2]}, {m[4], m[5], m[6]}, {m[8], m[9], m[10]}};
    Vec3 results[3];
    for (int c = 0; c < 3; c++)
        Vec3Cross(results[c], columns[(c + 1) % 3], columns[(c + 2) % 3]);
    const float determinant = Vec3Dot(columns[0], results[0]);
    MatrixIdentity(out);
    if (determinant == 0)
        return;
    for (int c = 0; c < 3; c++)
        Vec3Scale(out + 4 * c, results[c], 1 / determinant);
}

void MatrixTranslation(Matrix16 m, float x, float y, float z)
{
    MatrixIdentity(m);
    m[12] = x;
    m[13] = y;
    m[14] = z;
}

void MatrixTranslationV(Matrix16 m, const Vec3 v)
{
    MatrixTranslation(m, v[0], v[1], v[2]);
}

void MatrixRotationX(Matrix16 out, float degrees)
{
    MatrixRotationAxis(out, degrees, 1.0f, 0.0f, 0.0f);
}

void MatrixRotationY(Matrix16 out, float degrees)
{
    MatrixRotationAxis(out, degrees, 0.0f, 1.0f, 0.0f);
}

void MatrixRotationZ(Matrix16 out, float degrees)
{
    MatrixRotationAxis(out, degrees, 0.0f, 0.0f, 1.0f);
}

void MatrixRotationAxis(Matrix16 out, float degrees, float x, float y, float z)
{
    constexpr double pi = 3.14159265358979323846;

    MatrixIdentity(out);
    Vec3 axis = {x, y, z};
    if (Vec3Length(axis) == 0.0f)
        return;
    Vec3Normalize(axis, axis);
    const float radians = float(degrees * pi / 180.0);
    const float s = SinF(radians);
    const float c = CosF(radians);
    const float rest = 1.0f - c;
    x = axis[0];
    y = axis[1];
    z = axis[2];
    // clang-format off
    out[0] = x * x * rest + c;     out[4] = x * y * rest - z * s;  out[ 8] = x * z * rest + y * s;
    out[1] = y * x * rest + z * s; out[5] = y * y * rest + c;      out[ 9] = y * z * rest - x * s;
    out[2] = z * x * rest - y * s; out[6] = z * y * rest + x * s;  out[10] = z * z * rest + c;
    // clang-format on
}

void MatrixFromEuler(Matrix16 m, float a, float b, float c, float tx, float ty, float tz)
{
    float sa, ca, sb, cb, sc, cc;
    SinCosDegrees(&sa, &ca, a);
    SinCosDegrees(&sb, &cb, b);
    SinCosDegrees(&sc, &cc, c);
    // The plus of element 9 stays: a rotation has sc * sa - cc * sb * ca there, and the town and the glow
    // tree are not made for a rotation.
    // clang-format off
    m[0] = cc * ca - sc * sb * sa;  m[4] = -sc * cb;  m[ 8] = cc * sa + sc * sb * ca;  m[12] = tx;
    m[1] = sc * ca + cc * sb * sa;  m[5] =  cc * cb;  m[ 9] = sc * sa + cc * sb * ca;  m[13] = ty;
    m[2] = -cb * sa;                m[6] =  sb;       m[10] = cb * ca;                 m[14] = tz;
    m[3] = 0.0f;                    m[7] =  0.0f;     m[11] = 0.0f;                    m[15] = 1.0f;
    // clang-format on
}
