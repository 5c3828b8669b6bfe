// SPDX-License-Identifier: MIT
// A finding: one thing that the show would silently do differently from what the script's author meant.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace lint
{

enum Severity {
    Note,    // an effect of the options, such as a start offset, that the author should know
    Warning, // looks like a mistake, and the show plays much as written
    Error    // something that is written is not shown, or the show cannot start
};

// Bytes of the file that become others: from begin to before end, which are the same where something is put in.
struct Fix {
    size_t begin, end;
    std::string text;
};

struct Finding {
    Severity severity;
    std::string code; // the kind, a word of docs/TOOLS.md that never changes: "lost-character"
    std::string file; // the name that the caller gave
    int line;         // from 1; 0: the finding is about the whole file
    int column;       // from 1, in characters of the line; 0: about the whole line

    // The time in the show that the finding is about, if hasSpan: milliseconds, both ends included.
    bool hasSpan;
    uint32_t spanStart;
    uint32_t spanStop; // not below spanStart

    // Sentences for people.
    std::string text;        // what stands in the script
    std::string consequence; // what the show does with it
    std::string cure;        // what to write instead

    // The cure as a program applies it: all of them together, in no order, not overlapping. Empty: only a person
    // can tell what was meant.
    std::vector<Fix> fixes;
};

} // namespace lint
