// SPDX-License-Identifier: MIT
#include "art/atelier/DryBrush.h"

#include <algorithm>

namespace atelier
{

DryBrush::DryBrush(Mask& sheet, const Paper& paper, Bristles bristlesGiven, uint32_t seedGiven)
    : bristles(bristlesGiven), ink(sheet, paper), dice(seedGiven), seed(seedGiven)
{
}

void DryBrush::Stroke(const Line& line, float pressure)
{
    const float length = LengthOf(line);
    if (line.size() < 2 || length <= 0)
        return;
    std::vector<Vector2> normals(line.size());
    for (size_t i = 0; i < line.size(); i++) {
        const Vector2 d = Normalised(line[std::min(i + 1, line.size() - 1)] - line[i > 0 ? i - 1 : 0]);
        normals[i] = {-d.y, d.x};
    }
    const Noise noise(seed + 0x2545f4u * ++strokes);
    for (int k = 0; k < bristles.count; k++) {
        const float u =
            bristles.count > 1 ? (float(k) + dice.Range(-0.4f, 0.4f)) / float(bristles.count - 1) * 2 - 1 : 0;
        const float start = bristles.ragged * dice.Unit() * dice.Unit();
        const float end = 1 - bristles.ragged * dice.Unit();
        const float half = bristles.thickness / 2 * dice.Range(0.5f, 1.4f);
        const float row = float(k) * 3.7f;
        const float share = bristles.load * pressure * dice.Range(0.65f, 1.25f);
        float gone = 0;
        Vector2 last;
        bool down = false;
        for (size_t i = 0; i < line.size(); i++) {
            if (i > 0)
                gone += Length(line[i] - line[i - 1]);
            const float t = gone / length;
            const float side = u * bristles.width / 2 * (1 + bristles.spread * t) +
                               0.8f * noise.Gradient(gone / 45, row + 40);
            const Vector2 place = line[i] + normals[i] * side;
            // The paint runs out along the stroke; a bristle hops now and then.
            const float wet = share * (1 - 0.45f * t) + 0.55f * noise.Fbm(gone / bristles.wave, row, 2);
            const bool touches = t >= start && t <= end;
            if (touches && down)
                ink.Piece(last, half, place, half, 1.02f - 1.25f * Clamp(wet, -0.3f, 1.2f));
            last = place;
            down = touches;
        }
        ink.Dry(bristles.ink * dice.Range(0.7f, 1));
    }
}

} // namespace atelier
