// SPDX-License-Identifier: MIT
// Where everything that can be edited stands in a script. The script goes through the show's own reader, so
// that a block, a key or a time is here exactly where the show finds it.
#pragma once

#include "script/BlockSyntax.h"
#include "tools/edit/ItemId.h"
#include "tools/lint/Reading.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace edit
{

// Bytes of the file, from 0, end exclusive.
struct Place {
    size_t begin = 0, end = 0;

    bool operator==(const Place& other) const { return begin == other.begin && end == other.end; }
};

// An entry Key=Value;.
struct OutlineValue {
    std::string key;
    std::string text;    // as the reader takes it: without blanks and comments
    Place place;         // of the value in the file, blanks and comments inside it included
    Place entry;         // from the key to the ; or, without one, to the end of the value
    bool ended = false;  // true if it has its ;
    bool broken = false; // true if it runs on into the next entry for want of a ;
};

// One time of an ActivationTime.
struct OutlineTime {
    uint32_t milliseconds;
    Place place;                 // empty for an empty item of the list, ahead of what ends it
    lint::TextPosition position; // of the place, as lint::SentMessage and lint::Finding count
};

struct OutlineBlock {
    BlockType type = BlockNone; // never BlockNone in an outline
    Place place;                // from its header to its last byte that the reader keeps
    Place header;
    int line = 0, column = 0; // of the header, from 1; the column in characters
    int messageBlock = -1;    // the number among the [MESSAGE] blocks, as lint::SentMessage::block; else -1

    // True if the player gets something from the block: an entry, a message, music, a colour scheme. False if
    // a key is missing or there is no such effect.
    bool complete = false;

    // What the keys of the block say; 0 or empty where there is no such key.
    std::string effect;             // EffectName or TargetEffect
    uint32_t start = 0, stop = 0;   // milliseconds
    uint32_t layer = 0;             // of an [EFFECT]
    std::string message;            // MessageText
    std::vector<OutlineTime> times; // ActivationTime, in the order of the list
    uint32_t steps = 1, delta = 0;  // a Steps group: `steps` messages, `delta` ms apart; steps 1: no group
    std::vector<float> parameters;  // as the effect gets them
    std::string fileName;           // of a [MUSIC]

    std::vector<OutlineValue> values; // that the reader uses, in the order of the script

    // Entries under a key that the reader passes over: repeated ones, and the last of the block without its ;.
    std::vector<OutlineValue> unused;

    const OutlineValue* FindValue(const std::string& key) const; // null: the reader finds none
    bool ValueOf(const std::string& key, std::string* text, Place* valuePlace = nullptr) const;
    bool IsGroup() const { return steps > 1; }
};

struct Outline {
    std::vector<OutlineBlock> blocks; // in the order of the script

    bool Has(ItemId item) const; // true if there is such a block, and such a time in it

    // The item whose header or time stands there, as findings, lint::ShownEntry and lint::SentMessage tell
    // places. Elsewhere in a block: the block's entry or its first time. False: no block is there.
    bool FindItem(int line, int column, ItemId* item) const;
};

// Any bytes; a text above lint::Reading::contentLimit has no blocks. May be called on any thread.
Outline ReadOutline(const std::string& text);

} // namespace edit
