// SPDX-License-Identifier: MIT
#include "tests/support/AllEffectsShow.h"

#include "kernel/EffectRegistry.h"
#include "kernel/Production.h"
#include "kernel/SynchMessageTable.h"

namespace allEffectsShow
{

std::string Script()
{
    EffectRegistry registry;
    RegisterEffects(&registry);
    std::string script;
    for (const RegisteredEffect& row : registry.effects) {
        const int start = StartOf(row.name) * 1000;
        script += "[EFFECT]\nEffectName=" + row.name + ";\nStartTime=" + std::to_string(start) +
                  ";\nStopTime=" + std::to_string(start + secondsEach * 1000) + ";\nLayerID=1;\n";
        for (const SynchMessageDeclaration& message : registry.GetMessageTable()->entries)
            if (message.owner == row.effect)
                script += "[MESSAGE]\nMessageText=" + message.name + ";\nTargetEffect=" + row.name +
                          ";\nActivationTime=" + std::to_string(start + 600) + "," +
                          std::to_string(start + 1800) + ";\n";
    }
    return script;
}

int StartOf(const std::string& key)
{
    int index = 0;
    for (const EffectRecord& row : ProductionEffects()) {
        if (row.key == key)
            return index * secondsEach;
        index++;
    }
    return -1;
}

} // namespace allEffectsShow
