// SPDX-License-Identifier: MIT
#include "art/atelier/Pen.h"

#include <algorithm>

namespace atelier
{

constexpr float PieceLength = 1.3f;   // pixels
constexpr float NibThickness = 0.24f; // of a broad nib, in parts of its width
constexpr float LiftLength = 70;      // pixels from one possible lift to the next
constexpr float ShortStroke = 24;     // pixels: a shorter stroke is never broken

static float PressureAt(const Press& press, float t)
{
    return press.start * (1 - t) * (1 - 2 * t) + press.middle * 4 * t * (1 - t) + press.end * t * (2 * t - 1);
}

Pen::Pen(Mask& sheet, const Paper& paper, Nib nibGiven, uint32_t seedGiven)
    : nib(nibGiven), ink(sheet, paper), dice(seedGiven), seed(seedGiven)
{
}

void Pen::Stroke(const Line& line, Press press)
{
    const float length = LengthOf(line);
    if (line.size() < 2 || length <= 0)
        return;
    const Noise noise(seed + 0x51ed27u * ++strokes);
    const Line way = nib.wobble > 0 ? Shaken(line, nib.wobble, nib.wave, seed + strokes) : line;
    float gone = 0;
    Vector2 last = way[0];
    float lastHalf = -1;
    for (size_t i = 0; i + 1 < way.size(); i++) {
        const float piece = Length(way[i + 1] - way[i]);
        const int steps = std::max(1, int(piece / PieceLength));
        for (int k = 0; k <= steps; k++) {
            if (k == 0 && i > 0)
                continue;
            const float part = float(k) / float(steps);
            const float s = gone + piece * part;
            const Vector2 place = Mix(way[i], way[i + 1], part);
            const float wandering = 1 + nib.wander * noise.Fbm(s / nib.wave, 9.5f, 2);
            const float pressure = Clamp(PressureAt(press, s / length) * wandering, 0, 1.3f);
            const float half = nib.width / 2 * Mix(nib.least, 1, pressure);
            float dryness = -0.45f + nib.dry * 1.6f * (1 - Min(pressure, 1));
            if (length > ShortStroke)
                dryness += 2.2f * nib.skip * Smooth(0.18f, 0.62f, noise.Fbm(s / LiftLength, 71.5f, 2));
            if (lastHalf >= 0)
                ink.Piece(last, lastHalf, place, half, dryness);
            last = place;
            lastHalf = half;
        }
        gone += piece;
    }
    if (nib.pool > 0) {
        const auto blot = [&](Vector2 place, float pressure) {
            const float half = nib.width / 2 * Mix(nib.least, 1, Clamp(pressure));
            if (pressure > 0.3f)
                ink.Piece(place, half * (1 + nib.pool * dice.Range(0.2f, 1)),
                          place + Vector2{dice.Range(-0.5f, 0.5f), 0.3f}, half, -1);
        };
        blot(way.front(), press.start);
        blot(way.back(), press.end);
    }
    ink.Dry(nib.ink);
}

void Pen::Broad(const Line& line, float edge, Press press)
{
    const float length = LengthOf(line);
    if (line.size() < 2 || length <= 0)
        return;
    const Noise noise(seed + 0x51ed27u * ++strokes);
    const Line way = nib.wobble > 0 ? Shaken(line, nib.wobble, nib.wave, seed + strokes) : line;
    const Vector2 along = {Cos(edge), Sin(edge)};
    // A small letter has no room for paper between its bristles.
    const float dryEnd = 0.75f * Smooth(7, 14, nib.width) * nib.dry / 0.25f;
    float gone = 0;
    for (size_t i = 0; i + 1 < way.size(); i++) {
        const float piece = Length(way[i + 1] - way[i]);
        const int steps = std::max(1, int(piece / PieceLength));
        for (int k = i == 0 ? 0 : 1; k <= steps; k++) {
            const float part = float(k) / float(steps);
            const float s = gone + piece * part;
            const Vector2 place = Mix(way[i], way[i + 1], part);
            const float pressure = Clamp(
                PressureAt(press, s / length) * (1 + nib.wander * noise.Fbm(s / nib.wave, 9.5f, 2)), 0, 1.2f);
            const float half = nib.width / 2 * Mix(nib.least, 1, pressure);
            const float thin = Max(half * NibThickness, 0.45f);
            const Vector2 reach = along * Max(half - thin, 0);
            const float dryness =
                -0.45f + nib.dry * (1 - Min(pressure, 1)) + dryEnd * Smooth(0.72f, 1, s / length);
            ink.Piece(place - reach, thin, place + reach, thin, dryness);
        }
        gone += piece;
    }
    ink.Dry(nib.ink);
}

void Pen::Dot(Vector2 place, float radius)
{
    const Vector2 drag = {dice.Range(-0.5f, 0.5f) * radius, dice.Range(-0.3f, 0.6f) * radius};
    ink.Piece(place, radius, place + drag, radius * dice.Range(0.4f, 0.8f), -1);
    ink.Dry(nib.ink);
}

void Pen::Splatter(Vector2 place, float reach, int count, float largest)
{
    for (int i = 0; i < count; i++) {
        const float angle = dice.Range(0, 2 * Pi), far = dice.Unit() * dice.Unit();
        const float size = dice.Unit();
        Dot(place + Vector2{Cos(angle), Sin(angle)} * (reach * far),
            Max(0.35f, largest * size * size * size * (1 - 0.6f * far)));
    }
}

void Hatch(Pen& pen, const Mask& tone, HatchStyle style, uint32_t seed)
{
    constexpr float Step = 3; // pixels along a line
    Dice dice(seed);
    const Noise noise(seed);
    const Vector2 along = {Cos(style.angle), Sin(style.angle)}, across = {-along.y, along.x};
    const Vector2 centre = {float(tone.Width()) / 2, float(tone.Height()) / 2};
    const float far = Length(centre);
    for (float offset = -far; offset < far;
         offset += style.spacing * (1 + style.uneven * dice.Range(-1, 1))) {
        Line run;
        float wanted = style.length * dice.Range(0.5f, 1.5f), pause = 0;
        const auto finish = [&] {
            if (run.size() > 2) {
                const auto toneAt = [&](size_t i) { return Clamp(tone.Sample(run[i].x, run[i].y)); };
                pen.Stroke(run, {.start = 0.15f + 0.7f * toneAt(1),
                                 .middle = 0.1f + 0.9f * toneAt(run.size() / 2),
                                 .end = 0.6f * toneAt(run.size() - 2)});
            }
            run.clear();
            wanted = style.length * dice.Range(0.5f, 1.5f);
            pause = dice.Range(1, 3) * Step;
        };
        for (float s = -far; s < far; s += Step) {
            const float bend = style.bend * noise.Fbm(s / 160, offset / 160, 2);
            const Vector2 p = centre + along * s + across * (offset + bend);
            const bool within =
                p.x >= 0 && p.y >= 0 && p.x < float(tone.Width()) && p.y < float(tone.Height());
            const float amount = within ? tone.Sample(p.x, p.y) : 0;
            if (amount < style.faintest) {
                finish();
                pause = 0;
            } else if (pause > 0) {
                pause -= Step;
            } else {
                run.push_back(p);
                if (float(run.size()) * Step > wanted)
                    finish();
            }
        }
        finish();
    }
}

} // namespace atelier
