// SPDX-License-Identifier: MIT
// Immediate-mode helpers. They need a current GL context and draw with the texture, colour, blending and
// culling that the caller has set. While drawing is switched off (platform/Drawing.h) they send no vertices.
#pragma once

#include "math/Vec3.h"

// A corner of a textured quad.
struct QuadCorner {
    float s, t;
    float x, y, z;
};

// A quad with its corners in the order given, without a normal.
void DrawQuad(const QuadCorner corners[4]);

// A rectangle in the plane z = 0, clockwise from its upper left corner, without a normal. The texture fills
// it down to the row lowestT, its first row (t = 0) along the edge `top`.
void DrawRectangle(float left, float bottom, float right, float top, float lowestT = 1);

// The same round the origin.
void DrawCentredRectangle(float width, float height);

// Calls a display list that holds geometry. What else the list sets must not matter later, since it isn't
// called while drawing is switched off.
void CallGeometryList(unsigned list);

// A face of the cube below.
struct CubeFace {
    Vec3 normal;
    QuadCorner corners[4];
};
extern const CubeFace cubeFaces[6];

// A cube with sides of length 1 round the origin, with normals, the whole texture on each face. The bottom
// face runs clockwise as seen from outside: with back-face culling it is missing.
void DrawUnitCube();

// A textured quad at a position of the current modelview matrix that faces the viewer, 2 * size on a side,
// without a normal. The top row of the texture (t = 0) is at the top. The axes are the rows of the
// modelview matrix as they are: where that scales, the quad is scaled twice.
// Leaves the matrix as it was and the matrix mode at GL_MODELVIEW.
void DrawBillboard(const Vec3 position, float size);

// The axes of DrawBillboard's quad: the first two rows of the modelview matrix.
void GetBillboardAxes(Vec3 right, Vec3 up);
