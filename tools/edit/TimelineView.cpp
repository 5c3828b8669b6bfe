// SPDX-License-Identifier: MIT
#include "tools/edit/TimelineView.h"

#include <algorithm>

namespace edit
{

static const double roomBehind = 0.03; // of the extent, right of its end, when all of it is shown
static const double pageTurn = 0.9;    // of the width: where the play head turns the page
static const double pageStart = 0.08;  // of the width: where it goes on
static const double revealGap = 24;    // pixels between what is revealed and the edge

TimelineView::TimelineView()
    : start(0), perSecond(100), width(1000), extentStart(0), extentEnd(10), whole(true)
{
}

timeline::Scale TimelineView::Shown(double left) const
{
    return {start, End(), left, perSecond};
}

timeline::Scale TimelineView::Whole(double left) const
{
    const double from = std::min(extentStart, start);
    return {from, std::max(extentEnd, End()), left + X(from), perSecond};
}

void TimelineView::SetWidth(double pixels)
{
    width = std::max(pixels, 1.0);
    Confine();
}

void TimelineView::SetExtent(double from, double to)
{
    extentStart = from;
    extentEnd = std::clamp(to, from + 0.1, from + longest);
    Confine();
}

void TimelineView::Confine()
{
    const double length = (extentEnd - extentStart) * (1 + roomBehind);
    if (whole) {
        start = extentStart;
        perSecond = width / length;
        return;
    }
    // Twice the extent may be shown, so that there is room to put something after the end.
    perSecond = std::clamp(perSecond, width / (2 * length), std::max(closest, width / (2 * length)));
    const double shown = width / perSecond;
    start = std::clamp(start, extentStart - shown / 2, std::max(extentStart, extentEnd - shown / 10));
}

void TimelineView::ZoomAt(double x, double factor)
{
    const double seconds = Seconds(x);
    whole = false;
    perSecond *= factor;
    Confine();
    start = seconds - x / perSecond;
    Confine();
}

void TimelineView::ZoomToExtent()
{
    whole = true;
    Confine();
}

void TimelineView::Scroll(double pixels)
{
    if (pixels != 0)
        MoveTo(start + pixels / perSecond);
}

void TimelineView::MoveTo(double newStart)
{
    whole = false;
    start = newStart;
    Confine();
}

void TimelineView::Reveal(double from, double to)
{
    const double gap = std::min(revealGap, width / 4) / perSecond;
    if (from >= start && to <= End())
        return;
    if (to > End() && from - gap >= start + (to - End()) + gap)
        MoveTo(to + gap - width / perSecond);
    else
        MoveTo(from - gap);
}

void TimelineView::Follow(double seconds)
{
    if (whole || (seconds >= start && seconds <= Seconds(width * pageTurn)))
        return;
    MoveTo(seconds - pageStart * width / perSecond);
}

} // namespace edit
