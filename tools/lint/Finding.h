// SPDX-License-Identifier: MIT
// One thing that the show would do otherwise than the script's writer meant, without saying so.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace lint
{

enum Severity {
    Note,    // to be expected, and good to know
    Warning, // looks unmeant, and the show goes on much as written
    Error    // something that is written is not shown, or the show can't start
};

struct Finding {
    Severity severity;
    std::string code; // the kind, which never changes: "lost-digit", "missing-file"
    std::string file; // as the caller named it
    int line;         // from 1; 0: the whole file
    int column;       // from 1, in characters of the line; 0: the whole line

    // Where in the show it matters, milliseconds from its start, both ends included.
    bool hasSpan;
    uint32_t spanStart;
    uint32_t spanStop; // not below spanStart

    std::string text;        // what is there
    std::string consequence; // what the show makes of it
    std::string cure;        // what to write instead
};

} // namespace lint
