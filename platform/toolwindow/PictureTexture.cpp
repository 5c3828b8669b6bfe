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

// Each picture takes the place of the one before the last, in a texture of another name: the window sees by the name that
// there is something new to draw.
void PictureTexture::Upload(int newWidth, int newHeight, const unsigned char* rgba)
{
    GLint bound = 0;
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &bound);
    shown = 1 - shown;
    Texture& texture = textures[shown];
    if (texture.name == 0) {
        glGenTextures(1, &texture.name);
        glBindTexture(GL_TEXTURE_2D, texture.name);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    }
    glBindTexture(GL_TEXTURE_2D, texture.name);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    if (newWidth != texture.width || newHeight != texture.height) {
        texture.width = newWidth;
        texture.height = newHeight;
        // Without alpha inside, so that the fourth byte has no say.
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, newWidth, newHeight, 0, GL_RGBA, GL_UNSIGNED_BYTE, rgba);
    } else {
        glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, newWidth, newHeight, GL_RGBA, GL_UNSIGNED_BYTE, rgba);
    }
    glBindTexture(GL_TEXTURE_2D, GLuint(bound));
}

void PictureTexture::Release()
{
    for (Texture& texture : textures) {
        if (texture.name)
            glDeleteTextures(1, &texture.name);
        texture = Texture();
    }
}

void PictureTexture::Draw(ImDrawList* list, ImVec2 topLeft, ImVec2 bottomRight) const
{
    if (!Empty())
        list->AddImage(reinterpret_cast<ImTextureID>(uintptr_t(textures[shown].name)), topLeft, bottomRight,
                       ImVec2(0, 1), ImVec2(1, 0));
}

} // namespace platform
