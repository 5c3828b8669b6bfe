// SPDX-License-Identifier: MIT
// Checks of values: what the show reads from a value is compared with what is written there.
#pragma once

#include "tools/lint/Checks.h"

struct SynchMessageDeclaration;

namespace lint
{

void CheckInteger(const KeyValue& entry, Findings* findings); // one whole number
void CheckTimes(const KeyValue& entry, Findings* findings);   // a list of whole numbers
void CheckColour(const KeyValue& entry, Findings* findings);  // three whole numbers of 0 to 255

// Checks the list of a message's parameters. declared is null if the effect does not know the message.
void CheckParameters(const KeyValue& entry, const SynchMessageDeclaration* declared, Findings* findings);

// What the description of a message says of its parameters, which is "PARAM 0: dimming speed. PARAM 1: ...": a
// name for each up to the highest, empty where there is none.
std::vector<std::string> ParameterNames(const std::string& description);

// True if the reader takes the text as a value as it stands.
bool CanBeValue(const std::string& text);

// A decimal number that ends a list of parameters, written so that the reader, which loses its last character,
// reads it all the same: "12.00" for "12". As it is if nothing is missed. Not empty.
std::string WithoutLoss(const std::string& last);

// The number of times that the reader takes from a list. A comma at its end does not begin another one.
size_t CountTimes(const KeyValue& entry);

// False if there is no such effect. The finding then says that the show drops `what`, "entry" or "message".
bool CheckEffectName(const KeyValue& entry, const EffectRegistry& registry, const char* what,
                     Findings* findings);

// The declaration of the message, of an effect that there is. Null, with a finding, if the effect declares no
// such message.
const SynchMessageDeclaration* CheckMessageName(const KeyValue& entry, const std::string& effect,
                                                const EffectRegistry& registry, Findings* findings);

} // namespace lint
