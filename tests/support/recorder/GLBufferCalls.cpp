// SPDX-License-Identifier: MIT
// Buffer objects, framebuffer objects and renderbuffers.
#include "tests/support/recorder/GLContext.h"

using namespace gl;

// ---- Buffers

static void GLAPIENTRY GenBuffers(GLsizei count, GLuint* names)
{
    DoAtOnce("glGenBuffers", {Arg(count)}, [=](Context&) {
        for (GLsizei i = 0; i < count; i++) {
            names[i] = Shared().nextBuffer++;
            Shared().buffers[names[i]];
        }
    });
}

static void GLAPIENTRY DeleteBuffers(GLsizei count, const GLuint* names)
{
    const std::vector<GLint> list(names, names + count);
    DoAtOnce("glDeleteBuffers", {Arg(count), List(list.data(), count)}, [=](Context&) {
        for (GLint name : list)
            Shared().buffers.erase(GLuint(name));
    });
}

static GLuint* BufferBinding(Context& c, GLenum target)
{
    if (target == GL_ARRAY_BUFFER)
        return &c.client.arrayBuffer;
    if (target == GL_ELEMENT_ARRAY_BUFFER)
        return &c.client.elementBuffer;
    SetError(c, GL_INVALID_ENUM, "not kept by the recorder");
    return nullptr;
}

static void GLAPIENTRY BindBuffer(GLenum target, GLuint name)
{
    DoAtOnce("glBindBuffer", {Enum(target), Arg(name)}, [=](Context& c) {
        if (GLuint* const binding = BufferBinding(c, target)) {
            *binding = name;
            if (name)
                Shared().buffers[name];
        }
    });
}

static void GLAPIENTRY BufferData(GLenum target, GLsizeiptr size, const void* data, GLenum usage)
{
    DoAtOnce("glBufferData", {Enum(target), Arg(long(size)), Address(data), Enum(usage)}, [=](Context& c) {
        const GLuint* const binding = BufferBinding(c, target);
        if (!binding)
            return;
        if (!*binding || size < 0) {
            SetError(c, *binding ? GL_INVALID_VALUE : GL_INVALID_OPERATION);
            return;
        }
        std::vector<unsigned char>& bytes = Shared().buffers[*binding].bytes;
        bytes.assign(size_t(size), 0);
        const unsigned char* const source = static_cast<const unsigned char*>(data);
        if (source)
            bytes.assign(source, source + size);
    });
}

static GLboolean GLAPIENTRY IsBuffer(GLuint name)
{
    GLboolean is = GL_FALSE;
    DoAtOnce("glIsBuffer", {Arg(name)}, [&](Context&) { is = Shared().buffers.count(name) != 0; });
    return is;
}

// ---- Framebuffers

static void GLAPIENTRY GenFramebuffers(GLsizei count, GLuint* names)
{
    DoAtOnce("glGenFramebuffers", {Arg(count)}, [=](Context& c) {
        for (GLsizei i = 0; i < count; i++) {
            names[i] = Shared().nextFramebuffer++;
            c.framebuffers[names[i]] = {0, 0, 0};
        }
    });
}

static void GLAPIENTRY DeleteFramebuffers(GLsizei count, const GLuint* names)
{
    const std::vector<GLint> list(names, names + count);
    DoAtOnce("glDeleteFramebuffers", {Arg(count), List(list.data(), count)}, [=](Context& c) {
        for (GLint name : list) {
            c.framebuffers.erase(GLuint(name));
            if (c.state.framebuffer == GLuint(name))
                c.state.framebuffer = 0;
        }
        c.changed = true;
    });
}

static void GLAPIENTRY BindFramebuffer(GLenum target, GLuint name)
{
    Do("glBindFramebuffer", {Enum(target), Arg(name)}, [=](Context& c) {
        if (name && !c.framebuffers.count(name)) {
            SetError(c, GL_INVALID_OPERATION, "this context has no such framebuffer");
            return;
        }
        if (target != GL_READ_FRAMEBUFFER)
            c.state.framebuffer = name;
        c.changed = true;
    });
}

static FramebufferObject* BoundFramebuffer(Context& c)
{
    const auto found = c.framebuffers.find(c.state.framebuffer);
    if (found != c.framebuffers.end())
        return &found->second;
    SetError(c, GL_INVALID_OPERATION, "the window is bound");
    return nullptr;
}

static void GLAPIENTRY FramebufferTexture2D(GLenum target, GLenum attachment, GLenum textureTarget,
                                            GLuint texture, GLint level)
{
    Do("glFramebufferTexture2D",
       {Enum(target), Enum(attachment), Enum(textureTarget), Arg(texture), Arg(level)}, [=](Context& c) {
           FramebufferObject* const framebuffer = BoundFramebuffer(c);
           if (!framebuffer)
               return;
           if (texture && !Shared().textures.count(texture))
               SetError(c, GL_INVALID_OPERATION, "no such texture");
           else if (attachment == GL_COLOR_ATTACHMENT0)
               framebuffer->colour = texture;
       });
}

static void GLAPIENTRY FramebufferRenderbuffer(GLenum target, GLenum attachment, GLenum renderbufferTarget,
                                               GLuint name)
{
    Do("glFramebufferRenderbuffer", {Enum(target), Enum(attachment), Enum(renderbufferTarget), Arg(name)},
       [=](Context& c) {
           FramebufferObject* const framebuffer = BoundFramebuffer(c);
           if (!framebuffer)
               return;
           if (attachment == GL_COLOR_ATTACHMENT0)
               framebuffer->colourBuffer = name;
           else
               framebuffer->depth = name;
       });
}

static GLenum GLAPIENTRY CheckFramebufferStatus(GLenum target)
{
    GLenum status = 0;
    DoAtOnce("glCheckFramebufferStatus", {Enum(target)}, [&](Context& c) {
        const auto found = c.framebuffers.find(c.state.framebuffer);
        const bool complete =
            found == c.framebuffers.end() || found->second.colour || found->second.colourBuffer;
        status = complete ? GL_FRAMEBUFFER_COMPLETE : GL_FRAMEBUFFER_INCOMPLETE_MISSING_ATTACHMENT;
    });
    return status;
}

static void GLAPIENTRY BlitFramebuffer(GLint x0, GLint y0, GLint x1, GLint y1, GLint toX0, GLint toY0,
                                       GLint toX1, GLint toY1, GLbitfield mask, GLenum filter)
{
    Do("glBlitFramebuffer",
       {Arg(x0), Arg(y0), Arg(x1), Arg(y1), Arg(toX0), Arg(toY0), Arg(toX1), Arg(toY1), Arg(mask),
        Enum(filter)},
       [](Context&) {});
}

static void GLAPIENTRY GenRenderbuffers(GLsizei count, GLuint* names)
{
    DoAtOnce("glGenRenderbuffers", {Arg(count)}, [=](Context&) {
        for (GLsizei i = 0; i < count; i++) {
            names[i] = Shared().nextRenderbuffer++;
            Shared().renderbuffers.insert(names[i]);
        }
    });
}

static void GLAPIENTRY DeleteRenderbuffers(GLsizei count, const GLuint* names)
{
    const std::vector<GLint> list(names, names + count);
    DoAtOnce("glDeleteRenderbuffers", {Arg(count), List(list.data(), count)}, [=](Context&) {
        for (GLint name : list)
            Shared().renderbuffers.erase(GLuint(name));
    });
}

static void GLAPIENTRY BindRenderbuffer(GLenum target, GLuint name)
{
    Do("glBindRenderbuffer", {Enum(target), Arg(name)}, [=](Context& c) { c.renderbuffer = name; });
}

static void GLAPIENTRY RenderbufferStorage(GLenum target, GLenum format, GLsizei width, GLsizei height)
{
    Do("glRenderbufferStorage", {Enum(target), Enum(format), Arg(width), Arg(height)}, [](Context& c) {
        if (!c.renderbuffer)
            SetError(c, GL_INVALID_OPERATION, "no renderbuffer is bound");
    });
}

void gl::InstallBufferCalls()
{
    __GLEW_ARB_vertex_buffer_object = __GLEW_ARB_framebuffer_object = __GLEW_EXT_framebuffer_object = GL_TRUE;

    // clang-format off
    __glewGenBuffers    = __glewGenBuffersARB    = GenBuffers;
    __glewDeleteBuffers = __glewDeleteBuffersARB = DeleteBuffers;
    __glewBindBuffer    = __glewBindBufferARB    = BindBuffer;
    __glewBufferData    = __glewBufferDataARB    = BufferData;
    __glewIsBuffer      = __glewIsBufferARB      = IsBuffer;

    __glewGenFramebuffers         = __glewGenFramebuffersEXT         = GenFramebuffers;
    __glewDeleteFramebuffers      = __glewDeleteFramebuffersEXT      = DeleteFramebuffers;
    __glewBindFramebuffer         = __glewBindFramebufferEXT         = BindFramebuffer;
    __glewFramebufferTexture2D    = __glewFramebufferTexture2DEXT    = FramebufferTexture2D;
    __glewFramebufferRenderbuffer = __glewFramebufferRenderbufferEXT = FramebufferRenderbuffer;
    __glewCheckFramebufferStatus  = __glewCheckFramebufferStatusEXT  = CheckFramebufferStatus;
    __glewBlitFramebuffer         = __glewBlitFramebufferEXT         = BlitFramebuffer;
    __glewGenRenderbuffers        = __glewGenRenderbuffersEXT        = GenRenderbuffers;
    __glewDeleteRenderbuffers     = __glewDeleteRenderbuffersEXT     = DeleteRenderbuffers;
    __glewBindRenderbuffer        = __glewBindRenderbufferEXT        = BindRenderbuffer;
    __glewRenderbufferStorage     = __glewRenderbufferStorageEXT     = RenderbufferStorage;
    // clang-format on
}
