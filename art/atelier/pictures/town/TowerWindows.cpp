// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/town/TowerWindows.h"

#include "art/atelier/Pen.h"
#include "art/atelier/pictures/town/TowerCourses.h"

#include <vector>

namespace atelier::towers
{

struct TowerWindow {
    float x, y, half, high; // pixels; the foot's middle
    float lamp;             // 0: dark
};

static std::vector<TowerWindow> TowerWindows()
{
    constexpr float Top = 150, Bottom = 900; // of the rows, pixels below the head
    std::vector<TowerWindow> windows;
    Dice dice(548);
    for (int wall = 0; wall < 4; wall++) {
        const float middle = WallWidth * (float(wall) + 0.5f);
        int row = 0;
        for (float down = Top; down < Bottom; row++) {
            const float up = 1 - down / (Foot - Head); // nearer the foot they are smaller
            const bool three = row % 2 == 0;
            float foot = Head + down;
            const float size = Mix(0.75f, 1.0f, up), high = 21 * size;
            for (const float course : Courses[wall]) // stands on it rather than across it
                if (foot - high - 6 < Head + course && foot + 12 > Head + course)
                    foot = Head + course - 6;
            for (int i = 0; i < (three ? 3 : 2); i++) {
                const float aside = three ? 27 * float(i - 1) : 27 * (float(i) - 0.5f);
                const bool onStair = i == (row / 2 + wall) % (three ? 3 : 2);
                const float lamp = onStair ? dice.Range(0.7f, 0.95f) : 0;
                windows.push_back({middle + aside + dice.Range(-1, 1), foot, 3.9f * size, high, lamp});
            }
            down += Mix(62, 84, up);
        }
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
    canvas.Cover(stones, Mix(palette::Slate, palette::Mist, 0.5f), 0.8f);
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
