// SPDX-License-Identifier: MIT
// Copies, removes and adds blocks. The functions write what is to change into the edit; false: refused. Each does
// what the operation of Document with a similar name says.
#pragma once

#include "tools/edit/ItemId.h"
#include "tools/edit/ScriptEdit.h"

#include <cstdint>
#include <string>
#include <vector>

namespace edit
{

// What an operation added: whole blocks, and further times of blocks that were there. Items says, once the edit is
// finished, under which numbers they are found.
class Additions
{
public:
    void AddBlock(size_t handle, bool isMessage, size_t times);
    void AddTimes(size_t block, const std::vector<size_t>& indices); // no blocks are removed in the same edit
    std::vector<ItemId> Items(const ScriptEdit& script) const;       // in order

private:
    struct NewBlock {
        size_t handle;
        size_t times; // 0: it is no message
    };
    struct NewTimes {
        size_t block;
        std::vector<size_t> indices;
    };

    std::vector<NewBlock> blocks;
    std::vector<NewTimes> lists;
};

bool DuplicateItems(ScriptEdit* script, const std::vector<ItemId>& items, int64_t milliseconds,
                    int64_t layers, Additions* added);
bool DeleteItems(ScriptEdit* script, const std::vector<ItemId>& items);
bool CopyItems(const std::string& text, const Outline& outline, const std::vector<ItemId>& items,
               std::string* copy);
bool PasteBlocks(ScriptEdit* script, const std::string& blocks, uint32_t atMilliseconds, Additions* added);

bool InsertEntry(ScriptEdit* script, const std::string& effect, uint32_t start, uint32_t stop, uint32_t layer,
                 Additions* added);
bool InsertMessage(ScriptEdit* script, const std::string& effect, const std::string& message, uint32_t time,
                   const std::string& parameters, Additions* added);

bool AddTimeToList(ScriptEdit* script, size_t block, uint32_t milliseconds, Additions* added);

} // namespace edit
