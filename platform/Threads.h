// SPDX-License-Identifier: MIT
// Threads that a limit on processes may refuse (RLIMIT_NPROC, a container's limit of tasks). std::thread throws
// in that case, which would end the program without a word.
#pragma once

namespace platform
{

typedef void (*ThreadBody)(void* context);

// Starts a thread that runs body(context) and is joined by nobody. False, and nothing runs, if the system
// refuses it.
bool StartThread(ThreadBody body, void* context);

// True if `count` more threads can run at once now. They are started and ended again, in less than a
// millisecond. What other processes of the same user start afterwards can take the room away.
bool CanStartThreads(int count);

// Lets the calling thread, and the threads and processes that it starts from then on, wait for the processor where others
// of the program want it: by ten steps of niceness. For good, since a user may not take it back.
void GiveWay();

} // namespace platform
