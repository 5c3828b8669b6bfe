// SPDX-License-Identifier: MIT
// Time itself: the ruler with bars and minutes, the lines through all lanes, the loop, markers, the loading ahead of the
// show and what lies after its end, the play head, and the strip that shows which part of the night is in sight.
#pragma once

#include "tools/edit/EditorState.h"
#include "tools/edit/TimelineContents.h"
#include "tools/edit/TimelinePaint.h"
#include "tools/edit/TimelineView.h"

namespace edit
{

void PaintGrid(const EditorState& state, const TimelineView& view, const TimelineContents& contents,
               const TimelineAreas& areas, TimelinePaint* paint); // ruler and lines
void PaintEnd(const TimelineView& view, const TimelineContents& contents, const TimelineAreas& areas,
              TimelinePaint* paint);
void PaintLoop(const EditorState& state, const TimelineView& view, const TimelineAreas& areas,
               TimelinePaint* paint);
void PaintMarkers(const EditorState& state, const TimelineView& view, const TimelineAreas& areas,
                  TimelinePaint* paint);
void PaintPlayHead(const EditorState& state, const TimelineView& view, const TimelineAreas& areas,
                   TimelinePaint* paint);
void PaintOverview(const EditorState& state, const TimelineView& view, const TimelineContents& contents,
                   const TimelineAreas& areas, TimelinePaint* paint);

// The scale of the overview, which shows all that there is.
timeline::Scale OverviewScale(const TimelineContents& contents, const TimelineView& view,
                              const TimelineAreas& areas);

} // namespace edit
