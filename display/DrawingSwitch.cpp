// SPDX-License-Identifier: MIT
#include "display/DrawingSwitch.h"

#include "display/RenderTarget.h"
#include "platform/Drawing.h"

#include <GL/glew.h>

// Applies to the current context.
static void DiscardPrimitives(bool on)
{
    if (on)
        glEnable(GL_RASTERIZER_DISCARD);
    else
        glDisable(GL_RASTERIZER_DISCARD);
}

void SwitchDrawing(bool on)
{
    platform::SetDrawing(on);
    DiscardPrimitives(!on);
    // Save the viewport, which holds the show's letterbox: RenderTarget::End sets another one.
    GLint viewport[4];
    glGetIntegerv(GL_VIEWPORT, viewport);
    RenderTarget::Begin();
    DiscardPrimitives(!on);
    RenderTarget::End();
    glViewport(viewport[0], viewport[1], viewport[2], viewport[3]);
}
