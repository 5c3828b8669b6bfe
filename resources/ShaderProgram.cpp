// SPDX-License-Identifier: MIT
#include "resources/ShaderProgram.h"

#include "kernel/Report.h"

#include <algorithm>

const GLsizei maxLogBytes = 4096;    // bytes
const long maxSourceBytes = 1 << 20; // bytes; what stands in a file's place may claim any size

static void ReportLog(GLhandleARB object)
{
    GLcharARB log[maxLogBytes + 1] = {};
    glGetInfoLogARB(object, maxLogBytes, nullptr, log);
    ReportError("Error", log);
}

// The whole file with a zero after it, or null. Never freed.
static const char* ReadSource(const std::string& path)
{
    if (path.empty())
        return nullptr;
    FILE* file = OpenFile(path.c_str(), "rt");
    if (!file)
        return nullptr;
    fseek(file, 0, SEEK_END);
    const long size = std::clamp(ftell(file), 0L, maxSourceBytes);
    rewind(file);
    char* source = new char[size + 1]();
    source[fread(source, 1, size, file)] = 0;
    CloseFile(file);
    return source;
}

ShaderProgram* ShaderProgram::Load(std::string vertexPath, std::string fragmentPath)
{
    const char* const vertexSource = ReadSource(vertexPath);
    const char* const fragmentSource = ReadSource(fragmentPath);
    if (!vertexSource && !fragmentSource) {
        ReportError("No Programs for Shader defined!", "");
        return nullptr;
    }
    return new ShaderProgram(vertexSource, fragmentSource);
}

ShaderProgram::ShaderProgram(const char* vertexSource, const char* fragmentSource)
{
    if (!glCreateProgramObjectARB) { // null where GL has no shaders
        ReportError("Error", "GL_ARB_shader_objects is not supported");
        return;
    }
    program = glCreateProgramObjectARB();
    GLhandleARB vertexShader = 0;
    GLhandleARB fragmentShader = 0;
    if (vertexSource && !CompileAndAttach(vertexSource, GL_VERTEX_SHADER_ARB, &vertexShader))
        return;
    if (fragmentSource && !CompileAndAttach(fragmentSource, GL_FRAGMENT_SHADER_ARB, &fragmentShader))
        return;
    glLinkProgramARB(program);
    GLint status = 0;
    glGetObjectParameterivARB(program, GL_OBJECT_LINK_STATUS_ARB, &status);
    if (status)
        return;
    ReportLog(program);
    glDeleteObjectARB(program);
    if (vertexShader)
        glDeleteObjectARB(vertexShader);
    if (fragmentShader)
        glDeleteObjectARB(fragmentShader);
}

bool ShaderProgram::CompileAndAttach(const char* source, GLenum type, GLhandleARB* shader)
{
    *shader = glCreateShaderObjectARB(type);
    glShaderSourceARB(*shader, 1, &source, nullptr);
    glCompileShaderARB(*shader);
    GLint status = 0;
    glGetObjectParameterivARB(*shader, GL_OBJECT_COMPILE_STATUS_ARB, &status);
    if (!status) {
        ReportLog(*shader);
        return false;
    }
    glAttachObjectARB(program, *shader);
    return true;
}

ShaderProgram::~ShaderProgram()
{
    if (glDeleteObjectARB)
        glDeleteObjectARB(program);
}

void ShaderProgram::Bind()
{
    if (glUseProgramObjectARB)
        glUseProgramObjectARB(program);
}

void ShaderProgram::Unbind()
{
    if (glUseProgramObjectARB)
        glUseProgramObjectARB(0);
}

void BindProgram(ShaderProgram* program)
{
    if (program)
        program->Bind();
    else
        ShaderProgram::Unbind();
}

void UnbindProgram()
{
    ShaderProgram::Unbind();
}
