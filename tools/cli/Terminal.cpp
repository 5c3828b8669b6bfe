// SPDX-License-Identifier: MIT
#include "tools/cli/Terminal.h"

#include <cstdlib>
#include <cstring>
#include <unistd.h>

namespace cli
{

bool TakesColours(FILE* stream)
{
    const char* const refused = getenv("NO_COLOR");
    const char* const terminal = getenv("TERM");
    if (refused && *refused)
        return false;
    return terminal && strcmp(terminal, "dumb") != 0 && isatty(fileno(stream));
}

std::string Paint(const std::string& text, TerminalColour colour, bool colours)
{
    const char* const begin[] = {"",           "\033[1m",    "\033[1;31m", "\033[1;33m",
                                 "\033[1;32m", "\033[1;34m", "\033[2m"};
    if (!colours || colour == Plain)
        return text;
    return begin[colour] + text + "\033[0m";
}

} // namespace cli
