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
    const LinearColour stone = Mix(Mix(palette::Slate, palette::Mist, 0.10f + 0.45f * own),
                                   palette::Parchment, 0.28f * Fraction(own * 7)) *
                               (0.62f + 0.35f * noise.age.Fbm(x / Girth * 64, y / Down * 256, 4));
    const float lit = 0.85f + 0.3f * Smooth(0.5f, 0.1f, Fraction(bent / CourseHigh)); // its upper edge
    return Mix(Dark, stone * lit, Smooth(0.4f, 2.2f, Min(inX, inY)));
}

void LayStringCourses(Canvas& canvas, const Paper& paper)
{
    Mask stone = Sheet(), shade = Sheet();
    Pen mason(stone, paper, {.width = 5.5f, .least = 0.7f, .wobble = 0.8f, .wave = 40, .skip = 0.05f}, 557);
    Pen dark(shade, paper, {.width = 7, .least = 0.6f, .wobble = 1.2f, .wave = 20, .skip = 0}, 558);
    for (int wall = 0; wall < 4; wall++)
        for (const float down : Courses[wall]) {
            const float left = WallWidth * float(wall) + 3, right = left + WallWidth - 6;
            const Line level = Straight({{left, Head + down}, {right, Head + down}});
            mason.Stroke(level, {.start = 0.9f, .middle = 1, .end = 0.9f});
            dark.Stroke(Moved(level, {0, 6}), {.start = 0.9f, .middle = 1, .end = 0.9f});
        }
    canvas.Cover(shade, Dark, 0.85f);
    const Noise own(559);
    canvas.Cover(stone, [&](float x, float y) {
        return Mix(palette::Slate, palette::Mist, 0.25f + 0.3f * own.Value(x / 18, y / 40)) * 0.8f;
    });
}

} // namespace atelier::towers
