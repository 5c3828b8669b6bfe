// SPDX-License-Identifier: MIT
// The feathers of the towers.
#pragma once

#include "art/atelier/Pen.h"
#include "art/atelier/pictures/town/TowerAtlas.h"

#include <vector>

namespace atelier::towers
{

// The feathers that cover a tower: which one lies at a place of the wall. They are laid from the foot up, smaller below:
// seen from the ground a tower grows towards its head.
class Plumage
{
public:
    static constexpr int Columns = 28; // round the tower, so that the walls join
    static constexpr float Wide = Girth / Columns;

    struct FeatherPlace {
        float u, v; // across -1 to 1, along 0 to 1 at the tip
        int row, column;
        bool grown; // whether a feather lies here at all
    };

    Plumage();
    FeatherPlace At(float x, float y) const;
    void Draw(Pen& pen) const; // the edges, and some shafts

private:
    // How far down a feather reaches, in its lengths, beside its shaft (u from -1 to 1).
    static float Edge(float u) { return 1 - 0.34f * u * u - 0.12f * Pow(Abs(u), 6); }
    // They lean as the band turns, so that no wall has a middle to which both sides are alike.
    static constexpr float Lean = 0.38f;
    Vector2 MiddleOf(int row, int column) const;
    // The feathers lie in a band that winds round the tower, whole where it hangs on the moulding and ragged below. They thin
    // out towards the foot. The rows above `row` have to be in `grown`.
    bool Grows(int row, int column) const;
    // By which part of its width a row lies beside the one above.
    float Shift(int row) const
    {
        return (row % 2 == 0 ? 0.0f : 0.5f) + 0.16f * sway.Value(0.5f, float(row) + 0.5f);
    }
    float Reach(int row, int column) const // of its length: no two alike
    {
        return 0.82f + 0.18f * sway.Value(float(column) + 0.5f, float(row) * 1.7f);
    }

    std::vector<float> top, length; // of the rows, pixels
    std::vector<uint8_t> grown;     // of row * Columns + column
    Noise sway, zone;
};

// A pheasant's colours from the head down: dark green, a pale ring, copper, and the bars of the tail. `h` is the height, as
// HeightAt has it, `own` a random number of the feather's, `comb` the barbs at the place.
LinearColour FeatherColour(const Plumage::FeatherPlace& f, float h, float own, float comb);

} // namespace atelier::towers
