// SPDX-License-Identifier: MIT
// The frame operations, as GL sees them.
#include "display/GLWindow.h"

#include "tests/support/NullWindowSystem.h"
#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorder.h"

#include <gtest/gtest.h>

#include <cmath>

class GLWindowFrame : public testing::Test
{
protected:
    GLWindowFrame()
    {
        UseNullWindows();
        gl::Reset(16, 16);
        gl::FollowNullWindows();
    }
    // The band that SetLetterbox gives in a window of this size. One window a process, so one band a test.
    static std::vector<int> Band(int width, int height, float s)
    {
        GLWindow window;
        Open(&window, width, height);
        window.SetLetterbox(s);
        const gl::Rectangle band = gl::Now().viewport;
        return {band.x, band.y, band.width, band.height};
    }
    static void Open(GLWindow* window, int width, int height) { window->Create(width, height, 32, false); }

    typedef std::vector<int> Ints;
};

TEST_F(GLWindowFrame, CreationSetsTwoHintsAndNothingElseOfTheState)
{
    GLWindow window;
    ASSERT_TRUE(window.Create(800, 600, 32, false));
    const gl::State& state = gl::StateOf(1);
    EXPECT_EQ(GLenum(GL_NICEST), state.hints.at(GL_PERSPECTIVE_CORRECTION_HINT));
    EXPECT_EQ(GLenum(GL_NICEST), state.hints.at(GL_GENERATE_MIPMAP_HINT));
    EXPECT_EQ(2u, state.hints.size());
    EXPECT_FALSE(state.Enabled(GL_DEPTH_TEST));
    EXPECT_TRUE(gl::IsColour(state.clearColour, {0, 0, 0, 0}));
    EXPECT_EQ(1, gl::GetContext()) << "the window's context is current again";
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(GLWindowFrame, TheHintsComeAheadOfTheOffScreenTarget)
{
    GLWindow window;
    ASSERT_TRUE(window.Create(800, 600, 32, false));
    EXPECT_TRUE(gl::CallsContain(gl::Calls(), {"glHint(GL_PERSPECTIVE_CORRECTION_HINT, GL_NICEST)",
                                               "glHint(GL_GENERATE_MIPMAP_HINT, GL_NICEST)", "glGenTextures",
                                               "context 2", "context 1"}));
}

TEST_F(GLWindowFrame, AWindowWithoutTheExtensionsGetsNoGLStateAtAll)
{
    NullWindowState().systemExtensions = "";
    GLWindow window;
    EXPECT_FALSE(window.Create(800, 600, 32, false));
    EXPECT_EQ(0, gl::CountCalls("glHint"));
    EXPECT_EQ(1, NullWindowState().contexts) << "there is no off-screen target";
}

TEST_F(GLWindowFrame, TheBandAt600)
{
    EXPECT_EQ((Ints{0, 89, 800, 420}), Band(800, 600, 0.85f));
}
TEST_F(GLWindowFrame, TheWiderBandAt600)
{
    EXPECT_EQ((Ints{0, 60, 800, 479}), Band(800, 600, 0.9f));
}
TEST_F(GLWindowFrame, TheBandAt480)
{
    EXPECT_EQ((Ints{0, 71, 640, 336}), Band(640, 480, 0.85f));
}
TEST_F(GLWindowFrame, TheBandAt768)
{
    EXPECT_EQ((Ints{0, 115, 1024, 537}), Band(1024, 768, 0.85f));
}
TEST_F(GLWindowFrame, TheWholeWindow)
{
    EXPECT_EQ((Ints{0, 0, 1024, 768}), Band(1024, 768, 1.0f));
}
TEST_F(GLWindowFrame, AHalfIsABandOfNoHeight)
{
    EXPECT_EQ((Ints{0, 300, 800, 0}), Band(800, 600, 0.5f));
}

TEST_F(GLWindowFrame, BelowAHalfGLRefusesAndTheOldBandStays)
{
    GLWindow window;
    Open(&window, 800, 600);
    window.SetLetterbox(0.85f);
    window.SetLetterbox(0.4f);
    EXPECT_EQ(89, gl::Now().viewport.y);
    EXPECT_EQ(420, gl::Now().viewport.height);
    EXPECT_EQ(1, gl::CountErrors(GL_INVALID_VALUE));
}

// Float arithmetic would miss a line in each of these.
TEST_F(GLWindowFrame, TheWiderBandAt480)
{
    EXPECT_EQ((Ints{0, 48, 640, 383}), Band(640, 480, 0.9f));
}
TEST_F(GLWindowFrame, TheWiderBandAt900)
{
    EXPECT_EQ((Ints{0, 90, 1600, 719}), Band(1600, 900, 0.9f));
}
TEST_F(GLWindowFrame, TheWiderBandAt1080)
{
    EXPECT_EQ((Ints{0, 108, 1920, 863}), Band(1920, 1080, 0.9f));
}

TEST_F(GLWindowFrame, ThePerspectiveIsFixedButForItsAngle)
{
    GLWindow::SetPerspective(45);
    const double aspect = 1.3300000429153442, near = 0.10000000149011612, far = 2000.0;
    const double f = 1 / std::tan(22.5 * 3.14159265358979323846 / 180);
    gl::Matrix expected = gl::Identity();
    for (double& element : expected.m)
        element = 0;
    expected.m[0] = f / aspect;
    expected.m[5] = f;
    expected.m[10] = (far + near) / (near - far);
    expected.m[11] = -1;
    expected.m[14] = 2 * far * near / (near - far);
    EXPECT_TRUE(gl::IsMatrix(gl::Projection(), expected, 1e-12));
    EXPECT_TRUE(gl::CallsContain(gl::Calls(), {"glMatrixMode(GL_PROJECTION)", "glLoadIdentity()",
                                               "gluPerspective", "glMatrixMode(GL_MODELVIEW)"}));
}

TEST_F(GLWindowFrame, ThePerspectiveLeavesModelviewAsItWasAndTheModeThere)
{
    glMatrixMode(GL_MODELVIEW);
    glTranslatef(1, 2, 3);
    glMatrixMode(GL_TEXTURE);
    GLWindow::SetPerspective(70);
    EXPECT_EQ(GLenum(GL_MODELVIEW), gl::MatrixMode());
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Translation(1, 2, 3)));
    GLWindow::SetPerspective(70);
    EXPECT_NEAR(1 / std::tan(35 * 3.14159265358979323846 / 180), gl::Projection().m[5], 1e-12)
        << "reset, not multiplied";
}

TEST_F(GLWindowFrame, AFrameBeginsWithColourAndDepthClearedAndTheIdentity)
{
    GLWindow window;
    glMatrixMode(GL_MODELVIEW);
    glTranslatef(1, 2, 3);
    glMatrixMode(GL_PROJECTION);
    gl::ClearRecords();
    window.ClearFrame();
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT)",
                                           "glMatrixMode(GL_MODELVIEW)", "glLoadIdentity()"}));
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Identity()));
}

TEST_F(GLWindowFrame, AnEffectBeginsWithDepthClearedAndTheIdentity)
{
    glMatrixMode(GL_MODELVIEW);
    glTranslatef(1, 2, 3);
    glMatrixMode(GL_PROJECTION);
    gl::ClearRecords();
    GLWindow::ClearDepthAndReset();
    EXPECT_TRUE(gl::CallsAre(
        gl::Calls(), {"glClear(GL_DEPTH_BUFFER_BIT)", "glMatrixMode(GL_MODELVIEW)", "glLoadIdentity()"}));
}

TEST_F(GLWindowFrame, DepthAloneLeavesTheMatrices)
{
    glMatrixMode(GL_MODELVIEW);
    glTranslatef(1, 2, 3);
    gl::ClearRecords();
    GLWindow::ClearDepth();
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glClear(GL_DEPTH_BUFFER_BIT)"}));
}

TEST_F(GLWindowFrame, SetViewportIsGLsUnderTheEnginesName)
{
    SetViewport(1, 2, 3, 4);
    EXPECT_TRUE(gl::CallsContain(gl::Calls(), {"glViewport(1, 2, 3, 4)"}));
}
