// SPDX-License-Identifier: MIT
// For tests of the off-screen target on a real driver.
#pragma once

#include "display/RenderTarget.h"

#include "platform/Events.h"
#include "resources/GLSLShader.h"
#include "tests/support/picture/PictureFixture.h"

#include <GL/glew.h>

#include <GL/glu.h>

const int side = 100;       // of the window
const int targetSide = 512; // as GLWindow makes it
const int anotherSide = 64; // of a target that a test makes itself
const float whole = 1.0f;   // of the square that Flat lays over the viewport
const int tolerated = 1;    // steps of a channel: sampling rounds either way
typedef std::vector<unsigned char> Rgb;

class OffScreen : public PictureFixture
{
protected:
    void SetUp() override { ASSERT_TRUE(Open(side, side)); }

    // The square from (0, 0) at the lower left to (1, 1) fills the viewport.
    static void Flat()
    {
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        gluOrtho2D(0, whole, 0, whole);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
    }

    // In the target, whose viewport is nobody's business but the caller's.
    static void FlatInTarget(int width = targetSide, int height = targetSide)
    {
        SetViewport(0, 0, width, height);
        Flat();
    }

    static void Fill(float x0, float y0, float x1, float y1, float red, float green, float blue)
    {
        glDisable(GL_TEXTURE_2D);
        glColor3f(red, green, blue);
        glRectf(x0, y0, x1, y1);
    }

    // The target's picture over the whole window, from s0 to s1 across and t0 to t1 upward.
    void Show(float s0 = 0, float t0 = 0, float s1 = 1, float t1 = 1)
    {
        window.SetLetterbox(1);
        Flat();
        glEnable(GL_TEXTURE_2D);
        RenderTarget::BindTexture();
        glColor3f(1, 1, 1);
        glBegin(GL_QUADS);
        {
            glTexCoord2f(s0, t0);
            glVertex2f(0, 0);
            glTexCoord2f(s1, t0);
            glVertex2f(1, 0);
            glTexCoord2f(s1, t1);
            glVertex2f(1, 1);
            glTexCoord2f(s0, t1);
            glVertex2f(0, 1);
        }
        glEnd();
        RenderTarget::ReleaseTexture();
        glDisable(GL_TEXTURE_2D);
    }

    // Of what stands in the window, counted from its lower left.
    Rgb At(int x, int y) const
    {
        const Picture picture = Grab();
        const unsigned char* const pixel = picture.At(x, side - 1 - y);
        return {pixel[0], pixel[1], pixel[2]};
    }

    static double Get(GLenum name)
    {
        double value = -1;
        glGetDoublev(name, &value);
        return value;
    }
    static int GetInt(GLenum name)
    {
        int value = -1;
        glGetIntegerv(name, &value);
        return value;
    }
    static Rgb Red() { return {255, 0, 0}; }
    static Rgb Green() { return {0, 255, 0}; }
    static Rgb Blue() { return {0, 0, 255}; }
    static Rgb Black() { return {0, 0, 0}; }
};
