// SPDX-License-Identifier: MIT
// The entries Key=Value; of a block: where each stands, and under which key the show's reader finds it.
#pragma once

#include "tools/lint/Reading.h"

#include <string>
#include <vector>

namespace lint
{

struct KeyValue {
    std::string text; // including its ; if it has one
    size_t begin;     // where the text begins in the stream
    bool ended;       // true if it has its ;
    std::string word; // the text up to the first = or ;, where the key should stand

    std::string key;   // under which the reader finds the entry, or would if it had its ;. Empty: under none
    std::string value; // that the reader takes, without any further =

    // Where each character of the value stands in the stream, and last the character that ends the value.
    std::vector<uint32_t> valuePlaces;

    bool counts; // true if the reader uses it: it has its ;, and is the first with its key

    // Where in the text the next key begins, if the entry runs on into the next one for want of a ; and its value
    // is not what was meant; else npos.
    size_t swallowed;
    bool IsBroken() const { return swallowed != std::string::npos; }
};

std::vector<KeyValue> SplitKeyValues(const Block& block);

// The entry that the reader uses for a key; null: none.
const KeyValue* FindKeyValue(const std::vector<KeyValue>& entries, const std::string& key);
const KeyValue* FindIntact(const std::vector<KeyValue>& entries,
                           const std::string& key); // the same, unless it is broken

// An item of a list that commas divide.
struct ListItem {
    std::string text;
    size_t place; // of its first character in the stream; for an empty item, of what ends it
    size_t last;  // of its last character
};

// The items of a value: one more than it has commas.
std::vector<ListItem> SplitItems(const KeyValue& entry);

} // namespace lint
