// SPDX-License-Identifier: MIT
// The walls of the village's houses.
#include "art/atelier/DryBrush.h"
#include "art/atelier/Pen.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/town/Town.h"
#include "art/atelier/pictures/town/VillageEarth.h"

#include <functional>
#include <vector>

namespace atelier
{

// Four walls side by side, joining at their edges, and a roof in the top right corner.
constexpr float Size = 1024;
constexpr int Side = 1024;
constexpr float WallWidth = 256, WallTop = 256, WallFoot = 768;
constexpr float RoofLeft = 768, RoofFoot = 256;

static Mask Roof()
{
    return Filled(Side, Side, Rectangle(RoofLeft, 0, Size, RoofFoot));
}

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
          trowel = Noise(509, 24, 48), rubble = Noise(510, 26, 26);
};

// The whitewash: 1 on the first and the last wall.
static float Whitewash(float x)
{
    const float w = x / WallWidth;
    return Max(Smooth(1.02f, 0.98f, w), Smooth(2.98f, 3.02f, w));
}

// The third wall, the front, is always lit, by up to so much.
constexpr float FrontLight = 0.85f;

// Of the other walls a twenty-fifth of what is painted reaches the eye wherever no light does, so that their drawing goes
// from black to the brightest white there is.
static float IsUnlit(float x)
{
    const float w = x / WallWidth;
    return w < 2 || w >= 3 ? 1.0f : 0.0f;
}

// The moon on an edge that no other light reaches, as bright as it can be painted. The lamp of the plaza has no blue, and
// makes of plain white and ochre a green: on the last wall, where it shines on the pillars, everything is reddened.
static LinearColour RimAt(float x)
{
    return x < 3 * WallWidth ? Mix(palette::Mist, palette::Bone, 0.9f) * 1.12f
                             : LinearColour{0.98f, 0.47f, 0.30f};
}

// The second wall is seen from the plaza, when the way lies behind: by then the moon is on it.
constexpr float BackLeft = WallWidth, BackMiddle = 1.5f * WallWidth;
static float IsBack(float x)
{
    return x >= BackLeft && x < BackLeft + WallWidth ? 1.0f : 0.0f;
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
        const LinearColour plaster =
            Mix(Mix(clay * Reddened, lime, Whitewash(x)), white * 0.86f, IsBack(x)) * (1 + 0.14f * strokes);
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

// Where the plaster fell the rubble of the wall is seen.
static void PaintRubble(Canvas& canvas, const HouseNoise& noise)
{
    const Mask bare = Mask(Side, Side, 0, true).Each([&](float x, float y) {
        const float fell =
            noise.damp.Fbm(x / Size * 12 + 3, y / Size * 12 + 1, 4) + 0.22f * Smooth(560, 740, y) - 0.10f;
        return Smooth(0.30f, 0.325f,
                      fell - 0.12f * IsUnlit(x)); // in the dark a stain would be taken for a hole
    });
    canvas.Cover(bare, [&](float x, float y) { return RubbleAt(x, y, noise); });
    canvas.Glaze(Mask(bare).Blur(5).Subtract(bare), Mix(palette::Slate, palette::Rust, 0.3f), 0.9f);
}

// Plaster cracks where nothing holds it.
static void DrawCracks(Pen& pen, Dice& dice)
{
    for (int i = 0; i < 46; i++) {
        const Vector2 p = {dice.Range(0, Size), dice.Range(WallTop, WallFoot)};
        pen.nib.width = 1.6f;
        pen.Stroke(
            Shaken(Through({p, p + Vector2{dice.Range(-16, 16), dice.Range(10, 34)}}), 4, 9, dice.Next()),
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

// The pen lays tone beside the posts and above the foot, never over wood.
static void HatchWalls(Pen& pen, const Mask& timber, const Mask& wood)
{
    Mask tone = Mask(Side, Side, 0, true).Each([](float x, float y) {
        const float beside = Fraction(x / WallWidth), post = Min(beside, 1 - beside) * WallWidth;
        const float inside = Smooth(WallTop - 4, WallTop + 6, y) * Smooth(WallFoot + 30, WallFoot, y);
        return inside *
               Max(0.5f * Smooth(46, 12, post), Max(0.45f * Smooth(640, 752, y), 0.6f * Smooth(320, 276, y)));
    });
    tone.Subtract(Mask(timber).Unite(wood).Blur(2).Scale(2));
    pen.nib.width = 1.8f;
    Hatch(pen, tone, {.angle = 1.15f, .spacing = 7, .length = 34}, 508);
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

// The roof: shingles in rows, a little crooked.
static void PaintRoof(Canvas& canvas, Dice& dice)
{
    canvas.Cover(Roof(), RimAt(RoofLeft)); // no other light reaches it than the lamp
    Mask shade(Side, Side), seams(Side, Side, 0, true);
    Pen slater(seams, SketchPaper(), {.width = 3, .wobble = 1, .wave = 40, .skip = 0.3f}, 520);
    for (int row = 0; row < 8; row++)
        for (int i = 0; i < 9; i++) {
            const float x = RoofLeft + (float(i) - (row % 2 == 0 ? 0.5f : 0.0f)) * 32, y = float(row) * 32;
            const float foot = y + 32 + dice.Range(-4, 4);
            const Line shingle = Shaken(
                Through({{x + 2, y}, {x + 2, foot - 8}, {x + 16, foot}, {x + 30, foot - 8}, {x + 30, y}}),
                1.5f, 14, dice.Next());
            shade.Fill(shingle, dice.Range(0, 0.8f));
            slater.Stroke(shingle, {.start = 0.4f, .middle = 1, .end = 0.3f});
        }
    canvas.Glaze(shade.Multiply(Roof()), palette::Rust, 0.7f);
    canvas.Cover(seams.Multiply(Roof()), palette::Ink, 0.9f);
}

// Tiles in rows, the lower over the upper's joints: dark, each its own way, the moon on some of their rims. `foot` is
// the lower edge of the last row at x; the rows lie parallel to it.
static void LayTiles(Canvas& canvas, const Mask& where, const std::function<float(float x)>& foot, float row)
{
    const Noise own(541), worn(542, 24, 24);
    canvas.Cover(where, [&](float x, float y) {
        const float up = (foot(x) - y) / row;
        const float line = float(Floor(up)), v = 1 - (up - line);
        const float u = x / (row * 0.8f) + 0.5f * line;
        const float across = Fraction(u) * 2 - 1;
        const LinearColour tile = Mix(Mix(palette::Slate, palette::Rust,
                                          0.25f + 0.25f * own.Value(Floor(u) * 1.0f + 0.5f, line + 0.5f)),
                                      palette::Ink, 0.35f) *
                                  (0.85f + 0.35f * worn.Fbm(x / Size * 24, y / Size * 24, 4));
        const float edge = 0.86f - 0.16f * across * across;
        const float unlit = IsUnlit(x);
        LinearColour rim = Mix(tile, Mix(palette::Mist, RimAt(x), unlit),
                               Mix(0.45f, 0.9f, unlit) * Hill(edge - 0.07f, Mix(0.08f, 0.15f, unlit), v));
        rim = Mix(rim, palette::Ink * 0.7f,
                  Max(Smooth(edge, edge + 0.06f, v), Smooth(0.86f, 0.97f, Abs(across))));
        // The moon on the ridge.
        return Mix(rim, RimAt(x),
                   unlit * Smooth(WallTop + 13, WallTop + 9, y + 3 * worn.Fbm(x / Size * 24, 0.5f, 2)));
    });
}

// Eaves hang over the three walls along the way. The fourth is a gable: the roof falls off on both sides of it, its
// boards are pale with moonlight, and somebody has left a lamp on.
static void PaintRoofLines(Canvas& canvas, const Paper& paper)
{
    constexpr float Apex = WallTop + 6, GableFoot = WallTop + 172;
    const auto gable = [](float x) {
        return Mix(Apex, GableFoot, Min(1, Abs(x - BackMiddle) / (WallWidth / 2)));
    };
    const Noise sag(543, 16, 4);
    const auto eaves = [&](float x) {
        const float tile = Fraction(x / Size * 48) * 2 - 1;
        return WallTop + 50 - 5 * tile * tile + 5 * sag.Fbm(x / Size * 16, 0.3f, 2);
    };
    const auto isRoof = [&](float x, float y, float lower) {
        const float foot = IsBack(x) > 0 ? gable(x) : eaves(x);
        return Smooth(WallTop - 60, WallTop - 56, y) * Smooth(foot + lower + 1, foot + lower - 1, y);
    };
    Mask roof = Mask(Side, Side, 0, true).Each([&](float x, float y) { return isRoof(x, y, 0); });
    Mask shade = Mask(Side, Side, 0, true).Each([&](float x, float y) { return isRoof(x, y, 20); });
    canvas.Glaze(shade.Blur(6).Subtract(roof), Mix(palette::Slate, palette::Ink, 0.5f), 0.85f);
    LayTiles(
        canvas, roof, [&](float x) { return IsBack(x) > 0 ? gable(x) : WallTop + 50.0f; }, 26);
    Mask boards(Side, Side), joints(Side, Side);
    Pen board(boards, paper, {.width = 15, .least = 0.7f, .wobble = 1, .wave = 60, .skip = 0, .dry = 0.1f},
              544);
    Pen ink(joints, paper, {.width = 3.5f, .wobble = 1, .wave = 50, .skip = 0.1f}, 545);
    for (const float side : {-1.0f, 1.0f}) {
        const Line verge =
            Straight({{BackMiddle, Apex + 8}, {BackMiddle + side * (WallWidth / 2 - 5), GableFoot - 2}});
        board.Stroke(verge, {.start = 1, .middle = 1, .end = 1});
        ink.Stroke(Beside(verge, 9), {.start = 1, .middle = 0.9f, .end = 0.8f});
        ink.Stroke(Beside(verge, -9), {.start = 1, .middle = 0.9f, .end = 0.8f});
    }
    canvas.Cover(boards, Mix(palette::Mist, palette::Bone, 0.9f) * 1.1f);
    canvas.Cover(joints, palette::Ink, 0.9f);
}

// The windows of the back, lit.
static void LightBack(Canvas& canvas, const Paper& paper)
{
    struct Pane {
        float x, y, half, high;
    };
    constexpr Pane Panes[] = {{406, 634, 34, 92}, {314, 470, 27, 66}, {384, 376, 18, 44}};
    Mask light(Side, Side), frame(Side, Side);
    Pen joiner(frame, paper, {.width = 6, .least = 0.8f, .wobble = 0.8f, .skip = 0}, 546);
    for (const Pane& p : Panes) {
        const Line outline = Straight({{p.x - p.half, p.y},
                                       {p.x - p.half + 1, p.y - p.high},
                                       {p.x + p.half, p.y - p.high - 1},
                                       {p.x + p.half, p.y},
                                       {p.x - p.half, p.y}});
        light.Fill(outline);
        joiner.Stroke(outline, {.start = 1, .middle = 1, .end = 1});
        joiner.Stroke(Straight({{p.x, p.y}, {p.x, p.y - p.high}}),
                      {.start = 0.8f, .middle = 0.8f, .end = 0.8f});
        joiner.Stroke(Straight({{p.x - p.half, p.y - p.high * 0.6f}, {p.x + p.half, p.y - p.high * 0.6f}}),
                      {.start = 0.8f, .middle = 0.8f, .end = 0.8f});
    }
    Mask spill = light.Blurred(26);
    spill.By([](float x, float) { return IsBack(x); });
    canvas.Light(spill, palette::Ochre, 0.8f);
    const Noise curtain(547);
    canvas.Cover(light, [&](float x, float y) {
        return Mix(palette::Amber * 1.15f, palette::Bone, 0.35f + 0.5f * curtain.Fbm(x / 9, y / 30, 2));
    });
    canvas.Cover(frame, Mix(palette::Rust, palette::Ink, 0.75f));
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
    PaintRubble(canvas, noise);
    DrawCracks(pen, dice);
    DrawTimber(timber, posts, outline, brush, dice);
    DrawDoors(wood, doors);
    timber.Subtract(Roof());
    // Under beams and eaves lies a shadow.
    const Mask cast = Mask(Side, Side).Each([&](float x, float y) {
        const int from = Floor(y) - 9;
        return from < 0 ? 0.0f : timber.At(Floor(x), from);
    });
    canvas.Glaze(Mask(cast).Blur(3).Subtract(timber), palette::Slate, 0.55f);
    HatchWalls(pen, timber, wood);
    canvas.Cover(Mask(ink).Subtract(Mask(timber).Unite(wood)), palette::Ink, 0.8f);
    // The doors reach down through the plinth.
    const Mask plinth = Plinth(noise);
    canvas.Cover(plinth, [&](float x, float y) { return RubbleAt(x, y, noise) * 0.85f; });
    canvas.Cover(
        timber.Subtract(plinth),
        [](float x, float) {
            return Mix(Mix(palette::Rust, palette::Ink, 0.78f), palette::Ink * 0.4f, IsUnlit(x));
        },
        0.97f);
    grain.Multiply(timber).By([](float x, float) { return Mix(1, 0.3f, IsUnlit(x)); });
    canvas.Cover(grain, Mix(palette::Ochre, palette::Slate, 0.4f), 0.42f);
    posts.By([](float x, float) { return IsUnlit(x); }).Subtract(plinth).Subtract(Roof());
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
    LightBack(canvas, paper);
    PaintRoofLines(canvas, paper);
    PaintRoof(canvas, dice);
    paper.Show(canvas, 0.6f);
    Canvas front = canvas.Crop(2 * int(WallWidth), 0, int(WallWidth), Side);
    AllowForMist(front, FrontLight);
    return canvas.Lay(front, 2 * int(WallWidth), 0);
}

} // namespace atelier
