// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/town/VillageEarth.h"

namespace atelier
{

// Broad ones: the show draws the ground without mipmaps, and what is narrow is a noise from ten units on.
constexpr float FurrowUnits = 1.45f;

// The mist over black, and how much of what lies under it is hidden: `night` and `mist` of glowmask.fp.
constexpr float MistAlone[3] = {0.066f, 0.080f, 0.154f}, MistHides = 0.156f;

void AllowForMist(Canvas& canvas, float light)
{
    const auto under = [&](float linear, int channel) {
        const float s = (ToScreen(linear) - MistAlone[channel] / light) / (1 - MistHides);
        return s <= 0.04045f ? Max(0, s) / 12.92f : Pow((s + 0.055f) / 1.055f, 2.4f);
    };
    for (int y = 0; y < canvas.Height(); y++)
        for (int x = 0; x < canvas.Width(); x++) {
            Pixel& p = canvas.At(x, y);
            p = {under(p.r, 0), under(p.g, 1), under(p.b, 2), p.a};
        }
}

float SideLight(float beside)
{
    return Smooth(19.7f, 13, Abs(beside));
}

float VillageFurrow(float X, float Z)
{
    static const Noise bend(301, 3, 0), sway(304, 1, 0);
    const float along = X / Repeat;
    return Z / FurrowUnits + 0.68f * sway.Gradient(along, Z / 9) + 0.20f * bend.Gradient(along * 3, Z / 3);
}

LinearColour VillageEarth(float X, float Z)
{
    // What is large changes across the way only: along it, it would show where the land repeats.
    static const Noise tint(302, 11, 0), strip(307, 1, 0), clod(303, 128, 0), sod(308, 36, 0),
        crumb(309, 52, 0), grit(305, 512, 0), wet(306, 7, 0);
    const float u = X / Repeat;
    const float t = 0.5f + 0.42f * tint.Fbm(u * 11, Z / 1.3f, 4) + 0.5f * strip.Gradient(0.3f, Z / 4.5f);
    LinearColour earth = Mix(Mix(Mix(palette::Slate, palette::Rust, 0.09f), palette::Ink, 0.5f),
                             Mix(palette::Moss, palette::Slate, 0.35f), 0.55f * Smooth(0.1f, 0.9f, t));
    earth = Mix(earth, Mix(palette::Ochre, palette::Slate, 0.45f), 0.22f * Smooth(0.55f, 1.0f, t));
    // From the foot of one furrow its slice rises to a crest, which the moon touches, and breaks off in ink.
    const float sods = sod.Fbm(u * 36, Z / 0.40f, 3), lump = clod.Fbm(u * 128, Z / 0.20f, 2);
    const float f = Fraction(VillageFurrow(X, Z) + 0.09f * sods);
    const float slice = Smooth(0.02f, 0.55f, f) * Smooth(0.84f, 0.74f, f);
    const float grain = 1 + 0.14f * grit.Gradient(u * 512, Z / 0.08f) + 0.45f * sods + 0.16f * lump;
    LinearColour c = earth * (0.40f + 0.72f * slice) * grain;
    // Clods, each with its own tone and a dark gap about it.
    const Noise::WorleyCell lumps = crumb.Worley(u * 52 + 0.3f * sods, Z / 0.26f + 0.3f * lump);
    const float gap = Smooth(0.20f, 0.02f, lumps.second - lumps.nearest), own = float(lumps.name & 255) / 255;
    c = c * Mix(1, (0.78f + 0.44f * own) * (1 - 0.55f * gap), Smooth(0.15f, 0.45f, f));
    const float crest = Hill(0.66f, 0.11f, f) * Smooth(-0.15f, 0.30f, sods + 0.4f * lump);
    c = Mix(c, palette::Mist, 0.26f * crest);
    c = Mix(c, palette::Ink * 0.5f, 0.85f * Hill(0.83f, 0.10f, f) * Smooth(-0.55f, -0.1f, sods));
    // Water stands in some furrows.
    const float pool =
        Smooth(0.20f, 0.34f, wet.Fbm(u * 7, Z / 2.4f, 3)) * Hill(0.02f, 0.17f, Fraction(f + 0.5f) - 0.5f);
    return Mix(c, Mix(palette::Mist, palette::Slate, 0.3f), 0.22f * pool);
}

void HatchFurrows(Pen& pen, Dice& dice, int strokes, FurrowPart part, Vector2 low, Vector2 high,
                  const std::function<Vector2(Vector2)>& place, const std::function<bool(Vector2)>& open)
{
    for (int i = 0; i < strokes; i++) {
        Vector2 p = {dice.Range(low.x, high.x), dice.Range(low.y, high.y)};
        const float wanted = float(Floor(VillageFurrow(p.x, p.y))) + dice.Range(part.from, part.to);
        for (int step = 0; step < 4; step++)
            p.y += (wanted - VillageFurrow(p.x, p.y)) * FurrowUnits;
        const float length = dice.Range(0.6f, 4.2f);
        Line line;
        for (float d = 0; d < length; d += 0.06f) {
            if (!open(p))
                break;
            line.push_back(place(p));
            p.x += 0.06f;
            p.y += (wanted - VillageFurrow(p.x, p.y)) * FurrowUnits;
        }
        if (line.size() > 8)
            pen.Stroke(line, {.start = 0.1f, .middle = dice.Range(0.35f, 1), .end = 0});
    }
}

void FinishGround(Canvas& canvas, const Mask& light)
{
    SketchPaper().Show(canvas, 0.6f);
    canvas.Cover(Mask(light).Each([&](float x, float y) { return 1 - light.At(Floor(x), Floor(y)); }),
                 NightBehind);
    AllowForMist(canvas);
}

} // namespace atelier
