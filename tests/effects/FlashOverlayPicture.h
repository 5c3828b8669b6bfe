// SPDX-License-Identifier: MIT
// What the picture tests of WhiteFlashOverlay and BlackFlashOverlay share: something to lie below the flash.
#pragma once

#include "tests/support/picture/PictureFixture.h"

#include <GL/glew.h>

// Black to full colour from left to right, a red and a green corner on top.
class Backdrop : public Effect
{
public:
    void Init(GLWindow*, DemoPlayer*) override {}
    void DeclareMessages(SynchMessageTable*) override {}
    void Update() override {}
    void ReceiveMessage(int, float*, int) override {}

    void Render() override
    {
        GLWindow::SetPerspective(45);
        glTranslatef(0, 0, -1);
        glDisable(GL_TEXTURE_2D);
        glBegin(GL_QUADS);
        {
            glColor3f(0, 0, 0);
            glVertex2f(-0.6f, -0.6f);
            glColor3f(1, 1, 1);
            glVertex2f(0.6f, -0.6f);
            glColor3f(0, 1, 0);
            glVertex2f(0.6f, 0.6f);
            glColor3f(1, 0, 0);
            glVertex2f(-0.6f, 0.6f);
        }
        glEnd();
    }
};

class FlashOverlayPicture : public PictureFixture
{
protected:
    void SetUp() override { ASSERT_TRUE(Open(320, 240)); }

    // The backdrop alone, and under the overlay.
    Picture Below()
    {
        Frame(&backdrop);
        return Grab();
    }
    Picture Under(Effect* overlay)
    {
        Frame(&backdrop);
        Overlay(overlay);
        return Grab();
    }

    static Tolerance Smooth()
    {
        return Tolerance("a ramp of colours: interpolation and blending may round the other way").Maximum(1);
    }

    Backdrop backdrop;
};
