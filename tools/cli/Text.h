// SPDX-License-Identifier: MIT
// Bytes of any kind made fit to be read by people.
#pragma once

#include <string>

namespace cli
{

// The text with an escape for everything that a terminal would obey, hide or not understand: "\x1b" for bytes
// that are not UTF-8 and for control characters, "\u202e" for characters that have no shape of their own. Of
// a text of more than maxCharacters the beginning, cut between two characters and ended by "...", so that all
// of it has no more than that; at least 3.
std::string Escaped(const std::string& text, size_t maxCharacters = std::string::npos);

} // namespace cli
