// SPDX-License-Identifier: MIT
// Where the text that a tool reads comes from: standard input, or a file of any kind.
#pragma once

#include <string>

namespace cli
{

// The largest input that is read, in bytes. Every script is far smaller; an endless device is refused here.
const size_t MaxInputBytes = size_t(64) << 20;

// Appends everything from standard input where path is "-", else from the file, which may be a pipe or a
// device. False if it can't be read to its end; *reason then says why, in the system's words. A signal that
// is caught without SA_RESTART ends the reading so.
bool ReadInput(const std::string& path, std::string* text, std::string* reason);

} // namespace cli
