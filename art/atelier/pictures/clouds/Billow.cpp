// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/clouds/Billow.h"

#include "art/atelier/Pen.h"

#include <algorithm>

namespace atelier
{

// Its pigment has dried darker along the edge, and the pen has gone round its head, lifting now and then.
void PaintBillow(Canvas& canvas, const Noise& noise, const Billow& billow, Vector2 moon,
                 const CloudTones& tones)
{
    const auto& [centre, rx, ry, light, haze, nib] = billow;
    const Paper& paper = SketchPaper();
    const Vector2 toMoon = Normalised(moon - centre);
    const int left = std::max(0, Floor(centre.x - rx * 1.4f)),
              right = std::min(canvas.Width() - 1, Floor(centre.x + rx * 1.4f));
    const int top = std::max(0, Floor(centre.y - ry * 1.4f)),
              bottom = std::min(canvas.Height() - 1, Floor(centre.y + ry * 1.4f));
    for (int y = top; y <= bottom; y++)
        for (int x = left; x <= right; x++) {
            const float fx = float(x), fy = float(y);
            const Vector2 n = {(fx - centre.x) / rx, (fy - centre.y) / ry};
            const float curl = noise.Fbm(fx / rx * 1.9f, fy / ry * 1.9f, 4);
            const float d = Length(n) + 0.3f * curl;
            const float cover = Smooth(1.02f, 0.86f, d) * Smooth(1.0f, 0.1f, n.y);
            if (cover <= 0)
                continue;
            const float facing = Dot(n, toMoon) + 0.35f * curl;
            const float rim = Smooth(0.35f, 1.0f, facing);
            LinearColour c = Mix(tones.shade, tones.body, Smooth(-0.6f, 0.6f, facing));
            c = Mix(c, tones.lit, Clamp(rim * light));
            c = Mix(c, tones.horizon, haze);
            const float dried = Smooth(0.62f, 0.97f, d) * (1 - 0.8f * rim) +
                                0.9f * noise.Fbm(fx / 46 + 31, fy / 30, 4) +
                                0.9f * (0.5f - paper.Height(x, y));
            c = c * (1 - 0.22f * dried);
            const float lifted = noise.Fbm(fx / (rx * 0.55f) + 7, fy / (rx * 0.55f), 2);
            const float line = Hill(0.95f, nib * (1 + 0.7f * lifted) / ry, d) * Smooth(0.35f, -0.25f, n.y) *
                               Smooth(-0.12f, 0.12f, lifted + 0.25f * n.x);
            c = Mix(c, tones.zenith, 0.85f * line * (1 - haze));
            Pixel& p = canvas.At(x, y);
            p = {Mix(p.r, c.r, cover), Mix(p.g, c.g, cover), Mix(p.b, c.b, cover), Mix(p.a, 1, cover)};
        }
}

} // namespace atelier
