// SPDX-License-Identifier: MIT
// The moments to which what is dragged, tapped or put down snaps.
#pragma once

#include "tools/edit/EditorState.h"
#include "tools/edit/Selection.h"
#include "tools/edit/TimelineContents.h"

#include <vector>

namespace edit
{

class SnapGrid
{
public:
    SnapGrid() : step(0), toMessages(false), toEdges(false) {} // has no moments
    SnapGrid(const SnapSetting& setting, const timeline::Tempo& tempo);

    // Messages and edges of entries, as far as the setting asks for them; not those of the items that are moved.
    void AddContents(const TimelineContents& contents, const Selection& moved);
    void AddMoment(double seconds); // the play head, a marker, an end of the loop

    // The nearest moment that is at most `reach` seconds away; false if there is none, and *snapped is `seconds`.
    bool Nearest(double seconds, double reach, double* snapped) const;

    // The nearest beat, or bar where only bars are asked for; `seconds` where neither is.
    double NearestBeat(double seconds) const;

private:
    double step; // seconds between lines of the grid; 0: there are none
    bool toMessages, toEdges;
    std::vector<double> moments; // in order
};

} // namespace edit
