// SPDX-License-Identifier: MIT
// The messages that effects have declared. A script names them; DemoPlayer::AddMessage looks the names up
// here when the script is read, and from then on uses the integer ids.
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

    // Appends a row and returns its id. Ids count from 1 across all effects; 0 is never given out. There is
    // no check for duplicates: of two rows with the same name and owner, FindMessage only ever finds the
    // first. An owner of null is allowed, but nobody finds its messages.
    int DeclareMessage(std::string name, Effect* owner, std::string description);

    // The id of the first row with this owner and exactly this name, which must not be null; 0 if there is none or
    // owner is null.
    int FindMessage(const char* name, Effect* owner) const;

    // A line "name  (description)\n" for each message of this owner, in order of declaration.
    std::string ListMessages(Effect* owner) const;

    std::vector<SynchMessageDeclaration> entries; // in order of declaration

private:
    uint32_t lastId; // 0 before the first
};
