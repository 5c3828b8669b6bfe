// SPDX-License-Identifier: MIT
#include "tests/support/desktop/DesktopFixture.h"

#include <algorithm>
#include <csignal>

static const Pixel amber = {0xf0, 0xb0, 0x50};
static const Pixel rust = {0x8a, 0x3b, 0x1e};
static const Pixel bone = {0xef, 0xe6, 0xd2};
static const Pixel showColour = {0x40, 0x20, 0x10}; // of MessageBoxProgram's window

static const int margin = 22; // of the box, and the button's size
static const int buttonWidth = 92, buttonHeight = 28;
static const int lineHeight = 19;

class MessageBoxDesktop : public DesktopFixture
{
protected:
    void Run(std::vector<std::string> arguments)
    {
        program = desktop.Run("MessageBoxProgram", arguments);
        ASSERT_NE(nullptr, program);
    }

    // Waits for a box that has the keyboard and is drawn.
    WindowId WaitForBox(const std::string& caption)
    {
        const WindowId box = desktop.WaitForFocusedWindow(caption);
        EXPECT_NE(0u, box) << caption << "\n" << program->Output() << program->Errors();
        EXPECT_TRUE(WaitUntil([&] { return desktop.Capture(box).Count(amber, 8) > 500; })) << caption;
        return box;
    }

    bool SaysClosed(const std::string& caption) { return program->WaitForOutput("closed " + caption + "\n"); }

    bool HasState(WindowId box, const std::string& state)
    {
        const std::vector<std::string> states = desktop.States(box);
        return std::count(states.begin(), states.end(), state) == 1;
    }

    void ClickOk(WindowId box)
    {
        const WindowPlace place = desktop.Place(box);
        desktop.Click(box, place.width - margin - buttonWidth / 2, place.height - margin - buttonHeight / 2);
        desktop.MoveMouse(0, 0, 0); // the next box may have its button there
    }

    // The box must be all on the screen, and no letter in its margins.
    void ExpectTextInsideOf(WindowId box)
    {
        const WindowPlace place = desktop.Place(box);
        EXPECT_GE(place.x, 0);
        EXPECT_GE(place.y, 0);
        EXPECT_LE(place.x + place.width, desktop.width);
        EXPECT_LE(place.y + place.height, desktop.height);
        const Screenshot shot = desktop.Capture(box);
        EXPECT_EQ(0, shot.Count(place.width - margin, 0, margin, place.height, bone, 100));
        EXPECT_GT(shot.Count(0, 0, place.width - margin, place.height - 70, bone, 40), 30);
    }

    Process* program = nullptr;
};

TEST_F(MessageBoxDesktop, HasItsCaptionAsTitleInTheMiddleOfTheScreen)
{
    Run({"error", "Marlinex 1.5 Error: Window", "Bad: no glass"});
    const WindowId box = WaitForBox("Marlinex 1.5 Error: Window");
    EXPECT_EQ("Marlinex 1.5 Error: Window", desktop.Title(box));
    EXPECT_TRUE(desktop.IsDecorated(box));
    EXPECT_TRUE(HasState(box, "_NET_WM_STATE_ABOVE"));
    EXPECT_FALSE(HasState(box, "_NET_WM_STATE_SKIP_TASKBAR"));
    EXPECT_EQ(0u, desktop.Owner(box));
    const WindowPlace place = desktop.Place(box);
    EXPECT_NEAR(1280 / 2, place.x + place.width / 2, 3);
    EXPECT_NEAR(1024 / 2, place.y + place.height / 2, 30);
}

TEST_F(MessageBoxDesktop, AnErrorShowsTheErrorIconAndAnInformationTheInformationIcon)
{
    Run({"error", "first", "x", "info", "second", "x"});
    WindowId box = WaitForBox("first");
    Screenshot shot = desktop.Capture(box);
    EXPECT_GT(shot.Count(margin, margin, 40, 40, rust, 8), 500);
    EXPECT_EQ(0, shot.Count(margin, margin, 40, 40, amber, 8));
    desktop.Key("Return");
    ASSERT_TRUE(SaysClosed("first"));
    box = WaitForBox("second");
    shot = desktop.Capture(box);
    EXPECT_GT(shot.Count(margin, margin, 40, 40, amber, 8), 500);
    EXPECT_EQ(0, shot.Count(margin, margin, 40, 40, rust, 8));
}

TEST_F(MessageBoxDesktop, ClosesByOkEnterEscapeSpaceAndTheWindowManager)
{
    Run({"error", "by OK", "x", "error", "by Enter", "x", "error", "by Escape", "x", "error", "by space", "x",
         "error", "by the other Enter", "x", "error", "by the window manager", "x"});
    ClickOk(WaitForBox("by OK"));
    EXPECT_TRUE(SaysClosed("by OK"));
    for (const auto& [caption, key] :
         {std::pair("by Enter", "Return"), std::pair("by Escape", "Escape"), std::pair("by space", "space"),
          std::pair("by the other Enter", "KP_Enter")}) {
        WaitForBox(caption);
        desktop.Key(key);
        EXPECT_TRUE(SaysClosed(caption));
    }
    desktop.Close(WaitForBox("by the window manager"));
    EXPECT_TRUE(SaysClosed("by the window manager"));
    EXPECT_TRUE(program->WaitForExit());
    EXPECT_EQ(0, program->ExitStatus());
    EXPECT_EQ("", program->Errors());
}

TEST_F(MessageBoxDesktop, OtherKeysAndClicksLeaveItUp)
{
    Run({"error", "stays", "x"});
    const WindowId box = WaitForBox("stays");
    for (const char* key : {"a", "Tab", "Down", "End", "F1"})
        desktop.Key(key);
    desktop.Click(box, 40, 40);
    const WindowPlace place = desktop.Place(box);
    const int okX = place.width - margin - 10, okY = place.height - margin - 10;
    desktop.Drag(box, okX, okY, 100, 100);
    desktop.Drag(box, 100, 100, okX, okY);
    EXPECT_FALSE(desktop.WaitUntilGone(box, 0.3));
    desktop.Key("Return");
    EXPECT_TRUE(SaysClosed("stays"));
}

TEST_F(MessageBoxDesktop, ComesUpAboveAFullScreenWindowWithTheKeyboardAndGivesItBack)
{
    Run({"--show", "error", "on top", "Bad: news", "info", "again", "Info: more"});
    for (const char* caption : {"on top", "again"}) {
        const WindowId box = WaitForBox(caption);
        const WindowId show = desktop.FindWindow("show");
        ASSERT_NE(0u, show);
        EXPECT_EQ(1280, desktop.Place(show).width);
        EXPECT_EQ(show, desktop.Owner(box));
        EXPECT_TRUE(HasState(box, "_NET_WM_STATE_MODAL"));
        EXPECT_TRUE(HasState(show, "_NET_WM_STATE_FULLSCREEN"));
        // All of the box is to be seen, and the show round it.
        EXPECT_EQ(0, desktop.Capture(box).Count(showColour, 0));
        EXPECT_GT(desktop.Capture().Count(showColour, 0), 1280 * 1024 / 2);
        desktop.Key("Return");
        EXPECT_TRUE(SaysClosed(caption));
    }
    EXPECT_TRUE(program->WaitForExit());
    EXPECT_EQ(0, program->ExitStatus());
    EXPECT_EQ("", program->Errors());
}

TEST_F(MessageBoxDesktop, AClosedBoxLeavesNoTraceOnTheStandingShow)
{
    Run({"--show", "error", "large", std::string(400, 'x'), "info", "small", "x"});
    const WindowPlace large = desktop.Place(WaitForBox("large"));
    desktop.Key("Return");
    const WindowPlace small = desktop.Place(WaitForBox("small"));
    ASSERT_LT(large.x + 10, small.x);
    EXPECT_TRUE(WaitUntil([&] {
        return desktop.Capture().Brightness(large.x, large.y, small.x - large.x - 5, large.height) == 0;
    }));
}

TEST_F(MessageBoxDesktop, ComesUpAboveAShowInAWindow)
{
    Run({"--window", "error", "on top", "Bad: news"});
    const WindowId box = WaitForBox("on top");
    EXPECT_EQ(desktop.FindWindow("show"), desktop.Owner(box));
    EXPECT_EQ(0, desktop.Capture(box).Count(showColour, 0));
}

TEST_F(MessageBoxDesktop, AnInterruptEndsTheBoxOfARunningShow)
{
    for (int signal : {SIGINT, SIGTERM}) {
        Run({"--show", "error", "waits", "x"});
        WaitForBox("waits");
        program->Signal(signal);
        EXPECT_TRUE(SaysClosed("waits"));
        EXPECT_TRUE(program->WaitForExit());
    }
}

TEST_F(MessageBoxDesktop, AKeyThatWasHeldBeforehandDoesNotCloseWhatCameUp)
{
    Run({"error", "first", "x", "error", "second", "x"});
    WaitForBox("first");
    desktop.KeyDown("Return");
    EXPECT_TRUE(SaysClosed("first"));
    const WindowId second = WaitForBox("second");
    EXPECT_FALSE(desktop.WaitUntilGone(second, 1.5)); // the key repeats all the while
    desktop.KeyUp("Return");
    desktop.Key("Return");
    EXPECT_TRUE(SaysClosed("second"));
}

TEST_F(MessageBoxDesktop, ALongLineWrapsInsideOfTheScreen)
{
    std::string words, path = "/usr";
    for (int i = 0; i < 60; ++i)
        words += "word" + std::to_string(i) + " ";
    for (int i = 0; i < 60; ++i)
        path += "/folder" + std::to_string(i);
    Run({"error", "words", words, "error", "path", path, "error", "letters", std::string(900, 'w')});
    for (const char* caption : {"words", "path", "letters"}) {
        const WindowId box = WaitForBox(caption);
        ExpectTextInsideOf(box);
        EXPECT_GT(desktop.Place(box).height, 2 * margin + buttonHeight + 5 * lineHeight);
        desktop.Key("Return");
        EXPECT_TRUE(SaysClosed(caption));
    }
}

TEST_F(MessageBoxDesktop, ATextLongerThanTheScreenScrolls)
{
    std::string text;
    for (int i = 0; i < 300; ++i)
        text += "line " + std::to_string(i) + "\n";
    Run({"error", "long", text});
    const WindowId box = WaitForBox("long");
    ExpectTextInsideOf(box);
    EXPECT_LE(desktop.Place(box).height, 1024 * 0.8);
    EXPECT_GT(desktop.Place(box).height, 1024 * 0.7);

    const auto changes = [&](const Screenshot& before) {
        return WaitUntil([&] { return !(desktop.Capture(box) == before); });
    };
    const auto becomes = [&](const Screenshot& wanted) {
        return WaitUntil([&] { return desktop.Capture(box) == wanted; });
    };
    const Screenshot top = desktop.Capture(box);
    desktop.Key("Down");
    EXPECT_TRUE(changes(top));
    const Screenshot second = desktop.Capture(box);
    desktop.Key("Page_Down");
    EXPECT_TRUE(changes(second));
    desktop.Key("Page_Up");
    EXPECT_TRUE(becomes(second));
    desktop.Key("Up");
    EXPECT_TRUE(becomes(top));
    desktop.Key("Up");
    desktop.Key("End");
    EXPECT_TRUE(changes(top));
    const Screenshot end = desktop.Capture(box);
    desktop.Key("Page_Down");
    desktop.Key("Home");
    EXPECT_TRUE(becomes(top));

    desktop.MouseWheel(box, 1);
    EXPECT_TRUE(changes(top));
    desktop.MouseWheel(box, -1);
    EXPECT_TRUE(becomes(top));

    // The scroller stands at the right margin, its slider at the top: pulled all the way down it shows the
    // end.
    const WindowPlace place = desktop.Place(box);
    const int x = place.width - margin - 4;
    desktop.MoveMouse(box, x, margin + 5);
    desktop.MouseDown();
    desktop.MoveMouse(box, x, place.height + 50);
    EXPECT_TRUE(becomes(end));
    desktop.MouseUp();
}

TEST_F(MessageBoxDesktop, LineEndsOfBothKindsAndTabsLookAsTheyShould)
{
    Run({"error", "same", "one\ntwo\n\n    three", "error", "same", "one\r\ntwo\r\n\r\n\tthree"});
    WindowId box = WaitForBox("same");
    const Screenshot first = desktop.Capture(box);
    desktop.Key("Return");
    ASSERT_TRUE(SaysClosed("same"));
    box = WaitForBox("same");
    EXPECT_TRUE(WaitUntil([&] { return desktop.Capture(box) == first; }));
}

TEST_F(MessageBoxDesktop, AnyBytesCanBeShown)
{
    Run({"error", "bytes", "\x01\xFF\xC3\x28\xE2\x82 @B@. %s %n &amp; \x7F"});
    ExpectTextInsideOf(WaitForBox("bytes"));
    desktop.Key("Return");
    EXPECT_TRUE(SaysClosed("bytes"));
}

TEST_F(MessageBoxDesktop, AnEmptyBoxCanBeShown)
{
    Run({"info", "", ""});
    WaitForBox("");
    desktop.Key("Return");
    EXPECT_TRUE(SaysClosed(""));
}

class MessageBoxBareDesktop : public MessageBoxDesktop
{
protected:
    void SetUp() override { ASSERT_TRUE(desktop.Start(640, 480, Desktop::WithoutWindowManager)); }
};

TEST_F(MessageBoxBareDesktop, ComesUpAboveTheShowWithItsCaptionWithoutAWindowManagerToo)
{
    Run({"--show", "error", "bare", "Bad: news", "info", "bare again", "Info: more"});
    for (const char* caption : {"bare", "bare again"}) {
        const WindowId box = WaitForBox(caption);
        EXPECT_EQ(0, desktop.Capture(box).Count(showColour, 0));
        EXPECT_GT(desktop.Capture(box).Count(0, 0, 300, 36, bone, 40), 20); // the caption's letters
        EXPECT_GT(desktop.Capture().Count(showColour, 0), 640 * 480 / 4);
        desktop.Key("Escape");
        EXPECT_TRUE(SaysClosed(caption));
    }
}

TEST_F(MessageBoxBareDesktop, FitsASmallScreen)
{
    std::string text;
    for (int i = 0; i < 400; ++i)
        text += "word" + std::to_string(i) + " ";
    Run({"--show", "error", "small", text});
    ExpectTextInsideOf(WaitForBox("small"));
    desktop.Key("Return");
    EXPECT_TRUE(SaysClosed("small"));
}
