// SPDX-License-Identifier: MIT
#include "platform/dialogs/Pixmap.h"

#include <algorithm>
#include <cmath>

namespace platform
{

Tint MixTints(Tint from, Tint to, float way)
{
    const auto mix = [way](unsigned char a, unsigned char b) {
        return static_cast<unsigned char>(std::lround(float(a) + (float(b) - float(a)) * way));
    };
    return {mix(from.red, to.red), mix(from.green, to.green), mix(from.blue, to.blue)};
}

// How much of a pixel a shape covers whose edge is that far from the pixel's centre, negative inside.
static float Coverage(float distance)
{
    return std::clamp(0.5f - distance, 0.0f, 1.0f);
}

Pixmap::Pixmap(int pixelsAcross, int pixelsDown, Tint ground) : width(pixelsAcross), height(pixelsDown)
{
    pixels.reserve(size_t(width) * height * 3);
    for (int i = 0; i < width * height; ++i)
        pixels.insert(pixels.end(), {ground.red, ground.green, ground.blue});
}

void Pixmap::Blend(int x, int y, float coverage, Tint tint)
{
    if (coverage <= 0)
        return;
    unsigned char* pixel = &pixels[(size_t(y) * width + x) * 3];
    const Tint mixed = MixTints({pixel[0], pixel[1], pixel[2]}, tint, coverage);
    pixel[0] = mixed.red;
    pixel[1] = mixed.green;
    pixel[2] = mixed.blue;
}

void Pixmap::FillCircle(float centreX, float centreY, float radius, Tint tint)
{
    Line(centreX, centreY, centreX, centreY, radius * 2, tint);
}

void Pixmap::FillRoundRect(float left, float top, float rectWidth, float rectHeight, float radius, Tint tint)
{
    const float halfWidth = rectWidth / 2, halfHeight = rectHeight / 2;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            // Distance from the rectangle that is smaller by the radius all round, then grown by it.
            const float dx = std::fabs(float(x) + 0.5f - left - halfWidth) - (halfWidth - radius);
            const float dy = std::fabs(float(y) + 0.5f - top - halfHeight) - (halfHeight - radius);
            const float outside = std::hypot(std::max(dx, 0.0f), std::max(dy, 0.0f));
            const float inside = std::min(std::max(dx, dy), 0.0f);
            Blend(x, y, Coverage(outside + inside - radius), tint);
        }
}

void Pixmap::Line(float x0, float y0, float x1, float y1, float thickness, Tint tint)
{
    const float alongX = x1 - x0, alongY = y1 - y0;
    const float lengthSquared = alongX * alongX + alongY * alongY;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const float px = float(x) + 0.5f - x0, py = float(y) + 0.5f - y0;
            const float nearest =
                lengthSquared > 0 ? std::clamp((px * alongX + py * alongY) / lengthSquared, 0.0f, 1.0f) : 0;
            const float distance = std::hypot(px - nearest * alongX, py - nearest * alongY);
            Blend(x, y, Coverage(distance - thickness / 2), tint);
        }
}

} // namespace platform
