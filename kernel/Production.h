// SPDX-License-Identifier: MIT
// A production: a name and a table of effects. moonwaltz's stand in kernel/Production.cpp. Another production, on the
// installed engine, defines the same two and is linked in place of this one (docs/PRODUCTION.md).
#pragma once

#include "kernel/EffectRecord.h"

class EffectRegistry;

// The name of the program, and of its folder in share/, where the program looks for Data when it is installed.
extern const char* const ProductionName;

// A row for each effect, in the order of registration. That order gives out the message ids and is the order
// of the listing, so rows are only ever added at the end.
const std::vector<EffectRecord>& ProductionEffects();

// ---- The same for every production: kernel/ProductionTable.cpp

const EffectRecord* FindRecord(const std::string& key); // null if there is no such effect

// Constructs the effects and registers each under its key. The effects are never deleted.
void RegisterEffects(EffectRegistry* registry);
