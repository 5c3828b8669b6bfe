// SPDX-License-Identifier: MIT
// The walls of the village's houses and of the towers: four side by side, joining at their edges.
#include "art/atelier/DryBrush.h"
#include "art/atelier/Pen.h"
#include "art/atelier/Wash.h"
#include "art/atelier/pictures/town/Town.h"

#include <vector>

namespace atelier
{

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
    Vec2 from, to;
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

// The plaster, and the damp in it.
static void PaintPlaster(Canvas& canvas, const HouseNoise& noise)
{
    canvas.Ground([&](float x, float y) {
        const float t = 0.5f + 0.6f * noise.tint.Fbm(x / Size * 8, y / Size * 8, 5);
        const float strokes = noise.trowel.Fbm(x / Size * 24, y / Size * 48, 3);
        const float wet = Smooth(520, 740, y + 130 * noise.damp.Fbm(x / Size * 6, y / Size * 6, 3));
        const LinearColour clay =
            Mix(Mix(palette::Parchment, palette::Ochre, 0.22f), palette::Bone, 0.6f * Clamp(t)) * 0.66f;
        const LinearColour white = Mix(palette::Mist, palette::Bone, 0.45f + 0.5f * Clamp(t)) * 1.02f;
        // Brick dust in the lime: the lamp of the plaza has no blue, and makes of plain ochre a green.
        constexpr LinearColour Reddened = {1.06f, 0.53f, 0.38f};
        const LinearColour plaster = Mix(clay, white, Whitewash(x)) * Reddened * (1 + 0.14f * strokes);
        return Mix(plaster, Mix(palette::Slate, palette::Rust, 0.45f), 0.5f * wet);
    });
    const Mask blots = Mask(Side, Side, 0, true).Each([&](float x, float y) {
        return Smooth(0.08f, 0.3f, noise.damp.Fbm(x / Size * 6 + 2, y / Size * 6, 4));
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
        return Smooth(0.30f, 0.325f, fell);
    });
    canvas.Cover(bare, [&](float x, float y) { return RubbleAt(x, y, noise); });
    canvas.Glaze(Mask(bare).Blur(5).Subtract(bare), Mix(palette::Slate, palette::Rust, 0.3f), 0.9f);
}

// Plaster cracks where nothing holds it.
static void DrawCracks(Pen& pen, Dice& dice)
{
    for (int i = 0; i < 46; i++) {
        const Vec2 p = {dice.Range(0, Size), dice.Range(WallTop, WallFoot)};
        pen.nib.width = 1.6f;
        pen.Stroke(Shaken(Through({p, p + Vec2{dice.Range(-16, 16), dice.Range(10, 34)}}), 4, 9, dice.Next()),
                   {.start = 0.7f, .middle = 0.6f, .end = 0});
    }
}

// Each wall has a beam at its sill, its middle and its head, and braces of its own; the doors are on the
// two walls that look at the way.
struct HouseFrame {
    Vec2 braceFrom, braceTo, otherFrom, otherTo;
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

static void DrawTimber(Mask& timber, Pen& outline, DryBrush& brush, Dice& dice)
{
    for (int wall = 0; wall < 4; wall++) {
        const float left = WallWidth * float(wall);
        const Vec2 at = {left, 0};
        const HouseFrame& frame = Frames[wall];
        for (const float y : {268.0f, 394.0f, 508.0f})
            DrawBeam(timber, outline, brush, {{left - 6, y}, {left + WallWidth + 6, y}, 20}, dice.Next());
        DrawBeam(timber, outline, brush, {at + frame.braceFrom, at + frame.braceTo, 15}, dice.Next());
        DrawBeam(timber, outline, brush, {at + frame.otherFrom, at + frame.otherTo, 15}, dice.Next());
        for (const float x : frame.studs)
            DrawBeam(timber, outline, brush, {{left + x, 514}, {left + x + 2, 744}, 15}, dice.Next());
        DrawBeam(timber, outline, brush, {{left, WallTop - 30}, {left, WallFoot + 30}, 30}, dice.Next());
    }
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
    canvas.Cover(Roof(), Mix(palette::Rust, palette::Slate, 0.55f) * 0.8f);
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
    canvas.Glaze(shade.Multiply(Roof()), palette::Ochre, 0.4f);
    canvas.Cover(seams.Multiply(Roof()), palette::Ink, 0.9f);
}

// The wall at s above 0.75 looks at whoever comes along the way and is lit by the sky alone, as is the first
// one: a fifth of what is painted reaches the eye. They are whitewashed, their timber is nearly black.
Canvas HouseWalls()
{
    const Paper& paper = SketchPaper();
    const HouseNoise noise;
    Canvas canvas(Side, Side);
    PaintPlaster(canvas, noise);
    Mask timber(Side, Side, 0, true), ink(Side, Side, 0, true), grain(Side, Side, 0, true), wood(Side, Side),
        edges(Side, Side, 0, true), doors(Side, Side);
    Pen pen(ink, paper, {.width = 3, .wobble = 1, .wave = 40, .skip = 0.3f}, 505);
    Pen outline(edges, paper, {.width = 3, .wobble = 1, .wave = 40, .skip = 0.25f}, 516);
    DryBrush brush(grain, paper, {.width = 18, .count = 9, .thickness = 1.3f, .load = 0.5f}, 506);
    Dice dice(507);
    PaintRubble(canvas, noise);
    DrawCracks(pen, dice);
    DrawTimber(timber, outline, brush, dice);
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
    canvas.Cover(timber.Subtract(plinth), Mix(palette::Rust, palette::Ink, 0.78f), 0.95f);
    grain.Multiply(timber);
    canvas.Cover(grain, Mix(palette::Ochre, palette::Slate, 0.4f), 0.42f);
    edges.Subtract(wood).Subtract(plinth);
    canvas.Cover(edges, palette::Ink, 0.9f);
    canvas.Cover(wood, [&](float x, float y) {
        const float board = float(Floor(x / 13) * 7 % 5) / 5;
        return Mix(palette::Rust, palette::Ochre, 0.20f + 0.2f * board) *
               (0.50f + 0.25f * noise.trowel.Fbm(x / 4, y / 40, 3));
    });
    canvas.Cover(doors, palette::Ink, 0.92f);
    PaintRoof(canvas, dice);
    paper.Show(canvas, 0.6f);
    return canvas;
}

// The rows of feathers on the towers. They are laid from the foot up, smaller below: seen from the ground a
// tower grows towards its head.
struct FeatherRows {
    std::vector<float> top, length; // pixels
};

static FeatherRows RowsOfFeathers()
{
    FeatherRows rows;
    for (float y = WallTop - 130; y < WallFoot + 60;) {
        const float step = Mix(46, 17, Clamp((y - WallTop) / (WallFoot - WallTop)));
        rows.top.push_back(y);
        rows.length.push_back(step * 2.3f);
        y += step;
    }
    return rows;
}

// The outline of a feather: how far down it reaches, in its lengths, beside its shaft (u from -1 to 1).
static float FeatherEdge(float u)
{
    return 1 - 0.34f * u * u - 0.12f * Pow(Abs(u), 6);
}

// Somebody is up there: arched windows with light in them, each with its stones, its bars and its sill. The towers are
// seen from near: what is drawn here is drawn large.
static void LightWindows(Canvas& canvas, const Paper& paper)
{
    struct Window {
        float x, y, high; // pixels, the foot's middle
    };
    // clang-format off
    constexpr Window Windows[] = {
        {  92, 436, 44}, { 176, 580, 34},
        { 352, 380, 46}, { 424, 500, 40}, { 322, 640, 30},
        { 606, 466, 44}, { 676, 566, 34},
        { 884, 398, 46}, { 834, 520, 38}, { 938, 618, 30},
    };
    // clang-format on
    Mask reveal(Side, Side), light(Side, Side), stones(Side, Side), bars(Side, Side);
    Pen mason(stones, paper, {.width = 4, .wobble = 0.7f, .wave = 14, .skip = 0.15f}, 525),
        smith(bars, paper, {.width = 2.4f, .wobble = 0.4f, .skip = 0}, 531);
    for (const Window& w : Windows) {
        const float half = w.high * 0.34f;
        const auto arch = [&](float grown) {
            const float h = half + grown, top = w.high + grown;
            return Through({{w.x - h, w.y},
                            {w.x - h, w.y - top * 0.6f},
                            {w.x - h * 0.72f, w.y - top * 0.87f},
                            {w.x, w.y - top},
                            {w.x + h * 0.72f, w.y - top * 0.87f},
                            {w.x + h, w.y - top * 0.6f},
                            {w.x + h, w.y}},
                           1);
        };
        reveal.Fill(arch(5));
        light.Fill(arch(0));
        const Line outer = arch(7);
        mason.Stroke(outer, {.start = 0.8f, .middle = 1, .end = 0.7f});
        for (float t = 0.04f; t < 1; t += 0.115f) { // the joints of the arch
            const Vec2 p = PointAt(outer, t), d = DirectionAt(outer, t);
            mason.Stroke(Straight({p, p + Vec2{d.y, -d.x} * 7}, 1),
                         {.start = 0.7f, .middle = 0.6f, .end = 0.2f});
        }
        mason.nib.width = 6;
        mason.Stroke(Straight({{w.x - half - 11, w.y + 3}, {w.x + half + 11, w.y + 3}}),
                     {.start = 1, .middle = 1, .end = 0.8f});
        mason.nib.width = 4;
        smith.Stroke(Straight({{w.x, w.y}, {w.x + 0.6f, w.y - w.high}}, 1),
                     {.start = 1, .middle = 0.9f, .end = 0.9f});
        for (const float k : {0.3f, 0.62f})
            smith.Stroke(Straight({{w.x - half, w.y - w.high * k}, {w.x + half, w.y - w.high * k - 0.6f}}, 1),
                         {.start = 0.9f, .middle = 0.8f, .end = 0.9f});
    }
    canvas.Light(light.Blurred(30), palette::Ochre, 0.55f);
    canvas.Cover(reveal, palette::Ink, 0.92f);
    canvas.Cover(stones, Mix(palette::Mist, palette::Slate, 0.3f), 0.85f);
    const Noise curtain(532);
    canvas.Cover(Mask(light).Blur(0.4f), [&](float x, float y) {
        const float fold = 0.5f + 0.6f * curtain.Fbm(x / 5, y / 26, 2);
        return Mix(Mix(palette::Ochre, palette::Amber, 0.55f), Mix(palette::Amber, palette::Bone, 0.35f),
                   Clamp(fold));
    });
    canvas.Cover(bars.Multiply(light), palette::Ink, 0.9f);
}

// The feathers that cover a tower: which one lies at a place of the wall.
class Plumage
{
public:
    static constexpr int Columns = 16; // round the tower, so that the walls join
    static constexpr float Wide = Size / Columns;

    struct FeatherPlace {
        float u, v; // across -1 to 1, along 0 to 1 at the tip
        int row, column;
    };

    Plumage() : rows(RowsOfFeathers()), sway(528, 16, 8) {}

    FeatherPlace At(float x, float y) const;
    static bool IsFallen(const FeatherPlace& feather); // the wall shows behind it
    void Draw(Pen& pen) const;                         // the edges, and some shafts

private:
    // By which part of its width a row lies beside the one above.
    float Shift(int row) const
    {
        return (row % 2 == 0 ? 0.0f : 0.5f) + 0.16f * sway.Value(0.5f, float(row) + 0.5f);
    }
    float Reach(int row, int column) const // of its length: no two alike
    {
        return 0.86f + 0.14f * sway.Value(float(column) + 0.5f, float(row) * 1.7f);
    }

    FeatherRows rows;
    Noise sway;
};

Plumage::FeatherPlace Plumage::At(float x, float y) const
{
    const float bent = x + 5 * sway.Fbm(x / Size * 16, y / Size * 8, 2);
    FeatherPlace place = {0, 0, 0, 0};
    for (int row = 0; row < int(rows.top.size()); row++) {
        const size_t i = size_t(row);
        if (y < rows.top[i] || y > rows.top[i] + rows.length[i])
            continue;
        const float shifted = bent / Wide + Shift(row);
        const int column = Floor(shifted);
        const float u = (shifted - float(column)) * 2 - 1;
        const float v = (y - rows.top[i]) / (rows.length[i] * Reach(row, Wrap(column, Columns)));
        if (v <= FeatherEdge(u))
            return FeatherPlace{u, v, row, Wrap(column, Columns)};
    }
    return place;
}

bool Plumage::IsFallen(const FeatherPlace& f)
{
    const uint32_t name = uint32_t(f.row * 37 + f.column * 101) * 2654435761u;
    return (name >> 9 & 255) < 20;
}

void Plumage::Draw(Pen& pen) const
{
    for (size_t row = 0; row < rows.top.size(); row++) {
        pen.nib.width = 1.6f + rows.length[row] * 0.018f;
        for (int column = 0; column < Columns; column++) {
            const float x = (float(column) + 0.5f - Shift(int(row))) * Wide;
            const float l = rows.length[row] * Reach(int(row), column);
            Line edge;
            for (int i = -12; i <= 12; i++) {
                const float u = float(i) / 12, ey = rows.top[row] + l * FeatherEdge(u);
                const float ex = x + u * Wide / 2;
                edge.push_back({ex - 5 * sway.Fbm(ex / Size * 16, ey / Size * 8, 2), ey});
            }
            pen.Stroke(edge, {.start = 0.25f, .middle = 1, .end = 0.1f});
            if (column % 3 == int(row) % 3)
                pen.Stroke(Through({edge[12] - Vec2{0, l * 0.18f}, edge[12] - Vec2{1, l * 0.5f}}),
                           {.start = 0.1f, .middle = 0.6f, .end = 0});
        }
    }
}

struct TowerNoise {
    Noise barb = Noise(521, 256, 64), age = Noise(522, 8, 8), chip = Noise(523, 96, 96),
          zone = Noise(527, 8, 4);
};

// 0 at the head of a tower, 1 at its foot. The borders between its zones are not level.
static float TowerHeight(float x, float y, const Noise& zone)
{
    return (y - WallTop) / (WallFoot - WallTop) + 0.05f * zone.Fbm(x / Size * 8, y / Size * 4, 3);
}

// The colour of a feather at height h. `own` is a random number of the feather's, `tip` the distance to its edge in
// lengths, `comb` the brightness of its barbs.
static LinearColour FeatherColour(const Plumage::FeatherPlace& f, float h, float own, float tip, float comb)
{
    const LinearColour head =
        Mix(Mix(palette::Night, palette::Slate, 0.6f), palette::Moss, 0.25f + 0.4f * own);
    const LinearColour ring = Mix(palette::Bone, palette::Parchment, own) * 0.9f;
    const LinearColour copper = Mix(palette::Rust, palette::Ochre, 0.15f + 0.45f * own) * 1.15f;
    const LinearColour tail =
        Mix(Mix(palette::Parchment, palette::Ochre, 0.45f), palette::Slate, 0.3f * own) * 0.8f;
    const float isRing = Smooth(0.10f, 0.12f, h) * Smooth(0.19f, 0.17f, h);
    const float isCopper = Smooth(0.17f, 0.19f, h), isTail = Smooth(0.52f, 0.68f, h);
    LinearColour c = Mix(Mix(Mix(head, copper, isCopper), tail, isTail), ring, isRing);
    c = c * (0.70f + 0.42f * comb);
    // The head's scales shine cold, the breast's glow before their dark hem, the tail is barred.
    const float hem = Hill(0.13f, 0.085f, tip);
    c = Mix(c, Mix(palette::Mist, palette::ColdLight, 0.35f), 0.35f * hem * (1 - isCopper) * (1 - isRing));
    c = Mix(c, palette::Amber,
            0.75f * Hill(0.24f, 0.12f, tip) * isCopper * (1 - isTail) * (0.35f + 0.65f * own));
    c = Mix(c, palette::Ink, 0.85f * Hill(0.09f, 0.08f, tip) * isCopper * (1 - 0.6f * isTail));
    const float bar = Fraction(f.v * 3.4f + 0.25f * Abs(f.u));
    c = Mix(c, Mix(palette::Ink, palette::Rust, 0.3f),
            0.75f * isTail * Smooth(0.55f, 0.62f, bar) * Smooth(1, 0.9f, bar));
    // The shaft.
    c = Mix(c, palette::Parchment,
            0.5f * Smooth(0.08f, 0.03f, Abs(f.u)) * Smooth(0.72f, 0.5f, f.v) * (1 - isRing));
    return c;
}

static LinearColour TowerColour(float x, float y, const Plumage& plumage, const TowerNoise& noise)
{
    const Plumage::FeatherPlace f = plumage.At(x, y);
    const float tip = FeatherEdge(f.u) - f.v; // to the edge, in lengths
    const uint32_t name = uint32_t(f.row * Plumage::Columns + f.column) * 2654435761u;
    const float own = float(name >> 12 & 255) / 255;
    const float h = TowerHeight(x, y, noise.zone);
    const LinearColour stone = Mix(palette::Slate, palette::Mist, 0.15f + 0.35f * own);
    if (Plumage::IsFallen(f))
        return stone * (0.35f + 0.25f * noise.age.Fbm(x / Size * 64, y / Size * 64, 3));
    // Barbs run from the shaft outwards and down.
    const float comb = noise.barb.Value((f.v * 46 - Abs(f.u) * 13) * 0.8f, float(f.column) + 0.5f);
    LinearColour c = FeatherColour(f, h, own, tip, comb);
    // Rounded like a slate, and in the shade of the row above it.
    c = c * (1.05f - 0.35f * f.u * f.u + 0.18f * f.u);
    c = c * (1 - 0.72f * Smooth(0.60f, 0.36f, f.v));
    // Weather: bare stone comes through, more of it towards the foot.
    const float worn = noise.age.Fbm(x / Size * 8, y / Size * 8, 5) + 0.45f * h - 0.2f;
    c = Mix(c, stone * (0.75f + 0.3f * comb), 0.8f * Smooth(0.05f, 0.32f, worn));
    return Mix(c, palette::Ink,
               0.6f * Smooth(0.50f, 0.66f, noise.chip.Gradient(x / Size * 96, y / Size * 96)));
}

// The corners: an edge that the weather rubbed pale, with a dark joint beside it here and there.
static void PaintCorners(Canvas& canvas, const Paper& paper)
{
    Mask rubbed(Side, Side, 0, true), joint(Side, Side, 0, true);
    DryBrush edge(rubbed, paper, {.width = 9, .count = 7, .thickness = 1.5f, .load = 0.55f, .wave = 26}, 526);
    Pen crack(joint, paper, {.width = 2.6f, .wobble = 1.5f, .wave = 18, .skip = 0.6f}, 530);
    for (int wall = 0; wall < 4; wall++) {
        const float x = WallWidth * float(wall);
        edge.Stroke(Straight({{x, WallTop - 8}, {x, WallFoot + 8}}), 0.9f);
        crack.Stroke(Straight({{x - 5, WallTop}, {x - 5, WallFoot}}),
                     {.start = 0.6f, .middle = 0.8f, .end = 0.6f});
        crack.Stroke(Straight({{x + 6, WallTop}, {x + 6, WallFoot}}),
                     {.start = 0.6f, .middle = 0.7f, .end = 0.6f});
    }
    canvas.Cover(joint, palette::Ink, 0.8f);
    canvas.Cover(rubbed, Mix(palette::Mist, palette::Parchment, 0.4f), 0.55f);
}

// The roof: slabs of slate with moss between them.
static void PaintSlates(Canvas& canvas, const TowerNoise& noise)
{
    canvas.Cover(Roof(), [&](float x, float y) {
        const Noise::WorleyCell slab =
            noise.chip.Worley(x / 52 + 0.2f * noise.age.Gradient(x / 60, y / 60), y / 40);
        const float own = float(slab.name & 255) / 255;
        const LinearColour top = Mix(palette::Slate, palette::Mist, 0.10f + 0.4f * own) *
                                 (0.7f + 0.3f * noise.age.Fbm(x / 20, y / 20, 4));
        return Mix(Mix(palette::Moss, palette::Ink, 0.6f), top,
                   Smooth(0.02f, 0.10f, slab.second - slab.nearest));
    });
}

// A tower is a pheasant turned to stone: a dark head, a pale ring, a breast of copper scales, and the barred
// tail, which goes over into masonry and stands in the dark.
Canvas TowerWalls()
{
    const Paper& paper = SketchPaper();
    const Plumage plumage;
    const TowerNoise noise;
    Canvas canvas(Side, Side);
    canvas.Ground([&](float x, float y) { return TowerColour(x, y, plumage, noise); });
    // Rain has drawn the dark down, moss sits in the wet.
    const Mask stains = Mask(Side, Side, 0, true).Each([&](float x, float y) {
        return Smooth(0.10f, 0.42f, noise.age.Fbm(x / Size * 32 + 3, y / Size * 8, 4));
    });
    Wash(canvas, paper, stains,
         {.pigment = Mix(palette::Slate, palette::Ink, 0.3f), .density = 0.55f, .stray = 3}, 529);
    Mask ink(Side, Side, 0, true);
    Pen pen(ink, paper, {.width = 3.2f, .wobble = 1, .wave = 22, .skip = 0.3f}, 524);
    plumage.Draw(pen);
    canvas.Cover(ink, palette::Ink, 0.85f);
    LightWindows(canvas, paper);
    PaintCorners(canvas, paper);
    PaintSlates(canvas, noise);
    // The foot stands in the dark, the head against the sky.
    canvas.Tone(
        Mask(Side, Side).Each([](float, float y) { return Smooth(WallFoot + 20, WallTop + 150, y); }, 4),
        0.16f, 1);
    paper.Show(canvas, 0.6f);
    return canvas;
}

} // namespace atelier
