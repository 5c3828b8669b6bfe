// SPDX-License-Identifier: MIT
// The walls of the towers, brought together.
#include "art/atelier/Pen.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/town/TowerBattlements.h"
#include "art/atelier/pictures/town/TowerCourses.h"
#include "art/atelier/pictures/town/TowerFoot.h"
#include "art/atelier/pictures/town/TowerPlumage.h"
#include "art/atelier/pictures/town/TowerWindows.h"
#include "art/atelier/pictures/town/Town.h"

namespace atelier
{

using namespace towers;

static LinearColour TowerColour(float x, float y, const Plumage& plumage, const TowerNoise& noise)
{
    const Plumage::FeatherPlace f = plumage.At(x, y);
    const uint32_t name = uint32_t(f.row * Plumage::Columns + f.column) * 2654435761u;
    // Neighbours are of nearly one colour, which changes along the band.
    const float own = Clamp(0.60f * float(name >> 12 & 255) / 255 + 0.18f +
                            0.5f * noise.zone.Fbm(x / Girth * 16 + 5, y / Down * 32, 2));
    // The borders between the zones run along the feathers, higher on one side of the tower than on the other.
    const float h = HeightAt(y) + 0.05f * Cos(2 * Pi * x / Girth) +
                    0.07f * noise.zone.Gradient(float(f.column) * 0.57f, float(f.row) * 0.4f);
    // Barbs run from the shaft outwards and down.
    const float comb = noise.barb.Value((f.v * 30 - Abs(f.u) * 10) * 0.8f, float(f.column) + 0.5f);
    LinearColour c = FeatherColour(f, h, own, comb);
    // Rounded like a slate, and in the shade of the row above it.
    c = c * (1.05f - 0.30f * f.u * f.u - 0.22f * f.u);
    c = c * (1 - 0.62f * Smooth(0.58f, 0.34f, f.v));
    // So is the band itself, whose upper edge is nearer the light than its lower one.
    c = c * (1.12f - 0.45f * Smooth(0.5f, 0.85f, TurnAt(x, y)));
    if (!f.grown) {
        const bool shaded = plumage.At(x - 2.5f, y - 6).grown; // by the feathers that end above
        c = AshlarColour(x, y, noise) * (shaded ? 0.5f : 1.0f);
    }
    return Mix(c, palette::Ink,
               0.5f * Smooth(0.50f, 0.66f, noise.chip.Gradient(x / Girth * 96, y / Down * 384)));
}

// Ivy climbs from the foot, now here and now there.
static void GrowIvy(Canvas& canvas, const Paper& paper)
{
    Mask leaves = Sheet(), stems = Sheet();
    Pen stem(stems, paper, {.width = 1.6f, .wobble = 1.5f, .wave = 20, .skip = 0.1f}, 560);
    Dice dice(561);
    for (int shoot = 0; shoot < 26; shoot++) {
        float x = dice.Range(0, Girth), y = Foot + 10;
        const float end = Foot - dice.Range(120, 560);
        Line line;
        float lean = 0;
        while (y > end) {
            line.push_back({x, y});
            lean = 0.85f * lean + dice.Range(-0.8f, 0.8f);
            x += lean;
            y -= dice.Range(3, 6);
            if (dice.Chance(0.8f))
                leaves.Fill(Ellipse({x + dice.Range(-7, 7), y + dice.Range(-4, 4)}, dice.Range(1.6f, 3.6f),
                                    dice.Range(1.4f, 2.8f), dice.Range(0, 3)),
                            dice.Range(0.5f, 1));
        }
        if (line.size() > 3)
            stem.Stroke(line, {.start = 1, .middle = 0.8f, .end = 0.2f});
    }
    canvas.Cover(Mask(leaves).Blur(3), Dark, 0.5f);
    canvas.Cover(stems, palette::Ink, 0.8f);
    const Noise own(562);
    canvas.Cover(leaves, [&](float x, float y) {
        return Mix(Mix(palette::Moss, palette::Ink, 0.45f), Mix(palette::Moss, palette::Mist, 0.35f),
                   Clamp(own.Value(x / 4, y / 4) * 1.2f - 0.2f));
    });
}

static void ShadeEveryOtherWall(Canvas& canvas)
{
    const Noise drift(533, 16, 64);
    canvas.Glaze(Sheet().Each([&](float x, float y) {
        return IsShaded(x) ? 0.8f + 0.5f * drift.Fbm(x / Girth * 16, y / Down * 64, 3) : 0.0f;
    }),
                 Mix(palette::Slate, palette::Mist, 0.25f), 0.68f);
}

// The moon stands on the left: a wall is pale at its left corner and goes into the dark towards its right one, where the
// next begins. Both are drawn out over many pixels: of a wall that is seen edge-on a few have to show all of it, and where
// bright and dark lay side by side the strip would crawl.
static void ShadeCorners(Canvas& canvas, const Paper& paper)
{
    const Noise uneven(526, 8, 64);
    canvas.Cover(Sheet().Each([&](float x, float y) {
        const float left = Fraction(x / WallWidth) * WallWidth, right = WallWidth - left;
        const float strayed = right + 12 * uneven.Fbm(x / Girth * 8, y / Down * 64, 3);
        return 0.96f * Smooth(62, 5, Mix(right, strayed, Smooth(4, 20, right)));
    }),
                 Dark);
    canvas.Light(Sheet().Each([&](float x, float y) {
        const float left = Fraction(x / WallWidth) * WallWidth;
        const float worn = 0.8f + 0.5f * uneven.Fbm(x / Girth * 8 + 3, y / Down * 256, 3);
        return Smooth(22, 0, left) * Smooth(0, 2.5f, left) * worn * (IsShaded(x) ? 0.6f : 1);
    }),
                 Mix(palette::Slate, palette::Mist, 0.5f), 0.17f);
    Mask ink = Sheet();
    Pen pen(ink, paper, {.width = 1.3f, .wobble = 0.5f, .wave = 16, .skip = 0.3f}, 530);
    Hatch(pen, Sheet().Each([](float x, float) {
        return 0.7f * Hill(34, 18, (1 - Fraction(x / WallWidth)) * WallWidth);
    }),
          {.angle = 0.5f, .spacing = 5, .length = 22, .bend = 2}, 534);
    canvas.Cover(ink, palette::Ink, 0.5f);
}

// The box of a tower has its walls in the order 3, 2, 1, 0 of the atlas, and turns two of them over: as one walks round it,
// these run from their right edge in the atlas to their left one.
static Canvas PutOnTheBox(const Canvas& round)
{
    constexpr int Wide = int(WallWidth);
    Canvas atlas(Across, Down);
    for (int y = 0; y < Down; y++)
        for (int x = 0; x < Across; x++) {
            const int wall = x / Wide, in = x % Wide;
            const bool turnedOver = wall == 1 || wall == 2;
            atlas.At(x, y) = round.At((3 - wall) * Wide + (turnedOver ? Wide - 1 - in : in), y);
        }
    return atlas;
}

// A tower is a pheasant turned to stone: a dark head, a pale ring, a breast of copper scales, and the barred
// tail, which goes over into masonry and stands in the dark.
Canvas TowerWalls()
{
    const Paper& paper = SketchPaper();
    const Plumage plumage;
    const TowerNoise noise;
    Canvas canvas(Across, Down);
    canvas.Ground([&](float x, float y) { return TowerColour(x, y, plumage, noise); });
    // Rain has drawn the dark down.
    const Mask stains = Sheet().Each([&](float x, float y) {
        return Smooth(0.10f, 0.42f, noise.age.Fbm(x / Girth * 48 + 3, y / Down * 40, 4));
    });
    Wash(canvas, paper, stains,
         {.pigment = Mix(palette::Slate, palette::Ink, 0.3f), .density = 0.3f, .stray = 2}, 529);
    Mask ink = Sheet();
    Pen pen(ink, paper, {.width = 1.5f, .wobble = 0.5f, .wave = 14, .skip = 0.25f}, 524);
    plumage.Draw(pen);
    canvas.Cover(ink, palette::Ink, 0.6f);
    LayMoulding(canvas, paper);
    GrowIvy(canvas, paper);
    ShadeEveryOtherWall(canvas);
    LightWindows(canvas, paper);
    ShadeCorners(canvas, paper);
    BuildBattlements(canvas, noise);
    canvas = PutOnTheBox(canvas);
    PaintSlates(canvas, noise);
    // The foot stands in the dark, the head against the sky.
    canvas.Tone(Mask(Across, Down).Each([](float, float y) { return Smooth(Foot + 40, Head + 420, y); }, 4),
                0.22f, 1);
    BuildFoot(canvas, paper, noise);
    paper.Show(canvas, 0.5f);
    return canvas;
}

} // namespace atelier
