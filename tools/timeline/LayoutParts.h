// SPDX-License-Identifier: MIT
// The steps of LayOut, each in a source of its own. Every step fills its fields of the layout, reads those of the
// steps before, and begins at the given y; places are in units of the canvas. Internal to the layout.
#pragma once

#include "tools/timeline/Layout.h"

namespace timeline
{

// ---- Lanes.cpp

// Places the lanes of the layers, the bars of the entries and the names on them. Returns the y of their lower edge.
double PlaceLanes(const TimelineModel& model, double y, Layout* layout);

// ---- Ticks.cpp

// Makes the ticks of messages that are given in order of time, one tick for those that lie too close together. Their
// boxes reach from top to bottom.
std::vector<PlacedTick> PlaceTicks(const TimelineModel& model, const std::vector<size_t>& messages,
                                   double top, double bottom, const Layout& layout);

// Places the names of ticks, where there is room up to the next tick or the end `right`; other ticks get none.
std::vector<PlacedText> NameTicks(const TimelineModel& model, const std::vector<PlacedTick>& ticks,
                                  double baseline, double right);

// Places the lane of the messages that no entry gets. Returns the y of its lower edge.
double PlaceLost(const TimelineModel& model, double y, Layout* layout);

// Places the row of flags of the remarks that have a place in time. Returns the y of its lower edge.
double PlaceFlags(const TimelineModel& model, double y, Layout* layout);

// ---- Ruler.cpp

// Places the ruler's marks and figures. Returns the y of its lower edge.
double PlaceRuler(double y, Layout* layout);

// ---- Foot.cpp

// Places the legend and the list of remarks, and sets the height of the canvas.
void PlaceFoot(const TimelineModel& model, double y, Layout* layout);

// ---- Shared figures

const double margin = 24;       // left and right of everything
const double gutterWidth = 134; // margin included

// Adds a text in the gutter, shortened to the gutter's width.
void AddGutterText(const std::string& text, TextStyle style, ScreenColour colour, double baseline,
                   Layout* layout);

} // namespace timeline
