// SPDX-License-Identifier: MIT
#include "math/QuadBatch.h"

#include "platform/Drawing.h"

#include <GL/glew.h>

QuadBatch::QuadBatch(int newAttributes)
    : attributes(newAttributes), next{{0, 0}, {1, 1, 1, 1}, {0, 0, 1}, {0, 0, 0}}
{
}

bool QuadBatch::Begin()
{
    corners.clear();
    return platform::IsDrawing();
}

void QuadBatch::SetColour(float r, float g, float b, float a)
{
    next.colour[0] = r;
    next.colour[1] = g;
    next.colour[2] = b;
    next.colour[3] = a;
}

void QuadBatch::SetNormal(const Vec3 normal)
{
    Vec3Copy(next.normal, normal);
}

void QuadBatch::AddCorner(float s, float t, float x, float y, float z)
{
    next.texCoord[0] = s;
    next.texCoord[1] = t;
    next.place[0] = x;
    next.place[1] = y;
    next.place[2] = z;
    corners.push_back(next);
}

void QuadBatch::AddCorner(const QuadCorner& corner, const Matrix16 matrix)
{
    Vec3 place;
    for (int row = 0; row < 3; row++)
        place[row] = float(double(matrix[row]) * corner.x + double(matrix[4 + row]) * corner.y +
                           double(matrix[8 + row]) * corner.z + matrix[12 + row]);
    AddCorner(corner.s, corner.t, place[0], place[1], place[2]);
}

void QuadBatch::AddQuad(const QuadCorner quad[4])
{
    for (int i = 0; i < 4; i++)
        AddCorner(quad[i].s, quad[i].t, quad[i].x, quad[i].y, quad[i].z);
}

void QuadBatch::AddQuad(const QuadCorner quad[4], const Matrix16 matrix)
{
    for (int i = 0; i < 4; i++)
        AddCorner(quad[i], matrix);
}

void QuadBatch::AddRectangle(float left, float bottom, float right, float top)
{
    AddCorner(0, 0, left, top, 0);
    AddCorner(1, 0, right, top, 0);
    AddCorner(1, 1, right, bottom, 0);
    AddCorner(0, 1, left, bottom, 0);
}

void QuadBatch::AddBillboard(const Vec3 position, const Vec3 right, const Vec3 up, float size)
{
    Vec3 r, u;
    Vec3Scale(r, right, size);
    Vec3Scale(u, up, size);
    const float* const p = position;
    AddCorner(0, 1, p[0] - r[0] - u[0], p[1] - r[1] - u[1], p[2] - r[2] - u[2]);
    AddCorner(1, 1, p[0] + r[0] - u[0], p[1] + r[1] - u[1], p[2] + r[2] - u[2]);
    AddCorner(1, 0, p[0] + r[0] + u[0], p[1] + r[1] + u[1], p[2] + r[2] + u[2]);
    AddCorner(0, 0, p[0] - r[0] + u[0], p[1] - r[1] + u[1], p[2] - r[2] + u[2]);
}

void QuadBatch::AddUnitCube(const Matrix16 matrix, const Matrix16 normalMatrix)
{
    for (const CubeFace& face : cubeFaces) {
        Vec3Transform(next.normal, face.normal, normalMatrix);
        AddQuad(face.corners, matrix);
    }
}

void QuadBatch::Draw() const
{
    if (corners.empty())
        return;
    if (platform::IsDrawing())
        SendArrays();
    // GL leaves open what is current after a draw of arrays.
    const Corner& last = corners.back();
    glTexCoord2fv(last.texCoord);
    if (attributes & Colours)
        glColor4fv(last.colour);
    if (attributes & Normals)
        glNormal3fv(last.normal);
}

void QuadBatch::SendArrays() const
{
    const Corner* const first = corners.data();
    const GLsizei stride = sizeof(Corner);
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, stride, first->place);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glTexCoordPointer(2, GL_FLOAT, stride, first->texCoord);
    if (attributes & Colours) {
        glEnableClientState(GL_COLOR_ARRAY);
        glColorPointer(4, GL_FLOAT, stride, first->colour);
    }
    if (attributes & Normals) {
        glEnableClientState(GL_NORMAL_ARRAY);
        glNormalPointer(GL_FLOAT, stride, first->normal);
    }
    glDrawArrays(GL_QUADS, 0, GLsizei(corners.size()));
    glDisableClientState(GL_NORMAL_ARRAY);
    glDisableClientState(GL_COLOR_ARRAY);
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glDisableClientState(GL_VERTEX_ARRAY);
}
