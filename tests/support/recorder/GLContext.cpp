// SPDX-License-Identifier: MIT
#include "tests/support/recorder/GLContext.h"

namespace gl
{

static const int defaultWidth = 800, defaultHeight = 600;

static std::map<int, Context> contexts;
static SharedObjects shared;
static int currentNumber = 1;
static Context* current = nullptr; // of that number, once it was asked for
static Rectangle startViewport = {0, 0, defaultWidth, defaultHeight};

// ---- The start state of GL

static Light StartLight(int number)
{
    Light light = {};
    light.ambient = Colour(0, 0, 0, 1);
    light.diffuse = light.specular = number == 0 ? Colour(1, 1, 1, 1) : Colour(0, 0, 0, 1);
    light.position = light.given = Point(0, 0, 1, 0);
    light.spotDirection = Point(0, 0, -1);
    light.spotCutoff = 180;
    light.constantAttenuation = 1;
    return light;
}

static State StartState(int number)
{
    State state = {};
    state.context = number;
    state.enabled = {GL_DITHER, GL_MULTISAMPLE};
    state.blendSource = GL_ONE;
    state.blendDestination = GL_ZERO;
    state.blendEquation = GL_FUNC_ADD;
    state.depthFunction = GL_LESS;
    state.depthWrites = true;
    state.depthFar = 1;
    state.alphaFunction = GL_ALWAYS;
    for (bool& channel : state.colourMask)
        channel = true;
    state.viewport = state.scissor = startViewport;
    state.cullFace = GL_BACK;
    state.frontFace = GL_CCW;
    state.polygonModeFront = state.polygonModeBack = GL_FILL;
    state.pointSize = state.lineWidth = 1;
    state.shadeModel = GL_SMOOTH;
    for (int i = 0; i < LightCount; i++)
        state.lights[i] = StartLight(i);
    state.lightModelAmbient = Colour(0.2, 0.2, 0.2, 1);
    state.front = state.back = {Colour(0.2, 0.2, 0.2, 1), Colour(0.8, 0.8, 0.8, 1), Colour(0, 0, 0, 1),
                                Colour(0, 0, 0, 1), 0};
    state.colourMaterialFace = GL_FRONT_AND_BACK;
    state.colourMaterialMode = GL_AMBIENT_AND_DIFFUSE;
    state.fogMode = GL_EXP;
    state.fogDensity = state.fogEnd = 1;
    for (TextureUnit& unit : state.units)
        unit.environment = GL_MODULATE;
    state.clearDepth = 1;
    state.drawBuffer = state.readBuffer = GL_BACK;
    return state;
}

static Context StartContext(int number)
{
    Context context = {};
    context.number = number;
    context.state = StartState(number);
    context.changed = true;
    context.matrixMode = GL_MODELVIEW;
    context.modelview = context.projection = {Identity()};
    for (std::vector<Matrix>& stack : context.texture)
        stack = {Identity()};
    context.colour = Colour(1, 1, 1, 1);
    context.normal = Point(0, 0, 1);
    context.client.packAlignment = context.client.unpackAlignment = 4;
    ArrayPointer* const arrays[] = {&context.client.vertex, &context.client.normal, &context.client.colour};
    for (ArrayPointer* array : arrays)
        *array = {false, 4, GL_FLOAT, 0, nullptr, 0};
    for (ArrayPointer& array : context.client.texCoord)
        array = {false, 4, GL_FLOAT, 0, nullptr, 0};
    return context;
}

void Reset(int width, int height)
{
    FollowPictures();
    startViewport = {0, 0, width, height};
    contexts.clear();
    shared = SharedObjects();
    currentNumber = 1;
    current = nullptr;
    StartRecords();
}

Context* Current()
{
    if (!current && currentNumber != 0) {
        auto found = contexts.find(currentNumber);
        if (found == contexts.end())
            found = contexts.emplace(currentNumber, StartContext(currentNumber)).first;
        current = &found->second;
    }
    return current;
}

Context* CurrentIfPaused()
{
    return Keeping() ? nullptr : Current();
}

Context* FindContext(int number)
{
    const auto found = contexts.find(number);
    return found == contexts.end() ? nullptr : &found->second;
}

SharedObjects& Shared()
{
    return shared;
}

void SetContext(int number)
{
    if (number == currentNumber)
        return;
    currentNumber = number;
    current = nullptr;
    RecordContext();
}

int GetContext()
{
    return currentNumber;
}

std::vector<Matrix>& Stack(Context& context, GLenum mode)
{
    if (mode == GL_PROJECTION)
        return context.projection;
    if (mode == GL_TEXTURE)
        return context.texture[context.state.activeUnit];
    return context.modelview;
}

TextureUnit& ActiveUnit(Context& context)
{
    return context.state.units[context.state.activeUnit];
}

std::shared_ptr<const State> Snapshot(Context& context)
{
    const bool uniformsChanged = context.uniformVersion != shared.uniformVersion;
    if (context.changed || uniformsChanged || !context.snapshot) {
        const std::shared_ptr<State> copy = std::make_shared<State>(context.state);
        for (int i = 0; i < UnitCount; i++)
            copy->units[i].matrix = context.texture[i].back();
        const auto program = shared.programs.find(context.state.program);
        if (program != shared.programs.end())
            copy->uniforms = program->second.uniforms;
        context.snapshot = copy;
        context.uniformVersion = shared.uniformVersion;
        context.changed = false;
    }
    return context.snapshot;
}

static void ApplyColourMaterial(Material& material, GLenum mode, const Colour& colour)
{
    if (mode == GL_AMBIENT || mode == GL_AMBIENT_AND_DIFFUSE)
        material.ambient = colour;
    if (mode == GL_DIFFUSE || mode == GL_AMBIENT_AND_DIFFUSE)
        material.diffuse = colour;
    if (mode == GL_SPECULAR)
        material.specular = colour;
    if (mode == GL_EMISSION)
        material.emission = colour;
}

void SetColour(Context& context, const Colour& colour)
{
    context.colour = colour;
    State& state = context.state;
    if (!state.Enabled(GL_COLOR_MATERIAL))
        return;
    if (state.colourMaterialFace != GL_BACK)
        ApplyColourMaterial(state.front, state.colourMaterialMode, colour);
    if (state.colourMaterialFace != GL_FRONT)
        ApplyColourMaterial(state.back, state.colourMaterialMode, colour);
    context.changed = true;
}

// GLEW's pointers are there from the start, whatever a test does first.
static bool Install()
{
    InstallArrayCalls();
    InstallBufferCalls();
    InstallMatrixCalls();
    InstallShaderCalls();
    InstallStateCalls();
    InstallTextureCalls();
    InstallVertexCalls();
    return true;
}

static const bool installed = Install();

} // namespace gl
