// SPDX-License-Identifier: MIT
// A GLSL program on the heap. For the family that lives inside an effect see resources/GLSLShader.h: the two
// share nothing and fail differently.
//
// In Init:     glowShader = ShaderProgram::Load("data/glowmask.vp", "data/glowmask.fp");
//              deltaUniform = new ShaderFloatParam(glowShader, "delta");
// In a frame:  BindProgram(glowShader); deltaUniform->Set(&value, 1); draw; UnbindProgram();
//
// Effects don't test what Load gave them: BindProgram and the parameters take a null program, and drawing
// goes on with the fixed pipeline. Main thread; the window's context current, or the render target's, which
// shares its objects.
#pragma once

#include <GL/glew.h>

#include <string>

class ShaderProgram
{
public:
    // The factory. Paths as OpenFile takes them; an empty one leaves that stage to the fixed pipeline. A
    // file that can't be opened is reported and quit is posted, and its stage is left out. Null, after a
    // report, if neither source is there. Otherwise the caller owns what it gets, also when the build has
    // failed, which was reported then: that one has an unusable program.
    static ShaderProgram* Load(std::string vertexPath, std::string fragmentPath);

    // Builds the program; each source may be null. Compile and link logs go to the user under "Error".
    ShaderProgram(const char* vertexSource, const char* fragmentSource);
    ShaderProgram(const ShaderProgram&) = delete;
    ShaderProgram& operator=(const ShaderProgram&) = delete;
    ~ShaderProgram(); // deletes the GL program; needs the context then

    void Bind();          // nothing is remembered, so nesting is not tracked
    static void Unbind(); // back to the fixed pipeline

    GLhandleARB program = 0; // after a failed link the handle of the program that was deleted

private:
    bool CompileAndAttach(const char* source, GLenum type, GLhandleARB* shader);
};

// program->Bind(), or for null the fixed pipeline.
void BindProgram(ShaderProgram* program);

// ShaderProgram::Unbind().
void UnbindProgram();
