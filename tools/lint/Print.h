// SPDX-License-Identifier: MIT
// Writes a report as text for people, and as JSON for programs.
#pragma once

#include "tools/lint/Lint.h"

#include <string>

namespace lint
{

const char* NameOf(Severity severity); // "note", "warning", "error"

// For each finding "FILE:LINE:COLUMN: SEVERITY: TEXT [CODE]" with the consequence and the cure in lines of
// their own, then a line that sums up.
std::string PrintText(const std::string& file, const Report& report, bool colours);
std::string PrintJson(const std::string& file, const Report& report, const CheckOptions& options);

} // namespace lint
