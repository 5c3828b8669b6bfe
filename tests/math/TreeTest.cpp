// SPDX-License-Identifier: MIT
#include "math/Tree.h"

#include "math/Random.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <type_traits>
#include <vector>

// The rules of the growth read once more, in other terms than the source has: branches in a flat list in
// the order of their birth, matrices by rows, no class of the library but the tree that is compared.
struct HandBranch {
    int parent;
    std::vector<float> cubes; // 16 floats each
};

class HandTree
{
public:
    HandTree(int seed, const float* start, const float* end, float startRadius, float endRadius, int depth)
        : state(seed)
    {
        Branch(-1, start, end, startRadius, endRadius, depth);
    }

    int32_t state;
    std::vector<HandBranch> branches;

    int Cubes() const
    {
        size_t sum = 0;
        for (const HandBranch& branch : branches)
            sum += branch.cubes.size() / 16;
        return int(sum);
    }

private:
    struct Rows {
        float at[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    };

    int Draw(int n)
    {
        state = int32_t(uint32_t(int64_t(state) * 22695477));
        const int upper = int(std::floor(double(state) / 65536.0));
        return upper < 0 ? -(-upper % n) : upper % n;
    }

    static Rows Times(const Rows& left, const Rows& right)
    {
        Rows product;
        for (int row = 0; row < 4; row++)
            for (int column = 0; column < 4; column++) {
                float sum = left.at[row][0] * right.at[0][column];
                for (int k = 1; k < 4; k++)
                    sum += left.at[row][k] * right.at[k][column];
                product.at[row][column] = sum;
            }
        return product;
    }

    // Turns the axis `from` towards the axis `to`.
    static Rows Turn(int from, int to, int degrees)
    {
        const float radians = float(degrees) * 0.017453292f;
        Rows turn;
        turn.at[from][from] = float(std::cos(double(radians)));
        turn.at[to][to] = turn.at[from][from];
        turn.at[to][from] = float(std::sin(double(radians)));
        turn.at[from][to] = -turn.at[to][from];
        return turn;
    }

    bool Branch(int parent, const float* start, const float* end, float startRadius, float endRadius,
                int depth)
    {
        float d[3], place[3];
        for (int i = 0; i < 3; i++) {
            place[i] = start[i];
            d[i] = end[i] - start[i];
        }
        const float length = float(std::sqrt(double(d[0] * d[0] + d[1] * d[1] + d[2] * d[2])));
        const float factor = 1 / length;
        for (float& component : d)
            component *= factor;
        if (branches.size() >= 9999)
            return false;
        const size_t self = branches.size();
        branches.push_back({parent, {}});

        int steps = int(length / startRadius);
        if (steps > 10000 - int(branches.size()))
            steps = 10000 - int(branches.size());
        for (int i = 0; i < steps; i++) {
            const float t = float(i) / float(steps);
            const float r = (1 - t) * startRadius + t * endRadius;
            const float stepLength = float(r * 0.8);
            d[1] = float(d[1] * 1.1);
            Rows scale, aboutZ, move;
            scale.at[0][0] = scale.at[1][1] = scale.at[2][2] = r;
            if (parent >= 0) {
                Draw(360);
                aboutZ = Turn(0, 1, Draw(360));
            }
            const Rows aboutY = Turn(2, 0, Draw(360));
            for (int axis = 0; axis < 3; axis++) {
                place[axis] += d[axis] * stepLength;
                move.at[axis][3] = place[axis];
            }
            const Rows cube = Times(Times(Times(Times(move, aboutZ), aboutY), aboutZ), scale);
            for (int column = 0; column < 4; column++)
                for (int row = 0; row < 4; row++)
                    branches[self].cubes.push_back(cube.at[row][column]);
        }
        for (int child = 0; child < depth; child++) {
            const float radius = float(Draw(1000)) / 100.0f;
            const double angle = Draw(360);
            const float childEnd[3] = {float(std::cos(angle) * radius), place[1] + 2.0f,
                                       float(std::sin(angle) * radius)};
            Branch(int(self), place, childEnd, endRadius, endRadius * 0.5f, depth - 1);
        }
        return true;
    }
};

static void ExpectSameTree(const HandTree& hand, const Tree& tree)
{
    ASSERT_EQ(int(hand.branches.size()), tree.nodesUsed);
    ASSERT_EQ(hand.state, tree.seed);
    ASSERT_EQ(hand.Cubes(), tree.segmentCount);
    std::vector<size_t> childrenSeen(tree.nodes.size());
    for (size_t i = 0; i < hand.branches.size(); i++) {
        const HandBranch& branch = hand.branches[i];
        const TreeNode& node = tree.nodes[i];
        ASSERT_EQ(branch.cubes.size(), node.segments.size() * 16) << "branch " << i;
        for (size_t cube = 0; cube < node.segments.size(); cube++)
            for (size_t element = 0; element < 16; element++) {
                const float expected = branch.cubes[cube * 16 + element];
                const float actual = node.segments[cube].m[element];
                if (std::isnan(expected)) {
                    ASSERT_TRUE(std::isnan(actual));
                    continue;
                }
                ASSERT_EQ(expected, actual) << "branch " << i << " cube " << cube << " element " << element;
            }
        if (branch.parent >= 0) {
            const std::vector<TreeNode*>& siblings = tree.nodes[size_t(branch.parent)].children;
            const size_t place = childrenSeen[size_t(branch.parent)]++;
            ASSERT_LT(place, siblings.size());
            ASSERT_EQ(&node, siblings[place]) << "branch " << i;
        }
    }
    for (size_t i = 0; i < tree.nodes.size(); i++) {
        ASSERT_EQ(childrenSeen[i], tree.nodes[i].children.size());
        if (i >= hand.branches.size()) {
            ASSERT_TRUE(tree.nodes[i].segments.empty());
        }
    }
    ASSERT_EQ(&tree.nodes[0], tree.root);
}

static void ExpectMatrix(const float* expected, const Matrix4& m)
{
    for (int i = 0; i < 16; i++)
        EXPECT_NEAR(expected[i], m[i], 2e-6f * std::fabs(expected[i]) + 1e-7f) << "element " << i;
}

static const Vector3 origin(0, 0, 0), above(0, 1, 0);

TEST(Tree, StartsWithItsSeedItsPoolAndNothingGrown)
{
    const Tree tree(352362122);
    EXPECT_EQ(352362122, tree.seed);
    EXPECT_EQ(nullptr, tree.root);
    EXPECT_EQ(0, tree.segmentCount);
    EXPECT_EQ(0, tree.depth);
    EXPECT_EQ(0, tree.nodesUsed);
    EXPECT_EQ(10000u, tree.nodes.size());
    EXPECT_EQ(10000, Tree::PoolSize);
    EXPECT_TRUE(std::has_virtual_destructor_v<Tree>);
}

TEST(Tree, IsSmallEnoughForAnyStack)
{
    EXPECT_LT(sizeof(Tree), 200u);
}

TEST(Tree, BranchesCubesAndRandomStateOfTheCreditsTrees)
{
    static const struct {
        int seed, depth, branches, cubes, stateAfter;
    } rows[] = {
        // clang-format off
        {352362122, 0,   1,     0,   352362122},
        {352362122, 1,   2,     3,   284299970},
        {352362122, 2,   5,    17,  1840757570},
        {352362122, 3,  16,   234,  -567549014},
        {352362122, 4,  65,  1506, -1627867622},
        {352362122, 5, 326, 16931,  1467441794},
        {352362123, 2,   5,    35,   317751175},
        {352362123, 3,  16,   208,  1027742947},
        {352362123, 4,  65,  1617, -1720803249},
        {352362124, 2,   5,    32, -1321618164},
        {352362124, 3,  16,   179,   401779548},
        {352362124, 4,  65,  1556,  -456141748},
        {352362125, 2,   5,    28, -1009813091},
        {352362125, 3,  16,   178,  -802569667},
        {352362125, 4,  65,  1612,    93706621},
        {        1, 4,  65,  1552,   429673025},
        {   -12345, 4,  65,  1668,  1088643767},
        {        0, 4,  65,   496,           0},
        // clang-format on
    };
    Tree tree(0);
    for (const auto& row : rows) {
        tree.Generate(row.seed, origin, above, 1.2f, 1.2f, row.depth);
        EXPECT_EQ(row.branches, tree.nodesUsed) << row.seed << " " << row.depth;
        EXPECT_EQ(row.cubes, tree.segmentCount) << row.seed << " " << row.depth;
        EXPECT_EQ(row.stateAfter, tree.seed) << row.seed << " " << row.depth;
        EXPECT_EQ(row.depth, tree.depth);
        EXPECT_EQ(&tree.nodes[0], tree.root);
        EXPECT_TRUE(tree.root->segments.empty()); // a length of 1 has no room for a cube of 1.2
    }
}

TEST(Tree, CubesPerBranchInTheOrderOfBirth)
{
    static const int expected[65] = {0,  3,  5,  20, 39, 14, 39, 10, 25, 25, 35, 31, 9,  29, 58, 8,  24,
                                     8,  4,  18, 25, 19, 32, 11, 11, 39, 23, 38, 5,  15, 33, 22, 52, 1,
                                     13, 18, 61, 28, 20, 4,  14, 49, 13, 20, 8,  23, 46, 28, 43, 7,  10,
                                     37, 34, 9,  32, 8,  20, 47, 7,  67, 11, 14, 25, 25, 35};
    Tree tree(0);
    tree.Generate(352362122, origin, above, 1.2f, 1.2f, 4);
    for (size_t i = 0; i < 65; i++)
        EXPECT_EQ(expected[i], int(tree.nodes[i].segments.size())) << i;
}

TEST(Tree, MatricesOfTheCreditsTree)
{
    // clang-format off
    static const struct {
        size_t branch, cube;
        float m[16];
    } rows[] = {
        {1, 0, {-0.591738284f,  0.567213297f,  0.87642169f,   0, -0.567213297f,  0.671065092f,  -0.817276478f,  0,
                -0.87642169f,  -0.817276478f, -0.0628033504f, 0,  0.213443056f,  0.583069563f,   0.771411061f,  1}},
        {2, 3, {-0.208643422f,  0.081132181f, -0.355366707f,  0, -0.081132181f,  0.388856292f,   0.136412501f,  0,
                 0.355366707f,  0.136412501f, -0.177499712f,  0,  0.631899238f,  2.93848372f,    0.702993393f,  1}},
        {63, 5, {-0.259796619f, 0.0726008415f, 0.0116118463f, 0, -0.0726008415f, -0.246581882f, -0.0826226026f, 0,
                -0.0116118463f, -0.0826226026f, 0.256785274f, 0, -0.668649673f,  4.36895752f,    1.78029156f,   1}},
        {64, 2, {0.0491084121f, -0.136416331f, -0.0145465881f, 0, 0.136416331f,  0.0501945466f, -0.0101856301f, 0,
                 0.0145465881f, -0.0101856301f, 0.144628152f, 0,  0.433671296f,  8.5571537f,     4.95633984f,   1}},
    };
    // clang-format on
    Tree tree(0);
    tree.Generate(352362122, origin, above, 1.2f, 1.2f, 4);
    for (const auto& row : rows) {
        ASSERT_LT(row.cube, tree.nodes[row.branch].segments.size());
        ExpectMatrix(row.m, tree.nodes[row.branch].segments[row.cube]);
    }
}

TEST(Tree, MatricesOfATreeWithATrunkThatTapers)
{
    static const int cubes[16] = {11, 11, 43, 76, 23, 147, 18, 70, 45, 20, 121, 40, 75, 134, 38, 128};
    // clang-format off
    static const struct {
        size_t branch, cube;
        float m[16];
    } rows[] = {
        {0, 0,  {-0.0783962533f, 0, 0.745891452f,  0, 0, 0.75f,        0, 0,
                 -0.745891452f,  0, -0.0783962533f, 0, 1.14317203f, -1.37004328f, 0.392620981f, 1}},
        {0, 10, {0.28788206f,    0, 0.0664627999f, 0, 0, 0.295454532f, 0, 0,
                 -0.0664627999f, 0, 0.28788206f,   0, 2.09765196f,  5.47412205f, -0.323238999f, 1}},
        {1, 1,  {-0.23780255f, 0.0159099381f, -0.0120054539f, 0, -0.0159099381f, -0.0649432614f, 0.229077622f, 0,
                 0.0120054539f, 0.229077622f, 0.0657770634f,  0, 1.87291241f,  5.77932453f, -0.143455982f, 1}},
        {15, 0, {0.0615792163f, 0.00433295406f, 0.00977119152f, 0,
                 -0.00433295453f, 0.0623486899f, -0.000341218518f, 0,
                 -0.00977119152f, -0.000341218518f, 0.0617305227f, 0, -0.380450785f, 28.1239357f, 6.68028021f, 1}},
    };
    // clang-format on
    Tree tree(0);
    tree.Generate(7, Vector3(1, -2, 0.5f), Vector3(3, 6, -1), 0.75f, 0.25f, 3);
    EXPECT_EQ(16, tree.nodesUsed);
    EXPECT_EQ(1000, tree.segmentCount);
    EXPECT_EQ(1139585799, tree.seed);
    for (size_t i = 0; i < 16; i++)
        EXPECT_EQ(cubes[i], int(tree.nodes[i].segments.size())) << i;
    for (const auto& row : rows) {
        ASSERT_LT(row.cube, tree.nodes[row.branch].segments.size());
        ExpectMatrix(row.m, tree.nodes[row.branch].segments[row.cube]);
    }
}

TEST(Tree, IsTheSameByASecondReadingOfItsRules)
{
    std::mt19937 random(28);
    std::uniform_real_distribution<float> any(-10, 10), radius(0.4f, 3);
    Tree tree(0);
    for (int round = 0; round < 60; round++) {
        const int seed = int(random()), depth = int(random() % 5);
        const float start[3] = {any(random), any(random), any(random)};
        const float end[3] = {any(random), any(random), any(random)};
        const float startRadius = radius(random), endRadius = radius(random);
        const HandTree hand(seed, start, end, startRadius, endRadius, depth);
        tree.Generate(seed, Vector3(start[0], start[1], start[2]), Vector3(end[0], end[1], end[2]),
                      startRadius, endRadius, depth);
        ASSERT_NO_FATAL_FAILURE(ExpectSameTree(hand, tree)) << "round " << round;
    }
}

TEST(Tree, TheSameSeedGivesTheSameTreeWhateverGrewBefore)
{
    Tree tree(0), other(99);
    tree.Generate(3, origin, Vector3(0, 60, 0), 2, 1, 3);
    tree.Generate(352362122, origin, above, 1.2f, 1.2f, 2);
    other.Generate(352362122, origin, above, 1.2f, 1.2f, 2);
    ASSERT_EQ(other.nodesUsed, tree.nodesUsed);
    ASSERT_EQ(other.segmentCount, tree.segmentCount);
    EXPECT_EQ(other.seed, tree.seed);
    for (size_t i = 0; i < tree.nodes.size(); i++) {
        ASSERT_EQ(other.nodes[i].segments.size(), tree.nodes[i].segments.size());
        ASSERT_EQ(other.nodes[i].children.size(), tree.nodes[i].children.size());
        for (size_t k = 0; k < tree.nodes[i].segments.size(); k++)
            ASSERT_EQ(0, memcmp(other.nodes[i].segments[k].m, tree.nodes[i].segments[k].m, 64));
    }
}

TEST(Tree, ADepthOfZeroOrBelowIsATrunkAlone)
{
    Tree tree(0);
    for (int depth : {0, -1, INT_MIN}) {
        tree.Generate(11, origin, Vector3(0, 10, 0), 1, 1, depth);
        EXPECT_EQ(1, tree.nodesUsed);
        EXPECT_EQ(10, tree.segmentCount);
        EXPECT_TRUE(tree.root->children.empty());
        EXPECT_EQ(depth, tree.depth);
        int state = 11;
        SkipRandom(&state, 10); // one draw a cube and none for children
        EXPECT_EQ(state, tree.seed);
    }
}

TEST(Tree, DrawsOnceACubeInTheTrunkAndThreeTimesElsewhere)
{
    Tree tree(0);
    tree.Generate(11, origin, Vector3(0, 10, 0), 1, 0.25f, 1);
    ASSERT_EQ(2, tree.nodesUsed);
    const unsigned trunk = unsigned(tree.nodes[0].segments.size());
    const unsigned child = unsigned(tree.nodes[1].segments.size());
    EXPECT_EQ(10u, trunk);
    EXPECT_GT(child, 0u);
    int state = 11;
    SkipRandom(&state, trunk + 2 + 3 * child);
    EXPECT_EQ(state, tree.seed);
}

TEST(Tree, StepsAreCutOffAndNotRounded)
{
    Tree tree(0);
    for (const auto& [length, cubes] : {std::pair(0.0f, 0), {0.99f, 0}, {1.0f, 1}, {1.99f, 1}, {2.0f, 2}}) {
        tree.Generate(11, origin, Vector3(length, 0, 0), 1, 1, 0);
        EXPECT_EQ(cubes, tree.segmentCount) << length;
    }
}

TEST(Tree, ALongTrunkIsLimitedToWhatThePoolWouldHold)
{
    Tree tree(0);
    for (const auto& [length, cubes] : {std::pair(9998.5f, 9998),
                                        {9999.5f, 9999},
                                        {10000.5f, 9999},
                                        {20000.0f, 9999},
                                        {2147483520.0f, 9999}}) {
        tree.Generate(11, origin, Vector3(length, 0, 0), 1, 1, 0);
        EXPECT_EQ(cubes, tree.segmentCount) << length;
    }
}

TEST(Tree, ALongBranchIsLimitedByTheNodesThatAreInUse)
{
    // The branches of the second generation are 0.0001 thick and at least 2 long.
    Tree tree(0);
    tree.Generate(11, origin, above, 2, 0.0002f, 2);
    ASSERT_EQ(5, tree.nodesUsed);
    EXPECT_EQ(9998, int(tree.nodes[1].segments.size()));
    // They bend up into the infinite within so many steps, and what starts there has no length to divide.
    EXPECT_EQ(0, int(tree.nodes[2].segments.size()));
}

TEST(Tree, WithoutARadiusGrowsBranchesWithoutCubes)
{
    Tree tree(0);
    tree.Generate(11, origin, Vector3(0, 10, 0), 0, 0, 2);
    EXPECT_EQ(5, tree.nodesUsed);
    EXPECT_EQ(0, tree.segmentCount);
    tree.Generate(11, origin, Vector3(0, 10, 0), 1, 0, 2); // children start with the trunk's end radius
    EXPECT_EQ(5, tree.nodesUsed);
    EXPECT_EQ(10, tree.segmentCount);
    tree.Generate(11, origin, origin, 0, 0, 2);
    EXPECT_EQ(0, tree.segmentCount);
    tree.Generate(11, origin, Vector3(0, 10, 0), -1, -1, 2);
    EXPECT_EQ(0, tree.segmentCount);
}

TEST(Tree, MoreStepsThanAnIntHoldsAreNone)
{
    Tree tree(0);
    for (float length : {2147483648.0f, 1e18f}) {
        tree.Generate(11, origin, Vector3(length, 0, 0), 1, 1, 0);
        EXPECT_EQ(0, tree.segmentCount) << length;
    }
}

TEST(Tree, StrangeNumbersGrowNoCubesAndDoNoHarm)
{
    Tree tree(0);
    for (float strange : {NAN, INFINITY, -INFINITY, 3e38f}) {
        tree.Generate(11, origin, Vector3(strange, 0, 0), 1, 1, 2);
        EXPECT_EQ(0, int(tree.root->segments.size())) << strange;
        tree.Generate(11, origin, Vector3(0, 10, 0), strange, 1, 1);
        EXPECT_EQ(0, int(tree.root->segments.size())) << strange;
    }
}

TEST(Tree, APoolThatIsUsedUpLeavesChildrenOutButDrawsForThem)
{
    // Depth 7 asks for 13700 branches. So wide, most of them have no cubes.
    Tree tree(0);
    tree.Generate(5, origin, above, 1000, 1000, 7);
    EXPECT_EQ(9999, tree.nodesUsed);
    EXPECT_EQ(0, tree.segmentCount);
    EXPECT_EQ(-329302499, tree.seed);

    tree.Generate(5, origin, Vector3(0, 60, 0), 20, 40, 7);
    EXPECT_EQ(9999, tree.nodesUsed);
    EXPECT_EQ(56567, tree.segmentCount);
    EXPECT_EQ(-888985655, tree.seed);
    const float start[3] = {0, 0, 0}, end[3] = {0, 60, 0};
    ExpectSameTree(HandTree(5, start, end, 20, 40, 7), tree);
}

TEST(Tree, DeepTreesAreTheSameByASecondReading)
{
    Tree tree(0);
    const float start[3] = {0, 0, 0}, end[3] = {0, 3, 0};
    for (int depth : {8, 9, 40, 100}) {
        tree.Generate(352362122, origin, Vector3(0, 3, 0), 1, 3e38f, depth);
        ASSERT_NO_FATAL_FAILURE(ExpectSameTree(HandTree(352362122, start, end, 1, 3e38f, depth), tree))
            << depth;
        EXPECT_EQ(9999, tree.nodesUsed);
    }
}

TEST(Tree, ADepthWithoutMeasureEndsWithThePool)
{
    Tree tree(0);
    tree.Generate(5, origin, above, 0, 0, INT_MAX);
    EXPECT_EQ(9999, tree.nodesUsed);
    // Each branch has one child until the pool is used up: as deep as a tree can be.
    for (size_t i = 0; i < 9998; i++)
        ASSERT_EQ(1u, tree.nodes[i].children.size());
    EXPECT_TRUE(tree.nodes[9998].children.empty());
    // In sum there were INT_MAX + (INT_MAX - 1) + ... children of 9999 branches, two draws each; the last
    // branch of them stands at depth INT_MAX - 9998.
    const uint64_t children = 9999ull * 2147483647ull - 9998ull * 9999ull / 2;
    int state = 5;
    SkipRandom(&state, unsigned(children * 2 % 1073741824)); // the state repeats after 2^30 draws
    EXPECT_EQ(state, tree.seed);
}
