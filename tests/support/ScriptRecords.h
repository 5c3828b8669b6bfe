// SPDX-License-Identifier: MIT
// What a script says, as plain records, and what edits mean on them: a model of edit::Document that knows nothing of
// text, to hold the document against. A record stands for a block that lacks no key.
#pragma once

#include "tools/edit/Outline.h"

#include <cstdint>
#include <string>
#include <vector>

struct ScriptRecord {
    size_t block = 0; // of the script that it was made from
    bool isEntry = false;
    std::string effect, message, parameters;
    bool hasParameters = false;
    int64_t start = 0, stop = 0, layer = 0; // of an entry, milliseconds
    std::vector<int64_t> times;             // of a message, milliseconds
    bool hasSteps = false, hasDelta = false;
    std::string steps, delta;
};

class ScriptRecords
{
public:
    static constexpr int64_t greatest = 2147483647; // number that an edit writes

    explicit ScriptRecords(const edit::Outline& outline);

    // A clean script that says the same, on one line.
    std::string Write() const;

    ScriptRecord* Find(size_t block); // null for a block that lacks a key
    bool HaveAll(const std::vector<edit::ItemId>& items);

    void Add(const ScriptRecord& record) { records.push_back(record); }

    // As far as the first of the items can go. Those of blocks that lack a key are passed over.
    void Move(const std::vector<edit::ItemId>& items, int64_t amount, int64_t layers);

    // Moves one end of an entry, of which a millisecond is left at least.
    static void Stretch(ScriptRecord* entry, bool stop, int64_t amount);

    // Copies of the items, later by the amount. False: what it comes to can't be said here, since a block lacks a key
    // or a number stands where numbers end.
    bool Duplicate(const std::vector<edit::ItemId>& items, int64_t amount);
    bool Paste(edit::ItemId item, int64_t at); // the same for one item that begins at this time

    void Delete(const std::vector<edit::ItemId>& items);

private:
    std::vector<int64_t*> NumbersOf(edit::ItemId item);
    static ScriptRecord CopyOf(const ScriptRecord& record, int time, int64_t amount);

    std::vector<ScriptRecord> records;
};
