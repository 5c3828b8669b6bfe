// SPDX-License-Identifier: MIT
// The recorder's vertices, and what is current when they come.
#include "tests/support/recorder/GLRecorder.h"

#include "tests/support/recorder/GLExpect.h"

class GLVertices : public testing::Test
{
protected:
    GLVertices() { gl::Reset(800, 600); }
};

TEST_F(GLVertices, AVertexTakesWhatWasCurrentWhenItCame)
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

TEST_F(GLVertices, EveryFormOfAVertexSaysTheSame)
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

TEST_F(GLVertices, EveryFormOfAColourSaysTheSame)
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

TEST_F(GLVertices, UnbalancedBeginAndEndAreErrors)
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

TEST_F(GLVertices, ATextureUnitThatIsNotThereIsRefused)
{
    glActiveTexture(0); // a bare number
    glMultiTexCoord2f(1, 5, 6);
    glClientActiveTexture(2);
    EXPECT_TRUE(gl::OnlyErrors({GL_INVALID_ENUM, GL_INVALID_ENUM, GL_INVALID_ENUM}));
    EXPECT_EQ(0, gl::Now().activeUnit);
    EXPECT_TRUE(gl::IsPoint(gl::CurrentTexCoord(1), {0, 0}));
}
