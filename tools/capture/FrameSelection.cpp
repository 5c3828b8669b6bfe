// SPDX-License-Identifier: MIT
#include "tools/capture/FrameSelection.h"

#include <algorithm>

namespace capture
{

FrameSelection FrameSelection::Of(const FrameRate& rate, int64_t fromMicroseconds, int64_t toMicroseconds)
{
    FrameSelection selection;
    selection.rate = rate;
    selection.first = rate.FramesBefore(fromMicroseconds);
    selection.end = std::max(selection.first, rate.FramesBefore(toMicroseconds));
    selection.picks = selection.end - selection.first;
    return selection;
}

FrameSelection FrameSelection::Part(int64_t number, int64_t count) const
{
    FrameSelection part = *this;
    part.first = first + (end - first) * (number - 1) / count;
    part.end = first + (end - first) * number / count;
    part.picks = part.end - part.first;
    return part;
}

FrameSelection FrameSelection::Every(int64_t microseconds) const
{
    if (rate.FramesBefore(microseconds) <= 1) // every frame begins a period
        return *this;
    FrameSelection thinned = *this;
    thinned.spread = false;
    thinned.period = microseconds;
    thinned.picks = 0;
    while (thinned.Pick(thinned.picks) < end)
        thinned.picks++;
    return thinned;
}

FrameSelection FrameSelection::Spread(int64_t count) const
{
    FrameSelection thinned = *this;
    thinned.spread = true;
    thinned.picks = std::min(count, end - first);
    return thinned;
}

int64_t FrameSelection::Pick(int64_t index) const
{
    if (spread)
        return first + (2 * index + 1) * (end - first) / (2 * picks);
    return first + (period ? rate.FramesBefore(index * period) : index);
}

int64_t FrameSelection::NextWanted(int64_t frame) const
{
    if (!spread && period == 0)
        return std::clamp(frame, first, end);
    int64_t low = 0;
    int64_t high = picks;
    while (low < high) {
        const int64_t middle = (low + high) / 2;
        if (Pick(middle) < frame)
            low = middle + 1;
        else
            high = middle;
    }
    return low < picks ? Pick(low) : end;
}

bool FrameSelection::Wants(int64_t frame) const
{
    return frame < end && NextWanted(frame) == frame;
}

} // namespace capture
