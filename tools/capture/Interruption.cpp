// SPDX-License-Identifier: MIT
#include "tools/capture/Interruption.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <initializer_list>

namespace capture
{

static volatile sig_atomic_t interrupted = 0;
static std::atomic<pid_t> continuedChild = 0;

static void NoteSignal(int)
{
    const int savedErrno = errno;
    interrupted = 1;
    const pid_t child = continuedChild;
    if (child > 0)
        kill(child, SIGCONT);
    errno = savedErrno;
}

void CatchInterruptions()
{
    for (int number : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action = {};
        sigaction(number, nullptr, &action);
        if (action.sa_handler == SIG_IGN) // nohup, or a shell that has put this in the background
            continue;
        action.sa_handler = NoteSignal;
        action.sa_flags = int(SA_RESETHAND);
        sigaction(number, &action, nullptr);
    }
}

bool IsInterrupted()
{
    return interrupted != 0;
}

void ContinueOnInterruption(pid_t child)
{
    continuedChild = child;
}

} // namespace capture
