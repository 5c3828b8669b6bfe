// SPDX-License-Identifier: MIT
// What whoever writes a script has to know: the effects and their messages.
#pragma once

#include <string>

namespace listing
{

std::string TextOfProduction(); // exactly what EffectRegistry::WriteDemoInfo writes
std::string JsonOfProduction(); // the same facts

} // namespace listing
