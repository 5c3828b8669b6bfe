// SPDX-License-Identifier: MIT
#include "math/Tree.h"

#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorder.h"

#include <GL/glew.h>

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>

class DrawnTree : public testing::Test
{
protected:
    DrawnTree() : tree(0) { gl::Reset(); }

    // A trunk of four cubes.
    void GrowTrunk(int depth, float endRadius)
    {
        tree.Generate(11, Vector3(0, 0, 0), Vector3(0, 4, 0), 1, endRadius, depth);
        ASSERT_EQ(4u, tree.root->segments.size());
    }

    void GrowCreditsTree(int depth)
    {
        tree.Generate(352362122, Vector3(0, 0, 0), Vector3(0, 1, 0), 1.2f, 1.2f, depth);
    }

    void Draw(float growth)
    {
        gl::ClearRecords();
        tree.Draw(growth);
    }

    // A cube is six quads; all of them go out in one draw.
    static int CubesDrawn()
    {
        EXPECT_LE(gl::Draws().size(), 1u);
        size_t vertices = 0;
        for (const gl::Draw& draw : gl::Draws())
            vertices += draw.vertices.size();
        EXPECT_EQ(0u, vertices % 24);
        return int(vertices / 24);
    }

    // The branch segment that a cube stands on: its centre is the segment's translation.
    const Matrix4* SegmentOf(int cube) const
    {
        double centre[3] = {0, 0, 0};
        for (int i = 0; i < 24; i++) {
            const gl::Point& p = gl::Draws()[0].vertices[size_t(24 * cube + i)].object;
            centre[0] += p.x / 24.0;
            centre[1] += p.y / 24.0;
            centre[2] += p.z / 24.0;
        }
        for (int n = 0; n < tree.nodesUsed; n++)
            for (const Matrix4& segment : tree.nodes[size_t(n)].segments)
                if (std::fabs(segment[12] - centre[0]) < 1e-3 && std::fabs(segment[13] - centre[1]) < 1e-3 &&
                    std::fabs(segment[14] - centre[2]) < 1e-3)
                    return &segment;
        return nullptr;
    }

    // The scales of all cubes in their order.
    std::vector<double> Scales() const
    {
        std::vector<double> scales;
        for (int cube = 0; cube < CubesDrawn(); cube++) {
            const Matrix4* const segment = SegmentOf(cube);
            EXPECT_NE(nullptr, segment);
            if (!segment)
                return {};
            // The first edge of the top runs along x.
            const gl::Point& a = gl::Draws()[0].vertices[size_t(24 * cube)].object;
            const gl::Point& b = gl::Draws()[0].vertices[size_t(24 * cube + 1)].object;
            const double edge = std::hypot(double(b.x) - a.x, double(b.y) - a.y, double(b.z) - a.z);
            scales.push_back(edge /
                             std::hypot(double((*segment)[0]), double((*segment)[1]), double((*segment)[2])));
        }
        return scales;
    }

    static testing::AssertionResult Same(const std::vector<double>& expected,
                                         const std::vector<double>& actual)
    {
        bool same = expected.size() == actual.size();
        for (size_t i = 0; same && i < expected.size(); i++)
            same = std::fabs(expected[i] - actual[i]) < 2e-5;
        return same ? testing::AssertionSuccess()
                    : testing::AssertionFailure() << testing::PrintToString(actual) << " instead of "
                                                  << testing::PrintToString(expected);
    }

    Tree tree;
};

// A cube as the matrices would put it: T(0, 0.5, 0) * segment * scale.
struct Cube {
    const Matrix4* segment;
    double scale;
};

// clang-format off
static const struct {
    gl::Point normal;
    gl::Point corners[4];
} cubeFacesByHand[6] = {
    {{ 0,  1,  0}, {{-0.5,  0.5,  0.5}, { 0.5,  0.5,  0.5}, { 0.5,  0.5, -0.5}, {-0.5,  0.5, -0.5}}},
    {{ 0, -1,  0}, {{-0.5, -0.5,  0.5}, { 0.5, -0.5,  0.5}, { 0.5, -0.5, -0.5}, {-0.5, -0.5, -0.5}}},
    {{ 0,  0,  1}, {{ 0.5,  0.5,  0.5}, {-0.5,  0.5,  0.5}, {-0.5, -0.5,  0.5}, { 0.5, -0.5,  0.5}}},
    {{ 0,  0, -1}, {{-0.5,  0.5, -0.5}, { 0.5,  0.5, -0.5}, { 0.5, -0.5, -0.5}, {-0.5, -0.5, -0.5}}},
    {{-1,  0,  0}, {{-0.5,  0.5,  0.5}, {-0.5,  0.5, -0.5}, {-0.5, -0.5, -0.5}, {-0.5, -0.5,  0.5}}},
    {{ 1,  0,  0}, {{ 0.5,  0.5, -0.5}, { 0.5,  0.5,  0.5}, { 0.5, -0.5,  0.5}, { 0.5, -0.5, -0.5}}},
};
// clang-format on

static testing::AssertionResult CubesAre(const std::vector<Cube>& expected)
{
    const std::vector<gl::Draw>& draws = gl::Draws();
    if (expected.empty() && draws.empty())
        return testing::AssertionSuccess();
    if (draws.size() != 1 || draws[0].vertices.size() != 24 * expected.size())
        return testing::AssertionFailure() << draws.size() << " draws for " << expected.size() << " cubes";
    const gl::Point texCoords[4] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    for (size_t c = 0; c < expected.size(); c++) {
        const double s = expected[c].scale;
        const gl::Matrix place = gl::FromColumns(expected[c].segment->m) * gl::Scaling(s, s, s);
        double square = 0; // of the scale of the whole
        for (int i = 0; i < 3; i++)
            square += place.m[i] * place.m[i];
        for (size_t i = 0; i < 24; i++) {
            const gl::Vertex& vertex = draws[0].vertices[24 * c + i];
            const auto& face = cubeFacesByHand[i / 4];
            const gl::Point corner = gl::Translation(0, 0.5, 0) * (place * face.corners[i % 4]);
            // Normals of a scaled rotation: turned with it, and divided by its scale.
            const gl::Point turned = place * gl::Point(face.normal.x, face.normal.y, face.normal.z, 0);
            const gl::Point normal(turned.x / square, turned.y / square, turned.z / square);
            const testing::AssertionResult results[3] = {
                gl::IsPoint(vertex.eye, corner, 1e-5), gl::IsPoint(vertex.texCoord[0], texCoords[i % 4]),
                gl::IsPoint(vertex.normal, normal, 1e-5 / std::sqrt(square))};
            for (const testing::AssertionResult& result : results)
                if (!result)
                    return testing::AssertionFailure()
                           << "cube " << c << ", vertex " << i << ": " << result.message();
        }
    }
    return testing::AssertionSuccess();
}

TEST_F(DrawnTree, BeforeItGrewDrawsNothing)
{
    Draw(1);
    EXPECT_TRUE(gl::CallsAre(gl::Calls(), {"glPushMatrix()", "glTranslatef(0, 0.5, 0)", "glPopMatrix()"}));
}

TEST_F(DrawnTree, AtGrowthZeroDrawsNothing)
{
    GrowTrunk(2, 1);
    for (float growth : {0.0f, -0.0f, -0.5f, -100.0f}) {
        Draw(growth);
        EXPECT_TRUE(
            gl::CallsAre(gl::Calls(), {"glPushMatrix()", "glTranslatef(0, 0.5, 0)", "glPopMatrix()"}));
    }
    GrowCreditsTree(4);
    Draw(0);
    EXPECT_EQ(0, CubesDrawn());
    Draw(0.5f);
    EXPECT_NE(0, CubesDrawn());
    Draw(0);
    EXPECT_EQ(0, CubesDrawn()) << "nor what stood before";
}

TEST_F(DrawnTree, SendsItsCubesInOneDrawOnTopOfHalfAUnit)
{
    GrowTrunk(1, 1);
    Draw(0.5f);
    EXPECT_TRUE(CubesAre({{&tree.root->segments[0], 1}, {&tree.root->segments[1], 0.1}}));
    ASSERT_EQ(1u, gl::Draws().size());
    EXPECT_EQ(GLenum(GL_QUADS), gl::Draws()[0].mode);
    EXPECT_TRUE(gl::IsMatrix(gl::Draws()[0].modelview, gl::Translation(0, 0.5, 0)));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(DrawnTree, DrawsTheSameTwiceAndAnotherTreeAfterGrowingAnew)
{
    GrowCreditsTree(2);
    Draw(1);
    const std::vector<gl::Draw> first = gl::Draws();
    Draw(1);
    ASSERT_EQ(1u, gl::Draws().size());
    ASSERT_EQ(first[0].vertices.size(), gl::Draws()[0].vertices.size());
    EXPECT_TRUE(gl::IsPoint(gl::Draws()[0].vertices[30].object, first[0].vertices[30].object));
    GrowTrunk(1, 1000);
    Draw(1);
    EXPECT_EQ(4, CubesDrawn());
    EXPECT_EQ(&tree.root->segments[0], SegmentOf(0));
}

TEST_F(DrawnTree, TheNewestCubesGrowToTheirFullSizeAndNotBeyond)
{
    GrowTrunk(1, 1000); // so wide that the branch has no cubes
    ASSERT_EQ(4, tree.segmentCount);
    static const struct {
        float growth;
        std::vector<double> scales;
    } rows[] = {
        // s = 4 * growth - (i + 1) + 0.2 * growth
        {0.25f, {0.05}},       {0.4375f, {0.8375}},   {0.46875f, {0.96875}},  {0.5f, {1, 0.1}},
        {0.625f, {1, 0.625}},  {0.75f, {1, 1, 0.15}}, {1.0f, {1, 1, 1, 0.2}}, {1.125f, {1, 1, 1, 0.725}},
        {1.25f, {1, 1, 1, 1}}, {50.0f, {1, 1, 1, 1}},
    };
    for (const auto& row : rows) {
        Draw(row.growth);
        EXPECT_TRUE(Same(row.scales, Scales())) << row.growth;
    }
}

TEST_F(DrawnTree, ScalesAreLimitedToOneExactly)
{
    GrowTrunk(1, 1000);
    Draw(1.99995f / 4.2f);
    ASSERT_EQ(1u, Scales().size());
    EXPECT_NEAR(0.99995, Scales()[0], 1e-5);
    Draw(2.00005f / 4.2f);
    EXPECT_TRUE(Same({1}, Scales()));
}

TEST_F(DrawnTree, TheFirstCubeShowsAtItsShareOfTheTrunk)
{
    GrowTrunk(1, 1000);
    Draw(std::nextafter(0.25f, 0.0f));
    EXPECT_EQ(0, CubesDrawn());
    Draw(0.25f);
    EXPECT_EQ(1, CubesDrawn());
}

TEST_F(DrawnTree, GrowthIsAShareOfTheDepth)
{
    GrowTrunk(2, 1000);
    Draw(0.25f); // level 0.5
    EXPECT_TRUE(Same({1, 0.1}, Scales()));
    GrowTrunk(0, 1000);
    Draw(100);
    EXPECT_EQ(0, CubesDrawn());
    GrowTrunk(-1, 1000);
    Draw(0.5f);
    EXPECT_EQ(0, CubesDrawn());
    Draw(-0.5f); // minus times minus
    EXPECT_TRUE(Same({1, 0.1}, Scales()));
}

TEST_F(DrawnTree, BranchesFollowOnlyWhenTheirParentStandsWhole)
{
    GrowTrunk(1, 0.5f);
    ASSERT_EQ(2, tree.nodesUsed);
    const int branch = int(tree.nodes[1].segments.size());
    ASSERT_GT(branch, 1);
    Draw(std::nextafter(1.0f, 0.0f));
    EXPECT_EQ(3, CubesDrawn());
    Draw(1);
    EXPECT_EQ(4, CubesDrawn()); // the branch is at level 0
    Draw(1 + 1.01f / float(branch));
    EXPECT_EQ(5, CubesDrawn());
    Draw(2);
    EXPECT_EQ(4 + branch, CubesDrawn());
}

TEST_F(DrawnTree, ATrunkWithoutCubesPassesOnToItsChildrenAtOnceOneLevelDown)
{
    GrowCreditsTree(1);
    ASSERT_EQ(0u, tree.nodes[0].segments.size());
    ASSERT_EQ(3u, tree.nodes[1].segments.size());
    Draw(1);
    EXPECT_EQ(0, CubesDrawn());
    Draw(1.5f); // the child at level 0.5: one cube and a half
    EXPECT_TRUE(Same({0.6}, Scales()));
    Draw(1.75f);
    EXPECT_TRUE(Same({1, 0.4}, Scales()));
}

TEST_F(DrawnTree, CubesOfTheCreditsTreeByGrowth)
{
    GrowCreditsTree(4);
    static const struct {
        float growth;
        int cubes;
    } rows[] = {
        // clang-format off
        {0.25f,    0},
        {0.3f,     2},
        {0.5f,    19},
        {0.6f,    55},
        {0.75f,  117},
        {1.0f,   592},
        {1.1f,   948},
        {1.25f, 1506},
        {2.0f,  1506},
        // clang-format on
    };
    for (const auto& row : rows) {
        Draw(row.growth);
        EXPECT_EQ(row.cubes, CubesDrawn()) << row.growth;
        EXPECT_TRUE(gl::NoErrors());
    }
}

// The rules of the drawing read once more.
static void AddBranchByHand(std::vector<Cube>* cubes, const TreeNode* node, float level)
{
    const float n = float(node->segments.size());
    const double revealed = std::trunc(std::fmin(std::fmax(n * level, 0.0f), n));
    for (int i = 0; double(i) < revealed; i++) {
        const double s = double(n * level - float(i + 1)) + 0.2 * double(level);
        cubes->push_back({&node->segments[size_t(i)], std::fmin(s, 1.0)});
    }
    if (revealed == double(n))
        for (const TreeNode* child : node->children)
            AddBranchByHand(cubes, child, level - 1);
}

TEST_F(DrawnTree, DrawsTheSameByASecondReadingOfItsRules)
{
    for (int depth = 0; depth <= 4; depth++) {
        tree.Generate(352362122 + depth, Vector3(0, 0, 0), Vector3(1, 5, -1), 1.2f, 1.2f, depth);
        for (float growth : {0.1f, 0.33f, 0.6f, 0.97f, 1.1f, 1.3f}) {
            Draw(growth);
            std::vector<Cube> expected;
            AddBranchByHand(&expected, tree.root, float(depth) * growth);
            ASSERT_TRUE(CubesAre(expected)) << depth << " " << growth;
        }
    }
}

TEST_F(DrawnTree, LeavesTheMatrixAndItsStackAsTheyWere)
{
    GrowCreditsTree(3);
    glTranslatef(1, 2, 3);
    const gl::Matrix before = gl::Modelview();
    tree.Draw(1.5f);
    EXPECT_TRUE(gl::IsMatrix(gl::Modelview(), before, 0));
    EXPECT_EQ(1, gl::StackDepth(GL_MODELVIEW));
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(DrawnTree, ATreeAsDeepAsThePoolDrawsWithinOneLevelOfTheMatrixStack)
{
    tree.Generate(5, Vector3(0, 0, 0), Vector3(0, 4, 0), 1, 0, INT_MAX);
    ASSERT_EQ(9999, tree.nodesUsed);
    ASSERT_EQ(4, tree.segmentCount);
    Draw(1);
    EXPECT_EQ(4, CubesDrawn());
    EXPECT_TRUE(gl::NoErrors());
}

TEST_F(DrawnTree, StrangeGrowthsDoNoHarm)
{
    GrowCreditsTree(3);
    Draw(NAN);
    EXPECT_EQ(0, CubesDrawn());
    Draw(-INFINITY);
    EXPECT_EQ(0, CubesDrawn());
    Draw(FLT_MAX);
    EXPECT_EQ(234, CubesDrawn());
    for (const double scale : Scales())
        ASSERT_NEAR(1, scale, 1e-5);
    GrowTrunk(1, 1);
    Draw(INFINITY);
    EXPECT_EQ(tree.segmentCount, CubesDrawn());
    EXPECT_TRUE(gl::NoErrors());
}
