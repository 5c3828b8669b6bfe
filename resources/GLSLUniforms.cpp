// SPDX-License-Identifier: MIT
#include "resources/GLSLUniforms.h"

static bool CanAsk(const GLSLShader* shader)
{
    return shader && glGetUniformLocationARB;
}

static GLint LocationOf(const GLSLShader* shader, const std::string& name)
{
    return glGetUniformLocationARB(shader->program, name.c_str());
}

void GLSLUniform::Init(GLSLShader* shader, std::string name, int newSize)
{
    if (newSize < 1 || newSize > 4 || !CanAsk(shader))
        return;
    valid = 1;
    location = LocationOf(shader, name);
    size = newSize;
}

bool GLSLUniform::CanSet(const void* values, int largest) const
{
    return valid && values && size >= 1 && size <= largest;
}

bool GLSLUniformFloat::Set(const float* values)
{
    if (!CanSet(values, 4))
        return false;
    const PFNGLUNIFORM1FVARBPROC set[] = {glUniform1fvARB, glUniform2fvARB, glUniform3fvARB, glUniform4fvARB};
    set[size - 1](location, 1, values);
    return true;
}

bool GLSLUniformInt::Set(const int* values)
{
    if (!CanSet(values, 4))
        return false;
    const PFNGLUNIFORM1IVARBPROC set[] = {glUniform1ivARB, glUniform2ivARB, glUniform3ivARB, glUniform4ivARB};
    set[size - 1](location, 1, values);
    return true;
}

bool GLSLUniformMatrix::Set(const float* values)
{
    if (!CanSet(values, 3))
        return false;
    // One below the dimension: that is how effects count here.
    const PFNGLUNIFORMMATRIX2FVARBPROC set[] = {glUniformMatrix2fvARB, glUniformMatrix3fvARB,
                                                glUniformMatrix4fvARB};
    set[size - 1](location, 1, GL_FALSE, values);
    return true;
}

void GLSLUniformSampler::Init(GLSLShader* shader, std::string name)
{
    if (!CanAsk(shader))
        return;
    valid = 1;
    location = LocationOf(shader, name);
}

void GLSLUniformSampler::Set(int unit)
{
    if (valid)
        glUniform1iARB(location, unit);
}
