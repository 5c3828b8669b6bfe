// SPDX-License-Identifier: MIT
// The engine's scene types as plain text, over the standard file streams. An archive is one stream of tokens
// divided by white space, without header, tags or comments: reader and writer have to agree on the order.
//
//   int, float               the number as the stream prints it: six significant digits for a float
//   string                   the text as one token
//   Vec2                     2 floats
//   Vector3                  3 floats
//   Colour, Quaternion       4 floats
//   Matrix16, transform      16 floats
//   int list, float list     count, items
//   Material                 name, four Colours, shininess, four texture names
//   Model                    see Model.h
//   light                    string, int, Colour, float, float, int
//   weights                  int list, float list
//
// Numbers look the same under any locale. Nothing is reported and nothing is thrown.
#pragma once

#include "math/Colour.h"
#include "math/Matrix16.h"
#include "math/Quaternion.h"
#include "math/Vec2.h"
#include "math/Vector3.h"

#include <fstream>
#include <string>
#include <vector>

class Material;
class Model;

// The last three kinds of record belong to the engine's format; nothing in this production gives their
// fields a meaning.
struct LightRecord {
    std::string name;
    int kind = 0;
    Colour colour;
    float first = 0.0f;
    float second = 0.0f;
    int flags = 0;
};

struct TransformRecord {
    Matrix16 matrix = {};
};

struct WeightsRecord {
    std::vector<int> indices;
    std::vector<float> weights;
};

// Opened on construction. As soon as a token is missing or is no number where one is due, the archive has
// failed: that read and all further ones leave their values as they were. A record of several values that
// breaks off in the middle keeps those in front of the break.
//
// A list is appended to. Of a list whose items break off, the count is worked through, each further item
// being a zero or an empty face, up to MaxMissingItems; a list whose count can't be read stays as it was.
class TextArchiveReader
{
public:
    // The path may carry the data directory in any spelling (platform/Paths.h). Only a regular file opens.
    explicit TextArchiveReader(std::string path);

    bool IsGood() const { return file.is_open() && !file.fail(); } // open, and no read has failed
    void Close() { file.close(); }                                 // all further reads do nothing

    void ReadInt(int* value);
    void ReadFloat(float* value);
    void ReadString(std::string* value);
    void ReadVec2(Vec2* value);
    void ReadVector3(Vector3* value);
    void ReadColour(Colour* value);
    void ReadQuaternion(Quaternion value);
    void ReadMatrix(Matrix16 value);
    void ReadInts(std::vector<int>* list);
    void ReadFloats(std::vector<float>* list);
    void ReadMaterial(Material* material);
    void ReadModel(Model* model);
    void ReadLight(LightRecord* light);
    void ReadTransform(TransformRecord* transform);
    void ReadWeights(WeightsRecord* weights);

    // The length up to which a list is filled with made-up items once the archive has failed.
    //
    // A file that was cut off gives the full count: three vertices of a thousand, and then the end, make a list of a
    // thousand. But a count of ten digits must not allocate gigabytes. So items that are in the file are all read,
    // however many, since each takes bytes of the file, and missing ones are added only until the list holds a
    // million. No practical mesh has more, and a million empty faces take 80 MB.
    static constexpr int MaxMissingItems = 1 << 20;

private:
    void ReadFloatArray(float* values, int count);
    int ReadCount();
    bool HasItem(int index, int count) const;

    std::ifstream file;
};

// Opened on construction; a file that is there is emptied. Each value is followed by one blank. The file is
// complete after Close or the destructor. A string must have no white space in it and must not be empty: of
// an empty one only the blank is written, and the reader takes the next token for it. Numbers that are not
// finite can't be read back.
class TextArchiveWriter
{
public:
    // The path may carry the data directory in any spelling (platform/Paths.h).
    explicit TextArchiveWriter(std::string path);

    // Open, and all that was written so far was taken.
    bool IsGood() const { return file.is_open() && !file.fail(); }
    void Close() { file.close(); }

    void WriteInt(int value);
    void WriteFloat(float value);
    void WriteString(std::string value);
    void WriteVec2(const Vec2& value);
    void WriteVector3(const Vector3& value);
    void WriteColour(const Colour& value);
    void WriteQuaternion(const Quaternion value);
    void WriteMatrix(const Matrix16 value);
    void WriteInts(const std::vector<int>& list);
    void WriteFloats(const std::vector<float>& list);
    void WriteMaterial(const Material& material);
    void WriteModel(const Model& model);
    void WriteLight(const LightRecord& light);
    void WriteTransform(const TransformRecord& transform);
    void WriteWeights(const WeightsRecord& weights);

private:
    void WriteFloatArray(const float* values, int count);

    std::ofstream file;
};
