// SPDX-License-Identifier: MIT
#include "math/FlatScreen.h"

#include "math/Primitives.h"
#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorder.h"

#include <GL/glew.h>

TEST(FlatScreens, MakeTheScreenTheUnitSquareForAWhile)
{
    gl::Reset(800, 600);
    glMatrixMode(GL_PROJECTION);
    glTranslatef(1, 2, 3);
    {
        FlatScreen screen;
        EXPECT_EQ(GLenum(GL_MODELVIEW), gl::MatrixMode());
        EXPECT_EQ(2, gl::StackDepth(GL_PROJECTION));
        DrawRectangle(0, 0, 0.5f, 1);
        glMatrixMode(GL_TEXTURE);
    }
    EXPECT_TRUE(gl::HasWindowPoints(gl::Draws()[0], {{0, 600}, {400, 600}, {400, 0}, {0, 0}}));
    EXPECT_EQ(GLenum(GL_MODELVIEW), gl::MatrixMode());
    EXPECT_EQ(1, gl::StackDepth(GL_PROJECTION));
    EXPECT_TRUE(gl::IsMatrix(gl::Projection(), gl::Translation(1, 2, 3)));
    EXPECT_TRUE(gl::NoErrors());
}

TEST(FlatScreens, LeaveTheModelviewMatrixAlone)
{
    gl::Reset();
    glTranslatef(4, 5, 6);
    {
        FlatScreen screen;
        EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Translation(4, 5, 6)));
    }
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), gl::Translation(4, 5, 6)));
}

TEST(Rectangles, HaveTheWholeTextureWithItsFirstRowOnTop)
{
    gl::Reset();
    DrawRectangle(1, 2, 4, 8);
    DrawRectangle(1, 2, 4, 8, 0.75f);
    DrawCentredRectangle(3, 5);
    ASSERT_EQ(3u, gl::Draws().size());
    EXPECT_TRUE(gl::IsQuad(gl::Draws()[0], {{0, 0, 1, 8}, {1, 0, 4, 8}, {1, 1, 4, 2}, {0, 1, 1, 2}}));
    EXPECT_TRUE(gl::IsQuad(gl::Draws()[1], {{0, 0, 1, 8}, {1, 0, 4, 8}, {1, 0.75, 4, 2}, {0, 0.75, 1, 2}}));
    EXPECT_TRUE(gl::IsQuad(gl::Draws()[2],
                           {{0, 0, -1.5, 2.5}, {1, 0, 1.5, 2.5}, {1, 1, 1.5, -2.5}, {0, 1, -1.5, -2.5}}));
    for (const gl::Draw& draw : gl::Draws())
        for (const gl::Vertex& vertex : draw.vertices)
            EXPECT_EQ(0.0f, vertex.object.z);
}
