// SPDX-License-Identifier: MIT
// Colours, where there is someone to see them.
#pragma once

#include <cstdio>
#include <string>

namespace cli
{

enum Colour { Plain, Bold, Red, Yellow, Green, Blue, Dim };

// True if the stream is a terminal that takes colours: not with NO_COLOR set to anything but nothing, not
// with TERM unset or "dumb".
bool TakesColours(FILE* stream);

// The text between the escapes of a colour, or as it is where colours is false.
std::string Paint(const std::string& text, Colour colour, bool colours);

} // namespace cli
