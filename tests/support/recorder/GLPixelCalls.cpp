// SPDX-License-Identifier: MIT
// Pixels on their way in and out.
#include "tests/support/recorder/GLContext.h"

#include <cstring>

using namespace gl;

static int Components(GLenum format)
{
    switch (format) {
    case GL_RGBA:
    case GL_BGRA:
        return 4;
    case GL_RGB:
    case GL_BGR:
        return 3;
    case GL_LUMINANCE_ALPHA:
        return 2;
    default:
        return 1;
    }
}

static int ComponentSize(GLenum type)
{
    switch (type) {
    case GL_FLOAT:
    case GL_INT:
    case GL_UNSIGNED_INT:
        return 4;
    case GL_SHORT:
    case GL_UNSIGNED_SHORT:
        return 2;
    default:
        return 1;
    }
}

size_t gl::PixelSize(GLenum format, GLenum type)
{
    return size_t(Components(format) * ComponentSize(type));
}

// Reads what a driver would read, padding between rows included, so that a buffer that is too small is found
// by the sanitizer here as well.
std::vector<unsigned char> gl::ReadPixels(int width, int height, GLenum format, GLenum type, const void* data)
{
    std::vector<unsigned char> pixels;
    if (!data || width <= 0 || height <= 0 || !Current())
        return pixels;
    const ClientState& client = Current()->client;
    const size_t pixel = PixelSize(format, type);
    const size_t alignment = size_t(client.unpackAlignment);
    const size_t rowPixels = size_t(client.unpackRowLength > 0 ? client.unpackRowLength : width);
    const size_t stride = (rowPixels * pixel + alignment - 1) / alignment * alignment;
    const unsigned char* row = static_cast<const unsigned char*>(data);
    row += size_t(client.unpackSkipRows) * stride + size_t(client.unpackSkipPixels) * pixel;
    for (int y = 0; y < height; y++, row += stride)
        pixels.insert(pixels.end(), row, row + size_t(width) * pixel);
    return pixels;
}

static GLint* PixelStoreField(ClientState& client, GLenum name)
{
    switch (name) {
    case GL_UNPACK_ALIGNMENT:
        return &client.unpackAlignment;
    case GL_UNPACK_ROW_LENGTH:
        return &client.unpackRowLength;
    case GL_UNPACK_SKIP_ROWS:
        return &client.unpackSkipRows;
    case GL_UNPACK_SKIP_PIXELS:
        return &client.unpackSkipPixels;
    case GL_PACK_ALIGNMENT:
        return &client.packAlignment;
    default:
        return nullptr; // byte orders and the other half of packing: kept by nobody
    }
}

extern "C" {

void glPixelStorei(GLenum name, GLint value)
{
    DoAtOnce("glPixelStorei", {Enum(name), Arg(value)}, [=](Context& c) {
        const bool alignment = name == GL_UNPACK_ALIGNMENT || name == GL_PACK_ALIGNMENT;
        if (value < 0 || (alignment && value != 1 && value != 2 && value != 4 && value != 8)) {
            SetError(c, GL_INVALID_VALUE);
            return;
        }
        if (GLint* const field = PixelStoreField(c.client, name))
            *field = value;
    });
}

void glPixelStoref(GLenum name, GLfloat value)
{
    glPixelStorei(name, GLint(value));
}

// A black picture.
void glReadPixels(GLint x, GLint y, GLsizei width, GLsizei height, GLenum format, GLenum type, void* pixels)
{
    DoAtOnce("glReadPixels", {Arg(x), Arg(y), Arg(width), Arg(height), Enum(format), Enum(type)},
             [=](Context& c) {
                 const size_t alignment = size_t(c.client.packAlignment);
                 const size_t row = size_t(width) * PixelSize(format, type);
                 const size_t stride = (row + alignment - 1) / alignment * alignment;
                 for (GLsizei i = 0; i < height; i++)
                     memset(static_cast<unsigned char*>(pixels) + size_t(i) * stride, 0, row);
             });
}

} // extern "C"
