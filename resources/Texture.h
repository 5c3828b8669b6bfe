// SPDX-License-Identifier: MIT
// One GL texture made from a picture. Effects get theirs from the TextureLoader and never free them.
//
// A picture that could not be had is a null Texture*, and effects don't test for it: the failure is already
// on the screen and the run ends with the next event. Until then they draw through BindTexture and
// UnbindTexture, which take null for "no texture". Main thread, context current.
#pragma once

#include "resources/ImageData.h"

#include <GL/glew.h>

class Texture
{
public:
    // Makes the texture object and sends the picture as its only level. The filters and wraps are the GL
    // enumerants. The sides are not looked at: neither a limit nor powers of two. GL_TEXTURE_2D is disabled
    // afterwards and the texture is still bound. The pixels stay the caller's. A picture of other than 3 or
    // 4 components gives a texture without a level. False, and no GL call at all, for one without data.
    bool Upload(ImageData* image, int minFilter, int magFilter, int wrapS, int wrapT);

    // The same with a chain of mipmaps built by GLU, which scales sides to powers of two.
    bool UploadMipmapped(ImageData* image, int minFilter, int magFilter, int wrapS, int wrapT);

    void Bind(); // enables GL_TEXTURE_2D, too

    // Binds no texture. GL_TEXTURE_2D stays enabled on purpose: effects disable it where they need to.
    static void Unbind();

    void Delete(); // gives the texture object back to GL; id stays as it was

    int components = 0; // 3 or 4, as uploaded
    GLuint id = 0;      // 0 until uploaded
    int width = 0;      // pixels
    int height = 0;     // pixels

private:
    bool UploadWith(void (*send)(const ImageData& image), const ImageData* image, int minFilter,
                    int magFilter, int wrapS, int wrapT);
};

// texture->Bind(), or for null the same with no texture: drawing goes on in the plain colour.
void BindTexture(Texture* texture);

// Texture::Unbind().
void UnbindTexture();
