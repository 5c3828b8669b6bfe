// SPDX-License-Identifier: MIT
// The text mesh: corners that point into three lists, faces that are triangles or quads.
//
// The file is plain text, tokens divided by white space, without header, tags or comments:
//
//   name
//   vertex count               then x y z of each
//   normal count               then x y z of each
//   texture coordinate count   then u v of each
//   face count                 then of each: type; vertex index count, vertex indices;
//                              normal index count, normal indices;
//                              texture coordinate index count, texture coordinate indices
//
// Indices count from 0. The origin of u and v is the lower left of the picture.
#pragma once

#include "math/Vec2.h"
#include "math/Vector3.h"
#include "resources/SceneObject.h"

#include <string>
#include <vector>

const int FaceTriangles = 0;
const int FaceQuads = 3;

// One run of triangles or quads, mostly a single one. The three lists are equally long, an entry for each
// corner.
class ModelFace
{
public:
    int type = FaceTriangles;
    std::vector<int> vertexIndices;
    std::vector<int> normalIndices;
    std::vector<int> texCoordIndices;
};

class Model : public SceneObject
{
public:
    int GetType() const override; // 1

    std::vector<Vector3> vertices;
    std::vector<Vector3> normals; // of length 1 by custom; nothing here normalises
    std::vector<Vec2> texCoords;
    std::vector<ModelFace> faces;
};

// Appends what the file holds to the lists of the model. The path may carry the data directory in any
// spelling (platform/Paths.h). Nothing is reported: a file that is missing or can't be read leaves the model
// as it was, and one that breaks off leaves what TextArchiveReader::ReadModel says.
void LoadModel(std::string path, Model* model);

// Draws in immediate mode, each face in a glBegin and glEnd of its own, in the order of the file. Needs a
// current GL context; compile it into a display list for speed. Texture, shader and state are the caller's.
// A face of a type other than the two ends the drawing; a face with a corner that points outside the lists
// is left out.
void DrawModel(Model* model);
