// SPDX-License-Identifier: MIT
// Client arrays, from memory and from buffers.
#include "tests/support/recorder/GLContext.h"

using namespace gl;

static size_t ComponentSize(GLenum type)
{
    switch (type) {
    case GL_BYTE:
    case GL_UNSIGNED_BYTE:
        return 1;
    case GL_SHORT:
    case GL_UNSIGNED_SHORT:
        return 2;
    case GL_DOUBLE:
        return 8;
    default:
        return 4;
    }
}

static double ReadComponent(const unsigned char* place, GLenum type)
{
    switch (type) {
    case GL_BYTE:
        return *reinterpret_cast<const GLbyte*>(place);
    case GL_UNSIGNED_BYTE:
        return *place;
    case GL_SHORT:
        return *reinterpret_cast<const GLshort*>(place);
    case GL_UNSIGNED_SHORT:
        return *reinterpret_cast<const GLushort*>(place);
    case GL_INT:
        return *reinterpret_cast<const GLint*>(place);
    case GL_UNSIGNED_INT:
        return *reinterpret_cast<const GLuint*>(place);
    case GL_DOUBLE:
        return *reinterpret_cast<const GLdouble*>(place);
    default:
        return *reinterpret_cast<const GLfloat*>(place);
    }
}

// Where data that a pointer call named begins: in memory, or in the buffer that was bound then. Null, with an
// error noted, where a driver would read what isn't there.
static const unsigned char* Resolve(Context& c, const void* pointer, GLuint buffer, size_t end)
{
    if (!buffer) {
        if (!pointer)
            SetError(c, 0, "an array at address 0");
        return static_cast<const unsigned char*>(pointer);
    }
    const auto found = Shared().buffers.find(buffer);
    const size_t offset = reinterpret_cast<size_t>(pointer);
    if (found == Shared().buffers.end() || offset + end > found->second.bytes.size()) {
        SetError(c, 0, "an array beyond the end of its buffer");
        return nullptr;
    }
    return found->second.bytes.data() + offset;
}

// False, with an error noted, where nothing may be read. `values` keeps what the array doesn't give.
static bool Fetch(Context& c, const ArrayPointer& array, GLuint index, double values[4])
{
    const size_t size = ComponentSize(array.type);
    const size_t packed = size_t(array.size) * size;
    const size_t start = index * (array.stride ? size_t(array.stride) : packed);
    const unsigned char* const place = Resolve(c, array.pointer, array.buffer, start + packed);
    if (!place)
        return false;
    for (int i = 0; i < array.size; i++)
        values[i] = ReadComponent(place + start + size_t(i) * size, array.type);
    return true;
}

static bool SendElement(Context& c, GLuint index)
{
    const ClientState& client = c.client;
    if (client.normal.enabled) {
        double n[4] = {0, 0, 1, 1};
        if (!Fetch(c, client.normal, index, n))
            return false;
        c.normal = Point(n[0], n[1], n[2]);
    }
    if (client.colour.enabled) {
        double v[4] = {0, 0, 0, 1};
        if (!Fetch(c, client.colour, index, v))
            return false;
        const double scale = client.colour.type == GL_UNSIGNED_BYTE ? 255 : 1;
        const double alpha = client.colour.size == 4 ? v[3] / scale : 1;
        SetColour(c, Colour(v[0] / scale, v[1] / scale, v[2] / scale, alpha));
    }
    for (int unit = 0; unit < UnitCount; unit++)
        if (client.texCoord[unit].enabled) {
            double t[4] = {0, 0, 0, 1};
            if (!Fetch(c, client.texCoord[unit], index, t))
                return false;
            c.texCoord[unit] = Point(t[0], t[1], t[2], t[3]);
        }
    if (client.vertex.enabled) {
        double p[4] = {0, 0, 0, 1};
        if (!Fetch(c, client.vertex, index, p))
            return false;
        AddVertex(c, Point(p[0], p[1], p[2], p[3]));
    }
    return true;
}

// What enabled arrays hold, apart from the memory that they lie in.
struct ArrayCopy {
    ClientState client; // points into `bytes`
    std::vector<std::vector<unsigned char>> bytes;
};

static void CopyArray(ArrayCopy* copy, ArrayPointer* array, GLint first, GLsizei count)
{
    if (!array->enabled || array->buffer || !array->pointer || first < 0 || count < 1)
        return;
    const size_t packed = size_t(array->size) * ComponentSize(array->type);
    const size_t stride = array->stride ? size_t(array->stride) : packed;
    const unsigned char* const begin =
        static_cast<const unsigned char*>(array->pointer) + size_t(first) * stride;
    copy->bytes.emplace_back(begin, begin + size_t(count - 1) * stride + packed);
    array->pointer = copy->bytes.back().data();
}

static std::shared_ptr<const ArrayCopy> CopyArrays(const ClientState& client, GLint first, GLsizei count)
{
    const auto copy = std::make_shared<ArrayCopy>();
    copy->client = client;
    CopyArray(copy.get(), &copy->client.vertex, first, count);
    CopyArray(copy.get(), &copy->client.normal, first, count);
    CopyArray(copy.get(), &copy->client.colour, first, count);
    for (ArrayPointer& array : copy->client.texCoord)
        CopyArray(copy.get(), &array, first, count);
    return copy;
}

static ArrayPointer* FindArray(Context& c, GLenum array)
{
    switch (array) {
    case GL_VERTEX_ARRAY:
        return &c.client.vertex;
    case GL_NORMAL_ARRAY:
        return &c.client.normal;
    case GL_COLOR_ARRAY:
        return &c.client.colour;
    case GL_TEXTURE_COORD_ARRAY:
        return &c.client.texCoord[c.client.activeUnit];
    default:
        SetError(c, GL_INVALID_ENUM, "not kept by the recorder");
        return nullptr;
    }
}

static void SetPointer(Context& c, GLenum array, GLint size, GLenum type, GLsizei stride, const void* pointer)
{
    if (stride < 0 || size < 1 || size > 4) {
        SetError(c, GL_INVALID_VALUE);
        return;
    }
    if (type < GL_BYTE || type > GL_DOUBLE || (type > GL_FLOAT && type < GL_DOUBLE)) {
        SetError(c, GL_INVALID_ENUM);
        return;
    }
    ArrayPointer* const target = FindArray(c, array);
    if (target)
        *target = {target->enabled, size, type, stride, pointer, c.client.arrayBuffer};
}

// An address reads as "data", an offset into a buffer as the number.
static Argument PointerText(const void* pointer)
{
    const Context* const c = Current();
    return c && c->client.arrayBuffer ? Arg(long(reinterpret_cast<intptr_t>(pointer))) : Address(pointer);
}

extern "C" {

void glEnableClientState(GLenum array)
{
    DoAtOnce("glEnableClientState", {Enum(array)}, [=](Context& c) {
        if (ArrayPointer* const target = FindArray(c, array))
            target->enabled = true;
    });
}

void glDisableClientState(GLenum array)
{
    DoAtOnce("glDisableClientState", {Enum(array)}, [=](Context& c) {
        if (ArrayPointer* const target = FindArray(c, array))
            target->enabled = false;
    });
}

void glVertexPointer(GLint size, GLenum type, GLsizei stride, const void* pointer)
{
    DoAtOnce("glVertexPointer", {Arg(size), Enum(type), Arg(stride), PointerText(pointer)},
             [=](Context& c) { SetPointer(c, GL_VERTEX_ARRAY, size, type, stride, pointer); });
}

void glNormalPointer(GLenum type, GLsizei stride, const void* pointer)
{
    DoAtOnce("glNormalPointer", {Enum(type), Arg(stride), PointerText(pointer)},
             [=](Context& c) { SetPointer(c, GL_NORMAL_ARRAY, 3, type, stride, pointer); });
}

void glColorPointer(GLint size, GLenum type, GLsizei stride, const void* pointer)
{
    DoAtOnce("glColorPointer", {Arg(size), Enum(type), Arg(stride), PointerText(pointer)},
             [=](Context& c) { SetPointer(c, GL_COLOR_ARRAY, size, type, stride, pointer); });
}

void glTexCoordPointer(GLint size, GLenum type, GLsizei stride, const void* pointer)
{
    DoAtOnce("glTexCoordPointer", {Arg(size), Enum(type), Arg(stride), PointerText(pointer)},
             [=](Context& c) { SetPointer(c, GL_TEXTURE_COORD_ARRAY, size, type, stride, pointer); });
}

void glArrayElement(GLint index)
{
    DoAnywhere("glArrayElement", {Arg(index)}, [=](Context& c) { SendElement(c, GLuint(index)); });
}

void glDrawArrays(GLenum mode, GLint first, GLsizei count)
{
    // A display list holds what the arrays hold now, and draws it without them.
    const Context* const now = Current();
    const bool compiling = now && Shared().compilingList != 0;
    const std::shared_ptr<const ArrayCopy> copy = compiling ? CopyArrays(now->client, first, count) : nullptr;
    Do("glDrawArrays", {Mode(mode), Arg(first), Arg(count)}, [=](Context& c) {
        if (mode > GL_POLYGON || first < 0 || count < 0) {
            SetError(c, mode > GL_POLYGON ? GL_INVALID_ENUM : GL_INVALID_VALUE);
            return;
        }
        const ClientState own = c.client;
        if (copy)
            c.client = copy->client;
        BeginDraw(c, mode);
        for (GLsizei i = 0; i < count; i++)
            if (!SendElement(c, GLuint(copy ? i : first + i)))
                break;
        EndDraw(c);
        c.client = own;
    });
}

void glDrawElements(GLenum mode, GLsizei count, GLenum type, const void* indices)
{
    DoAtOnce("glDrawElements", {Mode(mode), Arg(count), Enum(type), Address(indices)}, [=](Context& c) {
        if (mode > GL_POLYGON || count < 0) {
            SetError(c, mode > GL_POLYGON ? GL_INVALID_ENUM : GL_INVALID_VALUE);
            return;
        }
        BeginDraw(c, mode);
        c.draw.indexed = true;
        const size_t size = ComponentSize(type);
        const unsigned char* const list =
            count ? Resolve(c, indices, c.client.elementBuffer, size_t(count) * size) : nullptr;
        for (GLsizei i = 0; list && i < count; i++)
            if (!SendElement(c, GLuint(ReadComponent(list + size_t(i) * size, type))))
                break;
        EndDraw(c);
    });
}

} // extern "C"

// What the program calls through GLEW's pointers.

static void GLAPIENTRY ClientActiveTexture(GLenum unit)
{
    DoAtOnce("glClientActiveTexture", {Enum(unit)}, [=](Context& c) {
        if (unit < GL_TEXTURE0 || unit >= GL_TEXTURE0 + UnitCount)
            SetError(c, GL_INVALID_ENUM, "no such texture unit");
        else
            c.client.activeUnit = int(unit - GL_TEXTURE0);
    });
}

void gl::InstallArrayCalls()
{
    __glewClientActiveTexture = __glewClientActiveTextureARB = ClientActiveTexture;
}
