// SPDX-License-Identifier: MIT
// Changes values of what is selected: moves and stretches it, sets the values of keys. The functions write what is to
// change into the edit; false: refused.
#pragma once

#include "tools/edit/ItemId.h"
#include "tools/edit/ScriptEdit.h"

#include <cstdint>
#include <string>
#include <vector>

namespace edit
{

// Sorts the items, drops repeated ones, and replaces a whole message block by all its times. False if there are none, or
// one that the outline does not have.
bool ResolveItems(ScriptEdit* script, const std::vector<ItemId>& items, std::vector<ItemId>* resolved);

// Each does what the operation of Document with a similar name says.
bool MoveItems(ScriptEdit* script, const std::vector<ItemId>& items, int64_t milliseconds, int64_t layers);
bool StretchItems(ScriptEdit* script, const std::vector<ItemId>& items, bool stopEdge, int64_t milliseconds);
bool SetItemTime(ScriptEdit* script, ItemId item, uint32_t milliseconds);
bool SetBlockValue(ScriptEdit* script, size_t block, const std::string& key, const std::string& typed);
bool TakeGroupApart(ScriptEdit* script, size_t block);

} // namespace edit
