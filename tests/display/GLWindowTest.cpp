// SPDX-License-Identifier: MIT
// Birth, life and death of the window, on the window system that exists on paper. What goes to GL is in
// GLWindowRecordedTest.cpp.
#include "display/GLWindow.h"

#include "platform/DebugChannelHooks.h"
#include "platform/EventsHooks.h"
#include "platform/dialogs/MessageBox.h"
#include "platform/dialogs/MessageBoxHooks.h"
#include "tests/support/BoxWatch.h"
#include "tests/support/NullWindowSystem.h"

#include <gtest/gtest.h>

class GLWindowTest : public testing::Test
{
protected:
    GLWindowTest()
    {
        UseNullWindows();
        platform::CollectMessageBoxes(&boxes);
        platform::CollectDebugText(&debugText);
    }
    ~GLWindowTest() override
    {
        platform::CollectMessageBoxes(nullptr);
        platform::CollectDebugText(nullptr);
    }
    static bool QuitPosted() { return platform::TakeEvent().kind == platform::EventQuit; }

    // A window that runs, though its creation fails at the first extension test, ahead of all GL calls.
    void Open(GLWindow* which, bool fullscreen)
    {
        system.glExtensions = "";
        which->Create(800, 600, 32, fullscreen);
        boxes.clear();
    }
    void ExpectBox(const std::string& title, const std::string& text)
    {
        ASSERT_EQ(1u, boxes.size());
        EXPECT_EQ("Marlinex 1.5 Error: " + title, boxes[0].caption);
        EXPECT_EQ(0u, boxes[0].body.find("Bad: " + text + "\r\n"));
        EXPECT_EQ(platform::BoxErrorIcon, boxes[0].icon);
    }

    NullWindows& system = NullWindowState();
    std::vector<platform::MessageBox> boxes;
    std::string debugText;
    GLWindow window;
};

typedef std::vector<std::string> Calls;

TEST_F(GLWindowTest, AWindowIsMadeCurrentAndShownInThisOrder)
{
    system.glExtensions = "";
    window.Create(800, 600, 16, false);
    EXPECT_EQ((Calls{"registerClass marlinex", "createWindow marlinex 560 240 800 600", "createContext 1",
                     "makeCurrent 1", "showWindow", "loadExtensions"}),
              system.calls);
}

TEST_F(GLWindowTest, FullScreenChangesTheModeAheadOfTheCursorAndTheWindow)
{
    system.glExtensions = "";
    window.Create(800, 600, 32, true);
    EXPECT_EQ((Calls{"registerClass marlinex", "setDisplayMode 800 600 32", "showCursor 0",
                     "createWindow marlinex 0 0 800 600", "createContext 1", "makeCurrent 1", "showWindow",
                     "loadExtensions"}),
              system.calls);
}

TEST_F(GLWindowTest, NothingIsChangedBehindAStepThatFailed)
{
    system.refuseClass = system.refuseMode = system.refuseWindow = true;
    EXPECT_FALSE(window.Create(800, 600, 32, true));
    EXPECT_EQ((Calls{"registerClass marlinex"}), system.calls) << "the class comes ahead of the mode";

    system.refuseClass = false;
    system.calls.clear();
    EXPECT_FALSE(window.Create(800, 600, 32, true));
    EXPECT_EQ((Calls{"registerClass marlinex", "setDisplayMode 800 600 32"}), system.calls);
}

TEST_F(GLWindowTest, AWindowThatCannotBeMadeIsNeitherShownNorDrawnInto)
{
    system.refuseWindow = true;
    EXPECT_FALSE(window.Create(800, 600, 32, true));
    EXPECT_EQ((Calls{"registerClass marlinex", "setDisplayMode 800 600 32", "showCursor 0",
                     "createWindow marlinex 0 0 800 600"}),
              system.calls);
    EXPECT_EQ(nullptr, window.GetWindowHandle());
    EXPECT_EQ(nullptr, window.GetDeviceContext());
}

TEST_F(GLWindowTest, OfTwoMissingExtensionsThePointSpritesAreReportedAlone)
{
    system.glExtensions = system.systemExtensions = "";
    EXPECT_FALSE(window.Create(640, 480, 32, false));
    ExpectBox("OGL Init", "GL_ARB_point_sprite is not supported");
    EXPECT_EQ(640, window.GetSize()->width) << "the size was known by then";
    EXPECT_EQ(480, window.GetSize()->height);
}

TEST_F(GLWindowTest, CreationTracesGLsExtensionListOnce)
{
    system.glExtensions = "GL_ARB_point_sprite GL_A";
    system.systemExtensions = "";
    EXPECT_FALSE(window.Create(640, 480, 32, false));
    EXPECT_EQ("GL_ARB_point_sprite GL_A", debugText);
}

TEST_F(GLWindowTest, HeightStandsBehindWidthInThePairThatGetSizeHandsOut)
{
    Open(&window, false);
    const int* const pair = reinterpret_cast<const int*>(window.GetSize());
    EXPECT_EQ(800, pair[0]);
    EXPECT_EQ(600, pair[1]);
}

TEST_F(GLWindowTest, IsBornWithoutAWindow)
{
    EXPECT_FALSE(window.IsRunning());
    EXPECT_EQ(nullptr, window.GetWindowHandle());
    EXPECT_EQ(nullptr, window.GetContext());
    EXPECT_EQ(nullptr, window.GetDeviceContext());
    EXPECT_EQ(0, window.GetSize()->width);
    EXPECT_EQ(0, window.GetSize()->height);
    EXPECT_EQ(0, system.windows);
}

TEST_F(GLWindowTest, ARefusedClassFailsInSilence)
{
    system.refuseClass = true;
    EXPECT_FALSE(window.Create(640, 480, 32, false));
    EXPECT_TRUE(boxes.empty());
    EXPECT_FALSE(QuitPosted());
    EXPECT_FALSE(window.IsRunning());
}

TEST_F(GLWindowTest, ASecondCreationInOneProcessFailsInSilence)
{
    Open(&window, false);
    GLWindow other;
    EXPECT_FALSE(other.Create(640, 480, 32, false));
    EXPECT_TRUE(boxes.empty());
    EXPECT_FALSE(other.IsRunning());
    EXPECT_EQ(1, system.windows);
}

TEST_F(GLWindowTest, ARefusedModeIsReportedAndNoWindowComesUp)
{
    system.refuseMode = true;
    EXPECT_FALSE(window.Create(640, 480, 32, true));
    ExpectBox("Window", "Fullscreen not available!");
    EXPECT_TRUE(QuitPosted());
    EXPECT_EQ(0, system.windows);
    EXPECT_TRUE(system.cursorVisible);
    EXPECT_FALSE(window.IsRunning());
}

TEST_F(GLWindowTest, TheModeIsAskedForWithItsBits)
{
    EXPECT_FALSE(window.Create(640, 480, 16, true)) << "the screen on paper has modes of 32 bits alone";
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ("Marlinex 1.5 Error: Window", boxes[0].caption);
}

TEST_F(GLWindowTest, ARefusedWindowIsReportedAndTheModeStaysInForce)
{
    system.refuseWindow = true;
    EXPECT_FALSE(window.Create(640, 480, 32, true));
    ExpectBox("Window", "Error while creating window");
    EXPECT_TRUE(QuitPosted());
    EXPECT_EQ(640, system.modeWidth);
    EXPECT_EQ(480, system.modeHeight);
    EXPECT_FALSE(window.IsRunning());
}

TEST_F(GLWindowTest, WhatIsRefusedIsReportedBeforeTheQuitIsPosted)
{
    BoxWatch watch;
    system.refuseMode = true;
    EXPECT_FALSE(window.Create(640, 480, 32, true));
    EXPECT_TRUE(QuitPosted());

    UseNullWindows();
    system.refuseWindow = true;
    EXPECT_FALSE(window.Create(640, 480, 32, true));
    EXPECT_TRUE(QuitPosted());
    EXPECT_EQ((std::vector<bool>{false, false}), watch.quitAtBox);
}

TEST_F(GLWindowTest, MissingPointSpritesAreReportedAndTheWindowStaysUp)
{
    system.glExtensions = "GL_ARB_framebuffer_object";
    EXPECT_FALSE(window.Create(640, 480, 32, false));
    ExpectBox("OGL Init", "GL_ARB_point_sprite is not supported");
    EXPECT_FALSE(QuitPosted());
    EXPECT_TRUE(window.IsRunning());
    EXPECT_EQ(1, system.windows);
}

TEST_F(GLWindowTest, AMissingOffScreenFacilityIsReportedInItsOldWords)
{
    system.systemExtensions = "GL_ARB_point_sprite";
    EXPECT_FALSE(window.Create(640, 480, 32, false));
    ExpectBox("OGL Init", "WGL_ARB_pbuffer is not supported");
    EXPECT_FALSE(QuitPosted());
    EXPECT_TRUE(window.IsRunning());
    EXPECT_EQ(1, system.windows);
}

TEST_F(GLWindowTest, AWindowStandsInTheMiddleOfTheScreenWithoutAFrame)
{
    system.glExtensions = "";
    window.Create(1024, 768, 32, false);
    EXPECT_EQ(448, system.last.x);
    EXPECT_EQ(156, system.last.y);
    EXPECT_EQ(1024, system.last.width);
    EXPECT_EQ(768, system.last.height);
    EXPECT_FALSE(system.last.fullscreen);
    EXPECT_EQ(32, system.last.colourBits);
    EXPECT_EQ(8, system.last.alphaBits);
    EXPECT_EQ(32, system.last.depthBits);
    EXPECT_TRUE(system.cursorVisible);
    EXPECT_EQ(0, system.modeWidth) << "the desktop keeps its mode";
    EXPECT_EQ(1024, window.GetSize()->width);
    EXPECT_EQ(768, window.GetSize()->height);
    EXPECT_NE(nullptr, window.GetWindowHandle());
    EXPECT_NE(nullptr, window.GetDeviceContext());
    EXPECT_EQ(nullptr, window.GetContext()) << "never stored";
}

TEST_F(GLWindowTest, EachHalfIsAnIntegerDivisionOfItsOwn)
{
    system.glExtensions = "";
    window.Create(1023, 767, 32, false); // on a screen of 1920 by 1080
    EXPECT_EQ(449, system.last.x) << "960 - 511, not 897 / 2";
    EXPECT_EQ(157, system.last.y) << "540 - 383, not 313 / 2";
}

TEST_F(GLWindowTest, HalvesAreTruncatedEachByItselfAndPlacesMayBeNegative)
{
    system.glExtensions = "";
    system.screenWidth = 1023;
    system.screenHeight = 599;
    window.Create(1025, 801, 16, false);
    EXPECT_EQ(-1, system.last.x);
    EXPECT_EQ(-101, system.last.y);
    EXPECT_EQ(32, system.last.colourBits) << "bits serves the display mode alone";
    EXPECT_EQ(1, system.windows);
}

TEST_F(GLWindowTest, FullScreenStartsAtTheCornerWithoutACursor)
{
    system.glExtensions = "";
    window.Create(800, 600, 32, true);
    EXPECT_EQ(0, system.last.x);
    EXPECT_EQ(0, system.last.y);
    EXPECT_TRUE(system.last.fullscreen);
    EXPECT_FALSE(system.cursorVisible);
    EXPECT_EQ(800, system.modeWidth);
    EXPECT_EQ(600, system.modeHeight);
}

TEST_F(GLWindowTest, ExtensionsAreWholeWords)
{
    system.glExtensions = "GL_ARB_point_sprite_x GL_ARB_point_sprite XGL_ARB_foo GL_ARB_foo_bar GL_ARB_last";
    EXPECT_TRUE(window.IsExtensionSupported("GL_ARB_point_sprite"));
    EXPECT_TRUE(window.IsExtensionSupported("GL_ARB_point_sprite_x")) << "at the very start";
    EXPECT_TRUE(window.IsExtensionSupported("GL_ARB_last")) << "at the very end";
    EXPECT_FALSE(window.IsExtensionSupported("GL_ARB"));
    EXPECT_FALSE(window.IsExtensionSupported("GL_ARB_foo"));
    EXPECT_FALSE(window.IsExtensionSupported("gl_arb_last"));
}

TEST_F(GLWindowTest, TheWholeListGoesToTheDebugChannelOnEachCall)
{
    system.glExtensions = "GL_A GL_B";
    window.IsExtensionSupported("GL_A");
    EXPECT_EQ("GL_A GL_B", debugText);
    window.IsExtensionSupported("GL_C");
    EXPECT_EQ("GL_A GL_BGL_A GL_B", debugText);
}

TEST_F(GLWindowTest, AnEmptyNameAndOneWithABlankAreFalseAndDontReadTheList)
{
    system.glExtensions = "GL_A  GL_B";
    EXPECT_FALSE(window.IsExtensionSupported(""));
    EXPECT_FALSE(window.IsExtensionSupported("GL_A "));
    EXPECT_FALSE(window.IsExtensionSupported(" "));
    EXPECT_EQ("", debugText);
}

TEST_F(GLWindowTest, NoListIsNoExtension)
{
    system.glExtensions = nullptr;
    system.systemExtensions = nullptr;
    EXPECT_FALSE(window.IsExtensionSupported("GL_A"));
    EXPECT_FALSE(window.IsWglExtensionSupported("GL_A"));
}

TEST_F(GLWindowTest, TheSystemsOwnListComesFirst)
{
    system.glExtensions = "GL_A";
    system.systemExtensions = "WGL_A WGL_B";
    EXPECT_TRUE(window.IsWglExtensionSupported("WGL_B"));
    EXPECT_FALSE(window.IsWglExtensionSupported("GL_A"));
    EXPECT_FALSE(window.IsWglExtensionSupported("GL_B"));
    EXPECT_EQ("", debugText) << "this one isn't traced";
}

TEST_F(GLWindowTest, WithoutAListOfItsOwnGLsIsTaken)
{
    system.glExtensions = "GL_A GL_B";
    system.systemExtensions = nullptr;
    EXPECT_TRUE(window.IsWglExtensionSupported("GL_B"));
    EXPECT_FALSE(window.IsWglExtensionSupported("GL_"));
}

TEST_F(GLWindowTest, TheSystemsTestTakesNamesThatTheOtherRefuses)
{
    system.systemExtensions = "WGL_A WGL_B";
    EXPECT_TRUE(window.IsWglExtensionSupported("WGL_A WGL_B")) << "blanks are not looked for";
    system.systemExtensions = "";
    EXPECT_TRUE(window.IsWglExtensionSupported("")) << "nothing, as a whole word";
    system.systemExtensions = "WGL_A";
    EXPECT_FALSE(window.IsWglExtensionSupported(""));
}

TEST_F(GLWindowTest, ASearchGoesOnBehindTheRejectedPlaceByAWordOrByACharacter)
{
    // "aa" occurs at 0, where an a follows, and overlapping at 1, where a blank does; but an a stands in
    // front.
    system.glExtensions = system.systemExtensions = "aaa aa";
    EXPECT_TRUE(window.IsExtensionSupported("aa"));
    EXPECT_TRUE(window.IsWglExtensionSupported("aa"));
    // "a a" is rejected at 1 for the x in front of it; the place at 3 overlaps it and is a whole word.
    system.systemExtensions = "xa a a";
    EXPECT_TRUE(window.IsWglExtensionSupported("a a"));
}

TEST_F(GLWindowTest, AQuitEndsTheRunAtTheNextPump)
{
    Open(&window, false);
    ASSERT_TRUE(window.IsRunning());
    window.PumpMessage();
    EXPECT_TRUE(window.IsRunning()) << "an empty queue changes nothing";
    platform::PostQuit(0);
    EXPECT_TRUE(window.IsRunning());
    window.PumpMessage();
    EXPECT_FALSE(window.IsRunning());
}

TEST_F(GLWindowTest, EscapePostsTheQuitAndTheNextPumpSeesIt)
{
    Open(&window, false);
    platform::PostEvent({platform::EventKeyDown, platform::KeyEscape});
    window.PumpMessage();
    EXPECT_TRUE(window.IsRunning());
    window.PumpMessage();
    EXPECT_FALSE(window.IsRunning());
}

TEST_F(GLWindowTest, AllOtherKeysAreSwallowedOnePerPump)
{
    Open(&window, false);
    for (int key = 0; key < 128; key++)
        if (key != 0x1B)
            platform::PostEvent({platform::EventKeyDown, key});
    platform::PostEvent({platform::EventKeyDown, 0x1B});
    for (int i = 0; i < 127; i++)
        window.PumpMessage();
    window.PumpMessage(); // Escape
    EXPECT_TRUE(window.IsRunning());
    window.PumpMessage(); // its quit
    EXPECT_FALSE(window.IsRunning());
}

TEST_F(GLWindowTest, WindowEventsChangeNothing)
{
    Open(&window, false);
    platform::PostEvent({platform::EventWindow, platform::KeyEscape});
    window.PumpMessage();
    window.PumpMessage();
    EXPECT_TRUE(window.IsRunning());
}

TEST_F(GLWindowTest, DestroyBeforeAQuitWasSeenHasNoEffect)
{
    window.Destroy();
    Open(&window, true);
    platform::PostQuit(0);
    window.Destroy();
    EXPECT_EQ(1, system.windows);
    EXPECT_FALSE(system.cursorVisible);
    EXPECT_EQ(800, system.modeWidth) << "a run that ends in another way doesn't restore the mode";
    EXPECT_TRUE(window.IsRunning());
}

TEST_F(GLWindowTest, DestroyAfterAQuitClosesTheWindowAndKeepsTheContext)
{
    Open(&window, true);
    platform::PostQuit(0);
    window.PumpMessage();
    system.calls.clear();
    window.Destroy();
    EXPECT_EQ(
        (Calls{"restoreDisplayMode", "showCursor 1", "makeCurrent 0", "deleteContext 0", "destroyWindow"}),
        system.calls);
    EXPECT_EQ(0, system.windows);
    EXPECT_TRUE(system.cursorVisible);
    EXPECT_EQ(0, system.modeWidth);
    EXPECT_EQ(nullptr, system.current);
    EXPECT_EQ(0, system.deletedContexts) << "it was let go before, so none is deleted";
    EXPECT_EQ(nullptr, window.GetWindowHandle());
    EXPECT_EQ(nullptr, window.GetDeviceContext());
    EXPECT_FALSE(window.IsRunning());
    window.Destroy();
    EXPECT_EQ(0, system.windows) << "once is enough";
}

TEST_F(GLWindowTest, AWindowedRunGivesModeAndCursorBackAsWell)
{
    Open(&window, false);
    platform::PostQuit(0);
    window.PumpMessage();
    system.calls.clear();
    window.Destroy();
    EXPECT_EQ(
        (Calls{"restoreDisplayMode", "showCursor 1", "makeCurrent 0", "deleteContext 0", "destroyWindow"}),
        system.calls);
}

TEST_F(GLWindowTest, AQuitThatIsPumpedWithoutAWindowLetsDestroyRunOnce)
{
    platform::PostQuit(0);
    window.PumpMessage();
    window.Destroy();
    EXPECT_EQ(5u, system.calls.size());
    window.Destroy();
    EXPECT_EQ(5u, system.calls.size());
}

TEST_F(GLWindowTest, TwoEscapesAreOneQuit)
{
    Open(&window, false);
    platform::PostEvent({platform::EventKeyDown, platform::KeyEscape});
    window.PumpMessage();
    platform::PostEvent({platform::EventKeyDown, platform::KeyEscape});
    window.PumpMessage(); // the first one's quit, which is ahead of the second Escape
    EXPECT_FALSE(window.IsRunning());
    EXPECT_EQ(platform::EventKeyDown, platform::TakeEvent().kind) << "one event is taken at a time";
    EXPECT_EQ(platform::EventNone, platform::TakeEvent().kind);
}

TEST_F(GLWindowTest, ItsDestructorClosesAWindowThatSawItsQuit)
{
    {
        GLWindow other;
        Open(&other, false);
        platform::PostQuit(0);
        other.PumpMessage();
        EXPECT_EQ(1, system.windows);
    }
    EXPECT_EQ(0, system.windows);
}

TEST_F(GLWindowTest, ItsDestructorLeavesARunningWindowUp)
{
    {
        GLWindow other;
        Open(&other, false);
    }
    EXPECT_EQ(1, system.windows);
}

TEST_F(GLWindowTest, TitleAndSwapGoToTheWindow)
{
    Open(&window, false);
    EXPECT_STREQ("marlinex", system.title);
    window.SetTitle("FPS: 60");
    EXPECT_STREQ("FPS: 60", system.title);
    window.SwapBuffers();
    EXPECT_EQ(1, system.swaps);
}

TEST_F(GLWindowTest, WithoutAContextTheWindowStillCountsAsRunning)
{
    system.refuseContext = true;
    system.glExtensions = nullptr;
    EXPECT_FALSE(window.Create(640, 480, 32, false));
    EXPECT_TRUE(window.IsRunning());
}
