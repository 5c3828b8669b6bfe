// SPDX-License-Identifier: MIT
// The layout of the picture: the place of each thing on the canvas, in its units (Type.h). Picture.h draws it; colours
// and file formats are no matter here.
//
// From the top: the head with title and summary; the body, which is the gutter with the names of the lanes
// and the plot beside it; the foot with the legend and the list of remarks. The plot has the ruler on top, a
// row of flags for remarks, a lane for each layer with the front one on top, a lane for messages that nobody
// hears, and the music at the bottom. Left of the show's start lies the loading, on the same scale.
#pragma once

#include "tools/timeline/Scale.h"
#include "tools/timeline/TimelineModel.h"
#include "tools/timeline/Times.h"
#include "tools/timeline/Type.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace timeline
{

const double NarrowestCanvas = 480;
const double WidestCanvas = 30000;
const double LongestAxis = 24 * 3600; // seconds; the picture ends there, even if the show does not

struct LayoutOptions {
    double width = 1600; // of the canvas at zoom 1
    double zoom = 1;     // factor on the width of the plot; texts, bars and gutter keep their size
    Tempo tempo;
    std::string title; // empty: the model's
};

enum MarkKind { BeatMark, BarMark, NumberedBarMark, ClockMark };

struct RulerMark {
    double x;
    MarkKind kind;
    double count; // of a numbered bar its number, of a clock mark its seconds; else 0
};

// The least distances of the ruler's marks, in units of the canvas: the ruler leaves out marks that would stand
// closer.
struct MarkRoom {
    double bar, time;         // of marks with a bar's number, and with a time
    double decimals;          // added to `time` if the times have decimals
    double narrowestBar = 7;  // narrower bars have no mark of their own
    double narrowestBeat = 9; // nor have beats
};

// The marks between start and end of the scale: bars and beats from left to right, then those of the clock.
std::vector<RulerMark> PlaceMarks(const Scale& scale, const Tempo& tempo, const MarkRoom& room);

enum TickKind { HeardTick, UnknownTick, LostTick }; // Unknown: the effect never declared it

// Messages that lie so close together that one tick stands for all of them.
struct TickGroup {
    size_t first, count; // in the list of messages that was grouped
    TickKind kind;       // the worst of them
    double left, right;  // x of the first and of the last
};

// The limits of grouping, in units of the canvas: ticks nearer than `closest` are one group, unless it would become
// wider than `widest`.
struct TickGaps {
    double closest = 4;
    double widest = 26;
};

TickKind KindOf(const Message& message);

// Groups messages of the model, given by their indices in order of time. A message off the scale counts as lying at
// its nearer end.
std::vector<TickGroup> GroupTicks(const TimelineModel& model, const std::vector<size_t>& messages,
                                  const Scale& scale, const TickGaps& gaps = {});

// The tick of one message, or of a group of them.
struct PlacedTick {
    std::vector<size_t> messages; // of the model, in order of time
    TickKind kind;                // the worst of them
    CanvasRect box;               // from the first to the last, no narrower than a tick
    std::string title;            // shown while the pointer rests on it
};

struct PlacedBar {
    size_t entry;   // of the model
    CanvasRect box; // the time on stage, cut at the ends of the axis
    bool cutLeft, cutRight;
    bool never; // its stop lies ahead of its start
    std::string title;
    std::vector<PlacedText> texts;
    std::vector<PlacedTick> ticks;
    std::vector<PlacedText> tickTexts;
};

struct PlacedLane {
    uint32_t layer;
    int rows;       // entries that overlap lie in rows of their own
    CanvasRect box; // across the whole plot
};

struct PlacedFlag {
    std::vector<size_t> remarks; // of the model
    bool grave;
    double pole;    // x
    double extent;  // x up to which the longest of them reaches
    CanvasRect box; // the flag itself
    std::string title;
    PlacedText number;
};

struct WaveColumn {
    double x;
    float peak, loudness; // 0 to 1
};

enum LegendKind { EntryLegend, TickLegend, ClusterLegend, LostLegend, UnknownLegend, LoadLegend, FlagLegend };

struct PlacedLegend {
    LegendKind kind;
    CanvasRect box; // of the sample
};

// The whole picture. As a Scale it converts between seconds of the show and x of the plot.
struct Layout : Scale {
    double width, height;
    Tempo tempo;

    CanvasRect head, gutter, plot, foot; // they tile the canvas; the plot holds the margin to its right too
    double plotEnd;                      // x of the axis' end
    double showEnd;                      // x of the show's end; what lies after it is never seen

    std::vector<PlacedText> headTexts, gutterTexts, footTexts;

    double rulerBottom;
    std::vector<RulerMark> marks;
    std::vector<PlacedText> rulerTexts;

    CanvasRect loading;        // empty without entries
    std::vector<double> loads; // the right edges of its seconds, from left to right
    bool loadingCut;           // too long for its scale: the seconds are narrower there
    std::string loadingTitle;
    std::vector<PlacedText> loadingTexts;

    CanvasRect flagRow; // empty without placed remarks
    std::vector<PlacedFlag> flags;

    std::vector<PlacedLane> lanes; // from the top
    std::vector<PlacedBar> bars;   // in the order of the model's entries
    double rowHeight, barHeight;

    CanvasRect lostLane; // empty if no message is lost
    std::vector<PlacedTick> lost;
    std::vector<PlacedText> lostTexts;

    CanvasRect musicLane;
    double musicStart, musicEnd; // x; equal without music
    std::vector<WaveColumn> wave;
    std::string musicTitle;
    std::vector<PlacedText> musicTexts;

    std::vector<PlacedLegend> legend;
};

Layout LayOut(const TimelineModel& model, const LayoutOptions& options);

// The row of each entry inside its layer, in the order of the model's entries: the first row from the top in which no
// other entry overlaps it.
std::vector<int> RowsOf(const TimelineModel& model);

// Remarks whose flags would touch and therefore share one. Their indices follow each other, since the model has its
// remarks in order of time.
struct FlagGroup {
    size_t first, count; // of the model's remarks
    bool grave;          // one of them is
    double pole;         // x of the first
    double extent;       // x up to which the longest of them reaches
    double left, width;  // of the flag: at the right end of the canvas it flies to the left of its pole
};

struct FlagRoom {
    std::function<double(const std::string&)> textWidth; // of the number on a flag
    double padding = 4;                                  // left and right of it
    double closest = 3;                                  // nearer flags touch
    double right;                                        // x at which the canvas ends for flags
};

// Groups the remarks that have a place in time. A remark off the scale counts as lying at its nearer end.
std::vector<FlagGroup> GroupFlags(const TimelineModel& model, const Scale& scale, const FlagRoom& room);

// "3" or, of several, "3-7" with an en dash: the numbers of the remarks, from 1.
std::string FlagNumber(const FlagGroup& group);

} // namespace timeline
