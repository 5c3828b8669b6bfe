// SPDX-License-Identifier: MIT
// The other end of ShowProcess: a process that plays the show in an off-screen window on the counted clock, up to the
// frame that it is told and no further, and hands drawn frames over in shared memory.
#pragma once

namespace edit
{

// The hidden first argument with which marlinex-edit starts itself as such a process. Its standard output is then the
// socket of ShowChannel.h.
extern const char* const ShowHostArgument;

// True if the program was started with it: call RunShowHost then, and nothing else.
bool IsShowHost(int argumentCount, const char* const* arguments);

// Plays until the other side closes the socket. Does not return.
[[noreturn]] void RunShowHost();

} // namespace edit
