// SPDX-License-Identifier: MIT
#include "platform/ChildProcess.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <string>

using platform::ChildProcess;
using platform::ChildSettings;

TEST(AChildProcess, ThatCantBeRunIsToldAtTheStart)
{
    ChildProcess child;
    EXPECT_FALSE(child.Start({"/nowhere/program"}));
    EXPECT_EQ(ENOENT, child.cause);
    EXPECT_EQ("/nowhere/program: No such file or directory", child.error);
    EXPECT_EQ(0, child.Id());
}

TEST(AChildProcess, WithoutItsFolderIsToldAtTheStart)
{
    ChildSettings settings;
    settings.directory = "/nowhere";
    ChildProcess child;
    EXPECT_FALSE(child.Start({"true"}, settings));
    EXPECT_EQ(ENOENT, child.cause);
    EXPECT_EQ(0, child.Id());
}

// The signals are those of the test's process, which handles one, ignores one and blocks one.
class ChildWithSignals : public testing::Test
{
protected:
    ChildWithSignals()
    {
        handled = 0;
        signal(SIGTERM, [](int) { handled = handled + 1; });
        signal(SIGPIPE, SIG_IGN);
        sigset_t usr;
        sigemptyset(&usr);
        sigaddset(&usr, SIGUSR1);
        pthread_sigmask(SIG_BLOCK, &usr, &before);
    }
    ~ChildWithSignals() override
    {
        signal(SIGTERM, SIG_DFL);
        signal(SIGPIPE, SIG_DFL);
        pthread_sigmask(SIG_SETMASK, &before, nullptr);
    }

    // How a shell ends that runs this.
    static int StatusOf(const std::string& command)
    {
        ChildProcess child;
        EXPECT_TRUE(child.Start({"sh", "-c", command})) << child.error;
        child.Finish();
        return child.ExitStatus();
    }

    static volatile sig_atomic_t handled;
    sigset_t before;
};

volatile sig_atomic_t ChildWithSignals::handled = 0;

TEST_F(ChildWithSignals, EndsByThoseThatAreHandledOrIgnoredHere)
{
    EXPECT_EQ(-SIGTERM, StatusOf("kill -TERM $$; exit 3"));
    EXPECT_EQ(-SIGPIPE, StatusOf("kill -PIPE $$; exit 3"));
    EXPECT_EQ(0, handled);
}

TEST_F(ChildWithSignals, LeavesThoseOfThisProcessAsTheyWere)
{
    EXPECT_EQ(0, StatusOf("true"));
    sigset_t now;
    pthread_sigmask(SIG_SETMASK, nullptr, &now);
    EXPECT_EQ(1, sigismember(&now, SIGUSR1));
    EXPECT_EQ(0, sigismember(&now, SIGUSR2));
    raise(SIGTERM);
    raise(SIGPIPE);
    EXPECT_EQ(1, handled);
}
