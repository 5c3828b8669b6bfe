// SPDX-License-Identifier: MIT
// Where entries and messages lie in the window, and what lies under the pointer. Only what is in sight is placed.
#pragma once

#include "tools/edit/TimelineContents.h"
#include "tools/edit/TimelineView.h"
#include "tools/timeline/Layout.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace edit
{

// Sizes in pixels of the window.
struct LaneSizes {
    double rowHeight, barHeight;
    double tickTop;     // from the top of a bar; ticks go down to its bottom
    bool tickNames;     // there is room for them below the name of the entry
    double laneGap;     // between lanes
    double lanePadding; // above and below the bars of a lane
    double grip;        // how near to an edge the pointer takes hold of it
    double tickReach;   // and how near to a tick
    timeline::TickGaps gaps;
};

struct PlacedLaneBox {
    uint32_t layer;
    double top, bottom;
};

struct PlacedEntry {
    size_t entry;                    // of the model
    double left, right, top, bottom; // left and right may lie far out of sight
};

// Messages that lie too close together to be told apart, or one.
struct PlacedTicks {
    const std::vector<size_t>* messages; // of the contents
    timeline::TickGroup group;
    double top, bottom;
};

struct LanePlaces {
    std::vector<PlacedLaneBox> lanes; // from the top
    std::vector<PlacedEntry> entries; // those in sight, row by row, in order of time
    std::vector<PlacedTicks> ticks;   // on the entries
    std::vector<PlacedTicks> lost;    // in the lane of messages that nobody hears
    double height = 0;                // of all lanes
};

// left: x of the plot's left edge. top, bottom: of the room for the lanes, in which they are scrolled up by `scroll`.
// lostTop and lostBottom are equal if there is no lane for lost messages.
LanePlaces PlaceLanes(const TimelineContents& contents, const TimelineView& view, const LaneSizes& sizes,
                      double left, double top, double bottom, double scroll, double lostTop,
                      double lostBottom);

double HeightOfLanes(const TimelineContents& contents, const LaneSizes& sizes);

// The x of a message of a group.
double TickX(const TimelineContents& contents, const TimelineView& view, double left, size_t message);

enum HitPart { HitNothing, HitBar, HitStart, HitStop, HitMessage };

struct ItemHit {
    HitPart part = HitNothing;
    size_t index = 0; // of the model's entry or message
    ItemId item;
    const PlacedTicks* ticks = nullptr; // of a message
};

// Messages lie above entries. Of a group the message that is nearest to the pointer is hit.
ItemHit FindHit(const TimelineContents& contents, const TimelineView& view, const LaneSizes& sizes,
                const LanePlaces& places, double left, double x, double y);

// The layer at a height: that of the lane; between two lanes a new one in front of the lower, where there is one
// free; above all lanes a new one in front, below all one at the back. Without lanes 1.
int64_t LayerAt(const LanePlaces& places, double y);

} // namespace edit
