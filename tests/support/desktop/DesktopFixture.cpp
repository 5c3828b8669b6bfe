// SPDX-License-Identifier: MIT
#include "tests/support/desktop/DesktopFixture.h"

#include "tests/Folders.h"

#include <filesystem>

void DesktopFixture::SetUp()
{
    ASSERT_TRUE(desktop.Start(1280, 1024)) << "Are Xvfb, openbox and xdotool installed?";
}

void DesktopFixture::TearDown()
{
    if (!HasFailure() || desktop.width == 0)
        return;
    const std::string folder = BINARY_DIR "/tests/desktop-failures";
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    const std::string path = folder + "/" + test->test_suite_name() + "." + test->name() + ".png";
    if (desktop.Capture().SavePng(path))
        printf("The screen as it was: %s\n", path.c_str());
}
