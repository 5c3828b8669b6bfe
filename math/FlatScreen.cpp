// SPDX-License-Identifier: MIT
#include "math/FlatScreen.h"

#include <GL/glew.h>

#include <GL/glu.h>

FlatScreen::FlatScreen()
{
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    gluOrtho2D(0, 1, 0, 1);
    glMatrixMode(GL_MODELVIEW);
}

FlatScreen::~FlatScreen()
{
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
}
