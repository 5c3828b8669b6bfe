// SPDX-License-Identifier: MIT
// The timeline in a real window with a real pointer: what was dragged and tapped is in the file that is saved.
#include "tests/Folders.h"
#include "tests/support/ReadFile.h"
#include "tests/support/desktop/DesktopFixture.h"
#include "tests/support/desktop/ShowFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

static const Pixel paper = {0xef, 0xe6, 0xd2};
static const Pixel amber = {0xf0, 0xb0, 0x50}; // round what is selected

static const char* const script =
    "# a flash, and a shadow #\n"
    "[EFFECT]\nEffectName=WhiteFlashOverlay;\nStartTime=0;\nStopTime=120000;\n"
    "LayerID=9;\n\n"
    "[EFFECT]\nEffectName=BlackFlashOverlay;\nStartTime=30000;\nStopTime=60000;\n"
    "LayerID=5;\n\n"
    "[MESSAGE]\nMessageText=flash;\nActivationTime=1000;\n"
    "TargetEffect=WhiteFlashOverlay;\nParameter=2.00;\n";

class TimelineDesktop : public DesktopFixture
{
protected:
    void SetUp() override
    {
        DesktopFixture::SetUp();
        folder.Write("night.txt", script);
        desktop.ownEnvironment.push_back("XDG_CONFIG_HOME=" + folder.path + "/config");
        desktop.ownEnvironment.push_back("XDG_STATE_HOME=" + folder.path + "/state");
        desktop.Run("marlinex-edit", {"--size=160x120", "--rate=10", "--data=" SOURCE_DIR "/Data",
                                      folder.path + "/night.txt"});
        window = desktop.WaitForFocusedWindow("night.txt - marlinex-edit");
        ASSERT_NE(0u, window);
        ASSERT_TRUE(WaitUntil([&] { return desktop.Capture(window).Count(paper, 12) > 20000; }));
    }

    bool HasTitle(const std::string& title)
    {
        return WaitUntil([&] { return desktop.Title(window) == title; });
    }
    void Save()
    {
        desktop.Key("ctrl+s");
        ASSERT_TRUE(HasTitle("night.txt - marlinex-edit"));
    }
    std::string Script() { return ReadFile(folder.path + "/night.txt"); }

    // The place of the frame round the selected entry: two lines of amber, higher than a tick and not as high as the
    // play head.
    struct Frame {
        int left = -1, right = -1, middle = -1;
    };
    Frame FindFrame()
    {
        const Screenshot shot = desktop.Capture(window);
        Frame frame;
        for (int x = 110; x < shot.width; x++) {
            int count = 0, sum = 0;
            for (int y = shot.height / 2; y < shot.height; y++)
                if (shot.Count(x, y, 1, 1, amber, 6) == 1) {
                    count++;
                    sum += y;
                }
            if (count < 12 || count > 70)
                continue;
            if (frame.left < 0)
                frame.left = x;
            frame.right = x;
            frame.middle = sum / count;
        }
        return frame;
    }
    // In steps, as a hand does it, so that the program sees the way.
    void Drag(int fromX, int fromY, int byX)
    {
        desktop.MoveMouse(window, fromX - 10, fromY);
        desktop.MoveMouseBy(10, 0);
        desktop.MouseDown();
        for (int i = 0; i < 8; i++)
            desktop.MoveMouseBy(byX / 8, 0);
    }

    int Number(const std::string& key, size_t from)
    {
        const std::string text = Script();
        const size_t at = text.find(key, from);
        return at == std::string::npos ? -1 : atoi(text.c_str() + at + key.size());
    }

    ShowFolder folder;
    WindowId window = 0;
};

TEST_F(TimelineDesktop, AnEntryIsDraggedAndSaved)
{
    for (int i = 0; i < 3; i++)
        desktop.Key("Tab"); // the flash, its message, the shadow
    Frame frame;
    ASSERT_TRUE(WaitUntil([&] {
        frame = FindFrame();
        return frame.left > 300 && frame.right - frame.left > 100; // not that of the flash any more
    })) << "no frame round the shadow";
    const double perPixel = 30000.0 / (frame.right - frame.left);
    desktop.Key("s"); // without snapping
    Drag((frame.left + frame.right) / 2, frame.middle, 200);
    EXPECT_TRUE(HasTitle("* night.txt - marlinex-edit")) << "it is in the script while it is dragged";
    EXPECT_TRUE(WaitUntil([&] { return std::abs(FindFrame().left - frame.left - 200) <= 3; }))
        << "the entry did not come along: its frame went from " << frame.left << " to " << FindFrame().left;
    desktop.MouseUp();
    Save();
    const size_t shadow = Script().find("BlackFlashOverlay");
    const int start = Number("StartTime=", shadow), stop = Number("StopTime=", shadow);
    EXPECT_NEAR(30000 + 200 * perPixel, start, 5 * perPixel);
    EXPECT_EQ(30000, stop - start);
    desktop.Key("ctrl+z"); // all of it
    ASSERT_TRUE(HasTitle("* night.txt - marlinex-edit"));
    Save();
    EXPECT_EQ(script, Script());
}

TEST_F(TimelineDesktop, MessagesAreTappedAndSaved)
{
    desktop.Key("Tab");
    desktop.Key("Tab"); // the message is what is tapped then
    for (int i = 0; i < 3; i++) {
        desktop.Key("ctrl+Right"); // a bar on
        desktop.Key("t");
    }
    ASSERT_TRUE(HasTitle("* night.txt - marlinex-edit"));
    Save();
    EXPECT_NE(std::string::npos, Script().find("MessageText=flash;\nActivationTime=1000;")) << Script();
    const std::string tapped = Script().substr(Script().find("ActivationTime=1000;") + 20);
    EXPECT_NE(std::string::npos, tapped.find("MessageText=flash;")) << Script();
    EXPECT_NE(std::string::npos, tapped.find("ActivationTime=1800,3600,5400;")) << Script();
    EXPECT_NE(std::string::npos, tapped.find("Parameter=2.00;")) << Script();
}

TEST_F(TimelineDesktop, MessagesAreTappedWhileItPlays)
{
    desktop.Key("Tab");
    desktop.Key("Tab"); // the message
    desktop.Key("s");   // anywhere, not on beats alone
    desktop.Key("space");
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < 3; i++) {
        const Screenshot before = desktop.Capture(window);
        ASSERT_TRUE(WaitUntil([&] { return !(desktop.Capture(window) == before); })); // the play head goes on
        desktop.Key("t");
    }
    ASSERT_TRUE(HasTitle("* night.txt - marlinex-edit"));
    desktop.Key("space");
    Save();
    const std::chrono::duration<double, std::milli> played = std::chrono::steady_clock::now() - begin;
    const std::string saved = Script();
    const size_t list = saved.find("ActivationTime="); // of the new block, which is the earlier one
    ASSERT_NE(std::string::npos, list);
    int first = -1, second = -1, third = -1;
    ASSERT_EQ(3, sscanf(saved.c_str() + list, "ActivationTime=%d,%d,%d;", &first, &second, &third)) << saved;
    EXPECT_LT(0, first);
    EXPECT_LT(first, second);
    EXPECT_LT(second, third);
    EXPECT_GT(played.count(), third);
}
