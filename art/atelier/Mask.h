// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Line.h"
#include "art/atelier/Noise.h"

#include <functional>
#include <vector>

// A sheet of amounts, one float per pixel, usually 0 (nothing) to 1 (full): where a shape lies, how much ink
// has flowed, how far it is to an edge. Shapes, pens and brushes fill masks; washes, inks and lights bring
// them onto a Canvas.
//
// A mask that wraps has no borders: what leaves it on one side comes in on the other, in every operation.
// That is how tiles are painted.

namespace atelier
{

class Mask
{
public:
    Mask(int width, int height, float amount = 0, bool wraps = false);

    int Width() const { return width; }
    int Height() const { return height; }
    bool Wraps() const { return wraps; }
    // No check: 0 <= x < Width(), 0 <= y < Height().
    float& At(int x, int y) { return values[size_t(y) * size_t(width) + size_t(x)]; }
    float At(int x, int y) const { return values[size_t(y) * size_t(width) + size_t(x)]; }
    // Between the pixels; outside a mask that does not wrap its border pixels go on.
    float Sample(float x, float y) const;

    // Each pixel becomes f(x, y) of its centre; By multiplies by it. With a step above 1, f is asked at every
    // step-th pixel only and drawn out between: much quicker for fields that change slowly.
    Mask& Each(const std::function<float(float x, float y)>& f, int step = 1);
    Mask& By(const std::function<float(float x, float y)>& f);

    // Shapes, with smooth edges. Fill raises to `amount`, Erase lowers towards 0.
    Mask& Fill(const Shape& shape, float amount = 1);
    Mask& Erase(const Shape& shape, float amount = 1);

    Mask& Blur(float radius); // the radius of the bell, in pixels
    Mask& Shake(float by, float wave,
                uint32_t seed);      // edges pushed about by up to `by` pixels in waves of `wave`
    Mask& Curve(float lo, float hi); // Smooth(lo, hi, value)
    Mask& Scale(float factor);
    Mask& Multiply(const Mask& other);
    Mask& Unite(const Mask& other);    // the greater of the two
    Mask& Screen(const Mask& other);   // 1 - (1 - a)(1 - b): layers of ink
    Mask& Subtract(const Mask& other); // a * (1 - b)
    Mask& FadeToBorder(float pixels);  // falls smoothly to exactly 0 on the outermost two pixels
    Mask Blurred(float radius) const { return Mask(*this).Blur(radius); }

    // Pixels to the nearest pixel below one half (Inside) or not below it (Outside); 0 on the other side. At
    // most `reach`, which is what is found where there is none.
    Mask Inside(float reach = 1e4f) const { return Distance(true, reach); }
    Mask Outside(float reach = 1e4f) const { return Distance(false, reach); }

private:
    Mask Distance(bool inside, float reach) const;

    int width, height;
    bool wraps;
    std::vector<float> values;
};

// A mask of one shape.
Mask Filled(int width, int height, const Shape& shape, bool wraps = false);

} // namespace atelier
