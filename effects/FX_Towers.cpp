// SPDX-License-Identifier: MIT
#include "effects/FX_Towers.h"

#include "effects/TownGeometry.h"
#include "kernel/FrameTimer.h"
#include "kernel/SynchMessageTable.h"
#include "math/Primitives.h"
#include "math/Scalar.h"
#include "resources/Texture.h"
#include "resources/TextureLoader.h"

#include <GL/glew.h>

#include <GL/glu.h>
#include <cmath>

static const float towersPi = 3.141f; // this effect's own figure

static const float firstDistance = 10.0f;
static const float approachRate = 1.5f; // 1/s
static const float flashDecay = 4.0f;

static const float orbitSpeed = 0.6f; // radians per second

static const float towerStep = 2.0f;
static const float towerStretch = 1.0f;
static const float towerBottom = 3.0f; // half widths
static const float towerTop = 8.0f;

struct Tower {
    float x, z, height, angleA, angleB, angleC;
};

struct SkyLayer {
    float scale;
    int turn; // quarter turns about y
};

struct Rotor {
    float x, y, z, phase;
};

struct BeamGroup {
    float height, firstPhase, secondPhase;
};

// clang-format off
static const Tower towers[4] = {
    //  x      z   height     A      B      C
    { 4.0f,  4.0f,  80.0f, 25.0f,  10.0f, -10.0f},
    {-4.0f,  4.0f,  90.0f,  4.0f,  10.0f,  10.0f},
    { 4.0f, -4.0f,  70.0f,  3.0f, -10.0f, -10.0f},
    {-4.0f, -4.0f,  80.0f,  0.0f, -10.0f,  10.0f},
};

static const SkyLayer outermostLayer = {1000, 0}; // blended by alpha; the others add light
static const SkyLayer innerLayers[5] = {
    { 800, 1},
    { 600, 2},
    { 400, 3},
    { 300, 1},
    { 200, 2},
};
static const float skyGrey = 0.75f;      // at full fade
static const float skyAlphaRate = 0.33f; // 1/s

// s, t     x      y     z
static const QuadCorner skyBackSide[4] = {
    {0, 0, -0.5f, 1.4f, -0.5f},
    {1, 0,  0.5f, 1.4f, -0.5f},
    {1, 1,  0.5f, 0.0f, -0.5f},
    {0, 1, -0.5f, 0.0f, -0.5f},
};
static const QuadCorner skyFrontSide[4] = {
    {1, 0, -0.5f, 1.4f,  0.5f},
    {0, 0,  0.5f, 1.4f,  0.5f},
    {0, 1,  0.5f, 0.0f,  0.5f},
    {1, 1, -0.5f, 0.0f,  0.5f},
};
static const QuadCorner skyLeftSide[4] = {
    {0, 0, -0.5f, 1.4f,  0.5f},
    {1, 0, -0.5f, 1.4f, -0.5f},
    {1, 1, -0.5f, 0.0f, -0.5f},
    {0, 1, -0.5f, 0.0f,  0.5f},
};
static const QuadCorner skyRightSide[4] = {
    {0, 0,  0.5f, 1.4f, -0.5f},
    {1, 0,  0.5f, 1.4f,  0.5f},
    {1, 1,  0.5f, 0.0f,  0.5f},
    {0, 1,  0.5f, 0.0f, -0.5f},
};

static const int discCount = 7;
static const float discGrowth = 1.2f; // from each to the next; the rotors come after the last
static const float discGrey = 0.4f;   // at full fade

// s, t     x   y    z
static const QuadCorner disc[4] = {
    {0, 0,  -50, 0,  50},
    {0, 1,   50, 0,  50},
    {1, 1,   50, 0, -50},
    {1, 0,  -50, 0, -50},
};

static const float rotorsScale = 1.5f; // of their places, on top of that of the last disc
static const float rotorScale = 10.0f; // of a rotor in its place
static const Rotor rotors[5] = {
    //  x       y      z   phase
    { 8.0f,  80.0f,  6.0f, 0.0f},
    {-8.0f,  90.0f, -4.0f, 1.0f},
    { 5.0f, 120.0f,  3.0f, 2.0f},
    { 0.0f, 100.0f,  0.0f, 3.0f},
    { 0.0f,  80.0f,  0.0f, 3.0f},
};

// Three blades on one axis, each turned further than the one before. The last corner of the second and the third lies
// on the other side of the plane, which shows as a kink in the light.
struct RotorBlade {
    float turnSpeed; // degrees per second
    QuadCorner corners[4];
};
static const RotorBlade rotorBlades[3] = {
    // turn     s, t     x   y    z
    { 30.0f, {{0, 0,  -10,  0,  10},
              {0, 1,   10,  0,  10},
              {1, 1,   10,  0, -10},
              {1, 0,  -10,  0, -10}}},
    { 40.0f, {{0, 0,  -15, -1,  15},
              {0, 1,   15, -1,  15},
              {1, 1,   15, -1, -15},
              {1, 0,  -15,  1, -15}}},
    {-60.0f, {{0, 0,  -19, -2,  19},
              {0, 1,   19, -2,  19},
              {1, 1,   19, -2, -19},
              {1, 0,  -19,  2, -19}}},
};

static const BeamGroup beamGroups[3] = {
    // height first  second phase
    {80.0f,   0.0f,  0.3f},
    {70.0f,   0.35f, 1.0f},
    {50.0f,   1.3f,  1.6f},
};
static const float beamGroupRise = 5.0f; // from a group's first beam to its second
static const QuadCorner beam[4] = {
    {0, 0,  -3, 0, -260},
    {0, 1,   3, 0, -260},
    {1, 1,   3, 0,  260},
    {1, 0,  -3, 0,  260},
};
static const QuadCorner crossBeam[4] = { // turned by 90 degrees about y
    {0, 0,  -260, 0,  3},
    {0, 1,  -260, 0, -3},
    {1, 1,   260, 0, -3},
    {1, 0,   260, 0,  3},
};
static const float beamThreshold = 0.7f; // of its flicker
static const float minBeamFlash = 0.1f;
// clang-format on

// What Init loads.
static const char* const textureNames[] = {"fasanenbude.jpg", "beam_1.png"};
static const char* const lightNames[] = {"spirograph.jpg", "skybox_tower_left.jpg", "skybox_tower_back.jpg",
                                         "skybox_tower_right.jpg", "skybox_tower_front.jpg"};
const EffectFiles FX_Towers::files = {.textures = textureNames, .lights = lightNames};

FX_Towers::FX_Towers()
    : distance(0), fade(0), flash(0), towerTexture(nullptr), spiroTexture(nullptr), towerList(0),
      skyLeft(nullptr), skyBack(nullptr), skyRight(nullptr), skyFront(nullptr), beamTexture(nullptr),
      msgFlashLine(0)
{
}

void FX_Towers::Init(GLWindow*, DemoPlayer*)
{
    const auto& [towerName, beamName] = textureNames;
    const auto& [spirograph, left, back, right, front] = lightNames;
    TextureLoader* textures = TextureLoader::GetInstance();
    if (textures) {
        towerTexture = textures->GetTexture(towerName, true, true, true);
        spiroTexture = textures->GetTexture(spirograph, true, true, true);
    }
    CompileTowers();
    if (textures) {
        skyLeft = textures->GetTexture(left, true, false, true);
        skyBack = textures->GetTexture(back, true, false, true);
        skyRight = textures->GetTexture(right, true, false, true);
        skyFront = textures->GetTexture(front, true, false, true);
        beamTexture = textures->GetTexture(beamName, true, true, true);
    }
    flash = 0;
    distance = firstDistance;
}

void FX_Towers::CompileTowers()
{
    towerList = glGenLists(1);
    glNewList(towerList, GL_COMPILE);
    {
        BindTexture(towerTexture);
        for (const Tower& tower : towers) {
            glPushMatrix();
            {
                glTranslatef(tower.x, 0, tower.z);
                DrawTwistedBox(towerStep, tower.height, towerStretch, towerBottom, towerTop, tower.angleA,
                               tower.angleB, tower.angleC);
            }
            glPopMatrix();
        }
    }
    glEndList();
}

void FX_Towers::DeclareMessages(SynchMessageTable* table)
{
    msgFlashLine = table->DeclareMessage("flash_line", this, "NA");
}

void FX_Towers::ReceiveMessage(int messageId, float*, int)
{
    if (messageId == msgFlashLine)
        flash = 1;
}

void FX_Towers::Update()
{
    const float delta = FrameTimer::GetDelta();
    flash -= flashDecay * delta * flash;
    distance -= approachRate * delta * distance;
    fade = 1 - distance / firstDistance;
}

void FX_Towers::Render()
{
    PlaceCamera();
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    DrawSkyLayer(outermostLayer.scale, outermostLayer.turn);
    glBlendFunc(GL_ONE, GL_ONE);
    for (const SkyLayer& layer : innerLayers)
        DrawSkyLayer(layer.scale, layer.turn);
    glDisable(GL_BLEND);

    CallGeometryList(towerList); // drawn in the grey that the sky has left, so that they fade in with it

    glDisable(GL_TEXTURE_2D);
    BindTexture(spiroTexture);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE);
    glDepthMask(GL_FALSE);
    glPushMatrix();
    {
        RenderDiscs();
        RenderRotors();
    }
    glPopMatrix();
    RenderBeams();
    glEnable(GL_TEXTURE_2D);
    glDepthMask(GL_TRUE);
    glDisable(GL_BLEND);
    // One pop too many: GL refuses it with a stack underflow, and nothing changes.
    glPopMatrix();
}

void FX_Towers::PlaceCamera() const
{
    const float u = localTime * orbitSpeed;
    const float eyeX = 80 * CosF(u) + 20 * distance;
    const float eyeY = 10 * SinF(u) + 20 + 1.5f * SinF(flash * towersPi * 5);
    const float eyeZ = 40 * SinF(u) + 30 * distance;
    gluLookAt(eyeX, eyeY, eyeZ, eyeX * (1 - fade), 65 - 6.5f * distance, 0, 0, 1, 0);
}

static void DrawSkySide(Texture* texture, float nx, float nz, const QuadCorner corners[4])
{
    BindTexture(texture);
    glNormal3f(nx, 0, nz);
    DrawQuad(corners);
}

// A layer is an open cube of four sides, without top and bottom. It does not follow the camera, which passes
// through its walls. Without the depth test no layer hides another.
void FX_Towers::DrawSkyLayer(float scale, int turn) const
{
    glPushMatrix();
    {
        glDisable(GL_DEPTH_TEST);
        glDepthMask(GL_FALSE);
        glDisable(GL_LIGHTING);
        glColor4f(skyGrey * fade, skyGrey * fade, skyGrey * fade, skyAlphaRate * localTime);
        if (turn > 0)
            glRotatef(90.0f * turn, 0, 1, 0);
        glScalef(scale, scale, scale);
        DrawSkySide(skyBack, 0, -1, skyBackSide);
        DrawSkySide(skyFront, 0, -1, skyFrontSide);
        DrawSkySide(skyLeft, -1, 0, skyLeftSide);
        DrawSkySide(skyRight, 1, 0, skyRightSide);
        UnbindTexture();
        glDepthMask(GL_TRUE);
        glEnable(GL_DEPTH_TEST);
    }
    glPopMatrix();
}

// Each disc is larger than the one before and turns faster. The scales accumulate, and apply to the rotors
// too.
void FX_Towers::RenderDiscs() const
{
    const float grey = discGrey * fade;
    glColor3f(grey, grey, grey);
    for (int i = 0; i < discCount; i++) {
        QuadCorner corners[4];
        for (int k = 0; k < 4; k++) {
            corners[k] = disc[k];
            corners[k].y = i / 8.0f;
        }
        glScalef(discGrowth, 1, discGrowth);
        glPushMatrix();
        {
            glRotatef(-localTime * (4 * i + 10) * 4, 0, 1, 0);
            DrawQuad(corners);
        }
        glPopMatrix();
    }
}

void FX_Towers::RenderRotors() const
{
    glScalef(rotorsScale, 1, rotorsScale);
    for (const Rotor& rotor : rotors) {
        glPushMatrix();
        {
            glTranslatef(rotor.x, rotor.y, rotor.z);
            glScalef(rotorScale, 1, rotorScale);
            const float c = 0.3f * SinF(2 * localTime + rotor.phase) + 0.7f;
            glColor3f(c * fade, c * fade, c * fade);
            for (const RotorBlade& blade : rotorBlades) {
                glRotatef(blade.turnSpeed * localTime, 0, 1, 0);
                DrawQuad(blade.corners);
            }
        }
        glPopMatrix();
    }
}

// The beams are drawn if any of them shines, and then leave blending disabled.
void FX_Towers::RenderBeams()
{
    glDisable(GL_TEXTURE_2D);
    beams.Begin();
    for (const BeamGroup& group : beamGroups) {
        AddBeam(beam, group.height, group.firstPhase);
        AddBeam(crossBeam, group.height + beamGroupRise, group.secondPhase);
    }
    if (beams.IsEmpty())
        return;
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    BindTexture(beamTexture);
    glColor4f(1, 1, 1, 1 - 0.3f * SinF(flash * towersPi));
    beams.Draw();
    glDisable(GL_BLEND);
}

// A beam flickers at its own moments while the flash decays.
void FX_Towers::AddBeam(const QuadCorner corners[4], float height, float phase)
{
    const float v = std::fabs(SinF(flash * towersPi * 3 + phase));
    if (v < beamThreshold || flash < minBeamFlash)
        return;
    for (int i = 0; i < 4; i++)
        beams.AddCorner(corners[i].s, corners[i].t, corners[i].x, height, corners[i].z);
}
