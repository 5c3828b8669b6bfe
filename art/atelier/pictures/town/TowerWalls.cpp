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

// Pixels to the nearer of a wall's two corners.
static float ToCorner(float x)
{
    const float across = Fraction(x / WallWidth);
    return Min(across, 1 - across) * WallWidth;
}

// Where the stones show, 0 to 1: patches a few feathers wide, none so large that one would know a wall by it.
static float Bare(float x, float y, const TowerNoise& noise)
{
    const float patch =
        noise.zone.Fbm(x / Girth * 16, y / Down * 32, 4) + 0.55f * Smooth(0.45f, 1.0f, HeightAt(y));
    return Smooth(0.20f, 0.25f, patch);
}

static LinearColour TowerColour(float x, float y, const Plumage& plumage, const TowerNoise& noise)
{
    const Plumage::FeatherPlace f = plumage.At(x, y);
    const uint32_t name = uint32_t(f.row * Plumage::Columns + f.column) * 2654435761u;
    const float own = float(name >> 12 & 255) / 255;
    // The borders between the zones run along the feathers, elsewhere on each wall.
    constexpr float Lower[4] = {0.03f, -0.05f, 0.06f, -0.02f};
    const float h = HeightAt(y) + Lower[Wrap(Floor(x / WallWidth), 4)] +
                    0.07f * noise.zone.Gradient(float(f.column) * 0.57f, float(f.row) * 0.4f);
    // Barbs run from the shaft outwards and down.
    const float comb = noise.barb.Value((f.v * 30 - Abs(f.u) * 10) * 0.8f, float(f.column) + 0.5f);
    LinearColour c = FeatherColour(f, h, own, comb);
    // Rounded like a slate, and in the shade of the row above it.
    c = c * (1.05f - 0.35f * f.u * f.u + 0.18f * f.u);
    c = c * (1 - 0.70f * Smooth(0.58f, 0.34f, f.v));
    c = Mix(c, AshlarColour(x, y, noise), Bare(x, y, noise));
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

// Nothing lights the towers in the scene. Of two walls that meet one lies in the shade of the night, so that a tower is
// seen to have sides.
static void ShadeEveryOtherWall(Canvas& canvas)
{
    const Noise drift(533, 16, 64);
    canvas.Glaze(Sheet().Each([&](float x, float y) {
        const bool shaded = Floor(x / WallWidth) % 2 == 1;
        return shaded ? 0.8f + 0.5f * drift.Fbm(x / Girth * 16, y / Down * 64, 3) : 0.0f;
    }),
                 Mix(palette::Slate, palette::Mist, 0.25f), 0.75f);
}

// Walls are round, and go into the dark towards their corners: of one that is seen edge-on a few pixels have to show all of
// it, and where bright and dark lay side by side the strip would crawl.
static void DarkenCorners(Canvas& canvas, const Paper& paper)
{
    const Noise uneven(526, 8, 64);
    canvas.Cover(Sheet().Each([&](float x, float y) {
        const float corner = ToCorner(x);
        const float strayed = corner + 6 * uneven.Fbm(x / Girth * 8, y / Down * 64, 3);
        return 0.95f * Smooth(46, 6, Mix(corner, strayed, Smooth(4, 20, corner)));
    }),
                 Dark);
    Mask ink = Sheet();
    Pen pen(ink, paper, {.width = 1.3f, .wobble = 0.5f, .wave = 16, .skip = 0.3f}, 530);
    Hatch(pen, Sheet().Each([](float x, float) { return 0.8f * Hill(27, 16, ToCorner(x)); }),
          {.angle = 0.5f, .spacing = 5, .length = 22, .bend = 2}, 534);
    canvas.Cover(ink, palette::Ink, 0.6f);
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
    canvas.Cover(ink.By([&](float x, float y) { return 1 - Bare(x, y, noise); }), palette::Ink, 0.72f);
    LayStringCourses(canvas, paper);
    GrowIvy(canvas, paper);
    ShadeEveryOtherWall(canvas);
    LightWindows(canvas, paper);
    DarkenCorners(canvas, paper);
    BuildBattlements(canvas, noise);
    PaintSlates(canvas, noise);
    // The foot stands in the dark, the head against the sky.
    canvas.Tone(Mask(Across, Down).Each([](float, float y) { return Smooth(Foot + 40, Head + 420, y); }, 4),
                0.22f, 1);
    BuildFoot(canvas, paper, noise);
    paper.Show(canvas, 0.5f);
    return canvas;
}

} // namespace atelier
