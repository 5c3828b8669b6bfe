// SPDX-License-Identifier: MIT
#include "art/atelier/Finish.h"

#include <algorithm>

namespace atelier
{

// A dither that looks like fine grain: interleaved gradient noise, -0.5 to 0.5.
static float Grain(int x, int y)
{
    const float inner = Fraction(0.06711056f * float(x) + 0.00583715f * float(y));
    return Fraction(52.9829189f * inner) - 0.5f;
}

static unsigned char Level(float screen, float grain)
{
    const float level = screen * 255;
    if (level <= 0.25f)
        return 0;
    return static_cast<unsigned char>(Clamp(float(Floor(level + 0.5f + grain * 0.9f)), 0, 255));
}

// Fills in what is transparent from what lies near it: halves the picture again and again, keeping colours
// weighted by alpha, then lets each finer picture fall back on the coarser one where it has no colour of its
// own.
static void BleedColour(Canvas& canvas)
{
    if (canvas.Width() <= 1 && canvas.Height() <= 1)
        return;
    const int width = std::max(1, (canvas.Width() + 1) / 2), height = std::max(1, (canvas.Height() + 1) / 2);
    Canvas coarse(width, height);
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++) {
            Pixel sum;
            for (int k = 0; k < 4; k++) {
                const int sx = std::min(2 * x + (k & 1), canvas.Width() - 1),
                          sy = std::min(2 * y + (k >> 1), canvas.Height() - 1);
                const Pixel& p = canvas.At(sx, sy);
                sum = {sum.r + p.r, sum.g + p.g, sum.b + p.b, sum.a + p.a};
            }
            // Colours count fully as soon as there is any.
            const float scale = sum.a > 0 ? Min(1, 4 * sum.a) / sum.a : 0;
            coarse.At(x, y) = {sum.r * scale, sum.g * scale, sum.b * scale, sum.a * scale};
        }
    BleedColour(coarse);
    for (int y = 0; y < canvas.Height(); y++)
        for (int x = 0; x < canvas.Width(); x++) {
            Pixel& p = canvas.At(x, y);
            const Pixel& under = coarse.At(x / 2, y / 2);
            const float rest = 1 - Min(p.a, 1);
            p = {p.r + under.r * rest, p.g + under.g * rest, p.b + under.b * rest, p.a + under.a * rest};
        }
}

Raster Finished(const Canvas& canvas, int channels)
{
    Raster raster{canvas.Width(), canvas.Height(), channels, {}};
    raster.bytes.reserve(size_t(canvas.Width()) * size_t(canvas.Height()) * size_t(channels));
    Canvas colours = canvas;
    if (channels == 4)
        BleedColour(colours);
    for (int y = 0; y < canvas.Height(); y++)
        for (int x = 0; x < canvas.Width(); x++) {
            const Pixel& p = colours.At(x, y);
            const float straight = channels == 4 && p.a > 0 ? 1 / p.a : 1;
            const float grain = Grain(x, y);
            raster.bytes.push_back(Level(ToScreen(Clamp(p.r * straight)), grain));
            raster.bytes.push_back(Level(ToScreen(Clamp(p.g * straight)), grain));
            raster.bytes.push_back(Level(ToScreen(Clamp(p.b * straight)), grain));
            if (channels == 4) {
                const float a = canvas.At(x, y).a;
                raster.bytes.push_back(a <= 0.001f ? 0 : a >= 0.999f ? 255 : Level(a, Grain(y + 37, x + 11)));
            }
        }
    return raster;
}

Canvas Channels(const Mask& red, const Mask& green, const Mask& blue)
{
    Canvas canvas(red.Width(), red.Height());
    for (int y = 0; y < red.Height(); y++)
        for (int x = 0; x < red.Width(); x++)
            canvas.At(x, y) = {FromScreen(Clamp(red.At(x, y))), FromScreen(Clamp(green.At(x, y))),
                               FromScreen(Clamp(blue.At(x, y))), 1};
    return canvas;
}

} // namespace atelier
