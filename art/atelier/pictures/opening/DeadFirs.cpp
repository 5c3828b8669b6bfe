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
    const Vec2 hub = {436, 206};
    front.Fill(Shaken(Ellipse(hub, 22, 42, -0.2f), 7, 16, 593));
    for (int i = 0; i < 21; i++) {
        const float a = -2.2f + 0.215f * float(i), way = dice.Range(26, 58);
        const Vec2 d = {Cos(a), Sin(a)};
        DrawBranch(pen, hub + Vec2{d.x * 16, d.y * 34}, a + dice.Range(-0.3f, 0.3f), way, 8, 4,
                   {.gnarl = 0.42f, .rise = -0.02f, .spread = 0.7f}, dice);
    }
    for (int i = 0; i < 13; i++) { // stubs of its branches
        const Vec2 from = PointAt(trunk, 0.12f + 0.065f * float(i));
        DrawBranch(pen, from, -1.9f + dice.Range(-0.5f, 0.5f), dice.Range(14, 46), 4, 2, {.gnarl = 0.3f},
                   dice);
    }
}

// One has broken half way up; its top hangs by a splinter.
static void DrawSnapped(Mask& front, Pen& pen, Dice& dice)
{
    front.Fill(Shaken(Limb(Through({{812, 252}, {816, 190}, {822, 126}}), 15, 10, 8.5f), 1.5f, 20, 594));
    for (const Vec2 splinter : {Vec2{813, 92}, Vec2{819, 104}, Vec2{826, 84}, Vec2{830, 112}})
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

// A raven that stayed, on the tip of a trunk.
static void DrawRaven(Mask& front, Vec2 feet)
{
    const auto at = [&](float x, float y) { return feet + Vec2{x, y}; };
    front.Fill(Round({at(-24, 19), at(-12, 5), at(-4, -5), at(4, -12), at(10, -16), at(17, -14), at(20, -9),
                      at(14, -3), at(14, 4), at(9, 10), at(1, 13), at(-8, 13)},
                     1));
    front.Fill(Straight({at(17, -13), at(31, -7), at(18, -7)}));              // the beak
    front.Fill(Straight({at(-10, 8), at(-34, 25), at(-26, 27), at(-4, 14)})); // the tail
    front.Fill(Straight({at(2, 11), at(1, 22), at(4, 22), at(5, 11)}));
    front.Fill(Straight({at(8, 9), at(9, 22), at(12, 22), at(11, 9)}));
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

// A row of dead firs in the foreground, with stumps and roots; the second row barer, one tree fallen.
static Canvas DeadFirs(bool barer)
{
    constexpr int W = 1024, H = 268;
    const Paper& paper = SketchPaper();
    Mask back(W, H), front(W, H), ground(W, H), roots(W, H);
    Pen backPen(back, paper, {.width = 3, .pool = 0}, barer ? 51 : 61),
        pen(front, paper, {.width = 3, .pool = 0}, barer ? 52 : 62),
        rootPen(roots, paper, {.width = 3, .pool = 0}, 63);
    Dice dice(barer ? 53 : 64);
    struct Fir {
        float x, foot, height, trunk, reach, lean;
    };
    // clang-format off
    const std::vector<Fir> dense = {
        { 92, 236, 205,  9, 52,   8},
        {176, 244, 150,  7, 40, -10},
        {305, 240, 232, 11, 62,  -6},
        {394, 246, 120,  6, 34,  12},
        {560, 238, 190,  9, 54,  14},
        {668, 244, 236, 12, 66,  -8},
        {742, 240, 140,  7, 38,   5},
        {872, 240, 214, 10, 56,  10},
        {935, 246, 128,  6, 32,  -9},
    };
    const std::vector<Fir> sparse = {
        { 84, 244, 214, 13, 54, -18},
        {158, 248, 104,  8, 30,  14},
        {604, 246, 200, 15, 60,  16},
        {690, 250, 132,  9, 34, -12},
        {936, 244, 190, 12, 44, -26},
    };
    // clang-format on
    uint32_t seed = barer ? 540 : 640;
    for (const Fir& fir : barer ? sparse : dense)
        DrawDeadFir(pen, {fir.x, fir.foot},
                    {.height = fir.height,
                     .trunk = fir.trunk * 1.6f,
                     .reach = fir.reach * 1.4f,
                     .bare = barer ? 0.62f : 0.2f,
                     .lean = fir.lean,
                     .beard = barer ? 0.2f : 0.7f},
                    ++seed);
    for (int i = 0; i < (barer ? 4 : 12); i++) {
        const float x = 60 + 905 * (float(i) + dice.Unit()) / (barer ? 4.0f : 12.0f);
        DrawDeadFir(backPen, {x, 232},
                    {.height = dice.Range(80, 150),
                     .trunk = 4,
                     .reach = dice.Range(16, 30),
                     .bare = barer ? 0.5f : 0.25f,
                     .lean = dice.Range(-8, 8)},
                    ++seed);
    }
    // The ground: a bank that runs out to both sides.
    const Noise bumps(65);
    Line bank;
    for (float x = 6; x <= W - 6; x += 3) {
        const float in = Smooth(6, 120, x) * Smooth(W - 6, W - 120, x);
        bank.push_back({x, H - 4 - in * (26 + 12 * bumps.Fbm(x / 120 + (barer ? 9.0f : 0.0f), 1.5f, 4))});
    }
    bank.push_back({W - 6, H});
    bank.push_back({6, H});
    ground.Fill(bank);
    // Stumps with their roots in the air and in the ground.
    struct Stump {
        float x, width, height;
    };
    const std::vector<Stump> stumps =
        barer ? std::vector<Stump>{{214, 30, 30}, {520, 40, 24}, {768, 54, 40}, {862, 28, 20}}
              : std::vector<Stump>{{236, 24, 24}, {478, 32, 28}, {806, 26, 22}};
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
    if (barer) {
        DrawFallen(front, pen, dice);
        DrawSnapped(front, pen, dice);
        DrawRaven(front, {621, 30});
    }
    for (int i = 0; i < 9; i++) {
        rootPen.nib.width = 2.4f;
        DrawRoots(rootPen, {dice.Range(90, 934), 246}, 26, 3, ++seed);
    }
    // Dry grass.
    Mask grass(W, H);
    Pen blade(grass, paper, {.width = 1.6f, .pool = 0}, 66);
    for (int i = 0; i < 620; i++) {
        const float x = dice.Range(24, W - 24), in = Smooth(10, 110, x) * Smooth(W - 10, W - 110, x),
                    tall = dice.Range(5, 24) * in;
        const Vec2 p = {x, H - 2 - 24 * in * dice.Unit()};
        blade.Stroke(
            Through({p, p + Vec2{dice.Range(-1, 2), -tall * 0.6f}, p + Vec2{dice.Range(-4, 7), -tall}}),
            {.start = 0.8f, .middle = 0.5f, .end = 0});
    }

    Canvas canvas(W, H);
    const Mask side = Mask(W, H).Each(
        [](float x, float y) { return Smooth(2, 60, x) * Smooth(W - 2, W - 60, x) * Smooth(2, 14, y); });
    canvas.Cover(back.Multiply(side), Mix(palette::Night, palette::Slate, 0.3f), 0.8f);
    // Mist has settled behind the trunks and sets them off from the hills.
    const Noise drift(barer ? 69 : 68);
    const Mask mist = Mask(W, H).Each(
        [&](float x, float y) {
            const Vec2 p = drift.Warp(x / 210, y / 60, 0.5f);
            return Smooth(96, 236, y + 46 * drift.Fbm(p.x, p.y, 4)) * Smooth(4, 190, x) *
                   Smooth(W - 4, W - 190, x) * (0.72f + 0.5f * drift.Fbm(p.x * 2, p.y * 2 + 7, 3));
        },
        2);
    canvas.Cover(mist, Mix(palette::Slate, palette::Mist, 0.4f), barer ? 0.62f : 0.55f);
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
    return DeadFirs(false);
}
Canvas Waldsterben2()
{
    return DeadFirs(true);
}

} // namespace atelier
