// SPDX-License-Identifier: MIT
// Records, errors and contexts of the recorder. What the files of calls simulate is tested in files of their own
// beside this one, the expectations in GLExpectRecordedTest.cpp.
#include "tests/support/recorder/GLRecorderFixture.h"

#include "tests/support/recorder/GLExpect.h"

class GLRecorder : public GLRecorderFixture
{
};

// ---- Records

TEST_F(GLRecorder, CallsReadLikeTheCode)
{
    glTranslatef(0, -1.5f, 0.1f);
    glRotated(0.1, 0, 0, 1);
    glBlendFunc(GL_ONE, GL_ZERO);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glDepthMask(GL_FALSE);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glColor4f(1e-5f, 1.0f / 3, 1e10f, -0.0f);
    EXPECT_TRUE(gl::CallsAre(
        gl::Calls(),
        {"glTranslatef(0, -1.5, 0.1)", "glRotated(0.1, 0, 0, 1)", "glBlendFunc(GL_ONE, GL_ZERO)",
         "glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA)", "glDepthMask(GL_FALSE)",
         "glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT)", "glColor4f(1e-05, 0.33333334, 1e+10, -0)"}));
}

TEST_F(GLRecorder, TheOutlineLeavesOutWhatStandsBetweenBeginAndEnd)
{
    glColor3f(1, 1, 1);
    glBegin(GL_LINES);
    glColor3f(0, 0, 0);
    glVertex2f(0, 0);
    glEnd();
    glFlush();
    EXPECT_TRUE(
        gl::CallsAre(gl::Outline(), {"glColor3f(1, 1, 1)", "glBegin(GL_LINES)", "glEnd()", "glFlush()"}));
    EXPECT_TRUE(gl::CallsAre(gl::CallsNamed({"glColor3f", "glFlush"}),
                             {"glColor3f(1, 1, 1)", "glColor3f(0, 0, 0)", "glFlush()"}));
    EXPECT_EQ(2, gl::CountCalls("glColor3f"));
    EXPECT_EQ("glBegin(GL_LINES)", gl::Events().at(size_t(gl::Draws().at(0).event)).Text());
}

TEST_F(GLRecorder, ClearingTheRecordsKeepsTheState)
{
    glEnable(GL_BLEND);
    glTranslatef(1, 0, 0);
    DrawPoint(0, 0, 0);
    glClear(GL_DEPTH_BUFFER_BIT);
    glPopMatrix();
    gl::ClearRecords();
    EXPECT_TRUE(gl::Events().empty());
    EXPECT_TRUE(gl::Draws().empty());
    EXPECT_TRUE(gl::Clears().empty());
    EXPECT_TRUE(gl::NoErrors());
    EXPECT_TRUE(gl::Now().Enabled(GL_BLEND));
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Translation(1, 0, 0), 0));
    EXPECT_EQ(GLenum(GL_STACK_UNDERFLOW), glGetError());
}

TEST_F(GLRecorder, WhilePausedOnlyErrorsAreKeptAndTheStateGoesOn)
{
    gl::Pause();
    DrawPoint(1, 2, 3);
    glColor3f(0, 1, 0);
    glNormal3f(1, 0, 0);
    glTexCoord2f(0.5f, 0.5f);
    glClear(GL_COLOR_BUFFER_BIT);
    glTranslatef(4, 0, 0);
    glVertex3f(0, 0, 0);
    gl::Resume();
    EXPECT_TRUE(gl::Events().empty());
    EXPECT_TRUE(gl::Draws().empty());
    EXPECT_TRUE(gl::Clears().empty());
    EXPECT_TRUE(gl::OnlyErrors({0}));
    EXPECT_EQ("glVertex3f(0, 0, 0): misuse, a vertex outside of glBegin and glEnd", gl::Errors()[0].text);
    DrawPoint(0, 0, 0);
    const gl::Draw& draw = gl::Draws().at(0);
    EXPECT_TRUE(gl::HasEyePoints(draw, {{4, 0, 0}}, 0));
    EXPECT_TRUE(gl::HasColour(draw, {0, 1, 0}));
    EXPECT_TRUE(gl::HasNormal(draw, {1, 0, 0}));
    EXPECT_TRUE(gl::HasTexCoords(draw, {{0.5, 0.5}}));
}

TEST_F(GLRecorder, ADrawKeepsItsStateWhateverComesLater)
{
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE);
    DrawPoint(0, 0, 0);
    DrawPoint(0, 0, 0);
    glDisable(GL_BLEND);
    glTranslatef(1, 0, 0);
    DrawPoint(0, 0, 0);
    EXPECT_TRUE(gl::Blends(gl::Draws().at(0), GL_ONE, GL_ONE));
    EXPECT_EQ(gl::Draws()[0].state, gl::Draws()[1].state) << "shared while nothing changes";
    EXPECT_TRUE(gl::DoesNotBlend(gl::Draws()[2]));
    EXPECT_TRUE(gl::IsMatrix(gl::Draws()[0].modelview, gl::Identity(), 0));
    EXPECT_TRUE(gl::IsMatrix(gl::Draws()[2].modelview, gl::Translation(1, 0, 0), 0));
}

TEST_F(GLRecorder, DrawsAndClearsKnowTheirFrame)
{
    DrawPoint(0, 0, 0);
    gl::PostSwap();
    glClearColor(0.5f, 2, -1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    DrawPoint(0, 0, 0);
    EXPECT_EQ(1, gl::Swaps());
    EXPECT_EQ(0, gl::Draws().at(0).frame);
    EXPECT_EQ(1, gl::Draws().at(1).frame);
    const gl::Clear& clear = gl::Clears().at(0);
    EXPECT_EQ(1, clear.frame);
    EXPECT_EQ(GLbitfield(GL_COLOR_BUFFER_BIT), clear.mask);
    EXPECT_TRUE(gl::IsColour(clear.colour, {0.5, 1, 0, 1})) << "clamped";
    EXPECT_TRUE(gl::CallsContain(gl::Calls(), {"glEnd", "swap", "glClear"}));
}

TEST_F(GLRecorder, DrawsAreFoundByTextureModeContextAndPlace)
{
    GLuint textures[2];
    glGenTextures(2, textures);
    gl::LabelTexture(textures[1], "foto.png");
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, textures[0]);
    DrawPoint(0, 0, 0);
    glBindTexture(GL_TEXTURE_2D, textures[1]);
    DrawPoint(1, 0, 0);
    glDisable(GL_TEXTURE_2D);
    glBegin(GL_LINES);
    glEnd();
    EXPECT_EQ(1u, gl::DrawsWithTexture(textures[0]).size());
    ASSERT_EQ(1u, gl::DrawsWithTexture("foto.png").size());
    EXPECT_TRUE(gl::HasVertices(gl::DrawsWithTexture("foto.png")[0], {{1, 0, 0}}));
    EXPECT_TRUE(gl::DrawsWithTexture("nothing.png").empty());
    EXPECT_EQ(1u, gl::DrawsWithTexture(0u).size()) << "the one without";
    EXPECT_EQ(1u, gl::DrawsWithMode(GL_LINES).size());
    EXPECT_EQ(3u, gl::DrawsInContext(1).size());
    const int second = gl::Draws()[1].event;
    EXPECT_EQ(1u, gl::DrawsBetween(second, second).size());
}

TEST_F(GLRecorder, ADumpShowsCallsDrawsAndErrors)
{
    glColor3f(1, 0, 0);
    DrawPoint(1, 2, 3);
    glPopMatrix();
    const std::string dump = gl::Dump();
    for (const char* part : {"  glColor3f(1, 0, 0)\n", "draw 0: GL_POINTS, 1 vertices", "(1, 2, 3)",
                             "(1, 0, 0, 1)", "GL_STACK_UNDERFLOW"})
        EXPECT_NE(std::string::npos, dump.find(part)) << part;
}

// ---- Errors

TEST_F(GLRecorder, TheFirstErrorIsKeptUntilItIsRead)
{
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
    glMatrixMode(GL_BLEND);
    glPopMatrix();
    EXPECT_EQ(GLenum(GL_INVALID_ENUM), glGetError());
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
    glPopMatrix();
    EXPECT_EQ(GLenum(GL_STACK_UNDERFLOW), glGetError());
    EXPECT_TRUE(gl::OnlyErrors({GL_INVALID_ENUM, GL_STACK_UNDERFLOW, GL_STACK_UNDERFLOW}));
    EXPECT_EQ(2, gl::CountErrors(GL_STACK_UNDERFLOW));
}

TEST_F(GLRecorder, ACallThatIsNotSimulatedIsNoted)
{
    glAccum(GL_LOAD, 1);
    EXPECT_TRUE(gl::OnlyErrors({0}));
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glAccum()"}));
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError()) << "the driver would have taken it";
}

// ---- Contexts

TEST_F(GLRecorder, TwoContextsHaveTheirOwnStateAndShareTextures)
{
    GLuint texture;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTranslatef(1, 0, 0);
    glEnable(GL_LIGHTING);
    glClearColor(1, 0, 0, 0);
    glColor3f(1, 0, 0);
    glPopMatrix();

    gl::SetContext(2);
    EXPECT_EQ(2, gl::GetContext());
    EXPECT_EQ(2, gl::Now().context);
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Identity(), 0));
    EXPECT_FALSE(gl::Now().Enabled(GL_LIGHTING));
    EXPECT_TRUE(gl::IsColour(gl::Now().clearColour, {0, 0, 0, 0}));
    EXPECT_TRUE(gl::IsColour(gl::CurrentColour(), {1, 1, 1}));
    EXPECT_EQ(0u, gl::Now().units[0].bound);
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
    glBindTexture(GL_TEXTURE_2D, texture);
    GLint filter = 0;
    glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, &filter);
    EXPECT_EQ(GL_NEAREST, filter);
    DrawPoint(0, 0, 0);
    glTranslatef(0, 5, 0);

    gl::SetContext(1);
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Translation(1, 0, 0), 0));
    EXPECT_TRUE(gl::Now().Enabled(GL_LIGHTING));
    EXPECT_EQ(GLenum(GL_STACK_UNDERFLOW), glGetError());
    DrawPoint(0, 0, 0);
    EXPECT_EQ(1u, gl::DrawsInContext(2).size());
    EXPECT_EQ(1u, gl::DrawsInContext(1).size());
    EXPECT_FALSE(gl::StateOf(2).Enabled(GL_LIGHTING));
    EXPECT_TRUE(
        gl::CallsContain(gl::Calls(), {"glPopMatrix", "context 2", "glBegin", "context 1", "glBegin"}));
}

TEST_F(GLRecorder, WithoutAContextCallsDoNothing)
{
    gl::SetContext(0);
    const GLuint names[] = {1, 2};
    glDeleteTextures(2, names);
    DrawPoint(1, 2, 3);
    glEnable(GL_BLEND);
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
    EXPECT_EQ(nullptr, glGetString(GL_EXTENSIONS));
    EXPECT_EQ(0u, glGenLists(1));
    EXPECT_TRUE(gl::Draws().empty());
    EXPECT_TRUE(gl::NoErrors());
    EXPECT_EQ("glDeleteTextures(2, {1, 2})", gl::Calls().at(1));
    gl::SetContext(1);
    EXPECT_FALSE(gl::Now().Enabled(GL_BLEND));
}
