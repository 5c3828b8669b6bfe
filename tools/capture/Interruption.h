// SPDX-License-Identifier: MIT
// The wish of a user or of a job scheduler that the capture end early: SIGINT, SIGTERM, SIGHUP.
#pragma once

#include <sys/types.h>

namespace capture
{

// The first of each signal is only noted, so that the capture can end with a complete file; the second ends
// the process at once. A signal that the process was started to ignore stays ignored. Blocking system calls
// return with EINTR.
void CatchInterruptions();

// True from the first signal on.
bool IsInterrupted();

// A child that is sent SIGCONT when a signal comes, 0 for none: a capture that waits for a stopped encoder
// could not end otherwise. One at a time.
void ContinueOnInterruption(pid_t child);

} // namespace capture
