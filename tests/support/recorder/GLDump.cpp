// SPDX-License-Identifier: MIT
// The records as text to read while a test is written.
#include "tests/support/recorder/GLRecorder.h"
#include "tests/support/recorder/GLText.h"

namespace gl
{

static std::string StateText(const State& state)
{
    std::string text = "  context " + std::to_string(state.context);
    if (state.framebuffer)
        text += ", framebuffer " + std::to_string(state.framebuffer);
    text += ", viewport " + std::to_string(state.viewport.x) + " " + std::to_string(state.viewport.y) + " " +
            std::to_string(state.viewport.width) + " " + std::to_string(state.viewport.height) +
            "\n  enabled:";
    for (GLenum name : state.enabled)
        text += " " + EnumText(name);
    text += "\n  blend (" + FactorText(state.blendSource) + ", " + FactorText(state.blendDestination) + ")";
    text += std::string(", depth ") + EnumText(state.depthFunction) +
            (state.depthWrites ? "" : ", no depth writes");
    if (state.program)
        text += ", program " + std::to_string(state.program);
    text += "\n";
    for (const auto& [name, values] : state.uniforms) {
        text += "  " + name + " =";
        for (float value : values)
            text += " " + FloatText(value);
        text += "\n";
    }
    for (int i = 0; i < UnitCount; i++)
        if (state.units[i].texture2D || state.units[i].bound)
            text += "  unit " + std::to_string(i) + (state.units[i].texture2D ? ": " : " (disabled): ") +
                    (state.units[i].bound ? TextureLabel(state.units[i].bound) : "none") + "\n";
    for (int i = 0; i < LightCount; i++)
        if (state.lights[i].on)
            text += "  light " + std::to_string(i) + ": " + PointText(state.lights[i].given) + " diffuse " +
                    ColourText(state.lights[i].diffuse) + "\n";
    return text;
}

static std::string VertexText(const Vertex& vertex)
{
    std::string text = "    " + PointText(vertex.object) + " tex (" + FloatText(vertex.texCoord[0].x) + ", " +
                       FloatText(vertex.texCoord[0].y) + ") colour " + ColourText(vertex.colour) +
                       " normal " + PointText(vertex.normal);
    return text + " window " + PointText(vertex.window) + "\n";
}

std::string Dump(const Draw& draw)
{
    std::string text = ModeText(draw.mode) + ", " + std::to_string(draw.vertices.size()) + " vertices";
    if (draw.list)
        text += ", out of list " + std::to_string(draw.list);
    text += "\n" + StateText(*draw.state);
    for (const Vertex& vertex : draw.vertices)
        text += VertexText(vertex);
    return text + "  modelview\n" + MatrixText(draw.modelview) + "  projection\n" +
           MatrixText(draw.projection);
}

std::string Dump()
{
    std::string text = "calls\n";
    for (const std::string& call : Calls())
        text += "  " + call + "\n";
    for (size_t i = 0; i < Draws().size(); i++)
        text += "draw " + std::to_string(i) + ": " + Dump(Draws()[i]);
    for (const Error& error : Errors())
        text += "error: " + error.text + "\n";
    return text;
}

} // namespace gl
