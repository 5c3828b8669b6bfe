// SPDX-License-Identifier: MIT
// Switches, blending, depth, alpha, masks, culling, clears, hints.
#include "tests/support/recorder/GLContext.h"

#include "tests/support/recorder/GLText.h"

#include <algorithm>

using namespace gl;

// Switches that neither a texture unit nor a light has.
static const std::set<GLenum> globalSwitches = {
    GL_ALPHA_TEST,
    GL_AUTO_NORMAL,
    GL_BLEND,
    GL_CLIP_PLANE0,
    GL_CLIP_PLANE1,
    GL_CLIP_PLANE2,
    GL_CLIP_PLANE3,
    GL_CLIP_PLANE4,
    GL_CLIP_PLANE5,
    GL_COLOR_LOGIC_OP,
    GL_COLOR_MATERIAL,
    GL_COLOR_SUM,
    GL_CULL_FACE,
    GL_DEBUG_OUTPUT,
    GL_DEBUG_OUTPUT_SYNCHRONOUS,
    GL_DEPTH_TEST,
    GL_DITHER,
    GL_FOG,
    GL_INDEX_LOGIC_OP,
    GL_LIGHTING,
    GL_LINE_SMOOTH,
    GL_LINE_STIPPLE,
    GL_MAP1_VERTEX_3,
    GL_MAP2_VERTEX_3,
    GL_MULTISAMPLE,
    GL_NORMALIZE,
    GL_POINT_SMOOTH,
    GL_POINT_SPRITE,
    GL_POLYGON_OFFSET_FILL,
    GL_POLYGON_OFFSET_LINE,
    GL_POLYGON_OFFSET_POINT,
    GL_POLYGON_SMOOTH,
    GL_RASTERIZER_DISCARD,
    GL_POLYGON_STIPPLE,
    GL_RESCALE_NORMAL,
    GL_SAMPLE_ALPHA_TO_COVERAGE,
    GL_SCISSOR_TEST,
    GL_STENCIL_TEST,
    GL_VERTEX_PROGRAM_POINT_SIZE,
};

static const std::set<GLenum> unitSwitches = {
    GL_TEXTURE_1D,    GL_TEXTURE_3D,    GL_TEXTURE_CUBE_MAP, GL_TEXTURE_GEN_S,
    GL_TEXTURE_GEN_T, GL_TEXTURE_GEN_R, GL_TEXTURE_GEN_Q,
};

static bool IsLightName(GLenum name)
{
    return name >= GL_LIGHT0 && name < GL_LIGHT0 + LightCount;
}

static void Put(std::set<GLenum>& set, GLenum name, bool on)
{
    if (on)
        set.insert(name);
    else
        set.erase(name);
}

static void Switch(Context& c, GLenum capability, bool on)
{
    if (capability == GL_TEXTURE_2D)
        ActiveUnit(c).texture2D = on;
    else if (unitSwitches.count(capability))
        Put(ActiveUnit(c).enabled, capability, on);
    else if (IsLightName(capability))
        c.state.lights[capability - GL_LIGHT0].on = on;
    else if (globalSwitches.count(capability) ||
             (capability >= GL_MAP1_COLOR_4 && capability <= GL_MAP2_VERTEX_4))
        Put(c.state.enabled, capability, on);
    else
        SetError(c, GL_INVALID_ENUM);
    c.changed = true;
    if (capability == GL_COLOR_MATERIAL && on)
        SetColour(c, c.colour); // the material takes the current colour at once
}

bool gl::IsOn(Context& c, GLenum capability)
{
    if (capability == GL_TEXTURE_2D)
        return ActiveUnit(c).texture2D;
    if (unitSwitches.count(capability))
        return ActiveUnit(c).enabled.count(capability) != 0;
    if (IsLightName(capability))
        return c.state.lights[capability - GL_LIGHT0].on;
    const std::pair<GLenum, bool> arrays[] = {
        {GL_VERTEX_ARRAY, c.client.vertex.enabled},
        {GL_NORMAL_ARRAY, c.client.normal.enabled},
        {GL_COLOR_ARRAY, c.client.colour.enabled},
        {GL_TEXTURE_COORD_ARRAY, c.client.texCoord[c.client.activeUnit].enabled}};
    for (const auto& [name, on] : arrays)
        if (name == capability)
            return on;
    return c.state.Enabled(capability);
}

static bool IsComparison(GLenum function)
{
    return function >= GL_NEVER && function <= GL_ALWAYS;
}

static bool IsFactor(GLenum factor)
{
    return factor == GL_ZERO || factor == GL_ONE ||
           (factor >= GL_SRC_COLOR && factor <= GL_SRC_ALPHA_SATURATE) ||
           (factor >= GL_CONSTANT_COLOR && factor <= GL_ONE_MINUS_CONSTANT_ALPHA);
}

static bool IsFace(GLenum face)
{
    return face == GL_FRONT || face == GL_BACK || face == GL_FRONT_AND_BACK;
}

static float Clamped(float value)
{
    return std::clamp(value, 0.0f, 1.0f);
}

extern "C" {

void glEnable(GLenum capability)
{
    Do("glEnable", {Enum(capability)}, [=](Context& c) { Switch(c, capability, true); });
}

void glDisable(GLenum capability)
{
    Do("glDisable", {Enum(capability)}, [=](Context& c) { Switch(c, capability, false); });
}

GLboolean glIsEnabled(GLenum capability)
{
    GLboolean on = GL_FALSE;
    DoAtOnce("glIsEnabled", {Enum(capability)}, [&](Context& c) { on = IsOn(c, capability); });
    return on;
}

void glBlendFunc(GLenum source, GLenum destination)
{
    Do("glBlendFunc", {Factor(source), Factor(destination)}, [=](Context& c) {
        if (!IsFactor(source) || !IsFactor(destination)) {
            SetError(c, GL_INVALID_ENUM);
            return;
        }
        c.state.blendSource = source;
        c.state.blendDestination = destination;
        c.changed = true;
    });
}

void glDepthFunc(GLenum function)
{
    Do("glDepthFunc", {Enum(function)}, [=](Context& c) {
        if (!IsComparison(function)) {
            SetError(c, GL_INVALID_ENUM);
            return;
        }
        c.state.depthFunction = function;
        c.changed = true;
    });
}

void glDepthMask(GLboolean on)
{
    Do("glDepthMask", {Bool(on)}, [=](Context& c) {
        c.state.depthWrites = on != 0;
        c.changed = true;
    });
}

void glAlphaFunc(GLenum function, GLclampf reference)
{
    Do("glAlphaFunc", {Enum(function), Arg(reference)}, [=](Context& c) {
        if (!IsComparison(function)) {
            SetError(c, GL_INVALID_ENUM);
            return;
        }
        c.state.alphaFunction = function;
        c.state.alphaReference = Clamped(reference);
        c.changed = true;
    });
}

void glColorMask(GLboolean red, GLboolean green, GLboolean blue, GLboolean alpha)
{
    Do("glColorMask", {Bool(red), Bool(green), Bool(blue), Bool(alpha)}, [=](Context& c) {
        const bool mask[] = {red != 0, green != 0, blue != 0, alpha != 0};
        std::copy(mask, mask + 4, c.state.colourMask);
        c.changed = true;
    });
}

void glScissor(GLint x, GLint y, GLsizei width, GLsizei height)
{
    Do("glScissor", {Arg(x), Arg(y), Arg(width), Arg(height)}, [=](Context& c) {
        if (width < 0 || height < 0) {
            SetError(c, GL_INVALID_VALUE, "a negative size");
            return;
        }
        c.state.scissor = {x, y, width, height};
        c.changed = true;
    });
}

void glCullFace(GLenum face)
{
    Do("glCullFace", {Enum(face)}, [=](Context& c) {
        if (!IsFace(face)) {
            SetError(c, GL_INVALID_ENUM);
            return;
        }
        c.state.cullFace = face;
        c.changed = true;
    });
}

void glFrontFace(GLenum direction)
{
    Do("glFrontFace", {Enum(direction)}, [=](Context& c) {
        if (direction != GL_CW && direction != GL_CCW) {
            SetError(c, GL_INVALID_ENUM);
            return;
        }
        c.state.frontFace = direction;
        c.changed = true;
    });
}

void glPolygonMode(GLenum face, GLenum mode)
{
    Do("glPolygonMode", {Enum(face), Enum(mode)}, [=](Context& c) {
        if (!IsFace(face) || mode < GL_POINT || mode > GL_FILL) {
            SetError(c, GL_INVALID_ENUM);
            return;
        }
        if (face != GL_BACK)
            c.state.polygonModeFront = mode;
        if (face != GL_FRONT)
            c.state.polygonModeBack = mode;
        c.changed = true;
    });
}

void glPointSize(GLfloat size)
{
    Do("glPointSize", {Arg(size)}, [=](Context& c) {
        if (!(size > 0)) {
            SetError(c, GL_INVALID_VALUE);
            return;
        }
        c.state.pointSize = size;
        c.changed = true;
    });
}

void glLineWidth(GLfloat width)
{
    Do("glLineWidth", {Arg(width)}, [=](Context& c) {
        if (!(width > 0)) {
            SetError(c, GL_INVALID_VALUE);
            return;
        }
        c.state.lineWidth = width;
        c.changed = true;
    });
}

void glHint(GLenum target, GLenum mode)
{
    Do("glHint", {Enum(target), Enum(mode)}, [=](Context& c) {
        if (mode < GL_DONT_CARE || mode > GL_NICEST) {
            SetError(c, GL_INVALID_ENUM);
            return;
        }
        c.state.hints[target] = mode;
        c.changed = true;
    });
}

void glClearColor(GLclampf red, GLclampf green, GLclampf blue, GLclampf alpha)
{
    Do("glClearColor", {Arg(red), Arg(green), Arg(blue), Arg(alpha)}, [=](Context& c) {
        c.state.clearColour = Colour(Clamped(red), Clamped(green), Clamped(blue), Clamped(alpha));
        c.changed = true;
    });
}

void glClearDepth(GLclampd depth)
{
    Do("glClearDepth", {Arg(depth)}, [=](Context& c) {
        c.state.clearDepth = std::clamp(depth, 0.0, 1.0);
        c.changed = true;
    });
}

void glClear(GLbitfield mask)
{
    Do("glClear", {Word(MaskText(mask))}, [=](Context& c) {
        const GLbitfield known =
            GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT | GL_ACCUM_BUFFER_BIT;
        if (mask & ~known)
            SetError(c, GL_INVALID_VALUE);
        else
            RecordClear(c, mask);
    });
}

// Nothing is refused: which names are right depends on the framebuffer.
void glDrawBuffer(GLenum buffer)
{
    Do("glDrawBuffer", {Enum(buffer)}, [=](Context& c) {
        c.state.drawBuffer = buffer;
        c.changed = true;
    });
}

void glReadBuffer(GLenum buffer)
{
    Do("glReadBuffer", {Enum(buffer)}, [=](Context& c) {
        c.state.readBuffer = buffer;
        c.changed = true;
    });
}

void glFlush()
{
    DoAtOnce("glFlush", {}, [](Context&) {});
}

void glFinish()
{
    DoAtOnce("glFinish", {}, [](Context&) {});
}

} // extern "C"

// What the program calls through GLEW's pointers.

static void GLAPIENTRY BlendEquation(GLenum mode)
{
    Do("glBlendEquation", {Enum(mode)}, [=](Context& c) {
        c.state.blendEquation = mode;
        c.changed = true;
    });
}

static void GLAPIENTRY BlendColour(GLclampf red, GLclampf green, GLclampf blue, GLclampf alpha)
{
    Do("glBlendColor", {Arg(red), Arg(green), Arg(blue), Arg(alpha)}, [=](Context& c) {
        c.state.blendColour = Colour(red, green, blue, alpha);
        c.changed = true;
    });
}

void gl::InstallStateCalls()
{
    __glewBlendEquation = BlendEquation;
    __glewBlendColor = BlendColour;
}
