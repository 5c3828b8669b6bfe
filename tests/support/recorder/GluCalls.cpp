// SPDX-License-Identifier: MIT
// GLU's functions stand in front of the real ones: the call is recorded under its own name, and what GLU does
// to GL counts as nested.
#include "tests/support/recorder/GLContext.h"

#include <GL/glu.h>
#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>

using namespace gl;

// Finds the library's definition of a function, which this executable's own one hides.
static void* Real(const char* name)
{
    void* const function = dlsym(RTLD_NEXT, name);
    if (!function) {
        fprintf(stderr, "recorder: no library has %s\n", name);
        abort();
    }
    return function;
}

static void RecordGlu(const char* name, std::initializer_list<Argument> arguments)
{
    DoAtOnce(name, arguments, [](Context&) {});
}

extern "C" {

void gluPerspective(GLdouble fovY, GLdouble aspect, GLdouble nearPlane, GLdouble farPlane)
{
    typedef void (*Function)(GLdouble, GLdouble, GLdouble, GLdouble);
    static const Function real = reinterpret_cast<Function>(Real("gluPerspective"));
    RecordGlu("gluPerspective", {Arg(fovY), Arg(aspect), Arg(nearPlane), Arg(farPlane)});
    BeginNested();
    real(fovY, aspect, nearPlane, farPlane);
    EndNested();
}

void gluOrtho2D(GLdouble left, GLdouble right, GLdouble bottom, GLdouble top)
{
    typedef void (*Function)(GLdouble, GLdouble, GLdouble, GLdouble);
    static const Function real = reinterpret_cast<Function>(Real("gluOrtho2D"));
    RecordGlu("gluOrtho2D", {Arg(left), Arg(right), Arg(bottom), Arg(top)});
    BeginNested();
    real(left, right, bottom, top);
    EndNested();
}

void gluLookAt(GLdouble eyeX, GLdouble eyeY, GLdouble eyeZ, GLdouble centreX, GLdouble centreY,
               GLdouble centreZ, GLdouble upX, GLdouble upY, GLdouble upZ)
{
    typedef void (*Function)(GLdouble, GLdouble, GLdouble, GLdouble, GLdouble, GLdouble, GLdouble, GLdouble,
                             GLdouble);
    static const Function real = reinterpret_cast<Function>(Real("gluLookAt"));
    RecordGlu("gluLookAt", {Arg(eyeX), Arg(eyeY), Arg(eyeZ), Arg(centreX), Arg(centreY), Arg(centreZ),
                            Arg(upX), Arg(upY), Arg(upZ)});
    BeginNested();
    real(eyeX, eyeY, eyeZ, centreX, centreY, centreZ, upX, upY, upZ);
    EndNested();
}

GLint gluBuild2DMipmaps(GLenum target, GLint components, GLsizei width, GLsizei height, GLenum format,
                        GLenum type, const void* data)
{
    typedef GLint (*Function)(GLenum, GLint, GLsizei, GLsizei, GLenum, GLenum, const void*);
    static const Function real = reinterpret_cast<Function>(Real("gluBuild2DMipmaps"));
    RecordGlu("gluBuild2DMipmaps", {Enum(target), components < 5 ? Arg(components) : Enum(GLenum(components)),
                                    Arg(width), Arg(height), Enum(format), Enum(type), Address(data)});
    BeginNested();
    const GLint result = real(target, components, width, height, format, type, data);
    EndNested();
    Context* const c = Current();
    if (c && result == 0) {
        TextureObject& texture = Shared().textures[ActiveUnit(*c).bound];
        texture.builtByGlu = true;
        texture.givenWidth = width;
        texture.givenHeight = height;
        texture.givenComponents = components;
    }
    return result;
}

} // extern "C"
