// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Pen.h"

// Arms, fingers and sleeves in ink and wash: bodies that turn away from a light at their upper left.

namespace atelier
{

// Where the drawing of a hand lies on a canvas. The hand's own frame is upright, 1 unit a pixel of the hand's
// picture, y down, its origin the middle of the lower edge of the card that it holds.
struct Sight {
    Vector2 centre; // of the card
    float turn;     // radians, clockwise
    float scale;
    float cardHalf; // half the card's side in the hand's frame

    Vector2 operator()(Vector2 p) const;
    std::vector<Vector2> operator()(std::vector<Vector2> points) const;
    Vector2 Back(Vector2 place) const; // from the canvas to the hand's frame
    // On a part of the canvas that begins at `origin`.
    Sight From(Vector2 origin) const { return {centre - origin, turn, scale, cardHalf}; }
};

// A round body along a way, as thick as the radii say at the way's own points, with round ends.
Shape Sausage(const std::vector<Vector2>& points, const std::vector<float>& radii);

// The mask of a shape whose corners have melted by so many pixels.
Mask Melted(int width, int height, const Shape& shape, float melt);

struct Stuff {
    LinearColour light, shade;         // of the paint itself, and the pigment where it turns away
    float depth = 0.9f;                // density of the shade
    float hatch = 0.7f;                // strength of the pen's shading
    float contour = 1;                 // weight of the outline
    LinearColour back = palette::Mist; // of the light thrown back into the shadow
    float rim = 0.6f;                  // strength of the edge of light on the other side
    bool inkOver = false;              // the outline also covers the soft edge of the paint, else a light rim
};

// Paints a body. Where `open` (optional) is 1 it grows out of what is there: no outline, no paint of its own.
void PaintBody(Canvas& canvas, const Mask& body, const Stuff& stuff, float scale, uint32_t seed,
               const Mask* open = nullptr);

// Paints on a part of the canvas: `paint` is given a copy of what lies between two corners, and the corner
// that is its origin. Brushes and washes cost what their canvas measures, and most of what is painted is
// small.
void Within(Canvas& canvas, Vector2 from, Vector2 to,
            const std::function<void(Canvas& part, Vector2 origin)>& paint);
// The same for a part that holds these points with so much room about them.
void Around(Canvas& canvas, const std::vector<Vector2>& points, float room,
            const std::function<void(Canvas& part, Vector2 origin)>& paint);

// Pen strokes through these points, heavy at first and running out.
void Strokes(Pen& pen, const std::vector<std::vector<Vector2>>& strokes, Press press = {0.6f, 1, 0.3f});

} // namespace atelier
