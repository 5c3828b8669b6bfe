// SPDX-License-Identifier: MIT
#include "tools/edit/EditBlocks.h"

#include "kernel/EffectRegistry.h"
#include "tools/edit/ShiftItems.h"
#include "tools/edit/ValueText.h"
#include "tools/lint/Checks.h"

#include <algorithm>
#include <map>

namespace edit
{

void Additions::AddBlock(size_t handle, bool isMessage, size_t times)
{
    blocks.push_back({handle, isMessage ? times : 0});
}

void Additions::AddTimes(size_t block, const std::vector<size_t>& indices)
{
    lists.push_back({block, indices});
}

std::vector<ItemId> Additions::Items(const ScriptEdit& script) const
{
    const ScriptEdit::Numbers numbers = script.NumberBlocks();
    std::vector<ItemId> items;
    for (const NewBlock& block : blocks) {
        const size_t number = numbers.ofNew[block.handle];
        if (block.times == 0)
            items.push_back({number, -1});
        for (size_t i = 0; i < block.times; i++)
            items.push_back({number, int(i)});
    }
    for (const NewTimes& list : lists)
        for (const size_t index : list.indices)
            items.push_back({numbers.ofOld[list.block], int(index)});
    std::sort(items.begin(), items.end());
    return items;
}

// ---- Blocks by themselves

namespace
{

struct LoneBlock {
    std::string text;
    Outline outline; // of the text; one block
};

} // namespace

// The bytes of the block alone. False: it can't be read by itself.
static bool ReadAlone(const std::string& text, const OutlineBlock& block, LoneBlock* alone)
{
    alone->text = text.substr(block.place.begin, block.place.end - block.place.begin);
    alone->outline = ReadOutline(alone->text);
    return alone->outline.blocks.size() == 1;
}

// The block with those of its times that are asked for, or all of it if it has none. False: it can't be read by
// itself.
static bool ReadSelected(const std::string& text, const OutlineBlock& block,
                         const std::vector<size_t>& indices, LoneBlock* selected)
{
    LoneBlock alone;
    if (!ReadAlone(text, block, &alone))
        return false;
    std::vector<size_t> others;
    for (size_t i = 0; i < block.times.size(); i++)
        if (std::find(indices.begin(), indices.end(), i) == indices.end())
            others.push_back(i);
    if (others.empty()) {
        *selected = std::move(alone);
        return true;
    }
    ScriptEdit script(alone.text, alone.outline);
    return script.RemoveTimes(0, others) && script.Finish(&selected->text, &selected->outline);
}

// Inserts the block with all its times shifted, and the layer of an entry.
static bool InsertShifted(ScriptEdit* script, size_t behind, const LoneBlock& block, int64_t milliseconds,
                          int64_t layers, Additions* added)
{
    ScriptEdit alone(block.text, block.outline);
    LoneBlock shifted;
    if (!MoveItems(&alone, {{0, -1}}, milliseconds, layers) || !alone.Finish(&shifted.text, &shifted.outline))
        return script->Refuse(alone.Refusal());
    const OutlineBlock& content = shifted.outline.blocks[0];
    const bool isMessage = content.type == BlockMessage;
    const size_t times = content.times.size();
    added->AddBlock(script->InsertBlock(behind, shifted.text, std::move(shifted.outline)), isMessage, times);
    return true;
}

// The numbers of the times that are asked for, by block; none for a block that has no times.
static std::map<size_t, std::vector<size_t>> ByBlock(const std::vector<ItemId>& items)
{
    std::map<size_t, std::vector<size_t>> blocks;
    for (const ItemId& item : items) {
        std::vector<size_t>& times = blocks[item.block];
        if (item.time >= 0)
            times.push_back(size_t(item.time));
    }
    return blocks;
}

// ---- Duplicate, delete, copy

bool DuplicateItems(ScriptEdit* script, const std::vector<ItemId>& items, int64_t milliseconds,
                    int64_t layers, Additions* added)
{
    std::vector<ItemId> resolved;
    if (!ResolveItems(script, items, &resolved))
        return false;
    for (const ItemId& item : resolved) { // all by the same time, and as many layers
        const OutlineBlock& block = script->Block(item.block);
        if (layers != 0 && block.type == BlockEffect && block.layer <= MaxNumber)
            layers = std::clamp(layers, -int64_t(block.layer), int64_t(MaxNumber - block.layer));
        const int64_t begins =
            item.time >= 0 ? block.times[size_t(item.time)].milliseconds : std::min(block.start, block.stop);
        milliseconds = std::clamp(milliseconds, -begins, int64_t(MaxNumber));
    }
    for (const auto& [number, indices] : ByBlock(resolved)) {
        const OutlineBlock& block = script->Block(number);
        if (block.type != BlockEffect && block.type != BlockMessage)
            return script->Refuse("A script has a single " + SyntaxOf(block.type).name + " only.");
        // A list that Steps stands beside can't have a further time.
        if (indices.empty() || block.FindValue(key::Steps) || block.FindValue(key::TimeDelta)) {
            LoneBlock selected;
            if (!ReadSelected(script->Text(), block, indices, &selected))
                return script->Refuse("The block of " + LineOf(block) + " can't be read by itself.");
            if (!InsertShifted(script, number, selected, milliseconds, layers, added))
                return false;
            continue;
        }
        std::vector<uint32_t> times;
        for (const size_t index : indices) {
            const int64_t time = block.times[index].milliseconds;
            if (time > int64_t(MaxNumber))
                return script->Refuse("A time of " + LineOf(block) + " is below 0. Write it anew first.");
            times.push_back(uint32_t(std::clamp<int64_t>(time + milliseconds, 0, MaxNumber)));
        }
        std::vector<size_t> places;
        if (!script->AddTimes(number, times, &places))
            return false;
        added->AddTimes(number, places);
    }
    return true;
}

bool DeleteItems(ScriptEdit* script, const std::vector<ItemId>& items)
{
    std::vector<ItemId> resolved;
    if (!ResolveItems(script, items, &resolved))
        return false;
    for (const auto& [number, indices] : ByBlock(resolved))
        if (!(indices.size() == script->Block(number).times.size() ? script->RemoveBlock(number)
                                                                   : script->RemoveTimes(number, indices)))
            return false;
    return true;
}

bool CopyItems(const std::string& text, const Outline& outline, const std::vector<ItemId>& items,
               std::string* copy)
{
    ScriptEdit whole(text, outline);
    std::vector<ItemId> resolved;
    if (!ResolveItems(&whole, items, &resolved))
        return false;
    copy->clear();
    const std::string lineEnd = LineEndOf(text);
    for (const auto& [number, indices] : ByBlock(resolved)) {
        LoneBlock block;
        if (!ReadSelected(text, outline.blocks[number], indices, &block))
            return false;
        const BlockStyle style = StyleOf(text, outline, number, lineEnd);
        *copy += (copy->empty() ? "" : style.betweenBlocks) + block.text;
    }
    *copy += lineEnd;
    return true;
}

// ---- Where new blocks belong

// After the entry that starts last before it, and after the messages that follow that entry in the script.
static size_t PlaceForEntry(const std::vector<OutlineBlock>& blocks, uint32_t start)
{
    size_t behind = ScriptEdit::NoBlock;
    size_t first = blocks.size(); // the first entry
    for (size_t i = 0; i < blocks.size(); i++) {
        if (blocks[i].type != BlockEffect)
            continue;
        first = std::min(first, i);
        if (blocks[i].start <= start &&
            (behind == ScriptEdit::NoBlock || blocks[i].start >= blocks[behind].start))
            behind = i;
    }
    if (behind == ScriptEdit::NoBlock)
        return first == 0 || blocks.empty() ? ScriptEdit::NoBlock : first - 1;
    while (behind + 1 < blocks.size() && blocks[behind + 1].type == BlockMessage)
        behind++;
    return behind;
}

// After the last block of its effect that is not later, or else after the last block of the effect.
static size_t PlaceForMessage(const std::vector<OutlineBlock>& blocks, const std::string& effect,
                              uint32_t time)
{
    size_t earlier = ScriptEdit::NoBlock, last = ScriptEdit::NoBlock;
    for (size_t i = 0; i < blocks.size(); i++) {
        if (blocks[i].effect != effect || effect.empty())
            continue;
        last = i;
        const uint32_t begins = blocks[i].type == BlockEffect ? blocks[i].start
                                : blocks[i].times.empty()     ? 0
                                                              : blocks[i].times[0].milliseconds;
        if (begins <= time)
            earlier = i;
    }
    if (earlier != ScriptEdit::NoBlock)
        return earlier;
    return last != ScriptEdit::NoBlock || blocks.empty() ? last : blocks.size() - 1;
}

// ---- Paste

// The first time of a block that has one.
static bool FirstTime(const OutlineBlock& block, int64_t* first)
{
    if (block.type == BlockEffect) {
        *first = std::min(block.start, block.stop);
    } else if (block.type == BlockMessage && !block.times.empty()) {
        *first = block.times[0].milliseconds;
        for (const OutlineTime& time : block.times)
            *first = std::min<int64_t>(*first, time.milliseconds);
    } else {
        return false;
    }
    return *first <= int64_t(MaxNumber);
}

bool PasteBlocks(ScriptEdit* script, const std::string& blocks, uint32_t atMilliseconds, Additions* added)
{
    const std::string pasted = WithLineEnds(blocks, LineEndOf(script->Text()));
    const Outline outline = ReadOutline(pasted);
    int64_t earliest = -1;
    bool hasEntries = false;
    for (const OutlineBlock& block : outline.blocks) {
        int64_t first = 0;
        if (!FirstTime(block, &first))
            continue;
        earliest = earliest < 0 ? first : std::min(earliest, first);
        hasEntries = hasEntries || block.type == BlockEffect;
    }
    if (earliest < 0)
        return script->Refuse("What was copied holds no entries and no messages.");
    const std::vector<OutlineBlock>& there = script->GetOutline().blocks;
    const size_t together = PlaceForEntry(there, atMilliseconds);
    for (const OutlineBlock& block : outline.blocks) {
        int64_t first = 0;
        if (!FirstTime(block, &first))
            continue;
        const int64_t shift = int64_t(atMilliseconds) - earliest;
        if (first + shift > int64_t(MaxNumber))
            return script->Refuse("Times go from 0 to " + std::to_string(MaxNumber) + " ms.");
        const size_t behind =
            hasEntries ? together : PlaceForMessage(there, block.effect, uint32_t(first + shift));
        LoneBlock alone;
        if (!ReadAlone(pasted, block, &alone))
            return script->Refuse("A block can't be read by itself.");
        if (!InsertShifted(script, behind, alone, shift, 0, added))
            return false;
    }
    return true;
}

// ---- New blocks

static bool IsEffect(ScriptEdit* script, const std::string& effect)
{
    return lint::ProductionRegistry()->FindEffect(effect) ||
           script->Refuse("There is no effect " + lint::Quote(effect) + ".");
}

bool InsertEntry(ScriptEdit* script, const std::string& effect, uint32_t start, uint32_t stop, uint32_t layer,
                 Additions* added)
{
    if (!IsEffect(script, effect))
        return false;
    if (start >= stop || stop > MaxNumber || layer > MaxNumber)
        return script->Refuse("An entry stops behind its start, and its numbers go up to " +
                              std::to_string(MaxNumber) + ".");
    const size_t behind = PlaceForEntry(script->GetOutline().blocks, start);
    const std::string block = WriteBlock(script->StyleAt(behind), BlockEffect,
                                         {{key::EffectName, effect},
                                          {key::StartTime, std::to_string(start)},
                                          {key::StopTime, std::to_string(stop)},
                                          {key::LayerID, std::to_string(layer)}});
    added->AddBlock(script->InsertBlock(behind, block), false, 0);
    return true;
}

bool InsertMessage(ScriptEdit* script, const std::string& effect, const std::string& message, uint32_t time,
                   const std::string& parameters, Additions* added)
{
    if (!IsEffect(script, effect))
        return false;
    const std::vector<std::string> names = lint::MessageNames(*lint::ProductionRegistry(), effect);
    if (std::find(names.begin(), names.end(), message) == names.end())
        return script->Refuse(effect + " has no message " + lint::Quote(message) + ".");
    if (time > MaxNumber)
        return script->Refuse("Times go from 0 to " + std::to_string(MaxNumber) + " ms.");
    std::vector<KeyAndValue> entries = {{key::MessageText, message},
                                        {key::ActivationTime, std::to_string(time)},
                                        {key::TargetEffect, effect}};
    if (!IsBlank(parameters)) {
        std::string value, reason;
        if (!MakeValue(key::Parameter, parameters, &value, &reason))
            return script->Refuse(reason);
        entries.push_back({key::Parameter, value});
    }
    const size_t behind = PlaceForMessage(script->GetOutline().blocks, effect, time);
    added->AddBlock(script->InsertBlock(behind, WriteBlock(script->StyleAt(behind), BlockMessage, entries)),
                    true, 1);
    return true;
}

bool AddTimeToList(ScriptEdit* script, size_t block, uint32_t milliseconds, Additions* added)
{
    if (block >= script->GetOutline().blocks.size() || script->Block(block).type != BlockMessage)
        return script->Refuse("That is no message.");
    if (milliseconds > MaxNumber)
        return script->Refuse("Times go from 0 to " + std::to_string(MaxNumber) + " ms.");
    std::vector<size_t> places;
    if (!script->AddTimes(block, {milliseconds}, &places))
        return false;
    added->AddTimes(block, places);
    return true;
}

} // namespace edit
