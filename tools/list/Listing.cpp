// SPDX-License-Identifier: MIT
#include "tools/list/Listing.h"

#include "kernel/EffectRegistry.h"
#include "kernel/Production.h"
#include "kernel/SynchMessageTable.h"
#include "tools/cli/JsonWriter.h"

namespace listing
{

std::string TextOfProduction()
{
    EffectRegistry registry;
    RegisterEffects(&registry);
    return registry.DemoInfo();
}

std::string JsonOfProduction()
{
    EffectRegistry registry;
    RegisterEffects(&registry);
    cli::JsonWriter json;
    json.StartObject();
    json.Key("effects").StartArray();
    for (const RegisteredEffect& row : registry.effects) {
        json.StartObject();
        json.Member("name", row.name);
        json.Member("description", row.description);
        json.Key("messages").StartArray();
        for (const SynchMessageDeclaration& message : registry.GetMessageTable()->entries) {
            if (message.owner != row.effect)
                continue;
            json.StartObject();
            json.Member("name", message.name);
            json.Member("description", message.description);
            json.Member("id", message.id);
            json.EndObject();
        }
        json.EndArray();
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
    return json.Finish();
}

} // namespace listing
