// SPDX-License-Identifier: MIT
// What a real driver was asked for, and gave.
#include "platform/WindowSystem.h"

#include "platform/DebugChannelHooks.h"
#include "platform/Events.h"
#include "tests/support/WithoutNewThreads.h"
#include "tests/support/picture/PictureFixture.h"

#include <GL/glew.h>

#include <cstdlib>

class SdlWindow : public PictureFixture
{
protected:
    static int Get(GLenum name)
    {
        int value = -1;
        glGetIntegerv(name, &value);
        return value;
    }
};

TEST_F(SdlWindow, HasAPictureOf32BitsAndADepthOf24AtLeastAndNothingElse)
{
    ASSERT_TRUE(Open(64, 48));
    for (const GLenum bits : {GL_RED_BITS, GL_GREEN_BITS, GL_BLUE_BITS, GL_ALPHA_BITS})
        EXPECT_EQ(8, Get(bits)) << bits;
    EXPECT_GE(Get(GL_DEPTH_BITS), 24);
    EXPECT_EQ(0, Get(GL_STENCIL_BITS));
    EXPECT_EQ(0, Get(GL_ACCUM_RED_BITS));
    EXPECT_EQ(0, Get(GL_AUX_BUFFERS));
    EXPECT_EQ(GL_CONTEXT_COMPATIBILITY_PROFILE_BIT, Get(GL_CONTEXT_PROFILE_MASK));
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
}

TEST_F(SdlWindow, ItsNameIsTakenOnce)
{
    ASSERT_TRUE(Open(64, 48));
    EXPECT_FALSE(platform::Windows().registerClass("another"));
}

TEST_F(SdlWindow, OnceGoneNoContextBecomesCurrentOnIt)
{
    ASSERT_TRUE(Open(64, 48));
    const platform::DeviceContext device = platform::Windows().getCurrentDevice();
    const platform::ContextHandle context = platform::Windows().getCurrentContext();
    ASSERT_NE(nullptr, context);
    EXPECT_TRUE(platform::Windows().makeCurrent(device, context));
    platform::PostQuit(0);
    window.PumpMessage();
    window.Destroy();
    EXPECT_EQ(nullptr, platform::Windows().getCurrentContext());
    EXPECT_EQ(nullptr, platform::Windows().getCurrentDevice());
    EXPECT_FALSE(platform::Windows().makeCurrent(device, context));
    EXPECT_TRUE(platform::Windows().makeCurrent(nullptr, nullptr));
}

TEST_F(SdlWindow, WhatFailedIsTracedInSdlsOwnWords)
{
    setenv("SDL_VIDEODRIVER", "no such driver", 1);
    std::string trace;
    platform::CollectDebugText(&trace);
    EXPECT_FALSE(platform::Windows().registerClass("marlinex"));
    platform::CollectDebugText(nullptr);
    EXPECT_EQ("Starting the window system failed: no such driver not available\n", trace);
}

TEST_F(SdlWindow, IsRefusedWhereItsDriverWouldWaitForThreadsThatItCannotHave)
{
    WithoutNewThreads([] {
        setenv("SDL_VIDEODRIVER", "offscreen", 1);
        ASSERT_TRUE(platform::Windows().registerClass("marlinex"));
        std::string trace;
        platform::CollectDebugText(&trace);
        EXPECT_EQ(nullptr, platform::Windows().createWindow({"lantern", 0, 0, 64, 48, false, 32, 8, 24}));
        platform::CollectDebugText(nullptr);
        EXPECT_EQ("Creating the window failed: the system refuses more threads\n", trace);
    });
}
