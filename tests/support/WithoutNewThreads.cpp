// SPDX-License-Identifier: MIT
#include "tests/support/WithoutNewThreads.h"

#include <gtest/gtest.h>

#include <cerrno>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

static const id_t nobody = 65534; // root may start as many as it likes
static const int exitWithRights = 2;

void WithoutNewThreads(const std::function<void()>& work)
{
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        if (geteuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0))
            _exit(exitWithRights);
        const rlimit none = {0, 0};
        if (setrlimit(RLIMIT_NPROC, &none) != 0 || fork() >= 0)
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
