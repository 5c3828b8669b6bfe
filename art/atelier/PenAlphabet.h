// SPDX-License-Identifier: MIT
#pragma once

#include "art/atelier/Pen.h"

#include <string>

// The show's own alphabet: letters as pen strokes, drawn with the same ink line as everything else, no two
// alike. Upper and lower case, digits, punctuation, umlauts and eszett, in UTF-8; a character it lacks is
// left as a space.
//
//     LetterStyle style{.size = 60, .slant = 0.1f};
//     Write(pen, "moonwaltz", {512, 300}, style, Anchor::Middle, 3);
//
// The size is that of a capital letter in pixels; `place` is on the baseline. Small letters are about 0.55 of
// it, ascenders 1.13, descenders 0.46 below the line. The pen's width should be about size / 14 for text,
// size / 8 for titles.

namespace atelier
{

struct LetterStyle {
    float size = 40;
    float slant = 0.06f;  // rightward lean: the tangent of the angle
    float narrow = 1;     // widths of letters times this
    float spacing = 0.9f; // gap between letters, in tenths of a capital's height (a space is three of them)
    float lively = 1;     // how much letters differ from each other in size, turn and place; 0: not at all
};

enum class Anchor { Left, Middle, Right };

// The pen's ways for a text: strokes in pixels, y down, in writing order, for whoever wants to do more with
// them than draw them.
struct WrittenStroke {
    Line line;
    bool dot;      // a point of an i or a full stop: set down, not drawn
    size_t letter; // counts from 0
};
std::vector<WrittenStroke> Writing(const std::string& text, Vector2 place, const LetterStyle& style,
                                   Anchor anchor = Anchor::Left, uint32_t seed = 1);
float WidthOf(const std::string& text, const LetterStyle& style);

void Write(Pen& pen, const std::string& text, Vector2 place, const LetterStyle& style,
           Anchor anchor = Anchor::Left, uint32_t seed = 1);

// True if the alphabet has the character.
bool HasLetter(char32_t character);

// One letter as it is stored: its width and its strokes in tenths of a capital's height, y up from the
// baseline. Strokes are separated by " / ", points are "x,y", a corner is "x,y!"; all else is bent smoothly.
struct PenLetter {
    char32_t character;
    float width;
    const char* strokes;
};
extern const PenLetter PenLetters[];
extern const size_t PenLetterCount;

} // namespace atelier
