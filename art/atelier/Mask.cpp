// SPDX-License-Identifier: MIT
#include "art/atelier/Mask.h"

#include <algorithm>

namespace atelier
{

// The coverage of one closed outline over a box of pixels, by signed areas: each edge adds what it cuts from
// the pixels of its rows, and a sum along the row turns that into coverage.
class Coverage
{
public:
    Coverage(int leftOfBox, int topOfBox, int widthOfBox, int heightOfBox)
        : left(leftOfBox), top(topOfBox), width(widthOfBox), height(heightOfBox),
          areas(size_t(widthOfBox + 2) * size_t(heightOfBox), 0.0f)
    {
    }

    void Edge(Vector2 a, Vector2 b)
    {
        a = a - Vector2{float(left), float(top)};
        b = b - Vector2{float(left), float(top)};
        const float sign = a.y < b.y ? 1.0f : -1.0f;
        if (sign < 0)
            std::swap(a, b);
        if (b.y - a.y < 1e-7f)
            return;
        const float slope = (b.x - a.x) / (b.y - a.y);
        const int first = std::max(0, Floor(a.y)), last = std::min(height - 1, Floor(b.y));
        for (int row = first; row <= last; row++) {
            const float y0 = Max(a.y, float(row)), y1 = Min(b.y, float(row + 1));
            if (y1 > y0)
                Cut(row, a.x + (y0 - a.y) * slope, a.x + (y1 - a.y) * slope, (y1 - y0) * sign);
        }
    }

    float* Row(int row) { return &areas[size_t(width + 2) * size_t(row)]; }

private:
    // An edge piece within one row, from x0 to x1, over a height of dy.
    void Cut(int row, float x0, float x1, float dy)
    {
        const float end = float(width);
        x0 = Clamp(x0, 0, end);
        x1 = Clamp(x1, 0, end);
        if (x1 < x0)
            std::swap(x0, x1);
        float* cells = Row(row);
        const int first = Floor(x0), last = Floor(x1);
        if (first == last) {
            const float mean = (x0 + x1) / 2 - float(first);
            cells[first] += dy * (1 - mean);
            cells[first + 1] += dy * mean;
            return;
        }
        const float perPixel = dy / (x1 - x0);
        for (int i = first; i <= last; i++) {
            const float from = Max(x0, float(i)), to = Min(x1, float(i + 1));
            const float part = (to - from) * perPixel;
            const float mean = (from + to) / 2 - float(i);
            cells[i] += part * (1 - mean);
            cells[i + 1] += part * mean;
        }
    }

    int left, top, width, height;
    std::vector<float> areas;
};

// One pass of a running mean along a line of n values that lie `step` apart. Three passes make a bell.
static void RunningMean(float* line, size_t step, int n, int half, bool wraps, std::vector<float>& copy)
{
    copy.resize(size_t(n));
    for (int i = 0; i < n; i++)
        copy[size_t(i)] = line[size_t(i) * step];
    const auto at = [&](int i) { return copy[size_t(wraps ? Wrap(i, n) : std::clamp(i, 0, n - 1))]; };
    double sum = 0;
    for (int i = -half; i <= half; i++)
        sum += at(i);
    const double part = 1.0 / (2 * half + 1);
    for (int i = 0; i < n; i++) {
        line[size_t(i) * step] = float(sum * part);
        sum += at(i + half + 1) - at(i - half);
    }
}

// Squared distances along one line: the lower envelope of parabolas standing on the values f.
static void Envelope(const std::vector<float>& f, std::vector<float>& d, int n, std::vector<int>& v,
                     std::vector<float>& z)
{
    int k = 0;
    v[0] = 0;
    z[0] = -1e20f;
    z[1] = 1e20f;
    const auto meet = [&](int q, int p) {
        const float fq = float(q), fp = float(p);
        return ((f[size_t(q)] + fq * fq) - (f[size_t(p)] + fp * fp)) / (2 * fq - 2 * fp);
    };
    for (int q = 1; q < n; q++) {
        float s = meet(q, v[size_t(k)]);
        while (k > 0 && s <= z[size_t(k)]) {
            --k;
            s = meet(q, v[size_t(k)]);
        }
        if (s <= z[size_t(k)]) {
            v[size_t(k)] = q;
            z[size_t(k) + 1] = 1e20f;
            continue;
        }
        k++;
        v[size_t(k)] = q;
        z[size_t(k)] = s;
        z[size_t(k) + 1] = 1e20f;
    }
    k = 0;
    for (int q = 0; q < n; q++) {
        while (z[size_t(k) + 1] < float(q))
            k++;
        const float way = float(q - v[size_t(k)]);
        d[size_t(q)] = way * way + f[size_t(v[size_t(k)])];
    }
}

Mask::Mask(int widthGiven, int heightGiven, float amount, bool wrapsGiven)
    : width(widthGiven), height(heightGiven), wraps(wrapsGiven),
      values(size_t(widthGiven) * size_t(heightGiven), amount)
{
}

float Mask::Sample(float x, float y) const
{
    x -= 0.5f;
    y -= 0.5f;
    int x0 = Floor(x), y0 = Floor(y);
    const float u = x - float(x0), v = y - float(y0);
    int x1 = x0 + 1, y1 = y0 + 1;
    if (wraps) {
        x0 = Wrap(x0, width);
        x1 = Wrap(x1, width);
        y0 = Wrap(y0, height);
        y1 = Wrap(y1, height);
    } else {
        x0 = std::clamp(x0, 0, width - 1);
        x1 = std::clamp(x1, 0, width - 1);
        y0 = std::clamp(y0, 0, height - 1);
        y1 = std::clamp(y1, 0, height - 1);
    }
    return Mix(Mix(At(x0, y0), At(x1, y0), u), Mix(At(x0, y1), At(x1, y1), u), v);
}

Mask& Mask::Each(const std::function<float(float x, float y)>& f, int step)
{
    if (step <= 1) {
        for (int y = 0; y < height; y++)
            for (int x = 0; x < width; x++)
                At(x, y) = f(float(x) + 0.5f, float(y) + 0.5f);
        return *this;
    }
    // Knots at every step-th pixel and one row and column beyond the last.
    const int columns = (width - 1) / step + 2, rows = (height - 1) / step + 2;
    std::vector<float> upper(static_cast<size_t>(columns)), lower(upper);
    const auto ask = [&](int row, std::vector<float>& knots) {
        for (int i = 0; i < columns; i++)
            knots[size_t(i)] = f(float(i * step) + 0.5f, float(row * step) + 0.5f);
    };
    ask(0, lower);
    for (int row = 0; row + 1 < rows; row++) {
        std::swap(upper, lower);
        ask(row + 1, lower);
        for (int y = row * step; y < std::min((row + 1) * step, height); y++) {
            const float v = float(y - row * step) / float(step);
            for (int x = 0; x < width; x++) {
                const size_t i = size_t(x / step);
                const float u = float(x % step) / float(step);
                At(x, y) = Mix(Mix(upper[i], upper[i + 1], u), Mix(lower[i], lower[i + 1], u), v);
            }
        }
    }
    return *this;
}

Mask& Mask::By(const std::function<float(float x, float y)>& f)
{
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++)
            if (At(x, y) != 0)
                At(x, y) *= f(float(x) + 0.5f, float(y) + 0.5f);
    return *this;
}

Mask& Mask::Fill(const Shape& shape, float amount)
{
    for (const Line& outline : shape.outlines) {
        if (outline.size() < 3)
            continue;
        Vector2 lo = outline[0], hi = outline[0];
        for (const Vector2& p : outline) {
            lo = {Min(lo.x, p.x), Min(lo.y, p.y)};
            hi = {Max(hi.x, p.x), Max(hi.y, p.y)};
        }
        // Outlines that wrap may lie a whole width outside; others are clipped to the sheet.
        int left = Floor(lo.x), top = Floor(lo.y), right = Floor(hi.x) + 1, bottom = Floor(hi.y) + 1;
        if (!wraps) {
            left = std::clamp(left, 0, width);
            top = std::clamp(top, 0, height);
            right = std::clamp(right, 0, width);
            bottom = std::clamp(bottom, 0, height);
        }
        if (right <= left || bottom <= top)
            continue;
        Coverage coverage(left, top, right - left, bottom - top);
        for (size_t i = 0; i < outline.size(); i++)
            coverage.Edge(outline[i], outline[(i + 1) % outline.size()]);
        for (int y = top; y < bottom; y++) {
            const float* areas = coverage.Row(y - top);
            float sum = 0;
            const int row = wraps ? Wrap(y, height) : y;
            for (int x = left; x < right; x++) {
                sum += areas[x - left];
                float& value = At(wraps ? Wrap(x, width) : x, row);
                value = Max(value, amount * Min(Abs(sum), 1));
            }
        }
    }
    return *this;
}

Mask& Mask::Erase(const Shape& shape, float amount)
{
    return Subtract(Filled(width, height, shape, wraps).Scale(amount));
}

Mask& Mask::Blur(float radius)
{
    if (radius < 0.3f)
        return *this;
    // Three boxes of these half widths have together the deviation of a bell of this radius.
    const float ideal = Sqrt(4 * radius * radius + 1);
    const int small = std::max(0, (Floor(ideal) - 1) / 2);
    const int large = small + 1;
    const float smallVariance = float((2 * small + 1) * (2 * small + 1) - 1) / 12;
    const float largeVariance = float((2 * large + 1) * (2 * large + 1) - 1) / 12;
    const float wanted = radius * radius;
    const int ofLarge =
        std::clamp(Floor((wanted - 3 * smallVariance) / (largeVariance - smallVariance) + 0.5f), 0, 3);
    std::vector<float> copy;
    for (int pass = 0; pass < 3; pass++) {
        const int half = pass < ofLarge ? large : small;
        if (half == 0)
            continue;
        for (int y = 0; y < height; y++)
            RunningMean(&At(0, y), 1, width, half, wraps, copy);
    }
    // Columns in bundles of sixteen, so that a pass reads whole cache lines.
    constexpr int Bundle = 16;
    std::vector<float> bundle(static_cast<size_t>(Bundle) * static_cast<size_t>(height));
    for (int x = 0; x < width; x += Bundle) {
        const int n = std::min(Bundle, width - x);
        for (int y = 0; y < height; y++)
            for (int i = 0; i < n; i++)
                bundle[size_t(i) * size_t(height) + size_t(y)] = At(x + i, y);
        for (int i = 0; i < n; i++)
            for (int pass = 0; pass < 3; pass++) {
                const int half = pass < ofLarge ? large : small;
                if (half > 0)
                    RunningMean(&bundle[size_t(i) * size_t(height)], 1, height, half, wraps, copy);
            }
        for (int y = 0; y < height; y++)
            for (int i = 0; i < n; i++)
                At(x + i, y) = bundle[size_t(i) * size_t(height) + size_t(y)];
    }
    return *this;
}

Mask& Mask::Shake(float by, float wave, uint32_t seed)
{
    const int periodX = wraps ? std::max(1, Floor(float(width) / wave + 0.5f)) : 0;
    const int periodY = wraps ? std::max(1, Floor(float(height) / wave + 0.5f)) : 0;
    const Noise noise(seed, periodX, periodY), other(seed + 0x5bd1e995u, periodX, periodY);
    const float sx = wraps ? float(periodX) / float(width) : 1 / wave;
    const float sy = wraps ? float(periodY) / float(height) : 1 / wave;
    const int step = std::clamp(Floor(wave / 5), 1, 4);
    const Mask before = *this;
    const Mask dx =
        Mask(width, height).Each([&](float x, float y) { return noise.Fbm(x * sx, y * sy, 3); }, step);
    const Mask dy =
        Mask(width, height).Each([&](float x, float y) { return other.Fbm(x * sx, y * sy, 3); }, step);
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++)
            At(x, y) = before.Sample(float(x) + 0.5f + by * dx.At(x, y), float(y) + 0.5f + by * dy.At(x, y));
    return *this;
}

Mask& Mask::Curve(float lo, float hi)
{
    for (float& value : values)
        value = Smooth(lo, hi, value);
    return *this;
}

Mask& Mask::Scale(float factor)
{
    for (float& value : values)
        value *= factor;
    return *this;
}

Mask& Mask::Multiply(const Mask& other)
{
    for (size_t i = 0; i < values.size(); i++)
        values[i] *= other.values[i];
    return *this;
}

Mask& Mask::Unite(const Mask& other)
{
    for (size_t i = 0; i < values.size(); i++)
        values[i] = Max(values[i], other.values[i]);
    return *this;
}

Mask& Mask::Screen(const Mask& other)
{
    for (size_t i = 0; i < values.size(); i++)
        values[i] = 1 - (1 - values[i]) * (1 - other.values[i]);
    return *this;
}

Mask& Mask::Subtract(const Mask& other)
{
    for (size_t i = 0; i < values.size(); i++)
        values[i] *= 1 - other.values[i];
    return *this;
}

Mask& Mask::FadeToBorder(float pixels)
{
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++) {
            const float fx = float(std::min(x, width - 1 - x)) - 1;
            const float fy = float(std::min(y, height - 1 - y)) - 1;
            At(x, y) *= Smooth(0, pixels, fx) * Smooth(0, pixels, fy);
        }
    return *this;
}

Mask Mask::Distance(bool inside, float reach) const
{
    Mask result(width, height, 0, wraps);
    const int margin = wraps ? std::min(std::max(width, height), int(Min(reach, 4096))) : 0;
    const int n = std::max(width, height) + 2 * margin;
    std::vector<float> f(static_cast<size_t>(n)), d(static_cast<size_t>(n)), z(static_cast<size_t>(n) + 1);
    std::vector<int> v(static_cast<size_t>(n));
    const float far = reach * reach;
    for (size_t i = 0; i < values.size(); i++)
        result.values[i] = (values[i] >= 0.5f) == inside ? far : 0;
    for (int x = 0; x < width; x++) {
        const int count = height + 2 * margin;
        for (int i = 0; i < count; i++)
            f[size_t(i)] = result.At(x, Wrap(i - margin, height));
        Envelope(f, d, count, v, z);
        for (int y = 0; y < height; y++)
            result.At(x, y) = Min(d[size_t(y) + size_t(margin)], far);
    }
    for (int y = 0; y < height; y++) {
        const int count = width + 2 * margin;
        for (int i = 0; i < count; i++)
            f[size_t(i)] = result.At(Wrap(i - margin, width), y);
        Envelope(f, d, count, v, z);
        for (int x = 0; x < width; x++)
            result.At(x, y) = Sqrt(Min(d[size_t(x) + size_t(margin)], far));
    }
    return result;
}

Mask Filled(int width, int height, const Shape& shape, bool wraps)
{
    Mask mask(width, height, 0, wraps);
    mask.Fill(shape);
    return mask;
}

} // namespace atelier
