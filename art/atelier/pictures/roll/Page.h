// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/PenAlphabet.h"

namespace atelier
{

// The pages of the closing roll. Twice the size in which a page is seen on the largest window.
constexpr int PageWidth = 1024, PageHeight = 2148;
constexpr float PageMiddle = PageWidth / 2.0f;
// The screen shows a page higher than it is painted; letters are written so much wider.
constexpr float SeenNarrow = 1.14f;

// One page: what is written and drawn on it, by kind of ink.
class Page
{
public:
    explicit Page(uint32_t seed)
        : lines(PageWidth, PageHeight), washes(lines), lights(lines), accents(lines), dark(lines),
          pen(lines, SketchPaper(), {.width = 4, .wobble = 1.1f, .wave = 44, .skip = 0.3f, .dry = 0.4f},
              seed),
          amber(accents, SketchPaper(), {.width = 4, .skip = 0.1f}, seed + 1), dice(seed + 2),
          letterSeed(seed * 100)
    {
    }

    // A line of lettering round the middle of the page, its baseline at y: bone, and amber.
    void Words(const std::string& text, float y, float size, float weight = 0);
    void Aside(const std::string& text, float y, float size);
    void Draw(const Line& line, float width = 4, Press press = {.start = 0.6f, .middle = 0.9f, .end = 0.4f});
    // A drawn shape: a pale wash and its contour.
    void Body(const Line& outline, float width = 4, float amount = 1);
    // A flourish between two parts: a line that swells, with a drop at its middle.
    void Rule(float y, float half);

    // All of it on clear ground, in the size of the file.
    Canvas Finished();

    Mask lines, washes, lights, accents, dark;
    Pen pen, amber;
    Dice dice;

private:
    uint32_t letterSeed;
};

} // namespace atelier
