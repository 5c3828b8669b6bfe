// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/clouds/Cloth.h"

namespace atelier
{

Mask Sleeve(const Canvas& canvas, const RoundArm& limb, float from, float mouth, float end, float shake,
            uint32_t seed)
{
    const Line part = Part(limb.along, from, 1);
    const float half = limb.Half(from);
    Shape shape =
        Limb(part, half * mouth, limb.Half(0.5f * (from + 1)) * (mouth + end) * 0.5f, limb.Half(1) * end);
    const Vector2 d = DirectionAt(part, 0);
    shape.Add(Ellipse(part.front(), half * 0.2f, half * mouth, Angle(d)));
    return Melted(canvas.Width(), canvas.Height(), shape, 4).Shake(shake, 70, seed);
}

Mask OpenSleeve(const Canvas& canvas, const RoundArm& limb, float from, float mouth, float end, float depth,
                float shake, uint32_t seed)
{
    const Line part = Part(limb.along, from, 1);
    const float half = limb.Half(from);
    const Shape shape =
        Limb(part, half * mouth, limb.Half(0.5f * (from + 1)) * (mouth + end) * 0.5f, limb.Half(1) * end);
    return Melted(canvas.Width(), canvas.Height(), shape, 3)
        .Shake(shake, 70, seed)
        .Erase(Opening(limb, from, mouth, depth));
}

void PaintCloth(Canvas& canvas, const Mask& cloth, Stuff stuff, float scale, uint32_t seed)
{
    stuff.inkOver = true;
    PaintBody(canvas, cloth, stuff, scale, seed);
}

void InkLines(Canvas& canvas, Mask& lines, const Mask* within, float strength)
{
    if (within != nullptr)
        lines.Multiply(*within);
    canvas.Cover(lines, palette::Ink, strength);
}

void DrawFolds(Pen& pen, const RoundArm& limb, float from, int count, uint32_t seed)
{
    Dice dice(seed);
    for (int i = 0; i < count; i++) {
        const float t = Mix(from + 0.06f, 0.8f, dice.Unit()), u = dice.Range(-0.95f, 0.95f);
        pen.Stroke(Through({limb.At(t, u), limb.At(t + 0.06f, u * 0.8f + dice.Range(-0.2f, 0.2f)),
                            limb.At(t + 0.15f, u * 0.9f + dice.Range(-0.3f, 0.3f))}),
                   {0.2f, 0.9f, 0});
    }
}

} // namespace atelier
