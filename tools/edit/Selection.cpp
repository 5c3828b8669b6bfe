// SPDX-License-Identifier: MIT
#include "tools/edit/Selection.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace edit
{

bool IsSelected(const Selection& selection, ItemId item)
{
    return std::binary_search(selection.begin(), selection.end(), item);
}

void Select(Selection* selection, ItemId item)
{
    const auto place = std::lower_bound(selection->begin(), selection->end(), item);
    if (place == selection->end() || !(*place == item))
        selection->insert(place, item);
}

void Toggle(Selection* selection, ItemId item)
{
    const auto place = std::lower_bound(selection->begin(), selection->end(), item);
    if (place != selection->end() && *place == item)
        selection->erase(place);
    else
        selection->insert(place, item);
}

void Sort(Selection* selection)
{
    std::sort(selection->begin(), selection->end());
    selection->erase(std::unique(selection->begin(), selection->end()), selection->end());
}

void DropStale(const Outline& outline, Selection* selection)
{
    std::erase_if(*selection, [&](ItemId item) { return !outline.Has(item); });
}

uint32_t StartOf(const Outline& outline, ItemId item)
{
    const OutlineBlock& block = outline.blocks[item.block];
    return item.time < 0 ? block.start : block.times[size_t(item.time)].milliseconds;
}

uint32_t StopOf(const Outline& outline, ItemId item)
{
    const OutlineBlock& block = outline.blocks[item.block];
    if (item.time < 0)
        return block.stop;
    return block.IsGroup() ? block.times[0].milliseconds + (block.steps - 1) * block.delta
                           : block.times[size_t(item.time)].milliseconds;
}

bool IsEntry(const Outline& outline, ItemId item)
{
    return item.time < 0 && outline.blocks[item.block].type == BlockEffect;
}

lint::Span SpanOf(const Outline& outline, const Selection& selection)
{
    lint::Span span = {UINT32_MAX, 0};
    for (const ItemId item : selection) {
        span.start = std::min(span.start, StartOf(outline, item));
        span.stop = std::max(span.stop, StopOf(outline, item));
    }
    return span;
}

int64_t CopyShift(const Outline& outline, const Selection& selection, const timeline::Tempo& tempo)
{
    const auto [start, stop] = SpanOf(outline, selection);
    return stop > start ? int64_t(stop) - start : std::llround(tempo.BeatSeconds() * 1000);
}

Selection AllItems(const Outline& outline)
{
    Selection all;
    for (size_t i = 0; i < outline.blocks.size(); i++) {
        const OutlineBlock& block = outline.blocks[i];
        if (block.type == BlockEffect)
            all.push_back({i, -1});
        if (block.type == BlockMessage)
            for (size_t k = 0; k < block.times.size(); k++)
                all.push_back({i, int(k)});
    }
    return all;
}

Selection NextItem(const Outline& outline, const Selection& selection, int direction, double seconds)
{
    Selection order = AllItems(outline);
    if (order.empty())
        return {};
    const auto isEarlier = [&](ItemId a, ItemId b) {
        return std::make_tuple(StartOf(outline, a), a.block, a.time) <
               std::make_tuple(StartOf(outline, b), b.block, b.time);
    };
    std::sort(order.begin(), order.end(), isEarlier);
    // With several selected, the step on starts at the last of them and the step back at the first.
    Selection marked;
    for (const ItemId item : selection)
        if (outline.Has(item) && (item.time >= 0 || IsEntry(outline, item)))
            marked.push_back(item);
    std::sort(marked.begin(), marked.end(), isEarlier);
    const auto at = [&](auto place) { return size_t(place - order.begin()); };
    const size_t count = order.size();
    if (marked.empty()) {
        const auto next = std::find_if(order.begin(), order.end(), [&](ItemId item) {
            return double(StartOf(outline, item)) >= seconds * 1000 - 0.5;
        });
        return {order[direction > 0 ? at(next) % count : (at(next) + count - 1) % count]};
    }
    const ItemId leader = direction > 0 ? marked.back() : marked.front();
    const size_t here = at(std::lower_bound(order.begin(), order.end(), leader, isEarlier));
    return {order[(here + (direction > 0 ? 1 : count - 1)) % count]};
}

} // namespace edit
