// SPDX-License-Identifier: MIT
// Typography of the picture: the styles of texts, their widths, and how a text is shortened to fit.
//
// Widths come from a table of advance widths and not from the fonts of the machine, so that a script has the same
// picture on every machine. The table is that of a wide font: in nearly every other font a text is narrower than the
// room that it gets here.
#pragma once

#include "tools/timeline/TimelineColours.h"

#include <string>

namespace timeline
{

struct CanvasRect {
    double x, y, width, height; // units of the canvas: pixels at scale 1; x right, y down

    double Right() const { return x + width; }
    double Bottom() const { return y + height; }
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
    ScreenColour colour;
    double x, baseline;
    CanvasRect box;
};

// Makes a text whose left edge is at x, with the box that TextWidth and TextHeight say.
PlacedText PlaceText(const std::string& text, TextStyle style, ScreenColour colour, double x,
                     double baseline);

double TextWidth(const std::string& text, TextStyle style);
double TextHeight(TextStyle style); // ascender to descender

// Shortens a text to a width: returns it as it is if it fits, otherwise its beginning and an ellipsis, or nothing if
// fewer than `least` characters would be left.
std::string Elide(const std::string& text, TextStyle style, double width, int least = 3);

// Makes any bytes valid as the text of an XML document: invalid UTF-8, control characters and characters that XML
// forbids become U+FFFD. Line ends and tabs stay.
std::string Clean(const std::string& text);

} // namespace timeline
