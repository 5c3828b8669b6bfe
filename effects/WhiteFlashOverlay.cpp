// SPDX-License-Identifier: MIT
#include "effects/WhiteFlashOverlay.h"

#include "resources/TextureLoader.h"

#include <GL/glew.h>

static const float peak = 0.9f; // the flash is not fully white

void WhiteFlashOverlay::Init(GLWindow* newWindow, DemoPlayer* newPlayer)
{
    TextureLoader::GetInstance(); // nothing is loaded, but a wrong image library is reported here too
    Attach(newWindow, newPlayer);
}

void WhiteFlashOverlay::DeclareMessages(SynchMessageTable* table)
{
    flash.Declare(table, this, "screen fades from white to transparent. PARAM 0: fading speed");
}

void WhiteFlashOverlay::ReceiveMessage(int messageId, float* params, int paramCount)
{
    flash.Receive(messageId, params, paramCount);
}

void WhiteFlashOverlay::Update()
{
    flash.Update();
}

void WhiteFlashOverlay::Render()
{
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    {
        glLoadIdentity();
        ScreenFlash::Place(flash.value * peak);
        glDisable(GL_TEXTURE_2D);
        ScreenFlash::Draw(GL_ONE, GL_ONE);
    }
    glPopMatrix();
}
