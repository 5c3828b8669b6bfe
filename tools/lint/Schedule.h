// SPDX-License-Identifier: MIT
// Builds the show of a script: the entries and messages that the player got, where each stands in the script,
// and which messages are heard.
#pragma once

#include "tools/lint/Lint.h"
#include "tools/lint/Reading.h"

namespace lint
{

// whole is the script read without a start offset, kept the same script read with the offset of the options.
Show BuildShow(const Reading& whole, const Reading& kept, const EffectRegistry& registry,
               const CheckOptions& options);

// Works out what follows from entries and messages: the order of the messages, when each effect is on stage, which
// messages are heard and how late each leaves, and how often effects are loaded.
void PlaySchedule(const CheckOptions& options, Show* show);

// True if the effect is on stage at the time, in milliseconds of the show.
bool IsOnStage(const Show& show, const std::string& effect, double time);

} // namespace lint
