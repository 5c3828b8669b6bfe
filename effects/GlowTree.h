// SPDX-License-Identifier: MIT
// The tree of light on the plaza: a fixed cloud of points along randomly wandering, branching lines, dark
// until messages set stretches of it on fire. Neighbours in the list of nodes lie along one line.
//
// Building one seeds the process's random generator (math/Random.h), and Spark and Flash draw from it: the
// shape and the order of calls are part of the picture.
#pragma once

#include "math/QuadBatch.h"

#include <vector>

struct GlowNode {
    Vec3 position; // in the tree's frame, never changes
    float glow;    // brightness and size of the first sprite; no upper limit
    float flash;   // strength of the second sprite, which flies far out of the tree
    bool tip;      // on the last step of its line; nothing reads it
};

class GlowTree
{
public:
    // length: steps of the trunk, one unit each; branches: how many leave each fork. A tree of the seed 0x23456789 with
    // a length of 20 and 3 branches has 1864 nodes; one with a length of 1 or less has none.
    GlowTree(unsigned seed, int length, int branches);
    virtual ~GlowTree(); // the nodes stay until the process ends

    // Lets glow and flash of every node decay.
    virtual void Update();

    // Draws the sprites with the texture and under the transform of the caller. Leaves depth test, depth
    // writes and blending enabled, additive.
    void Draw();

    // The two kinds of ignition: 100 stretches of nine nodes glow; 50 stretches glow and fly. They need more
    // than ten nodes, and do nothing with fewer.
    void Spark();
    void Flash();

    std::vector<GlowNode*> nodes;

private:
    void Grow(const Vec3 position, const Vec3 direction, int length, int branches);
    void AddNode(const Vec3 last, const Vec3 current, float p, bool tip);
    unsigned ChooseStretch() const;
    void CollectGlows(const Vec3 right, const Vec3 up);
    void CollectFlashes(const Vec3 right, const Vec3 up);

    QuadBatch glows; // of one frame, both
    QuadBatch flashes;
};
