// SPDX-License-Identifier: MIT
// The start of a process of the show, which a thread sees to. A gate on the thread stands for a machine that is busy.
#include "tools/edit/ShowProcess.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <future>

#include <unistd.h>

using edit::ShowProcess;

namespace fs = std::filesystem;

class StartedShow : public testing::Test
{
protected:
    // A program that does nothing, whatever it is told.
    StartedShow() : program(testing::TempDir() + "marlinex-idle-" + std::to_string(getpid()))
    {
        std::ofstream(program) << "#!/bin/sh\nexec sleep 1000\n";
        fs::permissions(program, fs::perms::owner_all);
        settings.width = settings.height = 8;
    }
    ~StartedShow() override { unlink(program.c_str()); }

    bool Start(const std::string& what) { return process.Start(what, settings, 0, "", 1, &reason); }
    void StopThread()
    {
        thread.Do(nullptr, [this] { gate.get_future().wait(); }, {});
    }
    bool EndsBefore(int looks)
    {
        for (int i = 0; i < looks && !process.IsGone(); i++) {
            process.Poll(0, &news);
            usleep(1000);
        }
        return process.IsGone();
    }

    const std::string program;
    edit::ShowSettings settings;
    std::string reason;
    std::promise<void> gate;
    edit::DiskThread thread;
    ShowProcess process{&thread};
    std::vector<edit::ShowNews> news;
};

TEST_F(StartedShow, IsNotWaitedFor)
{
    StopThread();
    ASSERT_TRUE(Start(program)) << reason;
    process.Play(5, 0, 5, true);
    process.Poll(0, &news);
    process.Poll(100, &news);
    EXPECT_FALSE(process.IsGone());
    EXPECT_FALSE(process.HasHung()) << "it has not begun yet";
    EXPECT_EQ(0, process.Id());
    EXPECT_EQ(0u, process.MemoryInUse().own);
    EXPECT_EQ(-1, process.Position());
    gate.set_value();
    thread.Finish();
    EXPECT_NE(0, process.Id());
    EXPECT_EQ(0, kill(process.Id(), 0));
}

TEST_F(StartedShow, ThatIsNoLongerWantedEndsAsSoonAsItRuns)
{
    StopThread();
    ASSERT_TRUE(Start(program)) << reason;
    process.Kill();
    EXPECT_FALSE(process.IsGone());
    gate.set_value();
    thread.Finish();
    EXPECT_TRUE(EndsBefore(20000));
    EXPECT_EQ(-SIGKILL, process.ExitStatus());
    EXPECT_TRUE(process.WasKilled());
}

TEST_F(StartedShow, WhoseProgramCantBeRunIsGoneWithTheReason)
{
    ASSERT_TRUE(Start("/nowhere/program"));
    thread.Finish();
    EXPECT_TRUE(process.IsGone());
    EXPECT_EQ(127, process.ExitStatus());
    EXPECT_EQ("/nowhere/program: No such file or directory", process.LastWords());
    EXPECT_FALSE(process.WasKilled());
}
