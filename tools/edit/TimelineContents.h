// SPDX-License-Identifier: MIT
// What the timeline draws of the text as it stands now: the facts of the show, worked out from the document's
// outline as the linter and marlinex-timeline work them out, and which item of the script each belongs to.
//
// A new one is made after each edit; the analysis on the worker thread, which knows the findings and the music as well,
// may be some revisions behind it.
#pragma once

#include "tools/edit/ItemId.h"
#include "tools/edit/Outline.h"
#include "tools/timeline/TimelineModel.h"

#include <cstdint>
#include <map>
#include <vector>

namespace edit
{

struct ContentsLane {
    uint32_t layer;
    int rows; // entries that overlap lie in rows of their own
};

struct TimelineContents {
    // Entries in the order of the script, messages in order of time. Those of effects that the show doesn't know
    // are there as well, so that they can be mended; nothing is said about loading and music.
    timeline::TimelineModel model;
    std::vector<ItemId> entryItems;   // of the model's entries
    std::vector<ItemId> messageItems; // of the model's messages; all of a Steps group have one
    std::vector<bool> unknown;        // of the model's entries: the show has no such effect

    std::vector<ContentsLane> lanes;        // the front layer first
    std::vector<int> rows;                  // of the model's entries, inside their lane
    std::vector<std::vector<size_t>> heard; // of each entry: the messages that it gets, in order of time
    std::vector<size_t> lost;               // messages that nobody gets, in order of time

    // The entries of a row in order of their start.
    std::map<std::pair<uint32_t, int>, std::vector<size_t>> inRow; // by layer and row

    std::map<size_t, size_t> entryOf; // the entry of each block
};

// The most messages that are shown; a short script can ask for more than memory holds.
const size_t MaxMessages = 200000;

TimelineContents ReadContents(const Outline& outline);

} // namespace edit
