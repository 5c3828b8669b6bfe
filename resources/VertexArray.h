// SPDX-License-Identifier: MIT
#pragma once

// Which attributes a vertex has; added together. Wherever an attribute is asked for, the test is whether any
// bit of its value is set: the third texture unit has no bit of its own, so it is there whenever the first or
// the second is.
const unsigned VertexPosition = 0x01;   // 3 floats
const unsigned VertexNormal = 0x02;     // 3
const unsigned VertexColourRGB = 0x04;  // 3
const unsigned VertexColourRGBA = 0x08; // 4
const unsigned VertexTexture0 = 0x10;   // 2
const unsigned VertexTexture1 = 0x20;   // 2
const unsigned VertexTexture2 = 0x30;   // 2 in AddVertex; 3 in the layout and in a buffer
const unsigned VertexTexture3 = 0x40;   // 2; never in a buffer

// Vertices for indexed drawing. Each attribute lies in a block of its own, and all blocks in one memory area
// or, after Upload, in a GL buffer object each. The engine carries the class for its effects; no effect of
// this production uses it.
//
// Order of calls: construct, AddVertex and AddIndex, then Upload if wanted, then Draw in each frame. Upload
// and Draw need a current GL context with its entry points loaded.
//
// Settled limits, which callers may rely on:
//   - From memory, the third and the fourth texture unit take their coordinates from the second one's block.
//   - From buffers, the fourth unit has no coordinates.
//   - Draw enables and disables texturing on the active texture unit for every unit of the format, and
//     leaves glActiveTexture alone. Effects with several units set them up themselves.
//   - A buffer object lives to the end of the process, and stays bound after Upload and Draw.
class VertexArray
{
public:
    // Room for so many vertices and indices, all zero. Where the memory does not reach, the object is as
    // after Release.
    VertexArray(unsigned flags, unsigned vertexCapacity, unsigned indexCapacity);
    ~VertexArray(); // Release

    // Appends a vertex; with addIndex its index too. values holds the floats of the present attributes, in
    // the order of the flags, next after next. False, and nothing is added, if the vertices or the wanted
    // index have no room, or if Upload has given the memory away.
    bool AddVertex(const float* values, bool addIndex);

    // Appends an index, which may be that of a vertex still to come. False if there is no room.
    bool AddIndex(unsigned index);

    // Copies the blocks of the vertices so far into buffer objects, from which Draw then takes them. Without
    // keepData the memory is freed. Only the first call does anything; none does where the GL has no buffer
    // objects.
    void Upload(bool keepData);

    // Draws all indices with a primitive mode of the GL. Draws nothing if one of them points past the
    // memory, or past what was uploaded.
    void Draw(int mode);

    // Frees the memory and makes the object empty, for good.
    void Release();

    unsigned* indices; // indexCapacity entries, owned
    float* data;       // the blocks, owned; null after an Upload without keepData
    unsigned vertexCount;
    unsigned indexCount;
    unsigned vertexCapacity;
    unsigned indexCapacity;
    unsigned flags;
    unsigned positionOffset; // of a block in data, in floats; 0 for an attribute that is not there
    unsigned normalOffset;
    unsigned colourOffset; // of the RGBA block if there are both
    unsigned texCoordOffset[4];
    unsigned* bufferIds; // 7 names: position, normal, colour, texture units 0 to 3; null until Upload

private:
    VertexArray(const VertexArray&) = delete;
    VertexArray& operator=(const VertexArray&) = delete;

    bool Has(unsigned attribute) const { return (flags & attribute) != 0; }
    unsigned& OffsetOf(int buffer);
    bool LayOut();
    void UploadBlock(int buffer, unsigned offset, unsigned floatsPerVertex);
    void BindFromMemory();
    void BindFromBuffers();
    void Unbind();
    bool IndicesAreInside() const;

    unsigned uploadedCount; // vertices in the buffer objects
};
