// SPDX-License-Identifier: MIT
#include "tools/edit/EffectCatalogue.h"

#include "kernel/EffectRegistry.h"
#include "kernel/Production.h"
#include "kernel/SynchMessageTable.h"
#include "tools/lint/Lint.h"
#include "tools/lint/Values.h"

#include <algorithm>

namespace edit
{

static const char* const nothingSaid = "NA";      // what effects declare where they have nothing to say
static const char* const usualParameter = "2.00"; // of a flash: half gone after a third of a second

EffectCatalogue::EffectCatalogue(const EffectRegistry& registry)
{
    for (const RegisteredEffect& row : registry.effects) {
        const EffectRecord* const record = FindRecord(row.name);
        CatalogueEffect effect = {
            row.name, record ? record->wash : SlateWash, record && record->isOverlay, {}};
        for (const SynchMessageDeclaration& message : registry.GetMessageTable()->entries) {
            if (message.owner != row.effect)
                continue;
            const bool idle = record && std::count(record->idleMessages.begin(), record->idleMessages.end(),
                                                   message.name) > 0;
            effect.messages.push_back({message.name,
                                       message.description == nothingSaid ? "" : message.description,
                                       lint::ParameterNames(message.description), idle});
        }
        effects.push_back(effect);
    }
}

const EffectCatalogue& EffectCatalogue::Production()
{
    static const EffectCatalogue catalogue(*lint::ProductionRegistry());
    return catalogue;
}

const CatalogueEffect* EffectCatalogue::FindEffect(const std::string& key) const
{
    for (const CatalogueEffect& effect : effects)
        if (effect.key == key)
            return &effect;
    return nullptr;
}

const CatalogueMessage* EffectCatalogue::FindMessage(const std::string& effect,
                                                     const std::string& message) const
{
    if (const CatalogueEffect* const owner = FindEffect(effect))
        for (const CatalogueMessage& each : owner->messages)
            if (each.name == message)
                return &each;
    return nullptr;
}

std::string UsualParameters(const CatalogueMessage& message)
{
    std::string list;
    for (size_t i = 0; i < message.parameters.size(); i++)
        list += (i ? "," : "") + std::string(usualParameter);
    return list;
}

} // namespace edit
