// SPDX-License-Identifier: MIT
// Display lists of the recorder's GL.
#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorderFixture.h"

#include <GL/glu.h>

class GLLists : public GLRecorderFixture
{
};

TEST_F(GLLists, ACompiledListDrawsWhenItIsCalled)
{
    const GLuint list = glGenLists(2);
    EXPECT_EQ(1u, list);
    glNewList(list, GL_COMPILE);
    glColor3f(1, 0, 0);
    DrawPoint();
    glEndList();
    EXPECT_TRUE(gl::Draws().empty());
    EXPECT_TRUE(gl::IsColour(gl::CurrentColour(), {1, 1, 1})) << "compiling changes nothing";
    EXPECT_TRUE(gl::CallsAre(gl::ListCalls(list),
                             {"glColor3f(1, 0, 0)", "glBegin(GL_POINTS)", "glVertex3f(1, 2, 3)", "glEnd()"}));

    glTranslatef(10, 0, 0);
    gl::ClearRecords();
    glCallList(list);
    ASSERT_EQ(1u, gl::Draws().size());
    EXPECT_EQ(list, gl::Draws()[0].list);
    EXPECT_TRUE(gl::HasEyePoints(gl::Draws()[0], {{11, 2, 3}}, 0));
    EXPECT_TRUE(gl::HasColour(gl::Draws()[0], {1, 0, 0}));
    EXPECT_TRUE(gl::IsColour(gl::CurrentColour(), {1, 0, 0}));
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glCallList(1)"}));
    EXPECT_EQ(5u, gl::Events().size()) << "what the list did is nested";
}

TEST_F(GLLists, CompileAndExecuteDoesBoth)
{
    const GLuint list = glGenLists(1);
    glNewList(list, GL_COMPILE_AND_EXECUTE);
    DrawPoint();
    glEndList();
    EXPECT_EQ(1u, gl::Draws().size());
    glCallList(list);
    EXPECT_EQ(2u, gl::Draws().size());
}

TEST_F(GLLists, AListThatCallsAListTakesItAsItIsThen)
{
    const GLuint inner = glGenLists(2), outer = inner + 1;
    glNewList(outer, GL_COMPILE);
    glCallList(inner);
    glEndList();
    glNewList(inner, GL_COMPILE);
    DrawPoint();
    glEndList();
    glCallList(outer);
    ASSERT_EQ(1u, gl::Draws().size());
    EXPECT_EQ(outer, gl::Draws()[0].list) << "the one that the program called";
    glNewList(inner, GL_COMPILE);
    DrawPoint();
    DrawPoint();
    glEndList();
    glCallList(outer);
    EXPECT_EQ(3u, gl::Draws().size());
}

TEST_F(GLLists, AListThatCallsItselfEnds)
{
    const GLuint list = glGenLists(1);
    glNewList(list, GL_COMPILE);
    DrawPoint();
    glCallList(list);
    glEndList();
    glCallList(list);
    EXPECT_EQ(64u, gl::Draws().size());
}

TEST_F(GLLists, QueriesAndNamesAreNotCompiled)
{
    const GLuint list = glGenLists(1);
    glTranslatef(7, 0, 0);
    glNewList(list, GL_COMPILE);
    glTranslatef(5, 0, 0);
    float m[16];
    glGetFloatv(GL_MODELVIEW_MATRIX, m);
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glEndList();
    EXPECT_EQ(7, m[12]);
    EXPECT_EQ(1u, texture);
    EXPECT_TRUE(gl::CallsAre(gl::ListCalls(list), {"glTranslatef(5, 0, 0)"}));
}

TEST_F(GLLists, ListsThatAreNotThereOrNotClosedAreHandled)
{
    glCallList(99); // ignored
    EXPECT_TRUE(gl::NoErrors());
    glEndList();
    glNewList(0, GL_COMPILE);
    glNewList(1, GL_BLEND);
    glNewList(1, GL_COMPILE);
    glNewList(2, GL_COMPILE);
    glEndList();
    EXPECT_TRUE(
        gl::OnlyErrors({GL_INVALID_OPERATION, GL_INVALID_VALUE, GL_INVALID_ENUM, GL_INVALID_OPERATION}));
    EXPECT_TRUE(gl::IsDisplayList(1));
    EXPECT_FALSE(gl::IsDisplayList(2));
    glDeleteLists(1, 1);
    EXPECT_FALSE(glIsList(1));
}

TEST_F(GLLists, APerspectiveOfGLUGoesIntoAList)
{
    const GLuint list = glGenLists(1);
    glNewList(list, GL_COMPILE);
    gluPerspective(90, 1, 1, 3);
    glEndList();
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Identity(), 0));
    glCallList(list);
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Perspective(90, 1, 1, 3), 1e-7));
}
