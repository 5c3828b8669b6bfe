// SPDX-License-Identifier: MIT
#include "effects/FX_Path.h"

#include "display/GLWindow.h"
#include "effects/GlowTree.h"
#include "effects/TownGeometry.h"
#include "kernel/FrameTimer.h"
#include "kernel/SynchMessageTable.h"
#include "math/FlatScreen.h"
#include "math/Primitives.h"
#include "math/Scalar.h"
#include "resources/Texture.h"
#include "resources/TextureLoader.h"

#include <GL/glew.h>

#include <GL/glu.h>
#include <algorithm>

static const float pathPi = 3.141f; // this effect's own figure

static const unsigned treeSeed = 0x23456789;
static const int treeLength = 20;
static const int treeBranches = 3;

static const float plazaX = 64.0f;

// Rates, 1/s.
static const float stripFadeRate = 2.0f;
static const float walkBrake = 0.5f;
static const float edgeFadeRate = 1.0f;
static const float pulseDecay = 4.0f;
static const float fadesDecay = 2.0f;

static const float walkRate = 0.075f; // texture units per second
static const float worldPerUnit = 50.0f;

static const float smallPulse = 0.5f;
static const float bigPulse = 2.0f;
static const float zoomDrop = -5.0f;
static const float zoomClimb = 2.0f;

static const float walkFovY = 70.0f;  // degrees
static const float lightFovY = 45.0f; // of the tree and the rings

static const float stripHalf = 4.0f;  // half its width
static const float headLength = 4.0f; // of its soft end, world units
static const float headUnits = 0.1f;  // and in texture units

// clang-format off
static const float sunLight[4]         = { 5, 10, 10, 0};      // a direction
static const float lampColour[4]       = { 1,  1, 0.4f, 0};    // yellow, above the plaza
static const float lampPlace[4]        = {plazaX, 10, 0, 1};
static const float pillarShadowLight[4] = {plazaX, 40, 0, 1};

// s, t     x    y   z
static const QuadCorner fieldQuad[4] = {
    {1, 0,  -40, 0,  20},
    {1, 7,   60, 0,  20},
    {0, 7,   60, 0, -20},
    {0, 0,  -40, 0, -20},
};
static const QuadCorner plazaQuad[4] = { // about the plaza's middle
    {0, 0,  -30, 0,  30},
    {1, 0,   30, 0,  30},
    {1, 1,   30, 0, -30},
    {0, 1,  -30, 0, -30},
};

static const float skyScale = 500.0f;
struct SkyFace {
    float normal[3];
    QuadCorner corners[4];
};
//                                 normal        s, t    x      y      z
static const SkyFace skyBackFace  = {{ 0, 0, -1}, {{0, 0, -0.5f, 0.55f, -0.5f},
                                                   {1, 0,  0.5f, 0.55f, -0.5f},
                                                   {1, 1,  0.5f, 0.0f,  -0.5f},
                                                   {0, 1, -0.5f, 0.0f,  -0.5f}}};
static const SkyFace skyLeftFace  = {{-1, 0,  0}, {{0, 0, -0.5f, 0.55f,  0.5f},
                                                   {1, 0, -0.5f, 0.55f, -0.5f},
                                                   {1, 1, -0.5f, 0.0f,  -0.5f},
                                                   {0, 1, -0.5f, 0.0f,   0.5f}}};
static const SkyFace skyRightFace = {{ 1, 0,  0}, {{0, 0,  0.5f, 0.55f, -0.5f},
                                                   {1, 0,  0.5f, 0.55f,  0.5f},
                                                   {1, 1,  0.5f, 0.0f,   0.5f},
                                                   {0, 1,  0.5f, 0.0f,  -0.5f}}};
static const SkyFace skyTopFace   = {{ 1, 0,  0}, {{0, 0, -0.5f, 0.55f, -0.5f},
                                                   {1, 0,  0.5f, 0.55f, -0.5f},
                                                   {1, 1,  0.5f, 0.55f,  0.5f},
                                                   {0, 1, -0.5f, 0.55f,  0.5f}}};

// The camera of the walk. `lift` is 0 in the walk and goes to 1 as it slows down.
struct WalkCamera {
    float eyeX,    eyeXByLift;    // from the strip's head
    float eyeY,    eyeYByLift;
    float targetX, targetXByLift; // from the strip's head
    float sway,    swaySpeed;     // of the target along x; radians per second
};
static const WalkCamera walkCamera = {
    -20.0f, 10.0f,
      1.4f, 10.0f,
    -14.0f, 20.0f,
      2.0f,  0.75f,
};
static const float gazeHeight    =  1.7f; // of the target, once edgeFade is gone
static const float gazeShake     =  4.0f; // radians per unit of pulse
static const float climbDivisor  =  5.5f; // of zoom
static const float maxClimb      = 10.0f; // of the target

// The orbit round the plaza, one turn in 2 pi seconds.
struct OrbitCamera {
    float x, y, z; // middle
    float radius;
    float bob;     // up and down with the turn
    float shake;   // radians per unit of pulse
};
static const OrbitCamera orbitCamera = {plazaX, 6, 10, 20, 5, 8};
static const int hitsToOrbit = 2;

static const int   hitsToRings      =  6;
static const float ringTurn         = 40.0f; // degrees per unit of pulse
static const float outerRingSize    =  2.0f;
static const float innerRingSize    =  2.0f; // on average, without pulse
// clang-format on

// What Init loads.
static const char* const textureNames[] = {
    "budentextur.jpg",     "licht-an.png",    "licht-aus.png",   "teststreifen.png", "ackerbau_tiled3.jpg",
    "ackerbau_tiled2.jpg", "skybox_left.jpg", "skybox_back.jpg", "skybox_right.jpg", "skybox_top.jpg"};
static const char* const lightNames[] = {"partikel_2.jpg", "ring.jpg"};
const EffectFiles FX_Path::files = {.textures = textureNames, .lights = lightNames};

// What belongs to the walk is set here and not in Init, so that a further Init lets the walk continue.
FX_Path::FX_Path()
    : tree(nullptr), zoomTarget(0), zoom(0), pulse(0), treeHits(0), triggered(false), walkSpeed(1),
      stripFade(0), walked(0), edgeFade(0), stripHead(QuadBatch::Colours),
      houseTexture(nullptr), lightTextures{}, stripTexture(nullptr), sparkTexture(nullptr),
      fieldTexture(nullptr), plazaTexture(nullptr), skyLeft(nullptr), skyBack(nullptr), skyRight(nullptr),
      skyTop(nullptr), ringTexture(nullptr), fades{}, msgTree1(0), msgTree2(0), msgTree3(0), msgFlashCam(0),
      msgFlashAll(0), msgTriggerCam(0)
{
}

FX_Path::~FX_Path()
{
    delete tree;
}

void FX_Path::Init(GLWindow*, DemoPlayer*)
{
    const auto& [house, lightOn, lightOff, strip, field, plaza, left, back, right, top] = textureNames;
    const auto& [spark, ring] = lightNames;
    if (TextureLoader* textures = TextureLoader::GetInstance()) {
        houseTexture = textures->GetTexture(house, true, true, true);
        lightTextures[0] = textures->GetTexture(lightOn, true, true, true);
        lightTextures[1] = textures->GetTexture(lightOff, true, true, true);
        stripTexture = textures->GetTexture(strip, true, true, true);
        sparkTexture = textures->GetTexture(spark, true, true, true);
        fieldTexture = textures->GetTexture(field, true, true, true);
        plazaTexture = textures->GetTexture(plaza, true, true, true);
        skyLeft = textures->GetTexture(left, true, false, true);
        skyBack = textures->GetTexture(back, true, false, true);
        skyRight = textures->GetTexture(right, true, false, true);
        skyTop = textures->GetTexture(top, true, false, true);
        ringTexture = textures->GetTexture(ring, true, true, true);
    }
    stripFade = 1;
    tree = new GlowTree(treeSeed, treeLength, treeBranches); // reseeds the process's random numbers
    pulse = 0;
    edgeFade = 1;
    treeHits = 0;
    for (float& fade : fades)
        fade = 0;
}

void FX_Path::DeclareMessages(SynchMessageTable* table)
{
    msgFlashAll = table->DeclareMessage("flash_all", this, "NA");
    msgTree1 = table->DeclareMessage("tree1", this, "NA");
    msgTree2 = table->DeclareMessage("tree2", this, "NA");
    msgTree3 = table->DeclareMessage("tree3", this, "NA");
    msgTriggerCam = table->DeclareMessage("trigger_cam", this, "NA");
    msgFlashCam = table->DeclareMessage("flash_cam", this, "NA");
}

void FX_Path::ReceiveMessage(int messageId, float*, int)
{
    if (messageId == msgTree1 && triggered)
        TakeTree1();
    if (messageId == msgTree2 && triggered) {
        treeHits++;
        tree->Spark();
        tree->Flash();
        tree->Flash();
        pulse = bigPulse;
    }
    if (messageId == msgTree3 && triggered) {
        zoom = zoomDrop;
        zoomTarget = zoomClimb;
    }
    if (messageId == msgTriggerCam)
        triggered = true;
}

void FX_Path::TakeTree1()
{
    treeHits++;
    if (treeHits % 3 != 0) {
        tree->Spark();
        tree->Flash();
        pulse = smallPulse;
    }
    if (treeHits == 3) {
        tree->Spark();
        tree->Flash();
        pulse = bigPulse;
    }
    tree->Spark(); // at the hits 6, 9, ... this is all that happens
}

void FX_Path::Update()
{
    const float delta = FrameTimer::GetDelta();
    stripFade -= delta * stripFadeRate * stripFade;
    if (triggered)
        walkSpeed -= delta * walkBrake * walkSpeed;
    edgeFade -= delta * edgeFadeRate * edgeFade;
    pulse -= delta * pulseDecay * pulse;
    for (float& fade : fades)
        fade -= delta * fadesDecay * fade;
    if (triggered)
        tree->Update();
    zoom += delta * (zoomTarget - zoom);
}

void FX_Path::Render()
{
    RenderPrelude();
    walked += FrameTimer::GetDelta() * walkRate * walkSpeed; // belongs to Render, not to Update
    PlaceCamera();
    GLWindow::SetPerspective(walkFovY);
    DrawSkybox();
    RenderField();
    RenderHouses();
    RenderPillars();
    RenderPlaza();
    RenderShadows();
    RenderStrip();
    GLWindow::SetPerspective(lightFovY);
    if (triggered)
        RenderTree();
}

// Draws nothing. It leaves behind: blending disabled, depth test and writes enabled, texturing enabled with
// nothing bound, the identity as the modelview matrix.
void FX_Path::RenderPrelude() const
{
    {
        FlatScreen screen;
        glLoadIdentity();
        glTranslatef(0, 0, -1);
        UnbindTexture();
        glDisable(GL_DEPTH_TEST);
        glDepthMask(GL_FALSE);
        glDisable(GL_BLEND);
        glDepthMask(GL_TRUE);
        glEnable(GL_DEPTH_TEST);
    }
    glLoadIdentity();
}

void FX_Path::PlaceCamera() const
{
    const WalkCamera& walk = walkCamera;
    const float t = localTime;
    const float head = walked * worldPerUnit;
    const float lift = 1 - SinF(walkSpeed * pathPi / 2);
    const float climb = std::min(zoom / climbDivisor, maxClimb);

    // Behind the strip's head, rising and closing in as the walk slows down.
    float eyeX = head + walk.eyeX + lift * walk.eyeXByLift;
    float eyeY = lift * walk.eyeYByLift + walk.eyeY;
    float eyeZ = 0;
    if (treeHits >= hitsToOrbit) {
        const OrbitCamera& orbit = orbitCamera;
        eyeX = orbit.radius * CosF(t) + orbit.x;
        eyeY = orbit.bob * CosF(t) + orbit.y + CosF(orbit.shake * pulse);
        eyeZ = orbit.radius * SinF(t) + orbit.z;
    }
    const float targetX =
        head + walk.targetX + lift * walk.targetXByLift + walk.sway * SinF(walk.swaySpeed * t);
    const float targetY = (1 - edgeFade) * gazeHeight + climb + SinF(gazeShake * pulse);
    gluLookAt(eyeX, eyeY, eyeZ, targetX, targetY, 0, 0, 1, 0);
}

static void DrawSkyFace(const SkyFace& face, Texture* texture)
{
    BindTexture(texture);
    glNormal3fv(face.normal);
    DrawQuad(face.corners);
}

// The skybox has neither front nor floor. It stands at the world's origin and does not follow the camera.
void FX_Path::DrawSkybox() const
{
    glPushMatrix();
    {
        glDisable(GL_LIGHTING);
        glDisable(GL_DEPTH_TEST);
        glDepthMask(GL_FALSE);
        glColor3f(1, 1, 1);
        glScalef(skyScale, skyScale, skyScale);
        glRotatef(-90, 0, 1, 0);
        DrawSkyFace(skyBackFace, skyBack);
        DrawSkyFace(skyLeftFace, skyLeft);
        DrawSkyFace(skyRightFace, skyRight);
        DrawSkyFace(skyTopFace, skyTop);
        UnbindTexture();
        glDepthMask(GL_TRUE);
        glEnable(GL_DEPTH_TEST);
    }
    glPopMatrix();
}

// Drawn without depth writes, so that the strip and the shadows are not hidden by it, and in the white that
// the skybox has left.
void FX_Path::RenderField() const
{
    glDisable(GL_TEXTURE_2D);
    glEnable(GL_DEPTH_TEST);
    glPushMatrix();
    {
        glDepthMask(GL_FALSE);
        BindTexture(fieldTexture);
        DrawQuad(fieldQuad);
        glDepthMask(GL_TRUE);
        glColor3f(0, 0, 0);
        UnbindTexture();
    }
    glPopMatrix();
}

void FX_Path::RenderHouses() const
{
    BindTexture(houseTexture);
    glLightfv(GL_LIGHT0, GL_POSITION, sunLight);
    glEnable(GL_LIGHT0);
    glEnable(GL_LIGHTING);
    glEnable(GL_NORMALIZE);
    glEnable(GL_DEPTH_TEST);
    glShadeModel(GL_SMOOTH);
    glColor3f(1, 1, 1);
    DrawHouses(nullptr);
    BindTexture(lightTextures[0]);
    DrawLightPatches(lightTextures);
}

void FX_Path::RenderPillars() const
{
    glDisable(GL_LIGHT0);
    glLightfv(GL_LIGHT1, GL_DIFFUSE, lampColour);
    glLightfv(GL_LIGHT1, GL_POSITION, lampPlace);
    glEnable(GL_LIGHT1);
    BindTexture(houseTexture);
    glColor3f(1, 1, 1);
    DrawPillarRing(nullptr, plazaX, 0, 0, pulse);
    glDisable(GL_LIGHTING);
    glDisable(GL_LIGHT1);
}

void FX_Path::RenderPlaza() const
{
    glPushMatrix();
    {
        glDepthMask(GL_FALSE);
        glTranslatef(plazaX, 0, 0);
        BindTexture(plazaTexture);
        DrawQuad(plazaQuad);
        glDepthMask(GL_TRUE);
        glColor3f(0, 0, 0);
        UnbindTexture();
    }
    glPopMatrix();
}

// The shadows are opaque black: RenderPlaza has left this colour and no texture.
void FX_Path::RenderShadows() const
{
    DrawHouses(sunLight);
    DrawPillarRing(pillarShadowLight, plazaX, 0, 0, pulse);
}

void FX_Path::RenderStrip()
{
    const float h = walked * worldPerUnit;
    const float alpha = 1 - stripFade;
    glColor3f(0, 0, 0);
    BindTexture(stripTexture);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glColor4f(1, 1, 1, alpha);
    // The texture coordinate grows with the head, so that the strip lies still and only its end moves.
    // clang-format off
    const QuadCorner body[4] = {{0,      0,  0, 0, -stripHalf},
                                {walked, 0,  h, 0, -stripHalf},
                                {walked, 1,  h, 0,  stripHalf},
                                {0,      1,  0, 0,  stripHalf}};
    const QuadCorner tail[4] = {{0, 0,  -worldPerUnit, 0, -stripHalf},
                                {1, 0,              0, 0, -stripHalf},
                                {1, 1,              0, 0,  stripHalf},
                                {0, 1,  -worldPerUnit, 0,  stripHalf}};
    // clang-format on
    DrawQuad(body);
    DrawQuad(tail);

    glDisable(GL_COLOR_MATERIAL);
    stripHead.Begin();
    stripHead.SetColour(1, 1, 1, alpha);
    stripHead.AddCorner(walked, 0, h, 0, -stripHalf);
    stripHead.SetColour(1, 1, 1, 0);
    stripHead.AddCorner(walked + headUnits, 0, h + headLength, 0, -stripHalf);
    stripHead.AddCorner(walked + headUnits, 1, h + headLength, 0, stripHalf);
    // The alpha starts at -1, unlike that of the opposite corner, so that the head appears askew.
    stripHead.SetColour(1, 1, 1, 1 - 2 * edgeFade);
    stripHead.AddCorner(walked, 1, h, 0, stripHalf);
    stripHead.Draw();
    glDisable(GL_BLEND);
    UnbindTexture();
}

void FX_Path::RenderTree() const
{
    glPushMatrix();
    {
        glTranslatef(plazaX, 0, 0);
        BindTexture(sparkTexture);
        glScalef(0.5f, 0.5f, 0.5f);
        tree->Draw();
        if (treeHits >= hitsToRings)
            RenderRings();
        UnbindTexture();
    }
    glPopMatrix();
}

// The rings stand at distance 1 from the eye, whatever the scale of the world. Their brightness is the pulse.
void FX_Path::RenderRings() const
{
    const float t = localTime;
    const float angle = pulse * ringTurn + t; // degrees
    BindTexture(ringTexture);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE);
    glLoadIdentity();
    glTranslatef(0, 0, -1);
    glDepthMask(GL_FALSE);
    glColor3f(pulse, pulse, pulse);
    glPushMatrix();
    {
        glRotatef(angle, 0, 0, 1);
        DrawCentredRectangle(outerRingSize, outerRingSize);
    }
    glPopMatrix();
    glRotatef(angle, 0, 0, 1);
    const float size = SinF(t + treeHits) + innerRingSize - pulse;
    DrawCentredRectangle(size, size);
    glDepthMask(GL_TRUE);
    glDisable(GL_BLEND);
}
