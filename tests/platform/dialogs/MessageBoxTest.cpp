// SPDX-License-Identifier: MIT
#include "platform/dialogs/MessageBox.h"

#include "platform/dialogs/MessageBoxHooks.h"

#include <gtest/gtest.h>

#include <cstdlib>

TEST(Boxes, TheIconsBearTheirNumbers)
{
    EXPECT_EQ(0x10u, platform::BoxErrorIcon);
    EXPECT_EQ(0x40u, platform::BoxInformationIcon);
}

TEST(Boxes, WithoutADisplayTheyGoToStderrAndReturnAtOnce)
{
    unsetenv("DISPLAY");
    testing::internal::CaptureStderr();
    platform::ShowMessageBox("Cap\ntion", "first\r\n\r\n\tsecond \x1B[0m", platform::BoxErrorIcon);
    EXPECT_EQ("Cap tion\nfirst\n\n    second \xEF\xBF\xBD[0m\n", testing::internal::GetCapturedStderr());
}

TEST(Boxes, CanBeCollectedAsTheyAre)
{
    std::vector<platform::MessageBox> boxes;
    platform::CollectMessageBoxes(&boxes);
    platform::ShowMessageBox("a\n", "b\t\r\n", platform::BoxInformationIcon);
    platform::ShowMessageBox("c", "d", platform::BoxErrorIcon);
    platform::CollectMessageBoxes(nullptr);
    ASSERT_EQ(2u, boxes.size());
    EXPECT_EQ("a\n", boxes[0].caption);
    EXPECT_EQ("b\t\r\n", boxes[0].body);
    EXPECT_EQ(0x40u, boxes[0].icon);
    EXPECT_EQ("c", boxes[1].caption);
    EXPECT_EQ("d", boxes[1].body);
    EXPECT_EQ(0x10u, boxes[1].icon);
}
