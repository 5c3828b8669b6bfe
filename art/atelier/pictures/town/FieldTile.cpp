// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/town/Town.h"
#include "art/atelier/pictures/town/VillageEarth.h"

namespace atelier
{

constexpr float Size = 1024;
constexpr int Side = 1024;

Canvas FieldTile()
{
    constexpr float Across = 40;
    Canvas canvas(Side, Side);
    const auto toGround = [](float x, float y) {
        return Vector2{y / Size * Repeat, (x / Size - 0.5f) * Across};
    };
    const auto toSheet = [](Vector2 g) { return Vector2{(g.y / Across + 0.5f) * Size, g.x / Repeat * Size}; };
    canvas.Ground([&](float x, float y) {
        const Vector2 g = toGround(x, y);
        return VillageEarth(g.x, g.y);
    });
    Mask lines(Side, Side, 0, true);
    Pen pen(lines, SketchPaper(), {.width = 4.6f, .wobble = 1.4f, .wave = 50, .skip = 0.4f, .dry = 0.5f},
            310);
    Dice dice(311);
    const auto everywhere = [](Vector2) { return true; };
    HatchFurrows(pen, dice, 420, ShadedSide, {0, -19}, {Repeat, 19}, toSheet, everywhere);
    pen.nib.width = 2.2f;
    HatchFurrows(pen, dice, 260, WholeFurrow, {0, -19}, {Repeat, 19}, toSheet, everywhere);
    canvas.Cover(lines, palette::Ink, 0.7f);
    // Stubble, drawn long: the picture is laid out nearly three times as wide as it is deep.
    Mask stubble(Side, Side, 0, true);
    Pen straw(stubble, SketchPaper(), {.width = 2.0f, .wobble = 0.4f, .skip = 0.2f}, 312);
    for (int i = 0; i < 700; i++) {
        const Vector2 p = {dice.Range(0, Size), dice.Range(0, Size)};
        const Vector2 g = toGround(p.x, p.y);
        if (Abs(Fraction(VillageFurrow(g.x, g.y)) - 0.5f) < 0.2f)
            straw.Stroke(Straight({p, p + Vector2{dice.Range(-3, 3), dice.Range(6, 20)}}),
                         {.start = 0.9f, .middle = 0.7f, .end = 0});
    }
    canvas.Cover(stubble, Mix(palette::Parchment, palette::Slate, 0.35f), 0.38f);
    FinishGround(canvas,
                 Mask(Side, Side).Each([](float x, float) { return SideLight((x / Size - 0.5f) * Across); }));
    return canvas;
}

} // namespace atelier
