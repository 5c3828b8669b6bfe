// SPDX-License-Identifier: MIT
#include "tools/edit/ScriptText.h"

#include <algorithm>
#include <cctype>

namespace edit
{

static const size_t none = std::string::npos;

bool IsSpace(char c)
{
    return isspace(static_cast<unsigned char>(c)) != 0;
}

std::string LineEndOf(const std::string& text)
{
    size_t all = 0, carriages = 0;
    for (size_t i = text.find('\n'); i != none; i = text.find('\n', i + 1)) {
        all++;
        carriages += i > 0 && text[i - 1] == '\r' ? 1 : 0;
    }
    return carriages * 2 > all ? "\r\n" : "\n";
}

std::string WithLineEnds(const std::string& text, const std::string& lineEnd)
{
    std::string result;
    for (size_t i = 0; i < text.size(); i++)
        if (text[i] == '\n')
            result += lineEnd;
        else if (text[i] != '\r' || i + 1 == text.size() || text[i + 1] != '\n')
            result += text[i];
    return result;
}

bool IsBlank(const std::string& text)
{
    return std::all_of(text.begin(), text.end(), IsSpace);
}

std::string Trimmed(const std::string& text)
{
    const auto begin = std::find_if_not(text.begin(), text.end(), IsSpace);
    const auto end = std::find_if_not(text.rbegin(), text.rend(), IsSpace).base();
    return begin < end ? std::string(begin, end) : "";
}

void Replace(const std::string& text, Place place, const std::string& with, std::vector<TextChange>* changes)
{
    bool written = false;
    for (size_t begin = place.begin; begin < place.end || !written;) {
        const auto end = text.begin() + std::ptrdiff_t(place.end);
        const auto mark = size_t(std::find(text.begin() + std::ptrdiff_t(begin), end, '#') - text.begin());
        std::string removed = text.substr(begin, mark - begin);
        std::string inserted = written ? "" : with;
        if (removed != inserted)
            changes->push_back({begin, std::move(removed), std::move(inserted)});
        written = true;
        const size_t close = mark < place.end ? text.find('#', mark + 1) : none;
        begin = close < place.end ? close + 1 : place.end;
    }
}

size_t BehindOnLine(const std::string& text, size_t place)
{
    size_t behind = place; // the last byte that is no blank
    bool inComment = false;
    for (size_t i = place; i < text.size() && text[i] != '\n'; i++) {
        if (text[i] == '#')
            inComment = !inComment;
        else if (!inComment && !IsSpace(text[i]))
            return place;
        if (!IsSpace(text[i]))
            behind = i + 1;
    }
    return inComment ? place : behind;
}

static size_t SkipBlanksOnLine(const std::string& text, size_t place)
{
    while (place < text.size() && text[place] != '\n' && IsSpace(text[place]))
        place++;
    return place;
}

// The beginning of the line if only blanks lie between; else npos.
static size_t BlankLineStart(const std::string& text, size_t place)
{
    while (place > 0 && text[place - 1] != '\n') {
        if (!IsSpace(text[place - 1]))
            return none;
        place--;
    }
    return place;
}

Place WithItsLines(const std::string& text, Place place, bool apart)
{
    const size_t start = BlankLineStart(text, place.begin);
    const size_t end = SkipBlanksOnLine(text, place.end);
    if (start == none || (end < text.size() && text[end] != '\n'))
        return place;
    Place lines = {start, std::min(end + 1, text.size())};
    const bool setApart = start == 0 || BlankLineStart(text, start - 1) != none;
    if (!apart || !setApart)
        return lines;
    size_t next = lines.end; // the first line after that is not blank
    for (size_t i = SkipBlanksOnLine(text, next); i < text.size() && text[i] == '\n';
         i = SkipBlanksOnLine(text, next))
        next = i + 1;
    const bool atEnd = SkipBlanksOnLine(text, next) == text.size();
    lines.end = atEnd ? text.size() : next;
    // At the end of the file the blank lines ahead of it go, which set it apart from what it followed.
    while (atEnd && lines.begin > 0) {
        const size_t line = BlankLineStart(text, lines.begin - 1);
        if (line == none)
            break;
        lines.begin = line;
    }
    return lines;
}

// Returns the bytes between two places if they are all white space, else `otherwise`.
static std::string Between(const std::string& text, size_t begin, size_t end, const std::string& otherwise)
{
    const std::string bytes = begin <= end ? text.substr(begin, end - begin) : "#";
    return IsBlank(bytes) ? bytes : otherwise;
}

static const std::string unknown = "#"; // no white space

// The white space between a block and the next one: that of the nearest block before it, or else after it,
// that is not followed by a comment.
static std::string GapBetween(const std::string& text, const std::vector<OutlineBlock>& blocks, size_t block,
                              const std::string& otherwise)
{
    if (blocks.size() < 2)
        return otherwise;
    const size_t first = std::min(block, blocks.size() - 2);
    for (size_t i = 0; i + 1 < blocks.size(); i++) {
        const size_t pair = i <= first ? first - i : i;
        const std::string gap = Between(text, blocks[pair].place.end, blocks[pair + 1].place.begin, unknown);
        if (gap != unknown)
            return gap;
    }
    return otherwise;
}

BlockStyle StyleOf(const std::string& text, const Outline& outline, size_t block, const std::string& lineEnd)
{
    BlockStyle style = {lineEnd, lineEnd, lineEnd, lineEnd + lineEnd};
    const std::vector<OutlineBlock>& blocks = outline.blocks;
    style.betweenBlocks = GapBetween(text, blocks, block, style.betweenBlocks);
    if (block >= blocks.size() || blocks[block].values.empty())
        return style;
    const OutlineBlock& model = blocks[block];
    style.behindHeader = Between(text, model.header.end, model.values[0].entry.begin, lineEnd);
    for (size_t i = 1; i < model.values.size(); i++) {
        const std::string gap =
            Between(text, model.values[i - 1].entry.end, model.values[i].entry.begin, unknown);
        if (gap == unknown)
            continue;
        style.betweenEntries = gap;
        break;
    }
    return style;
}

std::string WriteBlock(const BlockStyle& style, BlockType type, const std::vector<KeyAndValue>& entries)
{
    std::string block = "[" + SyntaxOf(type).name + "]";
    for (size_t i = 0; i < entries.size(); i++)
        block += (i == 0 ? style.behindHeader : style.betweenEntries) + entries[i].key + "=" +
                 entries[i].value + ";";
    return block;
}

} // namespace edit
