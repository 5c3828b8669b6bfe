// SPDX-License-Identifier: MIT
#include "resources/TextArchive.h"

#include "platform/Paths.h"
#include "platform/RegularFile.h"
#include "resources/Material.h"
#include "resources/Model.h"

#include <locale>

TextArchiveReader::TextArchiveReader(std::string path)
{
    file.imbue(std::locale::classic());
    const std::string resolved = platform::ResolvePath(path);
    if (platform::IsRegularFile(resolved))
        file.open(resolved);
}

// The stream itself stores a zero or a limit when it fails. Going by way of a local keeps the value, and
// above all keeps a count of 99999999999 from turning into the largest int.
void TextArchiveReader::ReadInt(int* value)
{
    int read;
    if (file >> read)
        *value = read;
}

void TextArchiveReader::ReadFloat(float* value)
{
    float read;
    if (file >> read)
        *value = read;
}

void TextArchiveReader::ReadString(std::string* value)
{
    std::string read;
    if (file >> read)
        *value = read;
}

void TextArchiveReader::ReadVec2(Vec2* value)
{
    ReadFloat(&value->u);
    ReadFloat(&value->v);
}

void TextArchiveReader::ReadVector3(Vector3* value)
{
    ReadFloat(&value->x);
    ReadFloat(&value->y);
    ReadFloat(&value->z);
}

void TextArchiveReader::ReadColour(Colour* value)
{
    ReadFloat(&value->r);
    ReadFloat(&value->g);
    ReadFloat(&value->b);
    ReadFloat(&value->a);
}

void TextArchiveReader::ReadQuaternion(Quaternion value)
{
    ReadFloatArray(value, 4);
}

void TextArchiveReader::ReadMatrix(Matrix16 value)
{
    ReadFloatArray(value, 16);
}

void TextArchiveReader::ReadFloatArray(float* values, int count)
{
    for (int i = 0; i < count; ++i)
        ReadFloat(&values[i]);
}

int TextArchiveReader::ReadCount()
{
    int count = 0;
    ReadInt(&count);
    return count;
}

bool TextArchiveReader::HasItem(int index, int count) const
{
    return index < count && (IsGood() || index < MaxMissingItems);
}

void TextArchiveReader::ReadInts(std::vector<int>* list)
{
    const int count = ReadCount();
    for (int i = 0; HasItem(i, count); ++i) {
        list->push_back(0);
        ReadInt(&list->back());
    }
}

void TextArchiveReader::ReadFloats(std::vector<float>* list)
{
    const int count = ReadCount();
    for (int i = 0; HasItem(i, count); ++i) {
        list->push_back(0.0f);
        ReadFloat(&list->back());
    }
}

void TextArchiveReader::ReadMaterial(Material* material)
{
    ReadString(&material->name);
    ReadColour(&material->ambient);
    ReadColour(&material->diffuse);
    ReadColour(&material->specular);
    ReadColour(&material->emission);
    ReadFloat(&material->shininess);
    for (std::string& textureName : material->textureNames)
        ReadString(&textureName);
}

void TextArchiveReader::ReadModel(Model* model)
{
    ReadString(&model->name);

    const int vertexCount = ReadCount();
    for (int i = 0; HasItem(i, vertexCount); ++i) {
        model->vertices.emplace_back();
        ReadVector3(&model->vertices.back());
    }

    const int normalCount = ReadCount();
    for (int i = 0; HasItem(i, normalCount); ++i) {
        model->normals.emplace_back();
        ReadVector3(&model->normals.back());
    }

    const int texCoordCount = ReadCount();
    for (int i = 0; HasItem(i, texCoordCount); ++i) {
        model->texCoords.emplace_back();
        ReadVec2(&model->texCoords.back());
    }

    const int faceCount = ReadCount();
    for (int i = 0; HasItem(i, faceCount); ++i) {
        model->faces.emplace_back();
        ModelFace& face = model->faces.back();
        ReadInt(&face.type);
        ReadInts(&face.vertexIndices);
        ReadInts(&face.normalIndices);
        ReadInts(&face.texCoordIndices);
    }
}

void TextArchiveReader::ReadLight(LightRecord* light)
{
    ReadString(&light->name);
    ReadInt(&light->kind);
    ReadColour(&light->colour);
    ReadFloat(&light->first);
    ReadFloat(&light->second);
    ReadInt(&light->flags);
}

void TextArchiveReader::ReadTransform(TransformRecord* transform)
{
    ReadMatrix(transform->matrix);
}

void TextArchiveReader::ReadWeights(WeightsRecord* weights)
{
    ReadInts(&weights->indices);
    ReadFloats(&weights->weights);
}

TextArchiveWriter::TextArchiveWriter(std::string path)
{
    file.imbue(std::locale::classic());
    file.open(platform::ResolvePath(path));
}

void TextArchiveWriter::WriteInt(int value)
{
    file << value << ' ';
}

void TextArchiveWriter::WriteFloat(float value)
{
    file << value << ' ';
}

void TextArchiveWriter::WriteString(std::string value)
{
    file << value << ' ';
}

void TextArchiveWriter::WriteVec2(const Vec2& value)
{
    WriteFloat(value.u);
    WriteFloat(value.v);
}

void TextArchiveWriter::WriteVector3(const Vector3& value)
{
    WriteFloat(value.x);
    WriteFloat(value.y);
    WriteFloat(value.z);
}

void TextArchiveWriter::WriteColour(const Colour& value)
{
    WriteFloat(value.r);
    WriteFloat(value.g);
    WriteFloat(value.b);
    WriteFloat(value.a);
}

void TextArchiveWriter::WriteQuaternion(const Quaternion value)
{
    WriteFloatArray(value, 4);
}

void TextArchiveWriter::WriteMatrix(const Matrix16 value)
{
    WriteFloatArray(value, 16);
}

void TextArchiveWriter::WriteFloatArray(const float* values, int count)
{
    for (int i = 0; i < count; ++i)
        WriteFloat(values[i]);
}

void TextArchiveWriter::WriteInts(const std::vector<int>& list)
{
    WriteInt(static_cast<int>(list.size()));
    for (int item : list)
        WriteInt(item);
}

void TextArchiveWriter::WriteFloats(const std::vector<float>& list)
{
    WriteInt(static_cast<int>(list.size()));
    for (float item : list)
        WriteFloat(item);
}

void TextArchiveWriter::WriteMaterial(const Material& material)
{
    WriteString(material.name);
    WriteColour(material.ambient);
    WriteColour(material.diffuse);
    WriteColour(material.specular);
    WriteColour(material.emission);
    WriteFloat(material.shininess);
    for (const std::string& textureName : material.textureNames)
        WriteString(textureName);
}

void TextArchiveWriter::WriteModel(const Model& model)
{
    WriteString(model.name);
    WriteInt(static_cast<int>(model.vertices.size()));
    for (const Vector3& vertex : model.vertices)
        WriteVector3(vertex);
    WriteInt(static_cast<int>(model.normals.size()));
    for (const Vector3& normal : model.normals)
        WriteVector3(normal);
    WriteInt(static_cast<int>(model.texCoords.size()));
    for (const Vec2& texCoord : model.texCoords)
        WriteVec2(texCoord);
    WriteInt(static_cast<int>(model.faces.size()));
    for (const ModelFace& face : model.faces) {
        WriteInt(face.type);
        WriteInts(face.vertexIndices);
        WriteInts(face.normalIndices);
        WriteInts(face.texCoordIndices);
    }
}

void TextArchiveWriter::WriteLight(const LightRecord& light)
{
    WriteString(light.name);
    WriteInt(light.kind);
    WriteColour(light.colour);
    WriteFloat(light.first);
    WriteFloat(light.second);
    WriteInt(light.flags);
}

void TextArchiveWriter::WriteTransform(const TransformRecord& transform)
{
    WriteMatrix(transform.matrix);
}

void TextArchiveWriter::WriteWeights(const WeightsRecord& weights)
{
    WriteInts(weights.indices);
    WriteFloats(weights.weights);
}
