// SPDX-License-Identifier: MIT
// The editor on a Wayland compositor without XWayland: weston in a window that fills the desktop.
#include "tests/Folders.h"
#include "tests/support/desktop/DesktopFixture.h"
#include "tests/support/desktop/ShowFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>

static const Pixel paper = {0xef, 0xe6, 0xd2}; // the timeline is drawn on it

class EditorWayland : public DesktopFixture
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(desktop.Start(1024, 768, Desktop::WithoutWindowManager)); // less than the editor asks for
        const std::string runtime = folder.path + "/run";
        ASSERT_EQ(0, mkdir(runtime.c_str(), 0700));
        desktop.ownEnvironment.push_back("XDG_RUNTIME_DIR=" + runtime);
        ASSERT_TRUE(compositor.Start({"weston", "--backend=x11-backend.so", "--socket=test", "--width=1024",
                                      "--height=768", "--idle-time=0"},
                                     desktop.Environment()));
        ASSERT_TRUE(WaitUntil([&] { return std::filesystem::exists(runtime + "/test"); }))
            << compositor.Output() << compositor.Errors();
        folder.Write("night.txt",
                     "[EFFECT] EffectName=WhiteFlashOverlay; StartTime=0; StopTime=9000; LayerID=9;\n");
    }

    ShowFolder folder;
    Process compositor;
};

// The compositor would end a maximised window of another size than its own.
TEST_F(EditorWayland, OpensAWindowThatFillsAScreenTooSmallForIt)
{
    std::vector<std::string> environment = desktop.Environment();
    for (const std::string& row :
         {std::string("DISPLAY"), std::string("WAYLAND_DISPLAY=test"), std::string("SDL_VIDEODRIVER=wayland"),
          "XDG_CONFIG_HOME=" + folder.path + "/config", "XDG_STATE_HOME=" + folder.path + "/state"})
        environment.push_back(row);
    Process program;
    ASSERT_TRUE(program.Start({BINARY_DIR "/marlinex-edit", "--size=160x120", "--rate=10",
                               "--data=" SOURCE_DIR "/Data", folder.path + "/night.txt"},
                              environment));
    ASSERT_TRUE(
        WaitUntil([&] { return desktop.Capture().Count(paper, 12) > 20000 || !program.IsRunning(); }));
    ASSERT_TRUE(program.IsRunning()) << program.Errors();
    // The compositor hands the keyboard to the window some time after it is to be seen.
    EXPECT_TRUE(WaitUntil([&] {
        desktop.Key("ctrl+q");
        return program.WaitForExit(1);
    }));
    EXPECT_EQ(0, program.ExitStatus()) << program.Errors();
}
