// SPDX-License-Identifier: MIT
#include "math/Tree.h"

#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorder.h"
#include "tests/support/recorder/GLText.h"

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

    static int CubesDrawn() { return gl::CountCalls("glMultMatrixf"); }

    // The scales of all cubes in their order: "0.1", "1".
    static std::vector<std::string> Scales()
    {
        std::vector<std::string> scales;
        for (const gl::Event& event : gl::Events())
            if (std::string(event.name) == "glScalef") {
                EXPECT_EQ(event.arguments[0].number, event.arguments[1].number);
                EXPECT_EQ(event.arguments[0].number, event.arguments[2].number);
                scales.push_back(gl::FloatText(float(event.arguments[0].number)));
            }
        return scales;
    }

    Tree tree;
};

typedef std::vector<std::string> Texts;

static std::string MultMatrixText(const Matrix4& m)
{
    std::string text = "glMultMatrixf({";
    for (int i = 0; i < 16; i++)
        text += (i > 0 ? ", " : "") + gl::FloatText(m[i]);
    return text + "})";
}

static void AddCube(Texts* calls, const Matrix4& matrix, std::string scale)
{
    calls->push_back("glPushMatrix()");
    calls->push_back(MultMatrixText(matrix));
    calls->push_back("glScalef(" + scale + ", " + scale + ", " + scale + ")");
    for (int face = 0; face < 6; face++) {
        calls->push_back("glBegin(GL_QUADS)");
        calls->push_back("glEnd()");
    }
    calls->push_back("glPopMatrix()");
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
}

TEST_F(DrawnTree, SendsItsCubesOneByOneOnTopOfHalfAUnit)
{
    GrowTrunk(1, 1);
    Draw(0.5f);
    Texts expected = {"glPushMatrix()", "glTranslatef(0, 0.5, 0)"};
    AddCube(&expected, tree.root->segments[0], "1");
    AddCube(&expected, tree.root->segments[1], "0.1");
    expected.push_back("glPopMatrix()");
    EXPECT_TRUE(gl::CallsAre(gl::Outline(), expected));
    ASSERT_EQ(12u, gl::Draws().size());
    EXPECT_TRUE(gl::IsMatrix(gl::Draws()[6].modelview, gl::Translation(0, 0.5, 0) *
                                                           gl::FromColumns(tree.root->segments[1].m) *
                                                           gl::Scaling(0.1, 0.1, 0.1)));
    EXPECT_TRUE(gl::HasNormal(gl::Draws()[0], {0, 1, 0}));
}

TEST_F(DrawnTree, TheNewestCubesGrowToTheirFullSizeAndNotBeyond)
{
    GrowTrunk(1, 1000); // so wide that the branch has no cubes
    ASSERT_EQ(4, tree.segmentCount);
    static const struct {
        float growth;
        Texts scales;
    } rows[] = {
        // s = 4 * growth - (i + 1) + 0.2 * growth
        {0.25f, {"0.05"}},
        {0.4375f, {"0.8375"}},
        {0.46875f, {"0.96875"}},
        {0.5f, {"1", "0.1"}},
        {0.625f, {"1", "0.625"}},
        {0.75f, {"1", "1", "0.15"}},
        {1.0f, {"1", "1", "1", "0.2"}},
        {1.125f, {"1", "1", "1", "0.725"}},
        {1.25f, {"1", "1", "1", "1"}},
        {50.0f, {"1", "1", "1", "1"}},
    };
    for (const auto& row : rows) {
        Draw(row.growth);
        EXPECT_EQ(row.scales, Scales()) << row.growth;
    }
}

TEST_F(DrawnTree, ScalesAreLimitedToOneExactly)
{
    GrowTrunk(1, 1000);
    Draw(1.99995f / 4.2f);
    ASSERT_EQ(1u, Scales().size());
    EXPECT_NEAR(0.99995, std::stod(Scales()[0]), 1e-6);
    Draw(2.00005f / 4.2f);
    EXPECT_EQ((Texts{"1"}), Scales());
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
    EXPECT_EQ((Texts{"1", "0.1"}), Scales());
    GrowTrunk(0, 1000);
    Draw(100);
    EXPECT_EQ(0, CubesDrawn());
    GrowTrunk(-1, 1000);
    Draw(0.5f);
    EXPECT_EQ(0, CubesDrawn());
    Draw(-0.5f); // minus times minus
    EXPECT_EQ((Texts{"1", "0.1"}), Scales());
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
    EXPECT_EQ((Texts{"0.6"}), Scales());
    Draw(1.75f);
    EXPECT_EQ((Texts{"1", "0.4"}), Scales());
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
        EXPECT_EQ(size_t(row.cubes) * 6, gl::Draws().size());
        EXPECT_TRUE(gl::NoErrors());
    }
}

// The rules of the drawing read once more.
static void AddBranchByHand(Texts* calls, const TreeNode* node, float level)
{
    const float n = float(node->segments.size());
    const double revealed = std::trunc(std::fmin(std::fmax(n * level, 0.0f), n));
    for (int i = 0; double(i) < revealed; i++) {
        double s = double(n * level - float(i + 1)) + 0.2 * double(level);
        s = std::fmin(s, 1.0);
        AddCube(calls, node->segments[size_t(i)], gl::FloatText(float(s)));
    }
    if (revealed == double(n))
        for (const TreeNode* child : node->children)
            AddBranchByHand(calls, child, level - 1);
}

TEST_F(DrawnTree, DrawsTheSameByASecondReadingOfItsRules)
{
    for (int depth = 0; depth <= 4; depth++) {
        tree.Generate(352362122 + depth, Vector3(0, 0, 0), Vector3(1, 5, -1), 1.2f, 1.2f, depth);
        for (float growth : {0.1f, 0.33f, 0.6f, 0.97f, 1.1f, 1.3f}) {
            Draw(growth);
            Texts expected = {"glPushMatrix()", "glTranslatef(0, 0.5, 0)"};
            AddBranchByHand(&expected, tree.root, float(depth) * growth);
            expected.push_back("glPopMatrix()");
            ASSERT_TRUE(gl::CallsAre(gl::Outline(), expected)) << depth << " " << growth;
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
    for (const std::string& scale : Scales())
        ASSERT_EQ("1", scale);
    GrowTrunk(1, 1);
    Draw(INFINITY);
    EXPECT_EQ(tree.segmentCount, CubesDrawn());
    EXPECT_TRUE(gl::NoErrors());
}
