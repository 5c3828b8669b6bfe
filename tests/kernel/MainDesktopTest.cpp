// SPDX-License-Identifier: MIT
// The whole program as a viewer meets it: from the form to the end of a show.
#include "tests/support/desktop/DesktopFixture.h"
#include "tests/support/desktop/ShowFolder.h"

#include <algorithm>
#include <csignal>

// What the white overlay adds at its peak, 0.9, over black; drivers round either way.
static const Pixel flashed = {0xe6, 0xe6, 0xe6};

// From the start white at its peak, frozen by the parameter 0, and from four seconds on black in front of it.
// (The last character of a parameter is lost, hence the zeros.)
static const char* const flashes =
    "[EFFECT] EffectName=WhiteFlashOverlay; StartTime=0; StopTime=6000; LayerID=1;\n"
    "[EFFECT] EffectName=BlackFlashOverlay; StartTime=0; StopTime=6000; LayerID=2;\n"
    "[MESSAGE] MessageText=flash; ActivationTime=100;\n"
    "          TargetEffect=WhiteFlashOverlay; Parameter=0.00;\n"
    "[MESSAGE] MessageText=flash; ActivationTime=4000;\n"
    "          TargetEffect=BlackFlashOverlay; Parameter=0.00;\n";

class MainDesktop : public DesktopFixture
{
protected:
    void SetUp() override { ASSERT_TRUE(desktop.Start(1024, 768)); }

    void Start(const std::string& script)
    {
        ASSERT_TRUE(folder.CopyData("loading.jpg"));
        if (!script.empty())
            folder.Write("Data/script.txt", script);
        program = desktop.Run("moonwaltz", {}, folder.path);
        ASSERT_NE(nullptr, program);
        ASSERT_NE(0u, desktop.WaitForFocusedWindow("")) << program->Errors();
    }

    // "Go" on 640 by 480 in a window.
    void GoInAWindow()
    {
        for (const char* key : {"Tab", "Down", "Tab", "space", "Return"})
            desktop.Key(key);
    }

    bool ShowIsUp()
    {
        return WaitUntil([&] { return (show = desktop.FindWindowStarting("FPS: ")) != 0; });
    }

    // The picture's middle is all of that colour.
    bool Shows(Pixel colour)
    {
        return WaitUntil([&] {
            const Screenshot shot = desktop.Capture(show);
            return shot.width > 0 &&
                   shot.Count(shot.width / 4, shot.height / 4, shot.width / 2, shot.height / 2, colour, 1) ==
                       (shot.width / 2) * (shot.height / 2);
        });
    }

    bool EndsWell()
    {
        EXPECT_TRUE(program->WaitForExit());
        EXPECT_EQ("", program->Output());
        EXPECT_EQ("", program->Errors());
        return program->ExitStatus() == 0;
    }

    ShowFolder folder;
    Process* program = nullptr;
    WindowId show = 0;
};

TEST(MainWithoutDesktop, WithoutADisplayOneLineSaysSoAndTheStatusIsOne)
{
    for (const char* display : {"DISPLAY", "DISPLAY=", "DISPLAY=:4711"}) {
        Process program;
        ASSERT_TRUE(program.Start({BINARY_DIR "/moonwaltz"}, {display, "WAYLAND_DISPLAY"}));
        ASSERT_TRUE(program.WaitForExit());
        EXPECT_EQ(1, program.ExitStatus());
        EXPECT_EQ("", program.Output());
        const std::string errors = program.Errors();
        ASSERT_FALSE(errors.empty());
        EXPECT_EQ(1, std::count(errors.begin(), errors.end(), '\n')) << errors;
        EXPECT_EQ('\n', errors.back());
    }
}

TEST_F(MainDesktop, LeavingTheFormEndsWithStatusZero)
{
    Start(flashes);
    desktop.Key("Escape");
    EXPECT_TRUE(EndsWell());
}

TEST_F(MainDesktop, AShowPlaysInAWindowFromTheFormToItsNaturalEnd)
{
    Start(flashes);
    GoInAWindow();
    ASSERT_TRUE(ShowIsUp());
    const WindowPlace place = desktop.Place(show);
    EXPECT_EQ(640, place.width);
    EXPECT_EQ(480, place.height);
    EXPECT_EQ((1024 - 640) / 2, place.x);
    EXPECT_EQ((768 - 480) / 2, place.y);
    EXPECT_FALSE(desktop.IsDecorated(show));
    EXPECT_TRUE(Shows(flashed));
    EXPECT_EQ(std::string::npos, desktop.Title(show).find_first_not_of("0123456789", 5))
        << desktop.Title(show);
    EXPECT_TRUE(Shows({0, 0, 0}));
    EXPECT_TRUE(program->IsRunning());
    EXPECT_TRUE(EndsWell());
}

TEST_F(MainDesktop, AShowFillsTheScreenAndEscapeEndsIt)
{
    Start(flashes);
    desktop.Key("Return");
    ASSERT_TRUE(ShowIsUp());
    EXPECT_TRUE(
        WaitUntil([&] { return desktop.Place(show).width == 1024 && desktop.Place(show).height == 768; }));
    EXPECT_TRUE(Shows(flashed));
    desktop.Key("a");
    EXPECT_TRUE(program->IsRunning());
    desktop.Key("Escape");
    EXPECT_TRUE(EndsWell());
}

TEST_F(MainDesktop, ACloseRequestDoesNotEndTheShowButASignalDoes)
{
    Start("[EFFECT] EffectName=WhiteFlashOverlay; StartTime=0; StopTime=60000; LayerID=1;\n"
          "[MESSAGE] MessageText=flash; ActivationTime=0; TargetEffect=WhiteFlashOverlay; Parameter=0.00;\n");
    GoInAWindow();
    ASSERT_TRUE(ShowIsUp());
    EXPECT_TRUE(Shows(flashed));
    desktop.Close(show);
    EXPECT_FALSE(program->WaitForExit(0.5));
    EXPECT_TRUE(Shows(flashed));
    program->Signal(SIGTERM);
    EXPECT_TRUE(EndsWell());
}

TEST_F(MainDesktop, AMissingScriptIsToldAboveTheFullScreenAndEndsTheRun)
{
    Start("");
    desktop.Key("Return");
    ASSERT_NE(0u, desktop.WaitForFocusedWindow("Marlinex 1.5 Error: File Not Found!"));
    desktop.Key("Return");
    EXPECT_TRUE(EndsWell());
}

TEST_F(MainDesktop, ABadEntryIsToldAndTheRestOfTheShowPlays)
{
    Start(std::string("[EFFECT] EffectName=NoSuchEffect; StartTime=0; StopTime=9000; LayerID=3;\n"
                      "[EFFECT] EffectName=WhiteFlashOverlay; StartTime=0;\n") +
          flashes);
    desktop.Key("Return");
    ASSERT_NE(0u, desktop.WaitForFocusedWindow("Marlinex 1.5 Error: Init"));
    desktop.Key("Return");
    ASSERT_NE(0u, desktop.WaitForFocusedWindow("Marlinex 1.5 Information: Script Parser"));
    desktop.Key("Escape");
    ASSERT_TRUE(ShowIsUp());
    EXPECT_TRUE(Shows(flashed));
    desktop.Key("Escape");
    EXPECT_TRUE(EndsWell());
}
