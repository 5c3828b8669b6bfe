// SPDX-License-Identifier: MIT
#include "art/atelier/Paper.h"

#include <algorithm>

namespace atelier
{

// Pixels per bump of the tooth and per speck of the grain, and how much each counts for the height.
constexpr int ToothPixels = 8, GrainPixels = 2, CloudPixels = 128;
constexpr float ToothPart = 0.55f, GrainPart = 0.34f, FibrePart = 0.30f;
constexpr int FibresPerMegapixel = 2600;

// A fibre: a short bent hair lying in the pulp, a little higher (or, pressed in, lower) than its
// surroundings.
static void LayFibres(Mask& sheet, int count, Dice& dice)
{
    for (int i = 0; i < count; i++) {
        Vector2 place = {dice.Range(0, float(sheet.Width())), dice.Range(0, float(sheet.Height()))};
        float heading = dice.Range(0, 2 * Pi);
        const float bend = dice.Range(-0.06f, 0.06f), sign = dice.Chance(0.55f) ? 1.0f : -1.0f;
        const int length = 8 + dice.Below(34);
        for (int step = 0; step < length; step++) {
            const float swell = Sin(Pi * float(step) / float(length));
            sheet.At(Wrap(Floor(place.x), sheet.Width()), Wrap(Floor(place.y), sheet.Height())) +=
                sign * swell;
            place = place + Vector2{Cos(heading), Sin(heading)};
            heading += bend + dice.Range(-0.08f, 0.08f);
        }
    }
}

Paper::Paper(int periodGiven, uint32_t seed) : period(periodGiven)
{
    const Noise tooth(seed, period / ToothPixels, period / ToothPixels);
    const Noise grain(seed + 1, period / GrainPixels, period / GrainPixels);
    const Noise clouds(seed + 2, std::max(1, period / CloudPixels), std::max(1, period / CloudPixels));
    Dice dice(seed + 3);
    Mask fibres(period, period, 0, true);
    LayFibres(fibres, FibresPerMegapixel * (period * period / 1024) / 1024, dice);
    fibres.Blur(0.6f);
    heights.resize(size_t(period) * size_t(period));
    ages.resize(heights.size());
    for (int y = 0; y < period; y++)
        for (int x = 0; x < period; x++) {
            const float fx = float(x) + 0.5f, fy = float(y) + 0.5f;
            const float bumps = tooth.Fbm(fx / ToothPixels, fy / ToothPixels, 3, 0.8f);
            const float specks = grain.Gradient(fx / GrainPixels, fy / GrainPixels);
            const size_t i = size_t(y) * size_t(period) + size_t(x);
            heights[i] =
                Clamp(0.5f + 0.5f * (ToothPart * bumps + GrainPart * specks + FibrePart * fibres.At(x, y)));
            ages[i] = Clamp(clouds.Fbm(fx / CloudPixels, fy / CloudPixels, 4), -1, 1);
        }
}

float Paper::Age(int x, int y) const
{
    return ages[size_t(y & (period - 1)) * size_t(period) + size_t(x & (period - 1))];
}

void Paper::Sheet(Canvas& canvas, LinearColour tint, float contrast) const
{
    // Old paper is warmer and darker.
    const LinearColour old = tint * LinearColour{0.94f, 0.86f, 0.72f};
    for (int y = 0; y < canvas.Height(); y++)
        for (int x = 0; x < canvas.Width(); x++) {
            const float age = Clamp(0.35f + 0.5f * Age(x, y)) * contrast;
            const float light = 1 + 0.22f * contrast * (Height(x, y) - 0.5f);
            const LinearColour c = Mix(tint, old, age) * light;
            canvas.At(x, y) = {c.r, c.g, c.b, 1};
        }
}

void Paper::Show(Canvas& canvas, float strength) const
{
    for (int y = 0; y < canvas.Height(); y++)
        for (int x = 0; x < canvas.Width(); x++) {
            const float light = 1 + strength * (0.55f * (Height(x, y) - 0.5f) + 0.05f * Age(x, y));
            Pixel& p = canvas.At(x, y);
            p = {p.r * light, p.g * light, p.b * light, p.a};
        }
}

const Paper& SketchPaper(int period)
{
    // clang-format off
    static const Paper sheet128(128, 71), sheet256(256, 72), sheet512(512, 73), sheet1024(1024, 74);
    // clang-format on
    return period >= 1024 ? sheet1024 : period >= 512 ? sheet512 : period >= 256 ? sheet256 : sheet128;
}

} // namespace atelier
