// SPDX-License-Identifier: MIT
// Points, colours and matrices of the recorder, worked out in double precision and independent of math/, so
// that tests can build the matrix they expect: Translation(0, 0, -1.5) * RotationDegrees(30, 0, 1, 0).
//
// CONVENTIONS: column-major like OpenGL, m[12], m[13], m[14] is the translation; matrices multiply column
// vectors from the left, so the right-hand factor acts first, as the last GL call does. Angles are degrees.
#pragma once

namespace gl
{

// Four floats. The constructors take doubles, so that 0.35 in a test means the float 0.35f in the code.
struct Point {
    float x, y, z, w;
    Point() : x(0), y(0), z(0), w(1) {}
    Point(double px, double py, double pz = 0, double pw = 1)
        : x(float(px)), y(float(py)), z(float(pz)), w(float(pw))
    {
    }
};

struct Colour {
    float r, g, b, a;
    Colour() : r(0), g(0), b(0), a(0) {}
    Colour(double red, double green, double blue, double alpha = 1)
        : r(float(red)), g(float(green)), b(float(blue)), a(float(alpha))
    {
    }
};

struct Matrix {
    double m[16];
};

Matrix Identity();
Matrix Translation(double x, double y, double z);
Matrix Scaling(double x, double y, double z);
Matrix RotationDegrees(double angle, double x, double y,
                       double z); // the axis needs no unit length; 0 gives identity
Matrix Ortho(double left, double right, double bottom, double top, double nearPlane = -1,
             double farPlane = 1);
Matrix Frustum(double left, double right, double bottom, double top, double nearPlane, double farPlane);
Matrix Perspective(double fovY, double aspect, double nearPlane, double farPlane);
Matrix LookAt(const Point& eye, const Point& centre, const Point& up);
Matrix FromColumns(const double* sixteen);
Matrix FromColumns(const float* sixteen);

Matrix operator*(const Matrix& a, const Matrix& b);
Point operator*(const Matrix& a, const Point& p); // not divided by w

} // namespace gl
