// SPDX-License-Identifier: MIT
// Writes the text of a tool to standard output or to a file.
#pragma once

#include <string>

namespace cli
{

// Writes the whole text to standard output where path is "-", into a device or a pipe as it is, and else into
// a file. A file that is there is replaced when the new one is complete, and keeps its mode; a link is
// followed. False if not all of it arrived (no such folder, disk full, the reader of a pipe gone): *reason
// then says why, in the system's words, and an old file is as it was.
bool WriteOutput(const std::string& path, const std::string& text, std::string* reason);

} // namespace cli
