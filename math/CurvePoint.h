// SPDX-License-Identifier: MIT
// The point of a curve. Only BezierCurve uses it.
//
// CONVENTIONS
//   Single precision, angles in radians. The binary + - * give new points; all else changes the point
//   itself. Copies and assignments carry x, y and z alone: degToRad belongs to the object.
#pragma once

class CurvePoint
{
public:
    CurvePoint() = default; // (0, 0, 0)
    CurvePoint(float px, float py, float pz);
    CurvePoint(const CurvePoint& p); // degToRad of a copy is 0: it was never set for it
    CurvePoint& operator=(const CurvePoint& p);

    // Always true, so they can't be chained.
    bool operator+=(const CurvePoint& p);
    bool operator-=(const CurvePoint& p);
    bool operator*=(float s);
    bool operator/=(float s);

    CurvePoint operator*(float s) const;
    CurvePoint operator+(const CurvePoint& p) const;
    CurvePoint operator-(const CurvePoint& p) const;

    bool operator==(const CurvePoint& p) const; // exact, on x, y and z
    bool operator!=(const CurvePoint& p) const;

    void Negate();
    float Length() const;
    float LengthSquared() const;
    float Dot(const CurvePoint& p) const;
    float Normalize(); // returns the factor, 1 / length; a zero point is left non-finite
    void MultiplyComponents(const CurvePoint& p);

    // The point at distance r, a radians above the plane z = 0, b radians round from the x axis towards y.
    void SetPolar(float r, float a, float b);

    float degToRad = 0.01745f; // nobody reads it
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;
};
