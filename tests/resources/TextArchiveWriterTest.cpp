// SPDX-License-Identifier: MIT
// The text that each value and record becomes.
#include "tests/resources/TextArchiveFixture.h"

class TextArchiveWriting : public TextArchiveFixture
{
};

TEST_F(TextArchiveWriting, WritesEachValueWithOneBlankBehindIt)
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

TEST_F(TextArchiveWriting, AWriterOnAFullDiskIsGoodUntilItsWritesFail)
{
    TextArchiveWriter archive("/dev/full");
    EXPECT_TRUE(archive.IsGood());
    for (int i = 0; i < 100000; i++) // more than a stream keeps back
        archive.WriteInt(i);
    EXPECT_FALSE(archive.IsGood());
}

TEST_F(TextArchiveWriting, AnEmptyStringWritesNothingButItsBlank)
{
    TextArchiveWriter archive(path);
    archive.WriteString("");
    archive.WriteInt(7);
    archive.Close();
    EXPECT_EQ(" 7 ", Get());
}

TEST_F(TextArchiveWriting, WritesMatricesAndTransformsAs16FloatsInMemoryOrder)
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

TEST_F(TextArchiveWriting, WritesAMaterialAsNameColoursShininessTextures)
{
    TextArchiveWriter archive(path);
    archive.WriteMaterial(BarkMaterial());
    archive.Close();
    EXPECT_EQ(barkText, Get());
}

TEST_F(TextArchiveWriting, WritesALightAsStringIntColourFloatFloatInt)
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

TEST_F(TextArchiveWriting, WritesWeightsAsTwoCountedLists)
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

TEST_F(TextArchiveWriting, WritesAModelInTheOrderOfItsFile)
{
    TextArchiveWriter archive(path);
    archive.WriteModel(PondModel());
    archive.Close();
    EXPECT_EQ("pond 4 1 2 3 4 5 6 7 8 9 -1 -2.5 0 2 0 0 1 0 1 0 1 0.25 0.5 "
              "2 3 4 0 1 2 3 4 0 1 0 1 4 0 0 0 0 0 3 2 1 0 3 1 1 1 3 0 0 0 ",
              Get());
}

TEST_F(TextArchiveWriting, AWriterThatCannotOpenItsFileIsNotGoodAndHarmless)
{
    TextArchiveWriter archive(path + "/no/such/folder");
    EXPECT_FALSE(archive.IsGood());
    archive.WriteModel(PondModel());
    archive.Close();
}

TEST_F(TextArchiveWriting, AWriterEmptiesTheFileThatIsThere)
{
    Put("old and long");
    TextArchiveWriter archive(path);
    archive.WriteInt(1);
    archive.Close();
    EXPECT_EQ("1 ", Get());
}
