// SPDX-License-Identifier: MIT
#include "effects/GlowTree.h"

#include "kernel/FrameTimer.h"
#include "math/Matrix16.h"
#include "math/Primitives.h"
#include "math/Random.h"
#include "math/Scalar.h"

#include <GL/glew.h>

static const float glowTreePi = 3.141f; // this module's own figure

static const int wanderSteps = 200; // of the direction at each step: -0.1 to 0.1
static const float wanderCentre = 0.1f;
static const int forkSteps = 2000; // of a branch's direction: -1 to 1
static const float forkCentre = 1.0f;
static const float stepDivisor = 1000.0f;
static const int forkEvery = 5;

static const float glowDecay = 1.0f; // 1/s
static const float flashDecay = 2.0f;

static const int stretch = 10;     // nodes are chosen from this index on
static const int stretchNodes = 9; // of which so many catch fire
static const int sparkStretches = 100;
static const float sparkGlow = 4.0f;
static const int flashStretches = 50;
static const float flashGlow = 2.0f;
static const float rampLength = 100.0f; // nodes of half a period of the sine; a stretch has nine

static const float glowSize = 4.0f; // of a sprite, half a side per unit of glow
static const float flashSize = 12.0f;
static const float minFlash = 0.1f; // below it no flying sprite is drawn

GlowTree::GlowTree(unsigned seed, int length, int branches) : glows(QuadBatch::Colours)
{
    SeedRandom(seed);
    const Vec3 root = {0, 0, 0};
    const Vec3 up = {0, 1, 0};
    Grow(root, up, length, branches);
}

GlowTree::~GlowTree() {}

void GlowTree::Grow(const Vec3 position, const Vec3 direction, int length, int branches)
{
    if (length <= 1)
        return;
    Vec3 current, last, dir;
    Vec3Copy(current, position);
    Vec3Copy(dir, direction);
    for (int i = 0; i < length; i++) {
        const float wanderZ = Random() % wanderSteps / stepDivisor - wanderCentre;
        const float wanderX = Random() % wanderSteps / stepDivisor - wanderCentre;
        const Vec3 wander = {wanderX, 0, wanderZ};
        Vec3Add(dir, dir, wander);
        Vec3Normalize(dir, dir);
        Vec3Copy(last, current);
        Vec3Add(current, current, dir);

        const bool tip = i == length - 1;
        if ((i % forkEvery == 0 && i > 1) || tip)
            for (int b = 0; b < branches; b++) {
                const float forkZ = Random() % forkSteps / stepDivisor - forkCentre;
                const float forkY = Random() % forkSteps / stepDivisor - forkCentre;
                const float forkX = Random() % forkSteps / stepDivisor - forkCentre;
                Vec3 child = {forkX, forkY, forkZ};
                Vec3Add(child, dir, child);
                Vec3Normalize(child, child);
                Grow(current, child, length / 2, branches);
            }

        // The nodes of this step follow those of its branches in the list.
        AddNode(last, current, 0.0f, tip);
        AddNode(last, current, 0.5f, tip);
    }
}

void GlowTree::AddNode(const Vec3 last, const Vec3 current, float p, bool tip)
{
    GlowNode* node = new GlowNode;
    Vec3Lerp(node->position, last, current, p);
    node->glow = 0;
    node->flash = 0;
    node->tip = tip;
    nodes.push_back(node);
}

void GlowTree::Update()
{
    const float delta = FrameTimer::GetDelta();
    for (GlowNode* node : nodes) {
        node->glow -= delta * glowDecay * node->glow;
        node->flash -= delta * flashDecay * node->flash;
    }
}

// Draws the index of the first node of a stretch from the random sequence.
unsigned GlowTree::ChooseStretch() const
{
    return unsigned(Random()) % unsigned(nodes.size() - stretch);
}

// The glow along a stretch. The sine only rises from 0 to about 0.25 there, so that the stretch gets brighter
// towards one end and its first node stays dark.
static float Ramp(int k)
{
    return SinF(k / rampLength * glowTreePi);
}

void GlowTree::Spark()
{
    if (nodes.size() <= size_t(stretch))
        return;
    for (int i = 0; i < sparkStretches; i++) {
        const unsigned first = ChooseStretch();
        for (int k = 0; k < stretchNodes; k++)
            nodes[first + k]->glow += sparkGlow * Ramp(k);
    }
}

void GlowTree::Flash()
{
    if (nodes.size() <= size_t(stretch))
        return;
    for (int i = 0; i < flashStretches; i++) {
        const unsigned first = ChooseStretch();
        for (int k = 0; k < stretchNodes; k++) {
            nodes[first + k]->glow += flashGlow * Ramp(k);
            nodes[first + k]->flash = 1;
        }
    }
}

void GlowTree::Draw()
{
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE);
    glEnable(GL_DEPTH_TEST);
    glDepthMask(GL_FALSE);

    // The axes of the billboards contain the scale of the modelview matrix.
    Vec3 right, up;
    GetBillboardAxes(right, up);
    CollectGlows(right, up);
    glows.Draw();
    CollectFlashes(right, up);
    glColor3f(1, 1, 1);
    flashes.Draw();
    glDepthMask(GL_TRUE);
}

void GlowTree::CollectGlows(const Vec3 right, const Vec3 up)
{
    if (!glows.Begin())
        return;
    for (const GlowNode* node : nodes) {
        if (!(node->glow > 0))
            continue;
        glows.SetColour(node->glow, node->glow, node->glow);
        glows.AddBillboard(node->position, right, up, node->glow * glowSize);
    }
}

// A flash throws the node far out of the tree; as it decays, the node spins back in.
void GlowTree::CollectFlashes(const Vec3 right, const Vec3 up)
{
    if (!flashes.Begin())
        return;
    for (const GlowNode* node : nodes) {
        const float flash = node->flash;
        if (!(flash > minFlash))
            continue;
        Vec3 q = {(3 * flash + 2) * node->position[0], (1 + flash) * node->position[1],
                  (3 * flash + 2) * node->position[2]};
        Matrix16 turn;
        MatrixFromEuler(turn, flash * 360 + FrameTimer::GetTime() * 20, 0, 0, 0, 0, 0);
        Vec3Transform(q, q, turn);
        flashes.AddBillboard(q, right, up, flash * flashSize);
    }
}
