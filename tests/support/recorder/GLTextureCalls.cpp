// SPDX-License-Identifier: MIT
// Texture objects, units and uploads.
#include "tests/support/recorder/GLContext.h"

#include "tests/support/recorder/GLText.h"

#include <cstring>

using namespace gl;

const int LargestTexture = 8192;

static TextureObject StartTexture(GLuint id)
{
    TextureObject texture = {};
    texture.id = id;
    texture.minFilter = GL_NEAREST_MIPMAP_LINEAR;
    texture.magFilter = GL_LINEAR;
    texture.wrapS = texture.wrapT = GL_REPEAT;
    return texture;
}

// The object bound to the active unit; object 0 has parameters of its own too.
static TextureObject& BoundTexture(Context& c)
{
    const GLuint id = ActiveUnit(c).bound;
    const auto found = Shared().textures.find(id);
    if (found != Shared().textures.end())
        return found->second;
    return Shared().textures.emplace(id, StartTexture(id)).first->second;
}

static void TakeLabel(TextureObject& texture)
{
    if (Shared().expectedPicture.empty())
        return;
    texture.label = Shared().expectedPicture;
    Shared().expectedPicture.clear();
}

static void SetParameter(Context& c, GLenum target, GLenum name, float value)
{
    if (target != GL_TEXTURE_2D)
        return;
    TextureObject& texture = BoundTexture(c);
    switch (name) {
    case GL_TEXTURE_MIN_FILTER:
        texture.minFilter = GLint(value);
        break;
    case GL_TEXTURE_MAG_FILTER:
        texture.magFilter = GLint(value);
        break;
    case GL_TEXTURE_WRAP_S:
        texture.wrapS = GLint(value);
        break;
    case GL_TEXTURE_WRAP_T:
        texture.wrapT = GLint(value);
        break;
    default:
        texture.otherParameters[name] = value;
    }
}

static bool ValueIsEnum(GLenum parameter)
{
    return parameter == GL_TEXTURE_MIN_FILTER || parameter == GL_TEXTURE_MAG_FILTER ||
           parameter == GL_TEXTURE_WRAP_S || parameter == GL_TEXTURE_WRAP_T ||
           parameter == GL_TEXTURE_ENV_MODE || parameter == GL_TEXTURE_GEN_MODE;
}

static void SetEnvironment(Context& c, GLenum target, GLenum name, float value)
{
    if (target == GL_TEXTURE_ENV && name == GL_TEXTURE_ENV_MODE)
        ActiveUnit(c).environment = GLenum(value);
    c.changed = true;
}

extern "C" {

void glGenTextures(GLsizei count, GLuint* names)
{
    DoAtOnce("glGenTextures", {Arg(count)}, [=](Context&) {
        for (GLsizei i = 0; i < count; i++) {
            names[i] = Shared().nextTexture++;
            Shared().textures[names[i]] = StartTexture(names[i]);
        }
    });
}

void glDeleteTextures(GLsizei count, const GLuint* names)
{
    const std::vector<GLint> list(names, names + (count > 0 ? count : 0));
    DoAtOnce("glDeleteTextures", {Arg(count), List(list.data(), count)}, [=](Context& c) {
        for (GLint name : list) {
            if (name == 0)
                continue;
            Shared().textures.erase(GLuint(name));
            for (TextureUnit& unit : c.state.units)
                if (unit.bound == GLuint(name))
                    unit.bound = 0;
        }
        c.changed = true;
    });
}

GLboolean glIsTexture(GLuint name)
{
    GLboolean is = GL_FALSE;
    DoAtOnce("glIsTexture", {Arg(name)}, [&](Context&) { is = name && Shared().textures.count(name) != 0; });
    return is;
}

void glBindTexture(GLenum target, GLuint name)
{
    Do("glBindTexture", {Enum(target), Arg(name)}, [=](Context& c) {
        if (target != GL_TEXTURE_2D)
            return;
        if (name)
            Shared().nextTexture = std::max(Shared().nextTexture, name + 1);
        ActiveUnit(c).bound = name;
        BoundTexture(c);
        c.changed = true;
    });
}

void glTexParameteri(GLenum target, GLenum name, GLint value)
{
    Do("glTexParameteri", {Enum(target), Enum(name), ValueIsEnum(name) ? Enum(GLenum(value)) : Arg(value)},
       [=](Context& c) { SetParameter(c, target, name, float(value)); });
}

void glTexParameterf(GLenum target, GLenum name, GLfloat value)
{
    Do("glTexParameterf", {Enum(target), Enum(name), ValueIsEnum(name) ? Enum(GLenum(value)) : Arg(value)},
       [=](Context& c) { SetParameter(c, target, name, value); });
}

void glTexParameterfv(GLenum target, GLenum name, const GLfloat* values)
{
    const int count = name == GL_TEXTURE_BORDER_COLOR ? 4 : 1;
    const float value = values[0];
    Do("glTexParameterfv", {Enum(target), Enum(name), List(values, count)},
       [=](Context& c) { SetParameter(c, target, name, value); });
}

void glTexParameteriv(GLenum target, GLenum name, const GLint* values)
{
    const int count = name == GL_TEXTURE_BORDER_COLOR ? 4 : 1;
    const float value = float(values[0]);
    Do("glTexParameteriv", {Enum(target), Enum(name), List(values, count)},
       [=](Context& c) { SetParameter(c, target, name, value); });
}

void glGetTexParameteriv(GLenum target, GLenum name, GLint* values)
{
    DoAtOnce("glGetTexParameteriv", {Enum(target), Enum(name)}, [=](Context& c) {
        TextureObject& texture = BoundTexture(c);
        if (name == GL_TEXTURE_MIN_FILTER)
            *values = texture.minFilter;
        else if (name == GL_TEXTURE_MAG_FILTER)
            *values = texture.magFilter;
        else if (name == GL_TEXTURE_WRAP_S)
            *values = texture.wrapS;
        else if (name == GL_TEXTURE_WRAP_T)
            *values = texture.wrapT;
        else
            SetError(c, GL_INVALID_ENUM);
    });
}

void glTexImage2D(GLenum target, GLint level, GLint internalFormat, GLsizei width, GLsizei height,
                  GLint border, GLenum format, GLenum type, const void* data)
{
    const std::vector<unsigned char> pixels = ReadPixels(width, height, format, type, data);
    Do("glTexImage2D",
       {Enum(target), Arg(level), internalFormat < 5 ? Arg(internalFormat) : Enum(GLenum(internalFormat)),
        Arg(width), Arg(height), Arg(border), Enum(format), Enum(type), Address(data)},
       [=](Context& c) {
           const bool fits = width <= LargestTexture && height <= LargestTexture;
           if (target == GL_PROXY_TEXTURE_2D) {
               Shared().proxy =
                   fits ? TextureLevel{width, height, internalFormat, format, type, {}} : TextureLevel{};
               return;
           }
           if (target != GL_TEXTURE_2D) {
               SetError(c, GL_INVALID_ENUM);
               return;
           }
           if (width < 0 || height < 0 || level < 0 || border < 0 || border > 1 || !fits) {
               SetError(c, GL_INVALID_VALUE);
               return;
           }
           TextureObject& texture = BoundTexture(c);
           texture.levels[level] = {width, height, internalFormat, format, type, pixels};
           texture.builtByGlu = false;
           TakeLabel(texture);
       });
}

void glTexSubImage2D(GLenum target, GLint level, GLint x, GLint y, GLsizei width, GLsizei height,
                     GLenum format, GLenum type, const void* data)
{
    const std::vector<unsigned char> part = ReadPixels(width, height, format, type, data);
    Do("glTexSubImage2D",
       {Enum(target), Arg(level), Arg(x), Arg(y), Arg(width), Arg(height), Enum(format), Enum(type),
        Address(data)},
       [=](Context& c) {
           TextureObject& texture = BoundTexture(c);
           const auto found = texture.levels.find(level);
           if (found == texture.levels.end()) {
               SetError(c, GL_INVALID_OPERATION, "no such level");
               return;
           }
           TextureLevel& whole = found->second;
           if (x < 0 || y < 0 || width < 0 || height < 0 || x + width > whole.width ||
               y + height > whole.height) {
               SetError(c, GL_INVALID_VALUE, "outside of the level");
               return;
           }
           const size_t pixel = PixelSize(format, type);
           if (whole.pixels.size() != size_t(whole.width) * size_t(whole.height) * pixel)
               return; // another layout than the level's: kept as the call alone
           if (part.empty())
               return;
           for (int row = 0; row < height; row++)
               memcpy(&whole.pixels[(size_t(y + row) * size_t(whole.width) + size_t(x)) * pixel],
                      &part[size_t(row) * size_t(width) * pixel], size_t(width) * pixel);
       });
}

void glTexImage1D(GLenum target, GLint level, GLint internalFormat, GLsizei width, GLint border,
                  GLenum format, GLenum type, const void* data)
{
    Do("glTexImage1D",
       {Enum(target), Arg(level), Arg(internalFormat), Arg(width), Arg(border), Enum(format), Enum(type),
        Address(data)},
       [](Context&) {});
}

void glCopyTexImage2D(GLenum target, GLint level, GLenum internalFormat, GLint x, GLint y, GLsizei width,
                      GLsizei height, GLint border)
{
    Do("glCopyTexImage2D",
       {Enum(target), Arg(level), Enum(internalFormat), Arg(x), Arg(y), Arg(width), Arg(height), Arg(border)},
       [=](Context& c) {
           BoundTexture(c).levels[level] = {width,   height,           GLint(internalFormat),
                                            GL_RGBA, GL_UNSIGNED_BYTE, {}};
       });
}

void glCopyTexSubImage2D(GLenum target, GLint level, GLint xOffset, GLint yOffset, GLint x, GLint y,
                         GLsizei width, GLsizei height)
{
    Do("glCopyTexSubImage2D",
       {Enum(target), Arg(level), Arg(xOffset), Arg(yOffset), Arg(x), Arg(y), Arg(width), Arg(height)},
       [](Context&) {});
}

void glGetTexLevelParameteriv(GLenum target, GLint level, GLenum name, GLint* values)
{
    DoAtOnce("glGetTexLevelParameteriv", {Enum(target), Arg(level), Enum(name)}, [=](Context& c) {
        TextureLevel found = {};
        if (target == GL_PROXY_TEXTURE_2D)
            found = Shared().proxy;
        else if (BoundTexture(c).levels.count(level))
            found = BoundTexture(c).levels[level];
        if (name == GL_TEXTURE_WIDTH)
            *values = found.width;
        else if (name == GL_TEXTURE_HEIGHT)
            *values = found.height;
        else if (name == GL_TEXTURE_INTERNAL_FORMAT)
            *values = found.internalFormat;
        else
            SetError(c, GL_INVALID_ENUM, "not kept by the recorder");
    });
}

// The bytes as they were given, whatever format is asked for.
void glGetTexImage(GLenum target, GLint level, GLenum format, GLenum type, void* pixels)
{
    DoAtOnce("glGetTexImage", {Enum(target), Arg(level), Enum(format), Enum(type)}, [=](Context& c) {
        const auto found = BoundTexture(c).levels.find(level);
        if (found != BoundTexture(c).levels.end())
            memcpy(pixels, found->second.pixels.data(), found->second.pixels.size());
    });
}

void glTexEnvi(GLenum target, GLenum name, GLint value)
{
    Do("glTexEnvi", {Enum(target), Enum(name), ValueIsEnum(name) ? Enum(GLenum(value)) : Arg(value)},
       [=](Context& c) { SetEnvironment(c, target, name, float(value)); });
}

void glTexEnvf(GLenum target, GLenum name, GLfloat value)
{
    Do("glTexEnvf", {Enum(target), Enum(name), ValueIsEnum(name) ? Enum(GLenum(value)) : Arg(value)},
       [=](Context& c) { SetEnvironment(c, target, name, value); });
}

void glTexEnvfv(GLenum target, GLenum name, const GLfloat* values)
{
    const int count = name == GL_TEXTURE_ENV_COLOR ? 4 : 1;
    const std::vector<float> v(values, values + count);
    Do("glTexEnvfv", {Enum(target), Enum(name), List(values, count)}, [=](Context& c) {
        if (name == GL_TEXTURE_ENV_COLOR)
            ActiveUnit(c).environmentColour = Colour(v[0], v[1], v[2], v[3]);
        else
            SetEnvironment(c, target, name, v[0]);
        c.changed = true;
    });
}

void glTexGeni(GLenum coordinate, GLenum name, GLint value)
{
    Do("glTexGeni", {Enum(coordinate), Enum(name), Enum(GLenum(value))}, [](Context&) {});
}

void glTexGenfv(GLenum coordinate, GLenum name, const GLfloat* values)
{
    Do("glTexGenfv", {Enum(coordinate), Enum(name), List(values, 4)}, [](Context&) {});
}

} // extern "C"

// What the program calls through GLEW's pointers.

static void GLAPIENTRY ActiveTexture(GLenum unit)
{
    Do("glActiveTexture", {Enum(unit)}, [=](Context& c) {
        if (unit < GL_TEXTURE0 || unit >= GL_TEXTURE0 + UnitCount) {
            SetError(c, GL_INVALID_ENUM, "no such texture unit");
            return;
        }
        c.state.activeUnit = int(unit - GL_TEXTURE0);
        c.changed = true;
    });
}

static void GLAPIENTRY GenerateMipmap(GLenum target)
{
    Do("glGenerateMipmap", {Enum(target)}, [=](Context& c) {
        TextureObject& texture = BoundTexture(c);
        const auto base = texture.levels.find(0);
        if (base == texture.levels.end())
            return;
        TextureLevel level = base->second;
        level.pixels.clear();
        for (int i = 1; level.width > 1 || level.height > 1; i++) {
            level.width = std::max(1, level.width / 2);
            level.height = std::max(1, level.height / 2);
            texture.levels[i] = level;
        }
    });
}

static void GLAPIENTRY CompressedTexImage2D(GLenum target, GLint level, GLenum internalFormat, GLsizei width,
                                            GLsizei height, GLint border, GLsizei size, const void* data)
{
    Do("glCompressedTexImage2D",
       {Enum(target), Arg(level), Enum(internalFormat), Arg(width), Arg(height), Arg(border), Arg(size),
        Address(data)},
       [=](Context& c) {
           const unsigned char* const bytes = static_cast<const unsigned char*>(data);
           TextureObject& texture = BoundTexture(c);
           texture.levels[level] = {width,          height,           GLint(internalFormat),
                                    internalFormat, GL_UNSIGNED_BYTE, {}};
           if (bytes)
               texture.levels[level].pixels.assign(bytes, bytes + size);
           TakeLabel(texture);
       });
}

void gl::InstallTextureCalls()
{
    __glewActiveTexture = __glewActiveTextureARB = ActiveTexture;
    __glewGenerateMipmap = __glewGenerateMipmapEXT = GenerateMipmap;
    __glewCompressedTexImage2D = __glewCompressedTexImage2DARB = CompressedTexImage2D;
}
