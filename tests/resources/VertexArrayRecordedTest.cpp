// SPDX-License-Identifier: MIT
#include "resources/VertexArray.h"

#include "tests/support/BytesInUse.h"
#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorder.h"

#include <GL/glew.h>

#include <gtest/gtest.h>

#include <cstring>

typedef std::vector<std::string> Lines;

static Lines operator+(Lines a, const Lines& b)
{
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

// clang-format off
// What binds an attribute from memory ...
static const Lines position  = {"glEnableClientState(GL_VERTEX_ARRAY)", "glVertexPointer(3, GL_FLOAT, 0, data)"};
static const Lines normal    = {"glEnableClientState(GL_NORMAL_ARRAY)", "glNormalPointer(GL_FLOAT, 0, data)"};
static const Lines colourRGB = {"glEnableClientState(GL_COLOR_ARRAY)",  "glColorPointer(3, GL_FLOAT, 0, data)"};
static const Lines colourRGBA = {"glEnableClientState(GL_COLOR_ARRAY)", "glColorPointer(4, GL_FLOAT, 0, data)"};
static const Lines unit0 = {"glEnable(GL_TEXTURE_2D)", "glClientActiveTexture(GL_TEXTURE0)",
                            "glEnableClientState(GL_TEXTURE_COORD_ARRAY)", "glTexCoordPointer(2, GL_FLOAT, 0, data)"};
static const Lines unit1 = {"glClientActiveTexture(GL_TEXTURE1)", "glEnable(GL_TEXTURE_2D)",
                            "glEnableClientState(GL_TEXTURE_COORD_ARRAY)", "glTexCoordPointer(2, GL_FLOAT, 0, data)"};
static const Lines unit2 = {"glClientActiveTexture(GL_TEXTURE2)", "glEnable(GL_TEXTURE_2D)",
                            "glEnableClientState(GL_TEXTURE_COORD_ARRAY)", "glTexCoordPointer(2, GL_FLOAT, 0, data)"};
static const Lines unit3 = {"glClientActiveTexture(GL_TEXTURE3)", "glEnable(GL_TEXTURE_2D)",
                            "glEnableClientState(GL_TEXTURE_COORD_ARRAY)", "glTexCoordPointer(2, GL_FLOAT, 0, data)"};

// ... and what lets it go.
static const Lines noPosition = {"glDisableClientState(GL_VERTEX_ARRAY)"};
static const Lines noNormal   = {"glDisableClientState(GL_NORMAL_ARRAY)"};
static const Lines noColour   = {"glDisableClientState(GL_COLOR_ARRAY)"};
static const Lines noUnit0 = {"glClientActiveTexture(GL_TEXTURE0)", "glDisable(GL_TEXTURE_2D)",
                              "glDisableClientState(GL_TEXTURE_COORD_ARRAY)"};
static const Lines noUnit1 = {"glClientActiveTexture(GL_TEXTURE1)", "glDisable(GL_TEXTURE_2D)",
                              "glDisableClientState(GL_TEXTURE_COORD_ARRAY)"};
static const Lines noUnit2 = {"glClientActiveTexture(GL_TEXTURE2)", "glDisable(GL_TEXTURE_2D)",
                              "glDisableClientState(GL_TEXTURE_COORD_ARRAY)"};
static const Lines noUnit3 = {"glClientActiveTexture(GL_TEXTURE3)", "glDisable(GL_TEXTURE_2D)",
                              "glDisableClientState(GL_TEXTURE_COORD_ARRAY)"};
// clang-format on

static const Lines drawThree = {"glDrawElements(GL_TRIANGLES, 3, GL_UNSIGNED_INT, data)"};

// The same from buffers, by the name of the buffer.
static Lines FromBuffer(const char* array, const std::string& name, const std::string& pointer)
{
    return {std::string("glEnableClientState(") + array + ")", "glBindBuffer(GL_ARRAY_BUFFER, " + name + ")",
            pointer};
}

static Lines UnitFromBuffer(const std::string& unit, const std::string& name, const std::string& pointer)
{
    return Lines{"glClientActiveTexture(GL_TEXTURE" + unit + ")", "glEnable(GL_TEXTURE_2D)"} +
           FromBuffer("GL_TEXTURE_COORD_ARRAY", name, pointer);
}

static Lines Uploaded(const std::string& name, int bytes)
{
    return {"glGenBuffers(1)", "glBindBuffer(GL_ARRAY_BUFFER, " + name + ")",
            "glBufferData(GL_ARRAY_BUFFER, " + std::to_string(bytes) + ", data, GL_STATIC_DRAW)"};
}

class RecordedVertexArray : public testing::Test
{
protected:
    RecordedVertexArray() { gl::Reset(); }

    // Three vertices whose floats count on from 1 and 101 and 201, and their indices.
    static void Fill(VertexArray* array)
    {
        for (int vertex = 0; vertex < 3; ++vertex) {
            float values[32];
            for (int i = 0; i < 32; ++i)
                values[i] = static_cast<float>(100 * vertex + 1 + i);
            EXPECT_TRUE(array->AddVertex(values, true));
        }
    }

    // The calls of a draw from memory.
    static Lines DrawnFromMemory(unsigned flags)
    {
        VertexArray array(flags, 3, 3);
        Fill(&array);
        gl::ClearRecords();
        array.Draw(GL_TRIANGLES);
        return gl::Calls();
    }

    static std::vector<float> BufferFloats(GLuint name)
    {
        const std::vector<unsigned char> bytes = gl::BufferBytes(name);
        std::vector<float> floats(bytes.size() / sizeof(float));
        if (!bytes.empty())
            memcpy(floats.data(), bytes.data(), bytes.size());
        return floats;
    }
};

// ---- From memory

TEST_F(RecordedVertexArray, BindsFromMemoryInTheOrderOfItsFlags)
{
    EXPECT_TRUE(gl::CallsAre(DrawnFromMemory(0x01), position + drawThree + noPosition));
    EXPECT_TRUE(
        gl::CallsAre(DrawnFromMemory(0x01 | 0x02), position + normal + drawThree + noPosition + noNormal));
    EXPECT_TRUE(
        gl::CallsAre(DrawnFromMemory(0x01 | 0x04), position + colourRGB + drawThree + noPosition + noColour));
    EXPECT_TRUE(gl::CallsAre(DrawnFromMemory(0x01 | 0x08),
                             position + colourRGBA + drawThree + noPosition + noColour));
    EXPECT_TRUE(gl::CallsAre(DrawnFromMemory(0x01 | 0x10),
                             position + unit0 + unit2 + drawThree + noPosition + noUnit0 + noUnit2));
    EXPECT_TRUE(gl::CallsAre(DrawnFromMemory(0x01 | 0x20),
                             position + unit1 + unit2 + drawThree + noPosition + noUnit1 + noUnit2));
    EXPECT_TRUE(gl::CallsAre(DrawnFromMemory(0x01 | 0x30), position + unit0 + unit1 + unit2 + drawThree +
                                                               noPosition + noUnit0 + noUnit1 + noUnit2));
    EXPECT_TRUE(
        gl::CallsAre(DrawnFromMemory(0x01 | 0x40), position + unit3 + drawThree + noPosition + noUnit3));
    EXPECT_TRUE(gl::CallsAre(DrawnFromMemory(0x77), position + normal + colourRGB + unit0 + unit1 + unit2 +
                                                        unit3 + drawThree + noPosition + noNormal + noColour +
                                                        noUnit0 + noUnit1 + noUnit2 + noUnit3));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(RecordedVertexArray, WithBothColoursBindsBothAndLetsGoOnce)
{
    EXPECT_TRUE(gl::CallsAre(DrawnFromMemory(0x0D),
                             position + colourRGB + colourRGBA + drawThree + noPosition + noColour));
}

TEST_F(RecordedVertexArray, WithoutAttributesOnlyDraws)
{
    EXPECT_TRUE(gl::CallsAre(DrawnFromMemory(0), drawThree));
}

TEST_F(RecordedVertexArray, EachAttributePointsAtItsBlock)
{
    VertexArray array(0x77, 3, 3);
    Fill(&array);
    array.Draw(GL_TRIANGLES);
    ASSERT_EQ(1u, gl::Draws().size());
    const gl::Draw& draw = gl::Draws()[0];
    EXPECT_TRUE(gl::HasVertices(draw, {{1, 2, 3}, {101, 102, 103}, {201, 202, 203}}));
    EXPECT_TRUE(gl::HasNormals(draw, {{4, 5, 6}, {104, 105, 106}, {204, 205, 206}}));
    EXPECT_TRUE(gl::HasColours(draw, {{7, 8, 9}, {107, 108, 109}, {207, 208, 209}}));
    EXPECT_TRUE(gl::HasTexCoords(draw, {{10, 11}, {110, 111}, {210, 211}}, 0, 0));
    EXPECT_TRUE(gl::HasTexCoords(draw, {{12, 13}, {112, 113}, {212, 213}}, 0, 1));
    // The last two units share the block of unit 1.
    EXPECT_TRUE(gl::HasTexCoords(draw, {{12, 13}, {112, 113}, {212, 213}}, 0, 2));
    EXPECT_TRUE(gl::HasTexCoords(draw, {{12, 13}, {112, 113}, {212, 213}}, 0, 3));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(RecordedVertexArray, ColoursWithAlphaPointAtTheirBlock)
{
    VertexArray array(0x09, 3, 3);
    Fill(&array);
    array.Draw(GL_TRIANGLES);
    EXPECT_TRUE(
        gl::HasColours(gl::Draws().at(0), {{4, 5, 6, 7}, {104, 105, 106, 107}, {204, 205, 206, 207}}));
}

TEST_F(RecordedVertexArray, WithoutUnitOneItsOffsetOfZeroServesTheLastTwoUnits)
{
    VertexArray array(0x51, 3, 3);
    Fill(&array);
    array.Draw(GL_TRIANGLES);
    const gl::Draw& draw = gl::Draws().at(0);
    EXPECT_TRUE(gl::HasTexCoords(draw, {{4, 5}, {104, 105}, {204, 205}}, 0, 0));
    // Two floats a vertex out of the positions, which begin there.
    EXPECT_TRUE(gl::HasTexCoords(draw, {{1, 2}, {3, 101}, {102, 103}}, 0, 2));
    EXPECT_TRUE(gl::HasTexCoords(draw, {{1, 2}, {3, 101}, {102, 103}}, 0, 3));
}

TEST_F(RecordedVertexArray, DrawsItsIndicesInTheGivenMode)
{
    VertexArray array(0x01, 3, 4);
    Fill(&array);
    EXPECT_TRUE(array.AddIndex(1));
    array.Draw(GL_LINE_STRIP);
    EXPECT_EQ(1, gl::CountCalls("glDrawElements"));
    ASSERT_EQ(1u, gl::DrawsWithMode(GL_LINE_STRIP).size());
    EXPECT_TRUE(
        gl::HasVertices(gl::Draws()[0], {{1, 2, 3}, {101, 102, 103}, {201, 202, 203}, {101, 102, 103}}));
}

TEST_F(RecordedVertexArray, WithoutIndicesDrawsNothingAndStillBindsAndUnbinds)
{
    VertexArray array(0x03, 3, 3);
    gl::ClearRecords();
    array.Draw(GL_QUADS);
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), position + normal +
                                              Lines{"glDrawElements(GL_QUADS, 0, GL_UNSIGNED_INT, data)"} +
                                              noPosition + noNormal));
    for (const gl::Draw& draw : gl::Draws())
        EXPECT_TRUE(draw.vertices.empty());
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(RecordedVertexArray, LeavesTheServersActiveTextureAlone)
{
    DrawnFromMemory(0x77);
    EXPECT_EQ(0, gl::CountCalls("glActiveTexture"));
    EXPECT_FALSE(gl::Now().Enabled(GL_TEXTURE_2D));
}

TEST_F(RecordedVertexArray, AnIndexBehindTheMemoryDrawsNothing)
{
    VertexArray last(0x01, 3, 3);
    EXPECT_TRUE(last.AddIndex(2)); // room for it, though no vertex yet
    last.Draw(GL_POINTS);
    EXPECT_EQ(1, gl::CountCalls("glDrawElements"));

    gl::ClearRecords();
    VertexArray behind(0x01, 3, 3);
    EXPECT_TRUE(behind.AddIndex(3));
    behind.Draw(GL_POINTS);
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), position + noPosition));
    EXPECT_TRUE(behind.AddIndex(0)); // one among others is enough
    behind.Draw(GL_POINTS);
    EXPECT_EQ(0, gl::CountCalls("glDrawElements"));
}

// ---- From buffers

TEST_F(RecordedVertexArray, UploadsABufferForEachAttribute)
{
    VertexArray array(0x37, 5, 3);
    Fill(&array); // three of five
    gl::ClearRecords();
    array.Upload(true);
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), Uploaded("1", 36) + Uploaded("2", 36) + Uploaded("3", 36) +
                                              Uploaded("4", 24) + Uploaded("5", 24) + Uploaded("6", 36)));
    ASSERT_NE(nullptr, array.bufferIds);
    for (unsigned i = 0; i < 6; ++i)
        EXPECT_EQ(i + 1, array.bufferIds[i]);
    EXPECT_EQ(0u, array.bufferIds[6]);
    EXPECT_EQ(std::vector<float>({1, 2, 3, 101, 102, 103, 201, 202, 203}), BufferFloats(1));
    EXPECT_EQ(std::vector<float>({4, 5, 6, 104, 105, 106, 204, 205, 206}), BufferFloats(2));
    EXPECT_EQ(std::vector<float>({7, 8, 9, 107, 108, 109, 207, 208, 209}), BufferFloats(3));
    EXPECT_EQ(std::vector<float>({10, 11, 110, 111, 210, 211}), BufferFloats(4));
    EXPECT_EQ(std::vector<float>({12, 13, 112, 113, 212, 213}), BufferFloats(5));
    // Stored two by two and uploaded by threes: the last vertex has what nobody wrote.
    EXPECT_EQ(std::vector<float>({14, 15, 114, 115, 214, 215, 0, 0, 0}), BufferFloats(6));
}

TEST_F(RecordedVertexArray, UploadsColourWithAlphaUnderTheColoursName)
{
    VertexArray array(0x08, 3, 3);
    Fill(&array);
    gl::ClearRecords();
    array.Upload(true);
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), Uploaded("1", 48)));
    EXPECT_EQ(0u, array.bufferIds[0]);
    EXPECT_EQ(0u, array.bufferIds[1]);
    EXPECT_EQ(1u, array.bufferIds[2]);
    EXPECT_EQ(0u, array.bufferIds[3]);
}

TEST_F(RecordedVertexArray, UploadsBothColoursUnderOneNameAndTheSecondStays)
{
    VertexArray array(0x0C, 3, 3);
    Fill(&array);
    gl::ClearRecords();
    array.Upload(true);
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), Uploaded("1", 36) + Uploaded("2", 48)));
    EXPECT_EQ(2u, array.bufferIds[2]);
}

TEST_F(RecordedVertexArray, DoesNotUploadUnitThree)
{
    VertexArray array(0x41, 3, 3);
    Fill(&array);
    gl::ClearRecords();
    array.Upload(true);
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), Uploaded("1", 36)));
    EXPECT_EQ(0u, array.bufferIds[6]);
}

TEST_F(RecordedVertexArray, UploadsUnitTwoWithUnitZeroOrOne)
{
    VertexArray zero(0x10, 3, 3);
    Fill(&zero);
    zero.Upload(true);
    EXPECT_EQ(1u, zero.bufferIds[3]);
    EXPECT_EQ(0u, zero.bufferIds[4]);
    EXPECT_EQ(2u, zero.bufferIds[5]);
    VertexArray one(0x20, 3, 3);
    Fill(&one);
    one.Upload(true);
    EXPECT_EQ(0u, one.bufferIds[3]);
    EXPECT_EQ(3u, one.bufferIds[4]);
    EXPECT_EQ(4u, one.bufferIds[5]);
}

TEST_F(RecordedVertexArray, UploadsOnlyOnce)
{
    VertexArray array(0x01, 3, 3);
    Fill(&array);
    array.Upload(true);
    const unsigned* const names = array.bufferIds;
    gl::ClearRecords();
    array.Upload(false);
    EXPECT_TRUE(gl::Calls().empty());
    EXPECT_EQ(names, array.bufferIds);
    EXPECT_NE(nullptr, array.data) << "not even the memory is given away";
}

TEST_F(RecordedVertexArray, KeepsTheMemoryOnlyIfItIsTold)
{
    VertexArray keeps(0x01, 4, 4);
    Fill(&keeps);
    keeps.Upload(true);
    EXPECT_NE(nullptr, keeps.data);

    VertexArray gives(0x01, 4, 4);
    Fill(&gives);
    gives.Upload(false);
    EXPECT_EQ(nullptr, gives.data);
    EXPECT_NE(nullptr, gives.indices);
    EXPECT_EQ(3u, gives.vertexCount);
    EXPECT_EQ(3u, gives.indexCount);
}

TEST_F(RecordedVertexArray, TheMemoryThatIsGivenAwayIsFree)
{
    const unsigned room = 100000; // of 3 floats each, and as much again in the buffer
    const size_t before = BytesInUse();
    VertexArray kept(VertexPosition, room, 0);
    const float place[3] = {};
    while (kept.AddVertex(place, false)) {
    }
    kept.Upload(true);
    const size_t ofKept = BytesInUse() - before;
    EXPECT_GE(ofKept, room * 24);
    VertexArray lean(VertexPosition, room, 0);
    while (lean.AddVertex(place, false)) {
    }
    lean.Upload(false);
    EXPECT_LT(BytesInUse() - before - ofKept, room * 18);
}

TEST_F(RecordedVertexArray, AVertexAfterTheMemoryIsGivenAwayIsNotAdded)
{
    VertexArray array(0x01, 4, 4);
    Fill(&array);
    array.Upload(false);
    const float values[3] = {1, 2, 3};
    EXPECT_FALSE(array.AddVertex(values, true));
    EXPECT_EQ(3u, array.vertexCount);
    EXPECT_EQ(3u, array.indexCount);
    EXPECT_TRUE(array.AddIndex(0)) << "indices have a store of their own";
}

TEST_F(RecordedVertexArray, BindsFromBuffersInTheSameOrder)
{
    VertexArray array(0x37, 3, 3);
    Fill(&array);
    array.Upload(false);
    gl::ClearRecords();
    array.Draw(GL_TRIANGLES);
    EXPECT_TRUE(gl::CallsAre(gl::Calls(),
                             FromBuffer("GL_VERTEX_ARRAY", "1", "glVertexPointer(3, GL_FLOAT, 0, 0)") +
                                 FromBuffer("GL_NORMAL_ARRAY", "2", "glNormalPointer(GL_FLOAT, 0, 0)") +
                                 FromBuffer("GL_COLOR_ARRAY", "3", "glColorPointer(3, GL_FLOAT, 0, 0)") +
                                 UnitFromBuffer("0", "4", "glTexCoordPointer(2, GL_FLOAT, 0, 0)") +
                                 UnitFromBuffer("1", "5", "glTexCoordPointer(2, GL_FLOAT, 0, 0)") +
                                 UnitFromBuffer("2", "6", "glTexCoordPointer(3, GL_FLOAT, 0, 0)") +
                                 drawThree + noPosition + noNormal + noColour + noUnit0 + noUnit1 + noUnit2));
    const gl::Draw& draw = gl::Draws().at(0);
    EXPECT_TRUE(gl::HasVertices(draw, {{1, 2, 3}, {101, 102, 103}, {201, 202, 203}}));
    EXPECT_TRUE(gl::HasNormals(draw, {{4, 5, 6}, {104, 105, 106}, {204, 205, 206}}));
    EXPECT_TRUE(gl::HasColours(draw, {{7, 8, 9}, {107, 108, 109}, {207, 208, 209}}));
    EXPECT_TRUE(gl::HasTexCoords(draw, {{10, 11}, {110, 111}, {210, 211}}, 0, 0));
    EXPECT_TRUE(gl::HasTexCoords(draw, {{12, 13}, {112, 113}, {212, 213}}, 0, 1));
    EXPECT_TRUE(gl::HasTexCoords(draw, {{14, 15, 114}, {115, 214, 215}, {0, 0, 0}}, 0, 2));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(RecordedVertexArray, BindsColourWithAlphaFromItsBuffer)
{
    VertexArray array(0x09, 3, 3);
    Fill(&array);
    array.Upload(false);
    gl::ClearRecords();
    array.Draw(GL_TRIANGLES);
    EXPECT_TRUE(
        gl::CallsAre(gl::Calls(), FromBuffer("GL_VERTEX_ARRAY", "1", "glVertexPointer(3, GL_FLOAT, 0, 0)") +
                                      FromBuffer("GL_COLOR_ARRAY", "2", "glColorPointer(4, GL_FLOAT, 0, 0)") +
                                      drawThree + noPosition + noColour));
    EXPECT_TRUE(
        gl::HasColours(gl::Draws().at(0), {{4, 5, 6, 7}, {104, 105, 106, 107}, {204, 205, 206, 207}}));
}

TEST_F(RecordedVertexArray, UnitThreeHasNoBufferAndIsSwitchedOffAheadOfTheDraw)
{
    VertexArray array(0x41, 3, 3);
    Fill(&array);
    array.Upload(true);
    gl::ClearRecords();
    array.Draw(GL_TRIANGLES);
    EXPECT_TRUE(
        gl::CallsAre(gl::Calls(), FromBuffer("GL_VERTEX_ARRAY", "1", "glVertexPointer(3, GL_FLOAT, 0, 0)") +
                                      UnitFromBuffer("3", "0", "glTexCoordPointer(2, GL_FLOAT, 0, null)") +
                                      Lines{"glDisableClientState(GL_TEXTURE_COORD_ARRAY)"} + drawThree +
                                      noPosition + noUnit3));
    EXPECT_TRUE(gl::HasVertices(gl::Draws().at(0), {{1, 2, 3}, {101, 102, 103}, {201, 202, 203}}));
    EXPECT_TRUE(gl::NoErrors()) << "nothing is read at address 0";
}

TEST_F(RecordedVertexArray, UnitThreeDoesNotBorrowTheBufferOfUnitTwo)
{
    VertexArray array(0x01 | 0x10 | 0x40, 3, 3); // unit 2 comes with unit 0
    Fill(&array);
    array.Upload(true);
    ASSERT_EQ(3u, gl::Buffers().size());
    gl::ClearRecords();
    array.Draw(GL_TRIANGLES);
    EXPECT_TRUE(gl::CallsContain(gl::Calls(),
                                 {"glClientActiveTexture(GL_TEXTURE2)", "glBindBuffer(GL_ARRAY_BUFFER, 3)",
                                  "glClientActiveTexture(GL_TEXTURE3)", "glBindBuffer(GL_ARRAY_BUFFER, 0)"}));
}

TEST_F(RecordedVertexArray, LeavesItsLastBufferBound)
{
    VertexArray array(0x03, 3, 3);
    Fill(&array);
    array.Upload(false);
    array.Draw(GL_TRIANGLES);
    GLint bound = 0;
    glGetIntegerv(GL_ARRAY_BUFFER_BINDING, &bound);
    EXPECT_EQ(2, bound);
}

TEST_F(RecordedVertexArray, ABufferThatIsStillBoundDoesNotReachADrawFromMemory)
{
    VertexArray uploaded(0x01, 3, 3);
    Fill(&uploaded);
    uploaded.Upload(false);
    uploaded.Draw(GL_TRIANGLES);

    VertexArray inMemory(0x01, 3, 3);
    Fill(&inMemory);
    for (int frame = 0; frame < 2; ++frame) {
        gl::ClearRecords();
        inMemory.Draw(GL_TRIANGLES);
        EXPECT_TRUE(gl::CallsAre(gl::Calls(), Lines{"glBindBuffer(GL_ARRAY_BUFFER, 0)"} + position +
                                                  drawThree + noPosition));
        EXPECT_TRUE(gl::HasVertices(gl::Draws().at(0), {{1, 2, 3}, {101, 102, 103}, {201, 202, 203}}));
    }
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(RecordedVertexArray, AnIndexBehindWhatWasUploadedDrawsNothing)
{
    VertexArray array(0x01, 4, 8);
    Fill(&array);
    array.Upload(true);
    const float values[3] = {301, 302, 303};
    array.Draw(GL_TRIANGLES);
    EXPECT_EQ(1, gl::CountCalls("glDrawElements"));

    EXPECT_TRUE(array.AddVertex(values, true)) << "there is memory for it, but it is not in the buffer";
    gl::ClearRecords();
    array.Draw(GL_TRIANGLES);
    EXPECT_EQ(0, gl::CountCalls("glDrawElements"));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(RecordedVertexArray, ReleaseDeletesNoBuffer)
{
    VertexArray array(0x37, 3, 3);
    Fill(&array);
    array.Upload(true);
    ASSERT_EQ(6u, gl::Buffers().size());
    gl::ClearRecords();
    array.Release();
    EXPECT_TRUE(gl::Calls().empty());
    EXPECT_EQ(6u, gl::Buffers().size());
    EXPECT_EQ(0u, array.flags);
    EXPECT_EQ(0u, array.indexCount);

    array.Upload(true);
    EXPECT_TRUE(gl::Calls().empty()) << "the old names are still there";
    array.Draw(GL_TRIANGLES);
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glDrawElements(GL_TRIANGLES, 0, GL_UNSIGNED_INT, null)"}));
}

TEST_F(RecordedVertexArray, WithoutBufferObjectsInTheGLUploadChangesNothing)
{
    const PFNGLGENBUFFERSARBPROC genBuffers = glGenBuffersARB;
    glGenBuffersARB = nullptr;
    VertexArray array(0x01, 3, 3);
    Fill(&array);
    array.Upload(false);
    EXPECT_EQ(nullptr, array.bufferIds);
    EXPECT_NE(nullptr, array.data);
    array.Draw(GL_TRIANGLES);
    EXPECT_EQ(1u, gl::Draws().size());
    glGenBuffersARB = genBuffers;
}
