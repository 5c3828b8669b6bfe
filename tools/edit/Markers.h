// SPDX-License-Identifier: MIT
// The markers that a user sets on the timeline, as sorted times in seconds.
#pragma once

#include "tools/edit/Outline.h"

#include <vector>

namespace edit
{

// Sets a marker, or takes away the one that stands within half a millisecond.
void ToggleMarker(std::vector<double>* markers, double seconds);

// The nearest marker, message or edge of an entry before (direction -1) or after (1) a time, in seconds. The time
// itself if there is none.
double NextMark(const Outline& outline, const std::vector<double>& markers, double seconds, int direction);

} // namespace edit
