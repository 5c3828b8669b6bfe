// SPDX-License-Identifier: MIT
// marlinex-edit itself, which says at its end how long its window took to answer.
//
//     MARLINEX_SLOW_DISK=2 edit-answers [OPTION...] SCRIPT
//
// With MARLINEX_SLOW_DISK each flush of a file takes so many seconds longer, as on a disk that is busy or across a network.
// tools/edit/benchmark/measure-answers drives it through a session with a pointer and keys.
#include "tools/edit/Program.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include <sys/syscall.h>
#include <unistd.h>

static std::atomic<int> flushes{0};

// In the place of the system's.
extern "C" int fsync(int file)
{
    const char* const seconds = getenv("MARLINEX_SLOW_DISK");
    const double wait = seconds ? atof(seconds) : 0;
    timespec time = {time_t(wait), long((wait - double(time_t(wait))) * 1e9)};
    nanosleep(&time, nullptr);
    flushes++;
    return int(syscall(SYS_fsync, file));
}

static void Say(const edit::AnswerTimes& times)
{
    std::vector<float> answers = times.Answers();
    std::sort(answers.begin(), answers.end());
    if (answers.empty())
        return;
    const auto part = [&](double share) {
        return 1000 * double(answers[size_t(share * double(answers.size() - 1))]);
    };
    fprintf(stderr,
            "%zu answers: median %.1f ms, 90 %% %.1f ms, 99 %% %.1f ms, longest %.1f ms\n"
            "longest time without taking events: %.1f ms, of it %.1f ms ahead of the frame; %d flushes\n",
            answers.size(), part(0.5), part(0.9), part(0.99), part(1), 1000 * times.LongestBusy(),
            1000 * times.LongestBusyAhead(), flushes.load());
    fprintf(stderr, "above 50 ms: %ld\n",
            long(std::count_if(answers.begin(), answers.end(), [](float a) { return a > 0.05f; })));
}

int main(int argc, char** argv)
{
    return edit::RunProgram(argc, argv, Say);
}
