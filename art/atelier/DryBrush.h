// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Ink.h"

// A brush with little paint in it, dragged over the paper: each bristle leaves a thin line of its own that
// breaks up on the paper's tooth. Bark, sand, stone, feathers, hair, wind. Like the pen it draws onto a mask.

namespace atelier
{

struct Bristles {
    float width = 30;       // pixels across the brush
    int count = 24;         // bristles
    float thickness = 1.4f; // pixels of one bristle's line
    float load = 0.55f;     // paint in the brush: 0 bone dry to 1 wet
    float ragged = 0.25f;   // how unevenly the bristles touch down and leave, as a part of the stroke
    float spread = 0.0f; // how much wider the brush is at the end of the stroke: 1 twice as wide, -1 a point
    float wave = 60;     // pixels along the stroke in which the load of a bristle changes
    float ink = 0.9f;
};

class DryBrush
{
public:
    DryBrush(Mask& sheet, const Paper& paper, Bristles bristles, uint32_t seed);

    // The pressure works on the load: at 0 the brush barely touches.
    void Stroke(const Line& line, float pressure = 1);

    Bristles bristles; // may be changed between strokes

private:
    Ink ink;
    Dice dice;
    uint32_t seed;
    uint32_t strokes = 0;
};

} // namespace atelier
