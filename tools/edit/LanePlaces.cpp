// SPDX-License-Identifier: MIT
#include "tools/edit/LanePlaces.h"

#include <algorithm>
#include <cmath>

namespace edit
{

static const double narrowestBar = 1.5; // pixels
static const double aroundTicks = 60;   // pixels beside the plot in which ticks may begin or end

static double LaneHeight(const ContentsLane& lane, const LaneSizes& sizes)
{
    return (lane.rows - 1) * sizes.rowHeight + sizes.barHeight + 2 * sizes.lanePadding;
}

double HeightOfLanes(const TimelineContents& contents, const LaneSizes& sizes)
{
    double height = 0;
    for (const ContentsLane& lane : contents.lanes)
        height += LaneHeight(lane, sizes) + sizes.laneGap;
    return height;
}

double TickX(const TimelineContents& contents, const TimelineView& view, double left, size_t message)
{
    return left + view.X(contents.model.messages[message].time);
}

static void PlaceTicks(const TimelineContents& contents, const TimelineView& view, const LaneSizes& sizes,
                       const std::vector<size_t>& messages, double left, double top, double bottom,
                       std::vector<PlacedTicks>* placed)
{
    for (const timeline::TickGroup& group :
         timeline::GroupTicks(contents.model, messages, view.Whole(left), sizes.gaps))
        if (group.right >= left - aroundTicks && group.left <= left + view.Width() + aroundTicks)
            placed->push_back({&messages, group, top, bottom});
}

LanePlaces PlaceLanes(const TimelineContents& contents, const TimelineView& view, const LaneSizes& sizes,
                      double left, double top, double bottom, double scroll, double lostTop,
                      double lostBottom)
{
    LanePlaces places;
    const timeline::TimelineModel& model = contents.model;
    double y = top - scroll;
    for (const ContentsLane& lane : contents.lanes) {
        const double height = LaneHeight(lane, sizes);
        places.lanes.push_back({lane.layer, y, y + height});
        for (int row = 0; row < lane.rows; row++) {
            const double barTop = y + sizes.lanePadding + row * sizes.rowHeight;
            if (barTop + sizes.barHeight < top || barTop > bottom)
                continue;
            // Nothing overlaps in a row, so that the stops are in order as well, but for those ahead of their start.
            const std::vector<size_t>& entries = contents.inRow.at({lane.layer, row});
            auto each = std::partition_point(entries.begin(), entries.end(), [&](size_t entry) {
                return std::max(model.entries[entry].stop, model.entries[entry].start) < view.Start();
            });
            for (; each != entries.end() && model.entries[*each].start <= view.End(); ++each) {
                const timeline::Entry& entry = model.entries[*each];
                const double from = left + view.X(entry.start);
                const double to = left + view.X(std::max(entry.stop, entry.start));
                places.entries.push_back(
                    {*each, from, std::max(to, from + narrowestBar), barTop, barTop + sizes.barHeight});
                PlaceTicks(contents, view, sizes, contents.heard[*each], left, barTop + sizes.tickTop,
                           barTop + sizes.barHeight, &places.ticks);
            }
        }
        y += height + sizes.laneGap;
    }
    places.height = HeightOfLanes(contents, sizes);
    if (lostBottom > lostTop)
        PlaceTicks(contents, view, sizes, contents.lost, left, lostTop, lostBottom, &places.lost);
    return places;
}

static bool HitTicks(const TimelineContents& contents, const TimelineView& view, const LaneSizes& sizes,
                     const std::vector<PlacedTicks>& ticks, double left, double x, double y, ItemHit* hit)
{
    double best = sizes.tickReach;
    for (const PlacedTicks& each : ticks) {
        if (y < each.top || y > each.bottom || x < each.group.left - best || x > each.group.right + best)
            continue;
        for (size_t i = 0; i < each.group.count; i++) {
            const size_t message = (*each.messages)[each.group.first + i];
            const double distance = std::fabs(TickX(contents, view, left, message) - x);
            // Between two of a group the pointer is still on the group.
            const bool inside = x >= each.group.left && x <= each.group.right && hit->part == HitNothing;
            if (distance >= best && !inside)
                continue;
            best = std::max(distance, 1e-3);
            *hit = {HitMessage, message, contents.messageItems[message], &each};
        }
    }
    return hit->part != HitNothing;
}

ItemHit FindHit(const TimelineContents& contents, const TimelineView& view, const LaneSizes& sizes,
                const LanePlaces& places, double left, double x, double y)
{
    ItemHit hit;
    if (HitTicks(contents, view, sizes, places.ticks, left, x, y, &hit) ||
        HitTicks(contents, view, sizes, places.lost, left, x, y, &hit))
        return hit;
    // Where two entries meet, the edge of the one that the pointer is in is hit. A pointer just beside an entry hits its
    // edge too.
    for (const PlacedEntry& each : places.entries) {
        if (y < each.top || y > each.bottom || x < each.left - sizes.grip || x > each.right + sizes.grip)
            continue;
        const bool inside = x >= each.left && x < each.right;
        if (!inside && hit.part != HitNothing)
            continue;
        // The edges of a narrow bar take a sixth each, so that the rest is left to move it by.
        const double grip = inside ? std::min(sizes.grip, (each.right - each.left) / 6) : sizes.grip;
        const double toStart = std::fabs(x - each.left), toStop = std::fabs(x - each.right);
        const HitPart part = std::min(toStart, toStop) > grip ? HitBar
                             : toStart <= toStop              ? HitStart
                                                              : HitStop;
        hit = {part, each.entry, contents.entryItems[each.entry], nullptr};
        if (inside)
            break;
    }
    return hit;
}

int64_t LayerAt(const LanePlaces& places, double y)
{
    if (places.lanes.empty())
        return 1;
    if (y < places.lanes.front().top)
        return int64_t(places.lanes.front().layer) + 1;
    for (size_t i = 0; i < places.lanes.size(); i++) {
        const PlacedLaneBox& lane = places.lanes[i];
        if (y <= lane.bottom)
            return lane.layer;
        if (i + 1 < places.lanes.size() && y < places.lanes[i + 1].top) {
            const int64_t below = places.lanes[i + 1].layer;
            return below + 1 < int64_t(lane.layer) ? below + 1 : int64_t(lane.layer);
        }
    }
    return std::max<int64_t>(0, int64_t(places.lanes.back().layer) - 1);
}

} // namespace edit
