// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/opening/Opening.h"

#include "art/atelier/Wash.h"
#include "art/atelier/pictures/Wood.h"

namespace atelier
{

// One has come down: its plate of roots stands up against the sky.
static void DrawFallen(Mask& front, Pen& pen, Dice& dice)
{
    const Line trunk = Through({{428, 214}, {380, 226}, {320, 238}, {262, 244}, {214, 250}});
    front.Fill(Shaken(Limb(trunk, 17, 12, 4), 2, 24, 592));
    const Vector2 hub = {436, 206};
    front.Fill(Shaken(Ellipse(hub, 22, 42, -0.2f), 7, 16, 593));
    for (int i = 0; i < 21; i++) {
        const float a = -2.2f + 0.215f * float(i), way = dice.Range(26, 58);
        const Vector2 d = {Cos(a), Sin(a)};
        DrawBranch(pen, hub + Vector2{d.x * 16, d.y * 34}, a + dice.Range(-0.3f, 0.3f), way, 8, 4,
                   {.gnarl = 0.42f, .rise = -0.02f, .spread = 0.7f}, dice);
    }
    for (int i = 0; i < 13; i++) { // stubs of its branches
        const Vector2 from = PointAt(trunk, 0.12f + 0.065f * float(i));
        DrawBranch(pen, from, -1.9f + dice.Range(-0.5f, 0.5f), dice.Range(14, 46), 4, 2, {.gnarl = 0.3f},
                   dice);
    }
}

// One has broken half way up; its top hangs by a splinter.
static void DrawSnapped(Mask& front, Pen& pen, Dice& dice)
{
    front.Fill(Shaken(Limb(Through({{812, 252}, {816, 190}, {822, 126}}), 15, 10, 8.5f), 1.5f, 20, 594));
    for (const Vector2 splinter : {Vector2{813, 92}, Vector2{819, 104}, Vector2{826, 84}, Vector2{830, 112}})
        front.Fill(Straight({{splinter.x - 3, 134}, splinter, {splinter.x + 3, 134}}));
    const Line top = Through({{824, 116}, {862, 146}, {902, 196}, {934, 250}});
    front.Fill(Limb(top, 7.5f, 5.5f, 1.5f));
    for (int i = 0; i < 16; i++) {
        const float t = 0.14f + 0.053f * float(i);
        for (const float side : {-1.0f, 1.0f})
            DrawBranch(pen, PointAt(top, t), Angle(DirectionAt(top, t)) + side * dice.Range(0.6f, 1.1f),
                       dice.Range(16, 44) * (1.1f - t * 0.6f), 3, 2, {.gnarl = 0.25f, .rise = -0.12f}, dice);
    }
    for (const float y : {150.0f, 176.0f, 206.0f})
        DrawBranch(pen, {818, y}, dice.Chance(0.5f) ? -0.4f : Pi + 0.4f, dice.Range(14, 30), 4, 2,
                   {.gnarl = 0.3f}, dice);
}

// A raven that stayed, on the tip of a trunk: it has drawn its head between its shoulders.
static void DrawRaven(Mask& front, Vector2 feet)
{
    const auto at = [&](float x, float y) { return feet + Vector2{x, y}; };
    front.Fill(Round({at(-18, 12), at(-11, -2), at(-4, -11), at(4, -15), at(11, -14), at(16, -15),
                      at(22, -12), at(23, -7), at(18, -3), at(18, 4), at(13, 11), at(4, 15), at(-8, 15)},
                     1));
    front.Fill(
        Straight({at(20, -14), at(28, -11), at(36, -4), at(35, -2), at(28, -5), at(19, -4)})); // the beak
    front.Fill(Straight({at(-10, -4), at(-22, 10), at(-33, 21), at(-20, 18), at(-4, 14)})); // the wing's tip
    front.Fill(Straight({at(-8, 12), at(-38, 29), at(-37, 33), at(-28, 33), at(2, 15)}));   // the tail
    front.Erase(Straight({at(-36, 21), at(-11, 15), at(-38, 27)})); // the sky between them
    front.Fill(Straight({at(2, 12), at(1, 22), at(4, 22), at(5, 12)}));
    front.Fill(Straight({at(6, 11), at(6, 22), at(9, 22), at(9, 11)}));
}

// Light from behind on the left of each stem: dry streaks down the bark, none on twigs.
static Mask LightOnStems(const Mask& front, uint32_t seed)
{
    const Noise dry(seed);
    Mask rim(front.Width(), front.Height());
    for (int y = 0; y < front.Height(); y++)
        for (int x = 3; x + 5 < front.Width(); x++)
            if (front.At(x, y) > 0)
                rim.At(x, y) = front.At(x, y) * front.At(x + 2, y) * front.At(x + 5, y) *
                               (1 - front.At(x - 3, y)) *
                               Smooth(-0.1f, 0.2f, dry.Fbm(float(x) / 6, float(y) / 24, 3));
    return rim.Blur(0.6f);
}

constexpr int W = 1024, H = 268;

struct Fir {
    float x, foot, height, trunk, reach, lean;
};

struct Stump {
    float x, width, height;
};

// What sets the two rows apart.
struct FirRow {
    std::vector<Fir> firs;
    std::vector<Stump> stumps;
    float bare;  // how much of a trunk in front has no branches
    float beard; // how much hangs from them
    int distant; // firs behind
    float distantBare;
    float bankPlace;                                  // where in the noise the ground lies
    float mist;                                       // how dense it is
    uint32_t backPen, frontPen, dice, firSeed, drift; // seeds
};

// clang-format off
static const FirRow denseRow = {
    .firs =
    {{ 92, 236, 205,  9, 52,   8},
     {176, 244, 150,  7, 40, -10},
     {305, 240, 232, 11, 62,  -6},
     {394, 246, 120,  6, 34,  12},
     {560, 238, 190,  9, 54,  14},
     {668, 244, 236, 12, 66,  -8},
     {742, 240, 140,  7, 38,   5},
     {872, 240, 214, 10, 56,  10},
     {935, 246, 128,  6, 32,  -9}},
    .stumps = {{236, 24, 24}, {478, 32, 28}, {806, 26, 22}},
    .bare = 0.2f, .beard = 0.7f, .distant = 12, .distantBare = 0.25f, .bankPlace = 0, .mist = 0.55f,
    .backPen = 61, .frontPen = 62, .dice = 64, .firSeed = 640, .drift = 68,
};
static const FirRow bareRow = {
    .firs =
    {{ 84, 244, 214, 13, 54, -18},
     {158, 248, 104,  8, 30,  14},
     {604, 246, 200, 15, 60,  16},
     {690, 250, 132,  9, 34, -12},
     {936, 244, 190, 12, 44, -26}},
    .stumps = {{214, 30, 30}, {520, 40, 24}, {768, 54, 40}, {862, 28, 20}},
    .bare = 0.62f, .beard = 0.2f, .distant = 4, .distantBare = 0.5f, .bankPlace = 9, .mist = 0.62f,
    .backPen = 51, .frontPen = 52, .dice = 53, .firSeed = 540, .drift = 69,
};
// clang-format on

static void DrawFirs(const FirRow& row, Pen& front, Pen& back, Dice& dice, uint32_t& seed)
{
    for (const Fir& fir : row.firs)
        DrawDeadFir(front, {fir.x, fir.foot},
                    {.height = fir.height,
                     .trunk = fir.trunk * 1.6f,
                     .reach = fir.reach * 1.4f,
                     .bare = row.bare,
                     .lean = fir.lean,
                     .beard = row.beard},
                    ++seed);
    for (int i = 0; i < row.distant; i++) {
        const float x = 60 + 905 * (float(i) + dice.Unit()) / float(row.distant);
        DrawDeadFir(back, {x, 232},
                    {.height = dice.Range(80, 150),
                     .trunk = 4,
                     .reach = dice.Range(16, 30),
                     .bare = row.distantBare,
                     .lean = dice.Range(-8, 8)},
                    ++seed);
    }
}

// A bank that runs out to both sides.
static Line Bank(float place)
{
    const Noise bumps(65);
    Line bank;
    for (float x = 6; x <= W - 6; x += 3) {
        const float in = Smooth(6, 120, x) * Smooth(W - 6, W - 120, x);
        bank.push_back({x, H - 4 - in * (26 + 12 * bumps.Fbm(x / 120 + place, 1.5f, 4))});
    }
    bank.push_back({W - 6, H});
    bank.push_back({6, H});
    return bank;
}

// Stumps with their roots in the air and in the ground.
static void DrawStumps(const std::vector<Stump>& stumps, Mask& front, Pen& pen, Dice& dice, uint32_t& seed)
{
    for (const Stump& stump : stumps) {
        const float foot = 246, half = stump.width / 2;
        Line outline = {{stump.x - half * 1.7f, foot},
                        {stump.x - half, foot - stump.height * 0.5f},
                        {stump.x - half * 0.9f, foot - stump.height}};
        for (int i = 1; i < 7; i++)
            outline.push_back({stump.x - half * 0.9f + stump.width * 0.27f * float(i) * 0.55f,
                               foot - stump.height - (i % 2 == 1 ? dice.Range(4, 16) : dice.Range(-3, 3))});
        outline.push_back({stump.x + half, foot - stump.height * 0.5f});
        outline.push_back({stump.x + half * 1.8f, foot});
        front.Fill(outline);
        DrawRoots(pen, {stump.x - half * 0.6f, foot - 8}, stump.width * 1.5f, stump.width * 0.22f, ++seed);
        DrawRoots(pen, {stump.x + half * 0.6f, foot - 8}, stump.width * 1.4f, stump.width * 0.22f, ++seed);
    }
}

static Mask DryGrass(const Paper& paper, Dice& dice)
{
    Mask grass(W, H);
    Pen blade(grass, paper, {.width = 1.6f, .pool = 0}, 66);
    for (int i = 0; i < 620; i++) {
        const float x = dice.Range(24, W - 24), in = Smooth(10, 110, x) * Smooth(W - 10, W - 110, x),
                    tall = dice.Range(5, 24) * in;
        const Vector2 p = {x, H - 2 - 24 * in * dice.Unit()};
        blade.Stroke(
            Through({p, p + Vector2{dice.Range(-1, 2), -tall * 0.6f}, p + Vector2{dice.Range(-4, 7), -tall}}),
            {.start = 0.8f, .middle = 0.5f, .end = 0});
    }
    return grass;
}

// Mist has settled behind the trunks and sets them off from the hills.
static Mask SettledMist(uint32_t seed)
{
    const Noise drift(seed);
    return Mask(W, H).Each(
        [&](float x, float y) {
            const Vector2 p = drift.Warp(x / 210, y / 60, 0.5f);
            return Smooth(96, 236, y + 46 * drift.Fbm(p.x, p.y, 4)) * Smooth(4, 190, x) *
                   Smooth(W - 4, W - 190, x) * (0.72f + 0.5f * drift.Fbm(p.x * 2, p.y * 2 + 7, 3));
        },
        2);
}

// A row of dead firs in the foreground, with stumps and roots; in the bare one a tree has fallen and one is broken.
static Canvas DeadFirs(const FirRow& row, bool fallen)
{
    const Paper& paper = SketchPaper();
    Mask back(W, H), front(W, H), ground(W, H), roots(W, H);
    Pen backPen(back, paper, {.width = 3, .pool = 0}, row.backPen),
        pen(front, paper, {.width = 3, .pool = 0}, row.frontPen),
        rootPen(roots, paper, {.width = 3, .pool = 0}, 63);
    Dice dice(row.dice);
    uint32_t seed = row.firSeed;
    DrawFirs(row, pen, backPen, dice, seed);
    ground.Fill(Bank(row.bankPlace));
    DrawStumps(row.stumps, front, pen, dice, seed);
    if (fallen) {
        DrawFallen(front, pen, dice);
        DrawSnapped(front, pen, dice);
        DrawRaven(front, {616, 30});
    }
    for (int i = 0; i < 9; i++) {
        rootPen.nib.width = 2.4f;
        DrawRoots(rootPen, {dice.Range(90, 934), 246}, 26, 3, ++seed);
    }
    const Mask grass = DryGrass(paper, dice);

    Canvas canvas(W, H);
    const Mask side = Mask(W, H).Each(
        [](float x, float y) { return Smooth(2, 60, x) * Smooth(W - 2, W - 60, x) * Smooth(2, 14, y); });
    canvas.Cover(back.Multiply(side), Mix(palette::Night, palette::Slate, 0.3f), 0.8f);
    canvas.Cover(SettledMist(row.drift), Mix(palette::Slate, palette::Mist, 0.4f), row.mist);
    canvas.Cover(front.Multiply(side), palette::Ink, 0.98f);
    const Mask earth = WashDensity(
        paper, ground, {.pool = 0.3f, .granulation = 0.8f, .bloom = 0.7f, .bloomSize = 80, .stray = 2}, 67);
    canvas.Cover(earth, [&](float x, float y) {
        return Mix(palette::Night, palette::Ink, Smooth(0.4f, 1.2f, earth.At(Floor(x), Floor(y))));
    });
    canvas.Cover(roots.Multiply(ground), Mix(palette::Slate, palette::Rust, 0.3f), 0.35f);
    canvas.Cover(grass, palette::Ink, 0.95f);
    canvas.Cover(LightOnStems(front, 70), Mix(palette::Slate, palette::Mist, 0.45f), 0.7f);
    paper.Show(canvas, 0.5f);
    return canvas;
}

Canvas Waldsterben()
{
    return DeadFirs(denseRow, false);
}
Canvas Waldsterben2()
{
    return DeadFirs(bareRow, true);
}

} // namespace atelier
