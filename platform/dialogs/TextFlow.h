// SPDX-License-Identifier: MIT
// Breaks a text into lines that fit a width. Knows no font: the caller measures. The toolkit's text widgets
// break a long word wherever the line is full, which makes paths hard to read.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace platform
{

// The width of the first `length` bytes of a text, in any unit.
typedef std::function<double(const char* text, int length)> TextMeasure;

// Makes any bytes fit to be shown: the result is valid UTF-8. Line ends ("\r\n", "\n" or "\r") become "\n", a
// tab becomes 1 to 4 blanks, up to the next column divisible by 4. A byte that isn't part of a UTF-8
// character is taken for Latin-1, as old files have it; other control characters become U+FFFD. What goes
// beyond LongestShownText bytes is cut off and replaced by an ellipsis.
std::string ShowableText(const std::string& text);
const size_t LongestShownText = 50000;

// The same for a place that has one line only: line ends become single blanks.
std::string ShowableLine(const std::string& text);

// Lines of a showable text, each at most `width` wide, without their line ends. A line breaks at a blank,
// which belongs to neither side then; blanks in front of a text line stay. A word that is wider than the
// width breaks after the last '/', '\', ',', ';', ':', '=' or '-' that fits if that leaves the line at
// least half full, otherwise after the last character that fits, and never inside a character; one
// character stands on each line at least. An empty text is one empty line.
std::vector<std::string> FlowText(const std::string& text, double width, const TextMeasure& measure);

} // namespace platform
