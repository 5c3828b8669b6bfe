// SPDX-License-Identifier: MIT
// What the timeline does for keys: moving and stretching the selection by small and by musical steps.
#pragma once

#include "tools/edit/EditorState.h"

#include <cstdint>

namespace edit
{

// The steps of a nudge in seconds: a millisecond, a frame, a beat, a bar. 0 for an action that is no nudge;
// below 0 for those to earlier times.
double NudgeSeconds(TimelineAction action, const EditorState& state);

// How far something at `milliseconds` goes by one step of `seconds`. What lies on a line of the grid that the steps make,
// or within half a millisecond of it, goes to the next line, so that 60 frames are exactly a second;
// all else goes by the rounded step.
int64_t NudgeDistance(uint32_t milliseconds, double seconds);

// Does the action to the selection, or to the play head if nothing is selected. False: it is none of these, and nothing
// has changed. A refusal becomes the notice.
bool Nudge(TimelineAction action, EditorState* state);

} // namespace edit
