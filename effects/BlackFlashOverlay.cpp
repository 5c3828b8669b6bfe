// SPDX-License-Identifier: MIT
#include "effects/BlackFlashOverlay.h"

#include "display/GLWindow.h"
#include "kernel/FrameTimer.h"
#include "kernel/SynchMessageTable.h"
#include "resources/TextureLoader.h"

#include <GL/glew.h>

static const float fovY = 45.0f;    // degrees
static const float distance = 1.5f; // of the quad from the eye
static const float quadSize = 4.0f; // half a side: more than the viewport shows at this distance

BlackFlashOverlay::BlackFlashOverlay() : flashId(0), flashValue(0), flashSpeed(1) {}

void BlackFlashOverlay::Init(GLWindow* newWindow, DemoPlayer* newPlayer)
{
    TextureLoader::GetInstance(); // nothing is loaded, but a wrong image library is reported here too
    Attach(newWindow, newPlayer);
}

void BlackFlashOverlay::DeclareMessages(SynchMessageTable* table)
{
    flashId =
        table->DeclareMessage("flash", this, "screen fades from black to transparent. PARAM 0: fading speed");
}

void BlackFlashOverlay::ReceiveMessage(int messageId, float* params, int paramCount)
{
    if (messageId != flashId)
        return;
    flashValue = 1;
    if (paramCount > 0)
        flashSpeed = params[0];
}

void BlackFlashOverlay::Update()
{
    flashValue -= FrameTimer::GetDelta() * flashValue * flashSpeed;
}

void BlackFlashOverlay::Render()
{
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    {
        glLoadIdentity();
        glDisable(GL_TEXTURE_2D);
        glTranslatef(0, 0, -distance);
        GLWindow::SetPerspective(fovY);
        const float c = 1 - flashValue;
        glColor3f(c, c, c);
        glEnable(GL_BLEND);
        glBlendFunc(GL_DST_COLOR, GL_ZERO);
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
