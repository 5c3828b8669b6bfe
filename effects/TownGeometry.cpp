// SPDX-License-Identifier: MIT
#include "effects/TownGeometry.h"

#include "math/Matrix16.h"
#include "math/Vec3.h"
#include "resources/Texture.h"

#include <GL/glew.h>

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
static const House houses[9] = {
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
    bool samePush;     // stays within the matrix push of the patch before
};

static const LightPatch lightPatches[10] = {
    // house start  length aspect  shiftX  back   same push
    {1,      3.5f,  1.0f,  0.5f,   0.25f,  false, false},
    {1,      1.75f, 1.0f,  0.5f,  -0.5f,   false, true },
    {2,      1.0f,  0.5f,  0.5f,   0.0f,   false, false},
    {3,      1.5f,  1.0f,  0.8f,   0.0f,   false, false},
    {4,      2.0f,  1.0f,  0.8f,   0.0f,   true,  false},
    {5,      1.0f,  1.0f,  0.25f,  0.25f,  true,  false},
    {6,      1.0f,  1.0f,  0.25f,  0.25f,  true,  false},
    {7,      1.0f,  1.0f,  0.25f,  0.25f,  true,  false},
    {8,      1.0f,  1.0f,  0.25f,  0.5f,   false, false},
    {8,      1.0f,  1.0f,  0.25f, -0.5f,   false, false},
};

struct Pillar {
    float height, angleA;
    bool leanBends; // whether the bend takes from the lean as well as from the curl
};

static const Pillar pillars[6] = {
    {12.0f,  0.0f, false},
    { 8.0f,  2.0f, true },
    { 8.0f,  2.0f, false},
    {12.0f, -2.0f, true },
    {10.0f,  1.0f, false},
    {12.0f,  4.6f, true },
};

// One face of a slab: its normal, the s of vertices 0 to 3, and the corners of the unit square (x, z) at which its
// vertices stand. 0 and 1 are the lower row, 2 and 3 the upper.
struct SlabFace {
    float normal[3];
    float s[4];
    float corners[4][2];
};

static const SlabFace slabFaces[4] = {
    {{-1, 0,  0}, {1.0f,  0.75f, 0.75f, 1.0f }, {{-1,  1}, {-1, -1}, {-1, -1}, {-1,  1}}},
    {{ 0, 0,  1}, {0.75f, 0.5f,  0.5f,  0.75f}, {{-1,  1}, { 1,  1}, { 1,  1}, {-1,  1}}},
    {{ 1, 0,  0}, {0.5f,  0.25f, 0.25f, 0.5f }, {{ 1,  1}, { 1, -1}, { 1, -1}, { 1,  1}}},
    {{ 0, 0, -1}, {0.25f, 0.0f,  0.0f,  0.25f}, {{-1, -1}, { 1, -1}, { 1, -1}, {-1, -1}}},
};

//                                    s      t        x   z of the unit square
static const float roof[4][4] = { {0.75f, 0.0f,     1,  1},
                                  {1.0f,  0.0f,    -1,  1},
                                  {1.0f,  0.25f,   -1, -1},
                                  {0.75f, 0.25f,    1, -1} };
// clang-format on

static void SendVertex(float x, float y, float z, const Matrix16 rotation)
{
    Vec3 v = {x, y, z};
    Vec3Transform(v, v, rotation);
    glVertex3fv(v);
}

void DrawTwistedBox(float step, float height, float stretch, float bottomHalfWidth, float topHalfWidth,
                    float angleA, float angleB, float angleC)
{
    if (!(step > 0))
        return;
    const float length = height * stretch;
    glPushMatrix();
    {
        for (float y = 0; y < length; y += step) {
            const float t[2] = {y / length, (y + step) / length};
            const float level[2] = {y, y + step};
            float halfWidth[2], texT[2];
            Matrix16 rotation[2];
            for (int row = 0; row < 2; row++) {
                MatrixFromEuler(rotation[row], angleA * t[row], angleB * t[row], angleC * t[row], 0, 0, 0);
                halfWidth[row] = topHalfWidth * t[row] + (1 - t[row]) * bottomHalfWidth;
                texT[row] = (1 - t[row]) * 0.5f + 0.25f;
            }

            glBegin(GL_QUADS);
            {
                for (const SlabFace& face : slabFaces) {
                    Vec3 normals[2];
                    for (int row = 0; row < 2; row++)
                        Vec3Transform(normals[row], face.normal, rotation[row]);
                    for (int i = 0; i < 4; i++) {
                        const int row = i / 2;
                        const float w = halfWidth[row];
                        glNormal3fv(normals[i % 2]); // crosses the rows: a slight sheen across each slab
                        glTexCoord2f(face.s[i], texT[row]);
                        SendVertex(face.corners[i][0] * w, level[row], face.corners[i][1] * w, rotation[row]);
                    }
                }
            }
            glEnd();

            if (y + step >= length) {
                glBegin(GL_QUADS);
                {
                    for (const float* corner : roof) {
                        glTexCoord2f(corner[0], corner[1]);
                        SendVertex(corner[2] * halfWidth[1], level[1], corner[3] * halfWidth[1], rotation[1]);
                    }
                }
                glEnd();
            }
        }
    }
    glPopMatrix();
}

void DrawLightPatch(float step, float height, float stretch, float bottomHalfWidth, float topHalfWidth,
                    float angleA, float angleB, float angleC, bool lit, float start, float length,
                    float aspect, float shiftX, Texture* const* textures, bool backFace)
{
    if (!(step > 0))
        return;
    const float boxLength = height * stretch;
    glPushMatrix();
    {
        if (lit)
            glDisable(GL_LIGHTING);
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        BindTexture(textures[lit ? 0 : 1]);
        glColor4f(1, 1, 1, 1);
        for (float y = start; y < start + length; y += step) {
            const float level[2] = {y, y + step};
            float halfWidth[2], depth[2], texT[2];
            Matrix16 rotation[2];
            Vec3 normals[2];
            for (int row = 0; row < 2; row++) {
                const float t = level[row] / boxLength;
                MatrixFromEuler(rotation[row], angleA * t, angleB * t, angleC * t, 0, 0, 0);
                const float w = topHalfWidth * t + (1 - t) * bottomHalfWidth + patchInFront;
                halfWidth[row] = w * aspect;
                depth[row] = backFace ? -(w + patchLift) : w + patchLift;
                texT[row] = 1 - (level[row] - start) / length;
                const Vec3 wallNormal = {-1, 0, 0}; // that of the -x wall, though the patch hangs on a z wall
                Vec3Transform(normals[row], wallNormal, rotation[row]);
            }
            glBegin(GL_QUADS);
            {
                for (int i = 0; i < 4; i++) {
                    const int row = i / 2;
                    const bool right = i == 1 || i == 2;
                    Vec3 v = {right ? halfWidth[row] : -halfWidth[row], level[row], depth[row]};
                    Vec3Transform(v, v, rotation[row]);
                    glNormal3fv(normals[i % 2]);
                    glTexCoord2f(right ? 0.0f : 1.0f, texT[row]);
                    glVertex3f(v[0] + shiftX, v[1], v[2]);
                }
            }
            glEnd();
        }
    }
    glPopMatrix();
    glDisable(GL_BLEND);
    if (lit)
        glEnable(GL_LIGHTING);
}

static void PlaceHouse(const House& house)
{
    glTranslatef(house.x, 0, house.z);
    if (house.turn == Scaled)
        glScalef(house.amount, 1, 1);
    else if (house.turn == Rotated)
        glRotatef(house.amount, 0, 1, 0);
}

void DrawHouses(const float* light)
{
    float mirrored[4] = {0, 0, 0, 0};
    if (light) {
        mirrored[0] = -light[0];
        mirrored[1] = light[1];
        mirrored[2] = -light[2];
        mirrored[3] = light[3];
    }
    for (const House& house : houses) {
        glPushMatrix();
        {
            PlaceHouse(house);
            if (light)
                ApplyShadowMatrix(house.back ? mirrored : light, false);
            DrawTwistedBox(houseStep, house.height, boxStretch, house.bottomHalfWidth, house.topHalfWidth,
                           house.angleA, house.angleB, house.angleC);
        }
        glPopMatrix();
    }
}

void DrawLightPatches(Texture* const* textures)
{
    const int count = sizeof lightPatches / sizeof lightPatches[0];
    for (int i = 0; i < count; i++) {
        const LightPatch& patch = lightPatches[i];
        const House& house = houses[patch.house - 1];
        if (!patch.samePush) {
            glPushMatrix();
            PlaceHouse(house);
        }
        DrawLightPatch(houseStep, house.height, boxStretch, house.bottomHalfWidth, house.topHalfWidth,
                       house.angleA, house.angleB, house.angleC, true, patch.start, patch.length,
                       patch.aspect, patch.shiftX, textures, patch.backFace);
        if (i + 1 == count || !lightPatches[i + 1].samePush)
            glPopMatrix();
    }
}

void DrawPillarRing(const float* light, float x, float y, float z, float bend)
{
    glPushMatrix();
    {
        glTranslatef(x, y, z);
        for (int i = 0; i < 6; i++) {
            const Pillar& pillar = pillars[i];
            glPushMatrix();
            {
                glRotatef(pillarAngle * i + firstPillarAngle, 0, 1, 0);
                glTranslatef(pillarRadius, 0, 0);
                if (light)
                    ApplyShadowMatrix(light, true);
                const float angleB = pillar.leanBends ? pillarLean - bend * bendAngle : pillarLean;
                const float angleC = pillarCurl - bend * bendAngle;
                DrawTwistedBox(pillarStep, pillar.height, boxStretch, pillarBottom, pillarTop, pillar.angleA,
                               angleB, angleC);
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
        // x with a plus, z with a minus: the ring's shadows lean as they do because of it.
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
