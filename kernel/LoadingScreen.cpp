// SPDX-License-Identifier: MIT
#include "kernel/LoadingScreen.h"

#include "resources/TextureLoader.h"

#include <GL/glew.h>

#include <algorithm>

static const int frameCount = 12;
static const int lastFrame = 5;

// clang-format off
static const float corners[4][4] = {
    // s, t     x, y
    {  0, 0,    0.2f, 0.35f },
    {  1, 0,    0.8f, 0.35f },
    {  1, 1,    0.8f, 0.7f  },
    {  0, 1,    0.2f, 0.7f  },
};
// clang-format on

LoadingScreen::LoadingScreen(GLWindow* newWindow) : ProgressScreen(newWindow), texture(nullptr) {}

void LoadingScreen::Init()
{
    glClearColor(0, 0, 0, 0);
    if (TextureLoader* textures = TextureLoader::GetInstance())
        texture = textures->GetTexture(loadingPicture, true, true, true);
}

// Coordinates from 0 to 1 across the viewport, with the origin at the top left.
static void DrawPicture()
{
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    {
        glLoadIdentity();
        glOrtho(0, 1, 1, 0, -1, 1);
        glMatrixMode(GL_MODELVIEW);
        glBegin(GL_QUADS);
        {
            for (const float* corner : corners) {
                glTexCoord2f(corner[0], corner[1]);
                glVertex2f(corner[2], corner[3]);
            }
        }
        glEnd();
        glMatrixMode(GL_PROJECTION);
    }
    glPopMatrix();
}

void LoadingScreen::Render()
{
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    {
        glLoadIdentity();

        // The frame of an animation with six frames. The picture has a single one, so nothing uses the value.
        const int frame = std::min(int(GetProgress() * frameCount), lastFrame);
        static_cast<void>(frame);

        BindTexture(texture);
        DrawPicture();
        glMatrixMode(GL_MODELVIEW);
    }
    glPopMatrix();
    glColor3f(1, 1, 1);
    // One pop too many, which must stay: GL records a GL_STACK_UNDERFLOW and changes nothing.
    glPopMatrix();
}
