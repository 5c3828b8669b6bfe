// SPDX-License-Identifier: MIT
// Names one thing of the script that can be selected and moved.
#pragma once

#include <cstddef>

namespace edit
{

// An entry, or one message. Messages of one block differ in the number of their time; those that Steps adds
// are one item with the first of them. The numbers are those of the outline that was read from the current text.
struct ItemId {
    size_t block = 0; // number of the block in the script, from 0
    int time = -1;    // number of the time in ActivationTime, from 0; -1: the block is not a message

    bool operator==(const ItemId& other) const { return block == other.block && time == other.time; }
    bool operator<(const ItemId& other) const
    {
        return block != other.block ? block < other.block : time < other.time;
    }
};

} // namespace edit
