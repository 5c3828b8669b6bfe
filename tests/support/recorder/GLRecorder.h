// SPDX-License-Identifier: MIT
// The GL of the tests named ...RecordedTest.cpp: it draws nothing, simulates the state of OpenGL
// (compatibility profile, per context) and keeps what was called and drawn. The program and GLU call it as
// they would call a driver: this executable defines the gl functions itself and fills GLEW's pointers, so
// nothing has to be injected anywhere.
//
// HOW A TEST LOOKS (tests/support/recorder/EffectFixture.h has the fixture for effects)
//
//     #include "tests/support/recorder/EffectFixture.h"
//
//     TEST_F(EffectFixture, TheFlashAddsWhiteOverTheWholePicture)
//     {
//         WhiteFlashOverlay overlay;
//         Prepare(&overlay);                    // DeclareMessages, then Init behind a window of 800 by 600
//         Send(&overlay, "flash");
//         Frame(&overlay);                      // a frame's clears and Render, with fresh records; no Update
//
//         ASSERT_EQ(1u, gl::Draws().size());
//         const gl::Draw& flash = gl::Draws()[0];
//         EXPECT_TRUE(gl::HasVertices(flash, {{-4, 4, 0}, {4, 4, 0}, {4, -4, 0}, {-4, -4, 0}}));
//         EXPECT_TRUE(gl::HasColour(flash, {0.9, 0.9, 0.9}));
//         EXPECT_TRUE(gl::Blends(flash, GL_ONE, GL_ONE));
//         EXPECT_TRUE(gl::IsUntextured(flash));
//         EXPECT_TRUE(gl::IsMatrix(flash.modelview, gl::Translation(0, 0, -1.5)));
//         EXPECT_FALSE(gl::Now().Enabled(GL_BLEND)); // what it leaves behind
//         EXPECT_TRUE(gl::NoErrors());
//     }
//
// Without the fixture: gl::Reset() first, then any gl calls. The expectations are in GLExpect.h, the
// structures (Draw, Vertex, State, ...) in GLState.h, matrices to compare with in GLMath.h. When a test
// fails, print gl::Dump().
//
// WHAT IS KEPT
//   Draws()  a record for each glBegin...glEnd and each array draw, also of those inside display lists, with
//            its vertices, matrices and the whole state at that moment
//   Calls()  every call of the program as text, in order: "glTranslatef(0, 0, -1.5)". Numbers are the
//            shortest that read back as the same float. Calls that GLU or a display list make are left out:
//            a list that was called shows as glCallList, and GLU as "gluPerspective(45, ...)". The names of
//            extensions read without their suffix (glActiveTextureARB as glActiveTexture), but for those of
//            shader objects; a uniform reads as glUniform1fv("delta", 1, {0.5}).
//   Clears(), Swaps(), Errors()
//
// WHAT IS SIMULATED
//   Matrix stacks with over- and underflow, viewport (a negative size is refused), switches, blending, depth,
//   alpha, culling, lights (the position goes through the modelview matrix at the call), materials, colour
//   material, fog, current colour, normal and texture coordinates per unit, textures and their levels,
//   display lists, client arrays and buffers, shader objects and uniforms, framebuffer objects, attribute
//   stacks. Matrices are kept in double precision. Colours are not lit, clamped or sampled; nothing is
//   clipped. The rest of OpenGL 1.1 (evaluators, selection, pixel drawing, ...) is kept as a call, has no
//   effect and stands in Errors() as a misuse.
//   Shaders aren't compiled: sources count as good and every uniform exists, unless a test says otherwise
//   (FailCompile and its neighbours, after Reset and ahead of Init). Uploads are read as a driver reads them,
//   padding of rows included, so that the sanitizer finds a buffer that is too small.
//
// CONTEXTS
//   SetContext says which context is current, from 1; the null window system tells it by itself once
//   FollowNullWindows was called. Each has a state of its own; textures, lists, buffers and programs are
//   shared by all, framebuffer objects are not. 0 is none: calls are kept, change nothing and give 0 back.
//
// One process has one recorder. Main thread only.
#pragma once

#include "tests/support/recorder/GLState.h"

#include <string>
#include <vector>

namespace gl
{

// ---- Start and scope

// Back to the start state of GL: one context, number 1, with a viewport of this size, no objects, no records,
// no scripted failures. Object names begin at 1 again.
void Reset(int width = 800, int height = 600);

// Drops the records and keeps the state: call it ahead of the frame that a test is about.
void ClearRecords();

// While paused, the state goes on, but no draws, calls or clears are kept: for the thousands of frames that a
// test only passes through. Errors are kept all the same.
void Pause();
void Resume();

void SetContext(int number);
int GetContext();

// Lets the null window system switch the recorder's context and its swaps appear here. Takes the frame
// observer.
void FollowNullWindows();
void UnfollowNullWindows();

void PostSwap(); // notes a swap by hand
int Swaps();

// ---- What was drawn

const std::vector<Draw>& Draws();
const std::vector<Clear>& Clears();

std::vector<Draw> DrawsWithTexture(GLuint id);         // those that sample it on unit 0
std::vector<Draw> DrawsWithTexture(std::string label); // the same, by the picture's bare file name
std::vector<Draw> DrawsWithMode(GLenum mode);
std::vector<Draw> DrawsInContext(int context);
std::vector<Draw> DrawsBetween(int firstEvent, int lastEvent); // both inclusive

// ---- What was called

struct Argument {
    enum Kind { Number, FloatNumber, Floats, Enumerant, Text } kind;
    int count; // of Floats
    union {
        double number;    // Number, FloatNumber, Enumerant
        float values[4];  // Floats: the short lists that glVertex3fv and its like are given
        const char* text; // Text; kept to the end of the process
    };
};

enum EventKind { EventCall, EventSwap, EventContext };

struct Event {
    EventKind kind;
    const char* name; // "glBegin"
    std::vector<Argument> arguments;
    int context;
    bool nested;      // made by GLU or by a display list, not by the program
    bool insideBegin; // between glBegin and glEnd
    bool compiled;    // went into a display list

    std::string Text() const; // "glBegin(GL_QUADS)"
};

// Everything in order. Draw::event, Clear::event and Error::event are indices into this.
const std::vector<Event>& Events();

// The program's own calls as text. Swaps read "swap", a change of context "context 2".
std::vector<std::string> Calls();

// The same without the calls between glBegin and glEnd.
std::vector<std::string> Outline();

// Only the calls with these names, in order: CallsNamed({"glEnable", "glDisable"}).
std::vector<std::string> CallsNamed(const std::vector<std::string>& names);
int CountCalls(std::string name);

// ---- Errors

// All since the last Reset or ClearRecords, whether or not the program asked glGetError for them.
const std::vector<Error>& Errors();
int CountErrors(GLenum code);

// ---- The state now, of the current context (of another one where a number is given)

std::shared_ptr<const State> NowShared();
const State& Now(); // good until the next call
State StateOf(int context);
Matrix Modelview();
Matrix Projection();
Matrix TextureMatrix(int unit = 0);
GLenum MatrixMode();
int StackDepth(GLenum mode); // matrices on the stack of GL_MODELVIEW, GL_PROJECTION or GL_TEXTURE; 1 at first
Colour CurrentColour();
Point CurrentNormal();
Point CurrentTexCoord(int unit = 0);
int AttributeStackDepth();

// ---- Objects

std::vector<TextureObject> Textures();       // alive, in order of their names
const TextureObject* FindTexture(GLuint id); // null if there is none
GLuint TextureNamed(std::string label);      // 0 if none bears it
std::string TextureLabel(GLuint id);         // "texture 3" where there is no label
void LabelTexture(GLuint id, std::string label);

// The bare name of a picture whose decoding begins: the next texture that gets pixels bears it. After Reset
// the texture loader tells it by itself.
void ExpectPicture(std::string path);

// Called with the path of each picture ahead of its decoding, so that a test can make the file; null: nobody.
void InventPictures(void (*inventor)(const char* path));

std::vector<ShaderObject> Shaders();
std::vector<ProgramObject> Programs();
const ProgramObject* FindProgram(GLuint id);

bool IsDisplayList(GLuint id);
std::vector<std::string> ListCalls(GLuint id); // what it holds, as text

std::vector<GLuint> Buffers(); // alive
std::vector<unsigned char> BufferBytes(GLuint id);

// ---- Scripted failures

void FailCompile(GLenum type, std::string log); // every shader of the type, until Reset
void FailLink(std::string log);
void RefusePrograms();                          // glCreateProgramObjectARB gives 0
void RefuseUniform(std::string name);           // its location is -1
void AnswerCompileStatusOfPrograms(int status); // by default the query is refused and writes nothing

// ---- For debugging

std::string Dump();                 // calls, draws, errors
std::string Dump(const Draw& draw); // one, with all its state that isn't GL's start state

} // namespace gl
