// SPDX-License-Identifier: MIT
// What marlinex-edit does from its first moment to its last.
#pragma once

#include "tools/edit/AnswerTimes.h"

namespace edit
{

// Runs the editor, or one of its processes that play the show if the command line asks for that, and returns the exit
// status. `atEnd` is called when the window has closed, with how long it took to answer; null: nothing is.
int RunProgram(int argc, char** argv, void (*atEnd)(const AnswerTimes& answers) = nullptr);

} // namespace edit
