// SPDX-License-Identifier: MIT
// A branching tree of cubes, grown from a seed: the same seed gives the same tree.
//
// CONVENTIONS
//   Single precision at every stored value. The matrices are column-major (math/Matrix4.h).
//
// Made once, then Generate as often as the owner likes, and Draw. Growing more of the tree is a matter of
// Draw alone:
//
//   Tree tree(seed);
//   tree.Generate(seed, Vector3(0, 0, 0), Vector3(0, 1, 0), 1.2f, 1.2f, 4);
//   tree.Draw(growth); // 0 is nothing; 1 shows all generations but the last, 1.25 all of depth 4
#pragma once

#include "math/Matrix4.h"
#include "math/QuadBatch.h"
#include "math/Vector3.h"

#include <vector>

// One branch.
class TreeNode
{
public:
    std::vector<Matrix4> segments;   // the transforms of its cubes, from the base upward
    std::vector<TreeNode*> children; // the branches that start at its end, in the tree's own pool
};

class Tree
{
public:
    explicit Tree(int firstSeed); // no tree yet: Draw draws nothing
    virtual ~Tree();
    Tree(const Tree&) = delete; // the nodes point at each other
    Tree& operator=(const Tree&) = delete;

    // Grows the tree, replacing what was there. The trunk runs from start towards end; the branches come
    // from the seed. A branch of depth d has d children of depth d - 1, so that a tree of depth 0 to 6 has
    // 1, 2, 5, 16, 65, 326 and 1957 branches; a deeper one ends where the pool does, whatever its depth.
    // startRadius and endRadius are the sides of the first cube and of the one that would follow the last;
    // they also say how many cubes there are: length / startRadius, none with a startRadius of 0.
    // For use within one frame: see tools/benchmark for what depth 4 takes of one.
    void Generate(int newSeed, Vector3 start, Vector3 end, float startRadius, float endRadius, int newDepth);

    // Draws as much of the tree as has grown, at the current modelview matrix, with the texture, colour
    // and light of the caller. growth * depth counts generations of branches: the first 1.0 reveals the
    // trunk cube by cube, each further 1.0 one more generation. The newest cube of a branch grows from a
    // small scale to its full size. Needs a current GL context.
    void Draw(float growth);

    static constexpr int PoolSize = 10000;

    // To be read from outside, not written.
    int seed;                    // the random state; Generate advances it
    TreeNode* root;              // null before the first Generate
    int segmentCount;            // cubes in the whole tree
    int depth;                   // as given to Generate
    int nodesUsed;               // at most PoolSize - 1
    std::vector<TreeNode> nodes; // the pool, PoolSize from construction to destruction

private:
    TreeNode* Grow(Vector3 start, Vector3 end, float startRadius, float endRadius, int generations,
                   bool isTrunk);
    Vector3 GrowSegments(TreeNode* node, Vector3 start, Vector3 end, float startRadius, float endRadius,
                         bool isTrunk);
    void AddNode(const TreeNode* node, float level);
    void AddCube(const Matrix4& segment, float scale);

    QuadBatch cubes;   // as they were last drawn
    float cubesGrowth; // at this growth, if there are any
};
