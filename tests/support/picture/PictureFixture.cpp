// SPDX-License-Identifier: MIT
#include "tests/support/picture/PictureFixture.h"

#include "platform/WindowSystem.h"

#include <GL/glew.h>

#include <cstdlib>
#include <cstring>

// Ahead of everything that loads a driver.
static void ChooseSoftwareRasteriser()
{
    setenv("SDL_VIDEODRIVER", "offscreen", 1);
    setenv("LIBGL_ALWAYS_SOFTWARE", "1", 1);
    setenv("GALLIUM_DRIVER", "llvmpipe", 1);
    // The instructions that every x86-64 machine has, whatever this one could do: see Golden.h.
    setenv("GALLIUM_OVERRIDE_CPU_CAPS", "sse4.1", 1);
    setenv("LP_NATIVE_VECTOR_WIDTH", "128", 1);
    setenv("LP_NUM_THREADS", "2", 1); // the pixels don't depend on it; tests run side by side
    unsetenv("MESA_GL_VERSION_OVERRIDE");
    unsetenv("MESA_EXTENSION_OVERRIDE");
}

PictureFixture::PictureFixture() : swaps(0), width(0), height(0)
{
    ChooseSoftwareRasteriser();
    UseRealData();
    platform::UseSdlWindows();
}

PictureFixture::~PictureFixture()
{
    platform::SetFrameObserver(nullptr, nullptr);
}

bool PictureFixture::Open(int newWidth, int newHeight)
{
    static bool opened = false;
    if (opened) {
        ADD_FAILURE() << "one process opens one window: run picture tests through ctest";
        return false;
    }
    opened = true;
    width = newWidth;
    height = newHeight;
    if (!window.Create(width, height, 32, false)) {
        ADD_FAILURE() << "no window on the offscreen driver";
        return false;
    }
    const char* const renderer = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
    if (!renderer || !strstr(renderer, "llvmpipe")) {
        ADD_FAILURE() << "golden images are made by llvmpipe, not by " << (renderer ? renderer : "nothing");
        return false;
    }
    glClearColor(0, 0, 0, 0);
    window.SetLetterbox(1);
    window.SetPerspective(45);
    return true;
}

Picture PictureFixture::Grab() const
{
    Picture picture;
    picture.width = width;
    picture.height = height;
    const size_t row = size_t(width) * 3;
    std::vector<unsigned char> upsideDown(row * size_t(height));
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, upsideDown.data());
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    for (int y = height - 1; y >= 0; y--)
        picture.pixels.insert(picture.pixels.end(), &upsideDown[size_t(y) * row],
                              &upsideDown[size_t(y) * row] + row);
    return picture;
}

void PictureFixture::DrawWindowQuad()
{
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluOrtho2D(0, 1, 0, 1);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glBegin(GL_QUADS);
    {
        glTexCoord2f(0, 0);
        glVertex2f(0, 1);
        glTexCoord2f(1, 0);
        glVertex2f(1, 1);
        glTexCoord2f(1, 1);
        glVertex2f(1, 0);
        glTexCoord2f(0, 1);
        glVertex2f(0, 0);
    }
    glEnd();
}

void PictureFixture::GrabAtSwaps()
{
    platform::SetFrameObserver(FrameDone, this);
}

void PictureFixture::FrameDone(void* fixture)
{
    PictureFixture* const self = static_cast<PictureFixture*>(fixture);
    self->shown = self->Grab();
    self->swaps++;
}
