// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/town/TowerBattlements.h"

namespace atelier::towers
{

// Rows in pixels below the head.
constexpr float MerlonPitch = 32, MerlonHalf = 9.5f, MerlonFoot = 46, CopingFoot = 56, ArchSpring = 82,
                CorbelFoot = 108;
constexpr float ArchPitch = 16, ArchHalf = 5;
constexpr LinearColour SkyBetween = palette::Ink * 0.75f;

struct Merlon {
    float left, right, top, slope; // from its middle; below the head; how much lower the right side is
};

// Weather has worn each in its own way; those at the corners are whole, since two walls share them.
static Merlon MerlonOf(int i)
{
    const uint32_t name = (uint32_t(i) + 5u) * 2654435761u;
    const auto random = [&](int shift) { return float(name >> shift & 255) / 255; };
    if (i % 4 == 0)
        return {MerlonHalf + 1, MerlonHalf + 1, 0, 0};
    const bool broken = random(8) < 0.3f;
    return {MerlonHalf - 2 * random(4), MerlonHalf - 2 * random(12),
            broken ? 8 + 12 * random(16) : 1 + 4 * random(20), (broken ? 14.0f : 3.0f) * (random(24) - 0.5f)};
}

// 1 where a merlon stands.
static float MerlonAt(float x, float down, const Noise& age)
{
    const int i = Wrap(Floor(x / MerlonPitch + 0.5f), int(Girth / MerlonPitch));
    const Merlon m = MerlonOf(i);
    const float aside = (Fraction(x / MerlonPitch + 0.5f) - 0.5f) * MerlonPitch +
                        0.9f * age.Fbm(x / Girth * 128, down / Down * 512, 2);
    const float top = m.top + m.slope * aside / MerlonHalf;
    return Smooth(-m.left - 0.7f, -m.left + 0.7f, aside) * Smooth(m.right + 0.7f, m.right - 0.7f, aside) *
           (top <= 0 ? 1.0f : Smooth(top - 1, top + 1, down));
}

static LinearColour StoneOfParapet(float x, float down, const TowerNoise& noise)
{
    const float course = Floor((down - MerlonFoot) / 11);
    const uint32_t name =
        (uint32_t(Floor(x / 13 + 0.5f * course)) * 37u + uint32_t(course + 9) * 101u) * 2654435761u;
    const float own = float(name >> 12 & 255) / 255;
    LinearColour stone = Mix(palette::Slate, palette::Mist, 0.22f + 0.35f * own) *
                         (0.62f + 0.3f * noise.age.Fbm(x / Girth * 64, down / Down * 256, 4));
    const float inCourse = Fraction((down - MerlonFoot) / 11);
    stone = Mix(stone, palette::Ink, 0.5f * Smooth(0.82f, 0.95f, inCourse));
    if (down > MerlonFoot && down < CopingFoot) // the ledge catches the moon
        stone = Mix(palette::Slate, palette::Mist, 0.6f) * (0.75f + 0.2f * own);
    if (down >= ArchSpring)
        stone = stone * Mix(0.85f, 0.3f, Fraction((down - ArchSpring) / (CorbelFoot - ArchSpring) * 2.999f));
    return stone * Mix(1, 0.85f, Smooth(CopingFoot, CorbelFoot, down));
}

void BuildBattlements(Canvas& canvas, const TowerNoise& noise)
{
    // They stand out over the wall, which lies in their shade.
    canvas.Cover(Sheet().Each([](float, float y) {
        return 0.95f * Smooth(CorbelFoot + 60, CorbelFoot - 8, y - Head);
    }),
                 Dark);
    const auto isStone = [&](float x, float down) {
        if (down < MerlonFoot)
            return MerlonAt(x, Max(down, 0), noise.age);
        if (down < CopingFoot + 8)
            return 1.0f;
        // Little arches on corbels, which grow thinner downwards.
        const float aside = Abs(Fraction(x / ArchPitch) - 0.5f) * ArchPitch; // from an arch's middle
        const float low = (down - ArchSpring) / (CorbelFoot - ArchSpring);
        const float half =
            down < ArchSpring
                ? ArchHalf * Sqrt(Max(0, 1 - Pow((ArchSpring - down) / (ArchSpring - CopingFoot - 8), 2)))
                : ArchHalf + 0.9f * float(Floor(low * 3));
        return Smooth(half - 0.7f, half + 0.7f, aside) * Smooth(CorbelFoot + 1, CorbelFoot - 1, down);
    };
    canvas.Cover(Sheet().Each([](float, float y) { return y - Head < MerlonFoot ? 1.0f : 0.0f; }),
                 [&](float x, float y) {
                     // Of the far side's battlements one sees a little in the gaps.
                     const float behind =
                         MerlonAt(x + 13, Max(0, y - Head - 24), noise.age) * Smooth(22, 26, y - Head);
                     return Mix(SkyBetween, Mix(palette::Ink, palette::Night, 0.8f), behind);
                 });
    Mask stone = Sheet().Each([&](float x, float y) { return isStone(x, y - Head); });
    canvas.Cover(stone, [&](float x, float y) {
        const float shaded = Floor(x / WallWidth) % 2 == 1 ? 0.72f : 1.0f;
        return StoneOfParapet(x, y - Head, noise) * shaded;
    });
    // The moon lies on the tops and the left sides of the merlons, their right sides have a shade.
    canvas.Cover(Sheet().Each([&](float x, float y) {
        const float down = y - Head;
        if (down >= MerlonFoot)
            return 0.0f;
        const float here = stone.At(Floor(x), Floor(y));
        const float above = down < 3 ? here : stone.Sample(x, y - 3), left = stone.Sample(x - 2, y);
        return 0.75f * here * (1 - Min(above, left));
    }),
                 Mix(palette::Mist, palette::Bone, 0.3f));
    canvas.Cover(Sheet().Each([&](float x, float y) {
        const float down = y - Head;
        return down >= MerlonFoot ? 0.0f
                                  : 0.7f * stone.At(Floor(x), Floor(y)) * (1 - stone.Sample(x + 2.5f, y));
    }),
                 Dark);
}

static Mask RoofPatch()
{
    return Filled(Across, Down, Rectangle(Girth - WallWidth, 0, Girth, Head - 8));
}

void PaintSlates(Canvas& canvas, const TowerNoise& noise)
{
    canvas.Cover(RoofPatch(), [&](float x, float y) {
        const Noise::WorleyCell slab =
            noise.chip.Worley(x / 26 + 0.2f * noise.age.Gradient(x / 30, y / 60), y / 80);
        const float own = float(slab.name & 255) / 255;
        const LinearColour top = Mix(palette::Slate, palette::Mist, 0.10f + 0.4f * own) *
                                 (0.7f + 0.3f * noise.age.Fbm(x / 10, y / 20, 4));
        return Mix(Mix(palette::Moss, palette::Ink, 0.6f), top,
                   Smooth(0.02f, 0.10f, slab.second - slab.nearest));
    });
}

} // namespace atelier::towers
