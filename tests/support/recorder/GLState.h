// SPDX-License-Identifier: MIT
// What the recorder keeps of each call, in plain structures. GLRecorder.h says how they come about.
#pragma once

#include "tests/support/recorder/GLMath.h"

#include <GL/glew.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace gl
{

const int UnitCount = 8;
const int LightCount = 8;

struct Vertex {
    Point object;              // as the program sent it
    Point eye;                 // times the modelview matrix
    Point clip;                // times the projection matrix too
    Point window;              // pixels, origin at the lower left; z is the depth, 0 to 1
    Colour colour;             // as sent, not clamped
    Point normal;              // as sent
    Point texCoord[UnitCount]; // s, t, r, q as sent, ahead of the texture matrix
};

struct TextureUnit {
    bool texture2D;     // GL_TEXTURE_2D is enabled
    GLuint bound;       // the object bound to GL_TEXTURE_2D, 0 for none
    GLenum environment; // GL_MODULATE at first
    Colour environmentColour;
    std::set<GLenum> enabled; // the unit's other switches: GL_TEXTURE_GEN_S and their like
    Matrix matrix;            // top of the texture stack
};

struct Light {
    bool on;
    Colour ambient, diffuse, specular;
    Point position; // in eye coordinates: times the modelview matrix at the call
    Point given;    // as the program sent it
    Point spotDirection;
    float spotExponent, spotCutoff;
    float constantAttenuation, linearAttenuation, quadraticAttenuation;
};

struct Material {
    Colour ambient, diffuse, specular, emission;
    float shininess;
};

struct Rectangle {
    int x, y, width, height;
};

// All that is settled outside of the vertices, but for the matrices. One is shared by all draws between
// which nothing changed.
struct State {
    int context;        // 1 is the window's, 2 that of the off-screen target
    GLuint framebuffer; // 0 is the window

    // Switches of glEnable, but for those of the texture units and the lights. Start: GL_DITHER and
    // GL_MULTISAMPLE.
    std::set<GLenum> enabled;
    bool Enabled(GLenum capability) const { return enabled.count(capability) != 0; }

    GLenum blendSource, blendDestination, blendEquation;
    Colour blendColour;
    GLenum depthFunction;
    bool depthWrites; // glDepthMask
    double depthNear, depthFar;
    GLenum alphaFunction;
    float alphaReference;
    bool colourMask[4];

    Rectangle viewport, scissor;
    GLenum cullFace, frontFace;
    GLenum polygonModeFront, polygonModeBack;
    float pointSize, lineWidth;

    GLenum shadeModel;
    Light lights[LightCount];
    Colour lightModelAmbient;
    bool localViewer, twoSided;
    Material front, back;
    GLenum colourMaterialFace, colourMaterialMode;

    GLenum fogMode;
    float fogDensity, fogStart, fogEnd;
    Colour fogColour;

    int activeUnit; // 0 upward
    TextureUnit units[UnitCount];

    GLuint program;                                     // 0: the fixed pipeline
    std::map<std::string, std::vector<float>> uniforms; // of that program; samplers as one float

    Colour clearColour;
    double clearDepth;
    GLenum drawBuffer, readBuffer;
    std::map<GLenum, GLenum> hints;
};

// One primitive batch: glBegin to glEnd, or an array draw.
struct Draw {
    GLenum mode;
    std::vector<Vertex> vertices;
    Matrix modelview, projection;
    std::shared_ptr<const State> state;
    int event;    // its glBegin or array call in Events()
    GLuint list;  // the display list that it came out of, 0 for none
    int frame;    // swaps ahead of it
    bool indexed; // glDrawElements

    // The texture that a unit samples: 0 if the unit is disabled or has none bound.
    GLuint Texture(int unit = 0) const;
};

struct Clear {
    GLbitfield mask;
    Colour colour; // the clear colour at the call
    double depth;
    int event;
    int frame; // swaps ahead of it
    std::shared_ptr<const State> state;
};

// An error that GL would note, or a misuse that it leaves undefined.
struct Error {
    GLenum code;      // GL_STACK_UNDERFLOW and so on; 0 for a misuse, which glGetError doesn't tell
    std::string text; // "glPopMatrix(): GL_STACK_UNDERFLOW, the modelview stack has one matrix"
    int event;
};

struct TextureLevel {
    int width, height;
    GLint internalFormat;
    GLenum format, type;
    std::vector<unsigned char> pixels; // rows without padding; empty if none were given
};

struct TextureObject {
    GLuint id;
    std::string label; // the picture's bare file name where the recorder knows it
    std::map<int, TextureLevel> levels;
    GLint minFilter, magFilter, wrapS, wrapT;
    std::map<GLenum, float> otherParameters;

    // True if the levels are gluBuild2DMipmaps's; then what it was given.
    bool builtByGlu;
    int givenWidth, givenHeight;
    GLint givenComponents;
};

struct ShaderObject {
    GLuint id;
    GLenum type;
    std::string source;
    bool compiled; // compiled without an error
    std::string log;
};

struct ProgramObject {
    GLuint id;
    bool linked;
    std::string log;
    std::vector<GLuint> shaders; // attached, in order
    std::string vertexSource, fragmentSource;
    std::map<std::string, std::vector<float>> uniforms;
    std::vector<std::string> uniformNames; // that have a location, in the order in which they were asked for
};

} // namespace gl
