// SPDX-License-Identifier: MIT
// The matrix with operators.
//
// CONVENTIONS
//   Column-major: element [column * 4 + row], the translation in elements 12, 13, 14; m goes to
//   glMultMatrixf as it is.
//   a * b is the product of column-major notation, so T * R * S scales first and translates last. It takes
//   its operands in the opposite order of MatrixMultiply.
//   Angles in degrees, with the factor 0.017453292 and not VectorPi.
//   The Set operations overwrite the whole matrix.
#pragma once

class Vector3;

class Matrix4
{
public:
    Matrix4(); // identity

    void SetIdentity();
    void SetRotationX(float degrees);
    void SetRotationY(float degrees);
    void SetRotationZ(float degrees);
    void SetScale(float sx, float sy, float sz);
    void SetScale(const Vector3& v);
    void SetTranslation(const Vector3& v);

    Matrix4 operator*(const Matrix4& b) const;

    // i is taken modulo 16, so that no index leads out of the matrix.
    float& operator[](int i) { return m[i & 15]; }
    float operator[](int i) const { return m[i & 15]; }

    float m[16];
};
