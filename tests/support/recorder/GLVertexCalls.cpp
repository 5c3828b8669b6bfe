// SPDX-License-Identifier: MIT
// glBegin, glEnd and what stands between them.
#include "tests/support/recorder/GLContext.h"

using namespace gl;

typedef std::initializer_list<Argument> Arguments;

// These come by the ten thousand in a frame. While nothing is kept they act without the way through a record.

static void Vertex4(const char* name, Arguments arguments, double x, double y, double z, double w)
{
    Context* const c = CurrentIfPaused();
    if (c && c->building)
        AddVertex(*c, Point(x, y, z, w));
    else
        DoAnywhere(name, arguments, [=](Context& context) { AddVertex(context, Point(x, y, z, w)); });
}

static void Normal3(const char* name, Arguments arguments, double x, double y, double z)
{
    if (Context* const c = CurrentIfPaused())
        c->normal = Point(x, y, z);
    else
        DoAnywhere(name, arguments, [=](Context& context) { context.normal = Point(x, y, z); });
}

static void Colour4(const char* name, Arguments arguments, double r, double g, double b, double a)
{
    if (Context* const c = CurrentIfPaused())
        SetColour(*c, Colour(r, g, b, a));
    else
        DoAnywhere(name, arguments, [=](Context& context) { SetColour(context, Colour(r, g, b, a)); });
}

static void TexCoord4(const char* name, Arguments arguments, double s, double t, double r, double q)
{
    if (Context* const c = CurrentIfPaused())
        c->texCoord[0] = Point(s, t, r, q);
    else
        DoAnywhere(name, arguments, [=](Context& context) { context.texCoord[0] = Point(s, t, r, q); });
}

static Action MultiTexCoord4(GLenum unit, double s, double t, double r, double q)
{
    return [=](Context& c) {
        if (unit < GL_TEXTURE0 || unit >= GL_TEXTURE0 + UnitCount)
            SetError(c, GL_INVALID_ENUM, "no such texture unit");
        else
            c.texCoord[unit - GL_TEXTURE0] = Point(s, t, r, q);
    };
}

// clang-format off
extern "C" {

void glBegin(GLenum mode)
{
    DoAnywhere("glBegin", {Mode(mode)}, [=](Context& c) {
        if (c.building)
            SetError(c, GL_INVALID_OPERATION, "glBegin inside of glBegin and glEnd");
        else if (mode > GL_POLYGON)
            SetError(c, GL_INVALID_ENUM);
        else
            BeginDraw(c, mode);
    });
}

void glEnd()
{
    DoAnywhere("glEnd", {}, [](Context& c) {
        if (!c.building)
            SetError(c, GL_INVALID_OPERATION, "glEnd without glBegin");
        else
            EndDraw(c);
    });
}

void glVertex2f(GLfloat x, GLfloat y)                          { Vertex4("glVertex2f", {Arg(x), Arg(y)}, x, y, 0, 1); }
void glVertex3f(GLfloat x, GLfloat y, GLfloat z)               { Vertex4("glVertex3f", {Arg(x), Arg(y), Arg(z)}, x, y, z, 1); }
void glVertex4f(GLfloat x, GLfloat y, GLfloat z, GLfloat w)    { Vertex4("glVertex4f", {Arg(x), Arg(y), Arg(z), Arg(w)}, x, y, z, w); }
void glVertex2d(GLdouble x, GLdouble y)                        { Vertex4("glVertex2d", {Arg(x), Arg(y)}, x, y, 0, 1); }
void glVertex3d(GLdouble x, GLdouble y, GLdouble z)            { Vertex4("glVertex3d", {Arg(x), Arg(y), Arg(z)}, x, y, z, 1); }
void glVertex4d(GLdouble x, GLdouble y, GLdouble z, GLdouble w){ Vertex4("glVertex4d", {Arg(x), Arg(y), Arg(z), Arg(w)}, x, y, z, w); }
void glVertex2i(GLint x, GLint y)                              { Vertex4("glVertex2i", {Arg(x), Arg(y)}, x, y, 0, 1); }
void glVertex3i(GLint x, GLint y, GLint z)                     { Vertex4("glVertex3i", {Arg(x), Arg(y), Arg(z)}, x, y, z, 1); }
void glVertex2fv(const GLfloat* v)                             { Vertex4("glVertex2fv", {List(v, 2)}, v[0], v[1], 0, 1); }
void glVertex3fv(const GLfloat* v)                             { Vertex4("glVertex3fv", {List(v, 3)}, v[0], v[1], v[2], 1); }
void glVertex4fv(const GLfloat* v)                             { Vertex4("glVertex4fv", {List(v, 4)}, v[0], v[1], v[2], v[3]); }
void glVertex2dv(const GLdouble* v)                            { Vertex4("glVertex2dv", {List(v, 2)}, v[0], v[1], 0, 1); }
void glVertex3dv(const GLdouble* v)                            { Vertex4("glVertex3dv", {List(v, 3)}, v[0], v[1], v[2], 1); }

void glNormal3f(GLfloat x, GLfloat y, GLfloat z)               { Normal3("glNormal3f", {Arg(x), Arg(y), Arg(z)}, x, y, z); }
void glNormal3d(GLdouble x, GLdouble y, GLdouble z)            { Normal3("glNormal3d", {Arg(x), Arg(y), Arg(z)}, x, y, z); }
void glNormal3fv(const GLfloat* v)                             { Normal3("glNormal3fv", {List(v, 3)}, v[0], v[1], v[2]); }
void glNormal3dv(const GLdouble* v)                            { Normal3("glNormal3dv", {List(v, 3)}, v[0], v[1], v[2]); }

void glColor3f(GLfloat r, GLfloat g, GLfloat b)                { Colour4("glColor3f", {Arg(r), Arg(g), Arg(b)}, r, g, b, 1); }
void glColor4f(GLfloat r, GLfloat g, GLfloat b, GLfloat a)     { Colour4("glColor4f", {Arg(r), Arg(g), Arg(b), Arg(a)}, r, g, b, a); }
void glColor3d(GLdouble r, GLdouble g, GLdouble b)             { Colour4("glColor3d", {Arg(r), Arg(g), Arg(b)}, r, g, b, 1); }
void glColor4d(GLdouble r, GLdouble g, GLdouble b, GLdouble a) { Colour4("glColor4d", {Arg(r), Arg(g), Arg(b), Arg(a)}, r, g, b, a); }
void glColor3fv(const GLfloat* v)                              { Colour4("glColor3fv", {List(v, 3)}, v[0], v[1], v[2], 1); }
void glColor4fv(const GLfloat* v)                              { Colour4("glColor4fv", {List(v, 4)}, v[0], v[1], v[2], v[3]); }
void glColor3ub(GLubyte r, GLubyte g, GLubyte b)               { Colour4("glColor3ub", {Arg(int(r)), Arg(int(g)), Arg(int(b))}, r / 255.0, g / 255.0, b / 255.0, 1); }
void glColor4ub(GLubyte r, GLubyte g, GLubyte b, GLubyte a)    { Colour4("glColor4ub", {Arg(int(r)), Arg(int(g)), Arg(int(b)), Arg(int(a))}, r / 255.0, g / 255.0, b / 255.0, a / 255.0); }
void glColor3ubv(const GLubyte* v)                             { glColor3ub(v[0], v[1], v[2]); }
void glColor4ubv(const GLubyte* v)                             { glColor4ub(v[0], v[1], v[2], v[3]); }

void glTexCoord1f(GLfloat s)                                   { TexCoord4("glTexCoord1f", {Arg(s)}, s, 0, 0, 1); }
void glTexCoord2f(GLfloat s, GLfloat t)                        { TexCoord4("glTexCoord2f", {Arg(s), Arg(t)}, s, t, 0, 1); }
void glTexCoord3f(GLfloat s, GLfloat t, GLfloat r)             { TexCoord4("glTexCoord3f", {Arg(s), Arg(t), Arg(r)}, s, t, r, 1); }
void glTexCoord4f(GLfloat s, GLfloat t, GLfloat r, GLfloat q)  { TexCoord4("glTexCoord4f", {Arg(s), Arg(t), Arg(r), Arg(q)}, s, t, r, q); }
void glTexCoord2d(GLdouble s, GLdouble t)                      { TexCoord4("glTexCoord2d", {Arg(s), Arg(t)}, s, t, 0, 1); }
void glTexCoord2i(GLint s, GLint t)                            { TexCoord4("glTexCoord2i", {Arg(s), Arg(t)}, s, t, 0, 1); }
void glTexCoord2fv(const GLfloat* v)                           { TexCoord4("glTexCoord2fv", {List(v, 2)}, v[0], v[1], 0, 1); }
void glTexCoord2dv(const GLdouble* v)                          { TexCoord4("glTexCoord2dv", {List(v, 2)}, v[0], v[1], 0, 1); }

void glVertex4dv(const GLdouble* v)                            { Vertex4("glVertex4dv", {List(v, 4)}, v[0], v[1], v[2], v[3]); }
void glColor3dv(const GLdouble* v)                             { Colour4("glColor3dv", {List(v, 3)}, v[0], v[1], v[2], 1); }
void glColor4dv(const GLdouble* v)                             { Colour4("glColor4dv", {List(v, 4)}, v[0], v[1], v[2], v[3]); }
void glTexCoord3fv(const GLfloat* v)                           { TexCoord4("glTexCoord3fv", {List(v, 3)}, v[0], v[1], v[2], 1); }
void glTexCoord4fv(const GLfloat* v)                           { TexCoord4("glTexCoord4fv", {List(v, 4)}, v[0], v[1], v[2], v[3]); }

// A rectangle is a polygon of its own.
void glRectf(GLfloat x1, GLfloat y1, GLfloat x2, GLfloat y2)
{
    Do("glRectf", {Arg(x1), Arg(y1), Arg(x2), Arg(y2)}, [=](Context& c) {
        BeginDraw(c, GL_POLYGON);
        AddVertex(c, Point(x1, y1));
        AddVertex(c, Point(x2, y1));
        AddVertex(c, Point(x2, y2));
        AddVertex(c, Point(x1, y2));
        EndDraw(c);
    });
}

void glEdgeFlag(GLboolean on)                                  { DoAnywhere("glEdgeFlag", {Bool(on)}, [](Context&) {}); }

} // extern "C"

// What the program calls through GLEW's pointers.

static void GLAPIENTRY MultiTexCoord1f(GLenum u, GLfloat s)                                  { DoAnywhere("glMultiTexCoord1f", {Enum(u), Arg(s)}, MultiTexCoord4(u, s, 0, 0, 1)); }
static void GLAPIENTRY MultiTexCoord2f(GLenum u, GLfloat s, GLfloat t)                       { DoAnywhere("glMultiTexCoord2f", {Enum(u), Arg(s), Arg(t)}, MultiTexCoord4(u, s, t, 0, 1)); }
static void GLAPIENTRY MultiTexCoord3f(GLenum u, GLfloat s, GLfloat t, GLfloat r)            { DoAnywhere("glMultiTexCoord3f", {Enum(u), Arg(s), Arg(t), Arg(r)}, MultiTexCoord4(u, s, t, r, 1)); }
static void GLAPIENTRY MultiTexCoord4f(GLenum u, GLfloat s, GLfloat t, GLfloat r, GLfloat q) { DoAnywhere("glMultiTexCoord4f", {Enum(u), Arg(s), Arg(t), Arg(r), Arg(q)}, MultiTexCoord4(u, s, t, r, q)); }
static void GLAPIENTRY MultiTexCoord2d(GLenum u, GLdouble s, GLdouble t)                     { DoAnywhere("glMultiTexCoord2d", {Enum(u), Arg(s), Arg(t)}, MultiTexCoord4(u, s, t, 0, 1)); }
static void GLAPIENTRY MultiTexCoord2fv(GLenum u, const GLfloat* v)                          { DoAnywhere("glMultiTexCoord2fv", {Enum(u), List(v, 2)}, MultiTexCoord4(u, v[0], v[1], 0, 1)); }

void gl::InstallVertexCalls()
{
    __glewMultiTexCoord1f  = __glewMultiTexCoord1fARB  = MultiTexCoord1f;
    __glewMultiTexCoord2f  = __glewMultiTexCoord2fARB  = MultiTexCoord2f;
    __glewMultiTexCoord3f  = __glewMultiTexCoord3fARB  = MultiTexCoord3f;
    __glewMultiTexCoord4f  = __glewMultiTexCoord4fARB  = MultiTexCoord4f;
    __glewMultiTexCoord2d  = __glewMultiTexCoord2dARB  = MultiTexCoord2d;
    __glewMultiTexCoord2fv = __glewMultiTexCoord2fvARB = MultiTexCoord2fv;
}
// clang-format on
