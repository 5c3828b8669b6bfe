// SPDX-License-Identifier: MIT
// How the dancers are painted, cloth, skin and contour.
#include "art/atelier/DryBrush.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/clouds/Body.h"
#include "art/atelier/pictures/painting/Dancers.h"

namespace atelier
{

void PaintFigure(Canvas& canvas, const Paper& paper, const Mask& shape, LinearColour light, LinearColour dark,
                 uint32_t seed)
{
    const Mask density = WashDensity(
        paper, shape,
        {.pool = 0.7f, .poolWidth = 8, .granulation = 0.6f, .bloom = 0.7f, .bloomSize = 130, .stray = 1},
        seed);
    canvas.Cover(shape, [&](float x, float y) {
        const float lit = Smooth(420, 60, Length(Vector2{x, y} - Vector2{620, 330}));
        return Mix(Mix(light, dark, Smooth(0.4f, 1.7f, density.At(Floor(x), Floor(y)))), light, 0.45f * lit);
    });
}

void DrawFurrows(Canvas& canvas, const Paper& paper, const std::vector<Vector2>& a,
                 const std::vector<Vector2>& b, int count, float width, const Mask& within,
                 LinearColour light, LinearColour dark, uint32_t seed)
{
    Mask bright(W, H), deep(W, H);
    DryBrush brush(bright, paper,
                   {.width = width, .count = 8, .thickness = 1.5f, .load = 0.52f, .ragged = 0.3f, .wave = 80},
                   seed);
    Pen pen(deep, paper, {.width = 3.2f, .wobble = 1.5f, .wave = 80, .skip = 0.5f, .dry = 0.5f}, seed + 1);
    Dice dice(seed + 2);
    for (int i = 0; i < count; i++) {
        const float t = (float(i) + 0.5f + 0.2f * dice.Bell()) / float(count);
        const Line line = Furrow(a, b, Clamp(t));
        brush.Stroke(Beside(line, width * 0.5f), dice.Range(0.7f, 1.1f));
        pen.Stroke(line, {.start = 0.5f, .middle = 0.8f, .end = 0.3f});
    }
    canvas.Cover(bright.Multiply(within), light, 0.6f);
    canvas.Cover(deep.Multiply(within), dark, 0.75f);
}

void InkContours(Canvas& canvas, const Paper& paper, const std::vector<Contour>& contours, float lifts,
                 uint32_t seed)
{
    Mask ink(W, H);
    Pen pen(ink, paper, {.wobble = 1.2f, .wave = 60, .skip = lifts, .dry = lifts}, seed);
    for (const Contour& contour : contours) {
        pen.nib.width = contour.width;
        pen.Stroke(contour.line, {.start = 0.2f, .middle = 1, .end = 0.1f});
    }
    canvas.Cover(ink, DarkInk, 0.92f);
}

void PaintClothed(Canvas& canvas, const std::vector<Vector2>& outline, LinearColour light, LinearColour shade,
                  uint32_t seed)
{
    Around(canvas, outline, 60, [&](Canvas& part, Vector2 origin) {
        std::vector<Vector2> here = outline;
        for (Vector2& p : here)
            p = p - origin;
        PaintBody(part, Melted(part.Width(), part.Height(), Round(here), 1.5f),
                  {.light = light,
                   .shade = shade,
                   .depth = 0.9f,
                   .hatch = 0.35f,
                   .contour = 1.15f,
                   .back = Clay,
                   .rim = 0.22f},
                  0.62f, seed);
    });
}

void PaintLimb(Canvas& canvas, const std::vector<Vector2>& way, const std::vector<float>& halves,
               LinearColour light, LinearColour shade, uint32_t seed, bool open)
{
    constexpr float Scale = 0.62f; // of the strokes with which a body is painted
    Around(canvas, way, 90, [&](Canvas& part, Vector2 origin) {
        std::vector<Vector2> here = way;
        for (Vector2& p : here)
            p = p - origin;
        const Mask body = Melted(part.Width(), part.Height(), Sausage(here, halves), 2);
        const Stuff stuff = {.light = light,
                             .shade = shade,
                             .depth = 0.9f,
                             .hatch = 0.35f,
                             .contour = 1.15f,
                             .back = Clay,
                             .rim = 0.22f};
        if (!open) {
            PaintBody(part, body, stuff, Scale, seed);
            return;
        }
        const Vector2 root = here.front() + Normalised(here.front() - here[1]) * (halves.front() * 0.2f);
        const Mask growing = Mask(part.Width(), part.Height()).Each([&](float x, float y) {
            return Smooth(halves.front() * 1.5f, halves.front() * 0.85f, Length(Vector2{x, y} - root));
        });
        PaintBody(part, body, stuff, Scale, seed, &growing);
    });
}

} // namespace atelier
