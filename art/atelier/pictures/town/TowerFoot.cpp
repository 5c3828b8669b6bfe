// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/town/TowerFoot.h"

#include "art/atelier/Pen.h"

namespace atelier::towers
{

// Down here a pixel is 1.7 times as high as it is wide. Rows in pixels above the foot.
constexpr float PlinthTop = 78, StepTop = 34;
constexpr float GateHalf = 25, GateHigh = 62, DoorHalf = 20;

static Line Arch(float middle, float half, float high)
{
    return Through({{middle - half, Foot},
                    {middle - half, Foot - high * 0.58f},
                    {middle - half * 0.66f, Foot - high * 0.86f},
                    {middle, Foot - high},
                    {middle + half * 0.66f, Foot - high * 0.86f},
                    {middle + half, Foot - high * 0.58f},
                    {middle + half, Foot}},
                   1);
}

void BuildFoot(Canvas& canvas, const Paper& paper, const TowerNoise& noise)
{
    canvas.Cover(
        Sheet().Each([](float, float y) { return Smooth(Foot - PlinthTop - 1, Foot - PlinthTop + 1, y); }),
        [&](float x, float y) {
            const float up = Foot - y;
            const float high = up < StepTop ? 17 : 11, wide = up < StepTop ? 42.7f : 32;
            const int course = Floor(up / high);
            const float along = x / wide + 0.5f * float(course & 1);
            const uint32_t name =
                (uint32_t(Wrap(Floor(along), 16)) * 131u + uint32_t(course + 3) * 71u) * 2654435761u;
            const float own = float(name >> 12 & 255) / 255;
            const float joint = Min(Min(Fraction(along), 1 - Fraction(along)) * wide,
                                    Min(Fraction(up / high), 1 - Fraction(up / high)) * high);
            const LinearColour stone = Mix(palette::Slate, palette::Mist, 0.15f + 0.3f * own) *
                                       (0.30f + 0.2f * noise.age.Fbm(x / Girth * 64, y / Down * 256, 4));
            // Each step catches the light on its upper edge.
            const float ledge = Max(Hill(PlinthTop - 2, 3, up), Hill(StepTop - 2, 3, up));
            return Mix(Dark, stone * (1 + 0.9f * ledge), Smooth(0.4f, 2, joint));
        });
    Mask frames = Sheet(), doors = Sheet(), glow = Sheet(), bars = Sheet();
    Pen smith(bars, paper, {.width = 2, .wobble = 0.3f, .skip = 0}, 563);
    for (int wall = 0; wall < 4; wall += 2) {
        const float middle = WallWidth * (float(wall) + 0.5f);
        frames.Fill(Arch(middle, GateHalf, GateHigh));
        doors.Fill(Arch(middle, DoorHalf, GateHigh - 7));
        for (float x = -DoorHalf; x <= DoorHalf; x += 8)
            smith.Stroke(Straight({{middle + x, Foot}, {middle + x, Foot - GateHigh + 8}}, 1),
                         {.start = 1, .middle = 1, .end = 1});
        for (float y = 10; y < GateHigh - 10; y += 12)
            smith.Stroke(Straight({{middle - DoorHalf, Foot - y}, {middle + DoorHalf, Foot - y}}, 1),
                         {.start = 1, .middle = 1, .end = 1});
    }
    canvas.Light(doors.Blurred(16), palette::Ochre, 0.5f);
    canvas.Cover(frames, Mix(palette::Slate, palette::Mist, 0.5f), 0.9f);
    canvas.Cover(doors, [](float x, float y) {
        const float lamp = Bell((Foot - y - 24) / 26) * Bell((Fraction(x / WallWidth) - 0.5f) * 6);
        return Mix(palette::Ochre * 0.5f, Mix(palette::Amber, palette::Bone, 0.3f), lamp);
    });
    canvas.Cover(bars.Multiply(doors), palette::Ink, 0.9f);
}

} // namespace atelier::towers
