// SPDX-License-Identifier: MIT
// Shader objects, programs and uniforms, under the names of GL_ARB_shader_objects and under those of
// OpenGL 2.0. Nothing is compiled: sources count as good unless a test says otherwise, and every uniform that
// is asked for exists.
#include "tests/support/recorder/GLContext.h"

#include <algorithm>
#include <cstring>

using namespace gl;

// Locations tell their program, so that a uniform that is set while another program is in use is noticed.
const GLint LocationsPerProgram = 1000;

static ProgramObject* Program(Context& c, GLuint id)
{
    const auto found = Shared().programs.find(id);
    if (found != Shared().programs.end())
        return &found->second;
    SetError(c, Shared().shaders.count(id) ? GL_INVALID_OPERATION : GL_INVALID_VALUE, "no such program");
    return nullptr;
}

static ShaderObject* Shader(Context& c, GLuint id)
{
    const auto found = Shared().shaders.find(id);
    if (found != Shared().shaders.end())
        return &found->second;
    SetError(c, Shared().programs.count(id) ? GL_INVALID_OPERATION : GL_INVALID_VALUE, "no such shader");
    return nullptr;
}

static GLuint CreateProgram(const char* name)
{
    GLuint id = 0;
    DoAtOnce(name, {}, [&](Context&) {
        if (Shared().programsRefused)
            return;
        id = Shared().nextShader++;
        ProgramObject program = {};
        program.id = id;
        Shared().programs[id] = program;
    });
    return id;
}

static GLuint CreateShader(const char* name, GLenum type)
{
    GLuint id = 0;
    DoAtOnce(name, {Enum(type)}, [&](Context& c) {
        if (type != GL_VERTEX_SHADER && type != GL_FRAGMENT_SHADER) {
            SetError(c, GL_INVALID_ENUM);
            return;
        }
        id = Shared().nextShader++;
        ShaderObject shader = {};
        shader.id = id;
        shader.type = type;
        Shared().shaders[id] = shader;
    });
    return id;
}

// Reads the strings as a driver would: a null or negative length means up to the zero.
static void ShaderSource(const char* name, GLuint id, GLsizei count, const char* const* strings,
                         const GLint* lengths)
{
    DoAtOnce(name, {Arg(id), Arg(count)}, [=](Context& c) {
        ShaderObject* const shader = Shader(c, id);
        if (!shader)
            return;
        shader->source.clear();
        for (GLsizei i = 0; i < count; i++)
            shader->source += lengths && lengths[i] >= 0 ? std::string(strings[i], size_t(lengths[i]))
                                                         : std::string(strings[i]);
    });
}

static void CompileShader(const char* name, GLuint id)
{
    DoAtOnce(name, {Arg(id)}, [=](Context& c) {
        ShaderObject* const shader = Shader(c, id);
        if (!shader)
            return;
        const auto failure = Shared().failingShaders.find(shader->type);
        shader->compiled = failure == Shared().failingShaders.end();
        shader->log = shader->compiled ? "" : failure->second;
    });
}

static void AttachShader(const char* name, GLuint programId, GLuint shaderId)
{
    DoAtOnce(name, {Arg(programId), Arg(shaderId)}, [=](Context& c) {
        ProgramObject* const program = Program(c, programId);
        const ShaderObject* const shader = program ? Shader(c, shaderId) : nullptr;
        if (!shader)
            return;
        if (std::count(program->shaders.begin(), program->shaders.end(), shaderId)) {
            SetError(c, GL_INVALID_OPERATION, "attached already");
            return;
        }
        program->shaders.push_back(shaderId);
        (shader->type == GL_VERTEX_SHADER ? program->vertexSource : program->fragmentSource) +=
            shader->source;
    });
}

static void DetachShader(const char* name, GLuint programId, GLuint shaderId)
{
    DoAtOnce(name, {Arg(programId), Arg(shaderId)}, [=](Context& c) {
        if (ProgramObject* const program = Program(c, programId))
            program->shaders.erase(std::remove(program->shaders.begin(), program->shaders.end(), shaderId),
                                   program->shaders.end());
    });
}

// A program links if the test didn't forbid it and nothing attached to it failed to compile.
static void LinkProgram(const char* name, GLuint id)
{
    DoAtOnce(name, {Arg(id)}, [=](Context& c) {
        ProgramObject* const program = Program(c, id);
        if (!program)
            return;
        program->linked = !Shared().linkFails;
        program->log = program->linked ? "" : Shared().linkLog;
        for (GLuint shader : program->shaders)
            if (!Shared().shaders[shader].compiled) {
                program->linked = false;
                program->log = "an attached shader is not compiled";
            }
        c.changed = true;
    });
}

static void UseProgram(const char* name, GLuint id)
{
    Do(name, {Arg(id)}, [=](Context& c) {
        const ProgramObject* const program = id ? Program(c, id) : nullptr;
        if (id && !program)
            return;
        if (program && !program->linked) {
            SetError(c, GL_INVALID_OPERATION, "the program is not linked");
            return;
        }
        c.state.program = id;
        c.changed = true;
    });
}

// Deleting what isn't there is an error, deleting 0 isn't.
static void DeleteObject(const char* name, GLuint id)
{
    DoAtOnce(name, {Arg(id)}, [=](Context& c) {
        if (id == 0)
            return;
        if (!Shared().programs.erase(id) && !Shared().shaders.erase(id))
            SetError(c, GL_INVALID_VALUE, "no such object");
    });
}

static void CopyText(const std::string& text, GLsizei limit, GLsizei* length, char* buffer)
{
    if (limit <= 0)
        return;
    const size_t count = std::min(text.size(), size_t(limit) - 1);
    memcpy(buffer, text.data(), count);
    buffer[count] = '\0';
    if (length)
        *length = GLsizei(count);
}

static void InfoLog(const char* name, GLuint id, GLsizei limit, GLsizei* length, char* buffer)
{
    DoAtOnce(name, {Arg(id), Arg(limit)}, [=](Context& c) {
        if (Shared().programs.count(id))
            CopyText(Shared().programs[id].log, limit, length, buffer);
        else if (const ShaderObject* const shader = Shader(c, id))
            CopyText(shader->log, limit, length, buffer);
    });
}

static void ShaderParameter(Context& c, const ShaderObject& shader, GLenum name, GLint* value)
{
    if (name == GL_COMPILE_STATUS)
        *value = shader.compiled;
    else if (name == GL_INFO_LOG_LENGTH)
        *value = GLint(shader.log.empty() ? 0 : shader.log.size() + 1);
    else if (name == GL_OBJECT_TYPE_ARB)
        *value = GL_SHADER_OBJECT_ARB;
    else if (name == GL_SHADER_TYPE)
        *value = GLint(shader.type);
    else
        SetError(c, GL_INVALID_ENUM);
}

// A program has no compile status: the query is refused and writes nothing, unless the test gave an answer.
static void ProgramParameter(Context& c, const ProgramObject& program, GLenum name, GLint* value)
{
    if (name == GL_LINK_STATUS)
        *value = program.linked;
    else if (name == GL_INFO_LOG_LENGTH)
        *value = GLint(program.log.empty() ? 0 : program.log.size() + 1);
    else if (name == GL_OBJECT_TYPE_ARB)
        *value = GL_PROGRAM_OBJECT_ARB;
    else if (name == GL_ATTACHED_SHADERS)
        *value = GLint(program.shaders.size());
    else if (name == GL_COMPILE_STATUS && Shared().programCompileStatusAnswered)
        *value = Shared().programCompileStatus;
    else
        SetError(c, GL_INVALID_ENUM);
}

static void ObjectParameter(const char* call, GLuint id, GLenum name, GLint* value)
{
    DoAtOnce(call, {Arg(id), Enum(name)}, [=](Context& c) {
        const auto program = Shared().programs.find(id);
        if (program != Shared().programs.end())
            ProgramParameter(c, program->second, name, value);
        else if (const ShaderObject* const shader = Shader(c, id))
            ShaderParameter(c, *shader, name, value);
    });
}

static GLint UniformLocation(const char* call, GLuint id, const char* name)
{
    GLint location = -1;
    DoAtOnce(call, {Arg(id), Quoted(name)}, [&](Context& c) {
        ProgramObject* const program = Program(c, id);
        if (!program)
            return;
        if (!program->linked) {
            SetError(c, GL_INVALID_OPERATION, "the program is not linked");
            return;
        }
        if (Shared().refusedUniforms.count(name))
            return;
        std::vector<std::string>& names = program->uniformNames;
        const auto found = std::find(names.begin(), names.end(), name);
        location = GLint(id) * LocationsPerProgram + GLint(found - names.begin());
        if (found == names.end())
            names.push_back(name);
    });
    return location;
}

// No uniform here is an array: GL refuses a count above 1 and reads nothing.
static void SetUniform(Context& c, GLint location, GLsizei count, const std::vector<float>& values)
{
    if (!c.state.program) {
        SetError(c, GL_INVALID_OPERATION, "no program is in use");
        return;
    }
    if (count < 0) {
        SetError(c, GL_INVALID_VALUE);
        return;
    }
    if (location == -1)
        return;
    ProgramObject* const program = Program(c, c.state.program);
    if (!program)
        return;
    const GLint index = location - GLint(program->id) * LocationsPerProgram;
    if (index < 0 || index >= GLint(program->uniformNames.size())) {
        SetError(c, GL_INVALID_OPERATION, "the location is another program's");
        return;
    }
    if (count > 1) {
        SetError(c, GL_INVALID_OPERATION, "the uniform is no array");
        return;
    }
    program->uniforms[program->uniformNames[size_t(index)]] = values;
    Shared().uniformVersion++;
}

// A uniform reads as its name.
static Argument UniformName(GLint location)
{
    const auto program = Shared().programs.find(GLuint(location / LocationsPerProgram));
    if (location < 0 || program == Shared().programs.end())
        return Arg(location);
    const std::vector<std::string>& names = program->second.uniformNames;
    const size_t index = size_t(location % LocationsPerProgram);
    return index < names.size() ? Quoted(names[index]) : Arg(location);
}

static void UniformList(const char* call, GLint location, GLsizei count, const GLfloat* values, int size)
{
    const std::vector<float> v(values, values + size);
    Do(call, {UniformName(location), Arg(count), List(values, size)},
       [=](Context& c) { SetUniform(c, location, count, v); });
}

static void UniformList(const char* call, GLint location, GLsizei count, const GLint* values, int size)
{
    const std::vector<float> v(values, values + size);
    Do(call, {UniformName(location), Arg(count), List(values, size)},
       [=](Context& c) { SetUniform(c, location, count, v); });
}

// The forms without an array.
static void UniformPlain(const char* call, GLint location, const GLfloat* values, int size)
{
    const std::vector<float> v(values, values + size);
    Do(call, {UniformName(location), size == 1 ? Arg(values[0]) : List(values, size)},
       [=](Context& c) { SetUniform(c, location, 1, v); });
}

static void UniformMatrix(const char* call, GLint location, GLsizei count, GLboolean transpose,
                          const GLfloat* values, int size)
{
    const std::vector<float> v(values, values + size);
    Do(call, {UniformName(location), Arg(count), Bool(transpose), List(values, size)},
       [=](Context& c) { SetUniform(c, location, count, v); });
}

// clang-format off
typedef GLhandleARB Handle;

// The names of the extension.
static Handle GLAPIENTRY CreateProgramObjectARB() { return CreateProgram("glCreateProgramObjectARB"); }
static Handle GLAPIENTRY CreateShaderObjectARB(GLenum type) { return CreateShader("glCreateShaderObjectARB", type); }
static void GLAPIENTRY ShaderSourceARB(Handle s, GLsizei n, const GLcharARB** strings, const GLint* lengths) { ShaderSource("glShaderSourceARB", s, n, strings, lengths); }
static void GLAPIENTRY CompileShaderARB(Handle s) { CompileShader("glCompileShaderARB", s); }
static void GLAPIENTRY AttachObjectARB(Handle p, Handle s) { AttachShader("glAttachObjectARB", p, s); }
static void GLAPIENTRY DetachObjectARB(Handle p, Handle s) { DetachShader("glDetachObjectARB", p, s); }
static void GLAPIENTRY LinkProgramARB(Handle p) { LinkProgram("glLinkProgramARB", p); }
static void GLAPIENTRY UseProgramObjectARB(Handle p) { UseProgram("glUseProgramObjectARB", p); }
static void GLAPIENTRY DeleteObjectARB(Handle o) { DeleteObject("glDeleteObjectARB", o); }
static void GLAPIENTRY GetInfoLogARB(Handle o, GLsizei limit, GLsizei* length, GLcharARB* log) { InfoLog("glGetInfoLogARB", o, limit, length, log); }
static void GLAPIENTRY GetObjectParameterivARB(Handle o, GLenum name, GLint* value) { ObjectParameter("glGetObjectParameterivARB", o, name, value); }
static GLint GLAPIENTRY GetUniformLocationARB(Handle p, const GLcharARB* name) { return UniformLocation("glGetUniformLocationARB", p, name); }

// The names of OpenGL 2.0.
static GLuint GLAPIENTRY CreateProgram20() { return CreateProgram("glCreateProgram"); }
static GLuint GLAPIENTRY CreateShader20(GLenum type) { return CreateShader("glCreateShader", type); }
static void GLAPIENTRY ShaderSource20(GLuint s, GLsizei n, const GLchar* const* strings, const GLint* lengths) { ShaderSource("glShaderSource", s, n, strings, lengths); }
static void GLAPIENTRY CompileShader20(GLuint s) { CompileShader("glCompileShader", s); }
static void GLAPIENTRY AttachShader20(GLuint p, GLuint s) { AttachShader("glAttachShader", p, s); }
static void GLAPIENTRY DetachShader20(GLuint p, GLuint s) { DetachShader("glDetachShader", p, s); }
static void GLAPIENTRY LinkProgram20(GLuint p) { LinkProgram("glLinkProgram", p); }
static void GLAPIENTRY UseProgram20(GLuint p) { UseProgram("glUseProgram", p); }
static void GLAPIENTRY DeleteProgram20(GLuint p) { DeleteObject("glDeleteProgram", p); }
static void GLAPIENTRY DeleteShader20(GLuint s) { DeleteObject("glDeleteShader", s); }
static void GLAPIENTRY GetProgramInfoLog20(GLuint p, GLsizei limit, GLsizei* length, GLchar* log) { InfoLog("glGetProgramInfoLog", p, limit, length, log); }
static void GLAPIENTRY GetShaderInfoLog20(GLuint s, GLsizei limit, GLsizei* length, GLchar* log) { InfoLog("glGetShaderInfoLog", s, limit, length, log); }
static void GLAPIENTRY GetProgramiv20(GLuint p, GLenum name, GLint* value) { ObjectParameter("glGetProgramiv", p, name, value); }
static void GLAPIENTRY GetShaderiv20(GLuint s, GLenum name, GLint* value) { ObjectParameter("glGetShaderiv", s, name, value); }
static GLint GLAPIENTRY GetUniformLocation20(GLuint p, const GLchar* name) { return UniformLocation("glGetUniformLocation", p, name); }

// Uniforms: the two names do the same and are recorded under the first that is not the extension's.
static void GLAPIENTRY Uniform1f(GLint l, GLfloat x) { const GLfloat v[] = {x}; UniformPlain("glUniform1f", l, v, 1); }
static void GLAPIENTRY Uniform2f(GLint l, GLfloat x, GLfloat y) { const GLfloat v[] = {x, y}; UniformPlain("glUniform2f", l, v, 2); }
static void GLAPIENTRY Uniform3f(GLint l, GLfloat x, GLfloat y, GLfloat z) { const GLfloat v[] = {x, y, z}; UniformPlain("glUniform3f", l, v, 3); }
static void GLAPIENTRY Uniform4f(GLint l, GLfloat x, GLfloat y, GLfloat z, GLfloat w) { const GLfloat v[] = {x, y, z, w}; UniformPlain("glUniform4f", l, v, 4); }
static void GLAPIENTRY Uniform1i(GLint l, GLint x) { const GLfloat v[] = {GLfloat(x)}; UniformPlain("glUniform1i", l, v, 1); }
static void GLAPIENTRY Uniform1fv(GLint l, GLsizei n, const GLfloat* v) { UniformList("glUniform1fv", l, n, v, 1); }
static void GLAPIENTRY Uniform2fv(GLint l, GLsizei n, const GLfloat* v) { UniformList("glUniform2fv", l, n, v, 2); }
static void GLAPIENTRY Uniform3fv(GLint l, GLsizei n, const GLfloat* v) { UniformList("glUniform3fv", l, n, v, 3); }
static void GLAPIENTRY Uniform4fv(GLint l, GLsizei n, const GLfloat* v) { UniformList("glUniform4fv", l, n, v, 4); }
static void GLAPIENTRY Uniform1iv(GLint l, GLsizei n, const GLint* v) { UniformList("glUniform1iv", l, n, v, 1); }
static void GLAPIENTRY Uniform2iv(GLint l, GLsizei n, const GLint* v) { UniformList("glUniform2iv", l, n, v, 2); }
static void GLAPIENTRY Uniform3iv(GLint l, GLsizei n, const GLint* v) { UniformList("glUniform3iv", l, n, v, 3); }
static void GLAPIENTRY Uniform4iv(GLint l, GLsizei n, const GLint* v) { UniformList("glUniform4iv", l, n, v, 4); }
static void GLAPIENTRY UniformMatrix2fv(GLint l, GLsizei n, GLboolean t, const GLfloat* v) { UniformMatrix("glUniformMatrix2fv", l, n, t, v, 4); }
static void GLAPIENTRY UniformMatrix3fv(GLint l, GLsizei n, GLboolean t, const GLfloat* v) { UniformMatrix("glUniformMatrix3fv", l, n, t, v, 9); }
static void GLAPIENTRY UniformMatrix4fv(GLint l, GLsizei n, GLboolean t, const GLfloat* v) { UniformMatrix("glUniformMatrix4fv", l, n, t, v, 16); }

void gl::InstallShaderCalls()
{
    __GLEW_ARB_shader_objects = __GLEW_ARB_vertex_shader = __GLEW_ARB_fragment_shader = GL_TRUE;
    __GLEW_VERSION_1_3 = __GLEW_VERSION_1_5 = __GLEW_VERSION_2_0 = __GLEW_VERSION_2_1 = GL_TRUE;

    __glewCreateProgramObjectARB    = CreateProgramObjectARB;
    __glewCreateShaderObjectARB     = CreateShaderObjectARB;
    __glewShaderSourceARB           = ShaderSourceARB;
    __glewCompileShaderARB          = CompileShaderARB;
    __glewAttachObjectARB           = AttachObjectARB;
    __glewDetachObjectARB           = DetachObjectARB;
    __glewLinkProgramARB            = LinkProgramARB;
    __glewUseProgramObjectARB       = UseProgramObjectARB;
    __glewDeleteObjectARB           = DeleteObjectARB;
    __glewGetInfoLogARB             = GetInfoLogARB;
    __glewGetObjectParameterivARB   = GetObjectParameterivARB;
    __glewGetUniformLocationARB     = GetUniformLocationARB;

    __glewCreateProgram             = CreateProgram20;
    __glewCreateShader              = CreateShader20;
    __glewShaderSource              = ShaderSource20;
    __glewCompileShader             = CompileShader20;
    __glewAttachShader              = AttachShader20;
    __glewDetachShader              = DetachShader20;
    __glewLinkProgram               = LinkProgram20;
    __glewUseProgram                = UseProgram20;
    __glewDeleteProgram             = DeleteProgram20;
    __glewDeleteShader              = DeleteShader20;
    __glewGetProgramInfoLog         = GetProgramInfoLog20;
    __glewGetShaderInfoLog          = GetShaderInfoLog20;
    __glewGetProgramiv              = GetProgramiv20;
    __glewGetShaderiv               = GetShaderiv20;
    __glewGetUniformLocation        = GetUniformLocation20;

    __glewUniform1f  = __glewUniform1fARB  = Uniform1f;
    __glewUniform2f  = __glewUniform2fARB  = Uniform2f;
    __glewUniform3f  = __glewUniform3fARB  = Uniform3f;
    __glewUniform4f  = __glewUniform4fARB  = Uniform4f;
    __glewUniform1i  = __glewUniform1iARB  = Uniform1i;
    __glewUniform1fv = __glewUniform1fvARB = Uniform1fv;
    __glewUniform2fv = __glewUniform2fvARB = Uniform2fv;
    __glewUniform3fv = __glewUniform3fvARB = Uniform3fv;
    __glewUniform4fv = __glewUniform4fvARB = Uniform4fv;
    __glewUniform1iv = __glewUniform1ivARB = Uniform1iv;
    __glewUniform2iv = __glewUniform2ivARB = Uniform2iv;
    __glewUniform3iv = __glewUniform3ivARB = Uniform3iv;
    __glewUniform4iv = __glewUniform4ivARB = Uniform4iv;
    __glewUniformMatrix2fv = __glewUniformMatrix2fvARB = UniformMatrix2fv;
    __glewUniformMatrix3fv = __glewUniformMatrix3fvARB = UniformMatrix3fv;
    __glewUniformMatrix4fv = __glewUniformMatrix4fvARB = UniformMatrix4fv;
}
// clang-format on
