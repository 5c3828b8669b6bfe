// SPDX-License-Identifier: MIT
// The music's outline under the lanes.
#pragma once

#include "tools/edit/TimelinePaint.h"
#include "tools/edit/TimelineView.h"
#include "tools/timeline/TimelineModel.h"

namespace edit
{

// music: null while it is not known yet.
void PaintMusic(const timeline::Music* music, const TimelineView& view, const TimelineAreas& areas,
                TimelinePaint* paint);

} // namespace edit
