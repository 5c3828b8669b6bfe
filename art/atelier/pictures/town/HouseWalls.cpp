// SPDX-License-Identifier: MIT
// The walls of the village's houses.
#include "art/atelier/DryBrush.h"
#include "art/atelier/Pen.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/town/HouseAtlas.h"
#include "art/atelier/pictures/town/Town.h"
#include "art/atelier/pictures/town/VillageEarth.h"

#include <vector>

namespace atelier
{

using namespace houses;

// Timber: one beam from place to place.
struct Beam {
    Vector2 from, to;
    float width;
};

static void DrawBeam(Mask& timber, Pen& pen, DryBrush& grain, const Beam& beam, uint32_t seed)
{
    const Line spine = Straight({beam.from, beam.to});
    const Line body = Shaken(Limb(spine, beam.width / 2, beam.width / 2, beam.width / 2), 2, 40, seed);
    timber.Fill(body);
    pen.nib.width = 3.4f;
    pen.Stroke(Shaken(Beside(spine, beam.width / 2), 2, 50, seed),
               {.start = 0.8f, .middle = 0.9f, .end = 0.6f});
    pen.Stroke(Shaken(Beside(spine, -beam.width / 2), 2, 50, seed + 1),
               {.start = 0.6f, .middle = 0.7f, .end = 0.5f});
    grain.bristles.width = beam.width * 0.8f;
    grain.Stroke(spine);
}

static void DrawDoor(Mask& wood, Pen& pen, float left, float right, float top)
{
    const float middle = (left + right) / 2;
    const Line outline = Through({{left, WallFoot - 40},
                                  {left + 1, top + 24},
                                  {middle, top},
                                  {right - 1, top + 24},
                                  {right, WallFoot - 40}});
    Line closed = outline;
    closed.push_back({right, WallFoot});
    closed.push_back({left, WallFoot});
    wood.Fill(closed);
    pen.nib.width = 5;
    pen.Stroke(Line(closed), {.start = 0.9f, .middle = 1, .end = 0.8f});
    pen.nib.width = 2.4f;
    for (float x = left + 13; x < right - 6; x += 13)
        pen.Stroke(Straight({{x, top + 16}, {x + 1, WallFoot - 4}}),
                   {.start = 0.3f, .middle = 0.9f, .end = 0.4f});
    for (const float y : {top + 46, WallFoot - 62}) {
        pen.nib.width = 6;
        pen.Stroke(Straight({{left + 4, y}, {right - 16, y + 2}}), {.start = 1, .middle = 0.8f, .end = 0.2f});
    }
    pen.Dot({right - 12, (top + WallFoot) / 2}, 4);
}

struct HouseNoise {
    Noise tint = Noise(501, 8, 8), stone = Noise(502, 28, 28), damp = Noise(503, 6, 6),
          trowel = Noise(509, 24, 48), rubble = Noise(510, 26, 26), grit = Noise(511, 256, 256);
};

// The whitewash: 1 on the first and the last wall.
static float Whitewash(float x)
{
    const float w = x / WallWidth;
    return Max(Smooth(1.02f, 0.98f, w), Smooth(2.98f, 3.02f, w));
}

// The plaster, and the damp in it.
static void PaintPlaster(Canvas& canvas, const HouseNoise& noise)
{
    canvas.Ground([&](float x, float y) {
        const float t = 0.5f + 0.6f * noise.tint.Fbm(x / Size * 8, y / Size * 8, 5);
        const float strokes = noise.trowel.Fbm(x / Size * 24, y / Size * 48, 3);
        const float wet = Smooth(520, 740, y + 130 * noise.damp.Fbm(x / Size * 6, y / Size * 6, 3));
        const LinearColour clay =
            Mix(Mix(palette::Parchment, palette::Ochre, 0.22f), palette::Bone, 0.6f * Clamp(t)) * 0.66f;
        const LinearColour white = Mix(palette::Mist, palette::Bone, 0.8f + 0.3f * Clamp(t)) * 1.12f;
        // Brick dust in the lime, most of it where the lamp shines.
        constexpr LinearColour Reddened = {1.06f, 0.53f, 0.38f}, Limed = {1.06f, 0.62f, 0.46f};
        const float first = Smooth(1.02f, 0.98f, x / WallWidth);
        const LinearColour lime = white * Mix(Limed, LinearColour{1, 1, 1}, first);
        // Under the moon's rims and the lamps the walls themselves are a value below white.
        const LinearColour dim = Mix(palette::Slate, palette::Bone, 0.84f + 0.10f * Clamp(t)) * 1.25f;
        const LinearColour plaster =
            Mix(Mix(clay * Reddened, lime, Whitewash(x)), dim, Max(first, IsBack(x))) *
            (1 + 0.14f * strokes + Mix(0.20f, 0, IsUnlit(x)) * noise.grit.Fbm(x / 4, y / 4, 2));
        return Mix(plaster, Mix(palette::Slate, palette::Rust, 0.45f), Mix(0.5f, 0.2f, IsUnlit(x)) * wet);
    });
    const Mask blots = Mask(Side, Side, 0, true).Each([&](float x, float y) {
        return Mix(1, 0.25f, IsUnlit(x)) *
               Smooth(0.08f, 0.3f, noise.damp.Fbm(x / Size * 6 + 2, y / Size * 6, 4));
    });
    Wash(canvas, SketchPaper(), blots,
         {.pigment = Mix(palette::Ochre, palette::Mist, 0.45f), .density = 0.35f, .pool = 0.9f, .stray = 6},
         504);
}

// The colour of stones with their joints.
static LinearColour RubbleAt(float x, float y, const HouseNoise& noise)
{
    const Noise::WorleyCell cell = noise.rubble.Worley(
        x / Size * 26 + 0.15f * noise.stone.Gradient(x / Size * 28, y / Size * 28), y / Size * 26);
    const float own = float(cell.name & 255) / 255;
    const LinearColour c = Mix(Mix(palette::Rust, palette::Slate, 0.5f),
                               Mix(palette::Mist, palette::Parchment, 0.4f), 0.7f * own) *
                           (0.62f + 0.35f * noise.stone.Fbm(x / Size * 28, y / Size * 28, 4));
    return Mix(palette::Ink, c, Smooth(0.03f, 0.13f, cell.second - cell.nearest));
}

// Bricks in courses, each of its own fire.
static LinearColour BrickAt(float x, float y, const HouseNoise& noise)
{
    constexpr float Long = 23, High = 10.5f, Joint = 1.5f;
    const float bent = y + 0.8f * noise.stone.Gradient(x / Size * 28, y / Size * 28);
    const int course = Floor(bent / High);
    const float along = x / Long + 0.5f * float(course & 1);
    const uint32_t name = (uint32_t(Floor(along)) * 131u + uint32_t(course) * 71u) * 2654435761u;
    const float own = float(name >> 12 & 255) / 255;
    const float inX = Min(Fraction(along), 1 - Fraction(along)) * Long,
                inY = Min(Fraction(bent / High), 1 - Fraction(bent / High)) * High;
    const LinearColour brick = Mix(Mix(palette::Rust, palette::Slate, 0.5f * own),
                                   Mix(palette::Rust, palette::Ochre, 0.4f), 0.5f * Fraction(own * 5)) *
                               (0.55f + 0.25f * own + 0.25f * noise.grit.Fbm(x / 3, y / 3, 3));
    const float lit = 1 + 0.25f * Smooth(0.45f, 0.1f, Fraction(bent / High)); // its upper edge
    return Mix(Mix(palette::Parchment, palette::Slate, 0.55f) * 0.50f, brick * lit,
               Smooth(0.3f * Joint, Joint, Min(inX, inY)));
}

// Where the plaster fell the bricks of the wall are seen, in the shade of its broken edge.
static void PaintBricks(Canvas& canvas, const HouseNoise& noise)
{
    const Mask bare = Mask(Side, Side, 0, true).Each([&](float x, float y) {
        const float fell = noise.damp.Fbm(x / Size * 12 + 3, y / Size * 12 + 1, 4) +
                           0.07f * noise.grit.Fbm(x / 9, y / 9, 3) + 0.22f * Smooth(560, 740, y) - 0.10f;
        return Smooth(0.295f, 0.33f,
                      fell - 0.12f * IsUnlit(x)); // in the dark a stain would be taken for a hole
    });
    const auto step = [&](float x, float y,
                          Vector2 by) { // how much of the wall stands up there beside a bare place
        return bare.Sample(x, y) * (1 - bare.Sample(x + by.x, y + by.y));
    };
    canvas.Cover(bare, [&](float x, float y) {
        const float shade = Max(step(x, y, {-2, -4}), 0.6f * step(x, y, {-4, -8}));
        return BrickAt(x, y, noise) * Mix(1, 0.25f, shade);
    });
    // The plaster's thickness is paler, and dirt has run from its lower edge.
    canvas.Cover(Mask(Side, Side, 0, true).Each([&](float x, float y) {
        return 0.7f * (1 - bare.Sample(x, y)) * bare.Sample(x - 1.2f, y - 1.8f);
    }),
                 Mix(palette::Parchment, palette::Ochre, 0.35f), 0.8f);
    canvas.Glaze(Mask(Side, Side, 0, true).Each([&](float x, float y) {
        const float run = Max(bare.Sample(x, y - 6), 0.5f * bare.Sample(x, y - 14));
        return 0.5f * run * (1 - bare.Sample(x, y)) *
               Smooth(-0.3f, 0.5f, noise.trowel.Fbm(x / 11, y / 60, 2));
    }),
                 Mix(palette::Slate, palette::Rust, 0.5f), 0.7f);
}

// Plaster cracks where nothing holds it.
static void DrawCracks(Pen& pen, Dice& dice)
{
    for (int i = 0; i < 46; i++) {
        const Vector2 p = {dice.Range(0, Size), dice.Range(WallTop, WallFoot)};
        pen.nib.width = 1.3f;
        pen.Stroke(
            Shaken(Through({p, p + Vector2{dice.Range(-16, 16), dice.Range(10, 34)}}), 5, 7, dice.Next()),
            {.start = 0.7f, .middle = 0.6f, .end = 0});
    }
}

// Each wall has a beam at its sill, its middle and its head, and braces of its own; the doors are on the
// two walls that look at the way.
struct HouseFrame {
    Vector2 braceFrom, braceTo, otherFrom, otherTo;
    float studs[2];
    float door; // left edge, 0: none
};
// clang-format off
constexpr HouseFrame Frames[4] = {
    {{ 14, 500}, { 92, 408}, {242, 500}, {170, 400}, { 92, 128}, 152},
    {{ 14, 740}, {110, 520}, {110, 500}, {240, 290}, {110, 190},   0},
    {{242, 740}, {176, 530}, { 14, 290}, { 84, 492}, {128, 172},  20},
    {{ 20, 290}, {110, 492}, {236, 290}, {146, 492}, {128, 128},   0},
};
// clang-format on

static void DrawTimber(Mask& timber, Mask& posts, Pen& outline, DryBrush& brush, Dice& dice)
{
    for (int wall = 0; wall < 4; wall++) {
        const float left = WallWidth * float(wall);
        const Vector2 at = {left, 0};
        const HouseFrame& frame = Frames[wall];
        // In the dark only what is broad is seen.
        const float broad = Mix(1, 1.5f, IsUnlit(left));
        for (const float y : {268.0f, 394.0f, 508.0f})
            DrawBeam(timber, outline, brush, {{left - 6, y}, {left + WallWidth + 6, y}, 20 * broad},
                     dice.Next());
        DrawBeam(timber, outline, brush, {at + frame.braceFrom, at + frame.braceTo, 15 * broad}, dice.Next());
        DrawBeam(timber, outline, brush, {at + frame.otherFrom, at + frame.otherTo, 15 * broad}, dice.Next());
        for (const float x : frame.studs)
            DrawBeam(timber, outline, brush, {{left + x, 514}, {left + x + 2, 744}, 15 * broad}, dice.Next());
        DrawBeam(posts, outline, brush, {{left, WallTop - 30}, {left, WallFoot + 30}, 30}, dice.Next());
    }
    timber.Unite(posts);
}

static void DrawDoors(Mask& wood, Mask& doors)
{
    constexpr float DoorTop = 604, DoorWidth = 84;
    Pen joiner(doors, SketchPaper(), {.width = 3, .wobble = 0.8f, .wave = 40, .skip = 0.2f}, 517);
    for (int wall = 0; wall < 4; wall++)
        if (Frames[wall].door > 0) {
            const float left = WallWidth * float(wall) + Frames[wall].door;
            DrawDoor(wood, joiner, left, left + DoorWidth, DoorTop);
        }
}

// The pen lays tone under the eaves and above the foot, here and there, never over wood.
static void HatchWalls(Pen& pen, const Mask& timber, const Mask& wood, const HouseNoise& noise)
{
    Mask tone = Mask(Side, Side, 0, true).Each([&](float x, float y) {
        const float inside = Smooth(WallTop - 4, WallTop + 6, y) * Smooth(WallFoot + 30, WallFoot, y);
        const float patch = Smooth(-0.15f, 0.35f, noise.tint.Fbm(x / Size * 32, y / Size * 16, 2));
        return inside * patch * Max(0.5f * Smooth(620, 752, y), 0.6f * Smooth(340, 280, y));
    });
    tone.Subtract(Mask(timber).Unite(wood).Blur(2).Scale(2));
    pen.nib.width = 1.3f;
    Hatch(pen, tone, {.angle = 0.95f, .spacing = 5, .length = 26, .uneven = 0.8f, .bend = 4}, 508);
}

// The foot of field stones.
static Mask Plinth(const HouseNoise& noise)
{
    constexpr float top = 738;
    return Mask(Side, Side, 0, true).Each([&](float x, float y) {
        return Smooth(top - 3, top + 3, y + 7 * noise.tint.Fbm(x / Size * 32, 0.5f, 2)) *
               Smooth(WallFoot + 40, WallFoot + 30, y);
    });
}

// Somebody is up behind most walls. What no other light reaches shows these windows and the rims as its brightest.
static void LightWindows(Canvas& canvas, const Paper& paper)
{
    struct Pane {
        float x, y, half, high; // the foot's middle
    };
    constexpr Pane Panes[] = {{406, 634, 34, 92}, {314, 470, 27, 66}, {384, 376, 18, 44}, {128, 484, 25, 66},
                              {197, 590, 17, 44}, {176, 372, 15, 38}, {950, 640, 21, 58}};
    Mask light(Side, Side), frame(Side, Side), shutters(Side, Side), slats(Side, Side);
    Pen joiner(frame, paper, {.width = 7, .least = 0.8f, .wobble = 0.8f, .skip = 0}, 546);
    for (const Pane& p : Panes) {
        const Line outline = Straight({{p.x - p.half, p.y},
                                       {p.x - p.half + 1, p.y - p.high},
                                       {p.x + p.half, p.y - p.high - 1},
                                       {p.x + p.half, p.y},
                                       {p.x - p.half, p.y}});
        light.Fill(outline);
        for (const float side : {-1.0f, 1.0f}) {
            const float hinge = p.x + side * (p.half + 3), edge = hinge + side * 0.62f * p.half;
            shutters.Fill(Straight({{hinge, p.y + 3},
                                    {hinge, p.y - p.high - 3},
                                    {edge, p.y - p.high - 1},
                                    {edge, p.y + 5},
                                    {hinge, p.y + 3}}));
            for (float y = p.y - p.high + 6; y < p.y; y += 9)
                slats.Fill(
                    Limb(Straight({{hinge + side * 3, y}, {edge - side * 3, y + side}}), 1.6f, 1.6f, 1.6f));
        }
        joiner.Stroke(outline, {.start = 1, .middle = 1, .end = 1});
        joiner.Stroke(Straight({{p.x, p.y}, {p.x, p.y - p.high}}),
                      {.start = 0.8f, .middle = 0.8f, .end = 0.8f});
        joiner.Stroke(Straight({{p.x - p.half, p.y - p.high * 0.6f}, {p.x + p.half, p.y - p.high * 0.6f}}),
                      {.start = 0.8f, .middle = 0.8f, .end = 0.8f});
    }
    canvas.Cover(shutters, palette::Ink * 0.5f, 0.96f);
    canvas.Cover(slats, Mix(palette::Slate, palette::Mist, 0.35f), 0.8f);
    Mask spill = light.Blurred(26);
    canvas.Light(spill, palette::Ochre, 0.8f);
    const Noise curtain(547);
    canvas.Cover(light, [&](float x, float y) {
        return Mix(palette::Amber * 1.15f, palette::Bone, 0.35f + 0.5f * curtain.Fbm(x / 9, y / 30, 2));
    });
    canvas.Cover(frame, palette::Ink * 0.5f);
}

// The wall that the lamp shines on goes into the dark at its corners: of one that is seen edge-on little is left, and light
// there would be a stair of bright steps. What filtering adds from beyond its right edge goes with it.
static void DarkenByLamp(Canvas& canvas)
{
    canvas.Cover(Mask(Side, Side, 0, true).Each([](float x, float y) {
        const float corner = Min(x - 3 * WallWidth, Size - x);
        const float dark = x < 2 ? 1 : IsByLamp(x) * Smooth(44, 12, corner);
        return y < RoofFoot && x >= RoofLeft ? 0 : dark;
    }),
                 palette::Ink * 0.4f, 0.93f);
}

// The wall at s above 0.75 looks at whoever comes along the way and no light reaches it, nor the first one. They are
// whitewashed, their corner posts too; their beams are black.
Canvas HouseWalls()
{
    const Paper& paper = SketchPaper();
    const HouseNoise noise;
    Canvas canvas(Side, Side);
    PaintPlaster(canvas, noise);
    Mask timber(Side, Side, 0, true), posts(Side, Side, 0, true), ink(Side, Side, 0, true),
        grain(Side, Side, 0, true), wood(Side, Side), edges(Side, Side, 0, true), doors(Side, Side);
    Pen pen(ink, paper, {.width = 3, .wobble = 1, .wave = 40, .skip = 0.3f}, 505);
    Pen outline(edges, paper, {.width = 3, .wobble = 1, .wave = 40, .skip = 0.25f}, 516);
    DryBrush brush(grain, paper, {.width = 18, .count = 9, .thickness = 1.3f, .load = 0.5f}, 506);
    Dice dice(507);
    PaintBricks(canvas, noise);
    DrawCracks(pen, dice);
    DrawTimber(timber, posts, outline, brush, dice);
    DrawDoors(wood, doors);
    timber.Subtract(RoofPatch());
    // Under beams and eaves lies a shadow.
    const Mask cast = Mask(Side, Side).Each([&](float x, float y) {
        const int from = Floor(y) - 9;
        return from < 0 ? 0.0f : timber.At(Floor(x), from);
    });
    canvas.Glaze(Mask(cast).Blur(3).Subtract(timber), palette::Slate, 0.55f);
    HatchWalls(pen, timber, wood, noise);
    canvas.Cover(Mask(ink).Subtract(Mask(timber).Unite(wood)), palette::Ink, 0.8f);
    // The doors reach down through the plinth.
    const Mask plinth = Plinth(noise);
    canvas.Cover(plinth, [&](float x, float y) { return RubbleAt(x, y, noise) * 0.85f; });
    timber.Subtract(plinth);
    canvas.Cover(
        timber,
        [](float x, float) {
            return Mix(Mix(palette::Rust, palette::Ink, 0.78f), palette::Ink * 0.4f, IsUnlit(x));
        },
        0.97f);
    // Each beam has an edge towards the moon, and a face before its shade.
    canvas.Cover(Mask(Side, Side, 0, true).Each([&](float x, float y) {
        const float here = timber.Sample(x, y);
        const float edge = here * (1 - timber.Sample(x - 1.5f, y - 3)),
                    face = here * (1 - timber.Sample(x - 5, y - 9));
        return Max(0.8f * edge, 0.34f * face);
    }),
                 [](float x, float) {
                     return Mix(Mix(palette::Rust, palette::Ochre, 0.5f), RimAt(x) * 0.55f, IsUnlit(x));
                 });
    grain.Multiply(timber).By([](float x, float) { return Mix(1, 0.4f, IsUnlit(x)); });
    canvas.Cover(grain, Mix(palette::Ochre, palette::Slate, 0.4f), 0.42f);
    posts.Subtract(plinth).Subtract(RoofPatch()).By([](float x, float) {
        return IsUnlit(x) * (1 - IsByLamp(x));
    });
    canvas.Cover(
        posts, [](float x, float) { return RimAt(x); }, 0.96f);
    edges.Subtract(wood).Subtract(plinth);
    canvas.Cover(edges, palette::Ink, 0.9f);
    canvas.Cover(wood, [&](float x, float y) {
        const float board = float(Floor(x / 13) * 7 % 5) / 5;
        return Mix(palette::Rust, palette::Ochre, 0.20f + 0.2f * board) *
               (0.50f + 0.25f * noise.trowel.Fbm(x / 4, y / 40, 3));
    });
    canvas.Cover(doors, palette::Ink, 0.92f);
    LightWindows(canvas, paper);
    PaintRoofLines(canvas, paper);
    DarkenByLamp(canvas);
    PaintRoof(canvas);
    paper.Show(canvas, 0.6f);
    Canvas front = canvas.Crop(2 * int(WallWidth), 0, int(WallWidth), Side);
    AllowForMist(front, FrontLight);
    return canvas.Lay(front, 2 * int(WallWidth), 0);
}

} // namespace atelier
