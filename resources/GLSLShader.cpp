// SPDX-License-Identifier: MIT
#include "resources/GLSLShader.h"

#include "kernel/Report.h"
#include "platform/DebugChannel.h"
#include "platform/Paths.h"
#include "platform/RegularFile.h"

#include <vector>

const GLsizei maxLogBytes = 4096;      // bytes
const size_t maxSourceBytes = 1 << 20; // bytes

static std::string InfoLog(GLhandleARB object)
{
    std::vector<char> log(maxLogBytes + 1);
    glGetInfoLogARB(object, maxLogBytes, nullptr, log.data());
    return log.data();
}

static std::string ReadSource(std::string path)
{
    const std::string place = platform::DataPath(path);
    FILE* file = platform::OpenRegularFile(place, "rb");
    if (!file) {
        ReportError("GLSL Shader", "Unable to open the following shader: " + place);
        return "";
    }
    std::string source;
    int byte;
    while (source.size() < maxSourceBytes && (byte = fgetc(file)) != EOF)
        source += static_cast<char>(byte);
    return source; // the file stays open to the end of the run
}

GLSLShader::~GLSLShader()
{
    if (!initialised)
        return;
    if (enabled)
        Disable();
    glDeleteObjectARB(program);
}

bool GLSLShader::Load(std::string vertexName, std::string fragmentName)
{
    if (initialised) {
        lastError = "Shader already initialized";
        return false;
    }
    const std::string vertexSource = ReadSource("data\\" + vertexName + ".vp");
    const std::string fragmentSource = ReadSource("data\\" + fragmentName + ".fp");
    program = glCreateProgramObjectARB ? glCreateProgramObjectARB() : 0; // null where GL has no shaders
    if (!program)
        return false;
    const bool vertexAttached = CompileAndAttach(vertexSource, GL_VERTEX_SHADER_ARB);
    const bool fragmentAttached = CompileAndAttach(fragmentSource, GL_FRAGMENT_SHADER_ARB);
    glLinkProgramARB(program);

    // The compile status of a program, not its link status: where GL refuses the question the variable
    // stays as it is and the link counts as good. Shows were made on that.
    GLint status = 1;
    glGetObjectParameterivARB(program, GL_OBJECT_COMPILE_STATUS_ARB, &status);
    if ((vertexAttached || fragmentAttached) && status) {
        initialised = 1;
        return true;
    }
    lastError = "Unable to attach the shaders " + vertexName + "and " + fragmentName;
    if (!status)
        lastError = InfoLog(program);
    return false;
}

bool GLSLShader::CompileAndAttach(std::string source, GLenum type)
{
    std::vector<GLcharARB> buffer(source.c_str(), source.c_str() + source.size() + 1);
    platform::OutputDebugText(buffer.data());
    if (source.empty())
        return false;
    const GLhandleARB shader = glCreateShaderObjectARB(type);
    const GLcharARB* text = buffer.data();
    glShaderSourceARB(shader, 1, &text, nullptr);
    glCompileShaderARB(shader);
    GLint status = 0;
    glGetObjectParameterivARB(shader, GL_OBJECT_COMPILE_STATUS_ARB, &status);
    if (!status) {
        lastError = InfoLog(shader);
        ReportError("Attach GLSL Shader", lastError);
        return false;
    }
    glAttachObjectARB(program, shader); // the shader object stays, attached
    return true;
}

void GLSLShader::Enable()
{
    if (!initialised || enabled)
        return;
    glUseProgramObjectARB(program);
    enabled = 1;
}

void GLSLShader::Disable()
{
    if (!initialised || !enabled)
        return;
    glUseProgramObjectARB(0);
    enabled = 0;
}
