// SPDX-License-Identifier: MIT
#include "tools/edit/Outline.h"

#include "tools/lint/KeyValues.h"
#include "tools/lint/Lint.h"
#include "tools/lint/Values.h"

#include <algorithm>
#include <cstdlib>

namespace edit
{

const OutlineValue* OutlineBlock::FindValue(const std::string& key) const
{
    for (const OutlineValue& value : values)
        if (value.key == key)
            return &value;
    return nullptr;
}

bool OutlineBlock::ValueOf(const std::string& key, std::string* text, Place* valuePlace) const
{
    const OutlineValue* const value = FindValue(key);
    if (value && text)
        *text = value->text;
    if (value && valuePlace)
        *valuePlace = value->place;
    return value != nullptr;
}

bool Outline::Has(ItemId item) const
{
    return item.block < blocks.size() &&
           (item.time == -1 || (item.time >= 0 && size_t(item.time) < blocks[item.block].times.size()));
}

static bool IsBefore(int line, int column, int otherLine, int otherColumn)
{
    return line != otherLine ? line < otherLine : column < otherColumn;
}

bool Outline::FindItem(int line, int column, ItemId* item) const
{
    const auto next = std::find_if(blocks.begin(), blocks.end(), [=](const OutlineBlock& block) {
        return IsBefore(line, column, block.line, block.column);
    });
    if (next == blocks.begin())
        return false;
    const OutlineBlock& block = *(next - 1);
    *item = {size_t(next - 1 - blocks.begin()), block.times.empty() ? -1 : 0};
    for (size_t i = 0; i < block.times.size(); i++)
        if (block.times[i].position.line == line && block.times[i].position.column == column)
            item->time = int(i);
    return true;
}

// From the first of some characters of the stream to past the last. Empty for none: ahead of the first.
static Place PlaceOf(const lint::Reading& script, size_t first, size_t end)
{
    const size_t behind = script.offsets.empty() ? 0 : script.offsets.back() + 1;
    const size_t begin = first < script.offsets.size() ? script.offsets[first] : behind;
    return {begin, end > first ? script.offsets[end - 1] + 1 : begin};
}

static void AddTimes(const lint::Reading& script, const lint::KeyValue& entry, OutlineBlock* block)
{
    const std::vector<lint::ListItem> items = lint::SplitItems(entry);
    const size_t count = lint::CountTimes(entry);
    block->times.reserve(count);
    for (size_t i = 0; i < count; i++) {
        const Place place =
            PlaceOf(script, items[i].place, items[i].text.empty() ? items[i].place : items[i].last + 1);
        block->times.push_back(
            {uint32_t(atoi(items[i].text.c_str())), place, script.PositionInStream(items[i].place)});
    }
}

// True if the reader takes the entry's value. In [MUSIC] alone the last one counts without its ; as well.
static bool Counts(const lint::Block& block, const lint::KeyValue& entry)
{
    return entry.counts || (block.type == BlockMusic && !entry.ended && entry.key == key::FileName);
}

static uint32_t NumberOf(const OutlineBlock& block, const char* key)
{
    const OutlineValue* const value = block.FindValue(key);
    return value ? uint32_t(atoi(value->text.c_str())) : 0;
}

static std::string TextOf(const OutlineBlock& block, const char* key)
{
    const OutlineValue* const value = block.FindValue(key);
    return value ? value->text : "";
}

static OutlineBlock ReadBlock(const lint::Reading& script, const lint::Block& read)
{
    OutlineBlock block;
    block.type = read.type;
    block.place = PlaceOf(script, read.header, read.body + read.text.size());
    block.header = PlaceOf(script, read.header, read.body);
    const lint::TextPosition position = script.PositionInStream(read.header);
    block.line = position.line;
    block.column = position.column;
    for (lint::KeyValue& entry : lint::SplitKeyValues(read)) {
        if (entry.key.empty())
            continue;
        const bool used = Counts(read, entry) && !block.FindValue(entry.key);
        const std::vector<uint32_t>& places = entry.valuePlaces;
        const size_t valueEnd = entry.value.empty() ? places[0] : places[entry.value.size() - 1] + 1;
        if (used && entry.key == key::ActivationTime)
            AddTimes(script, entry, &block);
        (used ? block.values : block.unused)
            .push_back({std::move(entry.key), std::move(entry.value), PlaceOf(script, places[0], valueEnd),
                        PlaceOf(script, entry.begin, entry.begin + entry.text.size()), entry.ended,
                        entry.IsBroken()});
    }
    switch (read.type) {
    case BlockMusic:
        block.fileName = TextOf(block, key::FileName);
        block.complete = !block.fileName.empty();
        break;
    case BlockEffect:
        block.effect = TextOf(block, key::EffectName);
        block.start = NumberOf(block, key::StartTime);
        block.stop = NumberOf(block, key::StopTime);
        block.layer = NumberOf(block, key::LayerID);
        block.complete = read.entryCount > 0;
        break;
    case BlockMessage:
        block.effect = TextOf(block, key::TargetEffect);
        block.message = TextOf(block, key::MessageText);
        block.complete = read.messageCount > 0;
        if (read.steps > 1) {
            block.steps = read.steps;
            block.delta = NumberOf(block, key::TimeDelta);
        }
        if (read.messageCount > 0) {
            const SynchMessage& first = script.player.messages[read.firstMessage];
            block.parameters.assign(first.params, first.params + first.count);
        }
        break;
    case BlockColorScheme:
        block.complete = !read.hasBox;
        break;
    case BlockNone:
        break;
    }
    return block;
}

Outline ReadOutline(const std::string& text)
{
    Outline outline;
    if (text.size() > lint::Reading::contentLimit)
        return outline;
    const lint::Reading script(text, lint::ProductionRegistry(), 0);
    outline.blocks.reserve(script.blocks.size());
    int messageBlocks = 0;
    for (const lint::Block& block : script.blocks) {
        if (block.type == BlockNone)
            continue;
        outline.blocks.push_back(ReadBlock(script, block));
        if (block.type == BlockMessage)
            outline.blocks.back().messageBlock = messageBlocks++;
    }
    return outline;
}

} // namespace edit
