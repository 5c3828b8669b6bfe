// SPDX-License-Identifier: MIT
// A show of all effects of the production, one after the other in the order of their records. Each is sent
// every message that it declares twice, since some have an effect only after another one.
#pragma once

#include <string>

namespace allEffectsShow
{

const int secondsEach = 3;

std::string Script();
int StartOf(const std::string& key); // seconds, the start of the effect's entry

} // namespace allEffectsShow
