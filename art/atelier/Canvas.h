// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Mask.h"
#include "art/atelier/Palette.h"

#include <functional>
#include <vector>

// A picture in the making: linear light with alpha, premultiplied, in floats. The picture is thought of as
// paper lit from behind, and there are three ways to change it:
//
//   Cover  opaque paint (gouache, ink): lies over what is there, raises alpha.
//   Glaze  transparent pigment: takes light away from what is there, alpha stays. Two glazes darken as two
//          washes do.
//   Light  light that is added, alpha stays.
//
// A picture with alpha starts from a clear canvas; or it is painted whole and cut out with CutOut.

namespace atelier
{

struct Pixel {
    float r = 0, g = 0, b = 0, a = 0; // premultiplied
};

class Canvas
{
public:
    Canvas(int width, int height);                      // clear
    Canvas(int width, int height, LinearColour ground); // opaque

    int Width() const { return width; }
    int Height() const { return height; }
    // No check: 0 <= x < Width(), 0 <= y < Height().
    Pixel& At(int x, int y) { return pixels[size_t(y) * size_t(width) + size_t(x)]; }
    const Pixel& At(int x, int y) const { return pixels[size_t(y) * size_t(width) + size_t(x)]; }

    // Masks have the size of the canvas. Amounts are clamped to 0..1 by Cover, not by Glaze and Light.
    Canvas& Ground(const std::function<LinearColour(float x, float y)>& f); // opaque, over the whole canvas
    Canvas& Cover(const Mask& mask, LinearColour colour, float opacity = 1);
    Canvas& Cover(const Mask& mask, const std::function<LinearColour(float x, float y)>& colour,
                  float opacity = 1);
    // One layer of density 1 over white paper gives `pigment` itself.
    Canvas& Glaze(const Mask& mask, LinearColour pigment, float density = 1);
    Canvas& Light(const Mask& mask, LinearColour colour, float strength = 1);
    Canvas& Tone(const Mask& mask, float lo, float hi); // light times Mix(lo, hi, mask), alpha stays

    // Another canvas laid over this one, its top left corner at (x, y).
    Canvas& Lay(const Canvas& over, int x, int y, float opacity = 1);
    Canvas& CutOut(const Mask& mask); // alpha and light times the mask

    Canvas Crop(int left, int top, int cropWidth, int cropHeight) const; // what lies outside is clear
    Mask Alpha() const;
    Mask Brightness() const; // luminance of the light, 0 to 1 and above

private:
    int width, height;
    std::vector<Pixel> pixels;
};

// The canvas in another size: each new pixel is the mean of the area that it covers (Squeezed shrinks; in a
// direction that grows it is a soft enlargement).
Canvas Squeezed(const Canvas& canvas, int width, int height);

// The canvas turned by `radians` and scaled about its point `pivot`, which goes to `place` on a clear canvas
// of the given size. Smooth; do not shrink to less than half.
Canvas Placed(const Canvas& canvas, Vector2 pivot, float radians, float scale, int width, int height,
              Vector2 place);

} // namespace atelier
