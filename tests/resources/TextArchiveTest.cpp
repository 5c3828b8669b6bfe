// SPDX-License-Identifier: MIT
// What is the same for reading and writing, and records that go through both.
#include "tests/resources/TextArchiveFixture.h"

#include "platform/Paths.h"

#include <locale>
#include <sstream>

class TextArchive : public TextArchiveFixture
{
};

// Decimal comma, dots between thousands: what must not reach a file.
class CommaPunctuation : public std::numpunct<char>
{
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

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
