// SPDX-License-Identifier: MIT
// The text of a script as people see it: lines, comments, and what stands between them. Places that are handed
// in lie outside comments, as those of an Outline do.
#pragma once

#include "tools/edit/Outline.h"
#include "tools/edit/TextChange.h"

#include <string>
#include <vector>

namespace edit
{

// The ends of most of its lines, "\n" or "\r\n"; "\n" for a text of one line.
std::string LineEndOf(const std::string& text);

// The text with all line ends alike.
std::string WithLineEnds(const std::string& text, const std::string& lineEnd);

bool IsSpace(char c);
bool IsBlank(const std::string& text); // nothing but white space

// Without the white space at both ends.
std::string Trimmed(const std::string& text);

// Adds the changes that put other text in the place of these bytes. Comments among them survive.
void Replace(const std::string& text, Place place, const std::string& with, std::vector<TextChange>* changes);

// Where something new can follow what ends there: after blanks and whole comments, at the end of the line. Where
// something else follows on the line, or a comment goes on over its end, the place itself.
size_t BehindOnLine(const std::string& text, size_t place);

// The bytes to remove so that no gap is left where something stood: its whole lines if it stands alone on them, and
// with `apart` the blank lines that set it apart from what follows; else its own bytes.
Place WithItsLines(const std::string& text, Place place, bool apart);

// How blocks are laid out, taken from the script around a place.
struct BlockStyle {
    std::string lineEnd;
    std::string behindHeader;   // white space
    std::string betweenEntries; // white space
    std::string betweenBlocks;  // white space
};

// That of a block and of the script that it stands in, whose LineEndOf the caller gives; block can be the number of none.
BlockStyle StyleOf(const std::string& text, const Outline& outline, size_t block, const std::string& lineEnd);

struct KeyAndValue {
    std::string key;
    std::string value;
};

// A block without a line end after it.
std::string WriteBlock(const BlockStyle& style, BlockType type, const std::vector<KeyAndValue>& entries);

} // namespace edit
