// SPDX-License-Identifier: MIT
#include "resources/TextArchive.h"

#include "platform/Paths.h"
#include "resources/Material.h"
#include "resources/Model.h"
#include "tests/support/OddFiles.h"

#include "tests/support/ReadFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <locale>
#include <unistd.h>

class TextArchive : public testing::Test
{
protected:
    TextArchive() : path(testing::TempDir() + "TextArchiveTest-" + std::to_string(getpid())) {}
    ~TextArchive() override { std::filesystem::remove_all(path); }

    void Put(const std::string& text) { std::ofstream(path, std::ios::binary) << text; }

    std::string Get() { return ReadFile(path); }

    const std::string path;
};

// Decimal comma, dots between thousands: what must not reach a file.
class CommaPunctuation : public std::numpunct<char>
{
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST_F(TextArchive, WritesEachValueWithOneBlankBehindIt)
{
    TextArchiveWriter archive(path);
    archive.WriteInt(-12345);
    archive.WriteFloat(0.5f);
    archive.WriteFloat(100000.0f);
    archive.WriteFloat(1e-7f);
    archive.WriteFloat(1.0f / 3.0f); // six significant digits
    archive.WriteString("moth");
    archive.WriteVec2(Vec2(0.25f, 0.75f));
    archive.WriteVector3(Vector3(1.0f, -2.0f, 3.5f));
    archive.WriteColour(Colour(0.1f, 0.2f, 0.3f, 0.4f));
    const Quaternion quaternion = {5.0f, 6.0f, 7.0f, 8.0f};
    archive.WriteQuaternion(quaternion);
    EXPECT_TRUE(archive.IsGood());
    archive.Close();
    EXPECT_EQ("-12345 0.5 100000 1e-07 0.333333 moth 0.25 0.75 1 -2 3.5 0.1 0.2 0.3 0.4 5 6 7 8 ", Get());
}

TEST_F(TextArchive, AWriterOnAFullDiskIsGoodUntilItsWritesFail)
{
    TextArchiveWriter archive("/dev/full");
    EXPECT_TRUE(archive.IsGood());
    for (int i = 0; i < 100000; i++) // more than a stream keeps back
        archive.WriteInt(i);
    EXPECT_FALSE(archive.IsGood());
}

TEST_F(TextArchive, AnEmptyStringWritesNothingButItsBlank)
{
    TextArchiveWriter archive(path);
    archive.WriteString("");
    archive.WriteInt(7);
    archive.Close();
    EXPECT_EQ(" 7 ", Get());
}

TEST_F(TextArchive, WritesMatricesAndTransformsAs16FloatsInMemoryOrder)
{
    Matrix16 matrix;
    TransformRecord transform;
    for (int i = 0; i < 16; ++i) {
        matrix[i] = static_cast<float>(i);
        transform.matrix[i] = static_cast<float>(16 + i);
    }
    TextArchiveWriter archive(path);
    archive.WriteMatrix(matrix);
    archive.WriteTransform(transform);
    archive.Close();
    EXPECT_EQ("0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27 28 29 30 31 ",
              Get());
}

static Material BarkMaterial()
{
    Material material;
    material.name = "bark";
    material.ambient = Colour(0.01f, 0.02f, 0.03f, 0.04f);
    material.diffuse = Colour(0.05f, 0.06f, 0.07f, 0.08f);
    material.specular = Colour(0.09f, 0.1f, 0.11f, 0.12f);
    material.emission = Colour(0.13f, 0.14f, 0.15f, 0.16f);
    material.shininess = 12.5f;
    material.textureNames[0] = "a.jpg";
    material.textureNames[1] = "b.jpg";
    material.textureNames[2] = "c.png";
    material.textureNames[3] = "d.png";
    return material;
}

static const char* const barkText = "bark 0.01 0.02 0.03 0.04 0.05 0.06 0.07 0.08 0.09 0.1 0.11 0.12 "
                                    "0.13 0.14 0.15 0.16 12.5 a.jpg b.jpg c.png d.png ";

TEST_F(TextArchive, WritesAMaterialAsNameColoursShininessTextures)
{
    TextArchiveWriter archive(path);
    archive.WriteMaterial(BarkMaterial());
    archive.Close();
    EXPECT_EQ(barkText, Get());
}

TEST_F(TextArchive, WritesALightAsStringIntColourFloatFloatInt)
{
    LightRecord light;
    light.name = "moon";
    light.kind = 2;
    light.colour = Colour(0.5f, 0.25f, 0.125f, 1.0f);
    light.first = 1.5f;
    light.second = -2.5f;
    light.flags = 9;
    TextArchiveWriter archive(path);
    archive.WriteLight(light);
    archive.Close();
    EXPECT_EQ("moon 2 0.5 0.25 0.125 1 1.5 -2.5 9 ", Get());
}

TEST_F(TextArchive, WritesWeightsAsTwoCountedLists)
{
    WeightsRecord weights;
    weights.indices = {4, 5, 6};
    weights.weights = {0.5f, 0.25f};
    TextArchiveWriter archive(path);
    archive.WriteWeights(weights);
    archive.WriteWeights(WeightsRecord());
    archive.Close();
    EXPECT_EQ("3 4 5 6 2 0.5 0.25 0 0 ", Get());
}

static Model PondModel()
{
    Model model;
    model.name = "pond";
    model.vertices = {Vector3(1, 2, 3), Vector3(4, 5, 6), Vector3(7, 8, 9), Vector3(-1, -2.5f, 0)};
    model.normals = {Vector3(0, 0, 1), Vector3(0, 1, 0)};
    model.texCoords = {Vec2(0.25f, 0.5f)};
    model.faces.resize(2);
    model.faces[0].type = 3;
    model.faces[0].vertexIndices = {0, 1, 2, 3};
    model.faces[0].normalIndices = {0, 1, 0, 1};
    model.faces[0].texCoordIndices = {0, 0, 0, 0};
    model.faces[1].vertexIndices = {2, 1, 0};
    model.faces[1].normalIndices = {1, 1, 1};
    model.faces[1].texCoordIndices = {0, 0, 0};
    return model;
}

TEST_F(TextArchive, WritesAModelInTheOrderOfItsFile)
{
    TextArchiveWriter archive(path);
    archive.WriteModel(PondModel());
    archive.Close();
    EXPECT_EQ("pond 4 1 2 3 4 5 6 7 8 9 -1 -2.5 0 2 0 0 1 0 1 0 1 0.25 0.5 "
              "2 3 4 0 1 2 3 4 0 1 0 1 4 0 0 0 0 0 3 2 1 0 3 1 1 1 3 0 0 0 ",
              Get());
}

TEST_F(TextArchive, ReadsEveryRecordInAnyArrangementOfWhiteSpace)
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

// Reads a material from the file and writes it again.
static void CopyMaterial(const std::string& path)
{
    Material material;
    TextArchiveReader reader(path);
    reader.ReadMaterial(&material);
    EXPECT_TRUE(reader.IsGood());
    reader.Close();
    TextArchiveWriter writer(path);
    writer.WriteMaterial(material);
}

TEST_F(TextArchive, AMaterialGoesRoundWithoutLoss)
{
    Put(barkText);
    CopyMaterial(path);
    EXPECT_EQ(barkText, Get());

    Material material;
    TextArchiveReader archive(path);
    archive.ReadMaterial(&material);
    EXPECT_EQ("bark", material.name);
    EXPECT_EQ(0.01f, material.ambient.r);
    EXPECT_EQ(0.08f, material.diffuse.a);
    EXPECT_EQ(0.11f, material.specular.b);
    EXPECT_EQ(0.14f, material.emission.g);
    EXPECT_EQ(12.5f, material.shininess);
    EXPECT_EQ("d.png", material.textureNames[3]);
}

TEST_F(TextArchive, AModelGoesRoundWithoutLoss)
{
    TextArchiveWriter writer(path);
    writer.WriteModel(PondModel());
    writer.Close();
    const std::string text = Get();

    Model model;
    TextArchiveReader reader(path);
    reader.ReadModel(&model);
    EXPECT_TRUE(reader.IsGood());
    ASSERT_EQ(2u, model.faces.size());
    EXPECT_EQ(3, model.faces[0].type);
    EXPECT_EQ(0, model.faces[1].type);
    EXPECT_EQ(PondModel().faces[0].normalIndices, model.faces[0].normalIndices);

    TextArchiveWriter again(path);
    again.WriteModel(model);
    again.Close();
    EXPECT_EQ(text, Get());
}

TEST_F(TextArchive, LightsTransformsAndWeightsGoRoundWithoutLoss)
{
    const std::string text = "moon 2 0.5 0.25 0.125 1 1.5 -2.5 9 "
                             "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 2 8 9 3 0.1 0.2 0.7 ";
    Put(text);
    LightRecord light;
    TransformRecord transform;
    WeightsRecord weights;
    TextArchiveReader reader(path);
    reader.ReadLight(&light);
    reader.ReadTransform(&transform);
    reader.ReadWeights(&weights);
    reader.Close();
    TextArchiveWriter writer(path);
    writer.WriteLight(light);
    writer.WriteTransform(transform);
    writer.WriteWeights(weights);
    writer.Close();
    EXPECT_EQ(text, Get());
}

TEST_F(TextArchive, AnEmptyTextureNameThrowsTheTokensOutOfStep)
{
    Material material = BarkMaterial();
    material.textureNames[1] = "";
    TextArchiveWriter writer(path);
    writer.WriteMaterial(material);
    writer.WriteString("next");
    writer.Close();

    Material read;
    TextArchiveReader reader(path);
    reader.ReadMaterial(&read);
    EXPECT_EQ("c.png", read.textureNames[1]);
    EXPECT_EQ("next", read.textureNames[3]);
}

TEST_F(TextArchive, NumbersAreTheSameUnderALocaleWithADecimalComma)
{
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaPunctuation));
    std::ostringstream sample;
    sample << 1234.5f;
    EXPECT_EQ("1.234,5", sample.str()) << "the locale of this test must bite";

    TextArchiveWriter writer(path);
    writer.WriteFloat(1234.5f);
    writer.WriteInt(1234567);
    writer.Close();
    EXPECT_EQ("1234.5 1234567 ", Get());

    float real = 0.0f;
    int number = 0;
    TextArchiveReader reader(path);
    reader.ReadFloat(&real);
    reader.ReadInt(&number);
    EXPECT_TRUE(reader.IsGood());
    EXPECT_EQ(1234.5f, real);
    EXPECT_EQ(1234567, number);
    std::locale::global(before);
}

TEST_F(TextArchive, AMissingFileFailsAtOnceAndChangesNothing)
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

TEST_F(TextArchive, WhatIsNoFileCannotBeRead)
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

TEST_F(TextArchive, AClosedArchiveReadsAndWritesNothing)
{
    Put("1 2 3");
    TextArchiveReader reader(path);
    int number = 0;
    reader.ReadInt(&number);
    reader.Close();
    EXPECT_FALSE(reader.IsGood());
    reader.ReadInt(&number);
    EXPECT_EQ(1, number);
    reader.Close();

    TextArchiveWriter writer(path);
    writer.WriteInt(4);
    writer.Close();
    EXPECT_FALSE(writer.IsGood());
    writer.WriteInt(5);
    writer.Close();
    EXPECT_EQ("4 ", Get());
}

TEST_F(TextArchive, AFailedReadLeavesThisAndAllFurtherValues)
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

TEST_F(TextArchive, ANumberOutOfRangeFailsAndIsNotTakenForTheLimit)
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

TEST_F(TextArchive, ARecordThatBreaksOffKeepsWhatIsInFrontOfTheBreak)
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

TEST_F(TextArchive, AListThatBreaksOffIsFilledWithZerosUpToItsCount)
{
    Put("5 1 2");
    std::vector<int> ints;
    TextArchiveReader(path).ReadInts(&ints);
    EXPECT_EQ(std::vector<int>({1, 2, 0, 0, 0}), ints);
    std::vector<float> floats;
    TextArchiveReader(path).ReadFloats(&floats);
    EXPECT_EQ(std::vector<float>({1.0f, 2.0f, 0.0f, 0.0f, 0.0f}), floats);
}

TEST_F(TextArchive, AListIsAppendedTo)
{
    Put("2 8 9 1 0.5");
    WeightsRecord weights;
    weights.indices = {7};
    weights.weights = {0.25f};
    TextArchiveReader(path).ReadWeights(&weights);
    EXPECT_EQ(std::vector<int>({7, 8, 9}), weights.indices);
    EXPECT_EQ(std::vector<float>({0.25f, 0.5f}), weights.weights);
}

TEST_F(TextArchive, ANegativeCountIsAnEmptyList)
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

TEST_F(TextArchive, MissingItemsAreMadeUpToAMillionAndNoFurther)
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

TEST_F(TextArchive, ItemsThatAreThereAreTakenHoweverMany)
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

TEST_F(TextArchive, PathsInTheDataDirectoryAreFoundInEverySpelling)
{
    std::filesystem::create_directory(path);
    platform::SetDataDirectory(path);
    TextArchiveWriter writer("data\\note.txt");
    writer.WriteInt(6);
    writer.Close();
    for (const char* spelling : {"data\\note.txt", "Data\\note.txt", "data/note.txt", "Data/note.txt"}) {
        int number = 0;
        TextArchiveReader archive(spelling);
        archive.ReadInt(&number);
        EXPECT_EQ(6, number) << spelling;
    }
    EXPECT_FALSE(TextArchiveReader("note.txt").IsGood()) << "a bare name lies in the working directory";
}

TEST_F(TextArchive, AWriterThatCannotOpenItsFileIsNotGoodAndHarmless)
{
    TextArchiveWriter archive(path + "/no/such/folder");
    EXPECT_FALSE(archive.IsGood());
    archive.WriteModel(PondModel());
    archive.Close();
}

TEST_F(TextArchive, AWriterEmptiesTheFileThatIsThere)
{
    Put("old and long");
    TextArchiveWriter archive(path);
    archive.WriteInt(1);
    archive.Close();
    EXPECT_EQ("1 ", Get());
}
