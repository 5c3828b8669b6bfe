// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/town/TowerWindows.h"

#include "art/atelier/Pen.h"
#include "art/atelier/pictures/town/TowerCourses.h"

#include <vector>

namespace atelier::towers
{

enum WindowKind { Lancet, Twin, Slit, Eye, Casement };
struct TowerWindow {
    float x, y, half, high; // pixels; the foot's middle
    WindowKind kind;
    float lamp; // 0: dark
};

static std::vector<TowerWindow> TowerWindows()
{
    std::vector<TowerWindow> windows;
    Dice dice(548);
    for (int wall = 0; wall < 4; wall++) {
        float y = Head + 150 + dice.Range(0, 60);
        float side = dice.Chance(0.5f) ? 1.0f : -1.0f;
        while (y < Foot - 150) {
            const float up = 1 - HeightAt(y); // nearer the foot they are smaller
            const int count = dice.Chance(0.35f) ? 2 : 1;
            for (int i = 0; i < count; i++) {
                const auto kind = WindowKind(Floor(dice.Range(0, 4.99f)));
                const float size = Mix(0.75f, 1.15f, up) * dice.Range(0.8f, 1.25f);
                const float x = WallWidth * (float(wall) + 0.5f) + side * dice.Range(4, 34);
                const float half = (kind == Slit ? 1.8f : kind == Twin ? 4.0f : 5.4f) * size;
                const float high = (kind == Eye ? 11.0f : kind == Casement ? 18.0f : 25.0f) * size;
                float foot = y + dice.Range(-8, 8);
                for (const float course : Courses[wall]) // stands on it rather than across it
                    if (foot - high - 6 < Head + course && foot + 12 > Head + course)
                        foot = Head + course - 6;
                windows.push_back({x, foot, half, high, kind, dice.Chance(0.5f) ? dice.Range(0.45f, 1) : 0});
                side = -side;
            }
            y += dice.Range(48, 96);
        }
    }
    return windows;
}

static Line OutlineOf(const TowerWindow& w, float x, float more)
{
    const float half = w.half + more, foot = w.y + Max(0, more - 0.5f), head = w.y - w.high - more;
    if (w.kind == Eye)
        return Ellipse({x, w.y - w.high / 2}, half, half * 1.05f);
    if (w.kind == Casement)
        return Straight(
            {{x - half, foot}, {x - half, head}, {x + half, head}, {x + half, foot}, {x - half, foot}}, 1);
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
    for (const TowerWindow& w : TowerWindows())
        for (const float beside : {-1.0f, 1.0f}) {
            if (w.kind != Twin && beside > 0)
                continue;
            const float x = w.kind == Twin ? w.x + beside * (w.half + 1.6f) : w.x;
            reveal.Fill(OutlineOf(w, x, 1.8f));
            if (w.lamp > 0)
                light.Fill(OutlineOf(w, x, 0), w.lamp);
            else
                panes.Fill(OutlineOf(w, x, 0));
            mason.Stroke(OutlineOf(w, x, 3), {.start = 0.7f, .middle = 1, .end = 0.6f});
            if (w.kind == Slit)
                continue;
            const float middle = w.y - w.high / 2;
            smith.Stroke(Straight({{x, w.y}, {x, w.y - w.high}}, 1), {.start = 1, .middle = 1, .end = 1});
            smith.Stroke(Straight({{x - w.half, middle}, {x + w.half, middle}}, 1),
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
