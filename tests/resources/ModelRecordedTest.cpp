// SPDX-License-Identifier: MIT
#include "resources/Model.h"

#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorder.h"

#include <GL/glew.h>

#include <gtest/gtest.h>

class DrawnModel : public testing::Test
{
protected:
    DrawnModel()
    {
        gl::Reset();
        model.vertices = {Vector3(1, 2, 3), Vector3(4, 5, 6), Vector3(7, 8, 9), Vector3(10, 11, 12)};
        model.normals = {Vector3(0, 0, 1), Vector3(0, 1, 0), Vector3(1, 0, 0)};
        model.texCoords = {Vec2(0.25f, 0.75f), Vec2(0.5f, -1.5f)};
    }

    void AddFace(int type, std::vector<int> vertices, std::vector<int> normals, std::vector<int> texCoords)
    {
        ModelFace face;
        face.type = type;
        face.vertexIndices = vertices;
        face.normalIndices = normals;
        face.texCoordIndices = texCoords;
        model.faces.push_back(face);
    }

    void AddTriangle() { AddFace(0, {0, 1, 2}, {0, 0, 0}, {0, 0, 0}); }

    Model model;
};

TEST_F(DrawnModel, SendsTextureCoordinateNormalAndVertexOfEachCorner)
{
    AddFace(0, {2, 0, 3}, {1, 2, 0}, {1, 0, 1});
    DrawModel(&model);
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {
                                              "glBegin(GL_TRIANGLES)",
                                              "glTexCoord2f(0.5, 2.5)",
                                              "glNormal3f(0, 1, 0)",
                                              "glVertex3f(7, 8, 9)",
                                              "glTexCoord2f(0.25, 0.25)",
                                              "glNormal3f(1, 0, 0)",
                                              "glVertex3f(1, 2, 3)",
                                              "glTexCoord2f(0.5, 2.5)",
                                              "glNormal3f(0, 0, 1)",
                                              "glVertex3f(10, 11, 12)",
                                              "glEnd()",
                                          }));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(DrawnModel, GivesEachFaceABeginAndEndOfItsOwnInTheirOrder)
{
    AddFace(3, {0, 1, 2, 3}, {0, 0, 0, 0}, {0, 0, 0, 0});
    AddTriangle();
    AddFace(3, {3, 2, 1, 0}, {0, 0, 0, 0}, {0, 0, 0, 0});
    DrawModel(&model);
    EXPECT_TRUE(gl::CallsAre(gl::Outline(), {"glBegin(GL_QUADS)", "glEnd()", "glBegin(GL_TRIANGLES)",
                                             "glEnd()", "glBegin(GL_QUADS)", "glEnd()"}));
    ASSERT_EQ(3u, gl::Draws().size());
    EXPECT_TRUE(gl::HasVertices(gl::Draws()[2], {{10, 11, 12}, {7, 8, 9}, {4, 5, 6}, {1, 2, 3}}));
}

TEST_F(DrawnModel, MayHoldSeveralQuadsInOneFace)
{
    AddFace(3, {0, 1, 2, 3, 3, 2, 1, 0}, {0, 0, 0, 0, 0, 0, 0, 0}, {0, 0, 0, 0, 0, 0, 0, 0});
    DrawModel(&model);
    ASSERT_EQ(1u, gl::Draws().size());
    EXPECT_EQ(8u, gl::Draws()[0].vertices.size());
}

TEST_F(DrawnModel, EndsAtAFaceOfAnotherType)
{
    for (int type : {1, 2, 4, -1}) {
        model.faces.clear();
        AddTriangle();
        AddTriangle();
        AddFace(type, {0, 1, 2}, {0, 0, 0}, {0, 0, 0});
        AddTriangle();
        gl::ClearRecords();
        DrawModel(&model);
        EXPECT_EQ(2u, gl::Draws().size()) << type;
        EXPECT_EQ(2, gl::CountCalls("glBegin")) << type;
        EXPECT_EQ(2, gl::CountCalls("glEnd")) << type;
    }
}

TEST_F(DrawnModel, EndsAtAFaceOfAnotherTypeWhateverItsIndices)
{
    AddFace(1, {99}, {99}, {99});
    AddTriangle();
    DrawModel(&model);
    EXPECT_TRUE(gl::Calls().empty());
}

TEST_F(DrawnModel, WithoutFacesDrawsNothing)
{
    DrawModel(&model);
    Model empty;
    DrawModel(&empty);
    EXPECT_TRUE(gl::Calls().empty());
}

TEST_F(DrawnModel, ThatCouldNotBeReadDrawsNothing)
{
    Model missing;
    LoadModel("no/such/model.txt", &missing);
    DrawModel(&missing);
    EXPECT_TRUE(gl::Calls().empty());
}

TEST_F(DrawnModel, DrawsAFaceWithoutCornersAsAnEmptyRun)
{
    model.faces.resize(1);
    DrawModel(&model);
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glBegin(GL_TRIANGLES)", "glEnd()"}));
}

TEST_F(DrawnModel, LeavesOutAFaceThatPointsOutsideTheLists)
{
    AddFace(0, {0, 1, 4}, {0, 0, 0}, {0, 0, 0}); // one behind the last vertex
    AddFace(0, {0, -1, 2}, {0, 0, 0}, {0, 0, 0});
    AddFace(0, {0, 1, 2}, {0, 3, 0}, {0, 0, 0});
    AddFace(0, {0, 1, 2}, {-2147483647, 0, 0}, {0, 0, 0});
    AddFace(0, {0, 1, 2}, {0, 0, 0}, {0, 0, 2});
    AddFace(0, {0, 1, 2}, {0, 0, 0}, {0, 0, -1});
    AddFace(0, {3, 3, 3}, {2, 2, 2}, {1, 1, 1}); // the last of each list is still inside
    DrawModel(&model);
    ASSERT_EQ(1u, gl::Draws().size());
    EXPECT_TRUE(gl::HasVertices(gl::Draws()[0], {{10, 11, 12}, {10, 11, 12}, {10, 11, 12}}));
    EXPECT_EQ(1, gl::CountCalls("glBegin"));
}

TEST_F(DrawnModel, LeavesOutAFaceWhoseIndexListsAreTooShort)
{
    AddFace(0, {0, 1, 2}, {0, 0}, {0, 0, 0});
    AddFace(0, {0, 1, 2}, {0, 0, 0}, {0, 0});
    AddFace(0, {0, 1, 2}, {}, {});
    DrawModel(&model);
    EXPECT_TRUE(gl::Calls().empty());
}

TEST_F(DrawnModel, GoesByTheVerticesWhereTheOtherListsAreLonger)
{
    AddFace(0, {0, 1, 2}, {0, 0, 0, 99, 99}, {0, 0, 0, -7});
    DrawModel(&model);
    ASSERT_EQ(1u, gl::Draws().size());
    EXPECT_EQ(3u, gl::Draws()[0].vertices.size());
}

TEST_F(DrawnModel, GoesIntoADisplayListAsItIs)
{
    AddTriangle();
    const GLuint list = glGenLists(1);
    glNewList(list, GL_COMPILE);
    DrawModel(&model);
    glEndList();
    EXPECT_EQ(11u, gl::ListCalls(list).size());
    EXPECT_TRUE(gl::Draws().empty());
    glCallList(list);
    EXPECT_EQ(1u, gl::Draws().size());
}
