// SPDX-License-Identifier: MIT
#include "platform/EmbeddedFiles.h"
#include "tests/support/desktop/DesktopFixture.h"

#include <IL/il.h>

#include <algorithm>

// Where the controls are in the window, its thin border of a pixel included.
struct Spot {
    int x, y, width, height;
};
// clang-format off
static const Spot radio640      = { 21, 159, 72, 18};
static const Spot radio800      = { 21, 176, 72, 18};
static const Spot radio1024     = { 21, 192, 78, 18};
static const Spot boxFullscreen = {256, 159, 74, 18};
static const Spot boxMusic      = {256, 176, 74, 18};
static const Spot buttonGo      = { 21, 218, 72, 18};
static const Spot buttonLeave   = {258, 218, 72, 18};
// clang-format on

static const Pixel amber = {0xf0, 0xb0, 0x50};
static const Pixel ochre = {0xc8, 0x82, 0x2a}; // the focus line
static const Pixel ink = {0x0d, 0x10, 0x20};

class SettingsDialogDesktop : public DesktopFixture
{
protected:
    void Show(std::vector<std::string> values = {})
    {
        program = desktop.Run("StartFormProgram", values);
        ASSERT_NE(nullptr, program);
        form = desktop.WaitForFocusedWindow("");
        ASSERT_NE(0u, form) << program->Errors();
        ASSERT_TRUE(WaitUntil([&] { return desktop.Capture(form).Count(amber, 8) > 500; })); // "Go" is there
    }

    void Click(const Spot& spot) { desktop.Click(form, spot.x + spot.width / 2, spot.y + spot.height / 2); }

    // Whether a radio button or check box is marked, by the colour in it.
    bool IsMarked(const Spot& spot) { return CountIn(spot, amber) > 20; }
    bool HasFocusLine(const Spot& spot)
    {
        return CountIn({spot.x - 4, spot.y - 4, spot.width + 8, spot.height + 8}, ochre) > 60;
    }
    int CountIn(const Spot& spot, Pixel colour)
    {
        return desktop.Capture(form).Count(spot.x, spot.y, spot.width, spot.height, colour, 8);
    }

    bool BecomesMarked(const Spot& spot, bool marked)
    {
        return WaitUntil([&] { return IsMarked(spot) == marked; });
    }
    bool GetsFocus(const Spot& spot)
    {
        return WaitUntil([&] { return HasFocusLine(spot); });
    }

    // What the dialog gave back, once the form is gone.
    std::string Answer()
    {
        EXPECT_TRUE(program->WaitForOutput("\n")) << program->Errors();
        EXPECT_TRUE(desktop.WaitUntilGone(form));
        EXPECT_TRUE(program->IsRunning());
        EXPECT_EQ("", program->Errors());
        return program->Output();
    }

    Process* program = nullptr;
    WindowId form = 0;
};

TEST_F(SettingsDialogDesktop, IsAThinFramedWindowWithoutCaptionInTheMiddleOfTheScreen)
{
    Show();
    const WindowPlace place = desktop.Place(form);
    EXPECT_EQ(350, place.width);
    EXPECT_EQ(252, place.height);
    EXPECT_NEAR(1280 / 2, place.x + place.width / 2, 1);
    EXPECT_NEAR(1024 / 2, place.y + place.height / 2, 1);
    EXPECT_EQ("", desktop.Title(form));
    EXPECT_FALSE(desktop.IsDecorated(form));
    const std::vector<std::string> states = desktop.States(form);
    EXPECT_EQ(1, std::count(states.begin(), states.end(), "_NET_WM_STATE_SKIP_TASKBAR"));
    EXPECT_EQ(1, std::count(states.begin(), states.end(), "_NET_WM_STATE_ABOVE"));

    // A border of one pixel, and the ground inside it.
    const Screenshot shot = desktop.Capture(form);
    EXPECT_EQ((Pixel{0x38, 0x46, 0x6b}), shot.At(0, 0));
    EXPECT_EQ((Pixel{0x38, 0x46, 0x6b}), shot.At(349, 251));
    EXPECT_EQ(ink, shot.At(1, 250));
    EXPECT_EQ(ink, shot.At(348, 250));
}

TEST_F(SettingsDialogDesktop, ShowsItsPictureInFullPixelSizeAtTheTopLeft)
{
    const unsigned char* data;
    size_t size;
    ASSERT_TRUE(platform::FindEmbeddedFile("start-form.png", &data, &size));
    ilInit();
    ILuint name;
    ilGenImages(1, &name);
    ilBindImage(name);
    ASSERT_TRUE(ilLoadL(IL_PNG, data, ILuint(size)));
    ASSERT_EQ(348, ilGetInteger(IL_IMAGE_WIDTH));
    ASSERT_EQ(138, ilGetInteger(IL_IMAGE_HEIGHT));
    ASSERT_EQ(3, ilGetInteger(IL_IMAGE_BYTES_PER_PIXEL));

    Show();
    const Screenshot shot = desktop.Capture(form);
    const unsigned char* expected = ilGetData();
    int different = 0;
    for (int y = 0; y < 138; ++y)
        for (int x = 0; x < 348; ++x, expected += 3)
            if (!(shot.At(x + 1, y + 1) == Pixel{expected[0], expected[1], expected[2]}))
                ++different;
    EXPECT_EQ(0, different);
}

// The smallest rectangle round all pixels of the colour in a part of the picture.
static Spot Extent(const Screenshot& shot, const Spot& part, Pixel colour)
{
    int left = 9999, top = 9999, right = -1, bottom = -1;
    for (int y = part.y; y < part.y + part.height; ++y)
        for (int x = part.x; x < part.x + part.width; ++x)
            if (shot.Count(x, y, 1, 1, colour, 8) == 1) {
                left = std::min(left, x);
                top = std::min(top, y);
                right = std::max(right, x);
                bottom = std::max(bottom, y);
            }
    return {left, top, right - left + 1, bottom - top + 1};
}

static bool operator==(const Spot& a, const Spot& b)
{
    return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
}

TEST_F(SettingsDialogDesktop, ControlsStandInTheirPlacesToThePixel)
{
    Show();
    const Screenshot shot = desktop.Capture(form);
    EXPECT_EQ(buttonGo, Extent(shot, {1, 212, 170, 38}, amber));
    EXPECT_EQ(buttonLeave, Extent(shot, {170, 212, 178, 38}, {0x38, 0x46, 0x6b}));
    // Marks are 13 pixels wide and high, in the middle of their control's height.
    EXPECT_EQ((Spot{radio1024.x, radio1024.y + 2, 13, 13}), Extent(shot, {1, 150, 170, 62}, amber));
    EXPECT_EQ((Spot{330 - 13, boxFullscreen.y + 2, 13, 13}), Extent(shot, {170, 150, 178, 25}, amber));
    EXPECT_EQ((Spot{330 - 13, boxMusic.y + 2, 13, 13}), Extent(shot, {170, 175, 178, 25}, amber));

    Click(radio640);
    EXPECT_TRUE(BecomesMarked(radio640, true));
    desktop.MoveMouse(form, 170, 240);
    EXPECT_EQ((Spot{radio640.x, radio640.y + 2, 13, 13}),
              Extent(desktop.Capture(form), {1, 150, 170, 62}, amber));
    Click(radio800);
    EXPECT_TRUE(BecomesMarked(radio800, true));
    EXPECT_EQ((Spot{radio800.x, radio800.y + 2, 13, 13}),
              Extent(desktop.Capture(form), {1, 150, 170, 62}, amber));
}

TEST_F(SettingsDialogDesktop, ComesUpOnTheGivenValuesAndGoGivesThemBack)
{
    Show();
    EXPECT_FALSE(IsMarked(radio640));
    EXPECT_FALSE(IsMarked(radio800));
    EXPECT_TRUE(IsMarked(radio1024));
    EXPECT_TRUE(IsMarked(boxFullscreen));
    EXPECT_TRUE(IsMarked(boxMusic));
    Click(buttonGo);
    EXPECT_EQ("go 1024 768 1 1 0\n", Answer());
}

TEST_F(SettingsDialogDesktop, ComesUpOnOtherValuesToo)
{
    Show({"800", "600", "1", "0"});
    EXPECT_FALSE(IsMarked(radio640));
    EXPECT_TRUE(IsMarked(radio800));
    EXPECT_FALSE(IsMarked(radio1024));
    EXPECT_FALSE(IsMarked(boxFullscreen));
    EXPECT_TRUE(IsMarked(boxMusic));
    Click(buttonLeave);
    EXPECT_EQ("leave 800 600 1 0 1\n", Answer());
}

TEST_F(SettingsDialogDesktop, ClicksChooseAndGoWritesTheChoice)
{
    Show();
    Click(radio640);
    EXPECT_TRUE(BecomesMarked(radio640, true));
    EXPECT_TRUE(BecomesMarked(radio1024, false));
    Click(radio800);
    EXPECT_TRUE(BecomesMarked(radio800, true));
    EXPECT_TRUE(BecomesMarked(radio640, false));
    Click(boxMusic);
    EXPECT_TRUE(BecomesMarked(boxMusic, false));
    Click(boxFullscreen);
    EXPECT_TRUE(BecomesMarked(boxFullscreen, false));
    Click(boxFullscreen);
    EXPECT_TRUE(BecomesMarked(boxFullscreen, true));
    Click(buttonGo);
    EXPECT_EQ("go 800 600 0 1 0\n", Answer());
}

TEST_F(SettingsDialogDesktop, AClickThatEndsElsewhereIsNone)
{
    Show();
    desktop.Drag(form, buttonGo.x + 10, buttonGo.y + 9, buttonLeave.x + 10, buttonLeave.y + 9);
    desktop.Drag(form, boxMusic.x + 65, boxMusic.y + 9, 150, 200);
    const int before = desktop.Place(form).x;
    desktop.Drag(form, 150, 200, boxFullscreen.x + 65, boxFullscreen.y + 9); // this one moves the form
    EXPECT_TRUE(WaitUntil([&] { return desktop.Place(form).x == before + boxFullscreen.x + 65 - 150; }));
    Click(radio640);
    EXPECT_TRUE(BecomesMarked(radio640, true));
    EXPECT_TRUE(IsMarked(boxMusic));
    EXPECT_TRUE(IsMarked(boxFullscreen));
    desktop.Key("Return");
    EXPECT_EQ("go 640 480 1 1 0\n", Answer());
}

TEST_F(SettingsDialogDesktop, LeavingWritesNothing)
{
    Show();
    Click(radio640);
    Click(boxMusic);
    EXPECT_TRUE(BecomesMarked(boxMusic, false));
    Click(buttonLeave);
    EXPECT_EQ("leave 1024 768 1 1 1\n", Answer());
}

TEST_F(SettingsDialogDesktop, EscapeLeaves)
{
    Show();
    desktop.Key("Escape");
    EXPECT_EQ("leave 1024 768 1 1 1\n", Answer());
}

TEST_F(SettingsDialogDesktop, ClosingTheWindowLeaves)
{
    Show();
    desktop.Close(form);
    EXPECT_EQ("leave 1024 768 1 1 1\n", Answer());
}

TEST_F(SettingsDialogDesktop, EnterGoes)
{
    Show();
    desktop.Key("Return");
    EXPECT_EQ("go 1024 768 1 1 0\n", Answer());
}

TEST_F(SettingsDialogDesktop, EnterOfTheNumberBlockGoes)
{
    Show();
    desktop.Key("KP_Enter");
    EXPECT_EQ("go 1024 768 1 1 0\n", Answer());
}

TEST_F(SettingsDialogDesktop, IsWorkedWithTheKeyboardAlone)
{
    Show();
    for (const Spot& spot : {radio640, radio800, radio1024, boxFullscreen, boxMusic, buttonGo, buttonLeave})
        EXPECT_FALSE(HasFocusLine(spot));

    desktop.Key("Tab");
    EXPECT_TRUE(GetsFocus(radio1024));
    desktop.Key("Up");
    EXPECT_TRUE(GetsFocus(radio800));
    EXPECT_TRUE(BecomesMarked(radio800, true));
    EXPECT_FALSE(IsMarked(radio1024));
    desktop.Key("Tab");
    EXPECT_TRUE(GetsFocus(boxFullscreen));
    desktop.Key("space");
    EXPECT_TRUE(BecomesMarked(boxFullscreen, false));
    desktop.Key("Down");
    EXPECT_TRUE(GetsFocus(boxMusic));
    desktop.Key("space");
    EXPECT_TRUE(BecomesMarked(boxMusic, false));
    desktop.Key("space");
    EXPECT_TRUE(BecomesMarked(boxMusic, true));
    desktop.Key("Tab");
    EXPECT_TRUE(GetsFocus(buttonGo));
    desktop.Key("Right");
    EXPECT_TRUE(GetsFocus(buttonLeave));
    desktop.Key("Tab");
    EXPECT_TRUE(GetsFocus(radio800));
    desktop.Key("Left");
    EXPECT_TRUE(GetsFocus(radio640));
    desktop.Key("shift+Tab");
    EXPECT_TRUE(GetsFocus(buttonLeave));
    desktop.Key("shift+Tab");
    EXPECT_TRUE(GetsFocus(buttonGo));
    desktop.Key("space");
    EXPECT_EQ("go 640 480 1 0 0\n", Answer());
}

TEST_F(SettingsDialogDesktop, SpaceOnLeaveLeaves)
{
    Show();
    desktop.Key("shift+Tab");
    EXPECT_TRUE(GetsFocus(buttonLeave));
    desktop.Key("space");
    EXPECT_EQ("leave 1024 768 1 1 1\n", Answer());
}

TEST_F(SettingsDialogDesktop, OtherKeysSayNothing)
{
    Show();
    for (const char* key : {"a", "F1", "BackSpace", "ctrl+c"})
        desktop.Key(key);
    desktop.Key("Tab");
    EXPECT_TRUE(GetsFocus(radio1024));
    EXPECT_EQ("", program->Output());
    EXPECT_TRUE(program->IsRunning());
}

TEST_F(SettingsDialogDesktop, IsMovedByItsPictureOrGround)
{
    Show();
    const WindowPlace before = desktop.Place(form);
    desktop.Drag(form, 100, 100, 160, 70);
    EXPECT_TRUE(WaitUntil([&] {
        const WindowPlace now = desktop.Place(form);
        return now.x == before.x + 60 && now.y == before.y - 30;
    }));
}

TEST_F(SettingsDialogDesktop, IsTwiceAsLargeOnADesktopOf192DotsPerInch)
{
    desktop.SetDotsPerInch(192);
    Show();
    const WindowPlace place = desktop.Place(form);
    EXPECT_EQ(700, place.width);
    EXPECT_EQ(504, place.height);
    EXPECT_NEAR(1280 / 2, place.x + place.width / 2, 1);
    desktop.Click(form, 2 * (boxMusic.x + 60), 2 * (boxMusic.y + 9));
    desktop.Click(form, 2 * (buttonGo.x + 36), 2 * (buttonGo.y + 9));
    EXPECT_EQ("go 1024 768 0 1 0\n", Answer());
}

class SettingsDialogBareDesktop : public SettingsDialogDesktop
{
protected:
    void SetUp() override { ASSERT_TRUE(desktop.Start(1024, 768, Desktop::WithoutWindowManager)); }
};

TEST_F(SettingsDialogBareDesktop, HasTheKeyboardWithoutAWindowManagerToo)
{
    Show();
    const WindowPlace place = desktop.Place(form);
    EXPECT_NEAR(1024 / 2, place.x + place.width / 2, 1);
    EXPECT_NEAR(768 / 2, place.y + place.height / 2, 1);
    desktop.Key("Tab");
    EXPECT_TRUE(GetsFocus(radio1024));
    desktop.Key("Down");
    EXPECT_TRUE(BecomesMarked(radio640, true));
    desktop.Key("Return");
    EXPECT_EQ("go 640 480 1 1 0\n", Answer());
}
