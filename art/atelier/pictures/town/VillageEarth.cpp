// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/town/VillageEarth.h"

namespace atelier
{

constexpr float FurrowUnits = 0.64f;

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
    return Z / FurrowUnits + 0.75f * sway.Gradient(along, Z / 9) + 0.30f * bend.Gradient(along * 3, Z / 3);
}

LinearColour VillageEarth(float X, float Z)
{
    // What is large changes across the way only: along it, it would show where the land repeats.
    static const Noise tint(302, 11, 0), strip(307, 1, 0), clod(303, 128, 0), grit(305, 512, 0),
        wet(306, 7, 0);
    const float u = X / Repeat;
    const float t = 0.5f + 0.42f * tint.Fbm(u * 11, Z / 1.3f, 4) + 0.5f * strip.Gradient(0.3f, Z / 4.5f);
    LinearColour earth = Mix(Mix(palette::Slate, palette::Ink, 0.5f),
                             Mix(palette::Moss, palette::Slate, 0.35f), 0.55f * Smooth(0.1f, 0.9f, t));
    earth = Mix(earth, Mix(palette::Ochre, palette::Slate, 0.45f), 0.22f * Smooth(0.55f, 1.0f, t));
    const float f = Fraction(VillageFurrow(X, Z));
    const float lump = clod.Fbm(u * 128, Z / 0.20f, 3);
    const float ridge = Smooth(0.12f, 0.48f, f + 0.10f * lump) * Smooth(1.0f, 0.66f, f + 0.10f * lump);
    const float grain = 1 + 0.62f * grit.Gradient(u * 512, Z / 0.08f) + 0.35f * lump;
    // The harrow went over it: finer lines in each furrow, which come and go.
    const float tine = Fraction(VillageFurrow(X, Z) * 5 + 0.5f * lump);
    const float harrowed = Hill(0.5f, 0.36f, tine) * Smooth(-0.35f, 0.35f, clod.Fbm(u * 16, Z / 0.9f, 2));
    LinearColour c = earth * (0.52f + 0.45f * ridge + 0.30f * harrowed) * grain;
    c = Mix(c, palette::Mist, 0.20f * Hill(0.62f, 0.16f, f + 0.12f * lump) * Smooth(-0.2f, 0.5f, lump));
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
