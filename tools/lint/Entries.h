// SPDX-License-Identifier: MIT
// The entries Key=Value; of a block, each with its place, and under which key the show's reader finds it.
#pragma once

#include "tools/lint/Reading.h"

#include <string>
#include <vector>

namespace lint
{

struct Entry {
    std::string text; // with its ; if it has one
    size_t begin;     // of the text in the stream
    bool ended;       // it has its ;
    std::string word; // what stands where the key should: the text up to the first = or ;

    std::string key;   // as the reader finds it, were it not for a missing ; - empty: under none
    std::string value; // as the reader takes it, without any further =
    std::vector<uint32_t> valuePlaces; // in the stream: of each character of the value, and of what ends it
    bool counts;                       // the reader uses it: it is ended, and the first with its key
    bool broken;                       // it runs on into the next: what its value is says nothing
};

std::vector<Entry> SplitEntries(const Block& block);

// The entry that counts for a key, or null.
const Entry* FindEntry(const std::vector<Entry>& entries, const std::string& key);
const Entry* FindSound(const std::vector<Entry>& entries, const std::string& key); // the same, if not broken

// An item of a list divided by commas.
struct Item {
    std::string text;
    size_t place; // in the stream, of its first character or of what ends it
    size_t last;  // of its last character
};

// One more than there are commas.
std::vector<Item> SplitItems(const Entry& entry);

} // namespace lint
