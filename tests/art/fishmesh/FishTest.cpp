// SPDX-License-Identifier: MIT
// The fish of the show, as it lies in Data, and the program that models it.
#include "art/fishmesh/Fish.h"

#include "art/fishmesh/Body.h"
#include "art/fishmesh/Mesh.h"
#include "platform/Paths.h"

#include "tests/Folders.h"
#include "tests/support/ReadFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <set>
#include <unistd.h>

struct Bounds {
    Vector3 low, high;
};

static Bounds BoundsOf(const std::vector<Vector3>& points)
{
    Bounds box = {points.at(0), points.at(0)};
    for (const Vector3& p : points) {
        box.low = Vector3(std::min(box.low.x, p.x), std::min(box.low.y, p.y), std::min(box.low.z, p.z));
        box.high = Vector3(std::max(box.high.x, p.x), std::max(box.high.y, p.y), std::max(box.high.z, p.z));
    }
    return box;
}

class FishInData : public testing::Test
{
protected:
    FishInData()
    {
        platform::SetDataDirectory(SOURCE_DIR "/Data");
        LoadModel("data/fish.txt", &fish);
        LoadModel("data/fisheyes.txt", &eyes);
        inShow = BoundsOf(fish.vertices);
        // All figures below are of the fish as it is modelled, two long.
        for (Model* model : {&fish, &eyes})
            for (Vector3& p : model->vertices) {
                p.z -= hold;
                p = p * (1 / 2.2f);
                p.z += hold;
            }
    }

    // The tile of the texture that a face lies in; fails if its corners are not in one.
    static int TileOf(const Model& model, const ModelFace& face)
    {
        std::set<int> tiles;
        for (int index : face.texCoordIndices)
            tiles.insert(int(std::floor(model.texCoords.at(index).u)));
        EXPECT_EQ(1u, tiles.size());
        return *tiles.begin();
    }

    static constexpr float hold = 0.75f;
    Bounds inShow;
    Model fish;
    Model eyes;
};

TEST_F(FishInData, IsLargeEnoughToFillHalfThePictureAndKeepsItsTailOnTheRope)
{
    EXPECT_NEAR(-3.1f, inShow.low.z, 0.1f);
    EXPECT_NEAR(1.3f, inShow.high.z, 0.001f);
    // The first link of the rope hangs 4 behind the fish, which is drawn 6 times as large.
    EXPECT_GT(4.0f / 6, inShow.high.z - 1.0f);
    EXPECT_GT(inShow.high.z, 4.0f / 6);
}

TEST_F(FishInData, IsMadeByTheProgramByteForByte)
{
    const std::string folder = testing::TempDir() + "FishTest" + std::to_string(getpid());
    ASSERT_EQ(
        0, system(("mkdir -p '" + folder + "' && '" BINARY_DIR "/art/fishmesh/fishmesh' -o '" + folder + "'")
                      .c_str()));
    for (const char* name : {"/fish.txt", "/fisheyes.txt"}) {
        const std::string committed = ReadFile(std::string(SOURCE_DIR "/Data") + name);
        EXPECT_FALSE(committed.empty());
        EXPECT_TRUE(committed == ReadFile(folder + name)) << name << ": run fishmesh again";
    }
    std::filesystem::remove_all(folder);
}

TEST_F(FishInData, HasItsNamesAndEnoughFacesAndNotTooMany)
{
    EXPECT_EQ("fish", fish.name);
    EXPECT_EQ("fisheyes", eyes.name);
    EXPECT_GE(fish.faces.size(), 1500u);
    EXPECT_LE(fish.faces.size() + eyes.faces.size(), 4000u);
    EXPECT_GE(eyes.faces.size(), 200u);
}

TEST_F(FishInData, HasTrianglesAndQuadsWhoseIndicesAreEqualInNumberAndInRange)
{
    for (const Model* model : {&fish, &eyes}) {
        int triangles = 0;
        int quads = 0;
        for (const ModelFace& face : model->faces) {
            ASSERT_TRUE(face.type == FaceTriangles || face.type == FaceQuads);
            ++(face.type == FaceQuads ? quads : triangles);
            const size_t corners = face.type == FaceQuads ? 4 : 3;
            ASSERT_EQ(corners, face.vertexIndices.size());
            ASSERT_EQ(corners, face.normalIndices.size());
            ASSERT_EQ(corners, face.texCoordIndices.size());
            for (size_t i = 0; i < corners; i++) {
                ASSERT_LT(size_t(face.vertexIndices[i]), model->vertices.size());
                ASSERT_LT(size_t(face.normalIndices[i]), model->normals.size());
                ASSERT_LT(size_t(face.texCoordIndices[i]), model->texCoords.size());
            }
        }
        EXPECT_GT(triangles, 0);
        EXPECT_GT(quads, 3 * triangles);
    }
}

TEST_F(FishInData, HasNormalsOfLengthOneThatPointOutOfTheirFaces)
{
    for (const Model* model : {&fish, &eyes}) {
        for (const Vector3& normal : model->normals)
            EXPECT_NEAR(1.0f, normal.Length(), 0.0003f); // four decimals in the file
        for (const ModelFace& face : model->faces) {
            const size_t count = face.vertexIndices.size();
            Vector3 corner[4];
            for (size_t i = 0; i < count; i++)
                corner[i] = model->vertices[face.vertexIndices[i]];
            const Vector3 across = corner[2] - corner[0];
            const Vector3 other = count == 4 ? corner[3] - corner[1] : corner[1] - corner[0];
            const float sign = count == 4 ? 1.0f : -1.0f;
            const Vector3 outward = fishmesh::Cross(across, other) * sign;
            Vector3 sum;
            for (int index : face.normalIndices)
                sum = sum + model->normals[index];
            EXPECT_GE(fishmesh::Dot(outward, sum), -1e-6f); // slivers at the tips of the fins
        }
    }
}

TEST_F(FishInData, IsSmoothFromFaceToFace)
{
    // Most corners share their point's one normal; only lids, teeth and the two sides of a fin keep apart.
    std::map<int, std::set<int>> normalsOfPoint;
    for (const ModelFace& face : fish.faces)
        for (size_t i = 0; i < face.vertexIndices.size(); i++)
            normalsOfPoint[face.vertexIndices[i]].insert(face.normalIndices[i]);
    size_t shared = 0;
    for (const auto& [point, normals] : normalsOfPoint) {
        EXPECT_LE(normals.size(), 2u);
        shared += normals.size() == 1 ? 1 : 0;
    }
    EXPECT_EQ(fish.vertices.size(), normalsOfPoint.size()) << "every point is used";
    EXPECT_GT(shared, 9 * normalsOfPoint.size() / 10);
}

TEST_F(FishInData, IsAboutTwoLongLeanAndTheSameOnBothSides)
{
    const Bounds box = BoundsOf(fish.vertices);
    EXPECT_NEAR(2.0f, box.high.z - box.low.z, 0.1f);
    EXPECT_NEAR(-1.0f, box.low.z, 0.06f);
    EXPECT_NEAR(1.0f, box.high.z, 0.06f);
    EXPECT_LT(box.high.y - box.low.y, 0.75f);
    EXPECT_NEAR(box.low.x, -box.high.x, 0.001f);
    EXPECT_LT(box.high.x, 0.45f);

    // Without its fins it is much leaner.
    std::vector<Vector3> body;
    for (const ModelFace& face : fish.faces)
        if (TileOf(fish, face) == fishmesh::Skin)
            for (int index : face.vertexIndices)
                if (fish.vertices[index].z > -0.3f)
                    body.push_back(fish.vertices[index]);
    const Bounds trunk = BoundsOf(body);
    EXPECT_LT(trunk.high.y - trunk.low.y, 0.36f);
    EXPECT_LT(trunk.high.x, 0.12f);
}

TEST_F(FishInData, LooksTowardsMinusZ)
{
    float teeth = 0.0f;
    float tail = 0.0f;
    int toothCorners = 0;
    for (const ModelFace& face : fish.faces)
        for (int index : face.vertexIndices) {
            const Vector3& p = fish.vertices[index];
            if (TileOf(fish, face) == fishmesh::Bone) {
                teeth += p.z;
                toothCorners++;
            } else if (TileOf(fish, face) == fishmesh::Membrane)
                tail = std::max(tail, p.z);
        }
    ASSERT_GT(toothCorners, 0);
    EXPECT_LT(teeth / float(toothCorners), -0.75f);
    EXPECT_NEAR(1.0f, tail, 1e-4f);
    const Bounds look = BoundsOf(eyes.vertices);
    EXPECT_LT(look.high.z, -0.6f);
}

TEST_F(FishInData, HasAllItsMaterialsEachInATileOfItsOwn)
{
    std::map<int, int> faces;
    for (const ModelFace& face : fish.faces)
        ++faces[TileOf(fish, face)];
    EXPECT_EQ(6u, faces.size());
    EXPECT_GT(faces[fishmesh::Skin], 1500);
    EXPECT_GT(faces[fishmesh::Flesh], 100);
    EXPECT_GT(faces[fishmesh::Bone], 200);
    EXPECT_GT(faces[fishmesh::Membrane], 400);
    EXPECT_GT(faces[fishmesh::Fire], 100);
    EXPECT_EQ(1, faces[fishmesh::Night]);
    for (const ModelFace& face : eyes.faces)
        EXPECT_EQ(fishmesh::Eyeball, TileOf(eyes, face));
    for (const Model* model : {&fish, &eyes})
        for (const Vec2& texCoord : model->texCoords) {
            EXPECT_GT(texCoord.v, 0.0f);
            EXPECT_LT(texCoord.v, 1.0f);
            const float inTile = texCoord.u - std::floor(texCoord.u);
            EXPECT_GT(inTile, 0.005f) << "rounding must not carry it over the border of its tile";
            EXPECT_LT(inTile, 0.995f);
        }
}

TEST_F(FishInData, HasASkinUnwrappedSideOn)
{
    for (const ModelFace& face : fish.faces) {
        if (TileOf(fish, face) != fishmesh::Skin)
            continue;
        for (size_t i = 0; i < face.vertexIndices.size(); i++) {
            const Vector3& p = fish.vertices[face.vertexIndices[i]];
            const Vec2& texCoord = fish.texCoords[face.texCoordIndices[i]];
            EXPECT_NEAR(0.02f + 0.96f * (p.z + 1.0f) / 1.72f, texCoord.u, 0.001f);
            if (p.z > -0.4f && p.z < 0.6f && std::fabs(texCoord.v - 0.5f) > 0.02f) {
                EXPECT_EQ(texCoord.v > 0.5f,
                          p.y > 0.5f * (fishmesh::BackHeight(p.z) + fishmesh::BellyHeight(p.z)))
                    << p.y << " at " << p.z;
            }
        }
    }
}

TEST_F(FishInData, HasTwoEyesThatSitInTheHead)
{
    for (float side : {1.0f, -1.0f}) {
        std::vector<Vector3> ball;
        for (const Vector3& p : eyes.vertices)
            if (p.x * side > 0.0f)
                ball.push_back(p);
        ASSERT_EQ(eyes.vertices.size() / 2, ball.size());
        const Bounds box = BoundsOf(ball);
        const Vector3 centre = (box.low + box.high) * 0.5f;
        const float radius = 0.5f * (box.high.y - box.low.y);
        EXPECT_NEAR(0.066f, radius, 0.002f);
        for (const Vector3& p : ball)
            EXPECT_NEAR(radius, (p - centre).Length(), 0.003f);

        // The middle lies inside the head, the outermost point outside.
        const float width = fishmesh::HalfWidth(centre.z);
        EXPECT_LT(std::fabs(centre.x), width);
        EXPECT_LT(centre.y, fishmesh::BackHeight(centre.z));
        EXPECT_GT(centre.y, fishmesh::BellyHeight(centre.z));
        EXPECT_GT(std::max(std::fabs(box.low.x), std::fabs(box.high.x)), width);
    }
}

TEST_F(FishInData, HasEyesWhosePupilLooksOutwardsAndAhead)
{
    int pupils = 0;
    for (const ModelFace& face : eyes.faces)
        for (size_t i = 0; i < face.vertexIndices.size(); i++) {
            const Vec2& texCoord = eyes.texCoords[face.texCoordIndices[i]];
            if (texCoord.u != 4.5f || texCoord.v != 0.5f)
                continue;
            pupils++;
            const Vector3& p = eyes.vertices[face.vertexIndices[i]];
            const Vector3& n = eyes.normals[face.normalIndices[i]];
            EXPECT_GT(n.x * p.x, 0.0f);
            EXPECT_GT(std::fabs(n.x), 0.7f);
            EXPECT_LT(n.z, -0.3f);
        }
    EXPECT_GT(pupils, 20) << "the triangles round both of them";
}

TEST_F(FishInData, HasAMouthThatHangsOpenWithTeethInBothJaws)
{
    float upperLip = -1.0f;
    float lowerLip = 1.0f;
    int above = 0;
    int below = 0;
    for (const ModelFace& face : fish.faces)
        for (int index : face.vertexIndices) {
            const Vector3& p = fish.vertices[index];
            const int tile = TileOf(fish, face);
            if (tile == fishmesh::Flesh && p.z < -0.92f) {
                upperLip = std::max(upperLip, p.y);
                lowerLip = std::min(lowerLip, p.y);
            }
            if (tile == fishmesh::Bone)
                ++(p.y > -0.08f ? above : below);
        }
    EXPECT_GT(upperLip - lowerLip, 0.15f);
    EXPECT_GT(above, 100);
    EXPECT_GT(below, 100);
}

TEST_F(FishInData, IsTheSameOnEveryRun)
{
    const std::string first = testing::TempDir() + "fish-first.txt" + std::to_string(getpid());
    const std::string second = testing::TempDir() + "fish-second.txt" + std::to_string(getpid());
    ASSERT_TRUE(fishmesh::WriteModelFile(fishmesh::MakeFish(), first.c_str()));
    ASSERT_TRUE(fishmesh::WriteModelFile(fishmesh::MakeFish(), second.c_str()));
    EXPECT_TRUE(ReadFile(first) == ReadFile(second));
    EXPECT_FALSE(fishmesh::WriteModelFile(fishmesh::MakeFish(), "no/such/folder/fish.txt"));
    std::filesystem::remove(first);
    std::filesystem::remove(second);
}
