// SPDX-License-Identifier: MIT
#include "effects/GlowTree.h"

#include "math/Random.h"
#include "tests/support/recorder/EffectFixture.h"

#include <cmath>

static const double pi = 3.141; // the module's figure

// The growth once more, in double precision, with a C sequence of its own: a second reading of the rules.
class SecondTree
{
public:
    struct Node {
        double x, y, z;
        bool tip;
    };
    explicit SecondTree(unsigned seed, int length, int branches) : state(seed)
    {
        Grow({0, 0, 0, false}, {0, 1, 0, false}, length, branches);
    }
    int Next()
    {
        state = state * 214013u + 2531011u;
        return int(state >> 16 & 0x7fff);
    }
    std::vector<Node> nodes;

private:
    static Node Normalised(Node v)
    {
        const double length = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
        return {v.x / length, v.y / length, v.z / length, false};
    }
    void Grow(Node position, Node direction, int length, int branches)
    {
        Node current = position, last = position, d = direction;
        for (int i = 0; length > 1 && i < length; i++) {
            const double z = Next() % 200 / 1000.0 - 0.1;
            const double x = Next() % 200 / 1000.0 - 0.1;
            d = Normalised({d.x + x, d.y, d.z + z, false});
            last = current;
            current = {current.x + d.x, current.y + d.y, current.z + d.z, false};
            if ((i > 1 && i % 5 == 0) || i == length - 1)
                for (int b = 0; b < branches; b++) {
                    const double cz = Next() % 2000 / 1000.0 - 1;
                    const double cy = Next() % 2000 / 1000.0 - 1;
                    const double cx = Next() % 2000 / 1000.0 - 1;
                    Grow(current, Normalised({d.x + cx, d.y + cy, d.z + cz, false}), length / 2, branches);
                }
            const bool tip = i == length - 1;
            nodes.push_back({last.x, last.y, last.z, tip});
            nodes.push_back(
                {(last.x + current.x) / 2, (last.y + current.y) / 2, (last.z + current.z) / 2, tip});
        }
    }
    unsigned state;
};

class LightTree : public EffectFixture
{
protected:
    LightTree() : tree(0x23456789, 20, 3) {}
    GlowTree tree;
};

TEST_F(LightTree, HasEighteenHundredAndSixtyFourNodes)
{
    EXPECT_EQ(1864u, tree.nodes.size());
    for (const GlowNode* node : tree.nodes) {
        EXPECT_EQ(0.0f, node->glow);
        EXPECT_EQ(0.0f, node->flash);
    }
}

TEST_F(LightTree, GrowsAsASecondReadingOfItsRules)
{
    const SecondTree second(0x23456789, 20, 3);
    ASSERT_EQ(second.nodes.size(), tree.nodes.size());
    for (size_t i = 0; i < tree.nodes.size(); i++) {
        EXPECT_NEAR(second.nodes[i].x, tree.nodes[i]->position[0], 1e-3) << i;
        EXPECT_NEAR(second.nodes[i].y, tree.nodes[i]->position[1], 1e-3) << i;
        EXPECT_NEAR(second.nodes[i].z, tree.nodes[i]->position[2], 1e-3) << i;
        EXPECT_EQ(second.nodes[i].tip, tree.nodes[i]->tip) << i;
    }
}

TEST_F(LightTree, NodesAsNumbers)
{
    // Worked out apart from this program, from the seed and the order of the draws.
    struct {
        int number;
        double x, y, z;
    } const nodes[8] = {
        // clang-format off
        {   0,  0.00000,  0.00000,  0.00000},
        {   1, -0.04431,  0.49785, -0.01344},
        {   2, -0.08862,  0.99570, -0.02688},
        {  11, -0.49764,  6.31648, -1.08234},
        {  12, -0.63614,  6.71771, -1.34660},
        {1000, -2.93517, 22.07496,  0.34774},
        {1862,  1.30055, 18.46586, -1.85464},
        {1863,  1.43622, 18.94698, -1.86555},
        // clang-format on
    };
    for (const auto& node : nodes) {
        EXPECT_NEAR(node.x, tree.nodes[node.number]->position[0], 2e-4) << node.number;
        EXPECT_NEAR(node.y, tree.nodes[node.number]->position[1], 2e-4) << node.number;
        EXPECT_NEAR(node.z, tree.nodes[node.number]->position[2], 2e-4) << node.number;
    }
    double sums[3] = {0, 0, 0};
    for (const GlowNode* node : tree.nodes)
        for (int axis = 0; axis < 3; axis++)
            sums[axis] += node->position[axis];
    EXPECT_NEAR(-237.8226, sums[0], 0.1);
    EXPECT_NEAR(35779.7702, sums[1], 0.1);
    EXPECT_NEAR(615.5442, sums[2], 0.1);
}

TEST_F(LightTree, PlantingReseedsTheProcessesSequence)
{
    SeedRandom(5);
    GlowTree other(0x23456789, 20, 3);
    const int after = Random();
    SeedRandom(99);
    GlowTree again(0x23456789, 20, 3);
    EXPECT_EQ(after, Random());
    for (size_t i = 0; i < other.nodes.size(); i++)
        ASSERT_EQ(other.nodes[i]->position[0], again.nodes[i]->position[0]);
}

TEST_F(LightTree, LengthOneAddsNothingAndLengthTwoFour)
{
    EXPECT_TRUE(GlowTree(1, 1, 3).nodes.empty());
    EXPECT_TRUE(GlowTree(1, 0, 3).nodes.empty());
    EXPECT_TRUE(GlowTree(1, -5, 3).nodes.empty());
    EXPECT_EQ(4u, GlowTree(1, 2, 3).nodes.size());
    EXPECT_FALSE(GlowTree(1, 2, 3).nodes[1]->tip);
    EXPECT_TRUE(GlowTree(1, 2, 3).nodes[2]->tip);
}

TEST_F(LightTree, TooFewNodesNeitherSparkNorFlash)
{
    GlowTree small(1, 5, 0);
    ASSERT_EQ(10u, small.nodes.size());
    small.Spark();
    small.Flash();
    for (const GlowNode* node : small.nodes)
        EXPECT_EQ(0.0f, node->glow);
    GlowTree eleven(1, 6, 0);
    ASSERT_EQ(12u, eleven.nodes.size());
    eleven.Spark();
    EXPECT_GT(eleven.nodes[8]->glow, 0.0f);
}

TEST_F(LightTree, ASparkLightsAHundredStretchesOfNine)
{
    SeedRandom(1234);
    tree.Spark();
    SecondTree sequence(1234, 0, 0);
    std::vector<double> glow(1864, 0);
    for (int i = 0; i < 100; i++) {
        const int r = sequence.Next() % (1864 - 10) + 10;
        for (int j = r - 10; j <= r - 2; j++)
            glow[j] += 4 * std::sin((j - (r - 10)) / 100.0 * pi);
    }
    for (int i = 0; i < 1864; i++) {
        EXPECT_NEAR(glow[i], tree.nodes[i]->glow, 1e-5) << i;
        EXPECT_EQ(0.0f, tree.nodes[i]->flash);
    }
}

TEST_F(LightTree, AFlashLightsFiftyHalfAsBrightAndThrowsThem)
{
    SeedRandom(4321);
    tree.Flash();
    SecondTree sequence(4321, 0, 0);
    std::vector<double> glow(1864, 0), flash(1864, 0);
    for (int i = 0; i < 50; i++) {
        const int r = sequence.Next() % (1864 - 10) + 10;
        for (int k = 0; k <= 8; k++) {
            glow[r - 10 + k] += 2 * std::sin(k / 100.0 * pi);
            flash[r - 10 + k] = 1;
        }
    }
    for (int i = 0; i < 1864; i++) {
        EXPECT_NEAR(glow[i], tree.nodes[i]->glow, 1e-5);
        EXPECT_EQ(float(flash[i]), tree.nodes[i]->flash);
    }
}

TEST_F(LightTree, UpdateLetsBothDecayAtTheirRates)
{
    tree.nodes[7]->glow = 2;
    tree.nodes[7]->flash = 1;
    PassTime(0.25);
    tree.Update();
    EXPECT_EQ(1.5f, tree.nodes[7]->glow);
    EXPECT_EQ(0.5f, tree.nodes[7]->flash);
    for (int i = 0; i < 100; i++)
        tree.Update();
    EXPECT_GT(tree.nodes[7]->glow, 0.0f) << "never quite dark again";
}

TEST_F(LightTree, InTheDarkNothingIsDrawn)
{
    tree.Draw();
    EXPECT_TRUE(gl::Draws().empty());
}

TEST_F(LightTree, ANodeGlowsAsASpriteTowardsTheViewer)
{
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glTranslatef(1, 2, 3);
    glRotatef(30, 0, 1, 0);
    glScalef(0.5f, 0.5f, 0.5f);
    tree.nodes[40]->glow = 0.25f;
    gl::ClearRecords();
    tree.Draw();
    ASSERT_EQ(4u, gl::Draws().at(0).vertices.size());
    const gl::Draw& sprite = gl::Draws()[0];
    EXPECT_TRUE(gl::HasColour(sprite, {0.25, 0.25, 0.25}));
    EXPECT_TRUE(gl::HasTexCoords(sprite, {{0, 1}, {1, 1}, {1, 0}, {0, 0}}));
    EXPECT_TRUE(gl::Blends(sprite, GL_ONE, GL_ONE));
    EXPECT_TRUE(gl::TestsDepth(sprite));
    EXPECT_TRUE(gl::WritesDepth(sprite, false));
    // Half a side is glow * 4, and the scale of the transform counts twice.
    const double half = 0.25 * 4 * 0.5 * 0.5;
    const gl::Matrix m =
        gl::Translation(1, 2, 3) * gl::RotationDegrees(30, 0, 1, 0) * gl::Scaling(0.5, 0.5, 0.5);
    const float* p = tree.nodes[40]->position;
    const gl::Point centre = m * gl::Point(p[0], p[1], p[2]);
    const double x = centre.x, y = centre.y, z = centre.z;
    EXPECT_TRUE(gl::HasEyePoints(sprite, {{x - half, y - half, z},
                                          {x + half, y - half, z},
                                          {x + half, y + half, z},
                                          {x - half, y + half, z}}));
}

TEST_F(LightTree, ASpriteStaysUprightUnderACameraThatRolls)
{
    tree.nodes[0]->glow = 1;
    glLoadIdentity();
    glRotatef(30, 0, 0, 1);
    glRotatef(20, 0, 1, 0);
    gl::ClearRecords();
    tree.Draw();
    const gl::Draw& draw = gl::Draws().at(0);
    ASSERT_EQ(4u, draw.vertices.size());
    // Lower left, lower right, upper right, upper left, as the eye has them.
    const gl::Point &a = draw.vertices[0].eye, &b = draw.vertices[1].eye, &c = draw.vertices[2].eye,
                    &d = draw.vertices[3].eye;
    const double side = b.x - a.x;
    EXPECT_GT(side, 0.1);
    EXPECT_NEAR(0, b.y - a.y, 1e-5);
    EXPECT_NEAR(0, b.z - a.z, 1e-5);
    EXPECT_NEAR(side, c.y - b.y, 1e-5);
    EXPECT_NEAR(0, c.x - b.x, 1e-5);
    EXPECT_NEAR(0, c.z - b.z, 1e-5);
    EXPECT_NEAR(side, c.x - d.x, 1e-5);
}

TEST_F(LightTree, AFlashFliesFarOutAndSpinsBackIn)
{
    StartTimer(2);
    tree.nodes[40]->flash = 0.5f;
    gl::ClearRecords();
    glLoadIdentity();
    tree.Draw();
    const gl::Draw& sprite = gl::Draws().back();
    ASSERT_EQ(4u, sprite.vertices.size());
    EXPECT_TRUE(gl::HasColour(sprite, {1, 1, 1}));
    const float* p = tree.nodes[40]->position;
    const double q[3] = {3.5 * p[0], 1.5 * p[1], 3.5 * p[2]};
    const double a = (0.5 * 360 + 2 * 20) * 3.14152 / 180;
    const double x = std::cos(a) * q[0] + std::sin(a) * q[2], z = -std::sin(a) * q[0] + std::cos(a) * q[2];
    EXPECT_TRUE(gl::HasVertices(
        sprite, {{x - 6, q[1] - 6, z}, {x + 6, q[1] - 6, z}, {x + 6, q[1] + 6, z}, {x - 6, q[1] + 6, z}},
        1e-3));
    EXPECT_TRUE(gl::HasTexCoords(sprite, {{0, 1}, {1, 1}, {1, 0}, {0, 0}}));
}

TEST_F(LightTree, AFlashOfATenthOrLessDrawsNoSecondSprite)
{
    tree.nodes[40]->flash = 0.1f;
    tree.Draw();
    EXPECT_TRUE(gl::Draws().empty());
    tree.nodes[40]->flash = 0.1001f;
    gl::ClearRecords();
    tree.Draw();
    EXPECT_EQ(4u, gl::Draws().back().vertices.size());
}

TEST_F(LightTree, ASecondSpriteIsWhiteWhateverWasDrawnBeforeIt)
{
    tree.nodes[3]->glow = 0.25f;
    tree.nodes[40]->flash = 0.5f;
    glColor3f(0.5f, 0, 0);
    gl::ClearRecords();
    tree.Draw();
    ASSERT_EQ(2u, gl::Draws().size());
    EXPECT_TRUE(gl::HasColour(gl::Draws()[0], {0.25, 0.25, 0.25}));
    EXPECT_TRUE(gl::HasColour(gl::Draws()[1], {1, 1, 1}));
}

TEST_F(LightTree, NeitherSpriteWritesItsDepth)
{
    tree.nodes[3]->glow = 1;
    tree.nodes[40]->flash = 1;
    gl::ClearRecords();
    tree.Draw();
    ASSERT_EQ(2u, gl::Draws().size());
    for (const gl::Draw& sprites : gl::Draws()) {
        EXPECT_TRUE(gl::WritesDepth(sprites, false));
        EXPECT_TRUE(gl::TestsDepth(sprites));
    }
}

TEST_F(LightTree, EachFrameDrawsItsOwnSpritesAlone)
{
    tree.nodes[3]->glow = 1;
    tree.nodes[40]->flash = 1;
    tree.Draw();
    tree.nodes[3]->glow = 0;
    tree.nodes[4]->glow = 2;
    gl::ClearRecords();
    tree.Draw();
    ASSERT_EQ(2u, gl::Draws().size());
    EXPECT_EQ(4u, gl::Draws()[0].vertices.size());
    EXPECT_TRUE(gl::HasColour(gl::Draws()[0], {2, 2, 2}));
    EXPECT_EQ(4u, gl::Draws()[1].vertices.size());
    // When all has gone dark, nothing of the frames before is drawn.
    tree.nodes[4]->glow = 0;
    tree.nodes[40]->flash = 0;
    gl::ClearRecords();
    tree.Draw();
    EXPECT_TRUE(gl::Draws().empty());
}

TEST_F(LightTree, SpritesComeInTheOrderOfTheListInTwoBlocks)
{
    tree.nodes[3]->glow = 1;
    tree.nodes[9]->glow = 2;
    tree.nodes[9]->flash = 1;
    gl::ClearRecords();
    tree.Draw();
    ASSERT_EQ(2u, gl::Draws().size());
    EXPECT_EQ(8u, gl::Draws()[0].vertices.size());
    EXPECT_EQ(1.0f, gl::Draws()[0].vertices[0].colour.r);
    EXPECT_EQ(2.0f, gl::Draws()[0].vertices[4].colour.r);
    EXPECT_EQ(4u, gl::Draws()[1].vertices.size());
    EXPECT_TRUE(gl::Now().depthWrites);
    EXPECT_TRUE(gl::Now().Enabled(GL_BLEND)) << "stays on, additive";
}
