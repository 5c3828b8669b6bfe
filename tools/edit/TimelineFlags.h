// SPDX-License-Identifier: MIT
// The findings of the linter where they happen: a row of numbered flags.
#pragma once

#include "tools/edit/TimelinePaint.h"
#include "tools/edit/TimelineView.h"
#include "tools/timeline/Layout.h"

#include <vector>

namespace edit
{

bool HasFlags(const timeline::TimelineModel& model); // a finding has a place on the timeline

std::vector<timeline::FlagGroup> PlaceFlags(const timeline::TimelineModel& model, const TimelineView& view,
                                            const TimelineAreas& areas, float scale);

void PaintFlags(const std::vector<timeline::FlagGroup>& flags, const TimelineAreas& areas,
                TimelinePaint* paint);

// The number of the flag at x; -1: there is none.
int FlagAt(const std::vector<timeline::FlagGroup>& flags, double x);

} // namespace edit
