// SPDX-License-Identifier: MIT
#pragma once

// From here on an allocation that fails ends the process with a line on the standard error stream, a box and
// status 1, instead of without a word. Where it can be foreseen, as for pictures, the code that allocates
// tells of it itself and the show goes on to its end. Call once, at the start of the program, whose name begins the
// line and is borrowed.
void ReportOutOfMemory(const char* programName);
