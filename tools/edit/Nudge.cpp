// SPDX-License-Identifier: MIT
#include "tools/edit/Nudge.h"

#include "tools/edit/Document.h"
#include "tools/edit/Selection.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace edit
{

double NudgeSeconds(TimelineAction action, const EditorState& state)
{
    const double frame = double(state.rate.seconds) / double(state.rate.frames);
    switch (action) {
    case NudgeEarlierMillisecond:
        return -0.001;
    case NudgeLaterMillisecond:
        return 0.001;
    case NudgeEarlierFrame:
        return -frame;
    case NudgeLaterFrame:
        return frame;
    case NudgeEarlierBeat:
        return -state.tempo.BeatSeconds();
    case NudgeLaterBeat:
        return state.tempo.BeatSeconds();
    case NudgeEarlierBar:
        return -state.tempo.BarSeconds();
    case NudgeLaterBar:
        return state.tempo.BarSeconds();
    default:
        return 0;
    }
}

int64_t NudgeDistance(uint32_t milliseconds, double seconds)
{
    const double step = seconds * 1000;
    const double lines = std::round(double(milliseconds) / std::fabs(step));
    const bool onLine = std::fabs(lines * std::fabs(step) - double(milliseconds)) <= 0.5;
    const double next = (lines + (step > 0 ? 1 : -1)) * std::fabs(step);
    const int64_t distance = onLine ? std::llround(next) - int64_t(milliseconds) : std::llround(step);
    return distance != 0 ? distance : step > 0 ? 1 : -1;
}

// The selected entries and messages, and when the first of them begins. Empty: there is none.
static Selection Movable(const Outline& outline, const Selection& selection, uint32_t* first)
{
    Selection items;
    *first = UINT32_MAX;
    for (const ItemId item : selection)
        if (outline.Has(item) && (item.time >= 0 || IsEntry(outline, item))) {
            items.push_back(item);
            *first = std::min(*first, StartOf(outline, item));
        }
    return items;
}

static bool NudgeTime(TimelineAction action, EditorState* state)
{
    const double seconds = NudgeSeconds(action, *state);
    uint32_t first = 0;
    const Selection items = Movable(state->document->GetOutline(), state->selection, &first);
    if (items.empty()) {
        const double now = std::max(0.0, state->playhead);
        state->goTo =
            std::max(0.0, now + double(NudgeDistance(uint32_t(std::llround(now * 1000)), seconds)) / 1000);
        return true;
    }
    state->revealSelection = true;
    return state->document->Move(items, NudgeDistance(first, seconds), 0);
}

// Moves the edges of the selected entries by one distance, which brings the nearest of them to the play head.
static bool StretchToPlayHead(bool stopEdge, EditorState* state)
{
    const Outline& outline = state->document->GetOutline();
    const int64_t playhead = std::llround(state->playhead * 1000);
    Selection entries;
    int64_t distance = 0;
    for (const ItemId item : state->selection)
        if (outline.Has(item) && IsEntry(outline, item)) {
            const int64_t edge = stopEdge ? StopOf(outline, item) : StartOf(outline, item);
            if (entries.empty() || std::llabs(playhead - edge) < std::llabs(distance))
                distance = playhead - edge;
            entries.push_back(item);
        }
    if (entries.empty()) {
        state->notice = "No entry is selected.";
        return true;
    }
    return distance == 0 || state->document->Stretch(entries, stopEdge, distance);
}

bool Nudge(TimelineAction action, EditorState* state)
{
    Document* const document = state->document;
    bool done = true;
    uint32_t first = 0;
    switch (action) {
    case LayerUp:
    case LayerDown: {
        const Selection items = Movable(document->GetOutline(), state->selection, &first);
        if (items.empty())
            state->notice = "No entry is selected.";
        else
            done = document->Move(items, 0, action == LayerUp ? 1 : -1);
        break;
    }
    case SelectNext:
    case SelectPrevious: {
        const Selection next = NextItem(document->GetOutline(), state->selection,
                                        action == SelectNext ? 1 : -1, state->playhead);
        if (!next.empty())
            state->selection = next;
        state->revealSelection = true;
        break;
    }
    case StartToPlayHead:
    case StopToPlayHead:
        done = StretchToPlayHead(action == StopToPlayHead, state);
        break;
    default:
        if (NudgeSeconds(action, *state) == 0)
            return false;
        done = NudgeTime(action, state);
    }
    if (!done)
        state->notice = document->LastRefusal();
    return true;
}

} // namespace edit
