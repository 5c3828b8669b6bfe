// SPDX-License-Identifier: MIT
#include "effects/FX_Footprint.h"

#include "display/GLWindow.h"
#include "kernel/FrameTimer.h"
#include "kernel/SynchMessageTable.h"
#include "math/Primitives.h"
#include "math/Scalar.h"
#include "resources/Texture.h"
#include "resources/TextureLoader.h"

#include <GL/glew.h>

#include <GL/glu.h>

static const float stepAhead = 4.0f; // of the look-at point
static const float stepPush = 2.0f;
static const float walkSpeed = 5.0f; // units per second at a push of 1
static const float pushDecay = 1.6f; // 1/s
static const float printRise = 4.0f; // of alpha, 1/s

static const float fovY = 45.0f;   // degrees
static const float eyeBack = 3.0f; // of the look-at point, along x
static const float eyeHeight = 3.0f;
static const float eyeAside = 3.0f;      // along z
static const float circleDivisor = 4.0f; // the eye circles once per 8 pi units of walk
static const float tilt = 0.25f;         // of the up vector, at a push of 1

static const float sandFade = 0.25f; // of alpha, 1/s
static const int sandTiles = 40;
static const float tileHalf = 15.0f;
static const float tileStep = 30.0f;
static const float horizon = -500.0f; // z where the far band ends

static const float printHalf = 2.0f;   // half the length of a print, which is twice as long as wide
static const float printAside = -3.0f; // z of the odd prints
static const float printTurn = 30.0f;  // degrees, inward
static const float glowFactor = 10.0f;
static const float minGlow = 0.1f; // below it no glow is drawn

// The distance walked before the first Init. It puts the mark that Init adds far out of sight. That mark is
// still number 0, so that the first step is an odd mark.
static const float unsetWalk = -4.0e8f;

// What Init loads.
static const char* const textureNames[] = {"footprint.png", "sandbau.jpg"};
static const char* const lightNames[] = {"footprint_white.jpg"};
static const char* const shaderNames[] = {"standard_projection", "postprocessing_blur"};
const EffectFiles FX_Footprint::files = {
    .textures = textureNames, .lights = lightNames, .shaders = shaderNames};

FX_Footprint::FX_Footprint()
    : walked(unsetWalk), printTexture(nullptr), sandTexture(nullptr), glowTexture(nullptr), hideSand(false),
      push(0), msgTriggerBase(0), msgStep(0)
{
}

void FX_Footprint::Init(GLWindow*, DemoPlayer*)
{
    const auto& [printName, sandName] = textureNames;
    const auto& [glow] = lightNames;
    const auto& [vertex, fragment] = shaderNames;
    if (TextureLoader* textures = TextureLoader::GetInstance()) {
        printTexture = textures->GetTexture(printName, true, true, true);
        sandTexture = textures->GetTexture(sandName, true, true, true);
        glowTexture = textures->GetTexture(glow, true, true, true);
    }
    blurShader.Load(vertex, fragment);
    blurIntensity.Init(&blurShader, "blur_intensity", 1);

    AddMark(); // before `walked` is reset, on purpose: see unsetWalk
    push = 0;
    walked = 0;
    hideSand = false;
}

void FX_Footprint::AddMark()
{
    marks.push_back({walked + stepAhead, 0});
}

void FX_Footprint::DeclareMessages(SynchMessageTable* table)
{
    msgStep = table->DeclareMessage("step", this, "NA");
    msgTriggerBase = table->DeclareMessage("trigger_base", this, "NA");
}

void FX_Footprint::ReceiveMessage(int messageId, float*, int)
{
    if (messageId == msgTriggerBase)
        hideSand = !hideSand;
    if (messageId == msgStep) {
        AddMark();
        push = stepPush;
    }
}

void FX_Footprint::Update()
{
    const float delta = FrameTimer::GetDelta();
    for (FootprintMark& mark : marks)
        if (mark.alpha < 1)
            mark.alpha += (1 - mark.alpha) * delta * printRise;
    walked += delta * walkSpeed * push;
    push -= delta * pushDecay * push;
}

void FX_Footprint::Render()
{
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glDisable(GL_DEPTH_TEST);
    glDepthMask(GL_FALSE);
    GLWindow::SetPerspective(fovY);
    gluLookAt(eyeBack - walked + SinF(walked / circleDivisor), eyeHeight,
              CosF(walked / circleDivisor) + eyeAside, -walked, 0, 0, //
              SinF(localTime) * push * tilt, 1, 0);

    if (!hideSand)
        RenderSand();
    BindTexture(printTexture);
    for (size_t i = 0; i < marks.size(); i++)
        RenderMark(marks[i], i % 2 != 0);

    glDepthMask(GL_TRUE);
    glEnable(GL_DEPTH_TEST);
}

void FX_Footprint::RenderSand()
{
    // The blue grows through the first second and the alpha through the first four; GL limits both to 1.
    glColor4f(1, 1, localTime, localTime * sandFade);
    BindTexture(sandTexture);
    if (sand.IsEmpty())
        LayOutSand();
    sand.Draw();
}

void FX_Footprint::LayOutSand()
{
    for (int i = 0; i < sandTiles; i++) {
        const float a = -tileHalf - tileStep * i;
        const float b = tileHalf - tileStep * i;
        sand.AddCorner(0, 0, a, 0, -tileHalf);
        sand.AddCorner(0, 2, b, 0, -tileHalf);
        sand.AddCorner(1, 2, b, 0, tileHalf);
        sand.AddCorner(1, 0, a, 0, tileHalf);

        // From the tile to the horizon the sand is a single texel, so that no pattern repeats there.
        sand.AddCorner(0, 0, a, 0, horizon);
        sand.AddCorner(0, 0, b, 0, horizon);
        sand.AddCorner(0, 0, b, 0, -tileHalf);
        sand.AddCorner(0, 0, a, 0, -tileHalf);
    }
}

static void DrawPrint(float half, bool odd)
{
    // The picture shows one foot. An odd print is mirrored in t and so shows the other.
    const float far = odd ? 1.0f : 0.0f;
    const float near = 1 - far;
    const QuadCorner corners[4] = {
        {0, far, -half, 0, -half / 2},
        {1, far, half, 0, -half / 2},
        {1, near, half, 0, half / 2},
        {0, near, -half, 0, half / 2},
    };
    DrawQuad(corners);
}

void FX_Footprint::RenderMark(const FootprintMark& mark, bool odd) const
{
    glPushMatrix();
    {
        glTranslatef(-mark.x, 0, 0);
        glTranslatef(0, 0, odd ? printAside : 0);
        glRotatef(odd ? -printTurn : printTurn, 0, 1, 0);
        glColor4f(1, 1, 1, mark.alpha);
        BindTexture(printTexture);
        DrawPrint(printHalf, odd);

        const float g = (1 - mark.alpha) * glowFactor;
        if (g > minGlow) {
            glBlendFunc(GL_ONE, GL_ONE);
            BindTexture(glowTexture);
            glColor3f(g, g, g);
            DrawPrint(g < printHalf ? printHalf : g, odd);
            glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        }
    }
    glPopMatrix();
}
