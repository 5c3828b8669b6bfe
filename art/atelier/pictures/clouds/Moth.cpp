// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/clouds/Moth.h"

#include "art/atelier/pictures/clouds/Cloth.h"

#include <array>

namespace atelier
{

void PaintMoth(Canvas& canvas, const RoundArm& limb, uint32_t seed)
{
    const int width = canvas.Width(), height = canvas.Height();
    const Vector2 at = limb.At(0.13f, 0.15f), ahead = Normalised(Vector2{-0.30f, -1}),
                  aside = {-ahead.y, ahead.x};
    constexpr float Far = 0.6f, FarLift = 0.42f, NearLift = 0.10f;
    // `x` from the body's middle to the side of a wing, `y` towards the head.
    const auto wing = [&](float side, std::vector<Vector2> points) {
        for (Vector2& p : points)
            p = at + aside * (side * p.x * (side > 0 ? Far : 1)) +
                ahead * (p.y + p.x * (side > 0 ? FarLift : -NearLift));
        return points;
    };
    const std::vector<Vector2> hind = {{2, 16},   {34, 10},  {64, -6},  {74, -26}, {66, -48},
                                       {46, -56}, {24, -48}, {10, -28}, {2, -6}};
    const std::vector<Vector2> fore = {{2, 28},  {28, 44}, {62, 60}, {96, 66}, {104, 56},
                                       {98, 34}, {82, 16}, {52, 2},  {24, 0},  {2, 8}};
    const Shape body =
        Sausage({at + ahead * 38, at + ahead * 18, at - ahead * 8, at - ahead * 42}, {7, 10, 8, 3});
    const Mask skin = canvas.Alpha();
    Mask all = Filled(width, height, body);
    for (const float side : {-1.0f, 1.0f}) {
        all.Fill(Round(wing(side, hind)));
        all.Fill(Round(wing(side, fore)));
    }
    for (const auto& [away, soft, density] : {std::array{7.0f, 2.5f, 0.6f}, {17.0f, 6.0f, 0.8f}}) {
        Mask shadow(width, height);
        const Vector2 off = Vector2{0.7f, 0.72f} * away;
        shadow.Each([&](float x, float y) { return all.Sample(x - off.x, y - off.y); });
        canvas.Glaze(shadow.Blur(soft).Multiply(skin), Mix(palette::Slate, palette::Rust, 0.35f), density);
    }
    for (const float side : {1.0f, -1.0f}) {
        const auto paint = [&](const std::vector<Vector2>& outline, const Stuff& stuff,
                               const std::vector<std::vector<Vector2>>& veins,
                               const std::vector<Vector2>& band, LinearColour dark, uint32_t number) {
            const Mask shape = Melted(width, height, Round(wing(side, outline)), 1.2f);
            PaintCloth(canvas, shape, stuff, 0.5f, seed + number);
            Mask bands(width, height), lines(width, height);
            bands.Fill(Limb(Through(wing(side, band)), 3, 8, 3));
            canvas.Glaze(bands.Blur(1.5f).Multiply(shape), dark, 0.9f);
            Pen pen(lines, SketchPaper(), {.width = 2.2f, .wobble = 0.4f, .skip = 0.05f}, seed + number + 1);
            for (const std::vector<Vector2>& vein : veins)
                pen.Stroke(Through(wing(side, vein)), {0.9f, 0.7f, 0.15f});
            InkLines(canvas, lines, &shape, 0.75f);
        };
        // Both wings spring from the thorax; the hind one comes out from under the fore one.
        paint(hind, {Mix(palette::Ochre, palette::Parchment, 0.4f), palette::Rust, 0.9f, 0.4f, 1},
              {{{4, 8}, {34, -2}, {68, -18}},
               {{4, 4}, {32, -16}, {64, -42}},
               {{4, 0}, {26, -22}, {46, -52}},
               {{4, -4}, {16, -24}, {26, -44}}},
              {{66, -6}, {58, -30}, {36, -44}, {18, -42}}, Mix(palette::Rust, palette::Ink, 0.4f), 5);
        Mask cast(width, height);
        const Mask over = Filled(width, height, Round(wing(side, fore)));
        cast.Each([&](float x, float y) { return over.Sample(x - 4, y - 6); });
        canvas.Glaze(cast.Blur(2.5f).Multiply(Filled(width, height, Round(wing(side, hind)))),
                     Mix(palette::Rust, palette::Ink, 0.5f), 0.6f);
        paint(fore, {Mix(palette::Mist, palette::Parchment, 0.5f), palette::Night, 0.8f, 0.5f, 1},
              {{{4, 26}, {34, 42}, {66, 58}, {96, 64}},
               {{4, 22}, {40, 34}, {100, 52}},
               {{4, 18}, {40, 24}, {94, 34}},
               {{4, 14}, {36, 12}, {78, 18}}},
              {{84, 62}, {78, 44}, {72, 28}, {62, 10}}, Mix(palette::Slate, palette::Night, 0.4f), 7);
        Mask eye(width, height), pupil(width, height);
        eye.Fill(Round(wing(side, {{50, 40}, {58, 32}, {50, 23}, {42, 32}})));
        pupil.Fill(Round(wing(side, {{50, 36}, {54, 32}, {50, 28}, {46, 32}})));
        canvas.Cover(eye, Mix(palette::Rust, palette::Ochre, 0.4f), 0.9f);
        canvas.Cover(pupil, palette::Ink, 0.9f);
    }
    PaintCloth(canvas, Melted(width, height, body, 1),
               {Mix(palette::Slate, palette::Parchment, 0.25f), palette::Ink, 0.9f, 0.6f, 1}, 0.5f, seed + 8);
    // Fur on the thorax, rings on the abdomen, feelers and the feet before it.
    Mask lines(width, height);
    Pen pen(lines, SketchPaper(), {.width = 2.2f, .wobble = 0.4f, .skip = 0.05f}, seed + 9);
    const auto p = [&](float x, float y) { return at + aside * x + ahead * y; };
    Dice dice(seed + 10);
    for (int i = 0; i < 46; i++) {
        const float x = dice.Range(-10, 10), y = dice.Range(2, 32);
        pen.Stroke(Straight({p(x, y), p(1.35f * x + dice.Range(-1, 1), y - dice.Range(5, 9))}),
                   {0.6f, 0.8f, 0.1f});
    }
    for (float y = -4; y > -38; y -= 6)
        pen.Stroke(Through({p(-0.19f * (46 + y), y), p(0, y - 3), p(0.19f * (46 + y), y)}),
                   {0.4f, 0.8f, 0.4f});
    pen.nib.width = 2.6f;
    for (const float side : {-1.0f, 1.0f}) {
        const float wide = side > 0 ? 0.7f : 1;
        pen.Stroke(Through({p(3 * side, 42), p(12 * side * wide, 58), p(26 * side * wide, 68)}),
                   {0.6f, 0.8f, 0.5f});
        for (int i = 0; i < 5; i++) {
            const float t = 0.25f + 0.15f * float(i);
            const Vector2 on = {side * wide * Mix(4, 26, t), Mix(44, 68, Pow(t, 0.8f))};
            pen.Stroke(Straight({p(on.x, on.y), p(on.x + 3 * side, on.y - 5)}), {0.4f, 0.5f, 0.1f});
        }
        pen.Stroke(Through({p(5 * side, 34), p(14 * side, 42), p(13 * side, 50)}), {0.6f, 0.8f, 0.4f});
    }
    canvas.Cover(lines, palette::Ink, 0.85f);
}

} // namespace atelier
