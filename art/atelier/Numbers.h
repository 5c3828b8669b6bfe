// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstdint>

// Arithmetic of the atelier. The curves are written out here instead of being taken from the C library, so
// that a picture has the same bytes on every machine, whatever its library picks at run time.
//
// CONVENTIONS
//   Angles are radians. Places are pixels, x to the right, y down, (0, 0) the outer corner of the first
//   pixel, whose centre is (0.5, 0.5). Sequences and noises start from a seed: equal seeds give equal
//   pictures.

namespace atelier
{

constexpr float Pi = 3.14159265f;

// A place or a direction on a picture.
struct Vector2 {
    float x = 0, y = 0;
};

constexpr Vector2 operator+(Vector2 a, Vector2 b)
{
    return {a.x + b.x, a.y + b.y};
}
constexpr Vector2 operator-(Vector2 a, Vector2 b)
{
    return {a.x - b.x, a.y - b.y};
}
constexpr Vector2 operator*(Vector2 a, float s)
{
    return {a.x * s, a.y * s};
}
constexpr float Dot(Vector2 a, Vector2 b)
{
    return a.x * b.x + a.y * b.y;
}

constexpr int Floor(float x)
{
    const int i = int(x);
    return i - (x < float(i) ? 1 : 0);
}
constexpr float Fraction(float x)
{
    return x - float(Floor(x));
}
constexpr float Min(float a, float b)
{
    return b < a ? b : a;
}
constexpr float Max(float a, float b)
{
    return a < b ? b : a;
}
constexpr float Clamp(float x, float lo = 0, float hi = 1)
{
    return x < lo ? lo : x > hi ? hi : x;
}
constexpr float Abs(float x)
{
    return x < 0 ? -x : x;
}
constexpr float Mix(float a, float b, float t)
{
    return a + (b - a) * t;
}
constexpr Vector2 Mix(Vector2 a, Vector2 b, float t)
{
    return a + (b - a) * t;
}
// x modulo n, from 0 up to but not including n, also for negative x.
constexpr int Wrap(int x, int n)
{
    return ((x % n) + n) % n;
}
// 0 at or below lo, 1 at or above hi, an S between; with hi below lo it falls instead.
constexpr float Smooth(float lo, float hi, float x)
{
    const float t = Clamp((x - lo) / (hi - lo));
    return t * t * (3 - 2 * t);
}
// A soft hill: 1 at the centre, 0 at `width` and farther from it.
constexpr float Hill(float centre, float width, float x)
{
    return Smooth(width, 0, Abs(x - centre));
}

float Sqrt(float x);
float Length(Vector2 v);
Vector2 Normalised(Vector2 v); // (0, 0) stays
float Sin(float radians);
float Cos(float radians);
float Angle(Vector2 v); // -Pi to Pi, of (0, 0): 0
float Exp2(float x);
float Log2(float x);         // x above 0
float Pow(float x, float p); // 0 for x at or below 0
inline float Exp(float x)
{
    return Exp2(x * 1.44269504f);
}
// e to the power of -x * x: how light and soft edges fall off.
inline float Bell(float x)
{
    return Exp(-x * x);
}

// One sequence of random numbers.
class Dice
{
public:
    explicit Dice(uint32_t seed) : state(seed * 0x9E3779B97F4A7C15ull + 0x632BE59BD9B4E019ull) { Next(); }

    uint32_t Next();
    float Unit() { return float(Next() >> 8) * (1.0f / 16777216.0f); } // 0 up to, not including, 1
    float Range(float lo, float hi) { return lo + (hi - lo) * Unit(); }
    int Below(int n) { return int(Next() % uint32_t(n)); } // 0 to n - 1
    bool Chance(float p) { return Unit() < p; }
    float Bell()
    {
        return (Unit() + Unit() + Unit() + Unit() - 2) * 1.7320508f;
    } // mean 0, deviation 1, within 3.5

private:
    uint64_t state;
};

} // namespace atelier
