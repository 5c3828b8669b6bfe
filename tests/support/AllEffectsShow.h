// SPDX-License-Identifier: MIT
// A show of all effects of the production, one after the other in the order of their records. Each is sent
// every message that it declares, twice: some count only once another one has come.
#pragma once

#include <string>

namespace allEffectsShow
{

const int secondsEach = 3;

std::string Script();
int StartOf(const std::string& key); // seconds at which the effect comes on stage

} // namespace allEffectsShow
