// SPDX-License-Identifier: MIT
// The music's outline under the lanes.
#pragma once

#include "tools/edit/TimelinePaint.h"
#include "tools/edit/TimelineView.h"
#include "tools/timeline/TimelineModel.h"

namespace edit
{

// music: null while the script has not been looked at yet. isKnown: false while the file is being decoded.
void PaintMusic(const timeline::Music* music, bool isKnown, const TimelineView& view,
                const TimelineAreas& areas, TimelinePaint* paint);

} // namespace edit
