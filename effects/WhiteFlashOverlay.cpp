// SPDX-License-Identifier: MIT
#include "effects/WhiteFlashOverlay.h"

#include "display/GLWindow.h"
#include "kernel/FrameTimer.h"
#include "kernel/SynchMessageTable.h"
#include "resources/TextureLoader.h"

#include <GL/glew.h>

static const float peak = 0.9f;     // the flash is not fully white
static const float fovY = 45.0f;    // degrees
static const float distance = 1.5f; // of the quad from the eye
static const float quadSize = 4.0f; // half a side: more than the viewport shows at this distance

WhiteFlashOverlay::WhiteFlashOverlay() : flashId(0), flashValue(0), flashSpeed(1) {}

void WhiteFlashOverlay::Init(GLWindow* newWindow, DemoPlayer* newPlayer)
{
    TextureLoader::GetInstance(); // nothing is loaded, but a wrong image library is reported here too
    Attach(newWindow, newPlayer);
}

void WhiteFlashOverlay::DeclareMessages(SynchMessageTable* table)
{
    flashId =
        table->DeclareMessage("flash", this, "screen fades from white to transparent. PARAM 0: fading speed");
}

void WhiteFlashOverlay::ReceiveMessage(int messageId, float* params, int paramCount)
{
    if (messageId != flashId)
        return;
    flashValue = 1;
    if (paramCount > 0)
        flashSpeed = params[0];
}

void WhiteFlashOverlay::Update()
{
    flashValue -= FrameTimer::GetDelta() * flashValue * flashSpeed;
}

void WhiteFlashOverlay::Render()
{
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    {
        glLoadIdentity();
        glTranslatef(0, 0, -distance);
        GLWindow::SetPerspective(fovY);
        const float c = flashValue * peak;
        glColor3f(c, c, c);
        glDisable(GL_TEXTURE_2D);
        glEnable(GL_BLEND);
        glBlendFunc(GL_ONE, GL_ONE);
        glBegin(GL_QUADS);
        {
            glVertex3f(-quadSize, quadSize, 0);
            glVertex3f(quadSize, quadSize, 0);
            glVertex3f(quadSize, -quadSize, 0);
            glVertex3f(-quadSize, -quadSize, 0);
        }
        glEnd();
        glDisable(GL_BLEND);
    }
    glPopMatrix();
}
