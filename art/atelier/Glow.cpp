// SPDX-License-Identifier: MIT
#include "art/atelier/Glow.h"

#include <algorithm>

namespace atelier
{

void GlowAt(Canvas& canvas, Vector2 place, float radius, float reach, const Light& light)
{
    const int left = std::max(0, Floor(place.x - reach)),
              right = std::min(canvas.Width() - 1, Floor(place.x + reach));
    const int top = std::max(0, Floor(place.y - reach)),
              bottom = std::min(canvas.Height() - 1, Floor(place.y + reach));
    for (int y = top; y <= bottom; y++)
        for (int x = left; x <= right; x++) {
            const float d = Length(Vector2{float(x) + 0.5f, float(y) + 0.5f} - place);
            const float core = Smooth(radius * 1.25f, radius * 0.75f, d);
            const float far = d / reach;
            const float near = d / Max(radius, 0.5f);
            const float halo = light.haloPart * Smooth(1, 0.2f, far) / (1 + 0.6f * near * near);
            const LinearColour c = (light.core * core + light.halo * halo) * light.strength;
            Pixel& p = canvas.At(x, y);
            p = {p.r + c.r, p.g + c.g, p.b + c.b, p.a};
        }
}

void GlowAlong(Canvas& canvas, const Mask& lines, float reach, const Light& light)
{
    canvas.Light(lines, light.core, light.strength);
    // Three bells, each wider and fainter, come close to how light falls off in fog.
    // clang-format off
    canvas.Light(lines.Blurred(reach * 0.06f), light.halo, light.strength * light.haloPart * 0.9f);
    canvas.Light(lines.Blurred(reach * 0.18f), light.halo, light.strength * light.haloPart * 0.9f);
    canvas.Light(lines.Blurred(reach * 0.45f), light.halo, light.strength * light.haloPart * 0.9f);
    // clang-format on
}

void DarkenBorder(Canvas& canvas, float pixels)
{
    const Mask border = Mask(canvas.Width(), canvas.Height(), 1).FadeToBorder(pixels);
    canvas.Tone(border, 0, 1);
}

} // namespace atelier
