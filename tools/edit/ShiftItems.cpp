// SPDX-License-Identifier: MIT
#include "tools/edit/ShiftItems.h"

#include "tools/edit/ValueText.h"

#include <algorithm>
#include <string>

namespace edit
{

static const int64_t most = MaxNumber;

// A Steps group is written out up to this many times.
static const uint32_t maxTakenApart = 1000;

bool ResolveItems(ScriptEdit* script, const std::vector<ItemId>& items, std::vector<ItemId>* resolved)
{
    resolved->clear();
    for (const ItemId& item : items) {
        if (!script->GetOutline().Has(item))
            return script->Refuse("What was selected is no longer in the script.");
        const size_t times = script->Block(item.block).times.size();
        if (item.time >= 0 || times == 0)
            resolved->push_back(item);
        for (size_t i = 0; item.time < 0 && i < times; i++)
            resolved->push_back({item.block, int(i)});
    }
    std::sort(resolved->begin(), resolved->end());
    resolved->erase(std::unique(resolved->begin(), resolved->end()), resolved->end());
    return !resolved->empty() || script->Refuse("Nothing is selected.");
}

// A number of the script that is shifted. The reader takes one below 0 for a very large one.
struct Moved {
    size_t block;
    const char* key;
    int time; // of an ActivationTime, else -1
    int64_t value;
};

static bool AddNumber(ScriptEdit* script, ItemId item, const char* key, uint32_t value,
                      std::vector<Moved>* numbers)
{
    const OutlineBlock& block = script->Block(item.block);
    if (!block.FindValue(key))
        return script->Refuse("The block of " + LineOf(block) + " has no " + key + ".");
    if (value > MaxNumber)
        return script->Refuse(std::string(key) + " of " + LineOf(block) +
                              " is below 0. Write it anew first.");
    numbers->push_back({item.block, key, item.time, int64_t(value)});
    return true;
}

// The times of an item: start and stop of an entry.
static bool AddTimes(ScriptEdit* script, ItemId item, std::vector<Moved>* numbers)
{
    const OutlineBlock& block = script->Block(item.block);
    switch (block.type) {
    case BlockEffect:
        return AddNumber(script, item, key::StartTime, block.start, numbers) &&
               AddNumber(script, item, key::StopTime, block.stop, numbers);
    case BlockMessage:
        return AddNumber(script, item, key::ActivationTime,
                         item.time < 0 ? 0 : block.times[size_t(item.time)].milliseconds, numbers);
    default:
        return script->Refuse("Only entries and messages have a time.");
    }
}

// Adds the same to all of them, cut so that each stays a number that a script can hold.
static bool AddToAll(ScriptEdit* script, const std::vector<Moved>& numbers, int64_t amount)
{
    if (numbers.empty())
        return true;
    const auto byValue = [](const Moved& a, const Moved& b) { return a.value < b.value; };
    const auto [least, greatest] = std::minmax_element(numbers.begin(), numbers.end(), byValue);
    amount = std::clamp(amount, -least->value, most - greatest->value);
    if (amount == 0)
        return true;
    for (const Moved& number : numbers) {
        const auto value = uint32_t(number.value + amount);
        const bool done = number.time < 0 ? script->SetValue(number.block, number.key, std::to_string(value))
                                          : script->SetTime(number.block, size_t(number.time), value);
        if (!done)
            return false;
    }
    return true;
}

bool MoveItems(ScriptEdit* script, const std::vector<ItemId>& items, int64_t milliseconds, int64_t layers)
{
    std::vector<ItemId> moved;
    if (!ResolveItems(script, items, &moved))
        return false;
    std::vector<Moved> times, layerNumbers;
    for (const ItemId& item : moved) {
        const OutlineBlock& block = script->Block(item.block);
        if (milliseconds != 0 && !AddTimes(script, item, &times))
            return false;
        if (layers != 0 && block.type == BlockEffect &&
            !AddNumber(script, item, key::LayerID, block.layer, &layerNumbers))
            return false;
    }
    return AddToAll(script, times, milliseconds) && AddToAll(script, layerNumbers, layers);
}

bool SetItemTime(ScriptEdit* script, ItemId item, uint32_t milliseconds)
{
    std::vector<ItemId> items;
    std::vector<Moved> times;
    if (!ResolveItems(script, {item}, &items) || !AddTimes(script, items[0], &times))
        return false;
    const int64_t amount = int64_t(milliseconds) - times[0].value;
    for (const Moved& time : times)
        if (time.value + amount > most || time.value + amount < 0)
            return script->Refuse("Times go from 0 to " + std::to_string(MaxNumber) + " ms.");
    return AddToAll(script, times, amount);
}

// ---- Stretching

// How far the edge of an entry can go before the entry is shorter than 1 ms; nothing if it is already.
static bool StretchEntries(ScriptEdit* script, const std::vector<size_t>& entries, bool stopEdge,
                           int64_t amount)
{
    std::vector<Moved> edges;
    for (const size_t entry : entries) {
        const OutlineBlock& block = script->Block(entry);
        std::vector<Moved> both;
        if (!AddTimes(script, {entry, -1}, &both))
            return false;
        const int64_t room = std::max<int64_t>(0, int64_t(block.stop) - int64_t(block.start) - 1);
        amount = stopEdge ? std::max(amount, -room) : std::min(amount, room);
        edges.push_back(both[stopEdge ? 1 : 0]);
    }
    return AddToAll(script, edges, amount);
}

static bool StretchGroup(ScriptEdit* script, size_t group, bool stopEdge, int64_t amount)
{
    const OutlineBlock& block = script->Block(group);
    const int64_t start = block.times[0].milliseconds, gaps = int64_t(block.steps) - 1;
    if (start > most || block.delta > MaxNumber)
        return script->Refuse("A time of " + LineOf(block) + " is below 0. Write it anew first.");
    const int64_t length = gaps * int64_t(block.delta), end = start + length;
    amount = std::clamp(amount, -2 * most, 2 * most);
    const int64_t wished = stopEdge ? length + amount : length - amount;
    // The start edge goes only so far that the first time is not below 0.
    const int64_t widest = stopEdge ? most : std::max<int64_t>(1, end / gaps);
    const int64_t delta = std::clamp<int64_t>((wished + gaps / 2) / gaps, 1, widest);
    const int64_t newStart = stopEdge ? start : end - gaps * delta;
    if ((wished <= 0 && block.delta <= 1) || newStart < 0 || newStart > most)
        return true; // as close together as they can be
    return (delta == block.delta || script->SetValue(group, key::TimeDelta, std::to_string(delta))) &&
           (newStart == start || script->SetTime(group, 0, uint32_t(newStart)));
}

bool StretchItems(ScriptEdit* script, const std::vector<ItemId>& items, bool stopEdge, int64_t milliseconds)
{
    std::vector<ItemId> stretched;
    if (!ResolveItems(script, items, &stretched))
        return false;
    std::vector<size_t> entries, groups;
    for (const ItemId& item : stretched) {
        const OutlineBlock& block = script->Block(item.block);
        if (block.type == BlockEffect)
            entries.push_back(item.block);
        else if (block.IsGroup())
            groups.push_back(item.block);
    }
    if (entries.empty() && groups.empty())
        return script->Refuse("Only entries and Steps groups have a length.");
    if (!StretchEntries(script, entries, stopEdge, milliseconds))
        return false;
    for (const size_t group : groups)
        if (!StretchGroup(script, group, stopEdge, milliseconds))
            return false;
    return true;
}

// ---- Keys

bool SetBlockValue(ScriptEdit* script, size_t block, const std::string& key, const std::string& typed)
{
    if (block >= script->GetOutline().blocks.size())
        return script->Refuse("That block is no longer in the script.");
    const BlockSyntax& syntax = SyntaxOf(script->Block(block).type);
    const auto found = std::find(syntax.keys.begin(), syntax.keys.end(), key);
    if (found == syntax.keys.end())
        return script->Refuse("[" + syntax.name + "] has no key " + key + ".");
    const bool isNeeded = size_t(found - syntax.keys.begin()) < syntax.needed;
    if (IsBlank(typed) && !isNeeded)
        return script->RemoveKey(block, key);
    std::string value, reason;
    if (!MakeValue(key, typed, &value, &reason))
        return script->Refuse(reason);
    return script->SetValue(block, key, value);
}

bool TakeGroupApart(ScriptEdit* script, size_t block)
{
    if (block >= script->GetOutline().blocks.size() || !script->Block(block).IsGroup())
        return script->Refuse("That is no Steps group.");
    const OutlineBlock& group = script->Block(block);
    if (group.steps > maxTakenApart)
        return script->Refuse("These are " + std::to_string(group.steps) + " messages; up to " +
                              std::to_string(maxTakenApart) + " can be written out.");
    std::vector<std::string> times;
    uint32_t time = group.times[0].milliseconds;
    for (uint32_t i = 0; i < group.steps; i++, time += group.delta) {
        if (time > MaxNumber)
            return script->Refuse("Some of these messages lie below 0, which a list of times can't say.");
        times.push_back(std::to_string(time));
    }
    return script->SetValue(block, key::ActivationTime, JoinList(times)) &&
           script->RemoveKey(block, key::Steps) && script->RemoveKey(block, key::TimeDelta);
}

} // namespace edit
