// SPDX-License-Identifier: MIT
#include "platform/Screen.h"

#include <gtest/gtest.h>

#include <cstdlib>

TEST(Screen, WithoutADisplayThereIsNoneAndNothingHappens)
{
    unsetenv("DISPLAY");
    EXPECT_FALSE(platform::HasDisplay());
    EXPECT_FALSE(platform::HasWindowManager());
    EXPECT_EQ(1.0f, platform::ScreenScale());

    setenv("DISPLAY", "no such display", 1);
    EXPECT_FALSE(platform::HasDisplay());
}

TEST(Screen, TheScaleIsTheDotsPerInchOver96)
{
    EXPECT_EQ(2.0f, platform::ScaleFromResources("Xft.dpi:\t192"));
    EXPECT_EQ(1.0f, platform::ScaleFromResources("Xft.dpi: 96\n"));
    EXPECT_EQ(1.25f,
              platform::ScaleFromResources("*customization:\t-color\nXft.dpi:\t120\nXft.hinting:\t1\n"));
    EXPECT_EQ(1.5f, platform::ScaleFromResources("Xft.antialias:\t1\nXft.dpi:144.7\n"));
}

TEST(Screen, TheScaleComesInQuarters)
{
    EXPECT_EQ(1.0f, platform::ScaleFromResources("Xft.dpi: 107"));
    EXPECT_EQ(1.25f, platform::ScaleFromResources("Xft.dpi: 109"));
    EXPECT_EQ(1.5f, platform::ScaleFromResources("Xft.dpi: 133"));
    EXPECT_EQ(2.0f, platform::ScaleFromResources("Xft.dpi: 200"));
}

TEST(Screen, TheScaleIsOneWhereTheDesktopSaysNothing)
{
    for (const char* text : {"", "\n", "\n\n", "Xft.dpi", "xft.dpi: 192", "aXft.dpi: 192", "Xft.dpi: much"})
        EXPECT_EQ(1.0f, platform::ScaleFromResources(text)) << text;
    EXPECT_EQ(1.0f, platform::ScaleFromResources(nullptr));
}

TEST(Screen, TheScaleStaysBetweenOneAndFour)
{
    EXPECT_EQ(1.0f, platform::ScaleFromResources("Xft.dpi: 72"));
    EXPECT_EQ(1.0f, platform::ScaleFromResources("Xft.dpi: -192"));
    EXPECT_EQ(4.0f, platform::ScaleFromResources("Xft.dpi: 384"));
    EXPECT_EQ(4.0f, platform::ScaleFromResources("Xft.dpi: 99999999"));
}
