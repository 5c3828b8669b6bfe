// SPDX-License-Identifier: MIT
// What is selected, as a sorted list of items in which none stands twice.
#pragma once

#include "tools/edit/ItemId.h"
#include "tools/edit/Outline.h"
#include "tools/lint/Lint.h"
#include "tools/timeline/Times.h"

#include <vector>

namespace edit
{

typedef std::vector<ItemId> Selection;

bool IsSelected(const Selection& selection, ItemId item);
void Select(Selection* selection, ItemId item); // in addition
void Toggle(Selection* selection, ItemId item);
void Sort(Selection* selection); // after items were put in anyhow

// Drops what the outline no longer has, after undo or a change from outside.
void DropStale(const Outline& outline, Selection* selection);

// When an item begins, in milliseconds: the start of an entry, the time of a message, the first of a Steps group.
uint32_t StartOf(const Outline& outline, ItemId item);
// When it ends: the stop of an entry, the last of a Steps group, else its start.
uint32_t StopOf(const Outline& outline, ItemId item);
bool IsEntry(const Outline& outline, ItemId item);

// From the earliest start to the latest stop. Of an empty selection the stop is below the start.
lint::Span SpanOf(const Outline& outline, const Selection& selection);

// How far copies of the selection are shifted, in milliseconds, so that they begin where it ends. Copies of messages
// that all have one time, and so take none, begin a beat later.
int64_t CopyShift(const Outline& outline, const Selection& selection, const timeline::Tempo& tempo);

// Every entry and message, of blocks that say enough to be shown; in order.
Selection AllItems(const Outline& outline);

// The item that follows in time; of equal times in the order of the script. Without a selection the first from
// `seconds` on. direction is 1 or -1; at either end it begins anew. An empty list: there is no item.
Selection NextItem(const Outline& outline, const Selection& selection, int direction, double seconds);

} // namespace edit
