// SPDX-License-Identifier: MIT
// Type: the styles of the picture, how wide a text gets, and how it is shortened.
//
// Widths come from a table, not from the fonts of the machine, so that a script has one picture wherever it
// is drawn. The table holds the advances of a wide family: in nearly every other the text comes out narrower
// than the room that it was given.
#pragma once

#include "tools/timeline/Palette.h"

#include <string>

namespace timeline
{

struct Box {
    double x, y, width, height; // units of the canvas: pixels at scale 1; x right, y down

    double Right() const { return x + width; }
    double Bottom() const { return y + height; }
    bool Overlaps(const Box& other) const; // sharing an edge is no overlap
    bool Contains(const Box& other) const; // edges included
};

enum TextStyle {
    TitleText,   // the name of the show
    SummaryText, // the line under it
    GutterText,  // what a lane is
    CaptionText, // small words in the gutter and in the legend
    BarText,     // bar numbers of the ruler
    TimeText,    // minutes and seconds of the ruler
    EntryText,   // the name on an entry
    NoteText,    // its place in bars
    MessageText, // the name at a tick
    FindingText, // the list at the foot
    FlagText,    // the number on a finding's flag
    TextStyleCount
};

struct TextShape {
    bool serif;
    bool bold;
    bool italic;
    double size; // of the em
};

const TextShape& ShapeOf(TextStyle style);

// A text on the canvas. The box is the room that it may take, from ascender to descender.
struct PlacedText {
    std::string text;
    TextStyle style;
    Colour colour;
    double x, baseline;
    Box box;
};

// Left edge at x.
PlacedText PlaceText(const std::string& text, TextStyle style, Colour colour, double x, double baseline);

double TextWidth(const std::string& text, TextStyle style);
double TextHeight(TextStyle style); // ascender to descender

// The text if it fits, else its beginning and an ellipsis; empty if not even `least` characters would be
// left.
std::string Elide(const std::string& text, TextStyle style, double width, int least = 3);

// What can be shown: bytes that are no UTF-8, control characters and what XML has no place for become U+FFFD.
// A line end and a tab stay.
std::string Clean(const std::string& text);

} // namespace timeline
