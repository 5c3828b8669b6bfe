// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/opening/Panorama.h"

#include "art/atelier/pictures/Wood.h"

namespace atelier::panorama
{

// A fold of land in opaque colour that dries unevenly, with mist lying at its foot.
void PaintLand(Canvas& canvas, const Paper& paper, const Ridge& ridge, LinearColour dusk, LinearColour night,
               float mist, uint32_t seed)
{
    const Mask shape = Filled(W, H, ridge.Outline());
    const Mask density = WashDensity(paper, shape,
                                     {.pool = 0.4f,
                                      .poolWidth = 7,
                                      .granulation = 0.5f,
                                      .bloom = 0.6f,
                                      .bloomSize = 190,
                                      .stray = 1.5f,
                                      .bleed = 14,
                                      .wetness = 0.25f},
                                     seed);
    canvas.Cover(density, [&](float x, float y) {
        const float d = density.At(Floor(x), Floor(y));
        return Mix(dusk, night, Night(x)) * Mix(1.35f, 0.65f, Smooth(0.5f, 1.6f, d));
    });
    const Noise noise(seed + 1);
    const Mask fog = Mask(W, H).Each(
        [&](float x, float y) {
            const float deep = y - ridge.At(x);
            return Smooth(10, 70, deep) * Smooth(170, 60, deep) *
                   Clamp(0.55f + 0.7f * noise.Fbm(x / 330, y / 60, 3));
        },
        4);
    canvas.Cover(
        fog,
        [](float x, float) {
            return Mix(Mix(palette::Ochre, palette::Parchment, 0.3f),
                       Mix(palette::Slate, palette::Mist, 0.3f), Night(x));
        },
        mist);
}

// Blades in tufts that lean with the wind, taller towards us.
void DrawGrass(Canvas& canvas, const Paper& paper, const Ridge& ridge, float from, float to, int blades,
               LinearColour colour, float opacity, uint32_t seed)
{
    Mask grass(W, H);
    Pen blade(grass, paper, {.width = 2, .pool = 0}, seed);
    Dice dice(seed);
    const Noise tufts(seed);
    for (int i = 0; i < blades; i++) {
        const float x = dice.Range(from, to), top = ridge.At(x);
        if (top > H)
            continue;
        const Vector2 p = {x, top + 8 + (H + 10 - top) * Sqrt(dice.Unit())};
        const float tuft = 0.6f + 0.7f * tufts.Fbm(x / 60, p.y / 25, 2);
        const float tall = (p.y - top + 14) * dice.Range(0.15f, 0.5f) * tuft,
                    wind = tall * dice.Range(-0.1f, 0.35f);
        blade.Stroke(Through({p, p + Vector2{wind * 0.3f, -tall * 0.6f}, p + Vector2{wind, -tall}}),
                     {.start = 0.8f, .middle = 0.5f, .end = 0});
    }
    canvas.Cover(grass, colour, opacity);
}

// Twigs along a thread: it is a bough, a bramble, a garland of what once was ivy.
void DrawTwigs(Pen& pen, const Line& thread, float from, float to, float spacing, float longest, Dice& dice)
{
    const float length = LengthOf(thread);
    for (float s = from * length; s < to * length; s += spacing * dice.Range(0.4f, 1.6f)) {
        const float t = s / length;
        const Vector2 d = DirectionAt(thread, t);
        const float side = dice.Chance(0.5f) ? 1.0f : -1.0f, angle = Angle(d) + side * dice.Range(0.5f, 1.1f);
        DrawBranch(pen, PointAt(thread, t), angle, longest * dice.Range(0.25f, 1) * 0.6f, 1.7f,
                   dice.Chance(0.4f) ? 2 : 1, {.gnarl = 0.3f, .density = 0.6f}, dice);
    }
}

} // namespace atelier::panorama
