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
        for (const char* row : {"DISPLAY", "WAYLAND_DISPLAY=test", "SDL_VIDEODRIVER=wayland"})
            desktop.ownEnvironment.push_back(row);
        desktop.ownEnvironment.push_back("XDG_CONFIG_HOME=" + folder.path + "/config");
        desktop.ownEnvironment.push_back("XDG_STATE_HOME=" + folder.path + "/state");
        folder.Write("night.txt",
                     "[EFFECT] EffectName=WhiteFlashOverlay; StartTime=0; StopTime=9000; LayerID=9;\n");
    }

    ShowFolder folder;
    Process compositor;
};

// The compositor would end a maximised window of another size than its own.
TEST_F(EditorWayland, OpensAWindowThatFillsAScreenTooSmallForIt)
{
    Process* const program =
        desktop.Run("marlinex-edit", {"--size=160x120", "--rate=10", "--data=" SOURCE_DIR "/Data",
                                      folder.path + "/night.txt"});
    ASSERT_NE(nullptr, program);
    ASSERT_TRUE(
        WaitUntil([&] { return desktop.Capture().Count(paper, 12) > 20000 || !program->IsRunning(); }));
    ASSERT_TRUE(program->IsRunning()) << program->Errors();
    desktop.Key("ctrl+q");
    EXPECT_TRUE(program->WaitForExit());
    EXPECT_EQ(0, program->ExitStatus()) << program->Errors();
}
