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
    if (!CanSet())
        return;
    switch (count) { // the count goes to GL as it is, where 1 might be expected: see the header
    case 1:
        glUniform1fvARB(location, count, values);
        break;
    case 2:
        glUniform2fvARB(location, count, values);
        break;
    case 3:
        glUniform3fvARB(location, count, values);
        break;
    case 4:
        glUniform4fvARB(location, count, values);
        break;
    }
}

ShaderIntParam::ShaderIntParam(ShaderProgram* program, const char* name) : location(LocationOf(program, name))
{
}

void ShaderIntParam::Set(const int* values, int count)
{
    if (!values)
        return;
    size = count;
    if (!CanSet())
        return;
    switch (count) {
    case 1:
        glUniform1ivARB(location, count, values);
        break;
    case 2:
        glUniform2ivARB(location, count, values);
        break;
    case 3:
        glUniform3ivARB(location, count, values);
        break;
    case 4:
        glUniform4ivARB(location, count, values);
        break;
    }
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
    if (!CanSet())
        return;
    switch (size) {
    case 2:
        glUniformMatrix2fvARB(location, size, GL_FALSE, values);
        break;
    case 3:
        glUniformMatrix3fvARB(location, size, GL_FALSE, values);
        break;
    case 4:
        glUniformMatrix4fvARB(location, size, GL_FALSE, values);
        break;
    }
}

ShaderSampler::ShaderSampler(ShaderProgram* program, const char* name) : location(LocationOf(program, name))
{
}

void ShaderSampler::Set(int unit)
{
    if (CanSet())
        glUniform1iARB(location, unit);
}
