// SPDX-License-Identifier: MIT
// The messages that effects have declared. Names are resolved when the script is read; from then on a
// message is its integer id.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class Effect;

struct SynchMessageDeclaration {
    Effect* owner;
    std::string name;
    std::string description;
    int id;
};

class SynchMessageTable
{
public:
    SynchMessageTable();

    // Gives out the next id: 1 upward, across all effects in order of registration; never 0. Duplicates are
    // not looked for: a second row of the same name and owner gets an id that FindMessage never finds.
    int DeclareMessage(std::string name, Effect* owner, std::string description);

    // The id of the first row with this owner and exactly this name; 0 if there is none or owner is null.
    int FindMessage(const char* name, Effect* owner) const;

    // A line "name  (description)\n" for each message of this owner, in order of declaration.
    std::string ListMessages(Effect* owner) const;

    std::vector<SynchMessageDeclaration> entries; // in order of declaration

private:
    uint32_t lastId; // 0 before the first
};
