// SPDX-License-Identifier: MIT
// What every production does with its table of effects.
#include "kernel/Production.h"

#include "kernel/EffectRegistry.h"

const EffectRecord* FindRecord(const std::string& key)
{
    for (const EffectRecord& row : ProductionEffects())
        if (row.key == key)
            return &row;
    return nullptr;
}

void RegisterEffects(EffectRegistry* registry)
{
    for (const EffectRecord& row : ProductionEffects())
        registry->Register(row.key, row.make(), row.key); // the listing describes an effect by its key
}
