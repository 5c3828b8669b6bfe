// SPDX-License-Identifier: MIT
#include "resources/Texture.h"

#include <GL/glu.h>

const int defaultRowAlignment = 4; // what GL takes rows to start at multiples of, in bytes

static GLenum FormatOf(const ImageData& image)
{
    return image.components == 3 ? GL_RGB : GL_RGBA;
}

static void SendSingleLevel(const ImageData& image)
{
    glTexImage2D(GL_TEXTURE_2D, 0, image.components, image.width, image.height, 0, FormatOf(image),
                 GL_UNSIGNED_BYTE, image.data);
}

static void SendMipmapChain(const ImageData& image)
{
    gluBuild2DMipmaps(GL_TEXTURE_2D, image.components, image.width, image.height, FormatOf(image),
                      GL_UNSIGNED_BYTE, image.data);
}

// Our rows follow one another without padding. Where GL would look for the second row after padding it
// would shear the picture and read past its end. GLU does the same to its own smallest levels: two rows of
// two RGB pixels take 12 bytes there, and GL would read 14.
static bool RowsNeedCare(const ImageData& image, bool mipmapped)
{
    if (mipmapped && image.components == 3)
        return true;
    return image.height > 1 && image.width * image.components % defaultRowAlignment != 0;
}

bool Texture::UploadWith(void (*send)(const ImageData& image), const ImageData* image, int minFilter,
                         int magFilter, int wrapS, int wrapT)
{
    if (!image || !image->data)
        return false;
    glEnable(GL_TEXTURE_2D);
    glGenTextures(1, &id);
    glBindTexture(GL_TEXTURE_2D, id);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, minFilter);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, magFilter);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, wrapS);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, wrapT);
    if (image->components == 3 || image->components == 4) {
        const bool mipmapped = send == SendMipmapChain;
        const bool care = RowsNeedCare(*image, mipmapped);
        if (care)
            glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
        // Mesa allocates memory for one level if the filter needs no other, and for all of them again when
        // the second one comes; it keeps both. With a mipmap filter it allocates all levels once.
        if (mipmapped)
            glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST_MIPMAP_NEAREST);
        send(*image);
        if (mipmapped)
            glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, minFilter);
        if (care)
            glPixelStorei(GL_UNPACK_ALIGNMENT, defaultRowAlignment);
    }
    components = image->components;
    width = image->width;
    height = image->height;
    glDisable(GL_TEXTURE_2D);
    return true;
}

bool Texture::Upload(ImageData* image, int minFilter, int magFilter, int wrapS, int wrapT)
{
    return UploadWith(SendSingleLevel, image, minFilter, magFilter, wrapS, wrapT);
}

bool Texture::UploadMipmapped(ImageData* image, int minFilter, int magFilter, int wrapS, int wrapT)
{
    return UploadWith(SendMipmapChain, image, minFilter, magFilter, wrapS, wrapT);
}

void Texture::Bind()
{
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, id);
}

void Texture::Unbind()
{
    glBindTexture(GL_TEXTURE_2D, 0);
}

void Texture::Delete()
{
    glDeleteTextures(1, &id);
}

void BindTexture(Texture* texture)
{
    static Texture none;
    (texture ? texture : &none)->Bind();
}

void UnbindTexture()
{
    Texture::Unbind();
}
