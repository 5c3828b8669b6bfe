// SPDX-License-Identifier: MIT
// What was measured, in words and for programs.
#pragma once

#include "tools/flashes/FlashMeter.h"

#include <string>

namespace flashes
{

std::string TextOf(const FlashMeter& meter);

// {"limit":3,"field":{"flashes":2,"time":4.5},"picture":{"flashes":0,"time":null},"above":[{"from":..,"to":..,
// "flashes":..}]}, times in seconds.
std::string JsonOf(const FlashMeter& meter);

} // namespace flashes
