// SPDX-License-Identifier: MIT
#include "effects/FX_FlashHand.h"

#include "kernel/FrameTimer.h"
#include "kernel/SynchMessageTable.h"
#include "math/FlatScreen.h"
#include "math/Primitives.h"
#include "resources/Texture.h"
#include "resources/TextureLoader.h"

#include <GL/glew.h>

#include <algorithm>

static const float fallSpeed = 0.2f; // of flash, 1/s: linear, not a decay
static const float darkest = 0.001f; // below it nothing is drawn

// How far the photograph stands over its frame: it shrinks fast from here, and comes to rest inside.
static const float firstOverhang = 0.2f;
static const float shrinkSpeed = 4.0f; // per unit of flash
static const float restInside = 0.05f;

// The frame, in units of the screen: higher than it, with strips at the sides.
static const float frameLeft = 0.1f;
static const float frameRight = 0.9f;
static const float frameBottom = -0.1f;
static const float frameTop = 1.1f;

// What Init loads.
static const char* const textureNames[] = {"foto.png"};
static const char* const shaderNames[] = {"standard_projection", "postprocessing_blur"};
const EffectFiles FX_FlashHand::files = {.textures = textureNames, .shaders = shaderNames};

FX_FlashHand::FX_FlashHand() : photoTexture(nullptr), msgFlash(0), flash(0) {}

void FX_FlashHand::Init(GLWindow*, DemoPlayer*)
{
    const auto& [photo] = textureNames;
    const auto& [vertex, fragment] = shaderNames;
    if (TextureLoader* textures = TextureLoader::GetInstance())
        photoTexture = textures->GetTexture(photo, true, true, true);
    blurShader.Load(vertex, fragment);
    blurIntensity.Init(&blurShader, "blur_intensity", 1);
    flash = 0;
}

void FX_FlashHand::DeclareMessages(SynchMessageTable* table)
{
    msgFlash = table->DeclareMessage("flash", this, "NA");
}

void FX_FlashHand::ReceiveMessage(int messageId, float*, int)
{
    if (messageId == msgFlash)
        flash = 1;
}

void FX_FlashHand::Update()
{
    flash -= fallSpeed * FrameTimer::GetDelta();
}

void FX_FlashHand::Render()
{
    if (flash < darkest)
        return;
    {
        FlatScreen screen;
        glLoadIdentity();
        glTranslatef(0, 0, -1);
        UnbindTexture();
        glDisable(GL_DEPTH_TEST);
        glDepthMask(GL_FALSE);
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);

        BindTexture(photoTexture);
        glColor4f(1, 1, 1, flash);
        DrawPhoto();

        const float b = 1 - flash;
        blurShader.Enable();
        blurIntensity.Set(&b);
        glColor4f(1, 1, 1, 2 * b * flash);
        DrawPhoto();
        blurShader.Disable();

        glDisable(GL_BLEND);
        glDepthMask(GL_TRUE);
        glEnable(GL_DEPTH_TEST);
    }
    glLoadIdentity();
    glDisable(GL_BLEND);
}

void FX_FlashHand::DrawPhoto() const
{
    const float o = std::max(firstOverhang - shrinkSpeed * (1 - flash), 0.0f) - restInside;
    DrawRectangle(frameLeft - o, frameBottom - o, frameRight + o, frameTop + o);
}
