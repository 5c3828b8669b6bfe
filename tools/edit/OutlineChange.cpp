// SPDX-License-Identifier: MIT
#include "tools/edit/OutlineChange.h"

#include <algorithm>
#include <map>

namespace edit
{

static const size_t maxBlocks = 40; // beyond these reading the whole is as quick

// Below all limits of lint::Reading, at which blocks begin to depend on those ahead of them.
static const size_t maxMessages = 10000;
static const size_t maxParameters = 1 << 20;

// True if the text begins and ends no comment, no block and no line, and each of its bytes is a character.
static bool IsPlain(const std::string& text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return c >= ' ' && c < 0x7f && c != '#' && c != '[' && c != ']'; });
}

static bool IsWithinLimits(const Outline& outline)
{
    size_t messages = 0, parameters = 0;
    for (const OutlineBlock& block : outline.blocks) {
        if (block.steps > maxMessages)
            return false;
        const size_t count = block.times.size() + block.steps;
        messages += count;
        parameters += count * block.parameters.size();
        if (messages > maxMessages || parameters > maxParameters)
            return false;
    }
    return true;
}

namespace
{

// How far the text after the changes made so far has moved.
struct Shift {
    size_t bytes = 0;           // modulo 2^64: adding a negative distance moves back
    std::map<int, int> columns; // by line

    int ColumnsOf(int line) const
    {
        const auto found = columns.find(line);
        return found == columns.end() ? 0 : found->second;
    }
};

} // namespace

static void Move(size_t bytes, Place* place)
{
    place->begin += bytes;
    place->end += bytes;
}

static void MovePlaces(size_t bytes, OutlineBlock* block)
{
    Move(bytes, &block->place);
    Move(bytes, &block->header);
    for (std::vector<OutlineValue>* const values : {&block->values, &block->unused})
        for (OutlineValue& value : *values) {
            Move(bytes, &value.place);
            Move(bytes, &value.entry);
        }
    for (OutlineTime& time : block->times)
        Move(bytes, &time.place);
}

static void MoveWhole(const Shift& shift, OutlineBlock* block)
{
    MovePlaces(shift.bytes, block);
    if (shift.columns.empty())
        return;
    block->column += shift.ColumnsOf(block->line);
    for (OutlineTime& time : block->times)
        time.position.column += shift.ColumnsOf(time.position.line);
}

// Reads the block by itself and puts it where it stands. False: it is no longer one block of its kind.
static bool ReadAgain(const std::string& text, size_t begin, size_t end, OutlineBlock* block)
{
    Outline alone = ReadOutline(text.substr(begin, end - begin));
    if (alone.blocks.size() != 1 || alone.blocks[0].type != block->type || alone.blocks[0].place.begin != 0)
        return false;
    OutlineBlock read = std::move(alone.blocks[0]);
    MovePlaces(begin, &read);
    if (text[read.place.end - 1] != ';')
        return false; // an empty value at the end stands where the next block begins
    read.messageBlock = block->messageBlock;
    for (OutlineTime& time : read.times) {
        if (time.position.line == 1)
            time.position.column += block->column - 1;
        time.position.line += block->line - 1;
    }
    read.line = block->line;
    read.column = block->column;
    *block = std::move(read);
    return true;
}

// False: the changes may touch more than the blocks that they stand in.
static bool ReadFew(const std::string& before, const std::vector<TextChange>& changes,
                    const std::string& after, Outline* outline)
{
    Shift shift;
    size_t next = 0, touched = 0;
    for (OutlineBlock& block : outline->blocks) {
        const Place old = block.place;
        const size_t inside = block.header.end;
        if (next == changes.size() || changes[next].at >= old.end) {
            if (next > 0)
                MoveWhole(shift, &block);
            continue;
        }
        if (++touched > maxBlocks)
            return false;
        const size_t begin = old.begin + shift.bytes;
        block.column += shift.ColumnsOf(block.line);
        int line = block.line;
        for (size_t counted = old.begin; next < changes.size() && changes[next].at < old.end; next++) {
            const TextChange& change = changes[next];
            if (change.at < inside || change.at + change.removed.size() > old.end ||
                !IsPlain(change.removed) || !IsPlain(change.inserted))
                return false;
            line += int(std::count(before.begin() + std::ptrdiff_t(counted),
                                   before.begin() + std::ptrdiff_t(change.at), '\n'));
            counted = change.at;
            shift.bytes += change.inserted.size() - change.removed.size();
            shift.columns[line] += int(change.inserted.size()) - int(change.removed.size());
        }
        if (!ReadAgain(after, begin, old.end + shift.bytes, &block))
            return false;
    }
    return next == changes.size();
}

Outline ReadChanged(const std::string& before, const Outline& outline, const std::vector<TextChange>& changes,
                    const std::string& after)
{
    if (changes.size() <= 4 * maxBlocks && IsWithinLimits(outline)) {
        Outline few = outline;
        if (ReadFew(before, changes, after, &few) && IsWithinLimits(few))
            return few;
    }
    return ReadOutline(after);
}

} // namespace edit
