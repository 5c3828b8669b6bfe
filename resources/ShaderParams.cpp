// SPDX-License-Identifier: MIT
#include "resources/ShaderParams.h"

static GLint LocationOf(const ShaderProgram* program, const char* name)
{
    if (!program || !glGetUniformLocationARB)
        return -1;
    return glGetUniformLocationARB(program->program, name);
}

// The entry points of GL's shader objects come all together or not at all.
static bool CanSet()
{
    return glUniform1iARB;
}

ShaderFloatParam::ShaderFloatParam(ShaderProgram* program, const char* name)
    : location(LocationOf(program, name))
{
}

void ShaderFloatParam::Set(const float* values, int count)
{
    if (!values)
        return;
    size = count;
    const PFNGLUNIFORM1FVARBPROC set[] = {glUniform1fvARB, glUniform2fvARB, glUniform3fvARB, glUniform4fvARB};
    if (CanSet() && count >= 1 && count <= 4)
        set[count - 1](location, count, values); // as it is, where 1 might be expected: see the header
}

ShaderIntParam::ShaderIntParam(ShaderProgram* program, const char* name) : location(LocationOf(program, name))
{
}

void ShaderIntParam::Set(const int* values, int count)
{
    if (!values)
        return;
    size = count;
    const PFNGLUNIFORM1IVARBPROC set[] = {glUniform1ivARB, glUniform2ivARB, glUniform3ivARB, glUniform4ivARB};
    if (CanSet() && count >= 1 && count <= 4)
        set[count - 1](location, count, values);
}

ShaderMatrixParam::ShaderMatrixParam(ShaderProgram* program, const char* name)
    : location(LocationOf(program, name))
{
}

void ShaderMatrixParam::Set(const float* values, int size)
{
    if (!values)
        return;
    rows = size;
    columns = size;
    const PFNGLUNIFORMMATRIX2FVARBPROC set[] = {glUniformMatrix2fvARB, glUniformMatrix3fvARB,
                                                glUniformMatrix4fvARB};
    if (CanSet() && size >= 2 && size <= 4)
        set[size - 2](location, size, GL_FALSE, values);
}

ShaderSampler::ShaderSampler(ShaderProgram* program, const char* name) : location(LocationOf(program, name))
{
}

void ShaderSampler::Set(int unit)
{
    if (CanSet())
        glUniform1iARB(location, unit);
}
