// SPDX-License-Identifier: MIT
#include "art/atelier/Ink.h"

#include <algorithm>

namespace atelier
{

Ink::Ink(Mask& sheetGiven, const Paper& paperGiven)
    : sheet(sheetGiven), paper(paperGiven), fresh(sheetGiven.Width(), sheetGiven.Height())
{
}

void Ink::Piece(Vector2 a, float halfA, Vector2 b, float halfB, float dryness)
{
    if (dryness > 1.15f)
        return;
    const float reach = Max(halfA, halfB) + 1;
    int left = Floor(Min(a.x, b.x) - reach), right = Floor(Max(a.x, b.x) + reach);
    int top = Floor(Min(a.y, b.y) - reach), bottom = Floor(Max(a.y, b.y) + reach);
    if (!sheet.Wraps()) {
        left = std::max(left, 0);
        top = std::max(top, 0);
        right = std::min(right, sheet.Width() - 1);
        bottom = std::min(bottom, sheet.Height() - 1);
    }
    const Vector2 way = b - a;
    const float square = Dot(way, way);
    for (int y = top; y <= bottom; y++)
        for (int x = left; x <= right; x++) {
            const Vector2 p = Vector2{float(x) + 0.5f, float(y) + 0.5f} - a;
            const float t = square > 0 ? Clamp(Dot(p, way) / square) : 0;
            const float half = Mix(halfA, halfB, t);
            float cover = Clamp(half + 0.5f - Length(p - way * t));
            if (cover <= 0)
                continue;
            // A line thinner than a pixel is paler instead.
            if (half < 0.5f)
                cover *= 2 * half;
            if (dryness > -0.1f)
                cover *= Smooth(dryness - 0.12f, dryness + 0.12f, paper.Height(x, y));
            const int column = sheet.Wraps() ? Wrap(x, sheet.Width()) : x;
            const int row = sheet.Wraps() ? Wrap(y, sheet.Height()) : y;
            float& value = fresh.At(column, row);
            if (cover > value) {
                if (value == 0)
                    touched.push_back(size_t(row) * size_t(sheet.Width()) + size_t(column));
                value = cover;
            }
        }
}

void Ink::Dry(float amount)
{
    for (const size_t i : touched) {
        const int x = int(i % size_t(sheet.Width()));
        const int y = int(i / size_t(sheet.Width()));
        sheet.At(x, y) = 1 - (1 - sheet.At(x, y)) * (1 - fresh.At(x, y) * amount);
        fresh.At(x, y) = 0;
    }
    touched.clear();
}

} // namespace atelier
