// SPDX-License-Identifier: MIT
#include "display/DrawingSwitch.h"

#include "display/GLWindow.h"
#include "display/RenderTarget.h"
#include "platform/Drawing.h"
#include "tests/support/NullWindowSystem.h"
#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorder.h"

#include <gtest/gtest.h>

class SwitchedDrawing : public testing::Test
{
protected:
    SwitchedDrawing()
    {
        UseNullWindows();
        gl::Reset(800, 600);
        gl::FollowNullWindows();
        EXPECT_TRUE(window.Create(800, 600, 32, false));
    }
    ~SwitchedDrawing() override
    {
        platform::SetDrawing(true);
        RenderTarget::Destroy();
        gl::UnfollowNullWindows();
        platform::UseSdlWindows();
    }

    static void ExpectDiscarding(bool discarding)
    {
        EXPECT_EQ(1, gl::GetContext());
        EXPECT_EQ(discarding, gl::Now().Enabled(GL_RASTERIZER_DISCARD));
        RenderTarget::Begin();
        EXPECT_EQ(2, gl::GetContext());
        EXPECT_EQ(discarding, gl::Now().Enabled(GL_RASTERIZER_DISCARD));
        RenderTarget::End();
    }

    GLWindow window;
};

TEST_F(SwitchedDrawing, OffNeitherWindowNorTargetIsDrawnIntoAndOnBothAre)
{
    SwitchDrawing(false);
    EXPECT_FALSE(platform::IsDrawing());
    ExpectDiscarding(true);
    SwitchDrawing(true);
    EXPECT_TRUE(platform::IsDrawing());
    ExpectDiscarding(false);
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(SwitchedDrawing, TheBandOfTheShowStays)
{
    glViewport(10, 90, 780, 419);
    for (const bool on : {false, true}) {
        SwitchDrawing(on);
        EXPECT_EQ(10, gl::Now().viewport.x);
        EXPECT_EQ(90, gl::Now().viewport.y);
        EXPECT_EQ(780, gl::Now().viewport.width);
        EXPECT_EQ(419, gl::Now().viewport.height);
    }
}
