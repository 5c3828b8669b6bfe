// SPDX-License-Identifier: MIT
#include "tests/support/recorder/GLRecorder.h"

#include "resources/TextureLoaderHooks.h"
#include "tests/support/recorder/GLContext.h"

#include <algorithm>

namespace gl
{

// ---- Draws

static std::vector<Draw> Select(const std::function<bool(const Draw&)>& wanted)
{
    std::vector<Draw> found;
    std::copy_if(Draws().begin(), Draws().end(), std::back_inserter(found), wanted);
    return found;
}

std::vector<Draw> DrawsWithTexture(GLuint id)
{
    return Select([=](const Draw& draw) { return draw.Texture(0) == id; });
}

std::vector<Draw> DrawsWithTexture(std::string label)
{
    const GLuint id = TextureNamed(label);
    return id ? DrawsWithTexture(id) : std::vector<Draw>();
}

std::vector<Draw> DrawsWithMode(GLenum mode)
{
    return Select([=](const Draw& draw) { return draw.mode == mode; });
}

std::vector<Draw> DrawsInContext(int context)
{
    return Select([=](const Draw& draw) { return draw.state->context == context; });
}

std::vector<Draw> DrawsBetween(int firstEvent, int lastEvent)
{
    return Select([=](const Draw& draw) { return draw.event >= firstEvent && draw.event <= lastEvent; });
}

// ---- Calls

static bool IsBracket(const Event& event)
{
    return std::string(event.name) == "glBegin" || std::string(event.name) == "glEnd";
}

std::vector<std::string> Calls()
{
    std::vector<std::string> texts;
    for (const Event& event : Events())
        if (!event.nested)
            texts.push_back(event.Text());
    return texts;
}

std::vector<std::string> Outline()
{
    std::vector<std::string> texts;
    for (const Event& event : Events())
        if (!event.nested && (!event.insideBegin || IsBracket(event)))
            texts.push_back(event.Text());
    return texts;
}

std::vector<std::string> CallsNamed(const std::vector<std::string>& names)
{
    std::vector<std::string> texts;
    for (const Event& event : Events())
        if (!event.nested && std::count(names.begin(), names.end(), event.name))
            texts.push_back(event.Text());
    return texts;
}

int CountCalls(std::string name)
{
    return int(CallsNamed({name}).size());
}

int CountErrors(GLenum code)
{
    return int(std::count_if(Errors().begin(), Errors().end(),
                             [=](const Error& error) { return error.code == code; }));
}

// ---- State

static Context& Existing()
{
    static Context none = {};
    Context* const current = Current();
    if (!current && none.modelview.empty()) {
        none.modelview = none.projection = {Identity()};
        for (std::vector<Matrix>& stack : none.texture)
            stack = {Identity()};
    }
    return current ? *current : none;
}

std::shared_ptr<const State> NowShared()
{
    return Snapshot(Existing());
}

const State& Now()
{
    return *NowShared();
}

State StateOf(int context)
{
    Context* const found = FindContext(context);
    return found ? *Snapshot(*found) : State();
}

Matrix Modelview()
{
    return Existing().modelview.back();
}

Matrix Projection()
{
    return Existing().projection.back();
}

Matrix TextureMatrix(int unit)
{
    return Existing().texture[unit].back();
}

GLenum MatrixMode()
{
    return Existing().matrixMode;
}

int StackDepth(GLenum mode)
{
    return int(Stack(Existing(), mode).size());
}

Colour CurrentColour()
{
    return Existing().colour;
}

Point CurrentNormal()
{
    return Existing().normal;
}

Point CurrentTexCoord(int unit)
{
    return Existing().texCoord[unit];
}

int AttributeStackDepth()
{
    return int(Existing().attributes.size());
}

// ---- Objects

std::vector<TextureObject> Textures()
{
    std::vector<TextureObject> found;
    for (const auto& [id, texture] : Shared().textures)
        if (id)
            found.push_back(texture);
    return found;
}

const TextureObject* FindTexture(GLuint id)
{
    const auto found = Shared().textures.find(id);
    return id && found != Shared().textures.end() ? &found->second : nullptr;
}

GLuint TextureNamed(std::string label)
{
    for (const auto& [id, texture] : Shared().textures)
        if (texture.label == label)
            return id;
    return 0;
}

std::string TextureLabel(GLuint id)
{
    const TextureObject* const texture = FindTexture(id);
    return texture && !texture->label.empty() ? texture->label : "texture " + std::to_string(id);
}

void LabelTexture(GLuint id, std::string label)
{
    if (FindTexture(id))
        Shared().textures[id].label = label;
}

void ExpectPicture(std::string path)
{
    const size_t slash = path.find_last_of("/\\");
    Shared().expectedPicture = slash == std::string::npos ? path : path.substr(slash + 1);
}

static void (*inventor)(const char* path) = nullptr;

void InventPictures(void (*newInventor)(const char* path))
{
    inventor = newInventor;
}

// The texture loader is about to decode this file.
static void PictureBegins(const std::string& path)
{
    if (inventor)
        inventor(path.c_str());
    ExpectPicture(path);
}

void FollowPictures()
{
    ObservePictures(PictureBegins);
}

std::vector<ShaderObject> Shaders()
{
    std::vector<ShaderObject> found;
    for (const auto& [id, shader] : Shared().shaders)
        found.push_back(shader);
    return found;
}

std::vector<ProgramObject> Programs()
{
    std::vector<ProgramObject> found;
    for (const auto& [id, program] : Shared().programs)
        found.push_back(program);
    return found;
}

const ProgramObject* FindProgram(GLuint id)
{
    const auto found = Shared().programs.find(id);
    return found != Shared().programs.end() ? &found->second : nullptr;
}

bool IsDisplayList(GLuint id)
{
    return Shared().lists.count(id) != 0;
}

std::vector<std::string> ListCalls(GLuint id)
{
    std::vector<std::string> texts;
    const auto found = Shared().lists.find(id);
    if (found != Shared().lists.end() && found->second)
        for (const Command& command : *found->second)
            texts.push_back(command.event.Text());
    return texts;
}

std::vector<GLuint> Buffers()
{
    std::vector<GLuint> found;
    for (const auto& [id, buffer] : Shared().buffers)
        found.push_back(id);
    return found;
}

std::vector<unsigned char> BufferBytes(GLuint id)
{
    const auto found = Shared().buffers.find(id);
    return found != Shared().buffers.end() ? found->second.bytes : std::vector<unsigned char>();
}

// ---- Scripted failures

void FailCompile(GLenum type, std::string log)
{
    Shared().failingShaders[type] = log;
}

void FailLink(std::string log)
{
    Shared().linkFails = true;
    Shared().linkLog = log;
}

void RefusePrograms()
{
    Shared().programsRefused = true;
}

void RefuseUniform(std::string name)
{
    Shared().refusedUniforms.insert(name);
}

void AnswerCompileStatusOfPrograms(int status)
{
    Shared().programCompileStatusAnswered = true;
    Shared().programCompileStatus = status;
}

} // namespace gl
