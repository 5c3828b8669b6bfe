// SPDX-License-Identifier: MIT
#include "resources/Model.h"

#include "resources/TextArchive.h"

#include <GL/glew.h>

int Model::GetType() const
{
    return 1;
}

void LoadModel(std::string path, Model* model)
{
    TextArchiveReader archive(path);
    if (archive.IsGood())
        archive.ReadModel(model);
    archive.Close();
}

static bool PointsInto(const std::vector<int>& indices, size_t corner, size_t listSize)
{
    // A negative index becomes a huge one, and so is caught by the same comparison.
    return corner < indices.size() && static_cast<size_t>(indices[corner]) < listSize;
}

// The file is not checked when it is read, so each face is checked here, as a whole: a quad with one corner
// left out would pull the corners of the next quad of its run out of step.
static bool CanDraw(const Model& model, const ModelFace& face)
{
    for (size_t corner = 0; corner < face.vertexIndices.size(); ++corner)
        if (!PointsInto(face.vertexIndices, corner, model.vertices.size()) ||
            !PointsInto(face.normalIndices, corner, model.normals.size()) ||
            !PointsInto(face.texCoordIndices, corner, model.texCoords.size()))
            return false;
    return true;
}

void DrawModel(Model* model)
{
    for (const ModelFace& face : model->faces) {
        GLenum primitive = GL_TRIANGLES;
        if (face.type == FaceQuads)
            primitive = GL_QUADS;
        else if (face.type != FaceTriangles)
            return;
        if (!CanDraw(*model, face))
            continue;

        glBegin(primitive);
        {
            for (size_t corner = 0; corner < face.vertexIndices.size(); ++corner) {
                const Vec2& texCoord = model->texCoords[face.texCoordIndices[corner]];
                const Vector3& normal = model->normals[face.normalIndices[corner]];
                const Vector3& vertex = model->vertices[face.vertexIndices[corner]];
                // The file's v starts at the bottom, the rows of a loaded picture at the top.
                glTexCoord2f(texCoord.u, 1.0f - texCoord.v);
                glNormal3f(normal.x, normal.y, normal.z);
                glVertex3f(vertex.x, vertex.y, vertex.z);
            }
        }
        glEnd();
    }
}
