// SPDX-License-Identifier: MIT
// The values of entries, each read as the show reads it and held against what stands there.
#pragma once

#include "tools/lint/Checks.h"

struct SynchMessageDeclaration;

namespace lint
{

void CheckWhole(const Entry& entry, Findings* findings);  // one whole number
void CheckTimes(const Entry& entry, Findings* findings);  // a list of them
void CheckColour(const Entry& entry, Findings* findings); // three of 0 to 255

// A list of numbers for a message; declared is null where the message is unknown.
void CheckParameters(const Entry& entry, const SynchMessageDeclaration* declared, Findings* findings);

// How many times the reader takes from a list: a comma at its end is no further one.
size_t CountTimes(const Entry& entry);

// False if there is no such effect; what is how the finding calls that which is dropped.
bool CheckEffectName(const Entry& entry, const EffectRegistry& registry, const char* what,
                     Findings* findings);

// The effect is known. Null if it declares no such message.
const SynchMessageDeclaration* CheckMessageName(const Entry& entry, const std::string& effect,
                                                const EffectRegistry& registry, Findings* findings);

} // namespace lint
