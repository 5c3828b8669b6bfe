// SPDX-License-Identifier: MIT
// How calls and draws become records.
#include "tests/support/recorder/GLContext.h"

#include "tests/support/NullWindowSystem.h"
#include "tests/support/recorder/GLText.h"

#include <set>

namespace gl
{

static std::vector<Event> events;
static std::vector<Draw> draws;
static std::vector<Clear> clears;
static std::vector<Error> errors;
static bool recording = true;
static int swaps = 0;
static int contextsBefore = 0; // that the null window system had made when it began to be followed
static Event underWay;         // what an error is blamed on

void ClearRecords()
{
    events.clear();
    draws.clear();
    clears.clear();
    errors.clear();
}

void StartRecords()
{
    recording = true;
    swaps = 0;
    contextsBefore = 0;
    ClearRecords();
}

void Pause()
{
    recording = false;
}

void Resume()
{
    recording = true;
}

bool Keeping()
{
    return recording || Shared().compilingList;
}

static void AddEvent(EventKind kind, const char* name)
{
    if (recording)
        events.push_back({kind, name, {}, GetContext(), false, false, false});
}

void RecordContext()
{
    AddEvent(EventContext, "context");
}

static void FollowContext(int number)
{
    SetContext(number == 0 ? 0 : number - contextsBefore);
}

static void FollowSwap(void*)
{
    PostSwap();
}

void FollowNullWindows()
{
    contextsBefore = NullWindowState().contexts;
    NullWindowState().contextSwitched = FollowContext;
    platform::SetFrameObserver(FollowSwap, nullptr);
}

void UnfollowNullWindows()
{
    NullWindowState().contextSwitched = nullptr;
    platform::SetFrameObserver(nullptr, nullptr);
}

void PostSwap()
{
    AddEvent(EventSwap, "swap");
    swaps++;
}

int Swaps()
{
    return swaps;
}

const char* Intern(const std::string& text)
{
    static std::set<std::string> texts;
    return texts.insert(text).first->c_str();
}

const std::vector<Event>& Events()
{
    return events;
}

const std::vector<Draw>& Draws()
{
    return draws;
}

const std::vector<Clear>& Clears()
{
    return clears;
}

const std::vector<Error>& Errors()
{
    return errors;
}

static int EventUnderWay()
{
    return int(events.size()) - 1;
}

void SetError(Context& context, GLenum code, const std::string& why)
{
    if (code && !context.error)
        context.error = code;
    std::string text = underWay.Text() + ": " + (code ? ErrorText(code) : "misuse");
    if (!why.empty())
        text += ", " + why;
    errors.push_back({code, text, EventUnderWay()});
}

void BeginNested()
{
    Shared().nesting++;
}

void EndNested()
{
    Shared().nesting--;
}

static void Execute(Context& context, const Action& action, bool allowedInside)
{
    if (context.building && !allowedInside)
        SetError(context, GL_INVALID_OPERATION, "between glBegin and glEnd");
    else
        action(context);
}

static void Issue(const char* name, std::initializer_list<Argument> arguments, const Action& action,
                  bool allowedInside, bool compiles)
{
    Context* const context = Current();
    underWay.kind = EventCall;
    underWay.name = name;
    underWay.arguments.assign(arguments);
    underWay.context = GetContext();
    underWay.nested = Shared().nesting > 0;
    underWay.insideBegin = context && context->building;
    // What runs out of a list was compiled before; a list under compilation takes only the calls from
    // outside.
    underWay.compiled = context && compiles && Shared().compilingList && !Shared().runningList;
    if (recording)
        events.push_back(underWay);
    if (!context)
        return;
    const bool compiled = underWay.compiled;
    if (compiled)
        Shared().compiled.push_back({underWay, action, allowedInside});
    if (!compiled || Shared().compileMode == GL_COMPILE_AND_EXECUTE)
        Execute(*context, action, allowedInside);
}

void Do(const char* name, std::initializer_list<Argument> arguments, const Action& action)
{
    Issue(name, arguments, action, false, true);
}

void DoAnywhere(const char* name, std::initializer_list<Argument> arguments, const Action& action)
{
    Issue(name, arguments, action, true, true);
}

void DoAtOnce(const char* name, std::initializer_list<Argument> arguments, const Action& action)
{
    Issue(name, arguments, action, false, false);
}

void RunList(Context& context, GLuint id)
{
    const auto found = Shared().lists.find(id);
    if (found == Shared().lists.end() || !found->second || Shared().nesting >= ListNestingLimit)
        return; // GL ignores both
    const GLuint outer = Shared().runningList;
    if (!outer)
        Shared().runningList = id;
    BeginNested();
    // Kept here, since a call in the list may replace the list.
    const std::shared_ptr<const std::vector<Command>> commands = found->second;
    for (const Command& command : *commands) {
        underWay = command.event;
        underWay.nested = true;
        underWay.compiled = false;
        underWay.insideBegin = context.building;
        underWay.context = context.number;
        if (recording)
            events.push_back(underWay);
        Execute(context, command.action, command.allowedInside);
    }
    EndNested();
    Shared().runningList = outer;
}

// ---- Draws

void BeginDraw(Context& context, GLenum mode)
{
    context.building = true;
    context.draw = Draw();
    context.draw.mode = mode;
    context.draw.event = EventUnderWay();
    context.draw.list = Shared().runningList;
    context.draw.frame = swaps;
    context.draw.indexed = false;
}

void AddVertex(Context& context, const Point& position)
{
    if (!context.building) {
        SetError(context, 0, "a vertex outside of glBegin and glEnd");
        return;
    }
    if (!recording)
        return;
    Vertex vertex;
    vertex.object = position;
    vertex.colour = context.colour;
    vertex.normal = context.normal;
    for (int i = 0; i < UnitCount; i++)
        vertex.texCoord[i] = context.texCoord[i];
    context.draw.vertices.push_back(vertex);
}

static Point WindowPoint(const State& state, const Point& clip)
{
    if (clip.w == 0)
        return Point();
    const double x = double(clip.x) / clip.w, y = double(clip.y) / clip.w, z = double(clip.z) / clip.w;
    return Point(state.viewport.x + (x + 1) / 2 * state.viewport.width,
                 state.viewport.y + (y + 1) / 2 * state.viewport.height,
                 state.depthNear + (z + 1) / 2 * (state.depthFar - state.depthNear));
}

void EndDraw(Context& context)
{
    context.building = false;
    if (!recording)
        return;
    Draw& draw = context.draw;
    draw.modelview = context.modelview.back();
    draw.projection = context.projection.back();
    draw.state = Snapshot(context);
    const Matrix toClip = draw.projection * draw.modelview;
    for (Vertex& vertex : draw.vertices) {
        vertex.eye = draw.modelview * vertex.object;
        vertex.clip = toClip * vertex.object;
        vertex.window = WindowPoint(context.state, vertex.clip);
    }
    draws.push_back(draw);
}

void RecordClear(Context& context, GLbitfield mask)
{
    if (recording)
        clears.push_back({mask, context.state.clearColour, context.state.clearDepth, EventUnderWay(), swaps,
                          Snapshot(context)});
}

GLuint Draw::Texture(int unit) const
{
    const TextureUnit& sampled = state->units[unit];
    return sampled.texture2D ? sampled.bound : 0;
}

} // namespace gl
