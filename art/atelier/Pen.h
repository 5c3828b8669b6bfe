// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Ink.h"

// The ink pen: a line of changing pressure, slightly unsteady, broken where the pen lifts, with ink pooling
// where it rests. A pen draws onto a mask, so that the same hand draws ink (Canvas::Cover with palette::Ink),
// scratches (Cover with bone), and threads of light (GlowAlong).
//
//     Mask lines(1024, 512);
//     Pen pen(lines, SketchPaper(), {.width = 4}, 17);
//     pen.Stroke(Through({{100, 400}, {300, 320}, {520, 380}}));          // swells and runs out
//     pen.Stroke(Ellipse({700, 200}, 80, 60), {.start = 0.8f, .end = 0.8f});
//     canvas.Cover(lines, palette::Ink);

namespace atelier
{

struct Nib {
    float width = 3;     // pixels, at full pressure
    float least = 0.22f; // of the width, at no pressure
    float wobble = 0.6f; // pixels the hand strays
    float wave = 36;     // pixels along the line in which it strays, and in which the pressure wanders
    float wander = 0.3f; // how far the pressure wanders by itself
    float skip = 0.3f;   // 0: the pen never lifts by itself, 1: it often does
    float dry = 0.25f;   // how soon a light line shows the tooth of the paper
    float pool = 0.35f;  // how much ink gathers where a stroke begins and ends
    float ink = 1;       // the strength of one layer
};

// Pressure along a stroke, 0 to 1.
struct Press {
    float start = 0.55f, middle = 1, end = 0.12f;
};

class Pen
{
public:
    Pen(Mask& sheet, const Paper& paper, Nib nib, uint32_t seed);

    void Stroke(const Line& line, Press press = {});
    // The same way with a broad nib, whose edge is held at `edge` (radians, clockwise from the right as y is
    // down): thick across the edge, thin along it, cut off at its slant; the end runs dry on a large letter.
    void Broad(const Line& line, float edge, Press press = {});
    // A dot set down and lifted.
    void Dot(Vector2 place, float radius);
    // `count` drops round a place, most of them small and near. Reach and largest radius in pixels.
    void Splatter(Vector2 place, float reach, int count, float largest);

    Nib nib; // may be changed between strokes

private:
    Ink ink;
    Dice dice;
    uint32_t strokes = 0;
    uint32_t seed;
};

// Parallel pen strokes over a region, as an engraver lays tone: the darker the mask, the closer to full
// pressure; the pen lifts where the mask is empty.
struct HatchStyle {
    float angle = 0.8f;     // radians
    float spacing = 7;      // pixels between lines
    float length = 90;      // pixels of the mean stroke
    float uneven = 0.3f;    // of the spacing
    float bend = 6;         // pixels by which the lines curve
    float faintest = 0.08f; // tone below which no line is drawn
};
void Hatch(Pen& pen, const Mask& tone, HatchStyle style, uint32_t seed);

} // namespace atelier
