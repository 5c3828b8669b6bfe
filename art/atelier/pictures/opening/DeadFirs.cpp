// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/opening/Opening.h"

#include "art/atelier/Wash.h"
#include "art/atelier/pictures/Wood.h"

namespace atelier
{

namespace
{

// A row of dead firs in the foreground, with stumps and roots; the second row barer, one tree fallen.
Canvas DeadFirs(bool barer)
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
        {120, 242, 222, 10, 50, -16},
        {268, 246, 128,  7, 30,  10},
        {452, 242, 238, 12, 54,   6},
        {716, 244, 176,  9, 40, -22},
        {886, 242, 226, 11, 46,  12},
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
    for (int i = 0; i < (barer ? 4 : 12); ++i) {
        const float x = 60 + 905 * (static_cast<float>(i) + dice.Unit()) / (barer ? 4.0f : 12.0f);
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
        barer ? std::vector<Stump>{{182, 26, 30}, {356, 34, 22}, {566, 22, 40}, {634, 30, 20}, {806, 28, 34}}
              : std::vector<Stump>{{236, 24, 24}, {478, 32, 28}, {806, 26, 22}};
    for (const Stump& stump : stumps) {
        const float foot = 246, half = stump.width / 2;
        Line outline = {{stump.x - half * 1.7f, foot},
                        {stump.x - half, foot - stump.height * 0.5f},
                        {stump.x - half * 0.9f, foot - stump.height}};
        for (int i = 1; i < 7; ++i)
            outline.push_back({stump.x - half * 0.9f + stump.width * 0.27f * static_cast<float>(i) * 0.55f,
                               foot - stump.height - (i % 2 == 1 ? dice.Range(4, 16) : dice.Range(-3, 3))});
        outline.push_back({stump.x + half, foot - stump.height * 0.5f});
        outline.push_back({stump.x + half * 1.8f, foot});
        front.Fill(outline);
        DrawRoots(pen, {stump.x - half * 0.6f, foot - 8}, stump.width * 1.5f, stump.width * 0.22f, ++seed);
        DrawRoots(pen, {stump.x + half * 0.6f, foot - 8}, stump.width * 1.4f, stump.width * 0.22f, ++seed);
    }
    // One has come down: its plate of roots stands up.
    if (barer) {
        const Line trunk = Through({{540, 238}, {470, 246}, {360, 249}, {300, 250}});
        front.Fill(Limb(trunk, 8, 6, 2));
        DrawRoots(pen, {542, 232}, 44, 8, 591);
        for (int i = 0; i < 9; ++i)
            DrawBranch(pen, {546, 236}, -2.4f + 0.5f * static_cast<float>(i) * 0.62f, 26, 5, 3,
                       {.gnarl = 0.35f, .spread = 0.7f}, dice);
    }
    for (int i = 0; i < 9; ++i) {
        rootPen.nib.width = 2.4f;
        DrawRoots(rootPen, {dice.Range(90, 934), 246}, 26, 3, ++seed);
    }
    // Dry grass.
    Mask grass(W, H);
    Pen blade(grass, paper, {.width = 1.6f, .pool = 0}, 66);
    for (int i = 0; i < 620; ++i) {
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
    Mask haze = ground.Blurred(16);
    canvas.Cover(haze.Multiply(side).FadeToBorder(3), palette::Night, 0.35f);
    canvas.Cover(front.Multiply(side), palette::Ink, 0.98f);
    const Mask earth = WashDensity(
        paper, ground, {.pool = 0.3f, .granulation = 0.8f, .bloom = 0.7f, .bloomSize = 80, .stray = 2}, 67);
    canvas.Cover(earth, [&](float x, float y) {
        return Mix(palette::Night, palette::Ink, Smooth(0.4f, 1.2f, earth.At(Floor(x), Floor(y))));
    });
    canvas.Cover(roots.Multiply(ground), Mix(palette::Slate, palette::Rust, 0.3f), 0.35f);
    canvas.Cover(grass, palette::Ink, 0.95f);
    // Light from behind on the left of each stem.
    Mask rim(W, H);
    for (int y = 0; y < H; ++y)
        for (int x = 3; x + 1 < W; ++x)
            rim.At(x, y) = front.At(x, y) * front.At(x + 1, y) * (1 - front.At(x - 3, y)) *
                           Smooth(0.45f, 0.65f, paper.Height(x, y));
    canvas.Cover(rim, palette::Slate, 0.6f);
    paper.Show(canvas, 0.5f);
    return canvas;
}

} // namespace

Canvas Waldsterben()
{
    return DeadFirs(false);
}
Canvas Waldsterben2()
{
    return DeadFirs(true);
}

} // namespace atelier
