// SPDX-License-Identifier: MIT
#include "tests/support/ScriptRecords.h"

#include <algorithm>

using edit::ItemId;
using edit::OutlineBlock;

ScriptRecords::ScriptRecords(const edit::Outline& outline)
{
    for (size_t i = 0; i < outline.blocks.size(); i++) {
        const OutlineBlock& block = outline.blocks[i];
        ScriptRecord record;
        record.block = i;
        record.effect = block.effect;
        if (block.type == BlockEffect && block.FindValue("EffectName") && block.FindValue("StartTime") &&
            block.FindValue("StopTime") && block.FindValue("LayerID")) {
            record.isEntry = true;
            record.start = block.start;
            record.stop = block.stop;
            record.layer = block.layer;
            records.push_back(record);
        } else if (block.type == BlockMessage && block.FindValue("MessageText") &&
                   block.FindValue("ActivationTime") && block.FindValue("TargetEffect")) {
            record.message = block.message;
            record.hasParameters = block.ValueOf("Parameter", &record.parameters);
            record.hasSteps = block.ValueOf("Steps", &record.steps);
            record.hasDelta = block.ValueOf("TimeDelta", &record.delta);
            for (const edit::OutlineTime& time : block.times)
                record.times.push_back(time.milliseconds);
            records.push_back(record);
        }
    }
}

// Large numbers are what the reader made of those below 0.
static std::string Number(int64_t value)
{
    return std::to_string(value > ScriptRecords::greatest ? value - 4294967296 : value);
}

std::string ScriptRecords::Write() const
{
    std::string script;
    for (const ScriptRecord& record : records) {
        if (record.isEntry) {
            script += "[EFFECT]EffectName=" + record.effect + ";StartTime=" + Number(record.start) +
                      ";StopTime=" + Number(record.stop) + ";LayerID=" + Number(record.layer) + ";";
            continue;
        }
        script += "[MESSAGE]MessageText=" + record.message + ";TargetEffect=" + record.effect + ";";
        script += "ActivationTime=";
        for (size_t i = 0; i < record.times.size(); i++)
            script += (i > 0 ? "," : "") + Number(record.times[i]);
        script += ";";
        if (record.hasParameters)
            script += "Parameter=" + record.parameters + ";";
        if (record.hasSteps)
            script += "Steps=" + record.steps + ";";
        if (record.hasDelta)
            script += "TimeDelta=" + record.delta + ";";
    }
    return script;
}

ScriptRecord* ScriptRecords::Find(size_t block)
{
    for (ScriptRecord& record : records)
        if (record.block == block)
            return &record;
    return nullptr;
}

bool ScriptRecords::HaveAll(const std::vector<ItemId>& items)
{
    return std::all_of(items.begin(), items.end(),
                       [&](const ItemId& item) { return Find(item.block) != nullptr; });
}

// Start and stop of an entry, or the time of a message.
std::vector<int64_t*> ScriptRecords::NumbersOf(ItemId item)
{
    ScriptRecord* const record = Find(item.block);
    if (!record)
        return {};
    if (record->isEntry)
        return {&record->start, &record->stop};
    return {&record->times[size_t(item.time)]};
}

void ScriptRecords::Move(const std::vector<ItemId>& items, int64_t amount, int64_t layers)
{
    for (const ItemId& item : items) {
        for (const int64_t* number : NumbersOf(item))
            amount = std::clamp(amount, -*number, greatest - *number);
        if (const ScriptRecord* const record = Find(item.block); record && record->isEntry)
            layers = std::max(layers, -record->layer);
    }
    for (const ItemId& item : items) {
        for (int64_t* number : NumbersOf(item))
            *number += amount;
        if (ScriptRecord* const record = Find(item.block); record && record->isEntry)
            record->layer += layers;
    }
}

void ScriptRecords::Stretch(ScriptRecord* entry, bool stop, int64_t amount)
{
    const int64_t room = std::max<int64_t>(entry->stop - entry->start - 1, 0);
    if (stop)
        entry->stop += std::min(std::max({amount, -room, -entry->stop}), greatest - entry->stop);
    else
        entry->start += std::max(std::min(amount, room), -entry->start);
}

ScriptRecord ScriptRecords::CopyOf(const ScriptRecord& record, int time, int64_t amount)
{
    ScriptRecord copy = record;
    copy.start += amount;
    copy.stop += amount;
    if (!copy.isEntry)
        copy.times = {record.times[size_t(time)] + amount};
    if (record.times.size() > 1)
        copy.hasSteps = false; // beside a list it counts for nothing
    return copy;
}

bool ScriptRecords::Duplicate(const std::vector<ItemId>& items, int64_t amount)
{
    const int64_t nearEnd = greatest - 10000;
    for (const ItemId& item : items) {
        const ScriptRecord* const record = Find(item.block);
        if (!record)
            return false;
        amount = std::max(amount, record->isEntry ? -std::min(record->start, record->stop)
                                                  : -record->times[size_t(item.time)]);
        if (std::max(record->start, record->stop) > nearEnd ||
            std::any_of(record->times.begin(), record->times.end(),
                        [&](int64_t time) { return time > nearEnd; }))
            return false;
    }
    std::vector<ScriptRecord> copies;
    for (const ItemId& item : items)
        copies.push_back(CopyOf(*Find(item.block), item.time, amount));
    records.insert(records.end(), copies.begin(), copies.end());
    return true;
}

bool ScriptRecords::Paste(ItemId item, int64_t at)
{
    const ScriptRecord* const record = Find(item.block);
    if (!record)
        return false;
    const int64_t begin =
        record->isEntry ? std::min(record->start, record->stop) : record->times[size_t(item.time)];
    const ScriptRecord pasted = CopyOf(*record, item.time, at - begin);
    if (std::max(pasted.start, pasted.stop) > greatest)
        return false;
    records.push_back(pasted);
    return true;
}

void ScriptRecords::Delete(const std::vector<ItemId>& items)
{
    const auto isDeleted = [&](size_t block, int time) {
        return std::find(items.begin(), items.end(), ItemId{block, time}) != items.end();
    };
    std::vector<ScriptRecord> left;
    for (ScriptRecord& record : records) {
        std::vector<int64_t> times;
        for (size_t i = 0; i < record.times.size(); i++)
            if (!isDeleted(record.block, int(i)))
                times.push_back(record.times[i]);
        const bool touched = times.size() < record.times.size();
        if (touched && record.times.size() > 1 && record.hasSteps && record.hasDelta)
            record.hasSteps = false; // a list has none
        record.times = times;
        if (record.isEntry ? !isDeleted(record.block, -1) : !touched || !times.empty())
            left.push_back(record);
    }
    records = left;
}
