// SPDX-License-Identifier: MIT
// The mesh of a file that changes between two entries, or that is damaged: what was loaded first and what was loaded
// then are drawn as they stand, each once.
#include "effects/FX_RopeThing.h"

#include "tests/support/recorder/EffectFixture.h"

#include <algorithm>

class FX_RopeThingOfTwoFiles : public EffectFixture
{
protected:
    // A corner each at x = 0, 1 and 2, two normals, two texture coordinates, then these faces.
    static std::string Mesh(std::string faces)
    {
        return "body 3 0 0 0 1 0 0 2 0 0 2 0 0 1 0 1 0 2 0.25 0.25 0.5 0.5 " + faces;
    }
    // What is drawn of the fish's body, when its second entry finds another file than the first one.
    std::vector<gl::Draw> BodyOf(std::string first, std::string second)
    {
        FX_RopeThing fish;
        AddFile("fish.txt", first);
        Prepare(&fish);
        AddFile("fish.txt", second);
        fish.Init(nullptr, nullptr);
        Send(&fish, "intro");
        Frame(&fish);
        return gl::DrawsWithTexture("fischhaut.jpg");
    }
};

static const char* const oneTriangle = "1 0 3 0 1 2 3 0 0 0 3 0 0 0";

TEST_F(FX_RopeThingOfTwoFiles, AMeshThatComesOnlyThenIsDrawnOnce)
{
    EXPECT_EQ(1u, BodyOf("body 0 0 0 0", Mesh(oneTriangle)).size());
}

TEST_F(FX_RopeThingOfTwoFiles, AMeshThatHasGoneThenIsDrawnOnce)
{
    EXPECT_EQ(1u, BodyOf(Mesh(oneTriangle), "body 0 0 0 0").size());
}

TEST_F(FX_RopeThingOfTwoFiles, TwoFacesAndThenOneAreThree)
{
    const std::string twice = "2 0 3 0 1 2 3 0 0 0 3 0 0 0 0 3 0 1 2 3 0 0 0 3 0 0 0";
    EXPECT_EQ(3u, BodyOf(Mesh(twice), Mesh(oneTriangle)).size());
}

TEST_F(FX_RopeThingOfTwoFiles, AFaceOfAnotherKindKeepsItsKind)
{
    const auto body = BodyOf(Mesh("1 0 3 0 1 2 3 0 0 0 3 0 0 0"), Mesh("1 3 3 0 1 2 3 0 0 0 3 0 0 0"));
    ASSERT_EQ(2u, body.size());
    EXPECT_EQ(GLenum(GL_TRIANGLES), body[0].mode);
    EXPECT_EQ(GLenum(GL_QUADS), body[1].mode);
}

TEST_F(FX_RopeThingOfTwoFiles, AFaceWithOtherCornersKeepsThem)
{
    const auto body = BodyOf(Mesh(oneTriangle), Mesh("1 0 3 2 1 0 3 0 0 0 3 0 0 0"));
    ASSERT_EQ(2u, body.size());
    EXPECT_TRUE(gl::HasVertices(body[0], {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}}));
    EXPECT_TRUE(gl::HasVertices(body[1], {{2, 0, 0}, {1, 0, 0}, {0, 0, 0}}));
}

TEST_F(FX_RopeThingOfTwoFiles, AFaceWithOtherNormalsKeepsThem)
{
    const auto body = BodyOf(Mesh(oneTriangle), Mesh("1 0 3 0 1 2 3 1 1 1 3 0 0 0"));
    ASSERT_EQ(2u, body.size());
    EXPECT_TRUE(gl::HasNormal(body[0], {0, 0, 1}));
    EXPECT_TRUE(gl::HasNormal(body[1], {0, 1, 0}));
}

TEST_F(FX_RopeThingOfTwoFiles, AFaceWithOtherTextureCoordinatesKeepsThem)
{
    const auto body = BodyOf(Mesh(oneTriangle), Mesh("1 0 3 0 1 2 3 0 0 0 3 1 1 1"));
    ASSERT_EQ(2u, body.size());
    EXPECT_TRUE(gl::HasTexCoords(body[0], {{0.25, 0.75}, {0.25, 0.75}, {0.25, 0.75}}));
    EXPECT_TRUE(gl::HasTexCoords(body[1], {{0.5, 0.5}, {0.5, 0.5}, {0.5, 0.5}}));
}

// Damage that the file keeps: the same file twice.
TEST_F(FX_RopeThingOfTwoFiles, NormalsThatAreThereOnlyThenMakeTheFacesAppear)
{
    const std::string faces = "1 0 3 0 1 2 3 0 0 2 3 0 0 0";
    EXPECT_EQ(2u, BodyOf(Mesh(faces), Mesh(faces)).size());
}

TEST_F(FX_RopeThingOfTwoFiles, TextureCoordinatesThatAreThereOnlyThenMakeTheFacesAppear)
{
    const std::string faces = "1 0 3 0 1 2 3 0 0 0 3 0 0 2";
    EXPECT_EQ(2u, BodyOf(Mesh(faces), Mesh(faces)).size());
}

// Without a face of its own, the second file brings the corner that the only face lacked.
TEST_F(FX_RopeThingOfTwoFiles, ACornerThatIsThereOnlyThenMakesTheFaceAppear)
{
    EXPECT_EQ(1u, BodyOf(Mesh("1 0 3 0 1 3 3 0 0 0 3 0 0 0"), Mesh("0")).size());
}

TEST_F(FX_RopeThingOfTwoFiles, AFaceOfNoKindEndsTheDrawingForAllThatFollows)
{
    const std::string faces = "2 0 3 0 1 2 3 0 0 0 3 0 0 0 7 3 0 1 2 3 0 0 0 3 0 0 0";
    EXPECT_EQ(1u, BodyOf(Mesh(faces), Mesh(faces)).size());
}

TEST_F(FX_RopeThingOfTwoFiles, AMeshOfDifferentFacesIsStoredOnceToo)
{
    const std::string faces = "2 0 3 0 1 2 3 0 0 0 3 0 0 0 3 4 0 1 2 0 4 1 1 1 1 4 1 1 1 1";
    EXPECT_EQ(4u, BodyOf(Mesh(faces), Mesh(faces)).size());
    size_t holders = 0, callers = 0;
    for (GLuint list = 1; gl::IsDisplayList(list); list++) {
        const std::vector<std::string> calls = gl::ListCalls(list);
        holders += std::count(calls.begin(), calls.end(), "glBegin(GL_QUADS)");
        for (const std::string& call : calls)
            callers += call.rfind("glCallList", 0) == 0;
    }
    EXPECT_EQ(1u, holders) << "the quad lies in one list";
    EXPECT_EQ(2u + 2u, callers) << "body and eyes of the second entry";
}
