// SPDX-License-Identifier: MIT
#include "art/atelier/Finish.h"
#include "art/atelier/pictures/painting/Dancers.h"

#include <algorithm>

namespace atelier
{

// The grey of a moment of the light's way: from dark for the first, 0, to white for the last, 1. Black is
// never.
static float GreyOf(float moment)
{
    return 0.16f + 0.84f * moment;
}

// Light along a line, from one moment at its start to another at its end. Soft at the edges; where lines
// cross, the later one stands.
static void TraceLight(Mask& order, const Line& line, float halfWidth, float from, float to)
{
    const float length = LengthOf(line);
    float gone = 0;
    for (size_t i = 0; i < line.size(); i++) {
        if (i > 0)
            gone += Length(line[i] - line[i - 1]);
        const float value = GreyOf(Mix(from, to, gone / length));
        const int reach = Floor(halfWidth * 2.2f) + 1, cx = Floor(line[i].x), cy = Floor(line[i].y);
        for (int y = std::max(0, cy - reach); y <= std::min(H - 1, cy + reach); y++)
            for (int x = std::max(0, cx - reach); x <= std::min(W - 1, cx + reach); x++) {
                const float d = Length(Vector2{float(x) + 0.5f, float(y) + 0.5f} - line[i]);
                order.At(x, y) =
                    Max(order.At(x, y), value * Bell(d / halfWidth) * Smooth(2.2f, 1.6f, d / halfWidth));
            }
    }
}

// What the light of a way does to its surroundings, measured here once instead of by the shader for each pixel
// of each frame. `around` becomes the mean of the order within the reach of the halo. `moment` becomes the moment
// at which light comes by: the ways are soft at their edges, which must not be taken for earlier moments, so it is
// a mean in which the brightest count for nearly all. The taps lie like the seeds of a sunflower.
static void MeasureSurroundings(const Mask& order, Mask& around, Mask& moment)
{
    constexpr float Reach = 13.3f; // pixels; ways may be twice as wide
    constexpr int Taps = 48;
    Vector2 taps[Taps];
    Vector2 direction = {1, 0};
    for (int i = 0; i < Taps; i++) {
        direction = {-0.7373688f * direction.x - 0.6754902f * direction.y,
                     0.6754902f * direction.x - 0.7373688f * direction.y};
        taps[i] = direction * (Reach * Sqrt((float(i) + 0.5f) / Taps));
    }
    for (int y = 0; y < H; y++)
        for (int x = 0; x < W; x++) {
            const float centre = order.At(x, y);
            float power = centre * centre * centre * centre, sum = 0;
            // The centre counts as much as a sixteenth of the surroundings.
            float powers = power * (Taps / 16.0f) + 0.000003f, moments = power * (Taps / 16.0f) * centre;
            for (const Vector2& tap : taps) {
                const float value = order.Sample(float(x) + 0.5f + tap.x, float(y) + 0.5f + tap.y);
                power = value * value * value * value;
                sum += value;
                powers += power;
                moments += power * value;
            }
            around.At(x, y) = sum / Taps;
            moment.At(x, y) = moments / powers;
        }
}

// The order in which light travels through the painting: the ways in red, and in green and blue what lies around
// them. It starts in his far hand, runs over his shoulders,
// down him and along his arm to her, up her body and out to her far hand, through her hair, and at last out
// over the fields.
Canvas GlowMask()
{
    Mask order(W, H);
    Dice dice(71);
    // What is behind him.
    for (int i = 0; i < 24; i++)
        TraceLight(order, Furrow(FieldTop, FieldLeft, (float(i) + 0.5f) / 24), 3.6f,
                   0.54f + 0.03f * dice.Unit(), 1);
    for (int i = -3; i <= 3; i++)
        TraceLight(order, Beside(Through(Hair), float(i) * 9), 3.2f, 0.55f, 0.82f);
    for (int i = 0; i < 7; i++)
        TraceLight(order, Furrow(HerFront, HerBack, (float(i) + 0.5f) / 7), 3.4f, 0.32f + 0.02f * dice.Unit(),
                   0.46f);
    TraceLight(order, Round(HerFace), 4.5f, 0.48f, 0.54f);
    TraceLight(order, Through(HerArm), 7, 0.46f, 0.62f);
    TraceLight(order, Through(HerStep), 4, 0.50f, 0.54f);
    Shape him = Between(HisBack, HisFront);
    him.Add(Limb(Through(HisPush), 56, 31, 15));
    him.Add(Limb(Through(HisStand), 60, 40, 18));
    him.Add(Limb(Through(HisHold), 40, 29, 16));
    order.Subtract(Filled(W, H, him).Blur(2));
    TraceLight(order, Through(HisPush), 6, 0.50f, 0.56f);
    TraceLight(order, Through(HisStand), 6, 0.51f, 0.56f);
    // He, and the arms that hold.
    Line arm = Through(HisArm);
    std::reverse(arm.begin(), arm.end());
    TraceLight(order, arm, 9, 0.02f, 0.11f);
    TraceLight(order, Round(HisFace), 5, 0.13f, 0.22f);
    for (int i = 0; i < 8; i++)
        TraceLight(order, Furrow(HisBack, HisFront, (float(i) + 0.5f) / 8), 3.6f, 0.13f + 0.02f * dice.Unit(),
                   0.52f);
    TraceLight(order, Through(HisHold), 7, 0.20f, 0.32f);
    TraceLight(order, Through(HerHold), 5, 0.46f, 0.38f);
    // Their fingers, the same that are painted.
    Mask his(W, H), hers(W, H);
    Pen pen(his, SketchPaper(), {.width = 5, .skip = 0}, 50),
        other(hers, SketchPaper(), {.width = 5, .skip = 0}, 50);
    DrawHandTree(pen, HisArm, 8, 51);
    DrawHandTree(other, HerArm, 6, 52);
    order.Unite(his.Blur(0.8f).Scale(GreyOf(0))).Unite(hers.Blur(0.8f).Scale(GreyOf(0.64f)));
    Mask around(W, H), moment(W, H);
    MeasureSurroundings(order, around, moment);
    return Channels(order, around, moment);
}

} // namespace atelier
