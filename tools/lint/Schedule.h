// SPDX-License-Identifier: MIT
// What a script comes to: what the player got, each with its place in the script, and which messages arrive.
#pragma once

#include "tools/lint/Lint.h"
#include "tools/lint/Reading.h"

namespace lint
{

// whole is the script read from the start of the show, kept the same script read with the offset of the
// options.
Show BuildShow(const Reading& whole, const Reading& kept, const EffectRegistry& registry,
               const Options& options);

// True if an entry that is kept has the effect on stage at the time, in milliseconds.
bool IsOnStage(const Show& show, const std::string& effect, double time);

} // namespace lint
