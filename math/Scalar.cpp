// SPDX-License-Identifier: MIT
#include "math/Scalar.h"

#include <cmath>

float SinF(float radians)
{
    return float(std::sin(double(radians)));
}

float CosF(float radians)
{
    return float(std::cos(double(radians)));
}

float SqrtF(float a)
{
    return float(std::sqrt(double(a)));
}

float AcosF(float a)
{
    return float(std::acos(double(a)));
}

void SinCosDegrees(float* s, float* c, float degrees)
{
    const float radians = degrees * VectorPi / 180.0f;
    *s = SinF(radians);
    *c = CosF(radians);
}
