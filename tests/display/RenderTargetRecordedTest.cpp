// SPDX-License-Identifier: MIT
// The off-screen target, call by call.
#include "display/RenderTarget.h"

#include "display/GLWindow.h"
#include "tests/support/NullWindowSystem.h"
#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorder.h"

#include <gtest/gtest.h>

#include <cmath>

typedef std::vector<std::string> Calls;

class RenderTargetCalls : public testing::Test
{
protected:
    RenderTargetCalls()
    {
        UseNullWindows();
        gl::Reset(800, 600);
        gl::FollowNullWindows();
    }
    ~RenderTargetCalls() override
    {
        RenderTarget::Destroy();
        gl::UnfollowNullWindows();
        platform::UseSdlWindows();
    }
    void Open() // makes the target with it
    {
        ASSERT_TRUE(window.Create(800, 600, 32, false));
        gl::ClearRecords();
    }

    GLWindow window;
};

TEST_F(RenderTargetCalls, TheWindowMakesItWith512By512LinearAndClamped)
{
    ASSERT_TRUE(window.Create(800, 600, 32, false));
    const std::vector<gl::TextureObject> textures = gl::Textures();
    ASSERT_EQ(1u, textures.size());
    EXPECT_TRUE(gl::CallsContain(
        gl::Calls(),
        {"glGenTextures", "glBindTexture(GL_TEXTURE_2D, 1)",
         "glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE)",
         "glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE)",
         "glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR)",
         "glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR)",
         "glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, 512, 512, 0, GL_RGBA, GL_UNSIGNED_BYTE, null)",
         "glFlush()", "context 2", "glGenRenderbuffers(1)", "glBindRenderbuffer(GL_RENDERBUFFER, 1)",
         "glRenderbufferStorage(GL_RENDERBUFFER, GL_DEPTH_COMPONENT24, 512, 512)", "glGenFramebuffers(1)",
         "glBindFramebuffer(GL_FRAMEBUFFER, 1)",
         "glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, 1, 0)",
         "glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_RENDERBUFFER, 1)",
         "glViewport(0, 0, 512, 512)", "glCheckFramebufferStatus(GL_FRAMEBUFFER)", "context 1"}));
    EXPECT_EQ(2, NullWindowState().contexts);
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(RenderTargetCalls, BeginSwitchesTheContextThenClears)
{
    Open();
    RenderTarget::Begin();
    EXPECT_TRUE(
        gl::CallsAre(gl::Calls(), {"glGetError()", "glFlush()", "context 2",
                                   "glDrawBuffer(GL_COLOR_ATTACHMENT0)", "glReadBuffer(GL_COLOR_ATTACHMENT0)",
                                   "glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT)", "glGetError()"}));
    RenderTarget::End();
}

TEST_F(RenderTargetCalls, EndSwitchesBackThenSetsTheBand)
{
    Open();
    RenderTarget::Begin();
    gl::ClearRecords();
    RenderTarget::End();
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glGetError()", "glFlush()", "context 1", "glGetError()",
                                           "glDrawBuffer(GL_BACK)", "glReadBuffer(GL_BACK)", "glGetError()",
                                           "glViewport(0, 60, 800, 479)", "glGetError()"}));
}

TEST_F(RenderTargetCalls, ThePictureIsBoundAndNothingElse)
{
    Open();
    RenderTarget::BindTexture();
    EXPECT_TRUE(
        gl::CallsAre(gl::Calls(), {"glGetError()", "glBindTexture(GL_TEXTURE_2D, 1)", "glGetError()"}));
    gl::ClearRecords();
    RenderTarget::ReleaseTexture();
    EXPECT_TRUE(gl::Calls().empty());
}

TEST_F(RenderTargetCalls, TheProjectionIsOfTheGivenSizeWithNearAndFarOfItsOwn)
{
    glMatrixMode(GL_MODELVIEW);
    glTranslatef(1, 2, 3);
    glMatrixMode(GL_TEXTURE);
    gl::ClearRecords();
    RenderTarget::SetProjection(300, 200, 60); // works without a target, on whatever context is current
    EXPECT_TRUE(gl::CallsContain(gl::Calls(), {"glMatrixMode(GL_PROJECTION)", "glLoadIdentity()",
                                               "gluPerspective", "glMatrixMode(GL_MODELVIEW)",
                                               "glLoadIdentity()", "glViewport(0, 0, 300, 200)"}));
    EXPECT_EQ(GLenum(GL_MODELVIEW), gl::MatrixMode());
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Identity()));
    const double near = 0.10000000149011612, far = 2000.0;
    const double f = 1 / std::tan(30 * 3.14159265358979323846 / 180);
    EXPECT_NEAR(f / 1.5, gl::Projection().m[0], 1e-12);
    EXPECT_NEAR(f, gl::Projection().m[5], 1e-12);
    EXPECT_NEAR((far + near) / (near - far), gl::Projection().m[10], 1e-12);
    EXPECT_NEAR(2 * far * near / (near - far), gl::Projection().m[14], 1e-12);
    RenderTarget::SetProjection(300, 200, 60);
    EXPECT_NEAR(f, gl::Projection().m[5], 1e-12) << "reset, not multiplied";
}

TEST_F(RenderTargetCalls, ItStartsWithAViewportOfItsOwnSize)
{
    Open();
    RenderTarget::Begin();
    EXPECT_EQ(0, gl::Now().viewport.x);
    EXPECT_EQ(0, gl::Now().viewport.y);
    EXPECT_EQ(512, gl::Now().viewport.width);
    EXPECT_EQ(512, gl::Now().viewport.height);
    RenderTarget::End();
}

TEST_F(RenderTargetCalls, APerspectiveBehindTheProjectionKeepsItsViewport)
{
    Open();
    RenderTarget::Begin();
    RenderTarget::SetProjection(512, 512, 90);
    GLWindow::SetPerspective(45);
    EXPECT_EQ(512, gl::Now().viewport.width);
    EXPECT_EQ(512, gl::Now().viewport.height);
    RenderTarget::End();
}

TEST_F(RenderTargetCalls, MadeAgainItGivesTheSurfaceBackButNeitherContextNorPicture)
{
    Open();
    ASSERT_TRUE(RenderTarget::Create(&window, 64, 32));
    EXPECT_EQ(1, gl::CountCalls("glDeleteFramebuffers"));
    EXPECT_EQ(1, gl::CountCalls("glDeleteRenderbuffers"));
    EXPECT_EQ(2u, gl::Textures().size());
    EXPECT_EQ(3, NullWindowState().contexts);
    EXPECT_EQ(0, NullWindowState().deletedContexts);
    EXPECT_EQ(1, gl::GetContext());
    gl::ClearRecords();
    RenderTarget::BindTexture();
    EXPECT_TRUE(gl::CallsContain(gl::Calls(), {"glBindTexture(GL_TEXTURE_2D, 2)"}));
    gl::ClearRecords();
    RenderTarget::Begin();
    EXPECT_TRUE(gl::CallsContain(gl::Calls(), {"context 3"}));
    RenderTarget::End();
}

TEST_F(RenderTargetCalls, MadeAgainForAnotherWindowItReturnsToTheBandOfThatOne)
{
    Open();
    GLWindow other; // not created: 0 by 0 pixels
    ASSERT_TRUE(RenderTarget::Create(&other, 64, 64));
    RenderTarget::Begin();
    gl::ClearRecords();
    RenderTarget::End();
    EXPECT_TRUE(gl::CallsContain(gl::Calls(), {"glViewport(0, 0, 0, 0)"}));
}

// What all operations but SetProjection do where there is no target.
static void ExpectNoTarget()
{
    gl::ClearRecords();
    RenderTarget::Begin();
    RenderTarget::End();
    RenderTarget::BindTexture();
    RenderTarget::ReleaseTexture();
    RenderTarget::Destroy();
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glGetError()"})); // Begin asks ahead of everything else
}

TEST_F(RenderTargetCalls, NeverMadeItDoesNothing)
{
    ExpectNoTarget();
    EXPECT_FALSE(RenderTarget::Create(&window, 64, 64)) << "no context is current";
    ExpectNoTarget();
}

TEST_F(RenderTargetCalls, TheSurfaceIsGivenBackInItsOwnContext)
{
    Open();
    RenderTarget::Destroy();
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"context 2", "glDeleteFramebuffers(1, {1})",
                                           "glDeleteRenderbuffers(1, {1})", "context 1"}));
}

TEST_F(RenderTargetCalls, GivenBackItDoesNothing)
{
    Open();
    RenderTarget::Destroy();
    EXPECT_EQ(1, gl::GetContext());
    ExpectNoTarget();
}

TEST_F(RenderTargetCalls, WithoutASecondContextItCannotBeMade)
{
    Open();
    NullWindowState().refuseContext = true;
    EXPECT_FALSE(RenderTarget::Create(&window, 64, 64));
    EXPECT_EQ(1, gl::GetContext());
    EXPECT_EQ(1u, gl::Textures().size()) << "no picture is made for it";
    ExpectNoTarget();
    NullWindowState().refuseContext = false;
    EXPECT_TRUE(RenderTarget::Create(&window, 64, 64));
}

TEST_F(RenderTargetCalls, AContextThatCannotBeMadeCurrentIsNoTarget)
{
    Open();
    NullWindowState().refuseCurrent = 3; // after the window's and that of its first target
    EXPECT_FALSE(RenderTarget::Create(&window, 64, 64));
    EXPECT_EQ(1, gl::GetContext());
    EXPECT_EQ(0, gl::CountCalls("glGenFramebuffers")) << "nothing of it is made in the window's context";
    ExpectNoTarget();
}

TEST_F(RenderTargetCalls, WithoutTheEntryPointsItCannotBeMade)
{
    Open();
    const PFNGLGENFRAMEBUFFERSPROC generate = __glewGenFramebuffers;
    __glewGenFramebuffers = nullptr;
    EXPECT_FALSE(RenderTarget::Create(&window, 64, 64));
    EXPECT_EQ(2, NullWindowState().contexts) << "no context is made for it";
    ExpectNoTarget();
    __glewGenFramebuffers = generate;
    EXPECT_TRUE(RenderTarget::Create(&window, 64, 64));
}

static GLenum GLAPIENTRY SayUnsupported(GLenum)
{
    return GL_FRAMEBUFFER_UNSUPPORTED;
}

TEST_F(RenderTargetCalls, AFramebufferThatTheDriverRefusesIsNoTarget)
{
    Open();
    const PFNGLCHECKFRAMEBUFFERSTATUSPROC check = __glewCheckFramebufferStatus;
    __glewCheckFramebufferStatus = SayUnsupported;
    EXPECT_FALSE(RenderTarget::Create(&window, 64, 64));
    EXPECT_EQ(1, gl::GetContext()) << "the window's context is current all the same";
    ExpectNoTarget();
    __glewCheckFramebufferStatus = check;
}

TEST_F(RenderTargetCalls, AWindowWhoseTargetCannotBeMadeIsAWindowAllTheSame)
{
    // The second context alone is refused: the window's own was made by then.
    static int made;
    made = 0;
    NullWindowState().contextSwitched = [](int number) {
        gl::SetContext(number);
        NullWindowState().refuseContext = ++made == 1;
    };
    EXPECT_TRUE(window.Create(800, 600, 32, false));
    EXPECT_TRUE(window.IsRunning());
    ExpectNoTarget();
}
