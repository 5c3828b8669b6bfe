// SPDX-License-Identifier: MIT
// Colours on terminals.
#pragma once

#include <cstdio>
#include <string>

namespace cli
{

enum TerminalColour { Plain, Bold, Red, Yellow, Green, Blue, Dim };

// True if the stream is a terminal that shows colours. False if NO_COLOR is set and not empty, and if TERM is not
// set or "dumb".
bool TakesColours(FILE* stream);

// The text between the escape sequences of a colour; if colours is false, the text as it is.
std::string Paint(const std::string& text, TerminalColour colour, bool colours);

} // namespace cli
