// SPDX-License-Identifier: MIT
// The list of effects and messages, for people who write scripts.
#pragma once

#include <string>

namespace listing
{

std::string TextOfProduction(); // exactly what EffectRegistry::WriteDemoInfo writes
std::string JsonOfProduction(); // the same facts as JSON

} // namespace listing
