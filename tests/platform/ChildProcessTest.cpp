// SPDX-License-Identifier: MIT
#include "platform/ChildProcess.h"

#include <gtest/gtest.h>

#include <cerrno>

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

TEST(AChildProcess, ThatCantBeRunEndsAsInAShellIfNobodyWaitedForItsProgram)
{
    ChildSettings settings;
    settings.waitsForProgram = false;
    ChildProcess child;
    EXPECT_TRUE(child.Start({"/nowhere/program"}, settings));
    EXPECT_FALSE(child.Finish());
    EXPECT_EQ(127, child.ExitStatus());
    EXPECT_EQ("/nowhere/program failed with exit status 127", child.error);
}

TEST(AChildProcess, RunsAllTheSameIfNobodyWaitedForItsProgram)
{
    ChildSettings settings;
    settings.waitsForProgram = false;
    ChildProcess child;
    ASSERT_TRUE(child.Start({"sh", "-c", "echo here"}, settings));
    EXPECT_TRUE(child.Finish()) << child.error;
    EXPECT_EQ("here\n", child.Output());
}
