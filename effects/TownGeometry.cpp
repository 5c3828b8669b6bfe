// SPDX-License-Identifier: MIT
#include "effects/TownGeometry.h"

#include "math/Matrix16.h"
#include "math/QuadBatch.h"
#include "math/Vec3.h"
#include "resources/Texture.h"

#include <GL/glew.h>

#include <vector>

static const float shadowHeight = 0.1f;

static const float houseStep = 0.25f;
static const float boxStretch = 1.0f;

static const float patchInFront = 0.05f; // over the wall, all round
static const float patchLift = 0.01f;    // and once more in depth

static const float pillarStep = 0.35f;
static const float pillarBottom = 1.0f; // half widths
static const float pillarTop = 1.3f;
static const float pillarRadius = 7.0f;
static const float pillarAngle = 60.0f; // degrees from one to the next
static const float firstPillarAngle = 35.0f;
static const float pillarLean = 5.0f; // degrees
static const float pillarCurl = 10.0f;
static const float bendAngle = 40.0f; // degrees per unit of bend

// A house's own transform, after its translation.
enum Turn { Nothing, Scaled, Rotated }; // Scaled in x alone, Rotated about y

struct House {
    float x, z;
    Turn turn;
    float amount; // of the turn: factor or degrees
    bool back;    // stands in the back row, in mirrored light
    float height, bottomHalfWidth, topHalfWidth;
    float angleA, angleB, angleC;
};

// clang-format off
static const int houseCount = 9;
static const House houses[houseCount] = {
    //   x      z                            back   height  bottom  top      A      B      C
    {  0.0f, -4.0f, Nothing,   0.0f,  false,  5.0f,  1.0f, 2.0f,    2.5f,  15.0f,  0.0f},
    {  8.0f, -3.0f, Scaled,    2.0f,  false,  3.0f,  1.0f, 1.66f,   2.5f,  15.0f, -3.0f},
    { 18.0f, -3.0f, Rotated, -22.5f,  false,  3.0f,  1.0f, 1.3f,    0.0f,   5.0f,  0.0f},
    {  8.0f,  8.0f, Scaled,    1.0f,  true,   4.0f,  2.0f, 2.66f,   2.5f, -12.0f, -3.0f},
    { 22.0f,  6.0f, Nothing,   0.0f,  true,   5.0f,  1.0f, 2.0f,    2.5f, -15.0f,  0.0f},
    { 30.0f,  4.0f, Scaled,    2.0f,  true,   3.0f,  1.0f, 1.66f,   2.5f, -15.0f, -3.0f},
    { 36.0f,  2.0f, Rotated,  22.5f,  true,   3.0f,  1.0f, 1.3f,    0.0f,  -5.0f,  0.0f},
    { 30.0f, -4.0f, Scaled,    1.4f,  false,  3.0f,  1.0f, 1.66f,   6.5f,  15.0f, -3.0f},
    { 38.0f, -4.0f, Scaled,    1.0f,  false,  8.0f,  1.0f, 0.66f,  56.5f,  40.0f,  0.0f},
};

struct LightPatch {
    int house;         // from 1, as in the table above
    float start, length, aspect, shiftX;
    bool backFace;
};

static const LightPatch lightPatches[10] = {
    // house start  length aspect  shiftX  back
    {1,      3.5f,  1.0f,  0.5f,   0.25f,  false},
    {1,      1.75f, 1.0f,  0.5f,  -0.5f,   false},
    {2,      1.0f,  0.5f,  0.5f,   0.0f,   false},
    {3,      1.5f,  1.0f,  0.8f,   0.0f,   false},
    {4,      2.0f,  1.0f,  0.8f,   0.0f,   true },
    {5,      1.0f,  1.0f,  0.25f,  0.25f,  true },
    {6,      1.0f,  1.0f,  0.25f,  0.25f,  true },
    {7,      1.0f,  1.0f,  0.25f,  0.25f,  true },
    {8,      1.0f,  1.0f,  0.25f,  0.5f,   false},
    {8,      1.0f,  1.0f,  0.25f, -0.5f,   false},
};

struct Pillar {
    float height, angleA;
    bool leanBends; // whether the bend takes from the lean as well as from the curl
};

static const int pillarCount = 6;
static const Pillar pillars[pillarCount] = {
    {12.0f,  0.0f, false},
    { 8.0f,  2.0f, true },
    { 8.0f,  2.0f, false},
    {12.0f, -2.0f, true },
    {10.0f,  1.0f, false},
    {12.0f,  4.6f, true },
};

// The corners of a row of a twisted box: x and z in half widths.
static const float rowCorners[4][2] = {{-1, 1}, {-1, -1}, {1, -1}, {1, 1}};

// One face of a slab: its normal, and the s and the row's corner of each of its vertices. Vertices 0 and 1 belong to the
// lower row, 2 and 3 to the upper.
struct SlabFace {
    float normal[3];
    float s[4];
    int corners[4];
};

static const SlabFace slabFaces[4] = {
    {{-1, 0,  0}, {1.0f,  0.75f, 0.75f, 1.0f }, {0, 1, 1, 0}},
    {{ 0, 0,  1}, {0.75f, 0.5f,  0.5f,  0.75f}, {0, 3, 3, 0}},
    {{ 1, 0,  0}, {0.5f,  0.25f, 0.25f, 0.5f }, {3, 2, 2, 3}},
    {{ 0, 0, -1}, {0.25f, 0.0f,  0.0f,  0.25f}, {1, 2, 2, 1}},
};

struct RoofCorner {
    float s, t;
    int corner;
};
static const RoofCorner roof[4] = {{0.75f, 0.0f, 3}, {1.0f, 0.0f, 0}, {1.0f, 0.25f, 1}, {0.75f, 0.25f, 2}};
// clang-format on

// The shape of a twisted box: the arguments of DrawTwistedBox.
struct TwistedBox {
    float step, height, stretch, bottomHalfWidth, topHalfWidth, angleA, angleB, angleC;
};

// One row of a box, at the foot of a slab and at the top of the one below.
struct BoxRow {
    float texT;
    float corners[4][3];
    float normals[4][3]; // of the four faces
};

static float HalfWidthAt(const TwistedBox& box, float t)
{
    return box.topHalfWidth * t + (1 - t) * box.bottomHalfWidth;
}

static void RotationAt(const TwistedBox& box, float t, Matrix16 rotation)
{
    MatrixFromEuler(rotation, box.angleA * t, box.angleB * t, box.angleC * t, 0, 0, 0);
}

static void MakeRow(const TwistedBox& box, float y, BoxRow* row)
{
    const float t = y / (box.height * box.stretch);
    const float halfWidth = HalfWidthAt(box, t);
    Matrix16 rotation;
    RotationAt(box, t, rotation);
    row->texT = (1 - t) * 0.5f + 0.25f;
    for (int i = 0; i < 4; i++) {
        const Vec3 corner = {rowCorners[i][0] * halfWidth, y, rowCorners[i][1] * halfWidth};
        Vec3Transform(row->corners[i], corner, rotation);
        Vec3Transform(row->normals[i], slabFaces[i].normal, rotation);
    }
}

static void AddRowCorner(QuadBatch* batch, float s, float t, const float corner[3])
{
    batch->AddCorner(s, t, corner[0], corner[1], corner[2]);
}

static void AddTwistedBox(QuadBatch* batch, const TwistedBox& box)
{
    if (!(box.step > 0))
        return;
    const float length = box.height * box.stretch;
    BoxRow rows[2]; // the lower and the upper one of a slab
    MakeRow(box, 0, &rows[1]);
    for (float y = 0; y < length; y += box.step) {
        rows[0] = rows[1];
        MakeRow(box, y + box.step, &rows[1]);
        for (int face = 0; face < 4; face++)
            for (int i = 0; i < 4; i++) {
                const BoxRow& row = rows[i / 2];
                // The normals cross the rows, which gives each slab a slight sheen.
                batch->SetNormal(rows[i % 2].normals[face]);
                AddRowCorner(batch, slabFaces[face].s[i], row.texT, row.corners[slabFaces[face].corners[i]]);
            }
        if (y + box.step >= length) // the roof keeps the last normal
            for (const RoofCorner& corner : roof)
                AddRowCorner(batch, corner.s, corner.t, rows[1].corners[corner.corner]);
    }
}

void DrawTwistedBox(float step, float height, float stretch, float bottomHalfWidth, float topHalfWidth,
                    float angleA, float angleB, float angleC)
{
    QuadBatch batch(QuadBatch::Normals);
    AddTwistedBox(&batch, {step, height, stretch, bottomHalfWidth, topHalfWidth, angleA, angleB, angleC});
    batch.Draw();
}

// Adds the slabs of a window on a box.
static void AddLightPatch(QuadBatch* batch, const TwistedBox& box, const LightPatch& patch)
{
    if (!(box.step > 0))
        return;
    for (float y = patch.start; y < patch.start + patch.length; y += box.step) {
        const float level[2] = {y, y + box.step};
        float halfWidth[2], depth[2], texT[2];
        Matrix16 rotation[2];
        Vec3 normals[2];
        for (int row = 0; row < 2; row++) {
            const float t = level[row] / (box.height * box.stretch);
            RotationAt(box, t, rotation[row]);
            const float w = HalfWidthAt(box, t) + patchInFront;
            halfWidth[row] = w * patch.aspect;
            depth[row] = patch.backFace ? -(w + patchLift) : w + patchLift;
            texT[row] = 1 - (level[row] - patch.start) / patch.length;
            // This is the normal of the -x wall, although the patch hangs on a z wall.
            const Vec3 wallNormal = {-1, 0, 0};
            Vec3Transform(normals[row], wallNormal, rotation[row]);
        }
        for (int i = 0; i < 4; i++) {
            const int row = i / 2;
            const bool right = i == 1 || i == 2;
            Vec3 v = {right ? halfWidth[row] : -halfWidth[row], level[row], depth[row]};
            Vec3Transform(v, v, rotation[row]);
            v[0] += patch.shiftX;
            batch->SetNormal(normals[i % 2]);
            AddRowCorner(batch, right ? 0.0f : 1.0f, texT[row], v);
        }
    }
}

static void BeginPatches(bool lit, Texture* const* textures)
{
    if (lit)
        glDisable(GL_LIGHTING);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    BindTexture(textures[lit ? 0 : 1]);
    glColor4f(1, 1, 1, 1);
}

static void EndPatches(bool lit)
{
    glDisable(GL_BLEND);
    if (lit)
        glEnable(GL_LIGHTING);
}

void DrawLightPatch(float step, float height, float stretch, float bottomHalfWidth, float topHalfWidth,
                    float angleA, float angleB, float angleC, bool lit, float start, float length,
                    float aspect, float shiftX, Texture* const* textures, bool backFace)
{
    if (!(step > 0))
        return;
    QuadBatch batch(QuadBatch::Normals);
    AddLightPatch(&batch, {step, height, stretch, bottomHalfWidth, topHalfWidth, angleA, angleB, angleC},
                  {0, start, length, aspect, shiftX, backFace});
    BeginPatches(lit, textures);
    batch.Draw();
    EndPatches(lit);
}

static TwistedBox BoxOf(const House& house)
{
    return {houseStep,          house.height, boxStretch,   house.bottomHalfWidth,
            house.topHalfWidth, house.angleA, house.angleB, house.angleC};
}

static void PlaceHouse(const House& house)
{
    glTranslatef(house.x, 0, house.z);
    if (house.turn == Scaled)
        glScalef(house.amount, 1, 1);
    else if (house.turn == Rotated)
        glRotatef(house.amount, 0, 1, 0);
}

// The houses keep their matrices, so that their corners go through the same arithmetic as the ground's; the
// corners themselves never change and are worked out once.
void DrawHouses(const float* light)
{
    static std::vector<QuadBatch> boxes;
    if (boxes.empty())
        for (const House& house : houses) {
            boxes.emplace_back(QuadBatch::Normals);
            AddTwistedBox(&boxes.back(), BoxOf(house));
        }
    for (int i = 0; i < houseCount; i++) {
        const House& house = houses[i];
        glPushMatrix();
        {
            PlaceHouse(house);
            if (light) {
                const float side = house.back ? -1.0f : 1.0f; // the back row is in mirrored light
                const float own[3] = {side * light[0], light[1], side * light[2]};
                ApplyShadowMatrix(own, false);
            }
            boxes[size_t(i)].Draw();
        }
        glPopMatrix();
    }
}

void DrawLightPatches(Texture* const* textures)
{
    static std::vector<QuadBatch> windows; // of each house
    if (windows.empty()) {
        windows.resize(houseCount, QuadBatch(QuadBatch::Normals));
        for (const LightPatch& patch : lightPatches)
            AddLightPatch(&windows[size_t(patch.house - 1)], BoxOf(houses[patch.house - 1]), patch);
    }
    BeginPatches(true, textures);
    for (int i = 0; i < houseCount; i++) {
        if (windows[size_t(i)].IsEmpty())
            continue;
        glPushMatrix();
        {
            PlaceHouse(houses[i]);
            windows[size_t(i)].Draw();
        }
        glPopMatrix();
    }
    EndPatches(true);
}

void DrawPillarRing(const float* light, float x, float y, float z, float bend)
{
    static std::vector<QuadBatch> boxes(pillarCount, QuadBatch(QuadBatch::Normals));
    static float boxesBend;
    if (boxes[0].IsEmpty() || bend != boxesBend) {
        boxesBend = bend;
        for (int i = 0; i < pillarCount; i++) {
            const Pillar& pillar = pillars[i];
            const float angleB = pillar.leanBends ? pillarLean - bend * bendAngle : pillarLean;
            const float angleC = pillarCurl - bend * bendAngle;
            if (!boxes[size_t(i)].Begin())
                return;
            AddTwistedBox(&boxes[size_t(i)], {pillarStep, pillar.height, boxStretch, pillarBottom, pillarTop,
                                              pillar.angleA, angleB, angleC});
        }
    }
    glPushMatrix();
    {
        glTranslatef(x, y, z);
        for (int i = 0; i < pillarCount; i++) {
            glPushMatrix();
            {
                glRotatef(pillarAngle * i + firstPillarAngle, 0, 1, 0);
                glTranslatef(pillarRadius, 0, 0);
                if (light)
                    ApplyShadowMatrix(light, true);
                boxes[size_t(i)].Draw();
            }
            glPopMatrix();
        }
    }
    glPopMatrix();
}

void ApplyShadowMatrix(const float* light, bool pointLight)
{
    const float x = light[0];
    const float y = light[1];
    const float z = light[2];
    glTranslatef(0, shadowHeight, 0);
    // clang-format off
    if (pointLight) {
        // x with its sign and z with the opposite one are meant: the lean of the ring's shadows comes from them.
        const Matrix16 flatten = { y, 0,  0,  0,
                                   x, 0, -z, -1,
                                   0, 0,  y,  0,
                                   0, 0,  0,  y };
        glMultMatrixf(flatten);
    } else {
        const Matrix16 flatten = {  1,     0,  0,     0,
                                   -x / y, 0, -z / y, 0,
                                    0,     0,  1,     0,
                                    0,     0,  0,     1 };
        glMultMatrixf(flatten);
    }
    // clang-format on
}
