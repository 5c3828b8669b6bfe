// SPDX-License-Identifier: MIT
// Values and records out of text that is well made, breaks off or is none.
#include "tests/resources/TextArchiveFixture.h"

#include "tests/support/OddFiles.h"

class TextArchiveReading : public TextArchiveFixture
{
};

TEST_F(TextArchiveReading, ReadsEveryRecordInAnyArrangementOfWhiteSpace)
{
    Put("\n\n -12345\t0.5\r\nmoth   0.25\n0.75 1 -2 3.5e0 .1 .2 .3 +.4 5 6 7 8\n"
        "0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15\n"
        "20 21 22 23 24 25 26 27 28 29 30 31 32 33 34 35\n"
        "3 4 5 6 2 0.5 0.25 moon 2 0.5 0.25 0.125 1 1.5 -2.5 9 3 7 8 9 1 0.5");
    TextArchiveReader archive(path);
    EXPECT_TRUE(archive.IsGood());

    int number = 0;
    archive.ReadInt(&number);
    EXPECT_EQ(-12345, number);
    float real = 0.0f;
    archive.ReadFloat(&real);
    EXPECT_EQ(0.5f, real);
    std::string text;
    archive.ReadString(&text);
    EXPECT_EQ("moth", text);
    Vec2 vec2;
    archive.ReadVec2(&vec2);
    EXPECT_EQ(0.25f, vec2.u);
    EXPECT_EQ(0.75f, vec2.v);
    Vector3 vector3;
    archive.ReadVector3(&vector3);
    EXPECT_EQ(1.0f, vector3.x);
    EXPECT_EQ(-2.0f, vector3.y);
    EXPECT_EQ(3.5f, vector3.z);
    Colour colour;
    archive.ReadColour(&colour);
    EXPECT_EQ(0.1f, colour.r);
    EXPECT_EQ(0.2f, colour.g);
    EXPECT_EQ(0.3f, colour.b);
    EXPECT_EQ(0.4f, colour.a);
    Quaternion quaternion = {};
    archive.ReadQuaternion(quaternion);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(static_cast<float>(5 + i), quaternion[i]);
    Matrix16 matrix = {};
    archive.ReadMatrix(matrix);
    for (int i = 0; i < 16; ++i)
        EXPECT_EQ(static_cast<float>(i), matrix[i]);
    TransformRecord transform;
    archive.ReadTransform(&transform);
    for (int i = 0; i < 16; ++i)
        EXPECT_EQ(static_cast<float>(20 + i), transform.matrix[i]);
    WeightsRecord weights;
    archive.ReadWeights(&weights);
    EXPECT_EQ(std::vector<int>({4, 5, 6}), weights.indices);
    EXPECT_EQ(std::vector<float>({0.5f, 0.25f}), weights.weights);
    LightRecord light;
    archive.ReadLight(&light);
    EXPECT_EQ("moon", light.name);
    EXPECT_EQ(2, light.kind);
    EXPECT_EQ(0.5f, light.colour.r);
    EXPECT_EQ(0.25f, light.colour.g);
    EXPECT_EQ(0.125f, light.colour.b);
    EXPECT_EQ(1.0f, light.colour.a);
    EXPECT_EQ(1.5f, light.first);
    EXPECT_EQ(-2.5f, light.second);
    EXPECT_EQ(9, light.flags);
    std::vector<int> ints;
    archive.ReadInts(&ints);
    EXPECT_EQ(std::vector<int>({7, 8, 9}), ints);
    std::vector<float> floats;
    archive.ReadFloats(&floats);
    EXPECT_EQ(std::vector<float>({0.5f}), floats);

    EXPECT_TRUE(archive.IsGood()) << "the end of the file is no failure until something is wanted behind it";
    archive.ReadInt(&number);
    EXPECT_FALSE(archive.IsGood());
    EXPECT_EQ(-12345, number);
}

TEST_F(TextArchiveReading, AMissingFileFailsAtOnceAndChangesNothing)
{
    TextArchiveReader archive(path);
    EXPECT_FALSE(archive.IsGood());
    int number = 5;
    std::string text = "as it was";
    std::vector<int> list = {1};
    Model model = PondModel();
    archive.ReadInt(&number);
    archive.ReadString(&text);
    archive.ReadInts(&list);
    archive.ReadModel(&model);
    EXPECT_EQ(5, number);
    EXPECT_EQ("as it was", text);
    EXPECT_EQ(std::vector<int>({1}), list);
    EXPECT_EQ("pond", model.name);
    EXPECT_EQ(4u, model.vertices.size());
    EXPECT_EQ(2u, model.faces.size());
}

TEST_F(TextArchiveReading, WhatIsNoFileCannotBeRead)
{
    for (const OddFile& odd : OddFiles()) {
        odd.make(path);
        TextArchiveReader archive(path);
        int number = 5;
        archive.ReadInt(&number);
        EXPECT_FALSE(archive.IsGood()) << odd.name;
        EXPECT_EQ(5, number);
        remove(path.c_str());
    }
}

TEST_F(TextArchiveReading, AFailedReadLeavesThisAndAllFurtherValues)
{
    Put("12 fish 13 14");
    TextArchiveReader archive(path);
    int first = 0;
    int second = 77;
    float third = 78.0f;
    std::string fourth = "79";
    archive.ReadInt(&first);
    archive.ReadInt(&second);
    archive.ReadFloat(&third);
    archive.ReadString(&fourth);
    EXPECT_EQ(12, first);
    EXPECT_EQ(77, second);
    EXPECT_EQ(78.0f, third);
    EXPECT_EQ("79", fourth);
    EXPECT_FALSE(archive.IsGood());
}

TEST_F(TextArchiveReading, ANumberOutOfRangeFailsAndIsNotTakenForTheLimit)
{
    int number = 7;
    float real = 8.0f;
    Put("99999999999");
    TextArchiveReader(path).ReadInt(&number);
    EXPECT_EQ(7, number);
    Put("1e99");
    TextArchiveReader(path).ReadFloat(&real);
    EXPECT_EQ(8.0f, real);

    std::vector<int> list;
    Put("99999999999 1 2 3");
    TextArchiveReader(path).ReadInts(&list);
    EXPECT_TRUE(list.empty());
}

TEST_F(TextArchiveReading, ARecordThatBreaksOffKeepsWhatIsInFrontOfTheBreak)
{
    Put("1 2");
    Vector3 vector3(7, 8, 9);
    TextArchiveReader(path).ReadVector3(&vector3);
    EXPECT_EQ(1.0f, vector3.x);
    EXPECT_EQ(2.0f, vector3.y);
    EXPECT_EQ(9.0f, vector3.z);

    Matrix16 matrix = {};
    matrix[1] = 5.0f;
    matrix[2] = 6.0f;
    TextArchiveReader(path).ReadMatrix(matrix);
    EXPECT_EQ(2.0f, matrix[1]);
    EXPECT_EQ(6.0f, matrix[2]);
}

TEST_F(TextArchiveReading, AListThatBreaksOffIsFilledWithZerosUpToItsCount)
{
    Put("5 1 2");
    std::vector<int> ints;
    TextArchiveReader(path).ReadInts(&ints);
    EXPECT_EQ(std::vector<int>({1, 2, 0, 0, 0}), ints);
    std::vector<float> floats;
    TextArchiveReader(path).ReadFloats(&floats);
    EXPECT_EQ(std::vector<float>({1.0f, 2.0f, 0.0f, 0.0f, 0.0f}), floats);
}

TEST_F(TextArchiveReading, AListIsAppendedTo)
{
    Put("2 8 9 1 0.5");
    WeightsRecord weights;
    weights.indices = {7};
    weights.weights = {0.25f};
    TextArchiveReader(path).ReadWeights(&weights);
    EXPECT_EQ(std::vector<int>({7, 8, 9}), weights.indices);
    EXPECT_EQ(std::vector<float>({0.25f, 0.5f}), weights.weights);
}

TEST_F(TextArchiveReading, ANegativeCountIsAnEmptyList)
{
    Put("-3 2 8 9");
    std::vector<int> first;
    std::vector<int> second;
    TextArchiveReader archive(path);
    archive.ReadInts(&first);
    archive.ReadInts(&second);
    EXPECT_TRUE(first.empty());
    EXPECT_EQ(std::vector<int>({8, 9}), second);
}

TEST_F(TextArchiveReading, MissingItemsAreMadeUpToAMillionAndNoFurther)
{
    EXPECT_EQ(1048576, TextArchiveReader::MaxMissingItems);
    std::vector<int> list;
    Put("1048575 1");
    TextArchiveReader(path).ReadInts(&list);
    EXPECT_EQ(1048575u, list.size());
    list.clear();
    Put("2147483647 1 2 3");
    TextArchiveReader(path).ReadInts(&list);
    EXPECT_EQ(1048576u, list.size());
    EXPECT_EQ(3, list[2]);
    EXPECT_EQ(0, list[3]);
    std::vector<float> floats;
    TextArchiveReader(path).ReadFloats(&floats);
    EXPECT_EQ(1048576u, floats.size());
}

TEST_F(TextArchiveReading, ItemsThatAreThereAreTakenHoweverMany)
{
    std::string text = "1200000";
    for (int i = 0; i < 1100000; ++i)
        text += " 7";
    Put(text);
    std::vector<int> list;
    TextArchiveReader(path).ReadInts(&list);
    // The reading of the first missing one shows that it is missing.
    EXPECT_EQ(1100001u, list.size());
    EXPECT_EQ(7, list[1099999]);
}
