// SPDX-License-Identifier: MIT
#include "effects/FS_Image.h"

#include "display/GLWindow.h"
#include "kernel/FrameTimer.h"
#include "kernel/SynchMessageTable.h"
#include "math/FlatScreen.h"
#include "math/Primitives.h"
#include "resources/ShaderParams.h"
#include "resources/ShaderProgram.h"
#include "resources/Texture.h"
#include "resources/TextureLoader.h"

#include <GL/glew.h>

static const float zoomSpeed = 0.02f;     // of localTime, squared: 0.04 after 10 s, 0.36 after 30 s
static const float pictureHeight = 0.75f; // of the texture
static const float wholeWindow = 1.0f;
static const float fadeSpeed = 0.5f; // of "delta", 1/s

// What Init loads.
static const char* const textureNames[] = {"ochre_painting1.jpg", "glowmask.jpg"};
static const char* const programPaths[] = {"data/glowmask.vp", "data/glowmask.fp"};
const EffectFiles FS_Image::files = {.textures = textureNames, .programs = programPaths};

FS_Image::FS_Image(std::string newImageName)
    : imageTexture(nullptr), imageName(newImageName), flashId(0), fadeId(0), flashValue(0), flashSpeed(0),
      glowShader(nullptr), sampler0Uniform(nullptr), sampler1Uniform(nullptr), deltaUniform(nullptr),
      glowMaskTexture(nullptr), fading(false), fadeValue(0)
{
}

void FS_Image::Init(GLWindow* newWindow, DemoPlayer* newPlayer)
{
    const auto& [painting, glowMask] = textureNames; // the painting is the caller's imageName
    const auto& [vertex, fragment] = programPaths;
    if (TextureLoader* textures = TextureLoader::GetInstance()) {
        imageTexture = textures->GetTexture(imageName, false, false, true);
        glowMaskTexture = textures->GetTexture(glowMask, true, true, true);
    }
    glowShader = ShaderProgram::Load(vertex, fragment);
    sampler0Uniform = new ShaderSampler(glowShader, "sampler0");
    sampler1Uniform = new ShaderSampler(glowShader, "sampler1");
    deltaUniform = new ShaderFloatParam(glowShader, "delta");
    fadeValue = 0;
    fading = false;
    Attach(newWindow, newPlayer);
}

void FS_Image::DeclareMessages(SynchMessageTable* table)
{
    flashId =
        table->DeclareMessage("flash", this, "screen fades from black to transparent. PARAM 0: fading speed");
    fadeId = table->DeclareMessage("fade", this, "NA");
}

void FS_Image::ReceiveMessage(int messageId, float* params, int paramCount)
{
    if (messageId == flashId) {
        flashValue = 1;
        if (paramCount > 0)
            flashSpeed = params[0];
    }
    if (messageId == fadeId) {
        fading = true;
        fadeValue = 0;
    }
}

void FS_Image::Update()
{
    const float delta = FrameTimer::GetDelta();
    flashValue -= delta * flashValue * flashSpeed;
    if (fading)
        fadeValue += delta * fadeSpeed;
}

void FS_Image::Render()
{
    {
        FlatScreen screen;
        glLoadIdentity();
        window->SetLetterbox(wholeWindow);
        glTranslatef(0, 0, -1);

        BindProgram(glowShader);
        sampler0Uniform->Set(0);
        sampler1Uniform->Set(1);
        deltaUniform->Set(&fadeValue, 1);

        UnbindTexture();
        glDisable(GL_DEPTH_TEST);
        glDepthMask(GL_FALSE);
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        glActiveTexture(GL_TEXTURE0);
        BindTexture(imageTexture);
        glActiveTexture(GL_TEXTURE1);
        BindTexture(glowMaskTexture);
        glColor4f(1, 1, 1, 1);
        DrawPicture();

        UnbindProgram();
        glDisable(GL_BLEND);
        glDepthMask(GL_TRUE);
        glEnable(GL_DEPTH_TEST);
    }
    glLoadIdentity();
    glDisable(GL_BLEND);
    UnbindTexture();
    glActiveTexture(GL_TEXTURE0);
    UnbindTexture();
}

// The zoom enlarges the quad, whose edges move out of the window; the texture coordinates stay the same.
void FS_Image::DrawPicture() const
{
    const float z = localTime * zoomSpeed * (localTime * zoomSpeed);
    DrawRectangle(-z, -z, 1 + z, 1 + z, pictureHeight);
}
