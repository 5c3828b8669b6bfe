// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/town/TowerBattlements.h"

namespace atelier::towers
{

// Rows in pixels below the head. Up here a pixel is 1.6 times as wide as it is high.
constexpr float MerlonPitch = 32, MerlonHalf = 9.8f, SillBack = 27, MerlonFoot = 46, CopingFoot = 56;
constexpr float ArchPitch = 16, ArchCrown = 63, ArchSpring = 70, ArchHalf = 4.4f, CorbelFoot = 88,
                ShadeFoot = 150;
constexpr float CapHigh = 6, CapOut = 1.4f; // the coping stone on a merlon
constexpr float Reveal = 3.8f;              // what one sees of the thickness of a merlon beside it
constexpr LinearColour SkyBetween = palette::Ink * 0.75f;

struct Merlon {
    float left, right, top, slope; // from its middle; below the head; how much lower the right side is
    bool capped;
};

// Weather has worn each in its own way; those at the corners are whole, since two walls share them.
static Merlon MerlonOf(int i)
{
    const uint32_t name = (uint32_t(i) + 5u) * 2654435761u;
    const auto random = [&](int shift) { return float(name >> shift & 255) / 255; };
    if (i % 4 == 0)
        return {MerlonHalf + 0.5f, MerlonHalf + 0.5f, 0, 0, true};
    const bool broken = random(8) < 0.25f;
    return {MerlonHalf - random(4), MerlonHalf - random(12), broken ? 9 + 7 * random(16) : 1 + 2 * random(20),
            broken ? 10.0f * (random(24) - 0.5f) : 0.0f, !broken};
}

// What stands at a place of the battlements' rows, 0 to 1.
struct MerlonParts {
    float front, cap, reveal; // the reveal is that on its right
};

static MerlonParts MerlonAt(float x, float down, const Noise& age)
{
    const int i = Wrap(Floor(x / MerlonPitch + 0.5f), int(Girth / MerlonPitch));
    const Merlon m = MerlonOf(i);
    const float aside = (Fraction(x / MerlonPitch + 0.5f) - 0.5f) * MerlonPitch +
                        0.4f * age.Fbm(x / Girth * 32, down / Down * 160, 2);
    const auto between = [&](float left, float right) {
        return Smooth(left - 0.6f, left + 0.6f, aside) * Smooth(right + 0.6f, right - 0.6f, aside);
    };
    const float top = m.top + m.slope * aside / MerlonHalf;
    const float under = top <= 0 ? 1.0f : Smooth(top - 1, top + 1, down);
    const bool isCap = m.capped && down < m.top + CapHigh;
    // Its right side runs back to the far edge of the sill.
    const float back = Reveal * Clamp((MerlonFoot - down) / (MerlonFoot - SillBack));
    return {between(-m.left, m.right) * under,
            isCap ? between(-m.left - CapOut, m.right + CapOut) * under : 0,
            between(m.right, m.right + Mix(Reveal, 0, 1 - Min(1, back / Reveal + 0.25f))) *
                Smooth(m.top + 4, m.top + 6, down) * under};
}

// Squared stones; `inset` darkens the joints.
static LinearColour StoneOfParapet(float x, float down, const TowerNoise& noise)
{
    const float course = float(Floor((down - MerlonFoot) / 11));
    const float along = x / 13 + 0.5f * course;
    const uint32_t name = (uint32_t(Floor(along)) * 37u + uint32_t(course + 9) * 101u) * 2654435761u;
    const float own = float(name >> 12 & 255) / 255;
    LinearColour stone = Mix(palette::Slate, palette::Mist, 0.22f + 0.35f * own) *
                         (0.62f + 0.3f * noise.age.Fbm(x / Girth * 64, down / Down * 256, 4));
    const float inCourse = Fraction((down - MerlonFoot) / 11),
                inStone = Min(Fraction(along), 1 - Fraction(along));
    stone =
        Mix(stone, palette::Ink, 0.5f * Max(Smooth(0.82f, 0.95f, inCourse), Smooth(0.10f, 0.03f, inStone)));
    if (down > MerlonFoot && down < CopingFoot) // the ledge catches the moon
        stone = Mix(palette::Slate, palette::Mist, 0.6f) * (0.75f + 0.2f * own);
    return stone;
}

// The parapet stands out on a row of corbels, with a little arch from each to the next: 1 where there is stone.
static float CorbelsAt(float x, float down)
{
    const float aside = Abs(Fraction(x / ArchPitch) - 0.5f) * ArchPitch; // from an arch's middle
    if (down < ArchSpring) {
        const float up = (ArchSpring - down) / (ArchSpring - ArchCrown);
        const float half = up > 1 ? -2 : ArchHalf * Sqrt(Max(0, 1 - up * up));
        return Smooth(half - 0.6f, half + 0.6f, aside);
    }
    // A corbel is cut round below, in two steps.
    const float left = (CorbelFoot - down) / (CorbelFoot - ArchSpring);
    const float half = ArchPitch / 2 - (ArchPitch / 2 - ArchHalf) * (left > 0.5f ? 1.0f : 0.72f);
    return Smooth(half - 0.6f, half + 0.6f, aside) * Smooth(0, 0.08f, left);
}

static void BuildMerlons(Canvas& canvas, const TowerNoise& noise)
{
    canvas.Cover(Sheet().Each([](float, float y) { return y - Head < MerlonFoot ? 1.0f : 0.0f; }),
                 SkyBetween);
    // Between the merlons the sill slopes outwards.
    canvas.Cover(Sheet().Each([](float, float y) {
        return Smooth(SillBack - 1, SillBack + 1, y - Head) * (y - Head < MerlonFoot ? 1.0f : 0.0f);
    }),
                 [&](float x, float y) {
                     const float out = (y - Head - SillBack) / (MerlonFoot - SillBack);
                     return Mix(palette::Slate, palette::Mist, 0.25f) *
                            ((0.20f + 0.45f * out) * (0.8f + 0.3f * noise.age.Fbm(x / Girth * 64, y / 8, 3)));
                 });
    const Mask reveal = Sheet().Each([&](float x, float y) {
        return y - Head < MerlonFoot ? MerlonAt(x, Max(y - Head, 0), noise.age).reveal : 0.0f;
    });
    canvas.Cover(reveal, [&](float x, float y) { return StoneOfParapet(x, y - Head, noise) * 0.30f; });
    const Mask front = Sheet().Each([&](float x, float y) {
        return y - Head < MerlonFoot ? MerlonAt(x, Max(y - Head, 0), noise.age).front : 0.0f;
    });
    const Mask caps = Sheet().Each([&](float x, float y) {
        return y - Head < MerlonFoot ? MerlonAt(x, Max(y - Head, 0), noise.age).cap : 0.0f;
    });
    canvas.Cover(front, [&](float x, float y) {
        // In the shade of its coping, lit on its left edge.
        const float shade = caps.Sample(x, y - 5) * (1 - caps.Sample(x, y));
        const float edge = 1 - front.Sample(x - 1.5f, y);
        const float other = IsShaded(x) ? 0.8f : 1.0f;
        return Mix(StoneOfParapet(x, y - Head, noise) * (other * Mix(1, 0.4f, shade)),
                   Mix(palette::Mist, palette::Bone, 0.3f), 0.6f * edge * (1 - shade));
    });
    canvas.Cover(caps, [&](float x, float y) {
        const float lit = Smooth(CapHigh, 1, y - Head - 2);
        return Mix(palette::Slate, Mix(palette::Mist, palette::Bone, 0.3f), 0.35f + 0.5f * lit) *
               (0.85f + 0.3f * noise.age.Fbm(x / Girth * 128, y / 6, 2));
    });
}

void BuildBattlements(Canvas& canvas, const TowerNoise& noise)
{
    // They stand out over the wall, which lies in their shade.
    canvas.Cover(Sheet().Each([](float, float y) { return 0.95f * Smooth(ShadeFoot, CorbelFoot, y - Head); }),
                 Dark);
    const Mask stone = Sheet().Each([&](float x, float y) {
        const float down = y - Head;
        return down < MerlonFoot ? 0.0f : CorbelsAt(x, down);
    });
    canvas.Cover(stone, [&](float x, float y) {
        const float down = y - Head, other = IsShaded(x) ? 0.8f : 1.0f;
        // Corbels stand before the dark, each with a light side and a dark one.
        const float side = Fraction(x / ArchPitch + 0.5f) - 0.5f; // from a corbel's middle
        const float round = down > ArchSpring ? Mix(0.85f, 0.35f, Smooth(-0.12f, 0.2f, side)) : 1.0f;
        const float low = Mix(1, 0.6f, Smooth(ArchSpring, CorbelFoot, down));
        return StoneOfParapet(x, down, noise) * (other * round * low);
    });
    // A line of shade under the ledge.
    canvas.Cover(Sheet().Each([](float, float y) { return 0.6f * Hill(CopingFoot + 1.5f, 3, y - Head); }),
                 Dark);
    BuildMerlons(canvas, noise);
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
