// SPDX-License-Identifier: MIT
#include "resources/Model.h"

#include "platform/Events.h"
#include "platform/Paths.h"
#include "platform/dialogs/MessageBox.h"
#include "platform/dialogs/MessageBoxHooks.h"
#include "resources/TextArchive.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

// Two vertices, one normal, two texture coordinates, a triangle and a quad.
static const std::vector<std::string> pondTokens = {
    // clang-format off
    "pond",
    "2",  "1.5", "-2", "3",   "4", "5", "6",
    "1",  "0", "0.5", "1",
    "2",  "0.25", "0.75",   "1", "2",
    "2",
    "0",  "3", "0", "1", "1",        "3", "7", "8", "9",          "3", "1", "0", "1",
    "3",  "4", "1", "0", "1", "0",   "4", "11", "12", "13", "14", "4", "0", "1", "0", "1",
    // clang-format on
};

static std::string Join(const std::vector<std::string>& tokens, size_t count, const std::string& gap)
{
    std::string text;
    for (size_t i = 0; i < count; ++i)
        text += (i > 0 ? gap : "") + tokens[i];
    return text;
}

class ModelFile : public testing::Test
{
protected:
    ModelFile() : path(testing::TempDir() + "ModelTest-" + std::to_string(getpid()))
    {
        platform::CollectMessageBoxes(&boxes);
    }
    ~ModelFile() override
    {
        platform::CollectMessageBoxes(nullptr);
        std::filesystem::remove_all(path);
    }

    void Put(const std::string& text) { std::ofstream(path, std::ios::binary) << text; }

    Model Load(const std::string& text)
    {
        Put(text);
        Model model;
        LoadModel(path, &model);
        return model;
    }

    const std::string path;
    std::vector<platform::MessageBox> boxes;
};

static std::vector<float> Floats(const std::vector<Vector3>& list)
{
    std::vector<float> floats;
    for (const Vector3& v : list)
        floats.insert(floats.end(), {v.x, v.y, v.z});
    return floats;
}

static std::vector<float> Floats(const std::vector<Vec2>& list)
{
    std::vector<float> floats;
    for (const Vec2& v : list)
        floats.insert(floats.end(), {v.u, v.v});
    return floats;
}

static void ExpectPond(const Model& model)
{
    EXPECT_EQ("pond", model.name);
    EXPECT_EQ(std::vector<float>({1.5f, -2, 3, 4, 5, 6}), Floats(model.vertices));
    EXPECT_EQ(std::vector<float>({0, 0.5f, 1}), Floats(model.normals));
    EXPECT_EQ(std::vector<float>({0.25f, 0.75f, 1, 2}), Floats(model.texCoords));
    ASSERT_EQ(2u, model.faces.size());
    EXPECT_EQ(0, model.faces[0].type);
    EXPECT_EQ(std::vector<int>({0, 1, 1}), model.faces[0].vertexIndices);
    EXPECT_EQ(std::vector<int>({7, 8, 9}), model.faces[0].normalIndices);
    EXPECT_EQ(std::vector<int>({1, 0, 1}), model.faces[0].texCoordIndices);
    EXPECT_EQ(3, model.faces[1].type);
    EXPECT_EQ(std::vector<int>({1, 0, 1, 0}), model.faces[1].vertexIndices);
    EXPECT_EQ(std::vector<int>({11, 12, 13, 14}), model.faces[1].normalIndices);
    EXPECT_EQ(std::vector<int>({0, 1, 0, 1}), model.faces[1].texCoordIndices);
}

TEST_F(ModelFile, IsReadInTheOrderOfItsLists)
{
    ExpectPond(Load(Join(pondTokens, pondTokens.size(), " ")));
}

TEST_F(ModelFile, MayHoldAnyWhiteSpaceBetweenItsTokens)
{
    for (const char* gap : {"\n", "\r\n", "\t", "   ", " \n\n\t\r\n "}) {
        ExpectPond(Load(Join(pondTokens, pondTokens.size(), gap)));
        ExpectPond(Load(gap + Join(pondTokens, pondTokens.size(), gap) + gap));
    }
}

TEST_F(ModelFile, MayHaveEveryListEmpty)
{
    const Model model = Load("nothing 0 0 0 0");
    EXPECT_EQ("nothing", model.name);
    EXPECT_TRUE(model.vertices.empty());
    EXPECT_TRUE(model.normals.empty());
    EXPECT_TRUE(model.texCoords.empty());
    EXPECT_TRUE(model.faces.empty());

    const Model bare = Load("bare 0 0 0 1 3 0 0 0");
    ASSERT_EQ(1u, bare.faces.size());
    EXPECT_EQ(3, bare.faces[0].type);
    EXPECT_TRUE(bare.faces[0].vertexIndices.empty());
}

TEST_F(ModelFile, KeepsTypesAndIndicesThatMakeNoSense)
{
    const Model model = Load("odd 0 0 0 1 1 2 -5 99999 1 3 3 4 5 6");
    ASSERT_EQ(1u, model.faces.size());
    EXPECT_EQ(1, model.faces[0].type);
    EXPECT_EQ(std::vector<int>({-5, 99999}), model.faces[0].vertexIndices);
    EXPECT_EQ(std::vector<int>({3}), model.faces[0].normalIndices);
    EXPECT_EQ(std::vector<int>({4, 5, 6}), model.faces[0].texCoordIndices);
}

TEST_F(ModelFile, IsAppendedToTheListsOfTheModel)
{
    Put(Join(pondTokens, pondTokens.size(), " "));
    Model model;
    LoadModel(path, &model);
    LoadModel(path, &model);
    EXPECT_EQ(4u, model.vertices.size());
    EXPECT_EQ(2u, model.normals.size());
    EXPECT_EQ(4u, model.texCoords.size());
    EXPECT_EQ(4u, model.faces.size());
}

TEST_F(ModelFile, ThatIsMissingLeavesTheModelAloneAndReportsNothing)
{
    Model model;
    model.name = "before";
    LoadModel(path, &model);
    EXPECT_EQ("before", model.name);
    EXPECT_TRUE(model.vertices.empty());
    EXPECT_TRUE(model.faces.empty());
    EXPECT_TRUE(boxes.empty());
    EXPECT_EQ(platform::EventNone, platform::TakeEvent().kind);
}

TEST_F(ModelFile, ThatIsADirectoryOrEmptyLeavesTheModelAlone)
{
    Model model;
    model.name = "before";
    Put("");
    LoadModel(path, &model);
    Put(" \n\n ");
    LoadModel(path, &model);
    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
    LoadModel(path, &model);
    EXPECT_EQ("before", model.name);
    EXPECT_TRUE(model.vertices.empty());
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ModelFile, IsFoundInTheDataDirectoryInEverySpelling)
{
    std::filesystem::create_directory(path);
    std::ofstream(path + "/fish.txt") << Join(pondTokens, pondTokens.size(), " ");
    platform::SetDataDirectory(path);
    for (const char* spelling : {"data/fish.txt", "Data/fish.txt", "data\\fish.txt", "Data\\fish.txt"}) {
        Model model;
        LoadModel(spelling, &model);
        ExpectPond(model);
    }
}

// Walks the tokens of a file that was cut, the way a viewer of the format would by hand: a number is there
// or it is not, and what is not there is a zero.
class CutFile
{
public:
    explicit CutFile(size_t tokenCount) : left(tokenCount) {}

    float Number(size_t token) const { return token < left ? std::stof(pondTokens[token]) : 0.0f; }
    int Count(size_t token) const { return static_cast<int>(Number(token)); }
    std::vector<float> Numbers(size_t token, int count) const
    {
        std::vector<float> numbers;
        for (int i = 0; i < count; ++i)
            numbers.push_back(Number(token + i));
        return numbers;
    }
    std::vector<int> List(size_t token) const
    {
        std::vector<int> list;
        for (int i = 0; i < Count(token); ++i)
            list.push_back(Count(token + 1 + i));
        return list;
    }

private:
    const size_t left;
};

TEST_F(ModelFile, ThatIsCutAtAnyTokenGivesZerosForTheRestOfTheListUnderWay)
{
    for (size_t left = 0; left <= pondTokens.size(); ++left) {
        SCOPED_TRACE(testing::Message() << left << " tokens left");
        const CutFile cut(left);
        const Model model = Load(Join(pondTokens, left, " "));
        EXPECT_EQ(left > 0 ? "pond" : "", model.name);
        EXPECT_EQ(cut.Numbers(2, 3 * cut.Count(1)), Floats(model.vertices));
        EXPECT_EQ(cut.Numbers(9, 3 * cut.Count(8)), Floats(model.normals));
        EXPECT_EQ(cut.Numbers(13, 2 * cut.Count(12)), Floats(model.texCoords));
        ASSERT_EQ(static_cast<size_t>(cut.Count(17)), model.faces.size());
        if (model.faces.empty())
            continue;
        EXPECT_EQ(cut.Count(18), model.faces[0].type);
        EXPECT_EQ(cut.List(19), model.faces[0].vertexIndices);
        EXPECT_EQ(cut.List(23), model.faces[0].normalIndices);
        EXPECT_EQ(cut.List(27), model.faces[0].texCoordIndices);
        EXPECT_EQ(cut.Count(31), model.faces[1].type);
        EXPECT_EQ(cut.List(32), model.faces[1].vertexIndices);
        EXPECT_EQ(cut.List(37), model.faces[1].normalIndices);
        EXPECT_EQ(cut.List(42), model.faces[1].texCoordIndices);
    }
}

TEST_F(ModelFile, ThatIsCutAmongTheVerticesHasZeroVerticesAndEmptyLaterLists)
{
    const Model model = Load("cut 4 1 2 3 4 5");
    EXPECT_EQ(std::vector<float>({1, 2, 3, 4, 5, 0, 0, 0, 0, 0, 0, 0}), Floats(model.vertices));
    EXPECT_TRUE(model.normals.empty());
    EXPECT_TRUE(model.texCoords.empty());
    EXPECT_TRUE(model.faces.empty());
}

TEST_F(ModelFile, ThatIsCutAmongTheFacesHasEmptyFacesOfTypeZero)
{
    const Model model = Load("cut 0 0 0 4 3 2 8 9 2 7");
    ASSERT_EQ(4u, model.faces.size());
    EXPECT_EQ(3, model.faces[0].type);
    EXPECT_EQ(std::vector<int>({8, 9}), model.faces[0].vertexIndices);
    EXPECT_EQ(std::vector<int>({7, 0}), model.faces[0].normalIndices);
    EXPECT_TRUE(model.faces[0].texCoordIndices.empty());
    for (int i = 1; i < 4; ++i) {
        EXPECT_EQ(0, model.faces[i].type);
        EXPECT_TRUE(model.faces[i].vertexIndices.empty());
        EXPECT_TRUE(model.faces[i].normalIndices.empty());
        EXPECT_TRUE(model.faces[i].texCoordIndices.empty());
    }
}

TEST_F(ModelFile, ThatHoldsAWordForANumberEndsThereAsIfItWereCut)
{
    const Model model = Load("word 2 1 2 three 4 5 6 1 0 0 1");
    EXPECT_EQ(std::vector<float>({1, 2, 0, 0, 0, 0}), Floats(model.vertices));
    EXPECT_TRUE(model.normals.empty());
}

TEST_F(ModelFile, ThatIsCutAtAnyByteIsHarmless)
{
    const std::string text = Join(pondTokens, pondTokens.size(), "\n");
    for (size_t bytes = 0; bytes <= text.size(); ++bytes) {
        const Model model = Load(text.substr(0, bytes));
        EXPECT_LE(model.vertices.size(), 2u);
        EXPECT_LE(model.faces.size(), 2u);
    }
}

TEST_F(ModelFile, CannotExhaustTheMemoryByACountThatItDoesNotHold)
{
    const size_t most = TextArchiveReader::MaxMissingItems;
    EXPECT_EQ(most, Load("greedy 2147483647 1 2 3").vertices.size());
    EXPECT_EQ(most, Load("greedy 0 2000000000").normals.size());
    EXPECT_EQ(most, Load("greedy 0 0 2000000000").texCoords.size());
    EXPECT_EQ(most, Load("greedy 0 0 0 2000000000").faces.size());
    const Model model = Load("greedy 0 0 0 2000000000 3 2000000000 5");
    EXPECT_EQ(most, model.faces.size());
    EXPECT_EQ(most, model.faces[0].vertexIndices.size());
    EXPECT_TRUE(model.faces[0].normalIndices.empty());
    EXPECT_TRUE(model.faces[1].vertexIndices.empty());
    EXPECT_TRUE(Load("greedy 99999999999 1 2 3").vertices.empty());
    EXPECT_TRUE(Load("greedy -1").vertices.empty());
}

TEST_F(ModelFile, KeepsACountOfAHundredThousandThoughItWasCut)
{
    const Model model = Load("honest 100000 1 2 3");
    ASSERT_EQ(100000u, model.vertices.size());
    EXPECT_EQ(3.0f, model.vertices[0].z);
    EXPECT_EQ(0.0f, model.vertices[99999].x);
}
