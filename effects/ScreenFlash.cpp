// SPDX-License-Identifier: MIT
#include "effects/ScreenFlash.h"

#include "display/GLWindow.h"
#include "kernel/FrameTimer.h"
#include "kernel/SynchMessageTable.h"
#include "math/Primitives.h"

#include <GL/glew.h>

static const float fovY = 45.0f;    // degrees
static const float distance = 1.5f; // of the quad from the eye
static const float halfSize = 4.0f; // of the quad: more than the viewport shows at this distance

ScreenFlash::ScreenFlash() : value(0), messageId(0), speed(1) {}

void ScreenFlash::Declare(SynchMessageTable* table, Effect* owner, const char* description)
{
    messageId = table->DeclareMessage("flash", owner, description);
}

void ScreenFlash::Receive(int id, const float* params, int paramCount)
{
    if (id != messageId)
        return;
    value = 1;
    if (paramCount > 0)
        speed = params[0];
}

void ScreenFlash::Update()
{
    value -= FrameTimer::GetDelta() * value * speed;
}

void ScreenFlash::Place(float grey)
{
    glTranslatef(0, 0, -distance);
    GLWindow::SetPerspective(fovY);
    glColor3f(grey, grey, grey);
}

void ScreenFlash::Draw(unsigned sourceFactor, unsigned destinationFactor)
{
    glEnable(GL_BLEND);
    glBlendFunc(sourceFactor, destinationFactor);
    DrawCentredRectangle(2 * halfSize, 2 * halfSize);
    glDisable(GL_BLEND);
}
