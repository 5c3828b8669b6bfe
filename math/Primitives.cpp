// SPDX-License-Identifier: MIT
#include "math/Primitives.h"

#include "math/Matrix16.h"
#include "platform/Drawing.h"

#include <GL/glew.h>

// clang-format off
const CubeFace cubeFaces[6] = {
    // normal       s, t    x      y      z
    {{ 0,  1,  0}, {{0, 0, -0.5f,  0.5f,  0.5f}, {1, 0,  0.5f,  0.5f,  0.5f}, {1, 1,  0.5f,  0.5f, -0.5f}, {0, 1, -0.5f,  0.5f, -0.5f}}}, // top
    // The corners of the bottom are in the order of the top's, so it runs clockwise. So it stays.
    {{ 0, -1,  0}, {{0, 0, -0.5f, -0.5f,  0.5f}, {1, 0,  0.5f, -0.5f,  0.5f}, {1, 1,  0.5f, -0.5f, -0.5f}, {0, 1, -0.5f, -0.5f, -0.5f}}}, // bottom
    {{ 0,  0,  1}, {{0, 0,  0.5f,  0.5f,  0.5f}, {1, 0, -0.5f,  0.5f,  0.5f}, {1, 1, -0.5f, -0.5f,  0.5f}, {0, 1,  0.5f, -0.5f,  0.5f}}}, // front
    {{ 0,  0, -1}, {{0, 0, -0.5f,  0.5f, -0.5f}, {1, 0,  0.5f,  0.5f, -0.5f}, {1, 1,  0.5f, -0.5f, -0.5f}, {0, 1, -0.5f, -0.5f, -0.5f}}}, // back
    {{-1,  0,  0}, {{0, 0, -0.5f,  0.5f,  0.5f}, {1, 0, -0.5f,  0.5f, -0.5f}, {1, 1, -0.5f, -0.5f, -0.5f}, {0, 1, -0.5f, -0.5f,  0.5f}}}, // left
    {{ 1,  0,  0}, {{0, 0,  0.5f,  0.5f, -0.5f}, {1, 0,  0.5f,  0.5f,  0.5f}, {1, 1,  0.5f, -0.5f,  0.5f}, {0, 1,  0.5f, -0.5f, -0.5f}}}, // right
};
// clang-format on

void DrawQuad(const QuadCorner corners[4])
{
    if (!platform::IsDrawing())
        return;
    glBegin(GL_QUADS);
    {
        for (int i = 0; i < 4; i++) {
            glTexCoord2f(corners[i].s, corners[i].t);
            glVertex3f(corners[i].x, corners[i].y, corners[i].z);
        }
    }
    glEnd();
}

void DrawRectangle(float left, float bottom, float right, float top, float lowestT)
{
    if (!platform::IsDrawing())
        return;
    glBegin(GL_QUADS);
    {
        glTexCoord2f(0, 0);
        glVertex2f(left, top);
        glTexCoord2f(1, 0);
        glVertex2f(right, top);
        glTexCoord2f(1, lowestT);
        glVertex2f(right, bottom);
        glTexCoord2f(0, lowestT);
        glVertex2f(left, bottom);
    }
    glEnd();
}

void DrawCentredRectangle(float width, float height)
{
    DrawRectangle(-width / 2, -height / 2, width / 2, height / 2);
}

void CallGeometryList(unsigned list)
{
    if (platform::IsDrawing())
        glCallList(list);
}

void DrawUnitCube()
{
    if (!platform::IsDrawing())
        return;
    for (const CubeFace& face : cubeFaces) {
        glBegin(GL_QUADS);
        {
            glNormal3f(face.normal[0], face.normal[1], face.normal[2]);
            for (const QuadCorner& corner : face.corners) {
                glTexCoord2f(corner.s, corner.t);
                glVertex3f(corner.x, corner.y, corner.z);
            }
        }
        glEnd();
    }
}

void GetBillboardAxes(Vec3 right, Vec3 up)
{
    Matrix16 m;
    glGetFloatv(GL_MODELVIEW_MATRIX, m);
    Vec3Set(right, m[0], m[4], m[8]);
    Vec3Set(up, m[1], m[5], m[9]);
}

void DrawBillboard(const Vec3 position, float size)
{
    glMatrixMode(GL_MODELVIEW);
    if (!platform::IsDrawing())
        return;
    glPushMatrix();
    {
        Vec3 right, up;
        GetBillboardAxes(right, up);
        Vec3Scale(right, right, size);
        Vec3Scale(up, up, size);
        glTranslatef(position[0], position[1], position[2]);
        glBegin(GL_QUADS);
        {
            glTexCoord2f(0, 1);
            glVertex3f(-right[0] - up[0], -right[1] - up[1], -right[2] - up[2]);
            glTexCoord2f(1, 1);
            glVertex3f(right[0] - up[0], right[1] - up[1], right[2] - up[2]);
            glTexCoord2f(1, 0);
            glVertex3f(right[0] + up[0], right[1] + up[1], right[2] + up[2]);
            glTexCoord2f(0, 0);
            glVertex3f(-right[0] + up[0], -right[1] + up[1], -right[2] + up[2]);
        }
        glEnd();
    }
    glPopMatrix();
}
