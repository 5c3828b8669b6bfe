// SPDX-License-Identifier: MIT
// Lanes, entries and messages of the timeline.
#pragma once

#include "tools/edit/LanePlaces.h"
#include "tools/edit/Selection.h"
#include "tools/edit/TimelinePaint.h"

namespace edit
{

// The largest sizes at which all rows find room in the height, else the smallest.
LaneSizes ChooseLaneSizes(const TimelineContents& contents, double height, float scale);

struct LanesToPaint {
    const TimelineContents& contents;
    const TimelineView& view;
    const LaneSizes& sizes;
    const LanePlaces& places;
    const TimelineAreas& areas;
    const Selection& selection;
    const timeline::Tempo& tempo;
    const ItemHit& hovered;
};

void PaintLaneGrounds(const LanesToPaint& what, TimelinePaint* paint); // below the lines of the grid
void PaintLanes(const LanesToPaint& what, TimelinePaint* paint);       // entries and messages
// Which part of the lanes is in sight, where they find no room.
void PaintLaneScroll(const LanesToPaint& what, double scroll, TimelinePaint* paint);
void PaintLaneNames(const LanesToPaint& what, TimelinePaint* paint); // in the gutter

} // namespace edit
