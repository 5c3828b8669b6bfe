// SPDX-License-Identifier: MIT
#include "resources/GLSLUniforms.h"

static bool IsComponentCount(int size)
{
    return size >= 1 && size <= 4;
}

static bool CanAsk(const GLSLShader* shader)
{
    return shader && glGetUniformLocationARB;
}

static GLint LocationOf(const GLSLShader* shader, const std::string& name)
{
    return glGetUniformLocationARB(shader->program, name.c_str());
}

void GLSLUniformFloat::Init(GLSLShader* shader, std::string name, int componentCount)
{
    if (!IsComponentCount(componentCount) || !CanAsk(shader))
        return;
    valid = 1;
    location = LocationOf(shader, name);
    size = componentCount;
}

bool GLSLUniformFloat::Set(const float* values)
{
    if (!valid || !values)
        return false;
    switch (size) {
    case 1:
        glUniform1fvARB(location, 1, values);
        return true;
    case 2:
        glUniform2fvARB(location, 1, values);
        return true;
    case 3:
        glUniform3fvARB(location, 1, values);
        return true;
    case 4:
        glUniform4fvARB(location, 1, values);
        return true;
    }
    return false;
}

void GLSLUniformInt::Init(GLSLShader* shader, std::string name, int componentCount)
{
    if (!IsComponentCount(componentCount) || !CanAsk(shader))
        return;
    valid = 1;
    location = LocationOf(shader, name);
    size = componentCount;
}

bool GLSLUniformInt::Set(const int* values)
{
    if (!valid || !values)
        return false;
    switch (size) {
    case 1:
        glUniform1ivARB(location, 1, values);
        return true;
    case 2:
        glUniform2ivARB(location, 1, values);
        return true;
    case 3:
        glUniform3ivARB(location, 1, values);
        return true;
    case 4:
        glUniform4ivARB(location, 1, values);
        return true;
    }
    return false;
}

void GLSLUniformMatrix::Init(GLSLShader* shader, std::string name, int matrixSize)
{
    if (!IsComponentCount(matrixSize) || !CanAsk(shader))
        return;
    valid = 1;
    location = LocationOf(shader, name);
    size = matrixSize;
}

bool GLSLUniformMatrix::Set(const float* values)
{
    if (!valid || !values)
        return false;
    switch (size) { // one below the dimension: that is how effects count here
    case 1:
        glUniformMatrix2fvARB(location, 1, GL_FALSE, values);
        return true;
    case 2:
        glUniformMatrix3fvARB(location, 1, GL_FALSE, values);
        return true;
    case 3:
        glUniformMatrix4fvARB(location, 1, GL_FALSE, values);
        return true;
    }
    return false;
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
