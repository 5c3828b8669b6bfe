// SPDX-License-Identifier: MIT
// Applies the cure of a finding.
#pragma once

#include "tools/edit/ScriptEdit.h"
#include "tools/lint/Lint.h"

namespace edit
{

// Does what Document::ApplyCure says. False: refused, because the finding is no longer there, has no cure that a program
// can apply, or would still be there afterwards.
bool CureFinding(ScriptEdit* script, const lint::Finding& finding, const lint::CheckOptions& options);

} // namespace edit
