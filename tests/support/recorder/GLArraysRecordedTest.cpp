// SPDX-License-Identifier: MIT
// Vertex arrays and buffers of the recorder's GL.
#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorderFixture.h"

class GLArrays : public GLRecorderFixture
{
};

TEST_F(GLArrays, AnArrayOfWhatIsNoNumberIsAnErrorAndChangesNothing)
{
    const float positions[] = {1, 2, 3};
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, positions);
    for (const GLenum type : {GL_2_BYTES, GL_4_BYTES, GL_BITMAP, GL_POINTS})
        glVertexPointer(2, type, 0, nullptr);
    EXPECT_TRUE(gl::OnlyErrors({GL_INVALID_ENUM, GL_INVALID_ENUM, GL_INVALID_ENUM, GL_INVALID_ENUM}));
    glDrawArrays(GL_POINTS, 0, 1);
    EXPECT_TRUE(gl::HasVertices(gl::Draws().at(0), {{1, 2, 3}}));
}

TEST_F(GLArrays, ArraysFromMemoryBecomeVertices)
{
    const float positions[] = {0, 0, 0, 1, 0, 0, 1, 1, 0};
    const float normals[] = {0, 0, 1, 0, 1, 0, 1, 0, 0};
    const GLubyte colours[] = {255, 0, 0, 51, 0, 255, 0, 51, 0, 0, 255, 51};
    const float texCoords[] = {0, 0, 0.5f, 0, 1, 1};
    const GLuint indices[] = {2, 0, 1};
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, positions);
    glEnableClientState(GL_NORMAL_ARRAY);
    glNormalPointer(GL_FLOAT, 12, normals);
    glEnableClientState(GL_COLOR_ARRAY);
    glColorPointer(4, GL_UNSIGNED_BYTE, 0, colours);
    glClientActiveTexture(GL_TEXTURE1);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glTexCoordPointer(2, GL_FLOAT, 0, texCoords);
    glDrawElements(GL_TRIANGLES, 3, GL_UNSIGNED_INT, indices);
    const gl::Draw& draw = gl::Draws().at(0);
    EXPECT_TRUE(draw.indexed);
    EXPECT_TRUE(gl::HasVertices(draw, {{1, 1, 0}, {0, 0, 0}, {1, 0, 0}}));
    EXPECT_TRUE(gl::HasNormals(draw, {{1, 0, 0}, {0, 0, 1}, {0, 1, 0}}));
    EXPECT_TRUE(gl::HasColours(draw, {{0, 0, 1, 0.2}, {1, 0, 0, 0.2}, {0, 1, 0, 0.2}}));
    EXPECT_TRUE(gl::HasTexCoords(draw, {{1, 1}, {0, 0}, {0.5, 0}}, 0, 1));
    EXPECT_TRUE(gl::HasTexCoords(draw, {{0, 0}, {0, 0}, {0, 0}}, 0, 0));
    EXPECT_EQ("glDrawElements(GL_TRIANGLES, 3, GL_UNSIGNED_INT, data)", gl::Calls().back());

    glDrawArrays(GL_POINTS, 1, 2);
    EXPECT_FALSE(gl::Draws().at(1).indexed);
    EXPECT_TRUE(gl::HasVertices(gl::Draws()[1], {{1, 0, 0}, {1, 1, 0}}));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(GLArrays, ArraysFromBuffersBecomeVertices)
{
    const float positions[] = {9, 9, 9, 1, 2, 3};
    GLuint buffer;
    glGenBuffersARB(1, &buffer);
    glBindBufferARB(GL_ARRAY_BUFFER_ARB, buffer);
    glBufferDataARB(GL_ARRAY_BUFFER_ARB, sizeof positions, positions, GL_STATIC_DRAW_ARB);
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, reinterpret_cast<void*>(12));
    glBindBufferARB(GL_ARRAY_BUFFER_ARB, 0); // the pointer keeps its buffer
    glDrawArrays(GL_POINTS, 0, 1);
    EXPECT_TRUE(gl::HasVertices(gl::Draws().at(0), {{1, 2, 3}}));
    EXPECT_EQ(24u, gl::BufferBytes(buffer).size());
    EXPECT_TRUE(gl::CallsContain(gl::Calls(), {"glBufferData(GL_ARRAY_BUFFER, 24, data, GL_STATIC_DRAW)",
                                               "glVertexPointer(3, GL_FLOAT, 0, 12)"}));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(GLArrays, AnArrayThatIsNotThereIsAMisuseAndIsNotRead)
{
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, nullptr);
    glDrawArrays(GL_POINTS, 0, 3);
    EXPECT_TRUE(gl::OnlyErrors({0}));
    EXPECT_TRUE(gl::Draws().at(0).vertices.empty());

    GLuint buffer;
    glGenBuffersARB(1, &buffer);
    glBindBufferARB(GL_ARRAY_BUFFER_ARB, buffer);
    glBufferDataARB(GL_ARRAY_BUFFER_ARB, 12, nullptr, GL_STATIC_DRAW_ARB);
    glVertexPointer(3, GL_FLOAT, 0, nullptr);
    glDrawArrays(GL_POINTS, 0, 2);
    EXPECT_EQ(1u, gl::Draws().at(1).vertices.size());
    EXPECT_TRUE(gl::OnlyErrors({0, 0}));
}
