// SPDX-License-Identifier: MIT
#include "tools/capture/Schedule.h"

#include <algorithm>

namespace capture
{

Schedule Schedule::Of(const FrameRate& rate, int64_t fromMicroseconds, int64_t toMicroseconds)
{
    Schedule schedule;
    schedule.rate = rate;
    schedule.first = rate.FramesBefore(fromMicroseconds);
    schedule.end = std::max(schedule.first, rate.FramesBefore(toMicroseconds));
    schedule.picks = schedule.end - schedule.first;
    return schedule;
}

Schedule Schedule::Part(int64_t number, int64_t count) const
{
    Schedule part = *this;
    part.first = first + (end - first) * (number - 1) / count;
    part.end = first + (end - first) * number / count;
    part.picks = part.end - part.first;
    return part;
}

Schedule Schedule::Every(int64_t microseconds) const
{
    if (rate.FramesBefore(microseconds) <= 1) // no longer than a frame: there is nothing to leave out
        return *this;
    Schedule thinned = *this;
    thinned.period = microseconds;
    thinned.picks = 0;
    while (thinned.Pick(thinned.picks) < end)
        thinned.picks++;
    return thinned;
}

Schedule Schedule::Spread(int64_t count) const
{
    Schedule thinned = *this;
    thinned.spread = true;
    thinned.picks = std::min(count, end - first);
    return thinned;
}

int64_t Schedule::Pick(int64_t index) const
{
    if (spread)
        return first + (2 * index + 1) * (end - first) / (2 * picks);
    return first + (period ? rate.FramesBefore(index * period) : index);
}

int64_t Schedule::NextWanted(int64_t frame) const
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

bool Schedule::Wants(int64_t frame) const
{
    return frame < end && NextWanted(frame) == frame;
}

} // namespace capture
