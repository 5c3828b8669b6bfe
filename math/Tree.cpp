// SPDX-License-Identifier: MIT
#include "math/Tree.h"

#include "math/Matrix16.h"
#include "math/Random.h"

#include <GL/glew.h>

#include <algorithm>
#include <cmath>

// The quotient without its fraction. 0 for one that is negative, not a number or too large for an int: that comes
// from a start radius of 0 or next to it, with which nothing grows.
static int WholeSteps(float quotient)
{
    const float firstThatIsNoInt = 2147483648.0f;
    return quotient >= 0.0f && quotient < firstThatIsNoInt ? int(quotient) : 0;
}

Tree::Tree(int firstSeed)
    : seed(firstSeed), root(nullptr), segmentCount(0), depth(0), nodesUsed(0), nodes(PoolSize),
      cubes(QuadBatch::Normals), cubesGrowth(0)
{
}

Tree::~Tree() {}

void Tree::Generate(int newSeed, Vector3 start, Vector3 end, float startRadius, float endRadius, int newDepth)
{
    seed = newSeed;
    nodesUsed = 0;
    for (TreeNode& node : nodes) {
        node.segments.clear();
        node.children.clear();
    }
    cubes.Begin();
    root = Grow(start, end, startRadius, endRadius, newDepth, true);
    depth = newDepth;
    segmentCount = 0;
    for (int i = 0; i < nodesUsed; i++) // whatever is in use hangs on the root
        segmentCount += int(nodes[i].segments.size());
}

TreeNode* Tree::Grow(Vector3 start, Vector3 end, float startRadius, float endRadius, int generations,
                     bool isTrunk)
{
    if (nodesUsed + 1 >= PoolSize)
        return nullptr;
    TreeNode* node = &nodes[nodesUsed++];
    const Vector3 position = GrowSegments(node, start, end, startRadius, endRadius, isTrunk);

    for (int b = 0; b < generations; b++) {
        const float radius = float(NextRandom(&seed, 1000) / 100.0);
        // Degrees by their range, radians by their use: a random direction all the same.
        const float angle = float(NextRandom(&seed, 360));
        // Round the tree's axis, not round the position.
        const Vector3 childEnd(float(std::cos(double(angle)) * radius), float(position.y + 2.0),
                               float(std::sin(double(angle)) * radius));
        TreeNode* child = Grow(position, childEnd, endRadius, endRadius / 2.0f, generations - 1, false);
        if (!child) {
            // The pool is used up and stays so: of the children after this one, two draws each remain.
            SkipRandom(&seed, 2u * unsigned(generations - b - 1));
            break;
        }
        node->children.push_back(child);
    }
    return node;
}

// The cubes of one branch. Returns where it ends. A function apart from Grow so that the matrices don't
// stand in the frame of the recursion, which can be as deep as the pool is large.
[[gnu::noinline]] Vector3 Tree::GrowSegments(TreeNode* node, Vector3 start, Vector3 end, float startRadius,
                                             float endRadius, bool isTrunk)
{
    Vector3 d = end - start;
    const float length = d.Length();
    d.Normalize();

    // Cubes are measured against nodes here: a limit in passing on very long branches.
    int steps = WholeSteps(length / startRadius);
    if (steps >= PoolSize - nodesUsed)
        steps = PoolSize - nodesUsed;
    node->segments.reserve(size_t(steps));

    Vector3 position = start;
    Matrix4 a, b, c, s, t;
    for (int i = 0; i < steps; i++) {
        const float done = float(i) / float(steps);
        const float r = (1.0f - done) * startRadius + done * endRadius;
        // Products with a figure of double precision, here and below, are rounded once, as they are stored.
        const float stepLength = float(r * 0.8);
        // Lasting, and never normalised again: branches bend upward more and more, and steps get longer.
        d.y = float(d.y * 1.1);
        s.SetScale(r, r, r);
        if (!isTrunk) {
            a.SetRotationX(float(NextRandom(&seed, 360)));
            b.SetRotationZ(float(NextRandom(&seed, 360)));
        }
        c.SetRotationY(float(NextRandom(&seed, 360)));
        position = position + d * stepLength;
        t.SetTranslation(position);
        // b twice, and a, which was drawn for, not at all: so these trees look, and so a seed maps to one.
        node->segments.push_back(t * b * c * b * s);
    }
    return position;
}

// A tree is drawn more than once a frame, as itself and as its shadow: the cubes are kept until it changes.
void Tree::Draw(float growth)
{
    if (cubes.IsEmpty() || growth != cubesGrowth) {
        cubesGrowth = growth;
        if (cubes.Begin() && root)
            AddNode(root, float(depth) * growth);
    }
    glPushMatrix();
    {
        glTranslatef(0.0f, 0.5f, 0.0f);
        cubes.Draw();
    }
    glPopMatrix();
}

void Tree::AddNode(const TreeNode* node, float level)
{
    const int n = int(node->segments.size());
    const float grown = float(n) * level;
    int k = 0;
    if (grown >= float(n))
        k = n;
    else if (grown > 0.0f)
        k = int(grown);

    for (int i = 0; i < k; i++) {
        const float s = float(grown - float(i + 1) + 0.2 * level);
        AddCube(node->segments[size_t(i)], std::min(s, 1.0f));
    }
    if (k == n)
        for (const TreeNode* child : node->children)
            AddNode(child, level - 1.0f);
}

// The cube of DrawUnitCube, scaled and then moved by its segment's matrix.
void Tree::AddCube(const Matrix4& segment, float scale)
{
    Matrix16 place, normalMatrix;
    MatrixCopy(place, segment.m);
    for (int i = 0; i < 12; i++)
        place[i] *= scale;
    MatrixOfNormals(normalMatrix, place);
    cubes.AddUnitCube(place, normalMatrix);
}
