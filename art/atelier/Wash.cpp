// SPDX-License-Identifier: MIT
#include "art/atelier/Wash.h"

#include <algorithm>

namespace atelier
{

static int Period(const Mask& mask, int extent, float size)
{
    return mask.Wraps() ? std::max(1, Floor(float(extent) / size + 0.5f)) : 0;
}

Mask WashDensity(const Paper& paper, const Mask& shape, const WashStyle& style, uint32_t seed,
                 const Mask* wet)
{
    const int width = shape.Width(), height = shape.Height();
    Mask body = shape;
    if (style.stray > 0)
        body.Shake(style.stray, 38, seed).Shake(style.stray * 0.2f, 9, seed + 1);

    const int periodX = Period(shape, width, style.bloomSize),
              periodY = Period(shape, height, style.bloomSize);
    const float sx = periodX > 0 ? float(periodX) / float(width) : 1 / style.bloomSize;
    const float sy = periodY > 0 ? float(periodY) / float(height) : 1 / style.bloomSize;
    const Noise blooms(seed + 2, periodX, periodY), shores(seed + 3, periodX, periodY);

    Mask pool = style.pool > 0 ? body.Inside(style.poolWidth * 5) : Mask(1, 1);
    Mask soft(1, 1);
    const bool runs = style.bleed > 0;
    if (runs) {
        soft = body;
        soft.Shake(style.bleed * 0.9f, style.bleed * 2.5f, seed + 4).Blur(style.bleed * 0.5f);
    }

    // The slow fields, each asked for only now and then: how unevenly the wash dries, and where its edge is
    // wet.
    const int step = std::clamp(Floor(style.bloomSize / 32), 1, 4);
    Mask drying(1, 1), wetness(1, 1);
    if (style.bloom > 0)
        drying =
            Mask(width, height)
                .Each(
                    [&](float x, float y) {
                        const Vector2 p = blooms.Warp(x * sx, y * sy, 0.5f, 3);
                        // Backruns: where a wet front stopped, a thin dark shore.
                        const float front = shores.Fbm(p.x + 5, p.y, 3);
                        return style.bloom * (blooms.Fbm(p.x, p.y, 4) + 0.35f * Hill(0.12f, 0.05f, front) -
                                              0.2f * Smooth(0.12f, 0.4f, front));
                    },
                    step);
    if (runs && wet == nullptr)
        wetness =
            Mask(width, height)
                .Each(
                    [&](float x, float y) {
                        return Smooth(-0.15f, 0.15f,
                                      shores.Fbm(x * sx * 2, y * sy * 2, 2) + (style.wetness - 0.5f) * 1.4f);
                    },
                    step);

    Mask density(width, height, 0, shape.Wraps());
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++) {
            float amount = body.At(x, y);
            const float running = !runs ? 0 : wet != nullptr ? wet->At(x, y) : wetness.At(x, y);
            if (runs)
                amount = Mix(amount, soft.At(x, y), running);
            if (amount <= 0.002f)
                continue;
            float dried = 1;
            if (style.bloom > 0)
                dried += drying.At(x, y);
            if (style.pool > 0) {
                const float in = pool.At(x, y);
                const float shore = Exp(-in / style.poolWidth) + 0.6f * Hill(1.6f, 2.2f, in);
                if (shore > 0.01f) {
                    const float fx = (float(x) + 0.5f) * sx, fy = (float(y) + 0.5f) * sy;
                    dried += style.pool * shore * (1 - running) *
                             (0.65f + 0.7f * shores.Value(fx * 3 + 0.5f, fy * 3));
                }
            }
            dried += style.granulation * (0.5f - paper.Height(x, y)) * 1.3f;
            density.At(x, y) = amount * Max(dried, 0.05f);
        }
    return density;
}

void Wash(Canvas& canvas, const Paper& paper, const Mask& shape, const WashStyle& style, uint32_t seed,
          const Mask* wet)
{
    canvas.Glaze(WashDensity(paper, shape, style, seed, wet), style.pigment, style.density);
}

} // namespace atelier
