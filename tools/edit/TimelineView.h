// SPDX-License-Identifier: MIT
// Which stretch of the night the timeline shows, and how wide.
//
// CONVENTIONS
//   x is in pixels of the window from the left edge of the plot, to the right.
//   Seconds are those of the show; what lies ahead of 0 is the loading.
#pragma once

#include "tools/timeline/Scale.h"

namespace edit
{

class TimelineView
{
public:
    static constexpr double closest = 4000;   // pixels per second: a millisecond is four pixels wide
    static constexpr double longest = 100000; // seconds; a little more than a day

    TimelineView();

    // The width of the plot. What stands at its left edge stays there.
    void SetWidth(double pixels);
    // What there is to see. Until the first zoom or scroll all of it is shown, whatever it becomes.
    void SetExtent(double from, double to);

    double X(double seconds) const { return (seconds - start) * perSecond; }
    double Seconds(double x) const { return start + x / perSecond; }
    double Start() const { return start; }
    double End() const { return Seconds(width); }
    double PerSecond() const { return perSecond; }
    double Width() const { return width; }

    // The scale of what is shown, with x counted from `left`.
    timeline::Scale Shown(double left) const;
    // The same scale with the ends of the extent, or those of what is shown where they reach farther.
    timeline::Scale Whole(double left) const;

    void ZoomAt(double x, double factor); // what stands at x stays there; above 1 is closer
    void ZoomToExtent();
    void Scroll(double pixels); // to later times
    void MoveTo(double newStart);

    // Scrolls by as little as it takes to have it in sight; the beginning, if all of it finds no room.
    void Reveal(double from, double to);
    // While it plays: turns a page when the play head is about to leave, or has been put elsewhere.
    void Follow(double seconds);

    bool ShowsExtent() const { return whole; }

private:
    void Confine();

    double start, perSecond, width;
    double extentStart, extentEnd;
    bool whole; // all of the extent is shown, and will be
};

} // namespace edit
