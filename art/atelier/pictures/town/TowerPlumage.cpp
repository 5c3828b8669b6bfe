// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/town/TowerPlumage.h"

namespace atelier::towers
{

Plumage::Plumage() : sway(528, 28, 64), zone(527, 16, 32)
{
    for (float y = Head - 60; y < Foot + 60;) {
        const float step = Mix(23, 13, Clamp(HeightAt(y)));
        top.push_back(y);
        length.push_back(step * 2.2f);
        y += step;
    }
    for (int row = 0; row < int(top.size()); row++)
        for (int column = 0; column < Columns; column++)
            grown.push_back(Grows(row, column) ? 1 : 0);
}

Vector2 Plumage::MiddleOf(int row, int column) const
{
    const float y = top[size_t(row)] + 0.5f * length[size_t(row)];
    return {(float(column) + 0.5f - Shift(row)) * Wide - Lean * (y - Head), y};
}

bool Plumage::Grows(int row, int column) const
{
    const Vector2 p = MiddleOf(row, column);
    const float turn = TurnAt(p.x, p.y);
    const auto above = [&](int aside) {
        return grown[size_t(row - 1) * Columns + size_t(Wrap(column + aside, Columns))] != 0;
    };
    if (turn < MouldingTurn + 0.05f)
        return false;
    const bool hangs = turn < MouldingTurn + 0.17f || (row > 0 && (above(-1) || above(0) || above(1)));
    if (!hangs)
        return false;
    const float ragged = 0.42f * zone.Fbm(p.x / Girth * 16, p.y / Down * 32, 3);
    return 0.86f - turn + ragged > Mix(0, 0.6f, Smooth(0.5f, 1.0f, HeightAt(p.y)));
}

Plumage::FeatherPlace Plumage::At(float x, float y) const
{
    const float bent = x + Lean * (y - Head) + 2 * sway.Fbm(x / Girth * 28, y / Down * 64, 2);
    for (int row = 0; row < int(top.size()); row++) {
        const size_t i = size_t(row);
        if (y < top[i] || y > top[i] + length[i])
            continue;
        const float shifted = bent / Wide + Shift(row);
        const int column = Wrap(Floor(shifted), Columns);
        const float u = Fraction(shifted) * 2 - 1;
        const float v = (y - top[i]) / (length[i] * Reach(row, column));
        // Where none lies above it, one sees that a feather is round at its root too.
        if (v <= Edge(u) && v >= 0.34f * u * u && grown[i * Columns + size_t(column)] != 0)
            return FeatherPlace{u, v / Edge(u), row, column, true};
    }
    return FeatherPlace{0, 0, 0, 0, false};
}

void Plumage::Draw(Pen& pen) const
{
    for (size_t row = 0; row < top.size(); row++)
        for (int column = 0; column < Columns; column++) {
            if (grown[row * Columns + size_t(column)] == 0)
                continue;
            const float x = (float(column) + 0.5f - Shift(int(row))) * Wide;
            const float l = length[row] * Reach(int(row), column);
            Line edge;
            for (int i = -8; i <= 8; i++) {
                const float u = float(i) / 8, ey = top[row] + l * Edge(u);
                const float ex = x + u * Wide / 2 - Lean * (ey - Head);
                edge.push_back({ex - 2 * sway.Fbm(ex / Girth * 28, ey / Down * 64, 2), ey});
            }
            pen.Stroke(edge, {.start = 0.1f, .middle = 0.9f, .end = 0.35f});
            if (column % 3 == int(row) % 3)
                pen.Stroke(Through({edge[8] - Vector2{-l * 0.18f * Lean, l * 0.18f},
                                    edge[8] - Vector2{-l * 0.5f * Lean, l * 0.5f}}),
                           {.start = 0.1f, .middle = 0.6f, .end = 0});
        }
}

LinearColour FeatherColour(const Plumage::FeatherPlace& f, float h, float own, float comb)
{
    const LinearColour head =
        Mix(Mix(palette::Night, palette::Slate, 0.6f), palette::Moss, 0.25f + 0.4f * own);
    const LinearColour ring = Mix(palette::Bone, palette::Parchment, own) * 0.40f;
    const LinearColour copper =
        Mix(palette::Rust, palette::Ochre, 0.08f + 0.60f * own) * (0.75f + 0.5f * own);
    const LinearColour tail =
        Mix(Mix(palette::Parchment, palette::Ochre, 0.45f), palette::Slate, 0.4f * own) * 0.72f;
    const float isRing = Smooth(0.16f, 0.17f, h) * Smooth(0.215f, 0.205f, h);
    const float isCopper = Smooth(0.20f, 0.22f, h), isTail = Smooth(0.50f, 0.72f, h);
    LinearColour c = Mix(Mix(Mix(head, copper, isCopper), tail, isTail), ring, isRing);
    c = c * (0.82f + 0.2f * comb);
    const float tip = 1 - f.v;
    c = Mix(c, Mix(palette::Mist, palette::ColdLight, 0.35f),
            0.30f * Hill(0.16f, 0.10f, tip) * (1 - isCopper) * (1 - isRing));
    c = Mix(c, palette::Amber,
            0.45f * Hill(0.26f, 0.14f, tip) * isCopper * (1 - isTail) * (0.2f + 0.8f * own));
    c = Mix(c, palette::Ink, 0.7f * Hill(0.06f, 0.09f, tip) * isCopper * (1 - 0.6f * isTail));
    const float bar = Fraction(f.v * 3.2f + 0.25f * Abs(f.u));
    return Mix(c, Mix(palette::Ink, palette::Rust, 0.3f),
               0.7f * isTail * Smooth(0.50f, 0.60f, bar) * Smooth(1, 0.88f, bar));
}

} // namespace atelier::towers
