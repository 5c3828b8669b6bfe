// SPDX-License-Identifier: MIT
#include "kernel/OutOfMemory.h"

#include "kernel/Report.h"

#include <cstdio>
#include <new>

#include <unistd.h>

// The line comes first, and the handler goes: the box may well ask for more memory than there is.
[[noreturn]] static void EndWithWords()
{
    std::set_new_handler(nullptr);
    fputs("moonwaltz: there is not enough memory\n", stderr);
    ReportError("Out of Memory", "There is not enough memory to go on.");
    _exit(1);
}

void ReportOutOfMemory()
{
    std::set_new_handler(EndWithWords);
}
