// SPDX-License-Identifier: MIT
// The effects of this production.
#pragma once

class EffectRegistry;

// Constructs the effects and registers each under its name, in the order of the table in Production.cpp. That
// order gives out the message ids and is the order of the listing. The effects are never deleted.
void RegisterEffects(EffectRegistry* registry);
