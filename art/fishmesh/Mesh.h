// SPDX-License-Identifier: MIT
// A polygon mesh while it is modelled: points with texture coordinates, and faces over them.
//
// CONVENTIONS
//   x to the right of the fish, y up, the head towards -z. Lengths are those of the finished model.
//   Faces run counter-clockwise as seen from outside.
#pragma once

#include "math/Vector3.h"
#include "resources/Model.h"

#include <vector>

namespace fishmesh
{

// What a face is made of. The number is added to the face's u, so it picks the tile of the (repeating)
// texture that the face lies in, and fish.fp tells the materials apart by it.
enum Surface {
    Skin = 0,
    Flesh = 1, // lips and the inside of the mouth
    Bone = 2,  // teeth
    Membrane = 3,
    Eyeball = 4,
    Fire = 5,
    Night = 6
};

Vector3 Cross(const Vector3& a, const Vector3& b);
float Dot(const Vector3& a, const Vector3& b);
Vector3 Normalized(Vector3 v);
Vector3 Mix(const Vector3& a, const Vector3& b, float t);
float Mix(float a, float b, float t);
float SmoothStep(float from, float to, float x); // 0 up to from, 1 beyond to; from may be the larger one

class Mesh
{
public:
    // Returns the index of the point. u and v inside the tile, 0 to 1, v upward.
    int AddPoint(const Vector3& position, float u, float v);

    // Faces with the same smoothing number share the normals of their common points.
    void AddTriangle(int a, int b, int c, Surface surface, int smoothing);
    void AddQuad(int a, int b, int c, int d, Surface surface, int smoothing);

    // Rows of points, all equally long: quads between neighbours. With closed the last column is joined to
    // the first. As seen from outside, columns run to the right and rows downward.
    void AddGrid(const std::vector<std::vector<int>>& rows, bool closed, Surface surface, int smoothing);

    const Vector3& Position(int point) const { return points[point].position; }

    // Moves all points away from one that stays.
    void Enlarge(float times, const Vector3& about);

    // The finished model: values rounded to steps of 1/10000, equal normals and texture coordinates merged.
    Model ToModel(const char* name) const;

private:
    struct MeshPoint {
        Vector3 position;
        float u, v;
    };
    struct Face {
        std::vector<int> corners;
        Surface surface;
        int smoothing;
    };

    std::vector<MeshPoint> points;
    std::vector<Face> faces;
};

// One vertex, normal, texture coordinate or face a line. False if the file can't be written.
bool WriteModelFile(const Model& model, const char* path);

} // namespace fishmesh
