// SPDX-License-Identifier: MIT
// Textured quads that go to GL in one draw, in the order in which they were added. Many small quads cost
// little this way: a driver pays for each draw and for each change of a matrix between two draws.
//
//     QuadBatch sparks(QuadBatch::Colours);
//     sparks.SetColour(1, 0.5f, 0);
//     sparks.AddRectangle(0, 0, 0.1f, 0.1f);
//     sparks.Draw();
//
// Draw uses the texture, blending, matrices and lights that the caller has set, and where the batch has no
// colours or no normals of its own, also the current colour or normal. The corners lie in the memory of the
// process. A batch that never changes is filled once and drawn in each frame.
#pragma once

#include "math/Primitives.h"
#include "math/Vec3.h"

#include <cstddef>
#include <vector>

class QuadBatch
{
public:
    // What a corner has besides its place and its texture coordinate; added together.
    enum { Colours = 1, Normals = 2 };

    explicit QuadBatch(int attributes = 0); // empty; white, with the normal (0, 0, 1)

    // Empties the batch. False while nothing is drawn (platform/Drawing.h): a caller whose corners take time
    // to work out need not add them then.
    bool Begin();

    // For the corners that are added from here on.
    void SetColour(float r, float g, float b, float a = 1);
    void SetNormal(const Vec3 normal);

    // Four corners make a quad. A matrix must be affine: it moves the corner ahead of GL's matrices.
    void AddCorner(float s, float t, float x, float y, float z);
    void AddCorner(const QuadCorner& corner, const Matrix16 matrix);

    void AddQuad(const QuadCorner corners[4]);
    void AddQuad(const QuadCorner corners[4], const Matrix16 matrix);
    void AddRectangle(float left, float bottom, float right, float top); // as DrawRectangle draws it

    // As DrawBillboard draws it, with the axes of GetBillboardAxes.
    void AddBillboard(const Vec3 position, const Vec3 right, const Vec3 up, float size);

    // As DrawUnitCube draws it, its corners times the matrix and its normals times that of MatrixOfNormals.
    void AddUnitCube(const Matrix16 matrix, const Matrix16 normalMatrix);

    bool IsEmpty() const { return corners.empty(); }

    // Needs a current GL context and no buffer object bound to GL_ARRAY_BUFFER. Afterwards the current
    // texture coordinate, and the current colour and normal where the batch has them, are those of the last
    // corner. An empty batch changes nothing.
    void Draw() const;

private:
    struct Corner {
        float texCoord[2];
        float colour[4];
        float normal[3];
        float place[3];
    };

    void SendArrays() const;

    int attributes;
    Corner next; // what the next corner gets
    std::vector<Corner> corners;
};
