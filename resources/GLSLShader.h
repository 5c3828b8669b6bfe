// SPDX-License-Identifier: MIT
// A pair of GLSL sources as a member of an effect. For the other family see resources/ShaderProgram.h: the
// two share nothing and fail differently.
//
// In Init:     blurShader.Load("standard_projection", "postprocessing_blur");
//              blurIntensity.Init(&blurShader, "blur_intensity", 1);
// In a frame:  blurShader.Enable(); blurIntensity.Set(&value); draw; blurShader.Disable();
//
// A shader that could not be built is reported once and then does nothing: the effect draws with the fixed
// pipeline and the run goes on. Main thread, context current.
#pragma once

#include <GL/glew.h>

#include <string>

class GLSLShader
{
public:
    GLSLShader() = default;
    GLSLShader(const GLSLShader&) = delete;
    GLSLShader& operator=(const GLSLShader&) = delete;
    ~GLSLShader(); // disables and deletes a loaded program; needs the context then

    // Bare names, "standard_projection": the files are <name>.vp and <name>.fp in the data directory. A file
    // that can't be opened and a stage that does not compile get a box each; a stage left out that way
    // still leaves a program of the other one. False, with the reason in lastError, if nothing could be
    // attached or linked, or if there is a loaded program already, which then stays. Effects ignore it.
    bool Load(std::string vertexName, std::string fragmentName);

    // Do something only on a loaded program, and only when it is not in use already (or is).
    void Enable();
    void Disable();

    int initialised = 0; // 1 after a good Load
    int enabled = 0;     // 1 while the program is in use
    std::string lastError = "No Shader specified.";
    GLhandleARB program = 0;

private:
    bool CompileAndAttach(std::string source, GLenum type);
};
