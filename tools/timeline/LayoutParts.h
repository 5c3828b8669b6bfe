// SPDX-License-Identifier: MIT
// The parts that Layout.cpp puts together; nobody else needs them.
#pragma once

#include "tools/timeline/Layout.h"

namespace timeline
{

// ---- Lanes.cpp

// Lanes, bars and the names on them, from y down. Returns where they end.
double PlaceLanes(const TimelineModel& model, double y, Layout* layout);

// ---- Ticks.cpp

// Ticks for messages in order of time, those that lie too close in one. The box spans top to bottom.
std::vector<PlacedTick> PlaceTicks(const TimelineModel& model, const std::vector<size_t>& messages,
                                   double top, double bottom, const Layout& layout);

// Names at ticks, each as far as the next tick or the right end, where there is room. fixed: texts that are
// there already.
std::vector<PlacedText> NameTicks(const TimelineModel& model, const std::vector<PlacedTick>& ticks,
                                  double baseline, double right);

// The messages that no entry gets, in a lane of their own. Returns where it ends.
double PlaceLost(const TimelineModel& model, double y, Layout* layout);

// The flags of the remarks that have a place, in a row of their own. Returns where it ends.
double PlaceFlags(const TimelineModel& model, double y, Layout* layout);

// ---- Ruler.cpp

// Marks and figures, from y down. Returns where they end.
double PlaceRuler(double y, Layout* layout);

// ---- Foot.cpp

// Legend and list of remarks. Sets foot and the height of the canvas.
void PlaceFoot(const TimelineModel& model, double y, Layout* layout);

// ---- Shared figures

const double margin = 24;       // left and right of everything
const double gutterWidth = 134; // margin included

// A text in the gutter: shortened to its width, and nowhere else.
void AddGutterText(const std::string& text, TextStyle style, Colour colour, double baseline, Layout* layout);

} // namespace timeline
