// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/town/TowerPlumage.h"

namespace atelier::towers
{

Plumage::Plumage() : sway(528, 28, 64)
{
    for (float y = Head - 60; y < Foot + 60;) {
        const float step = Mix(23, 13, Clamp(HeightAt(y)));
        top.push_back(y);
        length.push_back(step * 2.2f);
        y += step;
    }
}

Plumage::FeatherPlace Plumage::At(float x, float y) const
{
    const float bent = x + 2 * sway.Fbm(x / Girth * 28, y / Down * 64, 2);
    FeatherPlace place = {0, 0, 0, 0};
    for (int row = 0; row < int(top.size()); row++) {
        const size_t i = size_t(row);
        if (y < top[i] || y > top[i] + length[i])
            continue;
        const float shifted = bent / Wide + Shift(row);
        const int column = Floor(shifted);
        const float u = (shifted - float(column)) * 2 - 1;
        const float v = (y - top[i]) / (length[i] * Reach(row, Wrap(column, Columns)));
        if (v <= Edge(u))
            return FeatherPlace{u, v / Edge(u), row, Wrap(column, Columns)};
    }
    return place;
}

void Plumage::Draw(Pen& pen) const
{
    for (size_t row = 0; row < top.size(); row++)
        for (int column = 0; column < Columns; column++) {
            const float x = (float(column) + 0.5f - Shift(int(row))) * Wide;
            const float l = length[row] * Reach(int(row), column);
            Line edge;
            for (int i = -8; i <= 8; i++) {
                const float u = float(i) / 8, ey = top[row] + l * Edge(u), ex = x + u * Wide / 2;
                edge.push_back({ex - 2 * sway.Fbm(ex / Girth * 28, ey / Down * 64, 2), ey});
            }
            pen.Stroke(edge, {.start = 0.25f, .middle = 1, .end = 0.1f});
            if (column % 3 == int(row) % 3)
                pen.Stroke(Through({edge[8] - Vector2{0, l * 0.18f}, edge[8] - Vector2{1, l * 0.5f}}),
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
