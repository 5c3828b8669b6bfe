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

// The light's ways: when it comes by, and that times how bright it is there.
struct Ways {
    Mask order = Mask(W, H), light = Mask(W, H);
};

// Light along a line, from one moment at its start to another at its end. Soft at the edges; where lines
// cross, the later one stands.
static void TraceLight(Ways& ways, const Line& line, float halfWidth, float from, float to,
                       float strength = 1)
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
                const float here = value * Bell(d / halfWidth) * Smooth(2.2f, 1.6f, d / halfWidth);
                if (here <= ways.order.At(x, y))
                    continue;
                ways.order.At(x, y) = here;
                ways.light.At(x, y) = here * strength;
            }
    }
}

// What the light of a way does to its surroundings, measured here once instead of by the shader for each pixel
// of each frame. `around` becomes the mean of the light within the reach of the halo. `moment` becomes the moment
// at which light comes by: the ways are soft at their edges, which must not be taken for earlier moments, so it is
// a mean in which the brightest count for nearly all. The taps lie like the seeds of a sunflower.
static void MeasureSurroundings(const Ways& ways, Mask& around, Mask& moment)
{
    constexpr float Reach = 13.3f; // pixels; ways may be twice as wide
    constexpr int Taps = 96;
    Vector2 taps[Taps];
    Vector2 direction = {1, 0};
    for (int i = 0; i < Taps; i++) {
        direction = {-0.7373688f * direction.x - 0.6754902f * direction.y,
                     0.6754902f * direction.x - 0.7373688f * direction.y};
        taps[i] = direction * (Reach * Sqrt((float(i) + 0.5f) / Taps));
    }
    for (int y = 0; y < H; y++)
        for (int x = 0; x < W; x++) {
            const float centre = ways.order.At(x, y);
            float power = centre * centre * centre * centre, sum = 0;
            // The centre counts as much as a sixteenth of the surroundings.
            float powers = power * (Taps / 16.0f) + 0.000003f, moments = power * (Taps / 16.0f) * centre;
            for (const Vector2& tap : taps) {
                const Vector2 at = Vector2{float(x) + 0.5f, float(y) + 0.5f} + tap;
                const float value = ways.order.Sample(at.x, at.y);
                power = value * value * value * value;
                sum += ways.light.Sample(at.x, at.y);
                powers += power;
                moments += power * value;
            }
            around.At(x, y) = sum / Taps;
            moment.At(x, y) = moments / powers;
        }
}

// Limbs have no light within: that would make glass tubes of them. It runs as a thread along both edges, and faintly.
// `root` and `end`: where on the way of a limb it begins and ends, 0 to 1, and how far from its middle.
constexpr float FleshLight = 0.6f;
struct EdgeEnd {
    float at, half;
};
static void TraceEdges(Ways& ways, const std::vector<Vector2>& limb, EdgeEnd root, EdgeEnd end, float from,
                       float to)
{
    const Line middle = Through(limb);
    for (const float side : {-1.0f, 1.0f}) {
        Line edge;
        for (int i = 0; i <= 40; i++) {
            const float t = float(i) / 40, at = Mix(root.at, end.at, t);
            const Vector2 way = DirectionAt(middle, at);
            edge.push_back(PointAt(middle, at) +
                           Vector2{-way.y, way.x} * (side * Mix(root.half, end.half, t)));
        }
        TraceLight(ways, Through(edge), 2.6f, from, to, side < 0 ? FleshLight : 0.6f * FleshLight);
    }
}

// The order in which light travels through the painting: the ways in red, and in green and blue what lies around
// them. It starts in his far hand, runs over his shoulders,
// down him and along his arm to her, up her body and out to her far hand, through her hair, and at last out
// over the fields.
Canvas GlowMask()
{
    Ways ways;
    Dice dice(71);
    // What is behind him.
    for (int i = 0; i < 24; i++)
        TraceLight(ways, Furrow(FieldTop, FieldLeft, (float(i) + 0.5f) / 24), 3.6f,
                   0.54f + 0.03f * dice.Unit(), 1);
    for (int i = -3; i <= 3; i++)
        TraceLight(ways, Beside(Through(Hair), float(i) * 9), 3.2f, 0.55f, 0.82f);
    for (int i = 0; i < 7; i++) { // her dress, and fainter the skin above it
        const Line line = Furrow(HerFront, HerBack, (float(i) + 0.5f) / 7);
        const float from = 0.32f + 0.02f * dice.Unit(), neck = 0.74f;
        TraceLight(ways, Part(line, 0, neck), 3.4f, from, Mix(from, 0.46f, neck));
        TraceLight(ways, Part(line, neck, 1), 3, Mix(from, 0.46f, neck), 0.46f, FleshLight);
    }
    // Her profile, from the brow to the pit of her throat.
    TraceLight(ways, Through(std::vector<Vector2>(HerFace.begin() + 1, HerFace.begin() + 18)), 3.2f, 0.54f,
               0.48f, 0.8f);
    TraceEdges(ways, HerArm, {0.1f, 17}, {0.95f, 5}, 0.46f, 0.62f);
    TraceEdges(ways, HerStep, {0.3f, 12}, {1, 7}, 0.50f, 0.54f);
    Mask him = Filled(W, H, Between(HisBack, HisFront));
    for (const std::vector<Vector2>& leg : {PushingLeg, StandingLeg, StandingShoe})
        him.Fill(Round(leg));
    him.Fill(Limb(Through(HisHold), 40, 29, 16))
        .Fill(Limb(Part(Through(HerHold), 0.1f, 1), 26, 17, 9))
        .Blur(2);
    ways.order.Subtract(him);
    ways.light.Subtract(him);
    TraceLight(ways, Part(Round(PushingLeg), 0.16f, 0.36f), 3, 0.50f, 0.56f, FleshLight);
    TraceLight(ways, Part(Round(StandingLeg), 0.10f, 0.44f), 3, 0.51f, 0.56f, FleshLight);
    // He, and the arms that hold.
    std::vector<Vector2> arm = HisArm;
    std::reverse(arm.begin(), arm.end());
    TraceEdges(ways, arm, {0.05f, 6}, {0.95f, 27}, 0.02f, 0.11f);
    TraceLight(ways, Round(HisFace), 4, 0.13f, 0.22f, 0.8f);
    for (int i = 0; i < 8; i++)
        TraceLight(ways, Furrow(HisBack, HisFront, (float(i) + 0.5f) / 8), 3.6f, 0.13f + 0.02f * dice.Unit(),
                   0.52f);
    TraceEdges(ways, HisHold, {0.1f, 27}, {0.9f, 15}, 0.20f, 0.32f);
    TraceEdges(ways, HerHold, {0.15f, 15}, {0.95f, 6}, 0.46f, 0.38f);
    // Their fingers, the same that are painted.
    Mask his(W, H), hers(W, H);
    Pen pen(his, SketchPaper(), {.width = 5, .skip = 0}, 50),
        other(hers, SketchPaper(), {.width = 5, .skip = 0}, 50);
    DrawHandTree(pen, HisArm, 8, 51);
    DrawHandTree(other, HerArm, 6, 52);
    his.Blur(0.8f).Scale(GreyOf(0));
    hers.Blur(0.8f).Scale(GreyOf(0.64f));
    for (Mask* mask : {&ways.order, &ways.light})
        mask->Unite(his).Unite(hers);
    Mask around(W, H), moment(W, H);
    MeasureSurroundings(ways, around, moment);
    return Channels(ways.light, around, moment);
}

} // namespace atelier
