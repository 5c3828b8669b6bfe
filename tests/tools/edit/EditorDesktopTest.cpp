// SPDX-License-Identifier: MIT
// The editor in a real window, with keys and a pointer. What it did is seen in its title, in the script, and in the
// settings that it leaves.
#include "tests/Folders.h"
#include "tests/support/ReadFile.h"
#include "tests/support/desktop/DesktopFixture.h"
#include "tests/support/desktop/ShowFolder.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <csignal>
#include <filesystem>

static const Pixel paper = {0xef, 0xe6, 0xd2};
static const Pixel ochre = {0xc8, 0x82, 0x2a}; // the button that Enter presses

static const char* const script = "# a flash over a minute #\n"
                                  "[EFFECT]\nEffectName=WhiteFlashOverlay;\nStartTime=0;\nStopTime=120000;\n"
                                  "LayerID=9;\n\n"
                                  "[MESSAGE]\nMessageText=flash;\nActivationTime=1000;\n"
                                  "TargetEffect=WhiteFlashOverlay;\nParameter=2.00;\n";

class EditorDesktop : public DesktopFixture
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(desktop.Start(1400, 1000)); // room for the window and its frame
        folder.Write("night.txt", script);
        UseHome();
    }

    void UseHome()
    {
        desktop.ownEnvironment.push_back("XDG_CONFIG_HOME=" + folder.path + "/config");
        desktop.ownEnvironment.push_back("XDG_STATE_HOME=" + folder.path + "/state");
    }

    void Open(bool namesScript = true)
    {
        std::vector<std::string> arguments = {"--size=160x120", "--rate=10", "--data=" SOURCE_DIR "/Data"};
        if (namesScript)
            arguments.push_back(folder.path + "/night.txt");
        program = desktop.Run("marlinex-edit", arguments);
        ASSERT_NE(nullptr, program);
        window = desktop.WaitForFocusedWindow("night.txt - marlinex-edit");
        ASSERT_NE(0u, window) << program->Errors();
        // A question at the start dims it.
        ASSERT_TRUE(WaitUntil([&] { return CountPaper() > 20000 || CountQuestion() > 1500; }))
            << "no timeline";
    }

    // The timeline is drawn on paper, as is the sheet of keys.
    int CountPaper() { return desktop.Capture(window).Count(paper, 12); }
    // The main button of a question.
    int CountQuestion() { return desktop.Capture(window).Count(300, 250, 680, 500, ochre, 3); }

    bool HasTitle(const std::string& title)
    {
        return WaitUntil([&] { return desktop.Title(window) == title; });
    }
    bool IsModified() { return HasTitle("* night.txt - marlinex-edit"); }
    bool IsUnmodified() { return HasTitle("night.txt - marlinex-edit"); }

    std::string Script() { return ReadFile(folder.path + "/night.txt"); }

    // Leaves without a question, and gives back where the play head was.
    double PlayheadAtEnd()
    {
        desktop.Key("ctrl+q");
        EXPECT_TRUE(program->WaitForExit());
        EXPECT_EQ(0, program->ExitStatus()) << program->Errors();
        rapidjson::Document settings;
        settings.Parse(ReadFile(folder.path + "/config/marlinex/edit.json").c_str());
        if (settings.HasParseError() || !settings.HasMember("scripts") || settings["scripts"].Empty())
            return -1;
        return settings["scripts"][0]["playhead"].GetDouble();
    }

    // A question is open: its main button is there.
    bool HasQuestion(bool wanted)
    {
        return WaitUntil([&] { return (CountQuestion() > 1500) == wanted; });
    }
    // Presses a button of the row, 0 being the main one.
    void PressButton(int number)
    {
        const Screenshot shot = desktop.Capture(window);
        for (int y = 250; y < 750; y++)
            for (int x = 300; x < 980; x++)
                if (shot.Count(x, y, 40, 10, ochre, 3) == 400)
                    return desktop.Click(window, x + 10 + 138 * number, y + 8);
        FAIL() << "no question";
    }

    ShowFolder folder;
    Process* program = nullptr;
    WindowId window = 0;
};

TEST_F(EditorDesktop, OpensTheScriptInAWindowOnTheScreen)
{
    Open();
    const WindowPlace place = desktop.Place(window);
    EXPECT_GE(place.x, 0);
    EXPECT_EQ(1280, place.width);
    EXPECT_EQ(800, place.height);
    EXPECT_TRUE(desktop.IsDecorated(window));
    EXPECT_EQ(0, PlayheadAtEnd());
    EXPECT_EQ(script, Script());
}

TEST_F(EditorDesktop, PlaysAndStopsWithTheSpaceBar)
{
    Open();
    desktop.Key("space");
    const Screenshot before = desktop.Capture(window);
    EXPECT_TRUE(WaitUntil([&] { return !(desktop.Capture(window) == before); }));
    desktop.Key("space");
    const double playhead = PlayheadAtEnd();
    EXPECT_GT(playhead, 0);
    EXPECT_LT(playhead, 60);
}

TEST_F(EditorDesktop, StepsByFramesBeatsAndBars)
{
    Open();
    desktop.Key("ctrl+Right");  // 1.8
    desktop.Key("ctrl+Right");  // 3.6
    desktop.Key("shift+Right"); // 4.2
    desktop.Key("Right");       // 4.3, a frame of ten a second
    desktop.Key("Right");
    desktop.Key("Left");
    EXPECT_NEAR(4.3, PlayheadAtEnd(), 1e-6);
}

TEST_F(EditorDesktop, GoesToTheEndAndBack)
{
    Open();
    desktop.Key("End");
    desktop.Key("Left");
    EXPECT_NEAR(119.8, PlayheadAtEnd(), 1e-6);
    Open();
    desktop.Key("Home");
    EXPECT_EQ(0, PlayheadAtEnd());
}

TEST_F(EditorDesktop, OpensTheScriptOfTheLastTimeWhereItWasLeft)
{
    Open();
    desktop.Key("ctrl+Right");
    EXPECT_NEAR(1.8, PlayheadAtEnd(), 1e-6);
    Open(false);
    desktop.Key("Right");
    EXPECT_NEAR(1.9, PlayheadAtEnd(), 1e-6);
}

TEST_F(EditorDesktop, GoesToAMomentThatIsTyped)
{
    Open();
    desktop.Key("ctrl+g");
    ASSERT_TRUE(HasQuestion(true));
    for (const char* key : {"1", "colon", "0", "3", "period", "5", "Return"})
        desktop.Key(key);
    ASSERT_TRUE(HasQuestion(false));
    EXPECT_NEAR(63.5, PlayheadAtEnd(), 1e-6);
}

TEST_F(EditorDesktop, GoesNowhereForNonsense)
{
    Open();
    desktop.Key("ctrl+g");
    ASSERT_TRUE(HasQuestion(true));
    for (const char* key : {"x", "Return"})
        desktop.Key(key);
    EXPECT_TRUE(HasQuestion(true));
    desktop.Key("Escape");
    ASSERT_TRUE(HasQuestion(false));
    EXPECT_EQ(0, PlayheadAtEnd());
}

TEST_F(EditorDesktop, ShowsAllKeysOnASheetThatEscapeTakesAway)
{
    Open();
    const int timelineAlone = CountPaper();
    desktop.Key("F1");
    EXPECT_TRUE(WaitUntil([&] { return CountPaper() > timelineAlone + 100000; }));
    desktop.Key("Escape");
    EXPECT_TRUE(WaitUntil([&] { return CountPaper() < timelineAlone + 1000; }));
    desktop.Key("F1");
    EXPECT_TRUE(WaitUntil([&] { return CountPaper() > timelineAlone + 100000; }));
    desktop.Key("F1");
    EXPECT_TRUE(WaitUntil([&] { return CountPaper() < timelineAlone + 1000; }));
}

TEST_F(EditorDesktop, ShowsThePictureOverTheWholeScreen)
{
    Open();
    desktop.Key("F11");
    EXPECT_TRUE(WaitUntil(
        [&] { return desktop.Place(window).width == 1400 && desktop.Place(window).height == 1000; }));
    EXPECT_TRUE(WaitUntil([&] { return CountPaper() < 2000; }));
    desktop.Key("Escape");
    EXPECT_TRUE(WaitUntil([&] { return desktop.Place(window).height == 800; }));
    EXPECT_TRUE(WaitUntil([&] { return CountPaper() > 20000; }));
}

TEST_F(EditorDesktop, EditsUndoesAndSavesByKeysAlone)
{
    Open();
    desktop.Key("ctrl+a");
    desktop.Key("period"); // a millisecond later
    ASSERT_TRUE(IsModified());
    EXPECT_EQ(script, Script());
    desktop.Key("ctrl+z");
    ASSERT_TRUE(IsUnmodified());
    desktop.Key("ctrl+y");
    ASSERT_TRUE(IsModified());
    desktop.Key("ctrl+s");
    ASSERT_TRUE(IsUnmodified());
    std::string expected = script;
    for (const auto& [from, to] : {std::pair<std::string, std::string>{"StartTime=0;", "StartTime=1;"},
                                   {"StopTime=120000;", "StopTime=120001;"},
                                   {"ActivationTime=1000;", "ActivationTime=1001;"}})
        expected.replace(expected.find(from), from.size(), to);
    EXPECT_EQ(expected, Script());
    desktop.Key("ctrl+z"); // through the save
    ASSERT_TRUE(IsModified());
    desktop.Key("ctrl+s");
    ASSERT_TRUE(IsUnmodified());
    EXPECT_EQ(script, Script());
}

TEST_F(EditorDesktop, CopiesAndPastesThroughTheDesktopsClipboard)
{
    Open();
    desktop.Key("ctrl+a");
    desktop.Key("ctrl+c");
    desktop.Key("End");
    desktop.Key("ctrl+v");
    ASSERT_TRUE(IsModified());
    desktop.Key("ctrl+s");
    ASSERT_TRUE(IsUnmodified());
    EXPECT_NE(std::string::npos, Script().find("StartTime=119900;"));
}

TEST_F(EditorDesktop, HasItsCommandsInMenus)
{
    Open();
    const Screenshot before = desktop.Capture(window);
    desktop.Click(window, 102, 11); // Play
    ASSERT_TRUE(WaitUntil([&] { return !(desktop.Capture(window) == before); }));
    // The menu lies below, with Play as its first row.
    ASSERT_TRUE(WaitUntil([&] {
        return desktop.Capture(window).Count(80, 30, 240, 20, {0xef, 0xe6, 0xd2}, 60) > 20;
    }));
    desktop.Click(window, 130, 42);
    const Screenshot clicked = desktop.Capture(window);
    EXPECT_TRUE(WaitUntil([&] { return !(desktop.Capture(window) == clicked); }));
    desktop.Key("space");
    EXPECT_GT(PlayheadAtEnd(), 0);
}

TEST_F(EditorDesktop, AsksBeforeUnsavedWorkIsLost)
{
    Open();
    desktop.Key("ctrl+a");
    desktop.Key("period");
    ASSERT_TRUE(IsModified());
    desktop.Close(window);
    ASSERT_TRUE(HasQuestion(true));
    desktop.Key("Escape");
    ASSERT_TRUE(HasQuestion(false));
    EXPECT_TRUE(program->IsRunning());
    desktop.Key("ctrl+q");
    ASSERT_TRUE(HasQuestion(true));
    desktop.Key("Return"); // saves
    ASSERT_TRUE(program->WaitForExit());
    EXPECT_EQ(0, program->ExitStatus());
    EXPECT_NE(std::string::npos, Script().find("ActivationTime=1001;"));
}

TEST_F(EditorDesktop, LosesUnsavedWorkOnlyWhenToldTo)
{
    Open();
    desktop.Key("ctrl+a");
    desktop.Key("period");
    ASSERT_TRUE(IsModified());
    desktop.Key("ctrl+q");
    ASSERT_TRUE(HasQuestion(true));
    PressButton(1); // discard
    ASSERT_TRUE(program->WaitForExit());
    EXPECT_EQ(script, Script());
    Open(); // and offers nothing
    EXPECT_TRUE(HasQuestion(false));
}

TEST_F(EditorDesktop, OffersWorkThatAKillLeftUnsaved)
{
    Open();
    desktop.Key("ctrl+a");
    desktop.Key("period");
    ASSERT_TRUE(IsModified());
    const std::string state = folder.path + "/state";
    ASSERT_TRUE(WaitUntil([&] {
        // The folder comes with the first file, and unfinished files come and go in it.
        std::error_code error;
        std::filesystem::recursive_directory_iterator entry(state, error);
        for (; !error && entry != std::filesystem::recursive_directory_iterator(); entry.increment(error))
            if (entry->is_regular_file(error) && !error &&
                ReadFile(entry->path()).find("ActivationTime=1001;") != std::string::npos)
                return true;
        return false;
    }));
    program->Signal(SIGKILL);
    ASSERT_TRUE(program->WaitForExit());
    Open();
    ASSERT_TRUE(HasQuestion(true));
    desktop.Key("Return"); // recover
    ASSERT_TRUE(IsModified());
    desktop.Key("ctrl+s");
    ASSERT_TRUE(IsUnmodified());
    EXPECT_NE(std::string::npos, Script().find("ActivationTime=1001;"));
}

TEST_F(EditorDesktop, LeavesUnsavedWorkForTheNextStartWhenItIsTerminated)
{
    Open();
    desktop.Key("ctrl+a");
    desktop.Key("period");
    ASSERT_TRUE(IsModified());
    program->Signal(SIGTERM);
    ASSERT_TRUE(program->WaitForExit());
    EXPECT_EQ(128 + SIGTERM, program->ExitStatus());
    EXPECT_EQ(script, Script());
    Open();
    ASSERT_TRUE(HasQuestion(true));
    PressButton(1); // discard
    ASSERT_TRUE(HasQuestion(false));
    EXPECT_TRUE(IsUnmodified());
}

TEST_F(EditorDesktop, TakesOverWhatAnotherProgramWritesAsAStepOfUndo)
{
    Open();
    std::string other = script;
    other.replace(other.find("1000"), 4, "2500");
    folder.Write("night.txt", other);
    ASSERT_TRUE(WaitUntil([&] {
        desktop.Key("ctrl+z");
        return desktop.Title(window).starts_with("* ");
    }));
    desktop.Key("ctrl+y");
    ASSERT_TRUE(IsUnmodified());
    EXPECT_EQ(other, Script());
}

TEST_F(EditorDesktop, AsksWhenBothSidesHaveBeenChanged)
{
    Open();
    desktop.Key("ctrl+a");
    desktop.Key("period");
    ASSERT_TRUE(IsModified());
    folder.Write("night.txt", std::string(script) + "# theirs #\n");
    desktop.Key("ctrl+s");
    ASSERT_TRUE(
        WaitUntil([&] { return desktop.Capture(window).Brightness(0, 500, 1280, 250) < 0.6; })); // dimmed
    EXPECT_NE(std::string::npos, Script().find("# theirs #"));
}

TEST_F(EditorDesktop, MovesThePlayHeadWithAClickInTheRuler)
{
    Open();
    // The middle of the ruler, which is the strip of figures on top of the timeline.
    desktop.Click(window, 700, 475);
    const double playhead = PlayheadAtEnd();
    EXPECT_GT(playhead, 30);
    EXPECT_LT(playhead, 110);
}

TEST_F(EditorDesktop, ShowsThePictureWhereThePlayHeadIsBeingDragged)
{
    // A flash at the middle, which never fades.
    std::string white = script;
    white.replace(white.find("1000"), 4, "60000");
    white.replace(white.find("2.00"), 4, "0.00");
    folder.Write("night.txt", white);
    Open();
    const auto isWhite = [this](bool wanted) {
        return WaitUntil(
            [&] { return (desktop.Capture(window).Brightness(320, 120, 150, 150) > 0.8) == wanted; });
    };
    EXPECT_TRUE(isWhite(false));
    desktop.MoveMouse(window, 300, 475); // in the ruler
    desktop.MouseDown();
    for (int i = 0; i < 10; i++)
        desktop.MoveMouseBy(80, 0);
    EXPECT_TRUE(isWhite(true)) << "while the button is held";
    for (int i = 0; i < 10; i++)
        desktop.MoveMouseBy(-80, 0);
    EXPECT_TRUE(isWhite(false));
    desktop.MouseUp();
    const double playhead = PlayheadAtEnd();
    EXPECT_GT(playhead, 5);
    EXPECT_LT(playhead, 40);
    EXPECT_EQ(white, Script());
}

// On the keyboard of the test + is the = with Shift.
TEST_F(EditorDesktop, ZoomsByPlusMinusAndZero)
{
    Open();
    const auto ruler = [this] {
        const Screenshot shot = desktop.Capture(window);
        std::vector<int> pixels;
        for (int x = 200; x < 1200; x++)
            pixels.push_back(shot.At(x, 482).red);
        return pixels;
    };
    const std::vector<int> whole = ruler();
    for (const char* const key : {"plus", "equal", "KP_Add"}) {
        desktop.Key(key);
        EXPECT_TRUE(WaitUntil([&] { return ruler() != whole; })) << key;
        desktop.Key(key);
        desktop.Key("minus");
        EXPECT_TRUE(WaitUntil([&] { return ruler() != whole; })) << key;
        desktop.Key("0");
        EXPECT_TRUE(WaitUntil([&] { return ruler() == whole; })) << key;
    }
}

TEST_F(EditorDesktop, OpensAFileByItsName)
{
    folder.Write("day.txt", script);
    Open();
    desktop.Key("ctrl+o");
    ASSERT_TRUE(HasQuestion(true));
    for (const char* key : {"d", "a", "y", "period", "t", "x", "t", "Return"})
        desktop.Key(key);
    EXPECT_TRUE(HasTitle("day.txt - marlinex-edit"));
}

class DenseEditorDesktop : public EditorDesktop
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(desktop.Start(2560, 1600));
        desktop.SetDotsPerInch(192);
        folder.Write("night.txt", script);
        UseHome();
    }
};

TEST_F(DenseEditorDesktop, IsTwiceAsLargeOnADenseScreen)
{
    Open();
    // The screen has no room for 2560 by 1600 and a frame, so that it takes all there is.
    EXPECT_GT(desktop.Place(window).width, 2540);
    EXPECT_LE(desktop.Place(window).x + desktop.Place(window).width, 2560);
    EXPECT_GT(desktop.Place(window).height, 1500);
    EXPECT_LE(desktop.Place(window).y + desktop.Place(window).height, 1600);
    EXPECT_GT(CountPaper(), 100000);
    EXPECT_EQ(0, PlayheadAtEnd());
}
