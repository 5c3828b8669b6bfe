// SPDX-License-Identifier: MIT
#include "kernel/OutOfMemory.h"

#include "kernel/Report.h"

#include <cstdio>
#include <new>

#include <unistd.h>

static const char* program = "";

// The line comes first, and the handler goes: the box may well ask for more memory than there is.
[[noreturn]] static void EndWithWords()
{
    std::set_new_handler(nullptr);
    fprintf(stderr, "%s: there is not enough memory\n", program);
    ReportError("Out of Memory", "There is not enough memory to go on.");
    _exit(1);
}

void ReportOutOfMemory(const char* programName)
{
    program = programName;
    std::set_new_handler(EndWithWords);
}
