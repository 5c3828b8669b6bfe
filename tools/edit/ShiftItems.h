// SPDX-License-Identifier: MIT
// Changes values of what is selected: moves and stretches it, sets what a key says. The functions write what is to change into the edit; false: refused.
#pragma once

#include "tools/edit/ItemId.h"
#include "tools/edit/ScriptEdit.h"

#include <cstdint>
#include <string>
#include <vector>

namespace edit
{

// In order, each once, and instead of a whole message block all its times. False if there is none, or one that the
// outline does not have.
bool ResolveItems(ScriptEdit* script, const std::vector<ItemId>& items, std::vector<ItemId>* resolved);

// Each as Document's operation of the like name.
bool MoveItems(ScriptEdit* script, const std::vector<ItemId>& items, int64_t milliseconds, int64_t layers);
bool StretchItems(ScriptEdit* script, const std::vector<ItemId>& items, bool stopEdge, int64_t milliseconds);
bool SetItemTime(ScriptEdit* script, ItemId item, uint32_t milliseconds);
bool SetBlockValue(ScriptEdit* script, size_t block, const std::string& key, const std::string& typed);
bool TakeGroupApart(ScriptEdit* script, size_t block);

} // namespace edit
