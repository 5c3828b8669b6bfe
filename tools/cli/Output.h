// SPDX-License-Identifier: MIT
// Where the text of a tool goes: standard output or a file, and nothing lost unnoticed.
#pragma once

#include <string>

namespace cli
{

// Writes the whole text to standard output where path is "-", else into the file, which is replaced.
// False if not all of it arrived (no such folder, disk full, the reader of a pipe gone); *reason then says
// why, in the system's words.
bool WriteOutput(const std::string& path, const std::string& text, std::string* reason);

} // namespace cli
