// SPDX-License-Identifier: MIT
#include "resources/VertexArray.h"

#include <gtest/gtest.h>

#include <malloc.h>

#include <vector>

// 1, 2, 3, ... enough for a vertex with every attribute
static std::vector<float> Counting(int first)
{
    std::vector<float> values(32);
    for (size_t i = 0; i < values.size(); ++i)
        values[i] = static_cast<float>(first + static_cast<int>(i));
    return values;
}

static std::vector<float> Block(const VertexArray& array, unsigned offset, unsigned count)
{
    return std::vector<float>(array.data + offset, array.data + offset + count);
}

TEST(VertexArray, StartsEmptyAndZeroed)
{
    const VertexArray array(VertexPosition | VertexColourRGBA, 3, 5);
    EXPECT_EQ(0u, array.vertexCount);
    EXPECT_EQ(0u, array.indexCount);
    EXPECT_EQ(3u, array.vertexCapacity);
    EXPECT_EQ(5u, array.indexCapacity);
    EXPECT_EQ(0x09u, array.flags);
    EXPECT_EQ(nullptr, array.bufferIds);
    EXPECT_EQ(std::vector<float>(21, 0.0f), Block(array, 0, 21));
    for (unsigned i = 0; i < 5; ++i)
        EXPECT_EQ(0u, array.indices[i]);
}

TEST(VertexArray, FlagsHaveTheirValues)
{
    EXPECT_EQ(0x01u, VertexPosition);
    EXPECT_EQ(0x02u, VertexNormal);
    EXPECT_EQ(0x04u, VertexColourRGB);
    EXPECT_EQ(0x08u, VertexColourRGBA);
    EXPECT_EQ(0x10u, VertexTexture0);
    EXPECT_EQ(0x20u, VertexTexture1);
    EXPECT_EQ(0x30u, VertexTexture2);
    EXPECT_EQ(0x40u, VertexTexture3);
}

TEST(VertexArray, LaysItsBlocksOneAfterTheOther)
{
    const VertexArray array(0x01 | 0x02 | 0x04 | 0x10 | 0x20 | 0x40, 10, 0);
    EXPECT_EQ(0u, array.positionOffset);
    EXPECT_EQ(30u, array.normalOffset);
    EXPECT_EQ(60u, array.colourOffset);
    EXPECT_EQ(90u, array.texCoordOffset[0]);
    EXPECT_EQ(110u, array.texCoordOffset[1]);
    EXPECT_EQ(130u, array.texCoordOffset[2]);
    EXPECT_EQ(160u, array.texCoordOffset[3]) << "3 floats a vertex for the unit before";
    EXPECT_EQ(std::vector<float>(180, 0.0f), Block(array, 0, 180));
}

TEST(VertexArray, TheOffsetOfAnAttributeThatIsNotThereIsZero)
{
    const VertexArray array(0x40, 10, 0);
    EXPECT_EQ(0u, array.positionOffset);
    EXPECT_EQ(0u, array.normalOffset);
    EXPECT_EQ(0u, array.colourOffset);
    for (unsigned offset : array.texCoordOffset)
        EXPECT_EQ(0u, offset);
    const VertexArray position(0x01, 10, 0);
    for (unsigned offset : position.texCoordOffset)
        EXPECT_EQ(0u, offset);
}

TEST(VertexArray, ColourWithAlphaTakesFourFloats)
{
    const VertexArray array(0x02 | 0x08 | 0x10, 10, 0);
    EXPECT_EQ(0u, array.positionOffset);
    EXPECT_EQ(0u, array.normalOffset);
    EXPECT_EQ(30u, array.colourOffset);
    EXPECT_EQ(70u, array.texCoordOffset[0]);
}

TEST(VertexArray, UnitTwoIsThereWheneverUnitZeroOrOneIs)
{
    const VertexArray zero(0x10, 10, 0);
    EXPECT_EQ(0u, zero.texCoordOffset[0]);
    EXPECT_EQ(20u, zero.texCoordOffset[2]);
    const VertexArray one(0x20 | 0x40, 10, 0);
    EXPECT_EQ(0u, one.texCoordOffset[1]);
    EXPECT_EQ(20u, one.texCoordOffset[2]);
    EXPECT_EQ(50u, one.texCoordOffset[3]);
    const VertexArray three(0x01 | 0x40, 10, 0);
    EXPECT_EQ(30u, three.texCoordOffset[3]) << "unit 3 has a bit of its own and brings no other";
}

TEST(VertexArray, AVertexGoesIntoItsBlocks)
{
    VertexArray array(0x01 | 0x02 | 0x04 | 0x10 | 0x20 | 0x40, 2, 0);
    EXPECT_TRUE(array.AddVertex(Counting(1).data(), false));
    EXPECT_TRUE(array.AddVertex(Counting(101).data(), false));
    EXPECT_EQ(2u, array.vertexCount);
    EXPECT_EQ(std::vector<float>({1, 2, 3, 101, 102, 103}), Block(array, array.positionOffset, 6));
    EXPECT_EQ(std::vector<float>({4, 5, 6, 104, 105, 106}), Block(array, array.normalOffset, 6));
    EXPECT_EQ(std::vector<float>({7, 8, 9, 107, 108, 109}), Block(array, array.colourOffset, 6));
    EXPECT_EQ(std::vector<float>({10, 11, 110, 111}), Block(array, array.texCoordOffset[0], 4));
    EXPECT_EQ(std::vector<float>({12, 13, 112, 113}), Block(array, array.texCoordOffset[1], 4));
    EXPECT_EQ(std::vector<float>({14, 15, 114, 115, 0, 0}), Block(array, array.texCoordOffset[2], 6));
    EXPECT_EQ(std::vector<float>({16, 17, 116, 117}), Block(array, array.texCoordOffset[3], 4));
}

TEST(VertexArray, AVertexWithAlphaReadsFourFloats)
{
    VertexArray array(0x08 | 0x40, 2, 0);
    EXPECT_TRUE(array.AddVertex(Counting(1).data(), false));
    EXPECT_TRUE(array.AddVertex(Counting(101).data(), false));
    EXPECT_EQ(std::vector<float>({1, 2, 3, 4, 101, 102, 103, 104}), Block(array, array.colourOffset, 8));
    EXPECT_EQ(std::vector<float>({5, 6, 105, 106}), Block(array, array.texCoordOffset[3], 4));
}

TEST(VertexArray, TheTextureCoordinateIsReadBehindTheAlpha)
{
    VertexArray array(0x08 | 0x10, 1, 0);
    EXPECT_TRUE(array.AddVertex(Counting(1).data(), false));
    EXPECT_EQ(std::vector<float>({1, 2, 3, 4}), Block(array, array.colourOffset, 4));
    EXPECT_EQ(std::vector<float>({5, 6}), Block(array, array.texCoordOffset[0], 2));
}

TEST(VertexArray, WithUnitZeroAVertexReadsFourFloatsAndHasRoomForFive)
{
    VertexArray array(0x10, 2, 0);
    EXPECT_TRUE(array.AddVertex(Counting(1).data(), false));
    EXPECT_TRUE(array.AddVertex(Counting(5).data(), false));
    EXPECT_EQ(std::vector<float>({1, 2, 5, 6, 3, 4, 7, 8, 0, 0}), Block(array, 0, 10));
}

TEST(VertexArray, WithBothColoursBothAreWrittenToTheOneBlock)
{
    VertexArray array(0x01 | 0x04 | 0x08 | 0x40, 2, 0);
    EXPECT_EQ(12u, array.colourOffset) << "the second sum stays";
    EXPECT_EQ(20u, array.texCoordOffset[3]);
    EXPECT_TRUE(array.AddVertex(Counting(1).data(), false));
    EXPECT_EQ(std::vector<float>({7, 8, 9, 10}), Block(array, array.colourOffset, 4));
    EXPECT_TRUE(array.AddVertex(Counting(101).data(), false));
    // The RGB of the second vertex runs over the alpha of the first, then its own RGBA over its tail.
    EXPECT_EQ(std::vector<float>({7, 8, 9, 104, 107, 108, 109, 110}), Block(array, array.colourOffset, 8));
    EXPECT_EQ(std::vector<float>({11, 12, 111, 112}), Block(array, array.texCoordOffset[3], 4));
}

TEST(VertexArray, TakesAsManyVerticesAsItHasRoomFor)
{
    VertexArray array(0x01, 2, 4);
    EXPECT_TRUE(array.AddVertex(Counting(1).data(), true));
    EXPECT_TRUE(array.AddVertex(Counting(1).data(), true));
    EXPECT_FALSE(array.AddVertex(Counting(1).data(), true));
    EXPECT_EQ(2u, array.vertexCount);
    EXPECT_EQ(2u, array.indexCount) << "a vertex without room brings no index";
    EXPECT_EQ(0u, array.indices[0]);
    EXPECT_EQ(1u, array.indices[1]);
}

TEST(VertexArray, WithoutRoomForTheWantedIndexTheVertexIsNotAdded)
{
    VertexArray array(0x01, 3, 1);
    EXPECT_TRUE(array.AddVertex(Counting(1).data(), true));
    EXPECT_FALSE(array.AddVertex(Counting(11).data(), true));
    EXPECT_EQ(1u, array.vertexCount);
    EXPECT_EQ(1u, array.indexCount);
    EXPECT_EQ(std::vector<float>({1, 2, 3, 0, 0, 0, 0, 0, 0}), Block(array, 0, 9));
    EXPECT_TRUE(array.AddVertex(Counting(11).data(), false)) << "without an index there is room";
    EXPECT_EQ(2u, array.vertexCount);
}

TEST(VertexArray, TakesAsManyIndicesAsItHasRoomForAndAnyNumber)
{
    VertexArray array(0x01, 0, 2);
    EXPECT_TRUE(array.AddIndex(7));
    EXPECT_TRUE(array.AddIndex(4000000000u));
    EXPECT_FALSE(array.AddIndex(1));
    EXPECT_EQ(2u, array.indexCount);
    EXPECT_EQ(7u, array.indices[0]);
    EXPECT_EQ(4000000000u, array.indices[1]);
    EXPECT_FALSE(array.AddVertex(Counting(1).data(), false));
}

static void ExpectReleased(const VertexArray& array)
{
    EXPECT_EQ(0u, array.flags);
    EXPECT_EQ(0u, array.vertexCount);
    EXPECT_EQ(0u, array.indexCount);
    EXPECT_EQ(0u, array.vertexCapacity);
    EXPECT_EQ(0u, array.indexCapacity);
    EXPECT_EQ(0u, array.positionOffset);
    EXPECT_EQ(0u, array.normalOffset);
    EXPECT_EQ(0u, array.colourOffset);
    for (unsigned offset : array.texCoordOffset)
        EXPECT_EQ(0u, offset);
    EXPECT_EQ(nullptr, array.data);
    EXPECT_EQ(nullptr, array.indices);
}

TEST(VertexArray, ReleaseEmptiesItForGood)
{
    VertexArray array(0x7F, 2, 2);
    EXPECT_TRUE(array.AddVertex(Counting(1).data(), true));
    array.Release();
    ExpectReleased(array);
    EXPECT_FALSE(array.AddVertex(Counting(1).data(), false));
    EXPECT_FALSE(array.AddIndex(0));
    array.Release();
    ExpectReleased(array);
}

// Bytes in blocks that are large enough to be taken from the system and given back to it one by one. 0 under the
// sanitizers, which have an allocator of their own.
static size_t LargeBlocks()
{
    return mallinfo2().hblkhd;
}

TEST(VertexArray, ReleaseAndDestructorGiveTheMemoryBack)
{
    const size_t before = LargeBlocks();
    {
        VertexArray array(VertexPosition, 10000000, 10000000); // 120 and 40 MB
        if (before > 0 || LargeBlocks() > 0) {
            EXPECT_GT(LargeBlocks(), before + 159000000);
        }
        array.Release();
        EXPECT_EQ(before, LargeBlocks());
        VertexArray other(VertexPosition, 10000000, 10000000);
    }
    EXPECT_EQ(before, LargeBlocks());
}

TEST(VertexArray, ASizeWhoseOffsetsPassThirtyTwoBitsGivesAnEmptyObject)
{
    const VertexArray array(0x01, 1431655766u, 0); // 3 floats each: 4294967298
    ExpectReleased(array);
}

TEST(VertexArray, ASizeThatNoMemoryCanHoldGivesAnEmptyObject)
{
    VertexArray array(0x7F, 4000000000u, 2);
    ExpectReleased(array);
    EXPECT_FALSE(array.AddVertex(Counting(1).data(), true));
    EXPECT_FALSE(array.AddIndex(0));
}
