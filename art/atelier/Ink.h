// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Paper.h"

#include <vector>

// How ink gets from a nib or a bristle onto the paper: the part that Pen and DryBrush share.

namespace atelier
{

class Ink
{
public:
    // Draws onto `sheet`, which must outlive it; a sheet that wraps is drawn on across its borders.
    Ink(Mask& sheet, const Paper& paper);

    // A piece of line from a to b with the given half widths. Where `dryness` is 0 or less the ink covers
    // all; towards 1 it takes only on the peaks of the paper; above 1 it leaves nothing.
    void Piece(Vector2 a, float halfA, Vector2 b, float halfB, float dryness);
    // Ends the stroke: what was drawn since the last call lies on the sheet as one layer of ink. Pieces of
    // one stroke do not darken each other, strokes do.
    void Dry(float amount = 1);

private:
    Mask& sheet;
    const Paper& paper;
    Mask fresh;
    std::vector<size_t> touched;
};

} // namespace atelier
