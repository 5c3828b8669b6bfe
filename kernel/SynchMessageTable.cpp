// SPDX-License-Identifier: MIT
#include "kernel/SynchMessageTable.h"

#include <cassert>

SynchMessageTable::SynchMessageTable() : lastId(0) {}

int SynchMessageTable::DeclareMessage(std::string name, Effect* owner, std::string description)
{
    lastId++;
    entries.push_back({owner, name, description, int(lastId)});
    return int(lastId);
}

int SynchMessageTable::FindMessage(const char* name, Effect* owner) const
{
    assert(name);
    if (!owner)
        return 0;
    for (const SynchMessageDeclaration& entry : entries)
        if (entry.owner == owner && entry.name == name)
            return entry.id;
    return 0;
}

std::string SynchMessageTable::ListMessages(Effect* owner) const
{
    std::string list;
    for (const SynchMessageDeclaration& entry : entries)
        if (entry.owner == owner)
            list += entry.name + "  (" + entry.description + ")\n";
    return list;
}
