// SPDX-License-Identifier: MIT
// Writes the blocks of which a script has one, [MUSIC] and [COLORSCHEME]. Of several the last complete one counts, and is
// changed. False: refused. Each does what the operation of Document with a similar name says.
#pragma once

#include "kernel/ColorScheme.h"
#include "tools/edit/ScriptEdit.h"

#include <string>

namespace edit
{

bool SetMusicFile(ScriptEdit* script, const std::string& fileName);
bool SetColors(ScriptEdit* script, const ColorScheme& scheme);

} // namespace edit
