// SPDX-License-Identifier: MIT
#include "art/atelier/Numbers.h"

#include <cmath>

namespace atelier
{

// The square root is exact by the rules of floating point, so that one may come from the library.
float Sqrt(float x)
{
    return x > 0 ? std::sqrt(x) : 0;
}
float Length(Vector2 v)
{
    return Sqrt(Dot(v, v));
}

Vector2 Normalised(Vector2 v)
{
    const float length = Length(v);
    return length > 0 ? v * (1 / length) : v;
}

float Sin(float radians)
{
    const double turns = double(radians) * (1 / 3.14159265358979324);
    const long half = long(turns + (turns < 0 ? -0.5 : 0.5));
    const double r = (turns - double(half)) * 3.14159265358979324;
    const double q = r * r;
    const double s =
        r * (1 + q * (-1.0 / 6 + q * (1.0 / 120 + q * (-1.0 / 5040 + q * (1.0 / 362880 - q / 39916800)))));
    return float(half % 2 == 0 ? s : -s);
}

float Cos(float radians)
{
    return Sin(radians + Pi / 2);
}

float Angle(Vector2 v)
{
    const float a = Abs(v.x), b = Abs(v.y);
    if (a == 0 && b == 0)
        return 0;
    const float t = a < b ? a / b : b / a;
    const float q = t * t;
    float angle =
        t *
        (0.99997726f +
         q * (-0.33262347f + q * (0.19354346f + q * (-0.11643287f + q * (0.05265332f - q * 0.01172120f)))));
    if (a < b)
        angle = Pi / 2 - angle;
    if (v.x < 0)
        angle = Pi - angle;
    return v.y < 0 ? -angle : angle;
}

float Exp2(float x)
{
    x = Clamp(x, -126, 126);
    const int whole = Floor(x + 0.5f);
    const float f = x - float(whole);
    const float p =
        1 +
        f * (0.69314718f +
             f * (0.24022651f + f * (0.05550411f + f * (0.00961813f + f * (0.00133336f + f * 0.00015404f)))));
    return p * std::bit_cast<float>(uint32_t(whole + 127) << 23);
}

float Log2(float x)
{
    const uint32_t bits = std::bit_cast<uint32_t>(x);
    int exponent = int(bits >> 23) - 127;
    float m = std::bit_cast<float>((bits & 0x7FFFFFu) | 0x3F800000u);
    if (m > 1.41421356f) {
        m *= 0.5f;
        exponent += 1;
    }
    const float t = (m - 1) / (m + 1);
    const float q = t * t;
    return float(exponent) +
           t * (2.88539008f + q * (0.96179669f + q * (0.57707802f + q * (0.41219858f + q * 0.32059890f))));
}

float Pow(float x, float p)
{
    return x > 0 ? Exp2(p * Log2(x)) : 0;
}

uint32_t Dice::Next()
{
    const uint64_t old = state;
    state = old * 6364136223846793005ull + 1442695040888963407ull;
    const uint32_t word = uint32_t(((old >> 18) ^ old) >> 27);
    return std::rotr(word, int(old >> 59));
}

} // namespace atelier
