// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/town/TowerCourses.h"

#include "art/atelier/Pen.h"

namespace atelier::towers
{

LinearColour AshlarColour(float x, float y, const TowerNoise& noise)
{
    constexpr float CourseHigh = 15, StoneWide = 25.6f;
    const float bent = y + 1.6f * noise.course.Gradient(x / Girth * 64, y / Down * 256);
    const int course = Floor(bent / CourseHigh);
    const float along = x / StoneWide + 0.5f * float(course % 2) + 0.3f * Fraction(float(course) * 0.618f);
    const uint32_t name = (uint32_t(Wrap(Floor(along), 20)) * 131u + uint32_t(course) * 71u) * 2654435761u;
    const float own = float(name >> 12 & 255) / 255;
    const float inX = Min(Fraction(along), 1 - Fraction(along)) * StoneWide,
                inY = Min(Fraction(bent / CourseHigh), 1 - Fraction(bent / CourseHigh)) * CourseHigh;
    const LinearColour stone = Mix(Mix(palette::Slate, palette::Mist, 0.12f + 0.34f * own),
                                   palette::Parchment, 0.20f * Fraction(own * 7)) *
                               (0.56f + 0.35f * noise.age.Fbm(x / Girth * 64, y / Down * 256, 4));
    const float lit = 0.85f + 0.3f * Smooth(0.5f, 0.1f, Fraction(bent / CourseHigh)); // its upper edge
    return Mix(stone * 0.38f, stone * lit, Smooth(0.4f, 2.2f, Min(inX, inY)));
}

void LayMoulding(Canvas& canvas, const Paper& paper)
{
    constexpr float CorbelPitch = 12.8f; // forty round the tower
    Mask stone = Sheet(), shade = Sheet(), lit = Sheet();
    Pen mason(stone, paper, {.width = 6.5f, .least = 0.7f, .wobble = 0.8f, .wave = 40, .skip = 0.05f}, 557);
    Pen dark(shade, paper, {.width = 9, .least = 0.6f, .wobble = 1.2f, .wave = 20, .skip = 0}, 558);
    Pen moon(lit, paper, {.width = 1.8f, .least = 0.5f, .wobble = 0.8f, .wave = 30, .skip = 0.12f}, 566);
    Pen corbel(stone, paper, {.width = 4.2f, .least = 0.7f, .wobble = 0.4f, .skip = 0}, 567);
    for (int turn = 0; turn < 5; turn++) {
        Line edge;
        for (float x = 0; x <= Girth; x += 8) {
            const float y = Head + Turn * (float(turn) + MouldingTurn - x / Girth);
            if (y > Head + 84 && y < Foot - 70)
                edge.push_back({x, y});
        }
        if (edge.size() < 2)
            continue;
        mason.Stroke(edge, {.start = 1, .middle = 1, .end = 1});
        moon.Stroke(Moved(edge, {0, -3}), {.start = 1, .middle = 1, .end = 1});
        dark.Stroke(Moved(edge, {-1, 7}), {.start = 1, .middle = 1, .end = 1});
        // It lies on a row of little corbels.
        for (float x = edge.front().x + CorbelPitch / 2; x < edge.back().x; x += CorbelPitch) {
            const float y = Head + Turn * (float(turn) + MouldingTurn - x / Girth);
            corbel.Stroke(Straight({{x, y + 2}, {x, y + 8}}, 1), {.start = 1, .middle = 1, .end = 0.7f});
        }
    }
    canvas.Cover(shade, Dark, 0.75f);
    const Noise own(559);
    canvas.Cover(stone, [&](float x, float y) {
        return Mix(palette::Slate, palette::Mist, 0.25f + 0.3f * own.Value(x / 18, y / 40)) * 0.8f;
    });
    canvas.Cover(lit, Mix(palette::Mist, palette::Bone, 0.2f), 0.45f);
}

} // namespace atelier::towers
