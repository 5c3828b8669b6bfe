// SPDX-License-Identifier: MIT
#include "tools/edit/TimelineContents.h"

#include "kernel/EffectRegistry.h"
#include "kernel/SynchMessageTable.h"
#include "tools/lint/Schedule.h"
#include "tools/timeline/Layout.h"

#include <algorithm>

namespace edit
{

struct TimedItem {
    uint32_t time;
    ItemId item;
};

static void AddMessages(const Outline& outline, lint::Show* show, TimelineContents* contents)
{
    const EffectRegistry& registry = *lint::ProductionRegistry();
    std::vector<int> ids(outline.blocks.size()); // of the message of each block
    std::vector<TimedItem> order;
    size_t stepsLeft = lint::Reading::messageLimit;
    for (size_t b = 0; b < outline.blocks.size(); b++) {
        const OutlineBlock& block = outline.blocks[b];
        if (block.type != BlockMessage)
            continue;
        ids[b] =
            registry.GetMessageTable()->FindMessage(block.message.c_str(), registry.FindEffect(block.effect));
        const size_t first = order.size();
        for (size_t i = 0; i < block.times.size() && order.size() < MaxMessages; i++)
            order.push_back({block.times[i].milliseconds, {b, int(i)}});
        if (!block.IsGroup() || first == order.size())
            continue;
        uint32_t time = block.times[0].milliseconds;
        for (uint32_t i = 1; i < block.steps && stepsLeft > 0; i++, stepsLeft--)
            order.push_back({time += block.delta, {b, 0}});
    }
    std::stable_sort(order.begin(), order.end(),
                     [](const TimedItem& a, const TimedItem& b) { return a.time < b.time; });
    show->messages.reserve(order.size());
    contents->messageItems.reserve(order.size());
    for (const TimedItem& each : order) {
        const OutlineBlock& block = outline.blocks[each.item.block];
        show->messages.push_back({block.effect, block.message, ids[each.item.block], each.time,
                                  block.parameters, true, false, 0, 0, 0, 0});
        contents->messageItems.push_back(each.item);
    }
}

static void SortIntoLanes(TimelineContents* contents)
{
    const timeline::TimelineModel& model = contents->model;
    contents->rows = timeline::RowsOf(model);
    std::map<uint32_t, int> rowsOfLayer;
    for (size_t i = 0; i < model.entries.size(); i++) {
        int& most = rowsOfLayer[model.entries[i].layer];
        most = std::max(most, contents->rows[i] + 1);
        contents->inRow[{model.entries[i].layer, contents->rows[i]}].push_back(i);
    }
    for (auto each = rowsOfLayer.rbegin(); each != rowsOfLayer.rend(); ++each)
        contents->lanes.push_back({each->first, each->second});
    for (auto& [place, entries] : contents->inRow)
        std::stable_sort(entries.begin(), entries.end(),
                         [&](size_t a, size_t b) { return model.entries[a].start < model.entries[b].start; });
    contents->heard.resize(model.entries.size());
    for (size_t i = 0; i < model.messages.size(); i++) {
        for (const size_t entry : model.messages[i].entries)
            contents->heard[entry].push_back(i);
        if (model.messages[i].entries.empty())
            contents->lost.push_back(i);
    }
}

TimelineContents ReadContents(const Outline& outline)
{
    TimelineContents contents;
    lint::Show show = {};
    std::vector<size_t> unknown; // blocks
    for (size_t b = 0; b < outline.blocks.size(); b++) {
        const OutlineBlock& block = outline.blocks[b];
        if (block.type != BlockEffect)
            continue;
        if (!lint::ProductionRegistry()->FindEffect(block.effect)) {
            unknown.push_back(b);
            continue;
        }
        show.entries.push_back({block.effect, block.start, block.stop, block.layer, true, 0, 0});
        show.end = std::max(show.end, block.stop);
        contents.entryOf[b] = contents.entryItems.size();
        contents.entryItems.push_back({b, -1});
    }
    AddMessages(outline, &show, &contents);
    const lint::CheckOptions options;
    lint::PlaySchedule(options, &show);
    contents.model = timeline::ModelOfShow(std::move(show), options);
    contents.unknown.resize(contents.entryItems.size());
    for (const size_t b : unknown) {
        const OutlineBlock& block = outline.blocks[b];
        contents.model.entries.push_back(
            {block.start / 1000.0, block.stop / 1000.0, block.layer, block.effect, SlateWash});
        contents.entryOf[b] = contents.entryItems.size();
        contents.entryItems.push_back({b, -1});
        contents.unknown.push_back(true);
    }
    SortIntoLanes(&contents);
    return contents;
}

} // namespace edit
