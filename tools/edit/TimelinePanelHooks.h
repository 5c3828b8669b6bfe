// SPDX-License-Identifier: MIT
// What tests see of a TimelinePanel, to put the pointer onto what it has drawn.
#pragma once

#include "tools/edit/TimelinePanel.h"

namespace edit
{

class TimelinePanelHooks
{
public:
    explicit TimelinePanelHooks(TimelinePanel* seen) : panel(seen) {} // borrowed

    const TimelineView& View() const { return panel->view; }
    const TimelineContents& Contents() const { return panel->contents; }
    const TimelineAreas& Areas() const { return panel->areas; }
    const LanePlaces& Places() const { return panel->places; }
    Tapping& GetTapping() { return panel->tapping; }

private:
    TimelinePanel* panel;
};

} // namespace edit
