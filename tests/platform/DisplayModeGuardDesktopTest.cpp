// SPDX-License-Identifier: MIT
// The desktop has its mode back however a full-screen program ends.
#include "platform/DisplayModeGuard.h"

#include "tests/support/desktop/DesktopFixture.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fstream>
#include <iterator>

class DisplayModeGuard : public DesktopFixture
{
protected:
    void SetUp() override
    {
        DesktopFixture::SetUp(); // 1280 by 1024
        ASSERT_TRUE(desktop.AddMode(1024, 768));
        ASSERT_TRUE(desktop.AddMode(800, 600));
        ASSERT_EQ("1280x1024", desktop.Mode());
    }
    void GoFullScreen()
    {
        program = desktop.Run("FullScreenProgram", {"1024", "768"});
        ASSERT_NE(nullptr, program);
        ASSERT_TRUE(program->WaitForOutput("up\n")) << program->Errors();
        ASSERT_TRUE(WaitForMode("1024x768"));
    }
    bool WaitForMode(const std::string& mode)
    {
        return WaitUntil([&] { return desktop.Mode() == mode; });
    }
    void ExpectTheDesktopsModeAfter(int signal)
    {
        GoFullScreen();
        program->Signal(signal);
        ASSERT_TRUE(program->WaitForExit());
        EXPECT_EQ(-signal, program->ExitStatus());
        EXPECT_TRUE(WaitForMode("1280x1024")) << desktop.Mode();
    }

    Process* program = nullptr;
};

TEST_F(DisplayModeGuard, GivesTheModeBackAfterAHangUp)
{
    ExpectTheDesktopsModeAfter(SIGHUP);
}
TEST_F(DisplayModeGuard, GivesTheModeBackAfterABrokenPipe)
{
    ExpectTheDesktopsModeAfter(SIGPIPE);
}
TEST_F(DisplayModeGuard, GivesTheModeBackAfterACrash)
{
    ExpectTheDesktopsModeAfter(SIGILL); // which no sanitizer turns into an exit of its own
}
TEST_F(DisplayModeGuard, GivesTheModeBackAfterAKill)
{
    ExpectTheDesktopsModeAfter(SIGKILL);
}

TEST_F(DisplayModeGuard, LeavesARunThatEndsByItselfAloneFromThenOn)
{
    GoFullScreen();
    program->Signal(SIGTERM); // a quit, which the program acts on
    ASSERT_TRUE(program->WaitForOutput("closed\n"));
    EXPECT_TRUE(WaitForMode("1280x1024"));
    ASSERT_TRUE(desktop.SetMode(800, 600));
    program->Signal(SIGKILL);
    ASSERT_TRUE(program->WaitForExit());
    // A guard that still were there would act within this time.
    EXPECT_FALSE(WaitUntil([&] { return desktop.Mode() != "800x600"; }, 1.0));
}

class DisplayModeGuardInProcess : public DesktopFixture
{
protected:
    void SetUp() override
    {
        DesktopFixture::SetUp();
        for (const std::string& row : desktop.Environment())
            if (row.rfind("DISPLAY=", 0) == 0)
                setenv("DISPLAY", row.c_str() + 8, 1);
    }
};

TEST_F(DisplayModeGuardInProcess, HoldsNoFileOfTheProcessOpen)
{
    int ends[2];
    ASSERT_EQ(0, pipe(ends));
    platform::StartDisplayModeGuard();
    close(ends[1]);
    char byte;
    EXPECT_EQ(0, read(ends[0], &byte, 1)) << "nobody else has the other end";
    platform::EndDisplayModeGuard();
}

TEST_F(DisplayModeGuardInProcess, IsNoChildThatTheProcessWouldHaveToWaitFor)
{
    platform::StartDisplayModeGuard();
    const std::string children = "/proc/self/task/" + std::to_string(getpid()) + "/children";
    std::ifstream file(children);
    std::string list((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    int processes = int(std::count(list.begin(), list.end(), ' '));
    EXPECT_EQ(2, processes) << "the X server and the window manager: " << list;
    platform::EndDisplayModeGuard();
}

TEST(DisplayModeGuardAlone, WithoutADisplayThereIsNone)
{
    setenv("DISPLAY", ":4711", 1);
    platform::StartDisplayModeGuard();
    platform::EndDisplayModeGuard();
    EXPECT_EQ(-1, waitpid(-1, nullptr, WNOHANG));
    EXPECT_EQ(ECHILD, errno);
}
