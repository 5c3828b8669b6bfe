// SPDX-License-Identifier: MIT
#include "math/QuadBatch.h"

#include "math/Matrix16.h"
#include "platform/Drawing.h"
#include "tests/support/recorder/GLQuads.h"

#include <GL/glew.h>

class QuadBatches : public testing::Test
{
protected:
    QuadBatches() { gl::Reset(); }
    ~QuadBatches() override { platform::SetDrawing(true); }

    static std::vector<gl::Draw> Quads() { return gl::Quads(gl::Draws()); }
};

static const Vec3 right = {1, 0, 0}, upward = {0, 1, 0}, aslant = {7, 8, 9};
static const QuadCorner slanted[4] = {
    {0.25f, 0, 1, 2, 3}, {1, 0.5f, 4, 5, 6}, {0.75f, 1, 7, 8, 9}, {0, 0.125f, -1, -2, -3}};

TEST_F(QuadBatches, GoOutInOneDrawInTheOrderOfTheirAdding)
{
    QuadBatch batch;
    batch.AddRectangle(1, 2, 3, 5);
    batch.AddQuad(slanted);
    batch.AddCorner(0, 1, 2, 3, 4);
    batch.AddCorner(1, 2, 3, 4, 5);
    batch.AddCorner(2, 3, 4, 5, 6);
    batch.AddCorner(3, 4, 5, 6, 7);
    batch.Draw();
    ASSERT_EQ(1u, gl::Draws().size());
    EXPECT_EQ(1, gl::CountCalls("glDrawArrays"));
    EXPECT_EQ(GLenum(GL_QUADS), gl::Draws()[0].mode);
    ASSERT_EQ(3u, Quads().size());
    EXPECT_TRUE(gl::IsQuad(Quads()[0], {{0, 0, 1, 5}, {1, 0, 3, 5}, {1, 1, 3, 2}, {0, 1, 1, 2}}));
    EXPECT_TRUE(gl::IsQuad(
        Quads()[1], {{0.25, 0, 1, 2, 3}, {1, 0.5, 4, 5, 6}, {0.75, 1, 7, 8, 9}, {0, 0.125, -1, -2, -3}}));
    EXPECT_TRUE(gl::IsQuad(Quads()[2], {{0, 1, 2, 3, 4}, {1, 2, 3, 4, 5}, {2, 3, 4, 5, 6}, {3, 4, 5, 6, 7}}));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(QuadBatches, WithoutColoursAndNormalsTakeTheCurrentOnes)
{
    glColor4f(0.25f, 0.5f, 0.75f, 0.125f);
    glNormal3f(1, 2, 3);
    QuadBatch batch;
    batch.SetColour(1, 0, 0);
    batch.SetNormal(aslant);
    batch.AddQuad(slanted);
    batch.Draw();
    EXPECT_TRUE(gl::HasColour(gl::Draws()[0], {0.25, 0.5, 0.75, 0.125}));
    EXPECT_TRUE(gl::HasNormal(gl::Draws()[0], {1, 2, 3}));
    EXPECT_TRUE(gl::IsColour(gl::CurrentColour(), {0.25, 0.5, 0.75, 0.125}));
    EXPECT_TRUE(gl::IsPoint(gl::CurrentNormal(), {1, 2, 3}));
}

TEST_F(QuadBatches, WithOneOfColoursAndNormalsLeaveTheOtherAlone)
{
    glColor4f(0.25f, 0.5f, 0.75f, 0.125f);
    glNormal3f(1, 2, 3);
    QuadBatch coloured(QuadBatch::Colours);
    coloured.SetColour(1, 0, 0);
    coloured.SetNormal(aslant);
    coloured.AddQuad(slanted);
    coloured.Draw();
    EXPECT_TRUE(gl::HasColour(gl::Draws()[0], {1, 0, 0, 1}));
    EXPECT_TRUE(gl::HasNormal(gl::Draws()[0], {1, 2, 3}));
    EXPECT_TRUE(gl::IsColour(gl::CurrentColour(), {1, 0, 0, 1}));
    EXPECT_TRUE(gl::IsPoint(gl::CurrentNormal(), {1, 2, 3}));

    QuadBatch standing(QuadBatch::Normals);
    standing.SetColour(0, 0, 1);
    standing.SetNormal(aslant);
    standing.AddQuad(slanted);
    standing.Draw();
    EXPECT_TRUE(gl::HasColour(gl::Draws()[1], {1, 0, 0, 1}));
    EXPECT_TRUE(gl::HasNormal(gl::Draws()[1], {7, 8, 9}));
    EXPECT_TRUE(gl::IsColour(gl::CurrentColour(), {1, 0, 0, 1}));
    EXPECT_TRUE(gl::IsPoint(gl::CurrentNormal(), {7, 8, 9}));
}

TEST_F(QuadBatches, AColourAndANormalHoldForTheCornersThatFollow)
{
    QuadBatch batch(QuadBatch::Colours | QuadBatch::Normals);
    batch.AddRectangle(0, 0, 1, 1);
    batch.SetColour(2, 0.5f, -1);
    batch.SetNormal(right);
    batch.AddCorner(0, 0, 0, 0, 0);
    batch.AddCorner(0, 0, 1, 0, 0);
    batch.SetColour(0.1f, 0.2f, 0.3f, 0.4f);
    batch.AddCorner(0, 0, 1, 1, 0);
    batch.SetNormal(upward);
    batch.AddCorner(0.5f, 0.75f, 0, 1, 0);
    batch.Draw();
    const gl::Colour white(1, 1, 1, 1), a(2, 0.5, -1, 1), b(0.1, 0.2, 0.3, 0.4);
    EXPECT_TRUE(gl::HasColours(gl::Draws()[0], {white, white, white, white, a, a, b, b}));
    EXPECT_TRUE(gl::HasNormals(
        gl::Draws()[0],
        {{0, 0, 1}, {0, 0, 1}, {0, 0, 1}, {0, 0, 1}, {1, 0, 0}, {1, 0, 0}, {1, 0, 0}, {0, 1, 0}}));
    EXPECT_TRUE(gl::IsColour(gl::CurrentColour(), b)) << "as after glEnd";
    EXPECT_TRUE(gl::IsPoint(gl::CurrentNormal(), {0, 1, 0}));
    EXPECT_TRUE(gl::IsPoint(gl::CurrentTexCoord(), {0.5, 0.75}));
}

TEST_F(QuadBatches, AMatrixMovesTheCorners)
{
    Matrix16 place;
    MatrixRotationY(place, 90);
    place[0] *= 2; // stays 0
    place[2] *= 2;
    place[12] = 10;
    place[13] = 20;
    place[14] = 30;
    QuadBatch batch;
    batch.AddQuad(slanted, place);
    batch.Draw();
    // x goes to -2 z, z to x.
    EXPECT_TRUE(
        gl::HasVertices(gl::Draws()[0], {{13, 22, 28}, {16, 25, 22}, {19, 28, 16}, {7, 18, 32}}, 1e-5));
    EXPECT_TRUE(gl::HasTexCoords(gl::Draws()[0], {{0.25, 0}, {1, 0.5}, {0.75, 1}, {0, 0.125}}));
}

TEST_F(QuadBatches, ABillboardIsWhatDrawBillboardDraws)
{
    glTranslatef(1, 2, -30);
    glRotatef(40, 1, 2, 3);
    glScalef(1, 2, 3);
    const Vec3 position = {3, -4, 5};
    DrawBillboard(position, 1.5f);
    const gl::Draw expected = gl::Draws()[0];
    gl::ClearRecords();
    Vec3 sideways, up;
    GetBillboardAxes(sideways, up);
    QuadBatch batch;
    batch.AddBillboard(position, sideways, up, 1.5f);
    batch.Draw();
    for (size_t i = 0; i < 4; i++) {
        EXPECT_TRUE(gl::IsPoint(gl::Draws()[0].vertices[i].eye, expected.vertices[i].eye, 1e-5));
        EXPECT_TRUE(gl::IsPoint(gl::Draws()[0].vertices[i].texCoord[0], expected.vertices[i].texCoord[0]));
    }
}

TEST_F(QuadBatches, ACubeIsWhatDrawUnitCubeDraws)
{
    DrawUnitCube();
    const std::vector<gl::Draw> expected = gl::Draws();
    gl::ClearRecords();
    Matrix16 place, normals;
    MatrixTranslation(place, 5, 6, 7);
    MatrixIdentity(normals);
    normals[0] = 4;
    QuadBatch batch(QuadBatch::Normals);
    batch.AddUnitCube(place, normals);
    batch.Draw();
    const std::vector<gl::Draw> actual = Quads();
    ASSERT_EQ(6u, actual.size());
    for (size_t face = 0; face < 6; face++)
        for (size_t i = 0; i < 4; i++) {
            const gl::Vertex &one = expected[face].vertices[i], &other = actual[face].vertices[i];
            EXPECT_TRUE(
                gl::IsPoint(other.object, {one.object.x + 5, one.object.y + 6, one.object.z + 7}, 1e-6));
            EXPECT_TRUE(gl::IsPoint(other.normal, {one.normal.x * 4, one.normal.y, one.normal.z}));
            EXPECT_TRUE(gl::IsPoint(other.texCoord[0], one.texCoord[0]));
        }
}

TEST_F(QuadBatches, AnEmptyBatchSendsNothing)
{
    QuadBatch batch(QuadBatch::Colours | QuadBatch::Normals);
    EXPECT_TRUE(batch.IsEmpty());
    batch.Draw();
    batch.AddRectangle(0, 0, 1, 1);
    EXPECT_FALSE(batch.IsEmpty());
    EXPECT_TRUE(batch.Begin());
    EXPECT_TRUE(batch.IsEmpty());
    batch.Draw();
    EXPECT_TRUE(gl::Calls().empty());
}

TEST_F(QuadBatches, LeaveNoArrayEnabled)
{
    QuadBatch batch(QuadBatch::Colours | QuadBatch::Normals);
    batch.AddRectangle(0, 0, 1, 1);
    batch.Draw();
    for (const char* array :
         {"GL_VERTEX_ARRAY", "GL_TEXTURE_COORD_ARRAY", "GL_COLOR_ARRAY", "GL_NORMAL_ARRAY"})
        EXPECT_TRUE(gl::CallsContain(gl::Calls(), {std::string("glEnableClientState(") + array + ")",
                                                   "glDrawArrays(GL_QUADS, 0, 4)",
                                                   std::string("glDisableClientState(") + array + ")"}));
}

TEST_F(QuadBatches, MayBePartOfADisplayList)
{
    glNewList(5, GL_COMPILE);
    {
        QuadBatch batch(QuadBatch::Normals);
        batch.SetNormal(upward);
        batch.AddQuad(slanted);
        batch.Draw();
    }
    glEndList();
    EXPECT_TRUE(gl::Draws().empty());
    glTranslatef(100, 0, 0);
    glCallList(5);
    ASSERT_EQ(1u, gl::Draws().size());
    EXPECT_NE(0u, gl::Draws()[0].list);
    EXPECT_TRUE(gl::HasNormal(gl::Draws()[0], {0, 1, 0}));
    EXPECT_TRUE(gl::HasEyePoints(gl::Draws()[0], {{101, 2, 3}, {104, 5, 6}, {107, 8, 9}, {99, -2, -3}}));
}

// ---- While drawing is switched off

class Undrawn : public QuadBatches
{
protected:
    Undrawn() { platform::SetDrawing(false); }
};

TEST_F(Undrawn, ABatchSendsNoVerticesAndLeavesTheStateOfADrawnOne)
{
    QuadBatch batch(QuadBatch::Colours | QuadBatch::Normals);
    EXPECT_FALSE(batch.Begin()) << "it need not be filled";
    batch.SetColour(0.1f, 0.2f, 0.3f, 0.4f);
    batch.SetNormal(upward);
    batch.AddQuad(slanted);
    batch.Draw();
    EXPECT_TRUE(gl::Draws().empty());
    EXPECT_EQ(0, gl::CountCalls("glDrawArrays"));
    EXPECT_TRUE(gl::IsColour(gl::CurrentColour(), {0.1, 0.2, 0.3, 0.4}));
    EXPECT_TRUE(gl::IsPoint(gl::CurrentNormal(), {0, 1, 0}));
    EXPECT_TRUE(gl::IsPoint(gl::CurrentTexCoord(), {0, 0.125}));
    platform::SetDrawing(true);
    EXPECT_TRUE(platform::IsDrawing());
    batch.Draw();
    EXPECT_EQ(1u, gl::Draws().size());
}

TEST_F(Undrawn, PrimitivesSendNothing)
{
    glNewList(5, GL_COMPILE);
    glBegin(GL_POINTS);
    glVertex3f(1, 2, 3);
    glEnd();
    glEndList();
    gl::ClearRecords();
    DrawQuad(slanted);
    DrawRectangle(0, 0, 1, 1);
    DrawCentredRectangle(1, 1);
    DrawUnitCube();
    CallGeometryList(5);
    EXPECT_TRUE(gl::Calls().empty());
    platform::SetDrawing(true);
    CallGeometryList(5);
    EXPECT_EQ(1u, gl::Draws().size());
}

TEST_F(Undrawn, ABillboardSetsTheMatrixModeAllTheSame)
{
    glMatrixMode(GL_PROJECTION);
    gl::ClearRecords();
    DrawBillboard(right, 1);
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glMatrixMode(GL_MODELVIEW)"}));
    EXPECT_EQ(GLenum(GL_MODELVIEW), gl::MatrixMode());
}
