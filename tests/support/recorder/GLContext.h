// SPDX-License-Identifier: MIT
// The recorder's inside: the simulated GL contexts, what they share, and how a call becomes a record. Tests
// use GLRecorder.h.
#pragma once

#include "tests/support/recorder/GLRecorder.h"

#include <functional>
#include <initializer_list>

namespace gl
{

const size_t ModelviewStackLimit = 32;
const size_t ProjectionStackLimit = 4;
const size_t TextureStackLimit = 4;
const size_t AttributeStackLimit = 16;
const int ListNestingLimit = 64;

struct ArrayPointer {
    bool enabled;
    GLint size;
    GLenum type;
    GLsizei stride;
    const void* pointer; // an offset where buffer isn't 0
    GLuint buffer;
};

struct ClientState {
    ArrayPointer vertex, normal, colour, texCoord[UnitCount];
    int activeUnit;
    GLuint arrayBuffer, elementBuffer;
    GLint packAlignment, unpackAlignment, unpackRowLength, unpackSkipRows, unpackSkipPixels;
};

struct SavedAttributes {
    GLbitfield mask;
    State state;
    GLenum matrixMode;
    Colour colour;
    Point normal;
    Point texCoord[UnitCount];
};

struct FramebufferObject {
    GLuint colour;       // texture
    GLuint depth;        // renderbuffer
    GLuint colourBuffer; // renderbuffer
};

struct Context {
    int number;
    State state;        // without matrices and uniforms, which a snapshot fills in
    bool changed;       // since the last snapshot
    int uniformVersion; // of the last snapshot
    std::shared_ptr<const State> snapshot;

    GLenum matrixMode;
    std::vector<Matrix> modelview, projection, texture[UnitCount];
    Colour colour;
    Point normal;
    Point texCoord[UnitCount];

    bool building; // between glBegin and glEnd
    Draw draw;     // the one being built

    ClientState client;
    std::vector<SavedAttributes> attributes;
    std::vector<ClientState> clientAttributes;
    std::map<GLuint, FramebufferObject> framebuffers;
    GLuint renderbuffer;
    GLenum error;
};

typedef std::function<void(Context&)> Action;

struct Command {
    Event event;
    Action action;
    bool allowedInside;
};

struct Buffer {
    std::vector<unsigned char> bytes;
};

// What the contexts have in common.
struct SharedObjects {
    std::map<GLuint, TextureObject> textures;
    std::map<GLuint, std::shared_ptr<const std::vector<Command>>> lists; // null: only the name is taken
    std::map<GLuint, Buffer> buffers;
    std::map<GLuint, ShaderObject> shaders;
    std::map<GLuint, ProgramObject> programs;
    std::set<GLuint> renderbuffers;
    GLuint nextTexture = 1;
    GLuint nextBuffer = 1;
    GLuint nextShader = 1; // programs too
    GLuint nextFramebuffer = 1;
    GLuint nextRenderbuffer = 1;
    GLuint nextList = 1;
    TextureLevel proxy = {};
    int uniformVersion = 0; // counts the settings

    GLuint compilingList = 0; // 0: none
    GLenum compileMode = 0;
    std::vector<Command> compiled;

    std::map<GLenum, std::string> failingShaders;
    bool linkFails = false;
    std::string linkLog;
    bool programsRefused = false;
    std::set<std::string> refusedUniforms;
    bool programCompileStatusAnswered = false;
    int programCompileStatus = 0;
    std::string expectedPicture; // bare name, empty: none

    int nesting = 0;        // calls made by GLU or out of lists
    GLuint runningList = 0; // the outermost list being called
};

Context* Current();               // null without a context
Context* CurrentIfPaused();       // null without one, and while calls are kept
Context* FindContext(int number); // null if it was never current
SharedObjects& Shared();

// ---- How a call is recorded

void StartRecords();
void RecordContext();

bool Keeping(); // calls are recorded or go into a list

Argument Arg(GLfloat value);
Argument Arg(GLdouble value);
Argument Arg(GLint value);
Argument Arg(GLuint value);
Argument Arg(long value);
Argument Bool(GLboolean value);
Argument Enum(GLenum value);
Argument Mode(GLenum value);
Argument Factor(GLenum value);
Argument Word(const std::string& text);          // as it stands
Argument Quoted(const std::string& text);        // "..."
Argument List(const GLfloat* values, int count); // {1, 2, 3}
Argument List(const GLdouble* values, int count);
Argument List(const GLint* values, int count);
Argument Address(const void* pointer); // "null" or "data": addresses differ from run to run

// Records a call, puts it into the list being compiled, and acts on the current context. Between glBegin and
// glEnd it is refused; DoAnywhere isn't.
void Do(const char* name, std::initializer_list<Argument> arguments, const Action& action);
void DoAnywhere(const char* name, std::initializer_list<Argument> arguments, const Action& action);

// The same for calls that GL never puts into a list.
void DoAtOnce(const char* name, std::initializer_list<Argument> arguments, const Action& action);

void RunList(Context& context, GLuint id);

// Notes an error of the call under way. Code 0 is a misuse that glGetError doesn't tell.
void SetError(Context& context, GLenum code, const std::string& why = "");

// Calls in between count as made by GLU.
void BeginNested();
void EndNested();

// ---- The state

std::vector<Matrix>& Stack(Context& context, GLenum mode);
TextureUnit& ActiveUnit(Context& context);
std::shared_ptr<const State> Snapshot(Context& context);
void SetColour(Context& context, const Colour& colour);
size_t PixelSize(GLenum format, GLenum type); // bytes
std::vector<unsigned char> ReadPixels(int width, int height, GLenum format, GLenum type, const void* data);
bool IsOn(Context& context, GLenum capability);

void BeginDraw(Context& context, GLenum mode);
void AddVertex(Context& context, const Point& position);
void EndDraw(Context& context);
void RecordClear(Context& context, GLbitfield mask);

// ---- GLEW's pointers

void InstallArrayCalls();
void InstallBufferCalls();
void InstallMatrixCalls();
void InstallShaderCalls();
void InstallStateCalls();
void InstallTextureCalls();
void InstallVertexCalls();

const char* Intern(const std::string& text); // kept to the end of the process

// Lets the texture loader tell the names of its pictures.
void FollowPictures();

} // namespace gl
