// SPDX-License-Identifier: MIT
#include "tests/support/recorder/GLMath.h"

#include <cmath>

namespace gl
{

static const double degree = 3.14159265358979323846 / 180;

Matrix Identity()
{
    return {{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}};
}

Matrix Translation(double x, double y, double z)
{
    return {{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, y, z, 1}};
}

Matrix Scaling(double x, double y, double z)
{
    return {{x, 0, 0, 0, 0, y, 0, 0, 0, 0, z, 0, 0, 0, 0, 1}};
}

Matrix RotationDegrees(double angle, double x, double y, double z)
{
    const double length = std::sqrt(x * x + y * y + z * z);
    if (length == 0)
        return Identity();
    x /= length;
    y /= length;
    z /= length;
    const double c = std::cos(angle * degree);
    const double s = std::sin(angle * degree);
    const double d = 1 - c;
    // clang-format off
    return {{x * x * d + c,     y * x * d + z * s, z * x * d - y * s, 0,
             x * y * d - z * s, y * y * d + c,     z * y * d + x * s, 0,
             x * z * d + y * s, y * z * d - x * s, z * z * d + c,     0,
             0,                 0,                 0,                 1}};
    // clang-format on
}

Matrix Ortho(double left, double right, double bottom, double top, double nearPlane, double farPlane)
{
    const double w = right - left, h = top - bottom, d = farPlane - nearPlane;
    // clang-format off
    return {{2 / w,               0,                   0,                           0,
             0,                   2 / h,               0,                           0,
             0,                   0,                   -2 / d,                      0,
             -(right + left) / w, -(top + bottom) / h, -(farPlane + nearPlane) / d, 1}};
    // clang-format on
}

Matrix Frustum(double left, double right, double bottom, double top, double nearPlane, double farPlane)
{
    const double w = right - left, h = top - bottom, d = farPlane - nearPlane;
    // clang-format off
    return {{2 * nearPlane / w,  0,                  0,                             0,
             0,                  2 * nearPlane / h,  0,                             0,
             (right + left) / w, (top + bottom) / h, -(farPlane + nearPlane) / d,  -1,
             0,                  0,                  -2 * farPlane * nearPlane / d, 0}};
    // clang-format on
}

Matrix Perspective(double fovY, double aspect, double nearPlane, double farPlane)
{
    const double top = nearPlane * std::tan(fovY * degree / 2);
    return Frustum(-top * aspect, top * aspect, -top, top, nearPlane, farPlane);
}

Matrix LookAt(const Point& eye, const Point& centre, const Point& up)
{
    double fx = double(centre.x) - eye.x, fy = double(centre.y) - eye.y, fz = double(centre.z) - eye.z;
    const double forward = std::sqrt(fx * fx + fy * fy + fz * fz);
    fx /= forward;
    fy /= forward;
    fz /= forward;
    double sx = fy * up.z - fz * up.y, sy = fz * up.x - fx * up.z, sz = fx * up.y - fy * up.x;
    const double side = std::sqrt(sx * sx + sy * sy + sz * sz);
    sx /= side;
    sy /= side;
    sz /= side;
    const double ux = sy * fz - sz * fy, uy = sz * fx - sx * fz, uz = sx * fy - sy * fx;
    const Matrix turn = {{sx, ux, -fx, 0, sy, uy, -fy, 0, sz, uz, -fz, 0, 0, 0, 0, 1}};
    return turn * Translation(-double(eye.x), -double(eye.y), -double(eye.z));
}

Matrix FromColumns(const double* sixteen)
{
    Matrix result;
    for (int i = 0; i < 16; i++)
        result.m[i] = sixteen[i];
    return result;
}

Matrix FromColumns(const float* sixteen)
{
    Matrix result;
    for (int i = 0; i < 16; i++)
        result.m[i] = sixteen[i];
    return result;
}

Matrix operator*(const Matrix& a, const Matrix& b)
{
    Matrix result;
    for (int column = 0; column < 4; column++)
        for (int row = 0; row < 4; row++) {
            double sum = 0;
            for (int i = 0; i < 4; i++)
                sum += a.m[i * 4 + row] * b.m[column * 4 + i];
            result.m[column * 4 + row] = sum;
        }
    return result;
}

Point operator*(const Matrix& a, const Point& p)
{
    double r[4];
    for (int row = 0; row < 4; row++)
        r[row] = a.m[row] * p.x + a.m[4 + row] * p.y + a.m[8 + row] * p.z + a.m[12 + row] * p.w;
    return Point(r[0], r[1], r[2], r[3]);
}

} // namespace gl
