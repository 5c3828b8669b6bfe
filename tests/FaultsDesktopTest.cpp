// SPDX-License-Identifier: MIT
// What becomes of the program and of the desktop when a signal or the end of the X server comes at any
// moment: while the form is up, while the show loads, and while it plays in full screen.
//
// MARLINEX_SOAK multiplies the number of moments that are tried; without it they take some seconds.
#include "tests/support/desktop/DesktopFixture.h"
#include "tests/support/desktop/ShowFolder.h"

#include <csignal>
#include <cstdlib>
#include <random>
#include <unistd.h>

enum Phase { Form, Loading, Playing };
static const Phase phases[] = {Form, Loading, Playing};
static const char* const phaseNames[] = {"form", "loading", "playing"};

// Two effects, so that loading takes two seconds at least, and a show that is still there at the end of each
// wait.
static const char* const script =
    "[EFFECT] EffectName=WhiteFlashOverlay; StartTime=0; StopTime=600000; LayerID=1;\n"
    "[EFFECT] EffectName=BlackFlashOverlay; StartTime=0; StopTime=600000; LayerID=2;\n";

class Faults : public DesktopFixture
{
protected:
    void SetUp() override
    {
        DesktopFixture::SetUp(); // 1280 by 1024
        ASSERT_TRUE(desktop.AddMode(1024, 768));
        ASSERT_TRUE(folder.CopyData("loading.jpg"));
        folder.Write("Data/script.txt", script);
    }

    // Starts the program and brings it into the phase, and some random way into it.
    void RunInto(Phase phase)
    {
        program = desktop.Run("moonwaltz", {}, folder.path);
        ASSERT_NE(nullptr, program);
        ASSERT_NE(0u, desktop.WaitForFocusedWindow("")) << program->Errors();
        if (phase != Form) {
            desktop.Key("Return");
            ASSERT_TRUE(WaitUntil([&] { return desktop.Mode() == "1024x768"; })) << program->Errors();
        }
        if (phase == Playing) {
            ASSERT_TRUE(WaitUntil([&] { return desktop.FindWindowStarting("FPS: ") != 0; }));
        }
        usleep(std::uniform_int_distribution<unsigned>(0, latest)(random));
    }

    static int Rounds()
    {
        const char* const soak = getenv("MARLINEX_SOAK");
        return soak ? atoi(soak) : 1;
    }

    // Each round in each phase, on one desktop.
    void SendAtRandomMoments(int signal)
    {
        for (int round = 0; round < Rounds(); ++round)
            for (const Phase phase : phases) {
                SCOPED_TRACE(phaseNames[phase]);
                ASSERT_NO_FATAL_FAILURE(RunInto(phase));
                program->Signal(signal);
                ASSERT_TRUE(program->WaitForExit()) << "it goes on";
                const int status = program->ExitStatus();
                EXPECT_TRUE(status == 0 || status == -signal) << status;
                EXPECT_EQ("", program->Errors());
                EXPECT_TRUE(WaitUntil([&] { return desktop.Mode() == "1280x1024"; })) << desktop.Mode();
            }
    }

    // The program ends by itself when its X server has gone, and not by a signal of its own making.
    void EndServerIn(Phase phase)
    {
        ASSERT_NO_FATAL_FAILURE(RunInto(phase));
        desktop.KillServer();
        ASSERT_TRUE(program->WaitForExit()) << "it goes on";
        EXPECT_GE(program->ExitStatus(), 0);
    }

    const unsigned latest = 700000; // microseconds into a phase
    std::mt19937 random{2026};
    ShowFolder folder;
    Process* program = nullptr;
};

TEST_F(Faults, AHangUpEndsTheProgramAndTheDesktopHasItsModeBack)
{
    SendAtRandomMoments(SIGHUP);
}
TEST_F(Faults, ATerminationEndsTheProgramAndTheDesktopHasItsModeBack)
{
    SendAtRandomMoments(SIGTERM);
}
TEST_F(Faults, AnInterruptEndsTheProgramAndTheDesktopHasItsModeBack)
{
    SendAtRandomMoments(SIGINT);
}

TEST_F(Faults, WithoutItsXServerTheFormEnds)
{
    EndServerIn(Form);
}
TEST_F(Faults, WithoutItsXServerTheLoadEnds)
{
    EndServerIn(Loading);
}
TEST_F(Faults, WithoutItsXServerTheShowEnds)
{
    EndServerIn(Playing);
}
