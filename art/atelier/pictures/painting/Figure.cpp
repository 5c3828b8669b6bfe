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

void PaintLaidHand(Canvas& canvas, Vector2 wrist, float reach, float spread, float thumb, float size,
                   LinearColour light, LinearColour shade, uint32_t seed)
{
    const auto at = [&](float along, float across) { // from the wrist, in hand's lengths
        const Vector2 d = {Cos(reach), Sin(reach)}, n = {-d.y, d.x};
        return wrist + (d * along + n * (across * -thumb)) * size;
    };
    // The fingers in the order in which they lie on each other: the little one is the lowest. Each bends at its two
    // joints.
    constexpr float Roots[4] = {-0.17f, -0.06f, 0.055f, 0.165f}, Lengths[4] = {0.36f, 0.45f, 0.49f, 0.44f};
    for (int finger = 0; finger < 4; finger++) {
        const float across = -Roots[finger], turn = (1.5f - float(finger)) * spread * thumb;
        const Vector2 root = at(0.46f - 0.05f * Abs(float(finger) - 2), across);
        const auto way = [&](float far, float bend) {
            const float a = reach + turn + bend * thumb;
            return Vector2{Cos(a), Sin(a)} * (far * Lengths[finger] * size);
        };
        const Vector2 knuckle = root + way(0.46f, -0.06f), joint = knuckle + way(0.32f, 0.10f),
                      tip = joint + way(0.24f, 0.26f);
        PaintLimb(canvas, {at(0.34f, across * 0.9f), root, knuckle, joint, tip},
                  {0.062f * size, 0.07f * size, 0.06f * size, 0.052f * size, 0.036f * size}, light, shade,
                  seed + uint32_t(finger));
    }
    PaintLimb(canvas, {at(0.06f, 0.06f), at(0.2f, 0.19f), at(0.37f, 0.31f), at(0.50f, 0.37f)},
              {0.07f * size, 0.085f * size, 0.065f * size, 0.038f * size}, light, shade, seed + 5);
    // The back of the hand, over the roots of all five.
    Around(canvas, {at(0, 0), at(0.5f, 0)}, size, [&](Canvas& part, Vector2 origin) {
        std::vector<Vector2> palm = {at(-0.06f, -0.1f), at(0.2f, -0.19f), at(0.42f, -0.235f),
                                     at(0.52f, -0.15f), at(0.54f, 0),     at(0.50f, 0.16f),
                                     at(0.40f, 0.22f),  at(0.2f, 0.18f),  at(-0.06f, 0.1f)};
        for (Vector2& p : palm)
            p = p - origin;
        const Mask body = Melted(part.Width(), part.Height(), Round(palm), 2);
        const Vector2 middle = at(0.60f, 0) - origin, back = at(-0.30f, 0) - origin;
        // It goes over into the fingers and into the wrist without a line.
        const Mask growing = Mask(part.Width(), part.Height()).Each([&](float x, float y) {
            return Max(Smooth(0.28f * size, 0.17f * size, Length(Vector2{x, y} - middle)),
                       Smooth(0.26f * size, 0.16f * size, Length(Vector2{x, y} - back)));
        });
        PaintBody(part, body,
                  {.light = light,
                   .shade = shade,
                   .depth = 0.7f,
                   .hatch = 0.2f,
                   .contour = 0.9f,
                   .back = Clay,
                   .rim = 0.2f},
                  0.55f, seed + 6, &growing);
    });
    Mask sinews(canvas.Width(), canvas.Height());
    Pen pen(sinews, SketchPaper(), {.width = 0.03f * size, .wobble = 0.4f, .skip = 0.1f, .pool = 0},
            seed + 7);
    for (int finger = 0; finger < 4; finger++) { // to the knuckles, and round each of them
        const float across = -Roots[finger];
        pen.Stroke(Through({at(0.2f, across * 0.5f), at(0.38f, across * 0.9f)}), {0.0f, 0.7f, 0.1f});
        pen.Stroke(Through({at(0.45f, across - 0.04f), at(0.49f, across), at(0.45f, across + 0.04f)}),
                   {0.2f, 0.9f, 0.2f});
    }
    canvas.Cover(sinews, DarkInk, 0.55f);
}

} // namespace atelier
