// SPDX-License-Identifier: MIT
// Matrices, vertices, records and contexts of the recorder. What the other files of calls simulate is tested
// in GLStateRecordedTest.cpp and GLObjectsRecordedTest.cpp, the expectations in GLExpectRecordedTest.cpp.
#include "tests/support/recorder/GLRecorder.h"

#include "tests/support/recorder/GLExpect.h"

#include <GL/glu.h>

#include <cmath>

class GLRecorder : public testing::Test
{
protected:
    GLRecorder() { gl::Reset(800, 600); }

    static void DrawPoint(float x, float y, float z)
    {
        glBegin(GL_POINTS);
        glVertex3f(x, y, z);
        glEnd();
    }
};

// ---- Matrices

TEST_F(GLRecorder, TheLastMatrixCallActsFirst)
{
    glTranslatef(1, 2, 3);
    glScalef(2, 2, 2);
    DrawPoint(1, 1, 1);
    EXPECT_TRUE(gl::HasEyePoints(gl::Draws().at(0), {{3, 4, 5}}, 0));
}

TEST_F(GLRecorder, ARotationTurnsZIntoXAboutY)
{
    glRotatef(90, 0, 2, 0); // the axis needs no unit length
    const double expected[] = {0, 0, -1, 0, 0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 0, 1};
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::FromColumns(expected), 1e-15));
}

TEST_F(GLRecorder, ARotationAboutAnObliqueAxisKeepsTheAxis)
{
    glRotatef(120, 1, 1, 1); // turns x to y, y to z, z to x
    const double expected[] = {0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 0, 0, 0, 0, 1};
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::FromColumns(expected), 1e-15));
}

TEST_F(GLRecorder, MatricesAreGivenColumnByColumn)
{
    const float columns[] = {1, 0, 0, 0, 0.5f, 1, 0, 0, 0, 0, 1, 0, 7, 8, 9, 1};
    glLoadMatrixf(columns);
    DrawPoint(0, 2, 0);
    EXPECT_TRUE(gl::HasEyePoints(gl::Draws().at(0), {{8, 10, 9}}, 0));
    float read[16];
    glGetFloatv(GL_MODELVIEW_MATRIX, read);
    for (int i = 0; i < 16; i++)
        EXPECT_EQ(columns[i], read[i]) << i;

    glTranslatef(1, 0, 0);
    glMultMatrixf(columns);
    EXPECT_TRUE(gl::IsMatrix(
        gl::Modelview(), gl::FromColumns(columns) * gl::Translation(1, 0, 0) * gl::FromColumns(columns), 0));
}

TEST_F(GLRecorder, CallsThatGLUMakesLandHere)
{
    glMatrixMode(GL_PROJECTION);
    gluPerspective(90, 2, 1, 3);
    const double perspective[] = {0.5, 0, 0, 0, 0, 1, 0, 0, 0, 0, -2, -1, 0, 0, -3, 0};
    EXPECT_TRUE(gl::IsMatrix(gl::Projection(), gl::FromColumns(perspective), 1e-7));
    EXPECT_TRUE(gl::IsMatrix(gl::Projection(), gl::Perspective(90, 2, 1, 3), 1e-7));

    glLoadIdentity();
    gluOrtho2D(0, 1, 0, 1);
    const double ortho[] = {2, 0, 0, 0, 0, 2, 0, 0, 0, 0, -1, 0, -1, -1, 0, 1};
    EXPECT_TRUE(gl::IsMatrix(gl::Projection(), gl::FromColumns(ortho), 0));
    EXPECT_TRUE(gl::IsMatrix(gl::Projection(), gl::Ortho(0, 1, 0, 1), 0));

    glMatrixMode(GL_MODELVIEW);
    gluLookAt(3, 0, 0, 0, 0, 0, 0, 1, 0); // from +x to the origin: the world's z lies to the left
    const double look[] = {0, 0, 1, 0, 0, 1, 0, 0, -1, 0, 0, 0, 0, 0, -3, 1};
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::FromColumns(look), 1e-7));
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::LookAt({3, 0, 0}, {0, 0, 0}, {0, 1, 0}), 1e-7));

    EXPECT_TRUE(
        gl::CallsAre(gl::Calls(), {"glMatrixMode(GL_PROJECTION)", "gluPerspective(90, 2, 1, 3)",
                                   "glLoadIdentity()", "gluOrtho2D(0, 1, 0, 1)", "glMatrixMode(GL_MODELVIEW)",
                                   "gluLookAt(3, 0, 0, 0, 0, 0, 0, 1, 0)"}));
}

TEST_F(GLRecorder, ALookAlongAnObliqueLineAgreesWithGLU)
{
    gluLookAt(2, 5, -8, 0, 1, 0, 0.3, 1, 0);
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::LookAt({2, 5, -8}, {0, 1, 0}, {0.3, 1, 0}), 1e-5));
}

TEST_F(GLRecorder, ASphereOfGLUIsDrawnHere)
{
    GLUquadric* const sphere = gluNewQuadric();
    gluSphere(sphere, 1, 4, 3);
    gluDeleteQuadric(sphere);
    ASSERT_FALSE(gl::Draws().empty());
    for (const gl::Draw& draw : gl::Draws())
        for (const gl::Vertex& vertex : draw.vertices) {
            const gl::Point& p = vertex.object;
            EXPECT_NEAR(1, p.x * p.x + p.y * p.y + p.z * p.z, 1e-5);
        }
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(GLRecorder, EachStackHasItsOwnDepth)
{
    for (GLenum mode : {GL_MODELVIEW, GL_PROJECTION, GL_TEXTURE}) {
        glMatrixMode(mode);
        EXPECT_EQ(mode, gl::MatrixMode());
        glPushMatrix();
        EXPECT_EQ(2, gl::StackDepth(mode));
        glTranslatef(1, 0, 0);
        glPopMatrix();
        EXPECT_EQ(1, gl::StackDepth(mode));
    }
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Identity(), 0));
    EXPECT_TRUE(gl::IsMatrix(gl::Projection(), gl::Identity(), 0));
    EXPECT_TRUE(gl::IsMatrix(gl::TextureMatrix(), gl::Identity(), 0));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(GLRecorder, ASurplusPopIsAnUnderflowAndChangesNothing)
{
    glTranslatef(1, 0, 0);
    glPopMatrix();
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Translation(1, 0, 0), 0));
    EXPECT_TRUE(gl::OnlyErrors({GL_STACK_UNDERFLOW}));
    EXPECT_EQ("glPopMatrix(): GL_STACK_UNDERFLOW, the modelview stack has one matrix",
              gl::Errors().at(0).text);
    EXPECT_EQ("glPopMatrix()", gl::Events().at(gl::Errors()[0].event).Text());
}

TEST_F(GLRecorder, StacksOverflowAt32And4)
{
    for (int i = 1; i < 32; i++)
        glPushMatrix();
    EXPECT_TRUE(gl::NoErrors());
    glPushMatrix();
    EXPECT_EQ(32, gl::StackDepth(GL_MODELVIEW));
    EXPECT_TRUE(gl::OnlyErrors({GL_STACK_OVERFLOW}));

    gl::ClearRecords();
    glMatrixMode(GL_PROJECTION);
    for (int i = 1; i < 4; i++)
        glPushMatrix();
    EXPECT_TRUE(gl::NoErrors());
    glPushMatrix();
    EXPECT_EQ(4, gl::StackDepth(GL_PROJECTION));
    EXPECT_TRUE(gl::OnlyErrors({GL_STACK_OVERFLOW}));
}

// ---- Viewport and window coordinates

TEST_F(GLRecorder, TheWindowPointIsInPixelsFromTheLowerLeft)
{
    glMatrixMode(GL_PROJECTION);
    gluOrtho2D(0, 1, 0, 1);
    glViewport(10, 20, 200, 100);
    DrawPoint(0, 0, 0);
    DrawPoint(1, 0.5f, 0);
    EXPECT_TRUE(gl::HasWindowPoints(gl::Draws().at(0), {{10, 20}}));
    EXPECT_TRUE(gl::HasWindowPoints(gl::Draws().at(1), {{210, 70}}));
    EXPECT_FLOAT_EQ(0.5f, gl::Draws()[0].vertices[0].window.z);
}

TEST_F(GLRecorder, TheWindowPointIsDividedByTheDistance)
{
    glMatrixMode(GL_PROJECTION);
    gluPerspective(90, 1, 1, 9);
    glViewport(0, 0, 100, 100);
    DrawPoint(1, 0, -4);
    const gl::Vertex& vertex = gl::Draws().at(0).vertices.at(0);
    EXPECT_TRUE(gl::IsPoint(vertex.eye, {1, 0, -4}));
    EXPECT_NEAR(4, vertex.clip.w, 1e-6);
    EXPECT_NEAR(62.5, vertex.window.x, 1e-4);
    EXPECT_NEAR(50, vertex.window.y, 1e-4);
    EXPECT_NEAR((9.0 + 1) / 8 / 2 + 0.5 - 9.0 / 8 / 4, vertex.window.z, 1e-6);
}

TEST_F(GLRecorder, APointInThePlaneOfTheEyeHasNoPlaceInTheWindow)
{
    glMatrixMode(GL_PROJECTION);
    gluPerspective(90, 1, 1, 9);
    DrawPoint(1, 1, 0);
    EXPECT_TRUE(gl::IsPoint(gl::Draws().at(0).vertices.at(0).window, {0, 0, 0}));
}

TEST_F(GLRecorder, AViewportOfNegativeSizeIsRefusedAndTheOldOneStays)
{
    glViewport(1, 2, 3, 4);
    glViewport(0, 0, 10, -1);
    glViewport(0, 0, -1, 10);
    const gl::Rectangle& v = gl::Now().viewport;
    EXPECT_EQ(1, v.x);
    EXPECT_EQ(2, v.y);
    EXPECT_EQ(3, v.width);
    EXPECT_EQ(4, v.height);
    EXPECT_TRUE(gl::OnlyErrors({GL_INVALID_VALUE, GL_INVALID_VALUE}));
    glViewport(0, 0, 0, 0); // nothing to see, but allowed
    EXPECT_EQ(0, gl::Now().viewport.width);
    EXPECT_EQ(2u, gl::Errors().size());
}

TEST_F(GLRecorder, TheViewportBeginsAsTheWindowThatResetNames)
{
    gl::Reset(640, 480);
    EXPECT_EQ(640, gl::Now().viewport.width);
    EXPECT_EQ(480, gl::Now().viewport.height);
    EXPECT_EQ(480, gl::Now().scissor.height);
}

// ---- Vertices

TEST_F(GLRecorder, AVertexTakesWhatWasCurrentWhenItCame)
{
    glColor3f(1, 0, 0);
    glNormal3f(0, 1, 0);
    glBegin(GL_TRIANGLES);
    glTexCoord2f(0.25f, 0.75f);
    glVertex2f(1, 2);
    glColor4f(0, 2, -1, 0.5f); // kept as sent, not clamped
    glMultiTexCoord2f(GL_TEXTURE1, 3, 4);
    glVertex3f(1, 2, 3);
    glNormal3f(1, 0, 0);
    glMultiTexCoord2fARB(GL_TEXTURE0_ARB, 5, 6);
    glVertex4f(1, 2, 3, 4);
    glEnd();
    const gl::Draw& draw = gl::Draws().at(0);
    EXPECT_EQ(GLenum(GL_TRIANGLES), draw.mode);
    EXPECT_TRUE(gl::HasVertices(draw, {{1, 2, 0}, {1, 2, 3}, {1, 2, 3, 4}}));
    EXPECT_TRUE(gl::HasColours(draw, {{1, 0, 0, 1}, {0, 2, -1, 0.5}, {0, 2, -1, 0.5}}));
    EXPECT_TRUE(gl::HasNormals(draw, {{0, 1, 0}, {0, 1, 0}, {1, 0, 0}}));
    EXPECT_TRUE(gl::HasTexCoords(draw, {{0.25, 0.75}, {0.25, 0.75}, {5, 6}}));
    EXPECT_TRUE(gl::HasTexCoords(draw, {{0, 0}, {3, 4}, {3, 4}}, 0, 1));
    EXPECT_TRUE(gl::IsColour(gl::CurrentColour(), {0, 2, -1, 0.5}));
    EXPECT_TRUE(gl::IsPoint(gl::CurrentNormal(), {1, 0, 0}));
    EXPECT_TRUE(gl::IsPoint(gl::CurrentTexCoord(0), {5, 6}));
    EXPECT_TRUE(gl::IsPoint(gl::CurrentTexCoord(1), {3, 4}));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(GLRecorder, EveryFormOfAVertexSaysTheSame)
{
    const float f[] = {1, 2, 3, 4};
    const double d[] = {1, 2, 3, 4};
    glBegin(GL_POINTS);
    glVertex2d(1, 2);
    glVertex2i(1, 2);
    glVertex2fv(f);
    glVertex2dv(d);
    glVertex3d(1, 2, 3);
    glVertex3i(1, 2, 3);
    glVertex3fv(f);
    glVertex3dv(d);
    glVertex4d(1, 2, 3, 4);
    glVertex4fv(f);
    glVertex4dv(d);
    glEnd();
    EXPECT_TRUE(gl::HasVertices(gl::Draws().at(0), {{1, 2, 0},
                                                    {1, 2, 0},
                                                    {1, 2, 0},
                                                    {1, 2, 0},
                                                    {1, 2, 3},
                                                    {1, 2, 3},
                                                    {1, 2, 3},
                                                    {1, 2, 3},
                                                    {1, 2, 3, 4},
                                                    {1, 2, 3, 4},
                                                    {1, 2, 3, 4}}));
    EXPECT_EQ("glVertex3fv({1, 2, 3})", gl::Calls().at(7));
}

TEST_F(GLRecorder, EveryFormOfAColourSaysTheSame)
{
    const float f[] = {0.2f, 0.4f, 0.6f, 0.8f};
    const double d[] = {0.2, 0.4, 0.6, 0.8};
    const GLubyte b[] = {51, 102, 153, 204};
    const auto current = [](double alpha) {
        return gl::IsColour(gl::CurrentColour(), {0.2, 0.4, 0.6, alpha});
    };
    glColor3f(f[0], f[1], f[2]);
    EXPECT_TRUE(current(1));
    glColor4fv(f);
    EXPECT_TRUE(current(0.8));
    glColor3fv(f);
    EXPECT_TRUE(current(1));
    glColor4d(0.2, 0.4, 0.6, 0.8);
    EXPECT_TRUE(current(0.8));
    glColor3d(0.2, 0.4, 0.6);
    EXPECT_TRUE(current(1));
    glColor4dv(d);
    EXPECT_TRUE(current(0.8));
    glColor3dv(d);
    EXPECT_TRUE(current(1));
    glColor4ub(51, 102, 153, 204);
    EXPECT_TRUE(current(0.8));
    glColor3ub(51, 102, 153);
    EXPECT_TRUE(current(1));
    glColor4ubv(b);
    EXPECT_TRUE(current(0.8));
    glColor3ubv(b);
    EXPECT_TRUE(current(1));
}

TEST_F(GLRecorder, UnbalancedBeginAndEndAreErrors)
{
    glEnd();
    glVertex2f(0, 0);
    glBegin(GL_QUADS);
    glBegin(GL_QUADS);
    glTranslatef(1, 0, 0);
    glEnable(GL_BLEND);
    glEnd();
    glBegin(GL_POLYGON + 1);
    EXPECT_TRUE(gl::OnlyErrors({GL_INVALID_OPERATION, 0, GL_INVALID_OPERATION, GL_INVALID_OPERATION,
                                GL_INVALID_OPERATION, GL_INVALID_ENUM}));
    EXPECT_EQ("glVertex2f(0, 0): misuse, a vertex outside of glBegin and glEnd", gl::Errors()[1].text);
    EXPECT_FALSE(gl::Now().Enabled(GL_BLEND));
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Identity(), 0));
    EXPECT_EQ(1u, gl::Draws().size());
}

TEST_F(GLRecorder, ATextureUnitThatIsNotThereIsRefused)
{
    glActiveTexture(0); // a bare number
    glMultiTexCoord2f(1, 5, 6);
    glClientActiveTexture(2);
    EXPECT_TRUE(gl::OnlyErrors({GL_INVALID_ENUM, GL_INVALID_ENUM, GL_INVALID_ENUM}));
    EXPECT_EQ(0, gl::Now().activeUnit);
    EXPECT_TRUE(gl::IsPoint(gl::CurrentTexCoord(1), {0, 0}));
}

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
