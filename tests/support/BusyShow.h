// SPDX-License-Identifier: MIT
// Shows of any size for tests of the timeline.
#pragma once

#include "tools/timeline/Layout.h"

// Random entries and messages, the same on every run: on six layers, some of them overlapping, with names
// of many lengths, some messages lost, some unknown, music and remarks.
timeline::TimelineModel BusyShow(int entries, int messages, int remarks, unsigned seed = 1);

// A script text with that number of entries of the production's effects and as many messages.
std::string BusyScript(int entries);
