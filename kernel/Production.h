// SPDX-License-Identifier: MIT
// The effects of this production.
#pragma once

#include "kernel/EffectRecord.h"

class EffectRegistry;

// A row for each effect, in the order of registration. That order gives out the message ids and is the order
// of the listing, so rows are only ever added at the end.
const std::vector<EffectRecord>& ProductionEffects();
const EffectRecord* FindRecord(const std::string& key); // null if there is no such effect

// Constructs the effects and registers each under its key. The effects are never deleted.
void RegisterEffects(EffectRegistry* registry);
