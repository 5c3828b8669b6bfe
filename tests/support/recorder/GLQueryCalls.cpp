// SPDX-License-Identifier: MIT
// glGet and its relatives.
#include "tests/support/recorder/GLContext.h"

#include "tests/support/recorder/GLText.h"

using namespace gl;

static std::vector<double> FromMatrix(const Matrix& matrix)
{
    return std::vector<double>(matrix.m, matrix.m + 16);
}

static std::vector<double> FromColour(const Colour& colour)
{
    return {colour.r, colour.g, colour.b, colour.a};
}

static std::vector<double> FromPoint(const Point& point)
{
    return {point.x, point.y, point.z, point.w};
}

static std::vector<double> FromRectangle(const Rectangle& r)
{
    return {double(r.x), double(r.y), double(r.width), double(r.height)};
}

static std::vector<double> One(double value)
{
    return {value};
}

// Each of these is empty for a name that is not its own.

// Matrices and their stacks, the rectangles of the window, and what the next vertex gets.
static std::vector<double> TransformValues(const Context& c, GLenum name)
{
    const State& s = c.state;
    switch (name) {
    case GL_MODELVIEW_MATRIX:
        return FromMatrix(c.modelview.back());
    case GL_PROJECTION_MATRIX:
        return FromMatrix(c.projection.back());
    case GL_TEXTURE_MATRIX:
        return FromMatrix(c.texture[s.activeUnit].back());
    case GL_MODELVIEW_STACK_DEPTH:
        return One(double(c.modelview.size()));
    case GL_PROJECTION_STACK_DEPTH:
        return One(double(c.projection.size()));
    case GL_TEXTURE_STACK_DEPTH:
        return One(double(c.texture[s.activeUnit].size()));
    case GL_ATTRIB_STACK_DEPTH:
        return One(double(c.attributes.size()));
    case GL_MATRIX_MODE:
        return One(c.matrixMode);
    case GL_VIEWPORT:
        return FromRectangle(s.viewport);
    case GL_SCISSOR_BOX:
        return FromRectangle(s.scissor);
    case GL_DEPTH_RANGE:
        return {s.depthNear, s.depthFar};
    case GL_CURRENT_COLOR:
        return FromColour(c.colour);
    case GL_CURRENT_NORMAL:
        return {c.normal.x, c.normal.y, c.normal.z};
    case GL_CURRENT_TEXTURE_COORDS:
        return FromPoint(c.texCoord[s.activeUnit]);
    default:
        return {};
    }
}

// How fragments are coloured, tested and written.
static std::vector<double> FragmentValues(const State& s, GLenum name)
{
    switch (name) {
    case GL_COLOR_CLEAR_VALUE:
        return FromColour(s.clearColour);
    case GL_DEPTH_CLEAR_VALUE:
        return One(s.clearDepth);
    case GL_COLOR_WRITEMASK:
        return {double(s.colourMask[0]), double(s.colourMask[1]), double(s.colourMask[2]),
                double(s.colourMask[3])};
    case GL_DEPTH_WRITEMASK:
        return One(s.depthWrites);
    case GL_DEPTH_FUNC:
        return One(s.depthFunction);
    case GL_BLEND_SRC:
    case GL_BLEND_SRC_RGB:
    case GL_BLEND_SRC_ALPHA:
        return One(s.blendSource);
    case GL_BLEND_DST:
    case GL_BLEND_DST_RGB:
    case GL_BLEND_DST_ALPHA:
        return One(s.blendDestination);
    case GL_ALPHA_TEST_FUNC:
        return One(s.alphaFunction);
    case GL_ALPHA_TEST_REF:
        return One(s.alphaReference);
    case GL_CULL_FACE_MODE:
        return One(s.cullFace);
    case GL_FRONT_FACE:
        return One(s.frontFace);
    case GL_POLYGON_MODE:
        return {double(s.polygonModeFront), double(s.polygonModeBack)};
    case GL_SHADE_MODEL:
        return One(s.shadeModel);
    case GL_POINT_SIZE:
        return One(s.pointSize);
    case GL_LINE_WIDTH:
        return One(s.lineWidth);
    case GL_LIGHT_MODEL_AMBIENT:
        return FromColour(s.lightModelAmbient);
    case GL_COLOR_MATERIAL_FACE:
        return One(s.colourMaterialFace);
    case GL_COLOR_MATERIAL_PARAMETER:
        return One(s.colourMaterialMode);
    default:
        return {};
    }
}

// What is bound, and how pixels lie in memory.
static std::vector<double> BindingValues(Context& c, GLenum name)
{
    const State& s = c.state;
    switch (name) {
    case GL_DRAW_BUFFER:
        return One(s.drawBuffer);
    case GL_READ_BUFFER:
        return One(s.readBuffer);
    case GL_ACTIVE_TEXTURE:
        return One(GL_TEXTURE0 + s.activeUnit);
    case GL_CLIENT_ACTIVE_TEXTURE:
        return One(GL_TEXTURE0 + c.client.activeUnit);
    case GL_TEXTURE_BINDING_2D:
        return One(ActiveUnit(c).bound);
    case GL_CURRENT_PROGRAM:
        return One(s.program);
    case GL_FRAMEBUFFER_BINDING:
        return One(s.framebuffer);
    case GL_RENDERBUFFER_BINDING:
        return One(c.renderbuffer);
    case GL_ARRAY_BUFFER_BINDING:
        return One(c.client.arrayBuffer);
    case GL_ELEMENT_ARRAY_BUFFER_BINDING:
        return One(c.client.elementBuffer);
    case GL_UNPACK_ALIGNMENT:
        return One(c.client.unpackAlignment);
    case GL_PACK_ALIGNMENT:
        return One(c.client.packAlignment);
    case GL_UNPACK_ROW_LENGTH:
        return One(c.client.unpackRowLength);
    case GL_UNPACK_SKIP_ROWS:
        return One(c.client.unpackSkipRows);
    case GL_UNPACK_SKIP_PIXELS:
        return One(c.client.unpackSkipPixels);
    case GL_UNPACK_SWAP_BYTES:
    case GL_UNPACK_LSB_FIRST:
    case GL_PACK_SWAP_BYTES:
    case GL_PACK_LSB_FIRST:
    case GL_PACK_ROW_LENGTH:
    case GL_PACK_SKIP_ROWS:
    case GL_PACK_SKIP_PIXELS:
    case GL_LIST_BASE:
        return One(0);
    default:
        return {};
    }
}

// What this GL can.
static std::vector<double> LimitValues(GLenum name)
{
    switch (name) {
    case GL_MAX_MODELVIEW_STACK_DEPTH:
        return One(double(ModelviewStackLimit));
    case GL_MAX_PROJECTION_STACK_DEPTH:
        return One(double(ProjectionStackLimit));
    case GL_MAX_TEXTURE_UNITS:
    case GL_MAX_TEXTURE_COORDS:
    case GL_MAX_TEXTURE_IMAGE_UNITS:
        return One(UnitCount);
    case GL_MAX_TEXTURE_SIZE:
        return One(8192);
    case GL_MAX_LIGHTS:
        return One(LightCount);
    case GL_MAX_VIEWPORT_DIMS:
        return {16384, 16384};
    case GL_DOUBLEBUFFER:
        return One(1);
    case GL_MAJOR_VERSION:
        return One(2);
    case GL_MINOR_VERSION:
        return One(1);
    default:
        return {};
    }
}

// Empty for a name that the recorder doesn't know.
static std::vector<double> Values(Context& c, GLenum name)
{
    std::vector<double> values = TransformValues(c, name);
    if (values.empty())
        values = FragmentValues(c.state, name);
    if (values.empty())
        values = BindingValues(c, name);
    if (values.empty())
        values = LimitValues(name);
    return values;
}

// Colours and normals that are asked for as ints go from -1..1 to the whole range.
static GLint AsInteger(GLenum name, double value)
{
    const bool scaled = name == GL_CURRENT_COLOR || name == GL_CURRENT_NORMAL ||
                        name == GL_COLOR_CLEAR_VALUE || name == GL_LIGHT_MODEL_AMBIENT ||
                        name == GL_DEPTH_CLEAR_VALUE;
    return GLint(scaled ? value * 2147483647.0 : value);
}

extern "C" {

void glGetFloatv(GLenum name, GLfloat* values)
{
    DoAtOnce("glGetFloatv", {Enum(name)}, [=](Context& c) {
        const std::vector<double> found = Values(c, name);
        if (found.empty())
            values[0] = IsOn(c, name);
        for (size_t i = 0; i < found.size(); i++)
            values[i] = GLfloat(found[i]);
    });
}

void glGetDoublev(GLenum name, GLdouble* values)
{
    DoAtOnce("glGetDoublev", {Enum(name)}, [=](Context& c) {
        const std::vector<double> found = Values(c, name);
        if (found.empty())
            values[0] = IsOn(c, name);
        for (size_t i = 0; i < found.size(); i++)
            values[i] = found[i];
    });
}

void glGetIntegerv(GLenum name, GLint* values)
{
    DoAtOnce("glGetIntegerv", {Enum(name)}, [=](Context& c) {
        const std::vector<double> found = Values(c, name);
        if (found.empty())
            values[0] = IsOn(c, name);
        for (size_t i = 0; i < found.size(); i++)
            values[i] = AsInteger(name, found[i]);
    });
}

void glGetBooleanv(GLenum name, GLboolean* values)
{
    DoAtOnce("glGetBooleanv", {Enum(name)}, [=](Context& c) {
        const std::vector<double> found = Values(c, name);
        if (found.empty())
            values[0] = IsOn(c, name);
        for (size_t i = 0; i < found.size(); i++)
            values[i] = found[i] != 0;
    });
}

const GLubyte* glGetString(GLenum name)
{
    const char* text = nullptr;
    DoAtOnce("glGetString", {Enum(name)}, [&](Context& c) {
        if (name == GL_VENDOR)
            text = "Marlinex";
        else if (name == GL_RENDERER)
            text = "recorder";
        else if (name == GL_VERSION)
            text = "2.1 recorder";
        else if (name == GL_SHADING_LANGUAGE_VERSION)
            text = "1.20";
        else if (name == GL_EXTENSIONS)
            text = "GL_ARB_fragment_shader GL_ARB_framebuffer_object GL_ARB_multitexture GL_ARB_point_sprite "
                   "GL_ARB_shader_objects GL_ARB_texture_non_power_of_two GL_ARB_vertex_buffer_object "
                   "GL_ARB_vertex_shader";
        else
            SetError(c, GL_INVALID_ENUM);
    });
    return reinterpret_cast<const GLubyte*>(text);
}

GLenum glGetError()
{
    GLenum error = GL_NO_ERROR;
    DoAtOnce("glGetError", {}, [&](Context& c) {
        error = c.error;
        c.error = GL_NO_ERROR;
    });
    return error;
}

void glGetLightfv(GLenum name, GLenum parameter, GLfloat* values)
{
    DoAtOnce("glGetLightfv", {Enum(name), Enum(parameter)}, [=](Context& c) {
        if (name < GL_LIGHT0 || name >= GL_LIGHT0 + LightCount) {
            SetError(c, GL_INVALID_ENUM);
            return;
        }
        const Light& light = c.state.lights[name - GL_LIGHT0];
        std::vector<double> found = One(0);
        if (parameter == GL_POSITION)
            found = FromPoint(light.position);
        else if (parameter == GL_AMBIENT)
            found = FromColour(light.ambient);
        else if (parameter == GL_DIFFUSE)
            found = FromColour(light.diffuse);
        else if (parameter == GL_SPECULAR)
            found = FromColour(light.specular);
        else
            SetError(c, GL_INVALID_ENUM, "not kept by the recorder");
        for (size_t i = 0; i < found.size(); i++)
            values[i] = GLfloat(found[i]);
    });
}

} // extern "C"
