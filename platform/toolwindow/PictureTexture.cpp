// SPDX-License-Identifier: MIT
#include "platform/toolwindow/PictureTexture.h"

#include <SDL_opengl.h>

#include <cstdint>

namespace platform
{

PictureTexture::~PictureTexture()
{
    Release();
}

void PictureTexture::Upload(int newWidth, int newHeight, const unsigned char* rgba)
{
    GLint bound = 0;
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &bound);
    if (name == 0) {
        glGenTextures(1, &name);
        glBindTexture(GL_TEXTURE_2D, name);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    }
    glBindTexture(GL_TEXTURE_2D, name);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    if (newWidth != width || newHeight != height) {
        width = newWidth;
        height = newHeight;
        // Without alpha inside, so that the fourth byte has no say.
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE, rgba);
    } else {
        glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, rgba);
    }
    glBindTexture(GL_TEXTURE_2D, GLuint(bound));
}

void PictureTexture::Release()
{
    if (name)
        glDeleteTextures(1, &name);
    name = 0;
    width = height = 0;
}

void PictureTexture::Draw(ImDrawList* list, ImVec2 topLeft, ImVec2 bottomRight) const
{
    if (name)
        list->AddImage(reinterpret_cast<ImTextureID>(uintptr_t(name)), topLeft, bottomRight, ImVec2(0, 1),
                       ImVec2(1, 0));
}

} // namespace platform
