// SPDX-License-Identifier: MIT
#include "effects/FX_VerticalScroller.h"

#include "kernel/FrameTimer.h"
#include "kernel/SynchMessageTable.h"
#include "math/FlatScreen.h"
#include "math/Primitives.h"
#include "resources/Texture.h"
#include "resources/TextureLoader.h"

#include <GL/glew.h>

static const float riseSpeed = 0.3f; // units per second
static const float brakeRate = 5.0f; // 1/s
static const float columnScale = 0.5f;
static const float pageHeight = 4.0f; // in the scaled frame: two screens

// What Init loads.
static const char* const textureNames[] = {"abspanner_1.png", "abspanner_2.png", "abspanner_3.png"};
const EffectFiles FX_VerticalScroller::files = {.textures = textureNames};

FX_VerticalScroller::FX_VerticalScroller() : msgStopScroll(0), scrolling(false), scroll(0), speed(0) {}

void FX_VerticalScroller::Init(GLWindow*, DemoPlayer*)
{
    if (TextureLoader* textures = TextureLoader::GetInstance())
        for (const char* name : textureNames)
            pages.push_back(textures->GetTexture(name, true, true, true));
    scrolling = true;
    scroll = 0;
    speed = 1;
}

void FX_VerticalScroller::DeclareMessages(SynchMessageTable* table)
{
    msgStopScroll = table->DeclareMessage("stopScroll", this, "stop scrolling");
}

void FX_VerticalScroller::ReceiveMessage(int messageId, float*, int)
{
    if (messageId == msgStopScroll)
        scrolling = false;
}

void FX_VerticalScroller::Update()
{
    const float delta = FrameTimer::GetDelta();
    if (!scrolling)
        speed -= brakeRate * delta * speed;
    scroll += riseSpeed * delta * speed;
}

void FX_VerticalScroller::Render()
{
    {
        FlatScreen screen;
        glLoadIdentity();
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);

        // The translation is in the scaled frame, so that the column begins a quarter of the screen from the
        // left.
        glScalef(columnScale, columnScale, columnScale);
        glTranslatef(1 - columnScale, scroll - pageHeight, -1);
        for (Texture* page : pages) {
            BindTexture(page);
            glColor4f(1, 1, 1, 1);
            DrawRectangle(0, 0, 1, pageHeight);
            glTranslatef(0, -pageHeight, 0); // the next page hangs below
        }
        glDisable(GL_BLEND);
    }
    glLoadIdentity();
}
