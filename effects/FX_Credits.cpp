// SPDX-License-Identifier: MIT
#include "effects/FX_Credits.h"

#include "display/GLWindow.h"
#include "display/RenderTarget.h"
#include "effects/TownGeometry.h"
#include "kernel/FrameTimer.h"
#include "kernel/SynchMessageTable.h"
#include "math/FlatScreen.h"
#include "math/Primitives.h"
#include "math/Scalar.h"
#include "math/Tree.h"
#include "resources/Texture.h"
#include "resources/TextureLoader.h"

#include <GL/glew.h>

#include <GL/glu.h>
#include <algorithm>

static const float creditsPi = 3.141f; // this effect's own figure

static const int firstTreeSeed = 352362122;
// Wider than the trunk is long, so that the trunk has no cube and only its children show.
static const float treeRadius = 1.2f;
static const int minDepth = 2;
static const int maxDepth = 4;

static const float growthPerMessage = 0.6f;
static const float newTreeTarget = 0.6f;
static const float brightnessRate = 7.0f; // 1/s

static const int lastStep = FX_Credits::stepCount - 1;
static const int stepsPerTree = 2; // the first brings a name, the second the next tree and its camera
static const int cameraCount = FX_Credits::stepCount / stepsPerTree;
static const int lastName = FX_Credits::nameCount - 1;

static const int pictureSize = 512; // pixels, of the off-screen scene
static const float fovY = 45.0f;    // degrees
static const float groundBrightness = 1.5f;

static const float nameAlpha = 2.0f; // at the middle of a name's life, clamped to 1 by GL

static const float restingBlur = 0.25f; // at a growth of 1, and for the last camera
static const int lastBlurredStep = (cameraCount - 1) * stepsPerTree - 1;

// clang-format off
static const QuadCorner groundCorners[4] = {
    // s, t     x      y      z
    {  0, 0,   -20, -0.01f, -20 },
    {  1, 0,    20, -0.01f, -20 },
    {  1, 1,    20, -0.01f,  20 },
    {  0, 1,   -20, -0.01f,  20 },
};
// clang-format on

struct CreditPlace {
    float moveX, moveY; // first,
    float scale;        // then this,
    float left, bottom, right, top;
};

// What Init loads.
static const char* const textureNames[] = {"stoned.jpg",         "credit-fen_tarogato.png",
                                           "credit-ochre.png",   "credit-dunmarrow.png",
                                           "credit-lowbeam.png", "ackerbau_tiled2_2.jpg"};
static const char* const shaderNames[] = {"standard_projection", "postprocessing_blur"};
const EffectFiles FX_Credits::files = {.textures = textureNames, .shaders = shaderNames};

// clang-format off
static const CreditPlace creditPlaces[FX_Credits::nameCount] = {
    // move        scale    left    bottom  right top
    {0.4f, 0.2f,   0.6f,   -0.05f,  0.12f,  1.6f, 0.3f },   // ends beyond the right edge of the screen
    {0.1f, 0.0f,   1.0f,    0.3f,   0.6f,   0.9f, 0.75f},
    {0.0f, 0.0f,   1.0f,    0.1f,   0.15f,  0.7f, 0.3f },
    {0.0f, 0.0f,   1.0f,    0.1f,   0.75f,  0.7f, 0.9f },
};
// clang-format on

FX_Credits::FX_Credits()
    : growth(0.5f), growthTarget(0.5f), wither(1), brightness(0), step(-1), creditIndex(-1), creditFade(0),
      tree(nullptr), treeGrowth(0), treeSeed(firstTreeSeed), growthRate(0), witherRate(0),
      brightnessTarget(0), groundTexture(nullptr), creditTextures{}, treeTexture(nullptr), fadeInId(0),
      fadeLastInId(0), fadeOutId(0), creditWindow(nullptr)
{
}

FX_Credits::~FX_Credits()
{
    delete tree;
}

void FX_Credits::Init(GLWindow* newWindow, DemoPlayer*)
{
    creditWindow = newWindow;
    treeSeed = firstTreeSeed;
    tree = new Tree(treeSeed);
    PlantTree();
    const auto& [vertex, fragment] = shaderNames;
    blurShader.Load(vertex, fragment);
    blurIntensity.Init(&blurShader, "blur_intensity", 1);
    if (TextureLoader* textures = TextureLoader::GetInstance()) {
        const auto& [bark, tarogato, ochre, dunmarrow, lowbeam, field] = textureNames;
        treeTexture = textures->GetTexture(bark, true, true, true);
        creditTextures[0] = textures->GetTexture(tarogato, true, true, true);
        creditTextures[1] = textures->GetTexture(ochre, true, true, true);
        creditTextures[2] = textures->GetTexture(dunmarrow, true, true, true);
        creditTextures[3] = textures->GetTexture(lowbeam, true, true, true);
        groundTexture = textures->GetTexture(field, true, true, true);
    }
}

void FX_Credits::DeclareMessages(SynchMessageTable* table)
{
    fadeInId = table->DeclareMessage("fade_in", this, "NA");
    fadeLastInId = table->DeclareMessage("fade_last_in", this, "NA");
    fadeOutId = table->DeclareMessage("fade_out", this, "NA");
}

void FX_Credits::ReceiveMessage(int messageId, float*, int)
{
    if (messageId == fadeInId)
        FadeIn(false);
    if (messageId == fadeLastInId)
        FadeIn(true);
    if (messageId == fadeOutId) {
        witherRate = 1;
        wither = 1;
        brightnessTarget = 0;
    }
}

void FX_Credits::Update()
{
    const float delta = FrameTimer::GetDelta();
    growth += delta * (growthTarget - growth) * growthRate;
    wither -= delta * wither * witherRate;
    treeGrowth = growth * wither;
    brightness += delta * (brightnessTarget - brightness) * brightnessRate;
    creditFade -= delta * creditFade;
}

void FX_Credits::Render()
{
    RenderScene();
    RenderBlurredPicture();
    if (creditIndex == nameCount)
        creditIndex = lastName;
    RenderName();
}

void FX_Credits::PlantTree()
{
    const int depth = std::min(step / stepsPerTree + minDepth, maxDepth);
    tree->Generate(treeSeed, Vector3(0, 0, 0), Vector3(0, 1, 0), treeRadius, treeRadius, depth);
}

void FX_Credits::FadeIn(bool limited)
{
    growthTarget += growthPerMessage;
    if (!limited || step < lastStep)
        step++;
    growthRate = 1;
    wither = 1;
    witherRate = 0;
    brightnessTarget = 1;
    if (step > 0 && step % stepsPerTree != 0 && (!limited || creditIndex < lastName)) {
        creditIndex++;
        creditFade = 1;
    }
    if (step > 0 && step % stepsPerTree == 0) {
        growthTarget = newTreeTarget;
        growth = 0;
        PlantTree();
        treeSeed++; // for the next tree
        treeGrowth = 0;
    }
}

// The growth is used as an angle in radians, so that the camera moves and comes to rest with the tree.
void FX_Credits::ChooseCamera(Vector3* eye, Vector3* target) const
{
    const float v = growth;
    const float w = wither;
    // clang-format off
    const Vector3 cameras[cameraCount][2] = {
        {Vector3(2, 5, -8),                                         Vector3(0, 1, 0)},
        {Vector3(6 * CosF(v) + 10, 4 * SinF(v) + 5, 10),            Vector3(0, 0, -10)},
        {Vector3(15 * CosF(v), 15 - 10 * SinF(v), -12),             Vector3(0, 1 - 3 * SinF(v * 0.5f * creditsPi), 0)},
        {Vector3(-15 * CosF(v + 1.51f), 5 * v + 5, -12),            Vector3(0, (1 - w) * 10 + 4, 0)},
    };
    // clang-format on
    const int index =
        std::clamp(step / stepsPerTree, 0, cameraCount - 1); // further steps stay with the last camera
    *eye = cameras[index][0];
    *target = cameras[index][1];
}

void FX_Credits::RenderScene()
{
    Vector3 eye, target;
    ChooseCamera(&eye, &target);
    RenderTarget::Begin();
    RenderTarget::SetProjection(pictureSize, pictureSize, fovY);
    glDisable(GL_DEPTH_TEST);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    creditWindow->SetPerspective(fovY); // has the aspect 1.33, although the picture is square
    Vector3 light(0, 7, 10);
    light.Normalize();
    gluLookAt(eye.x, eye.y, eye.z, target.x, target.y, target.z, 0, 1, 0);
    RenderGround();
    RenderLitTree(light);
    RenderShadow(light);
    RenderTarget::End();
}

// Drawn without depth, so that the flat shadow is not hidden by it.
void FX_Credits::RenderGround() const
{
    BindTexture(groundTexture);
    const float b = brightness * groundBrightness;
    glColor3f(b, b, b);
    DrawQuad(groundCorners);
}

void FX_Credits::RenderLitTree(const Vector3& light) const
{
    const float direction[4] = {light.x, light.y, light.z, 0};
    glLightfv(GL_LIGHT0, GL_POSITION, direction);
    glEnable(GL_LIGHT0);
    glEnable(GL_LIGHTING);
    glEnable(GL_COLOR_MATERIAL);
    glColorMaterial(GL_FRONT_AND_BACK, GL_DIFFUSE);
    glEnable(GL_NORMALIZE);
    glEnable(GL_DEPTH_TEST);
    glColor3f(1, 1, 1);
    BindTexture(treeTexture);
    tree->Draw(treeGrowth);
    UnbindTexture();
    glDisable(GL_LIGHT0);
    glDisable(GL_LIGHTING);
}

void FX_Credits::RenderShadow(const Vector3& light) const
{
    const float direction[3] = {light.x, light.y, light.z};
    glPushMatrix();
    {
        ApplyShadowMatrix(direction, false);
        glColor3f(0, 0, 0);
        tree->Draw(treeGrowth);
    }
    glPopMatrix();
}

void FX_Credits::RenderBlurredPicture()
{
    blurShader.Enable();
    RenderTarget::BindTexture();
    const float blur = step > lastBlurredStep ? restingBlur : growth - 1 + restingBlur;
    blurIntensity.Set(&blur);

    {
        FlatScreen screen;
        glDisable(GL_DEPTH_TEST);
        glColor3f(1, 1, 1);
        DrawRectangle(0, 1, 1, 0); // row 0 of a rendered picture is its lowest
    }
    RenderTarget::ReleaseTexture();
    blurShader.Disable();
}

static void DrawName(const CreditPlace& place)
{
    glPushMatrix();
    {
        if (place.moveX != 0 || place.moveY != 0)
            glTranslatef(place.moveX, place.moveY, 0);
        if (place.scale != 1)
            glScalef(place.scale, place.scale, 1);
        DrawRectangle(place.left, place.bottom, place.right, place.top);
    }
    glPopMatrix();
}

void FX_Credits::RenderName()
{
    const int n = creditIndex % nameCount;
    {
        FlatScreen screen;
        glDisable(GL_DEPTH_TEST);
        glColor3f(1, 1, 1);
        BindTexture(n >= 0 ? creditTextures[n] : nullptr);
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        // The alpha is above 1 in the middle of a name's life. GL clamps it, so that the name holds steady.
        glColor4f(1, 1, 1, nameAlpha * SinF(creditFade * creditsPi));
        if (creditIndex >= 0 && creditIndex <= lastName)
            DrawName(creditPlaces[n]);
        glDisable(GL_BLEND);
    }
    glDisable(GL_BLEND);
}
