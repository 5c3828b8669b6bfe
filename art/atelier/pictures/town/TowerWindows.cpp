// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/town/TowerWindows.h"

#include "art/atelier/Pen.h"

#include <vector>

namespace atelier::towers
{

struct TowerWindow {
    float x, y, half, high; // pixels; the foot's middle
    float lamp;             // 0: dark
};

static std::vector<TowerWindow> TowerWindows()
{
    constexpr float Top = 165, Bottom = 900; // pixels below the head
    constexpr float OnMoulding = MouldingTurn - 0.05f;
    std::vector<TowerWindow> windows;
    Dice dice(548);
    for (int wall = 0; wall < 4; wall++)
        for (int turn = 0; turn < 4; turn++) {
            // Most light the stair, which winds behind the stone; some rooms have a slit to the other side.
            const int count = dice.Chance(0.55f) ? 2 : 1;
            const float first = dice.Range(-34, 30);
            for (int i = 0; i < count; i++) {
                const float aside = i == 0 ? first : first + (first < 0 ? 1.0f : -1.0f) * dice.Range(22, 44);
                const float x = WallWidth * (float(wall) + 0.5f) + aside;
                const float foot = Head + Turn * (float(turn) + OnMoulding - x / Girth) - dice.Range(0, 16);
                const float up = 1 - (foot - Head) / (Foot - Head); // nearer the foot they are smaller
                const float size = Mix(0.72f, 0.88f, up) * dice.Range(0.88f, 1.08f);
                const bool slit = i == 1 && dice.Chance(0.5f);
                const float lamp = !slit && dice.Chance(i == 0 ? 0.85f : 0.3f) ? dice.Range(0.85f, 1.0f) : 0;
                if (foot > Head + Top && foot < Head + Bottom)
                    windows.push_back({x, foot, (slit ? 1.8f : 3.9f) * size, 21 * size, lamp});
            }
            // And some look out from among the feathers.
            const float x = WallWidth * (float(wall) + 0.5f) + dice.Range(-40, 34);
            const float foot =
                Head + Turn * (float(turn) + MouldingTurn + dice.Range(0.18f, 0.48f) - x / Girth);
            const float lamp = dice.Chance(0.65f) ? dice.Range(0.8f, 1.0f) : 0;
            if (foot > Head + Top && foot < Head + Bottom)
                windows.push_back({x, foot, 3.1f, 17, lamp});
        }
    return windows;
}

static Line OutlineOf(const TowerWindow& w, float more)
{
    const float x = w.x;
    const float half = w.half + more, foot = w.y + Max(0, more - 0.5f), head = w.y - w.high - more;
    return Through({{x - half, foot},
                    {x - half, Mix(foot, head, 0.6f)},
                    {x - half * 0.72f, Mix(foot, head, 0.85f)},
                    {x, head},
                    {x + half * 0.72f, Mix(foot, head, 0.85f)},
                    {x + half, Mix(foot, head, 0.6f)},
                    {x + half, foot}},
                   1);
}

void LightWindows(Canvas& canvas, const Paper& paper)
{
    Mask reveal = Sheet(), light = Sheet(), panes = Sheet(), stones = Sheet(), bars = Sheet();
    Pen mason(stones, paper, {.width = 2.2f, .wobble = 0.5f, .wave = 10, .skip = 0.15f}, 525),
        smith(bars, paper, {.width = 1.3f, .wobble = 0.2f, .skip = 0}, 531);
    for (const TowerWindow& w : TowerWindows()) {
        reveal.Fill(OutlineOf(w, 1.8f));
        if (w.lamp > 0)
            light.Fill(OutlineOf(w, 0), w.lamp);
        else
            panes.Fill(OutlineOf(w, 0));
        mason.Stroke(OutlineOf(w, 3), {.start = 0.7f, .middle = 1, .end = 0.6f});
        const float middle = w.y - w.high / 2;
        smith.Stroke(Straight({{w.x, w.y}, {w.x, w.y - w.high}}, 1), {.start = 1, .middle = 1, .end = 1});
        smith.Stroke(Straight({{w.x - w.half, middle}, {w.x + w.half, middle}}, 1),
                     {.start = 1, .middle = 1, .end = 1});
    }
    const Mask lamps = light;
    canvas.Light(lamps.Blurred(7), palette::Amber, 0.30f);
    canvas.Light(lamps.Blurred(20), palette::Ochre, 0.55f);
    canvas.Cover(stones, Mix(palette::Slate, palette::Mist, 0.35f), 0.62f);
    canvas.Cover(reveal, palette::Ink, 0.92f);
    canvas.Cover(panes, Mix(palette::Night, palette::Slate, 0.55f), 0.9f);
    const Noise curtain(532);
    canvas.Cover(Mask(light).Curve(0, 0.3f), [&](float x, float y) {
        const float fold = 0.5f + 0.6f * curtain.Fbm(x / 4, y / 20, 2);
        const float lamp = lamps.At(Floor(x), Floor(y));
        return Mix(Mix(palette::Ochre, palette::Amber, 0.55f), Mix(palette::Amber, palette::Bone, 0.45f),
                   Clamp(fold)) *
               (0.35f + 0.75f * lamp);
    });
    canvas.Cover(bars.Multiply(light.Curve(0, 0.3f).Unite(panes)), palette::Ink, 0.8f);
}

} // namespace atelier::towers
