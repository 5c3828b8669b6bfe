// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/opening/Panorama.h"

#include "art/atelier/Glow.h"

namespace atelier::panorama
{

void PaintEvening(Canvas& canvas, const Paper& paper)
{
    // Warm layers thin out to the right, cold ones come in from above and from the right.
    const Mask warm = Mask(W, H).Each(
        [](float x, float y) { return Smooth(1900, 500, x) * Mix(1.1f, 0.4f, Smooth(0, 330, y)); }, 4);
    const Mask ember = Mask(W, H).Each(
        [](float x, float y) {
            return Smooth(2500, 1300, x) * (0.25f + 0.75f * Smooth(0, 330, y)) *
                   (0.35f + 0.65f * Hill(1500, 1100, x));
        },
        4);
    const Mask cold = Mask(W, H).Each(
        [](float x, float y) {
            return (0.1f + 0.9f * Smooth(500, 2200, x)) * Mix(0.3f + 0.35f * Night(x), 1, Smooth(420, 0, y));
        },
        4);
    const Mask dark = Mask(W, H).Each(
        [](float x, float y) {
            const float moonlit = Bell(Length(Vector2{(x - Moon.x) * 0.8f, y - Moon.y}) / 520);
            return Smooth(1500, 2700, x) * Mix(0.12f, 1, Smooth(360, 40, y)) * (1 - 0.7f * moonlit);
        },
        4);
    canvas.Glaze(WashDensity(paper, warm, SkyWash(), 101), palette::Ochre, 0.8f);
    canvas.Glaze(WashDensity(paper, ember, SkyWash(), 102), palette::Rust, 0.42f);
    canvas.Glaze(WashDensity(paper, cold, SkyWash(), 103), palette::Slate, 0.85f);
    canvas.Glaze(WashDensity(paper, dark, SkyWash(), 104), palette::Slate, 0.95f);

    // Long clouds laid in wet, with the shore of each left standing.
    const Noise noise(110);
    for (int layer = 0; layer < 3; layer++) {
        const float shift = float(layer) * 37.7f, height = 95 + 75.0f * float(layer);
        const Mask clouds = Mask(W, H).Each(
            [&](float x, float y) {
                const Vector2 p = noise.Warp(x / 520 + shift, y / 110, 0.5f, 3);
                const float clear = 1 - 0.95f * Bell(Length(Vector2{x - Moon.x, y - Moon.y}) / 300);
                return Smooth(0.12f, 0.17f, noise.Fbm(p.x, p.y, 5) * Hill(height, 120, y) * clear);
            },
            2);
        const Mask density = WashDensity(paper, clouds,
                                         {.pool = 0.45f,
                                          .poolWidth = 4,
                                          .granulation = 0.3f,
                                          .bloom = 0.7f,
                                          .bloomSize = 160,
                                          .stray = 3,
                                          .bleed = 24,
                                          .wetness = 0.62f},
                                         120 + uint32_t(layer));
        Mask dusk = density, night = density;
        dusk.By([](float x, float) { return 1 - Night(x); });
        night.By([](float x, float) { return Night(x); });
        canvas.Glaze(dusk, palette::Rust, 0.24f);
        canvas.Glaze(night, palette::Night, 0.24f);
    }
    // The first stars, few.
    Mask stars(W, H);
    Pen pen(stars, paper, {.width = 2}, 128);
    Dice dice(129);
    for (int i = 0; i < 90; i++) {
        const Vector2 p = {dice.Range(1700, W), dice.Range(0, 300)};
        const float bright = dice.Unit() * dice.Unit();
        if (Length(p - Moon) > MoonRadius + 60 && dice.Chance(Night(p.x)))
            pen.Dot(p, 0.5f + 0.9f * bright);
    }
    canvas.Light(stars, palette::Bone, 0.55f);
}

void PaintSun(Canvas& canvas)
{
    const Mask disc = Filled(W, H, Ellipse(Sun, 46, 46)).Shake(2, 30, 130);
    canvas.Cover(disc.Blurred(1.2f), Mix(palette::Amber, palette::Bone, 0.35f), 0.95f);
    canvas.Light(disc.Blurred(26), palette::Amber, 0.5f);
    canvas.Light(disc.Blurred(90), palette::Ochre, 0.8f);
}

// The moon is the paper itself, left bare, with a few pale washes for its seas. The middle stays quiet: the
// title will stand there.
void PaintMoon(Canvas& canvas, const Paper& paper)
{
    constexpr int Size = 520;
    constexpr Vector2 Middle = {Size / 2.0f, Size / 2.0f};
    const Line round = Shaken(Ellipse(Middle, MoonRadius, MoonRadius), 1.2f, 80, 140);
    Canvas face(Size, Size);
    paper.Sheet(face, palette::Bone, 1.2f);
    const Noise noise(141);
    const Mask seas = Mask(Size, Size)
                          .Each(
                              [&](float x, float y) {
                                  const Vector2 d = (Vector2{x, y} - Middle) * (1 / MoonRadius);
                                  const Vector2 p =
                                      noise.Warp(d.x * 1.25f + 4.4f, d.y * 1.25f + 2.1f, 0.45f, 3);
                                  return Smooth(0.02f, 0.10f, noise.Fbm(p.x, p.y, 4));
                              },
                              2);
    Wash(face, paper, seas,
         {.pigment = palette::Mist,
          .density = 0.34f,
          .pool = 0.6f,
          .poolWidth = 5,
          .granulation = 0.7f,
          .bloom = 0.9f,
          .bloomSize = 90,
          .stray = 5,
          .bleed = 26},
         142);
    Wash(face, paper, seas,
         {.pigment = palette::Ochre,
          .density = 0.13f,
          .pool = 0.3f,
          .granulation = 0.7f,
          .bloom = 1,
          .bloomSize = 150,
          .stray = 9,
          .bleed = 30},
         143);
    // Craters: small rounds whose pigment dried at the rim.
    Dice dice(144);
    Mask craters(Size, Size);
    for (int i = 0; i < 13; i++) {
        const float a = dice.Range(0, 2 * Pi), r = Sqrt(dice.Range(0.15f, 0.85f)) * MoonRadius,
                    size = 3 + 11 * dice.Unit() * dice.Unit();
        craters.Fill(Ellipse(Middle + Vector2{Cos(a), Sin(a)} * r, size, size * dice.Range(0.7f, 1)));
    }
    craters.Shake(3, 12, 146);
    Wash(face, paper, craters,
         {.pigment = palette::Mist, .density = 0.16f, .pool = 1.0f, .poolWidth = 2.2f, .stray = 2}, 145);
    // The limb is a breath darker, so that it is a ball and no hole.
    const Mask limb = Mask(Size, Size).Each([&](float x, float y) {
        return Smooth(MoonRadius - 70, MoonRadius, Length(Vector2{x, y} - Middle));
    });
    face.Glaze(limb, palette::Ochre, 0.3f);
    face.CutOut(Filled(Size, Size, round));

    const Mask disc = Filled(W, H, Ellipse(Moon, MoonRadius, MoonRadius));
    canvas.Light(disc.Blurred(18), palette::Amber, 0.16f);
    canvas.Light(disc.Blurred(60), Mix(palette::Amber, palette::Bone, 0.4f), 0.18f);
    canvas.Light(disc.Blurred(160), palette::Mist, 0.25f);
    canvas.Lay(face, int(Moon.x - Middle.x), int(Moon.y - Middle.y));
}

} // namespace atelier::panorama
