// SPDX-License-Identifier: MIT
#pragma once

#include "kernel/EffectRegistry.h"
#include "kernel/Production.h"

// The registry of this process with the production's effects, made by the first call and never destroyed.
inline EffectRegistry* ProductionRegistry()
{
    static EffectRegistry* registry = nullptr;
    if (!registry) {
        registry = new EffectRegistry;
        RegisterEffects(registry);
    }
    return registry;
}
