// SPDX-License-Identifier: MIT
#include "math/Primitives.h"

#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorder.h"

#include <GL/glew.h>

#include <gtest/gtest.h>

class Primitives : public testing::Test
{
protected:
    Primitives() { gl::Reset(); }
};

struct Face {
    const char* name;
    gl::Point normal;
    std::vector<gl::Corner> corners;
};

// clang-format off
static const std::vector<Face> faces = {
    {"top",    { 0,  1,  0}, {{0, 0, -0.5,  0.5,  0.5}, {1, 0,  0.5,  0.5,  0.5}, {1, 1,  0.5,  0.5, -0.5}, {0, 1, -0.5,  0.5, -0.5}}},
    {"bottom", { 0, -1,  0}, {{0, 0, -0.5, -0.5,  0.5}, {1, 0,  0.5, -0.5,  0.5}, {1, 1,  0.5, -0.5, -0.5}, {0, 1, -0.5, -0.5, -0.5}}},
    {"front",  { 0,  0,  1}, {{0, 0,  0.5,  0.5,  0.5}, {1, 0, -0.5,  0.5,  0.5}, {1, 1, -0.5, -0.5,  0.5}, {0, 1,  0.5, -0.5,  0.5}}},
    {"back",   { 0,  0, -1}, {{0, 0, -0.5,  0.5, -0.5}, {1, 0,  0.5,  0.5, -0.5}, {1, 1,  0.5, -0.5, -0.5}, {0, 1, -0.5, -0.5, -0.5}}},
    {"left",   {-1,  0,  0}, {{0, 0, -0.5,  0.5,  0.5}, {1, 0, -0.5,  0.5, -0.5}, {1, 1, -0.5, -0.5, -0.5}, {0, 1, -0.5, -0.5,  0.5}}},
    {"right",  { 1,  0,  0}, {{0, 0,  0.5,  0.5, -0.5}, {1, 0,  0.5,  0.5,  0.5}, {1, 1,  0.5, -0.5,  0.5}, {0, 1,  0.5, -0.5, -0.5}}},
};
// clang-format on

TEST_F(Primitives, TheUnitCubeHasSixFacesInTheirOrder)
{
    DrawUnitCube();
    ASSERT_EQ(faces.size(), gl::Draws().size());
    for (size_t i = 0; i < faces.size(); i++) {
        SCOPED_TRACE(faces[i].name);
        const gl::Draw& draw = gl::Draws()[i];
        EXPECT_TRUE(gl::IsQuad(draw, faces[i].corners));
        EXPECT_TRUE(gl::HasNormal(draw, faces[i].normal));
    }
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(Primitives, TheUnitCubeSendsOneNormalAFaceAndTouchesNothingElse)
{
    DrawUnitCube();
    const std::vector<std::string> calls = gl::Calls();
    ASSERT_EQ(6u * 11u, calls.size());
    EXPECT_TRUE(gl::CallsAre({calls.begin(), calls.begin() + 11},
                             {"glBegin(GL_QUADS)", "glNormal3f(0, 1, 0)", "glTexCoord2f(0, 0)",
                              "glVertex3f(-0.5, 0.5, 0.5)", "glTexCoord2f(1, 0)", "glVertex3f(0.5, 0.5, 0.5)",
                              "glTexCoord2f(1, 1)", "glVertex3f(0.5, 0.5, -0.5)", "glTexCoord2f(0, 1)",
                              "glVertex3f(-0.5, 0.5, -0.5)", "glEnd()"}));
    EXPECT_EQ(6, gl::CountCalls("glNormal3f"));
    EXPECT_EQ(12u, gl::Outline().size());
}

// Positive where the corners run counter-clockwise as seen from where the normal points to.
static float Winding(const gl::Draw& face)
{
    const gl::Point& a = face.vertices[0].object;
    const gl::Point& b = face.vertices[1].object;
    const gl::Point& c = face.vertices[2].object;
    const gl::Point& n = face.vertices[0].normal;
    const float u[3] = {b.x - a.x, b.y - a.y, b.z - a.z}, v[3] = {c.x - b.x, c.y - b.y, c.z - b.z};
    return n.x * (u[1] * v[2] - u[2] * v[1]) + n.y * (u[2] * v[0] - u[0] * v[2]) +
           n.z * (u[0] * v[1] - u[1] * v[0]);
}

TEST_F(Primitives, OfTheCubesFacesOnlyTheBottomRunsClockwise)
{
    DrawUnitCube();
    ASSERT_EQ(6u, gl::Draws().size());
    for (size_t i = 0; i < 6; i++)
        EXPECT_EQ(faces[i].name == std::string("bottom") ? -1.0f : 1.0f, Winding(gl::Draws()[i]))
            << faces[i].name;
}

TEST_F(Primitives, TheBillboardIsAQuadRoundItsPosition)
{
    const Vec3 position = {10, 20, -30};
    DrawBillboard(position, 2.5f);
    ASSERT_EQ(1u, gl::Draws().size());
    const gl::Draw& quad = gl::Draws()[0];
    EXPECT_TRUE(
        gl::IsQuad(quad, {{0, 1, -2.5, -2.5}, {1, 1, 2.5, -2.5}, {1, 0, 2.5, 2.5}, {0, 0, -2.5, 2.5}}));
    EXPECT_TRUE(gl::HasEyePoints(
        quad, {{7.5, 17.5, -30}, {12.5, 17.5, -30}, {12.5, 22.5, -30}, {7.5, 22.5, -30}}, 0));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(Primitives, TheBillboardSendsNoNormalAndTakesTheMatrixBeforeItMoves)
{
    const Vec3 position = {1, 2, 3};
    DrawBillboard(position, 1);
    EXPECT_TRUE(gl::CallsAre(gl::Outline(), {"glMatrixMode(GL_MODELVIEW)", "glPushMatrix()",
                                             "glGetFloatv(GL_MODELVIEW_MATRIX)", "glTranslatef(1, 2, 3)",
                                             "glBegin(GL_QUADS)", "glEnd()", "glPopMatrix()"}));
    EXPECT_EQ(0, gl::CountCalls("glNormal3f"));
}

TEST_F(Primitives, TheBillboardFacesTheViewerFromAnyView)
{
    glTranslatef(0, 0, -50);
    glRotatef(35, 1, 0, 0);
    glRotatef(-120, 0, 1, 0);
    const gl::Matrix view = gl::Modelview();
    const Vec3 position = {4, -3, 2};
    DrawBillboard(position, 3);
    ASSERT_EQ(1u, gl::Draws().size());
    const gl::Point centre = view * gl::Point(4, -3, 2);
    EXPECT_TRUE(gl::HasEyePoints(gl::Draws()[0], {{centre.x - 3.0, centre.y - 3.0, centre.z},
                                                  {centre.x + 3.0, centre.y - 3.0, centre.z},
                                                  {centre.x + 3.0, centre.y + 3.0, centre.z},
                                                  {centre.x - 3.0, centre.y + 3.0, centre.z}}));
}

TEST_F(Primitives, TheBillboardsAxesAreTheRowsOfTheMatrixAsTheyAre)
{
    // Each row another figure, so that a wrong element shows; the third column and the rest of the rows
    // have no part in it.
    const float matrix[16] = {2, 3, 70, 0, 5, 7, 71, 0, 11, 13, 72, 0, 73, 74, 75, 1};
    glLoadMatrixf(matrix);
    const Vec3 origin = {0, 0, 0};
    DrawBillboard(origin, 10);
    ASSERT_EQ(1u, gl::Draws().size());
    EXPECT_TRUE(
        gl::HasVertices(gl::Draws()[0], {{-50, -120, -240}, {-10, -20, -20}, {50, 120, 240}, {10, 20, 20}}));
}

TEST_F(Primitives, AScaledViewScalesTheBillboardTwice)
{
    glScalef(3, 3, 3);
    const Vec3 position = {1, 0, 0};
    DrawBillboard(position, 2);
    ASSERT_EQ(1u, gl::Draws().size());
    EXPECT_TRUE(
        gl::HasEyePoints(gl::Draws()[0], {{-15, -18, 0}, {21, -18, 0}, {21, 18, 0}, {-15, 18, 0}}, 1e-4));
}

TEST_F(Primitives, TheBillboardLeavesMatrixAndStackAsTheyWereAndTheModeAtModelview)
{
    for (GLenum mode : {GL_MODELVIEW, GL_PROJECTION, GL_TEXTURE}) {
        gl::Reset();
        glTranslatef(1, 2, -3);
        glMatrixMode(GL_PROJECTION);
        glScalef(2, 2, 2);
        glMatrixMode(mode);
        const gl::Matrix modelview = gl::Modelview(), projection = gl::Projection();
        const Vec3 position = {4, 5, 6};
        DrawBillboard(position, 2);
        EXPECT_EQ(GLenum(GL_MODELVIEW), gl::MatrixMode());
        EXPECT_EQ(1, gl::StackDepth(GL_MODELVIEW));
        EXPECT_EQ(1, gl::StackDepth(GL_PROJECTION));
        EXPECT_EQ(1, gl::StackDepth(GL_TEXTURE));
        EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), modelview, 0));
        EXPECT_TRUE(gl::IsMatrix(gl::Projection(), projection, 0));
        EXPECT_TRUE(gl::NoErrors());
    }
}

TEST_F(Primitives, DrawWithWhatTheCallerHasSet)
{
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE);
    glColor4f(0.25f, 0.5f, 0.75f, 1);
    const Vec3 position = {0, 0, 0};
    DrawBillboard(position, 1);
    DrawUnitCube();
    ASSERT_EQ(7u, gl::Draws().size());
    for (const gl::Draw& draw : gl::Draws()) {
        EXPECT_TRUE(gl::Blends(draw, GL_ONE, GL_ONE));
        EXPECT_TRUE(gl::HasColour(draw, {0.25, 0.5, 0.75}));
    }
    EXPECT_TRUE(gl::Now().Enabled(GL_BLEND));
}
