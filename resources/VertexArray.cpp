// SPDX-License-Identifier: MIT
#include "resources/VertexArray.h"

#include <GL/glew.h>

#include <algorithm>
#include <climits>
#include <cstdlib>

// Order of bufferIds; the texture units follow each other.
static const int PositionBuffer = 0;
static const int NormalBuffer = 1;
static const int ColourBuffer = 2;
static const int TextureBuffer = 3;
static const int BufferCount = 7;

struct VertexAttribute {
    unsigned flag;
    int buffer;
    GLenum array;          // for glEnableClientState
    unsigned storedFloats; // of a vertex, by AddVertex
    unsigned floats;       // of a vertex, in the layout and in a buffer
};

// clang-format off
static const VertexAttribute attributes[] = {
    {VertexPosition,   PositionBuffer,    GL_VERTEX_ARRAY,        3, 3},
    {VertexNormal,     NormalBuffer,      GL_NORMAL_ARRAY,        3, 3},
    {VertexColourRGB,  ColourBuffer,      GL_COLOR_ARRAY,         3, 3},
    {VertexColourRGBA, ColourBuffer,      GL_COLOR_ARRAY,         4, 4}, // one field for both offsets: the RGB block stays unused
    {VertexTexture0,   TextureBuffer + 0, GL_TEXTURE_COORD_ARRAY, 2, 2},
    {VertexTexture1,   TextureBuffer + 1, GL_TEXTURE_COORD_ARRAY, 2, 2},
    {VertexTexture2,   TextureBuffer + 2, GL_TEXTURE_COORD_ARRAY, 2, 3},
    {VertexTexture3,   TextureBuffer + 3, GL_TEXTURE_COORD_ARRAY, 2, 2},
};
// clang-format on

static const unsigned unitAttributes[] = {VertexTexture0, VertexTexture1, VertexTexture2, VertexTexture3};

// Set by the first upload in the process. From then on a buffer may be left bound, in whichever context, and
// GL would take a pointer into memory for an offset into that buffer.
static bool buffersInUse = false;

VertexArray::VertexArray(unsigned format, unsigned vertexRoom, unsigned indexRoom)
    : indices(nullptr), data(nullptr), vertexCount(0), indexCount(0), vertexCapacity(vertexRoom),
      indexCapacity(indexRoom), flags(format), positionOffset(0), normalOffset(0), colourOffset(0),
      texCoordOffset(), bufferIds(nullptr), uploadedCount(0)
{
    indices = static_cast<unsigned*>(calloc(size_t(indexCapacity) + 1, sizeof(unsigned)));
    if (!LayOut() || !indices)
        Release();
}

VertexArray::~VertexArray()
{
    Release();
}

// Of the block whose buffer this is.
unsigned& VertexArray::OffsetOf(int buffer)
{
    unsigned* const offsets[] = {&positionOffset, &normalOffset, &colourOffset};
    return buffer < TextureBuffer ? *offsets[buffer] : texCoordOffset[buffer - TextureBuffer];
}

// Sums up the blocks, and takes the memory for all of them. False if it can't be had, or if an offset would
// not fit into its field.
bool VertexArray::LayOut()
{
    size_t floats = 0;
    for (const VertexAttribute& attribute : attributes) {
        if (!Has(attribute.flag))
            continue;
        OffsetOf(attribute.buffer) = static_cast<unsigned>(floats);
        floats += size_t(attribute.floats) * vertexCapacity;
    }
    if (floats > UINT_MAX)
        return false;
    data = static_cast<float*>(calloc(floats + 1, sizeof(float))); // + 1: null means that there is none
    return data != nullptr;
}

static const float* Store(float* block, unsigned vertex, unsigned floatsPerVertex, const float* values)
{
    for (unsigned i = 0; i < floatsPerVertex; ++i)
        block[size_t(vertex) * floatsPerVertex + i] = values[i];
    return values + floatsPerVertex;
}

bool VertexArray::AddVertex(const float* values, bool addIndex)
{
    if (vertexCount >= vertexCapacity || !data)
        return false;
    if (addIndex && !AddIndex(vertexCount))
        return false;

    for (const VertexAttribute& attribute : attributes)
        if (Has(attribute.flag))
            values = Store(data + OffsetOf(attribute.buffer), vertexCount, attribute.storedFloats, values);
    ++vertexCount;
    return true;
}

bool VertexArray::AddIndex(unsigned index)
{
    if (indexCount >= indexCapacity)
        return false;
    indices[indexCount++] = index;
    return true;
}

void VertexArray::Upload(bool keepData)
{
    if (bufferIds || !glGenBuffersARB || !glBindBufferARB || !glBufferDataARB)
        return;
    bufferIds = static_cast<unsigned*>(calloc(BufferCount, sizeof(unsigned)));
    if (!bufferIds)
        return;

    for (const VertexAttribute& attribute : attributes)
        if (Has(attribute.flag) && attribute.flag != VertexTexture3) // whose name stays 0
            UploadBlock(attribute.buffer, OffsetOf(attribute.buffer), attribute.floats);

    uploadedCount = vertexCount;
    buffersInUse = true;
    if (!keepData) {
        free(data);
        data = nullptr;
    }
}

void VertexArray::UploadBlock(int buffer, unsigned offset, unsigned floatsPerVertex)
{
    const size_t bytes = size_t(vertexCount) * floatsPerVertex * sizeof(float);
    glGenBuffersARB(1, &bufferIds[buffer]);
    glBindBufferARB(GL_ARRAY_BUFFER_ARB, bufferIds[buffer]);
    glBufferDataARB(GL_ARRAY_BUFFER_ARB, static_cast<GLsizeiptrARB>(bytes), data + offset,
                    GL_STATIC_DRAW_ARB);
}

void VertexArray::Draw(int mode)
{
    if (bufferIds)
        BindFromBuffers();
    else
        BindFromMemory();
    if (IndicesAreInside())
        glDrawElements(static_cast<GLenum>(mode), static_cast<GLsizei>(indexCount), GL_UNSIGNED_INT, indices);
    Unbind();
}

// AddIndex takes any number, and GL would read whatever lies there.
bool VertexArray::IndicesAreInside() const
{
    const unsigned limit = bufferIds ? uploadedCount : vertexCapacity;
    return std::all_of(indices, indices + indexCount, [limit](unsigned index) { return index < limit; });
}

static void EnableUnit(unsigned unit)
{
    glClientActiveTexture(GL_TEXTURE0 + unit);
    glEnable(GL_TEXTURE_2D);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
}

static void SetPointer(const VertexAttribute& attribute, const float* pointer)
{
    const GLint floats = GLint(attribute.floats);
    if (attribute.array == GL_VERTEX_ARRAY)
        glVertexPointer(floats, GL_FLOAT, 0, pointer);
    else if (attribute.array == GL_NORMAL_ARRAY)
        glNormalPointer(GL_FLOAT, 0, pointer);
    else if (attribute.array == GL_COLOR_ARRAY)
        glColorPointer(floats, GL_FLOAT, 0, pointer);
    else
        glTexCoordPointer(floats, GL_FLOAT, 0, pointer);
}

void VertexArray::BindFromMemory()
{
    if (buffersInUse)
        glBindBufferARB(GL_ARRAY_BUFFER_ARB, 0);

    for (const VertexAttribute& attribute : attributes) {
        if (!Has(attribute.flag) || attribute.array == GL_TEXTURE_COORD_ARRAY)
            continue;
        glEnableClientState(attribute.array);
        SetPointer(attribute, data + OffsetOf(attribute.buffer));
    }
    if (Has(VertexTexture0)) {
        // Here the enable comes first, unlike with the other units and with buffers.
        glEnable(GL_TEXTURE_2D);
        glClientActiveTexture(GL_TEXTURE0);
        glEnableClientState(GL_TEXTURE_COORD_ARRAY);
        glTexCoordPointer(2, GL_FLOAT, 0, data + texCoordOffset[0]);
    }
    for (unsigned unit = 1; unit < 4; ++unit) {
        if (!Has(unitAttributes[unit]))
            continue;
        EnableUnit(unit);
        glTexCoordPointer(2, GL_FLOAT, 0, data + texCoordOffset[1]); // the last two share the block of unit 1
    }
}

void VertexArray::BindFromBuffers()
{
    for (const VertexAttribute& attribute : attributes) {
        if (!Has(attribute.flag))
            continue;
        if (attribute.array == GL_TEXTURE_COORD_ARRAY)
            EnableUnit(unsigned(attribute.buffer - TextureBuffer));
        else
            glEnableClientState(attribute.array);
        glBindBufferARB(GL_ARRAY_BUFFER_ARB, bufferIds[attribute.buffer]);
        SetPointer(attribute, nullptr);
    }
    // The name of the last unit's buffer is 0, so the pointer is the address 0, and a draw would read there. Switching
    // the array off again leaves every other call as it is and the unit with one constant coordinate.
    if (Has(VertexTexture3))
        glDisableClientState(GL_TEXTURE_COORD_ARRAY);
}

void VertexArray::Unbind()
{
    if (Has(VertexPosition))
        glDisableClientState(GL_VERTEX_ARRAY);
    if (Has(VertexNormal))
        glDisableClientState(GL_NORMAL_ARRAY);
    if (Has(VertexColourRGB | VertexColourRGBA))
        glDisableClientState(GL_COLOR_ARRAY);

    for (unsigned unit = 0; unit < 4; ++unit) {
        if (!Has(unitAttributes[unit]))
            continue;
        glClientActiveTexture(GL_TEXTURE0 + unit);
        glDisable(GL_TEXTURE_2D);
        glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    }
}

void VertexArray::Release()
{
    flags = 0;
    vertexCount = 0;
    indexCount = 0;
    vertexCapacity = 0;
    indexCapacity = 0;
    positionOffset = 0;
    normalOffset = 0;
    colourOffset = 0;
    for (unsigned& offset : texCoordOffset)
        offset = 0;
    uploadedCount = 0;

    free(data);
    free(indices);
    data = nullptr;
    indices = nullptr;
    // Which buffers to delete goes by the flags, and those are 0 by now: the buffers and the array of their
    // names live to the end of the process.
}
