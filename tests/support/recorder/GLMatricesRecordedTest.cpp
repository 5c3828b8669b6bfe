// SPDX-License-Identifier: MIT
// The recorder's matrices, and the place in the window to which they and the viewport take a point.
#include "tests/support/recorder/GLRecorderFixture.h"

#include "tests/support/recorder/GLExpect.h"

#include <GL/glu.h>

class GLMatrices : public GLRecorderFixture
{
};

TEST_F(GLMatrices, TheLastMatrixCallActsFirst)
{
    glTranslatef(1, 2, 3);
    glScalef(2, 2, 2);
    DrawPoint(1, 1, 1);
    EXPECT_TRUE(gl::HasEyePoints(gl::Draws().at(0), {{3, 4, 5}}, 0));
}

TEST_F(GLMatrices, ARotationTurnsZIntoXAboutY)
{
    glRotatef(90, 0, 2, 0); // the axis needs no unit length
    const double expected[] = {0, 0, -1, 0, 0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 0, 1};
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::FromColumns(expected), 1e-15));
}

TEST_F(GLMatrices, ARotationAboutAnObliqueAxisKeepsTheAxis)
{
    glRotatef(120, 1, 1, 1); // turns x to y, y to z, z to x
    const double expected[] = {0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 0, 0, 0, 0, 1};
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::FromColumns(expected), 1e-15));
}

TEST_F(GLMatrices, MatricesAreGivenColumnByColumn)
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

TEST_F(GLMatrices, CallsThatGLUMakesLandHere)
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

TEST_F(GLMatrices, ALookAlongAnObliqueLineAgreesWithGLU)
{
    gluLookAt(2, 5, -8, 0, 1, 0, 0.3, 1, 0);
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::LookAt({2, 5, -8}, {0, 1, 0}, {0.3, 1, 0}), 1e-5));
}

TEST_F(GLMatrices, ASphereOfGLUIsDrawnHere)
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

TEST_F(GLMatrices, EachStackHasItsOwnDepth)
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

TEST_F(GLMatrices, ASurplusPopIsAnUnderflowAndChangesNothing)
{
    glTranslatef(1, 0, 0);
    glPopMatrix();
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Translation(1, 0, 0), 0));
    EXPECT_TRUE(gl::OnlyErrors({GL_STACK_UNDERFLOW}));
    EXPECT_EQ("glPopMatrix(): GL_STACK_UNDERFLOW, the modelview stack has one matrix",
              gl::Errors().at(0).text);
    EXPECT_EQ("glPopMatrix()", gl::Events().at(gl::Errors()[0].event).Text());
}

TEST_F(GLMatrices, StacksOverflowAt32And4)
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

TEST_F(GLMatrices, TheWindowPointIsInPixelsFromTheLowerLeft)
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

TEST_F(GLMatrices, TheWindowPointIsDividedByTheDistance)
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

TEST_F(GLMatrices, APointInThePlaneOfTheEyeHasNoPlaceInTheWindow)
{
    glMatrixMode(GL_PROJECTION);
    gluPerspective(90, 1, 1, 9);
    DrawPoint(1, 1, 0);
    EXPECT_TRUE(gl::IsPoint(gl::Draws().at(0).vertices.at(0).window, {0, 0, 0}));
}

TEST_F(GLMatrices, AViewportOfNegativeSizeIsRefusedAndTheOldOneStays)
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

TEST_F(GLMatrices, TheViewportBeginsAsTheWindowThatResetNames)
{
    gl::Reset(640, 480);
    EXPECT_EQ(640, gl::Now().viewport.width);
    EXPECT_EQ(480, gl::Now().viewport.height);
    EXPECT_EQ(480, gl::Now().scissor.height);
}
