// SPDX-License-Identifier: MIT
#include "art/atelier/Canvas.h"

#include <algorithm>

namespace atelier
{

static Pixel Over(const Pixel& under, float r, float g, float b, float a)
{
    const float rest = 1 - a;
    return {r + under.r * rest, g + under.g * rest, b + under.b * rest, a + under.a * rest};
}

static Pixel operator*(const Pixel& p, float s)
{
    return {p.r * s, p.g * s, p.b * s, p.a * s};
}
static Pixel operator+(const Pixel& p, const Pixel& q)
{
    return {p.r + q.r, p.g + q.g, p.b + q.b, p.a + q.a};
}

// For each new index the old range that it covers, with the weights of the old pixels.
struct Reach {
    int first;
    std::vector<float> weights;
};

static std::vector<Reach> Reaches(int from, int to)
{
    const float scale = float(from) / float(to);
    const float half = Max(scale, 1) / 2;
    std::vector<Reach> reaches;
    for (int i = 0; i < to; i++) {
        const float centre = (float(i) + 0.5f) * scale;
        const float lo = centre - half, hi = centre + half;
        Reach reach{std::clamp(Floor(lo), 0, from - 1), {}};
        float sum = 0;
        for (int k = reach.first; k < from && float(k) < hi; k++) {
            const float part = Min(hi, float(k + 1)) - Max(lo, float(k));
            reach.weights.push_back(Max(part, 0));
            sum += reach.weights.back();
        }
        for (float& weight : reach.weights)
            weight /= sum;
        reaches.push_back(reach);
    }
    return reaches;
}

Canvas::Canvas(int widthGiven, int heightGiven)
    : width(widthGiven), height(heightGiven), pixels(size_t(widthGiven) * size_t(heightGiven))
{
}

Canvas::Canvas(int widthGiven, int heightGiven, LinearColour ground) : Canvas(widthGiven, heightGiven)
{
    std::fill(pixels.begin(), pixels.end(), Pixel{ground.r, ground.g, ground.b, 1});
}

Canvas& Canvas::Ground(const std::function<LinearColour(float x, float y)>& f)
{
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++) {
            const LinearColour c = f(float(x) + 0.5f, float(y) + 0.5f);
            At(x, y) = {c.r, c.g, c.b, 1};
        }
    return *this;
}

Canvas& Canvas::Cover(const Mask& mask, LinearColour colour, float opacity)
{
    return Cover(
        mask, [colour](float, float) { return colour; }, opacity);
}

Canvas& Canvas::Cover(const Mask& mask, const std::function<LinearColour(float x, float y)>& colour,
                      float opacity)
{
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++) {
            const float a = Clamp(mask.At(x, y) * opacity);
            if (a > 0) {
                const LinearColour c = colour(float(x) + 0.5f, float(y) + 0.5f);
                At(x, y) = Over(At(x, y), c.r * a, c.g * a, c.b * a, a);
            }
        }
    return *this;
}

Canvas& Canvas::Glaze(const Mask& mask, LinearColour pigment, float density)
{
    const float r = Log2(Max(pigment.r, 1e-4f)), g = Log2(Max(pigment.g, 1e-4f)),
                b = Log2(Max(pigment.b, 1e-4f));
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++) {
            const float layers = mask.At(x, y) * density;
            if (layers != 0) {
                Pixel& p = At(x, y);
                p.r *= Exp2(r * layers);
                p.g *= Exp2(g * layers);
                p.b *= Exp2(b * layers);
            }
        }
    return *this;
}

Canvas& Canvas::Light(const Mask& mask, LinearColour colour, float strength)
{
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++) {
            const float amount = mask.At(x, y) * strength;
            if (amount != 0) {
                Pixel& p = At(x, y);
                p.r += colour.r * amount;
                p.g += colour.g * amount;
                p.b += colour.b * amount;
            }
        }
    return *this;
}

Canvas& Canvas::Tone(const Mask& mask, float lo, float hi)
{
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++) {
            const float factor = Mix(lo, hi, mask.At(x, y));
            Pixel& p = At(x, y);
            p = {p.r * factor, p.g * factor, p.b * factor, p.a};
        }
    return *this;
}

Canvas& Canvas::Lay(const Canvas& over, int left, int top, float opacity)
{
    for (int y = std::max(0, -top); y < std::min(over.height, height - top); y++)
        for (int x = std::max(0, -left); x < std::min(over.width, width - left); x++) {
            const Pixel p = over.At(x, y) * opacity;
            At(left + x, top + y) = Over(At(left + x, top + y), p.r, p.g, p.b, p.a);
        }
    return *this;
}

Canvas& Canvas::CutOut(const Mask& mask)
{
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++)
            At(x, y) = At(x, y) * Clamp(mask.At(x, y));
    return *this;
}

Canvas Canvas::Crop(int left, int top, int cropWidth, int cropHeight) const
{
    Canvas result(cropWidth, cropHeight);
    for (int y = std::max(0, -top); y < std::min(cropHeight, height - top); y++)
        for (int x = std::max(0, -left); x < std::min(cropWidth, width - left); x++)
            result.At(x, y) = At(left + x, top + y);
    return result;
}

Mask Canvas::Alpha() const
{
    Mask mask(width, height);
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++)
            mask.At(x, y) = At(x, y).a;
    return mask;
}

Mask Canvas::Brightness() const
{
    Mask mask(width, height);
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++) {
            const Pixel& p = At(x, y);
            mask.At(x, y) = 0.2126f * p.r + 0.7152f * p.g + 0.0722f * p.b;
        }
    return mask;
}

Canvas Squeezed(const Canvas& canvas, int width, int height)
{
    const std::vector<Reach> columns = Reaches(canvas.Width(), width),
                             rows = Reaches(canvas.Height(), height);
    Canvas narrow(width, canvas.Height()), result(width, height);
    for (int y = 0; y < canvas.Height(); y++)
        for (int x = 0; x < width; x++) {
            const Reach& reach = columns[size_t(x)];
            Pixel sum;
            for (size_t k = 0; k < reach.weights.size(); k++)
                sum = sum + canvas.At(reach.first + int(k), y) * reach.weights[k];
            narrow.At(x, y) = sum;
        }
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++) {
            const Reach& reach = rows[size_t(y)];
            Pixel sum;
            for (size_t k = 0; k < reach.weights.size(); k++)
                sum = sum + narrow.At(x, reach.first + int(k)) * reach.weights[k];
            result.At(x, y) = sum;
        }
    return result;
}

Canvas Placed(const Canvas& canvas, Vector2 pivot, float radians, float scale, int width, int height,
              Vector2 place)
{
    Canvas result(width, height);
    const float c = Cos(radians) / scale, s = Sin(radians) / scale;
    const auto at = [&](int x, int y) {
        return x < 0 || y < 0 || x >= canvas.Width() || y >= canvas.Height() ? Pixel{} : canvas.At(x, y);
    };
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++) {
            const Vector2 d = Vector2{float(x) + 0.5f, float(y) + 0.5f} - place;
            const Vector2 from = pivot + Vector2{c * d.x + s * d.y, c * d.y - s * d.x} - Vector2{0.5f, 0.5f};
            const int ix = Floor(from.x), iy = Floor(from.y);
            const float u = from.x - float(ix), v = from.y - float(iy);
            result.At(x, y) = (at(ix, iy) * (1 - u) + at(ix + 1, iy) * u) * (1 - v) +
                              (at(ix, iy + 1) * (1 - u) + at(ix + 1, iy + 1) * u) * v;
        }
    return result;
}

} // namespace atelier
