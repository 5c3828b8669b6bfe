// SPDX-License-Identifier: MIT
// A walk on sand: one print of a bare left foot, the same print as light, and the sand.
#include "art/atelier/DryBrush.h"
#include "art/atelier/Glow.h"
#include "art/atelier/Pen.h"
#include "art/atelier/Pictures.h"
#include "art/atelier/Wash.h"

namespace atelier
{

// The print is drawn twice as large as its texture. The walk goes to the left; the light comes from there,
// low, so that the mirrored print of the other foot is lit from the same side.
constexpr int W = 1024, H = 512;

// clang-format off
// From the heel along the hollow of the arch to the ball, and back along the outer edge, on which a foot rolls: it bulges
// at the small toe, in the middle and at the heel, and about half of the foot's breadth touches the ground all the way.
static const std::vector<Vector2> Sole = {
    {946, 268}, {928, 208}, {872, 178}, {802, 182}, {736, 206}, {672, 226}, {608, 216}, {540, 174}, {468, 130}, {388, 102},
    {314, 104}, {268, 138}, {252, 196}, {258, 254}, {276, 308}, {302, 360}, {342, 410}, {404, 438}, {478, 432}, {556, 422},
    {628, 427}, {690, 421}, {756, 396}, {826, 394}, {892, 370}, {934, 322},
};
struct Toe {
    Vector2 middle;
    float length, breadth, turn; // half, half, radians
};
// The tips lie on an arc; each toe is as near to the ball as its neighbours.
static const Toe Toes[] = {
    {{170, 142}, 80, 56, -0.10f},
    {{166, 231}, 49, 33,  0.05f},
    {{187, 292}, 45, 30,  0.12f},
    {{219, 347}, 41, 28,  0.18f},
    {{268, 397}, 38, 28,  0.24f},
};
// clang-format on

// Where the foot is, 0 to 1. The pad of a toe is broadest at its tip; what joins it to the ball has amount `joint`.
static Mask Foot(float joint)
{
    Mask foot = Filled(W, H, Round(Sole));
    for (const Toe& toe : Toes) {
        const auto back = [&](float part) {
            return toe.middle + Vector2{Cos(toe.turn), Sin(toe.turn)} * (toe.length * part);
        };
        foot.Fill(Limb(Straight({back(0.3f), back(2.1f)}), toe.breadth * 0.82f, toe.breadth * 0.7f,
                       toe.breadth * 0.75f),
                  joint);
        foot.Fill(Ellipse(back(-0.16f), toe.length * 0.84f, toe.breadth, toe.turn));
        foot.Fill(Ellipse(back(0.42f), toe.length * 0.62f, toe.breadth * 0.74f, toe.turn));
    }
    return foot.Shake(8, 120, 31).Shake(4, 46, 11).Shake(1, 9, 12);
}

// Where the foot presses, 0 to 1: deepest under heel, ball and toes, hardly at the arch. The sand keeps a trace of what
// joins the toes to the ball.
static Mask Pressed()
{
    const auto under = [](float x, float y, float cx, float cy, float rx, float ry) {
        return Bell(Length({(x - cx) / rx, (y - cy) / ry}));
    };
    return Foot(0.55f).By([&](float x, float y) {
        return Clamp(0.66f + 0.36f * under(x, y, 848, 280, 120, 100) +
                     0.36f * under(x, y, 360, 262, 110, 150) + 0.16f * under(x, y, 620, 370, 190, 60) +
                     0.36f * Smooth(250, 220, x) - 0.3f * under(x, y, 636, 232, 110, 54));
    });
}

// The ridges of the skin, 1 on a ridge and 0 between: whorls under ball and heel that run into each other
// across the arch, and one in each toe. The higher `bar`, 0 to 1, the thinner they are.
static Mask Ridges(float bar)
{
    constexpr float Spacing = 12, Melt = 64;
    const Noise warp(17), width(18);
    const Mask ways = Mask(W, H).Each([&](float x, float y) {
        const Vector2 p =
            Vector2{x, y} + Vector2{warp.Fbm(x / 120, y / 120, 3), warp.Fbm(x / 120 + 40, y / 120, 3)} * 26;
        const auto from = [p](float cx, float cy, float stretch) {
            return Length({(p.x - cx) / stretch, p.y - cy});
        };
        float way = -Melt * Log2(Exp(-from(350, 194, 1.1f) / Melt) + Exp(-from(372, 330, 1.25f) / Melt) +
                                 Exp(-from(848, 280, 1.3f) / Melt));
        for (const Toe& toe : Toes)
            if (Length(Vector2{x, y} - toe.middle) < toe.length + 8)
                way = 1.5f * from(toe.middle.x, toe.middle.y, 1.5f) + 7 * toe.turn;
        return way;
    });
    return Mask(W, H).Each([&](float x, float y) {
        const float wave = 0.5f + 0.5f * Cos(2 * Pi * ways.At(Floor(x), Floor(y)) / Spacing);
        // Between whorls the way hardly grows: a ridge would be a blot there.
        const float growth = 0.25f * Length({ways.Sample(x + 2, y) - ways.Sample(x - 2, y),
                                             ways.Sample(x, y + 2) - ways.Sample(x, y - 2)});
        // Here and there a ridge breaks off, and all differ in breadth.
        return Smooth(bar - 0.18f, bar + 0.18f, wave + 0.22f * width.Fbm(x / 15, y / 15, 2)) *
               Smooth(0.25f, 0.6f, growth);
    });
}

// How high the sand stands: pressed down, with walls that have slid a little, and pushed up around it in clods.
static Mask Relief(const Mask& pressed, const Mask& ridges)
{
    constexpr float Depth = 36, Heap = 34, Clod = 4, Grain = 1.1f, Ridge = 1.5f;
    const Mask floor = pressed.Blurred(6.5f), wide = pressed.Blurred(24);
    const Noise clods(19), grains(13);
    return Mask(W, H).Each([&](float x, float y) {
        const int column = Floor(x), row = Floor(y);
        const float deep = Clamp(floor.At(column, row) * 1.1f), near = wide.At(column, row);
        const float heap = Smooth(0, 0.42f, near) * (1 - deep) * (1 - deep);
        return -Depth * deep + heap * (Heap * near + Clod * clods.Fbm(x / 30, y / 30, 3)) +
               Smooth(0.02f, 0.3f, near) * Grain * grains.Fbm(x / 6, y / 6, 2) +
               Ridge * ridges.At(column, row) * deep;
    });
}

// The print lies on pale sand and, where the sand is taken away, on black. So what is dark in it is paint that covers,
// and what is light is a thin veil of a warm colour: it brightens sand, and leaves black nearly black. On black only the
// ridges of the skin draw the foot, as lines of a lamp's light that comes from one side.
static Canvas Footprint()
{
    const Paper& paper = SketchPaper();
    const Mask pressed = Pressed(), ridges = Ridges(0.58f);
    const Mask floor = pressed.Blurred(5), relief = Relief(pressed, ridges);
    const Noise lumps(14), crumbs(13), dots(30);
    const Mask window = Mask(W, H, 1).FadeToBorder(40);
    // The light is low: the wall on its side lies in its own shadow and throws another across the floor, the wall
    // opposite shines, and so does the outer side of what was pushed up.
    Mask shadow(W, H), lit(W, H), turned(W, H), damp(W, H), wall(W, H), thrown(W, H);
    for (int y = 0; y < H; y++)
        for (int x = 0; x < W; x++) {
            const float fx = float(x) + 0.5f, fy = float(y) + 0.5f;
            const float ragged = lumps.Fbm(fx / 24, fy / 24, 3), dot = dots.Fbm(fx / 5, fy / 5, 2);
            // Towards its edge the floor breaks up into grains.
            const float under = floor.At(x, y);
            const float deep = Smooth(0.06f, 0.5f, under + 0.12f * dot * Smooth(0.02f, 0.15f, under));
            float cast = 0;
            for (const float reach : {12.0f, 24.0f, 38.0f, 54.0f}) {
                const float far = reach * (1 + 0.3f * ragged);
                cast += 0.3f * (1 - Clamp(1.2f * floor.Sample(fx - far, fy - 0.4f * far)));
            }
            shadow.At(x, y) = deep * Clamp(cast) * window.At(x, y);
            const float slope = 0.36f * (relief.Sample(fx + 2, fy) - relief.Sample(fx - 2, fy)) +
                                0.18f * (relief.Sample(fx, fy + 2) - relief.Sample(fx, fy - 2));
            lit.At(x, y) = Smooth(0.15f, 2.8f, slope) * window.At(x, y);
            turned.At(x, y) = Smooth(0.12f, 2.4f, -slope) * window.At(x, y);
            damp.At(x, y) = deep * (0.86f + 0.2f * ragged + 0.12f * crumbs.Fbm(fx / 5, fy / 5, 2)) *
                            (1 - Smooth(0.8f, 2.8f, slope));
            wall.At(x, y) = Smooth(0.8f, 2.8f, slope) * deep * window.At(x, y);
            for (const float reach : {10.0f, 18.0f, 30.0f, 44.0f}) {
                const float far = reach * (1 + 0.3f * ragged);
                const float above = relief.Sample(fx - far, fy - 0.4f * far) - relief.At(x, y) - 0.12f * far;
                thrown.At(x, y) = Max(thrown.At(x, y), Smooth(0, 7, above) * (1 - deep) * window.At(x, y));
            }
        }
    damp.By([&](float x, float y) { return 0.85f + 0.6f * (0.5f - paper.Height(Floor(x), Floor(y))); });
    const LinearColour dark = Mix(palette::Ink, palette::Rust, 0.3f) * 0.12f;
    Canvas canvas(W, H);
    canvas.Cover(thrown.Blur(3), Mix(dark, palette::Rust, 0.1f), 0.5f);
    // The floor is lit from one side: there it is warm; on the other, and towards its edges, no more than dark.
    const Mask within = pressed.Blurred(18);
    const auto inside = [&](float x, float y) { return Smooth(0.34f, 0.72f, within.At(Floor(x), Floor(y))); };
    const auto side = [](float x, float y) { return Smooth(120, 440, y + 0.12f * x); };
    canvas.Cover(
        damp,
        [&](float x, float y) {
            return Mix(dark, Mix(palette::Rust, palette::Ochre, 0.15f),
                       Mix(0.12f, 0.32f, side(x, y)) * inside(x, y));
        },
        0.62f);
    canvas.Cover(shadow, dark, 0.5f);
    canvas.Cover(turned, dark, 0.6f);
    // The light lies on the ridges, more of it the farther they are from the wall that throws the shadow.
    Mask skin = ridges;
    skin.Multiply(floor).By([&](float x, float y) {
        const int column = Floor(x), row = Floor(y);
        const float worn = Smooth(-0.35f, 0.2f, lumps.Fbm(x / 90 + 7, y / 90, 3));
        return worn * (1 - 0.85f * shadow.At(column, row)) * (1 - turned.At(column, row)) *
               Smooth(-0.5f, 0.2f, dots.Fbm(x / 4 + 9, y / 4, 2)) * (0.35f + 0.65f * side(x, y)) *
               (0.3f + 0.7f * inside(x, y));
    });
    canvas.Cover(skin, Mix(palette::Ochre, palette::Parchment, 0.12f) * 1.05f, 0.66f);
    // The wall opposite the light, and the grains of what was pushed up; between the toes it lies in the toes' shadow.
    const Mask toes = Mask(W, H).Each([](float x, float y) { return Smooth(370, 300, x - 0.1f * y); });
    canvas.Cover(wall.Blur(3.5f).Subtract(Mask(toes).Scale(0.5f)), Mix(palette::Amber, palette::Ochre, 0.3f),
                 0.32f);
    Mask rim = lit.Blur(1.6f);
    rim.Subtract(wall).Subtract(toes).By(
        [&](float x, float y) { return 0.15f + 1.1f * Smooth(-0.1f, 0.5f, dots.Fbm(x / 4, y / 4, 2)); });
    canvas.Cover(rim, Mix(palette::Amber, palette::Bone, 0.12f), 0.24f);
    // Grains around the foot that catch the light, fewer the farther from it and the nearer to the picture's border: on
    // black they are all the ground there is.
    const Mask far = floor.Outside(110), open = Mask(W, H, 1).FadeToBorder(110);
    Mask grains(W, H);
    grains.Each([&](float x, float y) {
        const int column = Floor(x), row = Floor(y);
        const float rare = 0.34f + 0.3f * far.At(column, row) / 110 + 0.3f * (1 - open.At(column, row)) +
                           0.14f * lumps.Fbm(x / 60, y / 60 + 20, 3);
        return Smooth(rare, rare + 0.16f, dots.Gradient(x / 3.8f + 70, y / 3.8f)) *
               Smooth(0.3f, 0.1f, floor.At(column, row)) * window.At(column, row);
    });
    canvas.Cover(grains.Subtract(Mask(toes).Scale(0.6f)), Mix(palette::Ochre, palette::Amber, 0.5f), 0.42f);
    // Crumbs thrown out in front of the toes and behind the heel, and pen strokes in the shadow of the wall.
    Mask drops(W, H), strokes(W, H);
    Pen pen(drops, paper, {.width = 2}, 15),
        line(strokes, paper, {.width = 4, .wobble = 2, .wave = 20, .skip = 0.5f, .dry = 0.6f}, 16);
    pen.Splatter({130, 230}, 100, 40, 4);
    pen.Splatter({940, 280}, 60, 26, 4);
    pen.Splatter({560, 430}, 50, 16, 3.5f);
    line.Stroke(Part(Round(Sole), 0.36f, 0.52f), {.start = 0.1f, .middle = 0.7f, .end = 0});
    line.Stroke(Part(Round(Sole), 0.06f, 0.14f), {.start = 0, .middle = 0.6f, .end = 0});
    for (const Toe& toe : Toes)
        line.Stroke(Turned(Arc(toe.middle, toe.length, toe.breadth, 2.4f, 4.4f), toe.turn, toe.middle),
                    {.start = 0.1f, .middle = 0.8f, .end = 0});
    canvas.Cover(drops.Multiply(window), Mix(palette::Ink, palette::Rust, 0.3f), 0.55f);
    canvas.Cover(strokes, palette::Ink, 0.5f);
    return Squeezed(canvas, 512, 256);
}

// The same print as light: a thin line on each ridge, and an even light between them that ends where the foot does, so
// that ripples of sand under it do not hide its outline. It comes so near that it keeps the size in which it is drawn,
// and it is added to bright sand: with hardly any blue and not much green, or the sum would be white.
static Canvas FootprintWhite()
{
    const Noise breath(20), grain(29);
    const Mask foot = Foot(0).Blur(3);
    Mask outline = foot;
    outline.Subtract(foot).Scale(4);
    Mask ridges = Ridges(0.78f);
    ridges.Multiply(foot).By([&](float x, float y) {
        return (0.7f + 0.9f * breath.Fbm(x / 110, y / 110, 3)) *
               (0.55f + 0.75f * Smooth(-0.5f, 0.6f, grain.Fbm(x / 3.4f, y / 3.4f, 2)));
    });
    const LinearColour ember = Mix(palette::Ochre, palette::Rust, 0.35f);
    Canvas canvas(W, H, palette::Black);
    canvas.Light(ridges, ember, 0.15f);
    canvas.Light(outline, ember, 0.05f);
    canvas.Light(foot, ember, 0.045f);
    DarkenBorder(canvas, 70);
    return canvas;
}

// Ribs of sand fork where two places of opposite sense lie near each other: going round the one a rib is gained,
// round the other it is lost again.
struct Fork {
    Vector2 gain, loss;
};

static std::vector<Fork> MakeForks(float size, Dice& dice)
{
    std::vector<Fork> forks;
    for (int i = 0; i < 6; i++) {
        const Vector2 way = {dice.Range(60, 150), dice.Range(-48, 48)};
        // By twos of opposite sense, or the ribs would climb from tile to tile.
        for (float sense = -1; sense < 2; sense += 2) {
            const Vector2 at = {dice.Range(0, size), dice.Range(0, size)};
            forks.push_back({at, at + way * sense});
        }
    }
    return forks;
}

// Wind-ribbed sand, a tile. In the scene a tile is 30 units across the walk and 15 along it, so ribs are
// drawn twice as steep as they will lie. It lies once across the walk, and its corner is what the far band to the
// horizon is made of: towards both sides the sand is lost in the haze that this band is.
static Canvas Sand()
{
    constexpr int Size = 1024, Ribs = 21;
    const Paper& paper = SketchPaper(1024);
    const Noise warp(21, 7, 5), swell(23, 5, 3), grain(24, 256, 256);
    Dice dice(28);
    const std::vector<Fork> forks = MakeForks(Size, dice);
    // Where a place stands between one crest (a whole number) and the next.
    const auto phaseAt = [&](float x, float y) {
        const float u = x / Size, v = y / Size;
        float phase = v * Ribs + 0.7f * warp.Fbm(u * 7, v * 5, 3) + 0.62f;
        for (const Fork& f : forks)
            for (int k = 0; k < 9; k++) {
                const int column = k % 3 - 1, row = k / 3 - 1;
                const Vector2 p = {x - Size * float(column), y - Size * float(row)};
                phase += (Angle(p - f.gain) - Angle(p - f.loss)) / (2 * Pi);
            }
        return phase;
    };
    const Mask phase = Mask(Size, Size, 0, true).Each(phaseAt);
    Mask lee(Size, Size, 0, true), crest(Size, Size, 0, true), tone(Size, Size, 0, true);
    lee.Each([&](float x, float y) {
        const float f = Fraction(phase.At(Floor(x), Floor(y)));
        return Smooth(0.0f, 0.12f, f) * Smooth(0.55f, 0.15f, f) *
               Clamp(0.7f + 0.7f * swell.Fbm(x / Size * 5, y / Size * 3, 2));
    });
    crest.Each([&](float x, float y) {
        const float f = Fraction(phase.At(Floor(x), Floor(y)));
        return Smooth(0.66f, 0.95f, f) * Smooth(1.0f, 0.97f, f);
    });
    tone.Each(
        [&](float x, float y) { return Clamp(0.5f + 0.4f * swell.Fbm(x / Size * 5, y / Size * 3, 3)); });

    Canvas canvas(Size, Size);
    paper.Sheet(canvas, Mix(palette::Parchment, palette::Bone, 0.4f), 0.8f);
    const WashStyle flat = {.pool = 0, .granulation = 0.6f, .bloom = 0.5f, .bloomSize = 256, .stray = 0};
    canvas.Glaze(WashDensity(paper, tone, flat, 25), palette::Ochre, 0.30f);
    Wash(canvas, paper, lee,
         {.pigment = Mix(palette::Rust, palette::Slate, 0.5f),
          .density = 0.34f,
          .pool = 0.35f,
          .poolWidth = 6,
          .granulation = 0.9f,
          .bloom = 0.7f,
          .bloomSize = 200,
          .stray = 4},
         26);
    canvas.Cover(crest.Blur(1.4f), palette::Bone, 0.5f);
    // Wind in the sand: a dry brush along the ribs.
    Mask wind(Size, Size, 0, true);
    DryBrush brush(wind, paper,
                   {.width = 24, .count = 15, .thickness = 1.3f, .load = 0.46f, .ragged = 0.5f, .wave = 80},
                   27);
    for (int i = 0; i < 150; i++) {
        Vector2 p = {dice.Range(0, Size), dice.Range(0, Size)};
        const float level = phaseAt(p.x, p.y);
        Line line;
        for (int step = 0; step < 50; step++) {
            line.push_back(p);
            p.x += 3;
            // Stay on the rib.
            const float off = phaseAt(p.x, p.y) - level;
            p.y -= Clamp((off - float(Floor(off + 0.5f))) * Size / Ribs, -3, 3);
        }
        brush.Stroke(line, dice.Range(0.6f, 1));
    }
    canvas.Cover(wind, Mix(palette::Rust, palette::Ink, 0.4f), 0.3f);
    const Mask specks = Mask(Size, Size, 0, true).Each([&](float x, float y) {
        return Smooth(0.52f, 0.75f, grain.Gradient(x / 4, y / 4));
    });
    canvas.Cover(specks, Mix(palette::Rust, palette::Ink, 0.3f), 0.3f);
    paper.Show(canvas, 0.5f);
    // The haze of dusk, into which the ribs are lost long before it is all that is left. It is brightest before it is
    // that, as air is over a horizon.
    const auto side = [&](float x, float y) {
        const float border = Min(x, Size - x);
        return border + 60 * swell.Fbm(x / Size * 5, y / Size * 3 + 0.5f, 3) * Smooth(0, 60, border);
    };
    const LinearColour dusk =
        Mix(Mix(palette::Parchment, palette::Ochre, 0.4f), Mix(palette::Slate, palette::Rust, 0.25f), 0.55f);
    canvas.Cover(
        Mask(Size, Size, 0, true).Each([&](float x, float y) { return Smooth(320, 60, side(x, y)); }),
        [&](float x, float y) {
            return Mix(dusk, Mix(palette::Amber, palette::Parchment, 0.6f),
                       0.6f * Smooth(10, 110, side(x, y)));
        });
    return canvas;
}

// clang-format off
PictureGroup FX_FootprintPictures()
{
    return {"FX_Footprint", {
        {"Data/footprint.png",               512, 256, Format::PngRgba, Footprint},
        {"Data/footprint_white.jpg",        1024, 512, Format::Jpeg,    FootprintWhite},
        {"Data/sandbau.jpg",                1024, 1024, Format::Jpeg,   Sand},
    }};
}
// clang-format on

} // namespace atelier
