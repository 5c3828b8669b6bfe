// SPDX-License-Identifier: MIT
// Matrix stacks, viewport and depth range.
#include "tests/support/recorder/GLContext.h"

#include <algorithm>

using namespace gl;

static size_t StackLimit(GLenum mode)
{
    return mode == GL_PROJECTION ? ProjectionStackLimit
           : mode == GL_TEXTURE  ? TextureStackLimit
                                 : ModelviewStackLimit;
}

static const char* StackName(GLenum mode)
{
    return mode == GL_PROJECTION ? "projection" : mode == GL_TEXTURE ? "texture" : "modelview";
}

static Matrix& Top(Context& context)
{
    context.changed = context.changed || context.matrixMode == GL_TEXTURE;
    return Stack(context, context.matrixMode).back();
}

static Matrix Transposed(const Matrix& matrix)
{
    Matrix result;
    for (int i = 0; i < 16; i++)
        result.m[i] = matrix.m[i % 4 * 4 + i / 4];
    return result;
}

static Action Load(const Matrix& matrix)
{
    return [matrix](Context& c) { Top(c) = matrix; };
}

static Action Multiply(const Matrix& matrix)
{
    return [matrix](Context& c) { Top(c) = Top(c) * matrix; };
}

static void SetError(Context& context, const std::string& why)
{
    gl::SetError(context, GL_INVALID_VALUE, why);
}

extern "C" {

void glMatrixMode(GLenum mode)
{
    Do("glMatrixMode", {Enum(mode)}, [=](Context& c) {
        if (mode == GL_MODELVIEW || mode == GL_PROJECTION || mode == GL_TEXTURE)
            c.matrixMode = mode;
        else
            gl::SetError(c, GL_INVALID_ENUM);
    });
}

void glPushMatrix()
{
    Do("glPushMatrix", {}, [](Context& c) {
        std::vector<Matrix>& stack = Stack(c, c.matrixMode);
        if (stack.size() >= StackLimit(c.matrixMode))
            gl::SetError(c, GL_STACK_OVERFLOW,
                         std::string("the ") + StackName(c.matrixMode) + " stack is full");
        else
            stack.push_back(Matrix(stack.back()));
    });
}

void glPopMatrix()
{
    Do("glPopMatrix", {}, [](Context& c) {
        std::vector<Matrix>& stack = Stack(c, c.matrixMode);
        if (stack.size() == 1) {
            gl::SetError(c, GL_STACK_UNDERFLOW,
                         std::string("the ") + StackName(c.matrixMode) + " stack has one matrix");
            return;
        }
        stack.pop_back();
        c.changed = c.changed || c.matrixMode == GL_TEXTURE;
    });
}

void glLoadIdentity()
{
    Do("glLoadIdentity", {}, Load(Identity()));
}

void glLoadMatrixf(const GLfloat* m)
{
    Do("glLoadMatrixf", {List(m, 16)}, Load(FromColumns(m)));
}

void glLoadMatrixd(const GLdouble* m)
{
    Do("glLoadMatrixd", {List(m, 16)}, Load(FromColumns(m)));
}

void glMultMatrixf(const GLfloat* m)
{
    Do("glMultMatrixf", {List(m, 16)}, Multiply(FromColumns(m)));
}

void glMultMatrixd(const GLdouble* m)
{
    Do("glMultMatrixd", {List(m, 16)}, Multiply(FromColumns(m)));
}

void glTranslatef(GLfloat x, GLfloat y, GLfloat z)
{
    Do("glTranslatef", {Arg(x), Arg(y), Arg(z)}, Multiply(Translation(x, y, z)));
}

void glTranslated(GLdouble x, GLdouble y, GLdouble z)
{
    Do("glTranslated", {Arg(x), Arg(y), Arg(z)}, Multiply(Translation(x, y, z)));
}

void glScalef(GLfloat x, GLfloat y, GLfloat z)
{
    Do("glScalef", {Arg(x), Arg(y), Arg(z)}, Multiply(Scaling(x, y, z)));
}

void glScaled(GLdouble x, GLdouble y, GLdouble z)
{
    Do("glScaled", {Arg(x), Arg(y), Arg(z)}, Multiply(Scaling(x, y, z)));
}

void glRotatef(GLfloat angle, GLfloat x, GLfloat y, GLfloat z)
{
    Do("glRotatef", {Arg(angle), Arg(x), Arg(y), Arg(z)}, Multiply(RotationDegrees(angle, x, y, z)));
}

void glRotated(GLdouble angle, GLdouble x, GLdouble y, GLdouble z)
{
    Do("glRotated", {Arg(angle), Arg(x), Arg(y), Arg(z)}, Multiply(RotationDegrees(angle, x, y, z)));
}

void glOrtho(GLdouble left, GLdouble right, GLdouble bottom, GLdouble top, GLdouble nearPlane,
             GLdouble farPlane)
{
    Do("glOrtho", {Arg(left), Arg(right), Arg(bottom), Arg(top), Arg(nearPlane), Arg(farPlane)},
       [=](Context& c) {
           if (left == right || bottom == top || nearPlane == farPlane)
               SetError(c, "an empty volume");
           else
               Top(c) = Top(c) * Ortho(left, right, bottom, top, nearPlane, farPlane);
       });
}

void glFrustum(GLdouble left, GLdouble right, GLdouble bottom, GLdouble top, GLdouble nearPlane,
               GLdouble farPlane)
{
    Do("glFrustum", {Arg(left), Arg(right), Arg(bottom), Arg(top), Arg(nearPlane), Arg(farPlane)},
       [=](Context& c) {
           if (left == right || bottom == top || nearPlane == farPlane || nearPlane <= 0 || farPlane <= 0)
               SetError(c, "an empty volume");
           else
               Top(c) = Top(c) * Frustum(left, right, bottom, top, nearPlane, farPlane);
       });
}

void glViewport(GLint x, GLint y, GLsizei width, GLsizei height)
{
    Do("glViewport", {Arg(x), Arg(y), Arg(width), Arg(height)}, [=](Context& c) {
        if (width < 0 || height < 0) {
            SetError(c, "a negative size");
            return;
        }
        c.state.viewport = {x, y, width, height};
        c.changed = true;
    });
}

void glDepthRange(GLclampd nearValue, GLclampd farValue)
{
    Do("glDepthRange", {Arg(nearValue), Arg(farValue)}, [=](Context& c) {
        c.state.depthNear = std::clamp(nearValue, 0.0, 1.0);
        c.state.depthFar = std::clamp(farValue, 0.0, 1.0);
        c.changed = true;
    });
}

} // extern "C"

// What the program calls through GLEW's pointers.

static void GLAPIENTRY LoadTransposeMatrixf(const GLfloat m[16])
{
    Do("glLoadTransposeMatrixf", {List(m, 16)}, Load(Transposed(FromColumns(m))));
}

static void GLAPIENTRY MultTransposeMatrixf(const GLfloat m[16])
{
    Do("glMultTransposeMatrixf", {List(m, 16)}, Multiply(Transposed(FromColumns(m))));
}

void gl::InstallMatrixCalls()
{
    __glewLoadTransposeMatrixf = LoadTransposeMatrixf;
    __glewMultTransposeMatrixf = MultTransposeMatrixf;
}
