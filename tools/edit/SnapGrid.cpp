// SPDX-License-Identifier: MIT
#include "tools/edit/SnapGrid.h"

#include <algorithm>
#include <cmath>

namespace edit
{

SnapGrid::SnapGrid(const SnapSetting& setting, const timeline::Tempo& tempo)
    : step(0), toMessages(setting.on && setting.toMessages), toEdges(setting.on && setting.toEdges)
{
    if (setting.on && (setting.toBeats || setting.toBars))
        step = setting.toBeats ? tempo.BeatSeconds() : tempo.BarSeconds();
}

void SnapGrid::AddContents(const TimelineContents& contents, const Selection& moved)
{
    const timeline::TimelineModel& model = contents.model;
    if (toEdges)
        for (size_t i = 0; i < model.entries.size(); i++)
            if (!IsSelected(moved, contents.entryItems[i])) {
                moments.push_back(model.entries[i].start);
                moments.push_back(model.entries[i].stop);
            }
    if (toMessages)
        for (size_t i = 0; i < model.messages.size(); i++)
            if (!IsSelected(moved, contents.messageItems[i]))
                moments.push_back(model.messages[i].time);
    std::sort(moments.begin(), moments.end());
}

void SnapGrid::AddMoment(double seconds)
{
    moments.insert(std::lower_bound(moments.begin(), moments.end(), seconds), seconds);
}

double SnapGrid::NearestBeat(double seconds) const
{
    return step > 0 ? std::max(0.0, std::round(seconds / step)) * step : seconds;
}

bool SnapGrid::Nearest(double seconds, double reach, double* snapped) const
{
    double best = reach;
    *snapped = seconds;
    bool found = false;
    const auto offer = [&](double moment) {
        const double distance = std::fabs(moment - seconds);
        if (distance > best)
            return;
        best = distance;
        *snapped = moment;
        found = true;
    };
    const auto next = std::lower_bound(moments.begin(), moments.end(), seconds);
    if (next != moments.begin())
        offer(*(next - 1));
    if (next != moments.end())
        offer(*next);
    if (step > 0) // comes last, since a line of the grid wins over a moment that is equally near
        offer(NearestBeat(seconds));
    return found;
}

} // namespace edit
