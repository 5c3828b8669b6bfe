// SPDX-License-Identifier: MIT
// Display lists.
#include "tests/support/recorder/GLContext.h"

#include "tests/support/recorder/GLText.h"

using namespace gl;

static size_t OffsetSize(GLenum type)
{
    switch (type) {
    case GL_UNSIGNED_SHORT:
    case GL_SHORT:
        return 2;
    case GL_UNSIGNED_INT:
    case GL_INT:
        return 4;
    default:
        return 1;
    }
}

static GLuint ListOffset(GLenum type, const void* lists, GLsizei i)
{
    const unsigned char* const bytes =
        static_cast<const unsigned char*>(lists) + size_t(i) * OffsetSize(type);
    if (OffsetSize(type) == 2)
        return *reinterpret_cast<const GLushort*>(bytes);
    if (OffsetSize(type) == 4)
        return *reinterpret_cast<const GLuint*>(bytes);
    return *bytes;
}

extern "C" {

GLuint glGenLists(GLsizei range)
{
    GLuint first = 0;
    DoAtOnce("glGenLists", {Arg(range)}, [&](Context& c) {
        if (range < 0) {
            SetError(c, GL_INVALID_VALUE);
            return;
        }
        if (range == 0)
            return;
        first = Shared().nextList;
        Shared().nextList += GLuint(range);
        for (GLsizei i = 0; i < range; i++)
            Shared().lists[first + GLuint(i)] = nullptr;
    });
    return first;
}

void glDeleteLists(GLuint first, GLsizei range)
{
    DoAtOnce("glDeleteLists", {Arg(first), Arg(range)}, [=](Context&) {
        for (GLsizei i = 0; i < range; i++)
            Shared().lists.erase(first + GLuint(i));
    });
}

GLboolean glIsList(GLuint id)
{
    GLboolean is = GL_FALSE;
    DoAtOnce("glIsList", {Arg(id)}, [&](Context&) { is = Shared().lists.count(id) != 0; });
    return is;
}

void glNewList(GLuint id, GLenum mode)
{
    DoAtOnce("glNewList", {Arg(id), Enum(mode)}, [=](Context& c) {
        if (id == 0)
            SetError(c, GL_INVALID_VALUE, "list 0");
        else if (mode != GL_COMPILE && mode != GL_COMPILE_AND_EXECUTE)
            SetError(c, GL_INVALID_ENUM);
        else if (Shared().compilingList)
            SetError(c, GL_INVALID_OPERATION, "glNewList inside of a list");
        else {
            Shared().compilingList = id;
            Shared().compileMode = mode;
            Shared().compiled.clear();
        }
    });
}

void glEndList()
{
    DoAtOnce("glEndList", {}, [](Context& c) {
        if (!Shared().compilingList) {
            SetError(c, GL_INVALID_OPERATION, "glEndList without glNewList");
            return;
        }
        Shared().lists[Shared().compilingList] = std::make_shared<std::vector<Command>>(Shared().compiled);
        Shared().nextList = std::max(Shared().nextList, Shared().compilingList + 1);
        Shared().compilingList = 0;
        Shared().compiled.clear();
    });
}

void glCallList(GLuint id)
{
    DoAnywhere("glCallList", {Arg(id)}, [=](Context& c) { RunList(c, id); });
}

// Always with the list base 0.
void glCallLists(GLsizei count, GLenum type, const void* lists)
{
    std::vector<GLint> ids;
    for (GLsizei i = 0; i < count; i++)
        ids.push_back(GLint(ListOffset(type, lists, i)));
    DoAnywhere("glCallLists", {Arg(count), Enum(type), List(ids.data(), int(ids.size()))}, [=](Context& c) {
        for (GLint id : ids)
            RunList(c, GLuint(id));
    });
}

} // extern "C"
