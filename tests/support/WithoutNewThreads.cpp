// SPDX-License-Identifier: MIT
#include "tests/support/WithoutNewThreads.h"

#include <gtest/gtest.h>

#include <cerrno>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

static const id_t nobody = 65534; // root may start as many as it likes
static const int exitWithRights = 2;

static void RunAs(id_t user, rlim_t processes, const std::function<void()>& work)
{
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        if (geteuid() == 0 && (setgid(user) != 0 || setuid(user) != 0))
            _exit(exitWithRights);
        const rlimit limit = {processes, processes};
        if (setrlimit(RLIMIT_NPROC, &limit) != 0 || (processes == 0 && fork() >= 0))
            _exit(exitWithRights);
        work();
        _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    EXPECT_TRUE(WIFEXITED(status)) << "signal " << WTERMSIG(status);
    EXPECT_EQ(0, WEXITSTATUS(status)) << "1: an expectation failed; 2: it may still start processes";
}

void WithoutNewThreads(const std::function<void()>& work)
{
    RunAs(nobody, 0, work);
}

void WithRoomForThreads(int count, const std::function<void()>& work)
{
    ASSERT_EQ(0u, geteuid());
    const id_t firstUser = 20000;
    const id_t users = 40000; // hardly another one of these tests takes the same at the same time
    RunAs(firstUser + id_t(getpid()) % users, 1 + rlim_t(count), work);
}
