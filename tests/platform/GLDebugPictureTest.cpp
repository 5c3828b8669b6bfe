// SPDX-License-Identifier: MIT
// What a debug build says of GL errors. Other builds say nothing, and have nothing to test here.
#include "platform/GLDebug.h"

#ifdef MARLINEX_DEBUG_GL

#include "display/RenderTarget.h"
#include "platform/DebugChannelHooks.h"
#include "tests/support/picture/PictureFixture.h"

#include <GL/glew.h>

#include <GL/glu.h>

class GLDebug : public PictureFixture
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(Open(64, 48));
        platform::CollectDebugText(&text);
    }
    void TearDown() override { platform::CollectDebugText(nullptr); }

    static std::string Place(int line)
    {
        return "GL error at tests/platform/GLDebugPictureTest.cpp:" + std::to_string(line) + ": ";
    }

    std::string text;
};

TEST_F(GLDebug, AnErrorInTheWindowIsToldWithFileAndLineOfTheCall)
{
    glEnable(GL_MODELVIEW);
    EXPECT_EQ(0u, text.find(Place(__LINE__ - 1))) << text;
    EXPECT_NE(std::string::npos, text.find("GL_INVALID_ENUM")) << text;
    EXPECT_EQ('\n', text.back());
}

TEST_F(GLDebug, AnErrorInTheOffScreenTargetIsToldTheSameWay)
{
    RenderTarget::Begin();
    text.clear();
    glEnable(GL_MODELVIEW);
    EXPECT_EQ(0u, text.find(Place(__LINE__ - 1))) << text;
    RenderTarget::End();
}

TEST_F(GLDebug, AnErrorInsideOfALibraryIsToldAtTheCallOfTheLibrary)
{
    glBegin(GL_QUADS);
    gluPerspective(45, 1, 1, 2);
    const int line = __LINE__ - 1;
    glEnd();
    EXPECT_EQ(0u, text.find(Place(line))) << text;
}

TEST_F(GLDebug, ACorrectCallIsNotWorthAWord)
{
    glEnable(GL_LIGHTING);
    EXPECT_EQ("", text);
}

#endif
