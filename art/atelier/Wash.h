// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Paper.h"

// A wash of watercolour over a shape: the edge is not quite where the brush drew it, pigment pools along it
// and dries darker, settles in the hollows of the paper, gathers in blooms, and runs where the paper next to
// it is wet.
//
//     const Mask hill = Filled(1024, 512, outline);
//     Wash(canvas, SketchPaper(), hill, {.pigment = palette::Slate, .density = 0.9f}, 5);

namespace atelier
{

struct WashStyle {
    LinearColour pigment = palette::Slate;
    float density = 0.8f;     // 1: bone paper takes the pigment's own colour
    float pool = 0.55f;       // how much darker the edge dries
    float poolWidth = 5;      // pixels
    float granulation = 0.5f; // how much the tooth of the paper shows
    float bloom = 0.45f;      // how unevenly the wash dries
    float bloomSize = 130;    // pixels
    float stray = 4;          // pixels by which the edge strays
    float bleed = 0;          // pixels by which it runs over a wet edge; 0: all edges are dry
    float wetness = 0.5f;     // part of the edge that is wet, if no mask of wet paper is given
};

// The density of the wash over the sheet, without the pigment: for opacity, light, or several pigments at
// once. Where `wet` (optional) is near 1 the edge bleeds.
Mask WashDensity(const Paper& paper, const Mask& shape, const WashStyle& style, uint32_t seed,
                 const Mask* wet = nullptr);

// Glazes the canvas with it.
void Wash(Canvas& canvas, const Paper& paper, const Mask& shape, const WashStyle& style, uint32_t seed,
          const Mask* wet = nullptr);

} // namespace atelier
