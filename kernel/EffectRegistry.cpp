// SPDX-License-Identifier: MIT
#include "kernel/EffectRegistry.h"

#include "kernel/Effect.h"
#include "kernel/SynchMessageTable.h"

EffectRegistry::EffectRegistry() : messageTable(new SynchMessageTable) {}

bool EffectRegistry::Register(std::string name, Effect* effect, std::string description)
{
    if (FindEffect(name))
        return false;
    effects.push_back({name, description, effect});
    effect->DeclareMessages(messageTable);
    return true;
}

Effect* EffectRegistry::FindEffect(std::string name) const
{
    for (const RegisteredEffect& row : effects)
        if (row.name == name)
            return row.effect;
    return nullptr;
}

SynchMessageTable* EffectRegistry::GetMessageTable() const
{
    return messageTable;
}

void EffectRegistry::Clear()
{
    effects.clear();
}
