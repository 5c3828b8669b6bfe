// SPDX-License-Identifier: MIT
// The attribute stacks.
#include "tests/support/recorder/GLContext.h"

#include <algorithm>

using namespace gl;

static void Put(std::set<GLenum>& set, GLenum name, bool on)
{
    if (on)
        set.insert(name);
    else
        set.erase(name);
}

// What glPushAttrib saves and glPopAttrib brings back, group by group.
static void Restore(Context& c, const SavedAttributes& saved)
{
    State& now = c.state;
    const State& old = saved.state;
    const GLbitfield mask = saved.mask;
    const auto restoreSwitches = [&](GLbitfield group, const std::set<GLenum>& names) {
        if (mask & (group | GL_ENABLE_BIT))
            for (GLenum name : names)
                Put(now.enabled, name, old.Enabled(name));
    };
    restoreSwitches(GL_COLOR_BUFFER_BIT,
                    {GL_ALPHA_TEST, GL_BLEND, GL_DITHER, GL_INDEX_LOGIC_OP, GL_COLOR_LOGIC_OP});
    restoreSwitches(GL_DEPTH_BUFFER_BIT, {GL_DEPTH_TEST});
    restoreSwitches(GL_FOG_BIT, {GL_FOG});
    restoreSwitches(GL_LIGHTING_BIT, {GL_LIGHTING, GL_COLOR_MATERIAL});
    restoreSwitches(GL_LINE_BIT, {GL_LINE_SMOOTH, GL_LINE_STIPPLE});
    restoreSwitches(GL_POINT_BIT, {GL_POINT_SMOOTH, GL_POINT_SPRITE});
    restoreSwitches(GL_POLYGON_BIT,
                    {GL_CULL_FACE, GL_POLYGON_SMOOTH, GL_POLYGON_STIPPLE, GL_POLYGON_OFFSET_FILL,
                     GL_POLYGON_OFFSET_LINE, GL_POLYGON_OFFSET_POINT});
    restoreSwitches(GL_SCISSOR_BIT, {GL_SCISSOR_TEST});
    restoreSwitches(GL_STENCIL_BUFFER_BIT, {GL_STENCIL_TEST});
    restoreSwitches(GL_TRANSFORM_BIT, {GL_NORMALIZE, GL_RESCALE_NORMAL, GL_CLIP_PLANE0, GL_CLIP_PLANE1});
    restoreSwitches(GL_EVAL_BIT, {GL_AUTO_NORMAL, GL_MAP1_VERTEX_3, GL_MAP2_VERTEX_3});
    if (mask & (GL_LIGHTING_BIT | GL_ENABLE_BIT))
        for (int i = 0; i < LightCount; i++)
            now.lights[i].on = old.lights[i].on;
    if (mask & (GL_TEXTURE_BIT | GL_ENABLE_BIT))
        for (int i = 0; i < UnitCount; i++) {
            now.units[i].texture2D = old.units[i].texture2D;
            now.units[i].enabled = old.units[i].enabled;
        }
    if (mask & GL_COLOR_BUFFER_BIT) {
        now.blendSource = old.blendSource;
        now.blendDestination = old.blendDestination;
        now.blendEquation = old.blendEquation;
        now.blendColour = old.blendColour;
        now.alphaFunction = old.alphaFunction;
        now.alphaReference = old.alphaReference;
        now.clearColour = old.clearColour;
        now.drawBuffer = old.drawBuffer;
        std::copy(old.colourMask, old.colourMask + 4, now.colourMask);
    }
    if (mask & GL_PIXEL_MODE_BIT)
        now.readBuffer = old.readBuffer;
    if (mask & GL_DEPTH_BUFFER_BIT) {
        now.depthFunction = old.depthFunction;
        now.depthWrites = old.depthWrites;
        now.clearDepth = old.clearDepth;
    }
    if (mask & GL_FOG_BIT) {
        now.fogMode = old.fogMode;
        now.fogDensity = old.fogDensity;
        now.fogStart = old.fogStart;
        now.fogEnd = old.fogEnd;
        now.fogColour = old.fogColour;
    }
    if (mask & GL_HINT_BIT)
        now.hints = old.hints;
    if (mask & GL_LIGHTING_BIT) {
        std::copy(old.lights, old.lights + LightCount, now.lights);
        now.lightModelAmbient = old.lightModelAmbient;
        now.localViewer = old.localViewer;
        now.twoSided = old.twoSided;
        now.shadeModel = old.shadeModel;
        now.front = old.front;
        now.back = old.back;
        now.colourMaterialFace = old.colourMaterialFace;
        now.colourMaterialMode = old.colourMaterialMode;
    }
    if (mask & GL_LINE_BIT)
        now.lineWidth = old.lineWidth;
    if (mask & GL_POINT_BIT)
        now.pointSize = old.pointSize;
    if (mask & GL_POLYGON_BIT) {
        now.cullFace = old.cullFace;
        now.frontFace = old.frontFace;
        now.polygonModeFront = old.polygonModeFront;
        now.polygonModeBack = old.polygonModeBack;
    }
    if (mask & GL_SCISSOR_BIT)
        now.scissor = old.scissor;
    if (mask & GL_VIEWPORT_BIT) {
        now.viewport = old.viewport;
        now.depthNear = old.depthNear;
        now.depthFar = old.depthFar;
    }
    if (mask & GL_TEXTURE_BIT) {
        std::copy(old.units, old.units + UnitCount, now.units);
        now.activeUnit = old.activeUnit;
    }
    if (mask & GL_TRANSFORM_BIT)
        c.matrixMode = saved.matrixMode;
    if (mask & GL_CURRENT_BIT) {
        c.colour = saved.colour;
        c.normal = saved.normal;
        std::copy(saved.texCoord, saved.texCoord + UnitCount, c.texCoord);
    }
    c.changed = true;
}

extern "C" {

void glPushAttrib(GLbitfield mask)
{
    Do("glPushAttrib", {Arg(mask)}, [=](Context& c) {
        if (c.attributes.size() >= AttributeStackLimit) {
            SetError(c, GL_STACK_OVERFLOW, "the attribute stack is full");
            return;
        }
        SavedAttributes saved = {mask, c.state, c.matrixMode, c.colour, c.normal, {}};
        std::copy(c.texCoord, c.texCoord + UnitCount, saved.texCoord);
        c.attributes.push_back(saved);
    });
}

void glPopAttrib()
{
    Do("glPopAttrib", {}, [](Context& c) {
        if (c.attributes.empty()) {
            SetError(c, GL_STACK_UNDERFLOW, "the attribute stack is empty");
            return;
        }
        Restore(c, c.attributes.back());
        c.attributes.pop_back();
    });
}

void glPushClientAttrib(GLbitfield mask)
{
    DoAtOnce("glPushClientAttrib", {Arg(mask)}, [](Context& c) {
        if (c.clientAttributes.size() >= AttributeStackLimit)
            SetError(c, GL_STACK_OVERFLOW, "the client attribute stack is full");
        else
            c.clientAttributes.push_back(c.client);
    });
}

// Brings everything back, whatever the mask was: nobody here saves half of it.
void glPopClientAttrib()
{
    DoAtOnce("glPopClientAttrib", {}, [](Context& c) {
        if (c.clientAttributes.empty()) {
            SetError(c, GL_STACK_UNDERFLOW, "the client attribute stack is empty");
            return;
        }
        c.client = c.clientAttributes.back();
        c.clientAttributes.pop_back();
    });
}

} // extern "C"
