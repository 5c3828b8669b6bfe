// SPDX-License-Identifier: MIT
#include "effects/BlackFlashOverlay.h"

#include "resources/TextureLoader.h"

#include <GL/glew.h>

void BlackFlashOverlay::Init(GLWindow* newWindow, DemoPlayer* newPlayer)
{
    TextureLoader::GetInstance(); // nothing is loaded, but a wrong image library is reported here too
    Attach(newWindow, newPlayer);
}

void BlackFlashOverlay::DeclareMessages(SynchMessageTable* table)
{
    flash.Declare(table, this, "screen fades from black to transparent. PARAM 0: fading speed");
}

void BlackFlashOverlay::ReceiveMessage(int messageId, float* params, int paramCount)
{
    flash.Receive(messageId, params, paramCount);
}

void BlackFlashOverlay::Update()
{
    flash.Update();
}

void BlackFlashOverlay::Render()
{
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    {
        glLoadIdentity();
        glDisable(GL_TEXTURE_2D);
        ScreenFlash::Place(1 - flash.value);
        ScreenFlash::Draw(GL_DST_COLOR, GL_ZERO);
    }
    glPopMatrix();
}
